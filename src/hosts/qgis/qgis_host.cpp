// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/qgis_host.h"

#include <dlfcn.h>
#include <qgsproject.h>

#include <algorithm>
#include <filesystem>
#include <thread>

#include "hosts/qgis/temporary_layers.h"
#include "hosts/windows/qt_text.h"
#include "platform/paths.h"

namespace tessarine::qgis {
namespace {

// Something that lies in this library.
const char kHere = 0;

}  // namespace

std::string PluginFolder() {
  Dl_info library{};
  if (dladdr(&kHere, &library) == 0 || library.dli_fname == nullptr) return LocalOperatingSystem().ProgramFolder();
  return FromNativePath(std::filesystem::absolute(library.dli_fname).parent_path().string());
}

QString ManualFolder() { return ToQt(ToNativePath(PluginFolder())) + QStringLiteral("/manual"); }

QgisHost::QgisHost(QWidget* main_window, std::string host_version) : WindowHost(main_window, std::move(host_version)) {
  OfferTemporaryLayers(CreateMemoryWorkspaceFactory);
  FormWindows().SetManualFolder(ManualFolder());
}

QgisHost::~QgisHost() { OfferTemporaryLayers(nullptr); }

unsigned QgisHost::Jobs() const { return std::max(1U, std::thread::hardware_concurrency()); }

std::string QgisHost::ProjectFolder() const { return FromQt(QgsProject::instance()->absolutePath()); }

}  // namespace tessarine::qgis
