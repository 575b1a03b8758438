// SPDX-License-Identifier: GPL-2.0-or-later
// The door between the map program and the suite: what the program asks of a plug-in.
#include <qgisinterface.h>
#include <qgisplugin.h>

#include <QObject>
#include <memory>

#include "hosts/qgis/menu_bar.h"
#include "hosts/qgis/program_application.h"
#include "hosts/qgis/qgis_host.h"
#include "hosts/windows/pictures.h"
#include "platform/trap.h"

namespace tessarine::qgis {
namespace {

// What the host answers for its own version; it has all that the suite asks of one from 9.2 on.
constexpr const char* kHostVersion = "10.0";

class PluginWindow final : public IProgramWindow {
 public:
  explicit PluginWindow(QgisInterface& program) : program_(program) {}
  [[nodiscard]] QWidget* Window() const override { return program_.mainWindow(); }
  [[nodiscard]] QgsMapCanvas* Canvas() const override { return program_.mapCanvas(); }
  [[nodiscard]] QgsStatusBar* StatusBar() const override { return program_.statusBarIface(); }
  [[nodiscard]] QgsMapLayer* ActiveLayer() const override { return program_.activeLayer(); }
  [[nodiscard]] QList<QgsLayoutDesignerInterface*> LayoutDesigners() const override {
    return program_.openLayoutDesigners();
  }

 private:
  QgisInterface& program_;
};

class TessarinePlugin final : public QObject, public QgisPlugin {
 public:
  TessarinePlugin(QgisInterface& program, const QString& name, const QString& description, const QString& category,
                  const QString& version)
      : QgisPlugin(name, description, category, version, QgisPlugin::UI), program_(program), window_(program) {}

  void initGui() override {
    Trap("initGui", [this] {
      host_ = std::make_unique<QgisHost>(program_.mainWindow(), kHostVersion);
      application_ = std::make_shared<ProgramApplication>(window_);
      application_->Start();
      menus_ = std::make_unique<MenuBar>(program_, *host_, application_);
    });
  }

  void unload() override {
    menus_ = nullptr;
    if (application_) Trap("unload", [this] { application_->Stop(); });
    application_ = nullptr;
    host_ = nullptr;
  }

 private:
  QgisInterface& program_;
  PluginWindow window_;
  std::unique_ptr<QgisHost> host_;
  std::shared_ptr<ProgramApplication> application_;
  std::unique_ptr<MenuBar> menus_;
};

const QString kName = QStringLiteral("Tessarine Tools");
const QString kDescription = QStringLiteral(
    "Measures features on the spheroid, converts features, wraps longitudes, converts planetary latitudes and turns "
    "drawings into features.");
const QString kCategory = QStringLiteral("Vector");
const QString kVersion = QStringLiteral("Version " TESSARINE_VERSION);
const QString kIcon;

}  // namespace
}  // namespace tessarine::qgis

// NOLINTBEGIN(readability-identifier-naming): the program looks these names up.
QGISEXTERN QgisPlugin* classFactory(QgisInterface* program) {
  using namespace tessarine::qgis;
  return new TessarinePlugin(*program, kName, kDescription, kCategory, kVersion);  // the program hands it to `unload`
}
QGISEXTERN const QString* name() { return &tessarine::qgis::kName; }
QGISEXTERN const QString* description() { return &tessarine::qgis::kDescription; }
QGISEXTERN const QString* category() { return &tessarine::qgis::kCategory; }
QGISEXTERN const QString* version() { return &tessarine::qgis::kVersion; }
QGISEXTERN const QString* icon() { return &tessarine::qgis::kIcon; }
QGISEXTERN int type() { return QgisPlugin::UI; }
QGISEXTERN void unload(QgisPlugin* plugin) { delete plugin; }
// NOLINTEND(readability-identifier-naming)
