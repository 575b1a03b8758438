// SPDX-License-Identifier: GPL-2.0-or-later
// The document host under the contract of all hosts.
#include "hosts/contract/host_contract.h"

#include "hosts/document/document_application.h"
#include "hosts/document/document_file.h"
#include "hosts/document/document_layer.h"
#include "hosts/terminal/terminal_status_bar.h"

namespace tessarine::testing {
namespace {

class DocumentContractHost final : public ContractHost {
 public:
  DocumentContractHost() { Start(); }
  ~DocumentContractHost() override { application_->Stop(); }
  DocumentContractHost(const DocumentContractHost&) = delete;
  DocumentContractHost& operator=(const DocumentContractHost&) = delete;

  [[nodiscard]] std::shared_ptr<IApplication> Application() const override { return application_; }

  void OpenLayer(const std::string& file, const std::string& name, const std::string& group) override {
    auto layer = std::make_shared<DocumentFeatureLayer>(name, LayerSource{file, ""});
    if (group.empty()) {
      document_->Map().AppendLayer(layer);
      return;
    }
    const auto holder = std::make_shared<DocumentGroupLayer>(group);
    holder->members = {layer};
    document_->Map().AppendLayer(holder);
  }
  void OpenTable(const std::string& file, const std::string& name) override {
    document_->Map().AddTable(std::make_shared<DocumentTable>(name, LayerSource{file, ""}));
  }
  void SelectRows(const std::string& layer, const std::vector<std::int64_t>& oids) override {
    Find(layer)->SetSelectedOids(oids);
  }
  void SetFieldInfo(const std::string& layer, const std::string& field, const FieldInfo& info) override {
    Find(layer)->SetFieldInfo(field, info);
  }
  void MakeCurrent(const std::string& layer) override { document_->SetSelectedLayer(Find(layer)); }
  void SetMapReference(const std::string& text) override {
    document_->Map().SetSpatialReference(SpatialReferenceEnvironment::CreateFromText(text));
  }
  void Draw(const std::string& kind, const GeometryRef& shape, const std::string& color) override {
    const auto element = MakeElement(kind);
    element->shape = shape;
    element->drawn_with = std::make_shared<DocumentSymbol>(color);
    document_->Map().AddElement(element);
  }
  void Save(const std::string& native_path) override {
    document_->path = native_path;
    application_->Stop();
    WriteDocumentFile(*document_);
    document_->ClearDirty();
  }
  void Reopen() override {
    document_ = ReadDocumentFile(document_->path);
    Start();
  }
  [[nodiscard]] bool IsDirty() const override { return document_->Dirty(); }

  [[nodiscard]] std::shared_ptr<IFeatureLayer> NewLayer() const override {
    return std::make_shared<DocumentFeatureLayer>();
  }
  [[nodiscard]] std::shared_ptr<ISimpleRenderer> NewRenderer() const override {
    return std::make_shared<DocumentRenderer>();
  }
  [[nodiscard]] std::string ColorOf(const std::shared_ptr<IFeatureLayer>& layer) const override {
    const auto renderer = Cast<DocumentRenderer>(Cast<DocumentFeatureLayer>(layer)->Renderer());
    return Cast<DocumentSymbol>(renderer->Symbol())->definition;
  }

 private:
  void Start() {
    application_ =
        std::make_shared<DocumentApplication>(document_, std::make_shared<TerminalStatusBar>(ProgressDisplay::None));
    application_->Start();
  }
  [[nodiscard]] std::shared_ptr<DocumentFeatureLayer> Find(const std::string& name) const {
    const auto layers = document_->Map().Layers(nullptr, true);
    while (const auto layer = layers->Next()) {
      if (layer->Name() == name) return Cast<DocumentFeatureLayer>(layer);
    }
    return nullptr;
  }

  std::shared_ptr<MapDocument> document_ = std::make_shared<MapDocument>();
  std::shared_ptr<DocumentApplication> application_;
};

std::unique_ptr<ContractHost> MakeDocumentHost() { return std::make_unique<DocumentContractHost>(); }

INSTANTIATE_TEST_SUITE_P(Document, HostContract,
                         ::testing::Values(HostCase{"map.json", MakeDocumentHost, "ESRI Shapefile", ".shp"},
                                           HostCase{"map.json", MakeDocumentHost, "GPKG", ".gpkg"}));

}  // namespace
}  // namespace tessarine::testing
