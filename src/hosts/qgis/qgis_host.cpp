// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/qgis_host.h"

#include <dlfcn.h>

#include <filesystem>

#include "platform/paths.h"

namespace tessarine::qgis {
namespace {

// Something that lies in this library.
const char kHere = 0;

}  // namespace

std::string PluginSystem::ProgramFolder() const {
  Dl_info library{};
  if (dladdr(&kHere, &library) == 0 || library.dli_fname == nullptr) return LocalOperatingSystem::ProgramFolder();
  return FromNativePath(std::filesystem::absolute(library.dli_fname).parent_path().string());
}

}  // namespace tessarine::qgis
