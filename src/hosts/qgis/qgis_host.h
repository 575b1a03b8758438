// SPDX-License-Identifier: GPL-2.0-or-later
// The map program as host: windows, with layers and renderers of the program.
#pragma once

#include "engine/local_system.h"
#include "hosts/qgis/layers.h"
#include "hosts/windows/window_host.h"

namespace tessarine::qgis {

/// What the host tells as its own version; it has all that the suite asks of one from 9.2 on.
inline constexpr const char* kHostVersion = "10.0";

/// The folder that this library lies in, a backslash path.
[[nodiscard]] std::string PluginFolder();
/// Where the manual lies, a native path.
[[nodiscard]] QString ManualFolder();

/// The operating system; the suite lies where the plug-in does, not where the map program does.
class PluginSystem final : public LocalOperatingSystem {
 public:
  [[nodiscard]] std::string ProgramFolder() const override { return PluginFolder(); }
};

class QgisHost final : public WindowHost {
 public:
  /// Offers temporary layers as outputs while it lives.
  QgisHost(QWidget* main_window, std::string host_version);
  ~QgisHost() override;
  QgisHost(const QgisHost&) = delete;
  QgisHost& operator=(const QgisHost&) = delete;

  [[nodiscard]] std::string ProjectFolder() const override;
  /// As many threads as the machine has processors.
  [[nodiscard]] unsigned Jobs() const override;
  IOperatingSystem& System() override { return system_; }
  std::shared_ptr<IFeatureLayer> CreateFeatureLayer() override { return std::make_shared<VectorLayer>(); }
  std::shared_ptr<ISimpleRenderer> CreateSimpleRenderer() override { return std::make_shared<SingleRenderer>(); }

 private:
  PluginSystem system_;
};

}  // namespace tessarine::qgis
