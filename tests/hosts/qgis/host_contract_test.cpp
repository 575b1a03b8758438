// SPDX-License-Identifier: GPL-2.0-or-later
// The map program's host under the contract of all hosts.
#include "hosts/contract/host_contract.h"

#include <qgsannotationlayer.h>
#include <qgsannotationlineitem.h>
#include <qgsannotationmarkeritem.h>
#include <qgsannotationpointtextitem.h>
#include <qgsannotationpolygonitem.h>
#include <qgsattributetableconfig.h>
#include <qgscurvepolygon.h>
#include <qgsfillsymbol.h>
#include <qgslayertree.h>
#include <qgslinesymbol.h>
#include <qgsmarkersymbol.h>
#include <qgssinglesymbolrenderer.h>

#include "hosts/qgis/annotation_items.h"
#include "hosts/qgis/program_fixture.h"
#include "hosts/qgis/values.h"
#include "hosts/windows/qt_text.h"

namespace tessarine::testing {
namespace {

class ProgramContractHost final : public ContractHost {
 public:
  ProgramContractHost() : application_(std::make_shared<qgis::ProgramApplication>(window_)) { application_->Start(); }
  ~ProgramContractHost() override {
    application_->Stop();
    QgsProject::instance()->clear();
  }
  ProgramContractHost(const ProgramContractHost&) = delete;
  ProgramContractHost& operator=(const ProgramContractHost&) = delete;

  [[nodiscard]] std::shared_ptr<IApplication> Application() const override { return application_; }

  void OpenLayer(const std::string& file, const std::string& name, const std::string& group) override {
    QgsLayerTreeGroup* root = QgsProject::instance()->layerTreeRoot();
    if (!group.empty()) root = root->addGroup(ToQt(group));
    root->addLayer(Add(file, name));
  }
  void OpenTable(const std::string& file, const std::string& name) override { OpenLayer(file, name, ""); }
  void SelectRows(const std::string& layer, const std::vector<std::int64_t>& oids) override {
    Find(layer)->selectByIds({oids.begin(), oids.end()});
  }
  void SetFieldInfo(const std::string& layer, const std::string& field, const FieldInfo& info) override {
    QgsVectorLayer& shown = *Find(layer);
    const int index = shown.fields().lookupField(ToQt(field));
    shown.setFieldAlias(index, ToQt(info.Alias));
    QgsAttributeTableConfig columns = shown.attributeTableConfig();
    columns.update(shown.fields());
    columns.setColumnHidden(index, !info.Visible);
    shown.setAttributeTableConfig(columns);
  }
  void MakeCurrent(const std::string& layer) override { window_.SetActiveLayer(Find(layer)); }
  void SetMapReference(const std::string& text) override {
    const QgsCoordinateReferenceSystem reference(ToQt(text));
    QgsProject::instance()->setCrs(reference);
    QgsProject::instance()->mainAnnotationLayer()->setCrs(reference);
  }
  void Draw(const std::string& kind, const GeometryRef& shape, const std::string& color) override {
    const QgsGeometry geometry = qgis::GeometryOf(*shape, true);
    QgsProject::instance()->mainAnnotationLayer()->addItem(MakeItem(kind, geometry, QColor(ToQt(color))));
  }
  void Save(const std::string& native_path) override {
    ASSERT_TRUE(QgsProject::instance()->write(ToQt(native_path)));
    path_ = ToQt(native_path);
  }
  void Reopen() override {
    QgsProject::instance()->clear();
    ASSERT_TRUE(QgsProject::instance()->read(path_));
  }
  [[nodiscard]] bool IsDirty() const override { return QgsProject::instance()->isDirty(); }

  [[nodiscard]] std::shared_ptr<IFeatureLayer> NewLayer() const override {
    return std::make_shared<qgis::VectorLayer>();
  }
  [[nodiscard]] std::shared_ptr<ISimpleRenderer> NewRenderer() const override {
    return std::make_shared<qgis::SingleRenderer>();
  }
  [[nodiscard]] std::string ColorOf(const std::shared_ptr<IFeatureLayer>& layer) const override {
    const auto* shown = Cast<qgis::VectorLayer>(layer)->Shown();
    const auto* renderer = dynamic_cast<const QgsSingleSymbolRenderer*>(shown->renderer());
    return renderer != nullptr ? FromQt(renderer->symbol()->color().name()) : "";
  }

 private:
  static QgsVectorLayer* Add(const std::string& file, const std::string& name) {
    auto* layer = new QgsVectorLayer(ToQt(file), ToQt(name), QStringLiteral("ogr"));  // the project owns it
    QgsProject::instance()->addMapLayer(layer, false);
    return layer;
  }
  static QgsVectorLayer* Find(const std::string& name) {
    return qobject_cast<QgsVectorLayer*>(QgsProject::instance()->mapLayersByName(ToQt(name)).front());
  }
  // The layer takes it over.
  static QgsAnnotationItem* MakeItem(const std::string& kind, const QgsGeometry& geometry, const QColor& color) {
    const QgsAbstractGeometry& shape = *geometry.constGet();
    if (kind == "marker") {
      auto* item = new QgsAnnotationMarkerItem(dynamic_cast<const QgsPoint&>(shape));
      item->setSymbol(Colored(QgsMarkerSymbol::createSimple({}), color));
      return item;
    }
    if (kind == "text") return new QgsAnnotationPointTextItem(QStringLiteral("text"), geometry.asPoint());
    if (kind == "line") {
      auto* item = new QgsAnnotationLineItem(dynamic_cast<const QgsCurve&>(shape).clone());
      item->setSymbol(Colored(QgsLineSymbol::createSimple({}), color));
      return item;
    }
    auto* item = new QgsAnnotationPolygonItem(dynamic_cast<const QgsCurvePolygon&>(shape).clone());
    item->setSymbol(Colored(QgsFillSymbol::createSimple({}), color));
    return item;
  }
  template <class Symbol>
  static Symbol* Colored(Symbol* symbol, const QColor& color) {
    symbol->setColor(color);
    return symbol;
  }

  PartsWindow window_;
  std::shared_ptr<qgis::ProgramApplication> application_;
  QString path_;
};

std::unique_ptr<ContractHost> MakeProgramHost() { return std::make_unique<ProgramContractHost>(); }

INSTANTIATE_TEST_SUITE_P(Program, HostContract,
                         ::testing::Values(HostCase{"map.qgz", MakeProgramHost, "ESRI Shapefile", ".shp"},
                                           HostCase{"map.qgz", MakeProgramHost, "GPKG", ".gpkg"}));

}  // namespace
}  // namespace tessarine::testing
