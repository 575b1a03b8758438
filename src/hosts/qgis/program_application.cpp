// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/program_application.h"

#include <qgsattributetablemodel.h>
#include <qgslayertree.h>
#include <qgsmaptoolmodifyannotation.h>
#include <qgsproject.h>

#include <QApplication>
#include <QDir>
#include <algorithm>
#include <vector>

#include "hosts/document/component_loader.h"
#include "hosts/qgis/annotation_items.h"
#include "hosts/qgis/settings_text.h"
#include "hosts/windows/qt_text.h"
#include "platform/known_ids.h"
#include "platform/paths.h"
#include "platform/text_formats.h"
#include "platform/trap.h"

namespace tessarine::qgis {
namespace {

const QString kScope = QStringLiteral("Tessarine");
const QString kSettings = QStringLiteral("/settings");

class ProjectTemplates final : public ITemplates {
 public:
  [[nodiscard]] std::int32_t Count() const override { return 1; }
  [[nodiscard]] std::string Item(std::int32_t index) const override {
    if (index != 0) Raise(kInvalidCall, "The document has no such template.");
    // A project that was never saved stands for a file in the home folder.
    QString path = QgsProject::instance()->absoluteFilePath();
    if (path.isEmpty()) path = QDir::home().filePath(QStringLiteral("untitled.qgz"));
    return FromNativePath(FromQt(path));
  }
};

class TableWindow final : public ITableWindow {
 public:
  explicit TableWindow(std::vector<QPointer<QgsAttributeTableModel>> models) : models_(std::move(models)) {}
  void Refresh() override {
    for (const auto& model : models_) {
      if (model) model->loadLayer();
    }
  }

 private:
  std::vector<QPointer<QgsAttributeTableModel>> models_;
};

}  // namespace

ProgramApplication::ProgramApplication(IProgramWindow& program)
    : program_(program),
      document_(std::make_shared<ProjectDocument>(program)),
      status_bar_(std::make_shared<ProgramStatusBar>(program.StatusBar())) {}

void ProgramApplication::Start() {
  StartExtension();
  LoadSettings();
  Follow();
}

void ProgramApplication::Stop() {
  QObject::disconnect(QgsProject::instance(), nullptr, &context_, nullptr);
  QObject::disconnect(QgsProject::instance()->layerTreeRoot(), nullptr, &context_, nullptr);
  for (const auto& layer : followed_) {
    if (layer) QObject::disconnect(layer, nullptr, &context_, nullptr);
  }
  followed_.clear();
  StopExtension();
  document_->Reset();
}

void ProgramApplication::RunBegins(const ITool& tool, const Arguments& arguments) {
  Trap("RunBegins", [&] { recorder_.Begin(tool, arguments); });
}

void ProgramApplication::RunEnded(const RunJournal& journal, const std::string& report) {
  Trap("RunEnded", [&] { recorder_.End(journal, report); });
}

void ProgramApplication::Follow() {
  document_->Map().on_added = [this](QgsVectorLayer& layer) { recorder_.Take(layer); };
  QgsProject* project = QgsProject::instance();
  QObject::connect(project, &QgsProject::writeProject, &context_,
                   [this] { Trap("ProjectWritten", [this] { SaveSettings(); }); });
  QObject::connect(project, &QgsProject::readProject, &context_,
                   [this] { Trap("ProjectRead", [this] { LoadSettings(); }); });
  // A new project comes without being read.
  QObject::connect(project, &QgsProject::cleared, &context_, [this] {
    Trap("ProjectCleared", [this] {
      StopExtension();
      document_->Reset();
      StartExtension();
      FollowAnnotations();
    });
  });
  const auto changed = [this] { AnnotationsChanged(); };
  QObject::connect(project, &QgsProject::layersAdded, &context_, changed);
  QObject::connect(project, &QgsProject::layersRemoved, &context_, changed);
  QObject::connect(project->layerTreeRoot(), &QgsLayerTreeNode::visibilityChanged, &context_, changed);
  FollowAnnotations();
  FollowProgramTool();
}

void ProgramApplication::FollowProgramTool() {
  auto* tool = program_.Canvas()->findChild<QgsMapToolModifyAnnotation*>();
  if (tool == nullptr) return;
  QObject::connect(tool, &QgsMapToolModifyAnnotation::itemSelected, &context_,
                   [this](QgsAnnotationLayer* layer, const QString& id) {
                     document_->Map().SelectItems({KeyOf(*layer, id)}, SelectionWay::Replace);
                   });
  QObject::connect(tool, &QgsMapToolModifyAnnotation::selectionCleared, &context_, [this] {
    // Its own choice of one goes with it, not a selection of several.
    if (document_->Map().ElementSelectionCount() == 1) document_->Map().ForgetSelection();
  });
}

void ProgramApplication::FollowAnnotations() {
  std::erase_if(followed_, [](const auto& layer) { return layer.isNull(); });
  for (QgsAnnotationLayer* layer : AnnotationLayers()) {
    if (std::ranges::any_of(followed_, [&](const auto& known) { return known == layer; })) continue;
    followed_.emplace_back(layer);
    // Every item that is made, moved or removed asks for a repaint.
    QObject::connect(layer, &QgsMapLayer::repaintRequested, &context_, [this] { AnnotationsChanged(); });
  }
}

void ProgramApplication::AnnotationsChanged() {
  Trap("AnnotationsChanged", [this] {
    FollowAnnotations();
    document_->Memory().Notice();
    document_->Map().RefreshMarks();
  });
}

void ProgramApplication::StartExtension() {
  extension_ = CreateComponentAs<IExtension>(known_ids::kSuiteExtension, "IExtension");
  extension_->Startup(Variant(shared_from_this()));
}

void ProgramApplication::StopExtension() {
  if (extension_) extension_->Shutdown();
  extension_ = nullptr;
}

void ProgramApplication::LoadSettings() {
  document_->Memory().Load();
  const QString text = QgsProject::instance()->readEntry(kScope, kSettings);
  if (text.isEmpty()) return;
  ReadSettings(*Require(Cast<IPersistVariant>(extension_), "IPersistVariant"), FromQt(text));
}

void ProgramApplication::SaveSettings() {
  const std::string text = WriteSettings(*Require(Cast<IPersistVariant>(extension_), "IPersistVariant"));
  QgsProject::instance()->writeEntry(kScope, kSettings, ToQt(text));
  document_->Memory().Save();
}

std::shared_ptr<ITemplates> ProgramApplication::Templates() const { return std::make_shared<ProjectTemplates>(); }

ObjectRef ProgramApplication::FindExtensionByCLSID(const UID& uid) const {
  // There is no editor among them: layers are edited one by one here, and take changes then, too.
  return EqualsIgnoringCase(uid.Value, known_ids::kSuiteExtension) ? extension_ : nullptr;
}

std::shared_ptr<ITableWindow> ProgramApplication::FindViaLayer(const std::shared_ptr<ILayer>& layer) const {
  const auto wanted = Cast<VectorLayer>(layer);
  if (!wanted || wanted->Shown() == nullptr) return nullptr;
  std::vector<QPointer<QgsAttributeTableModel>> models;
  for (QWidget* widget : QApplication::allWidgets()) {
    // The class of the view has no public header; its model is its child.
    auto* model = widget->inherits("QgsDualView") ? widget->findChild<QgsAttributeTableModel*>() : nullptr;
    if (model != nullptr && model->layer() == wanted->Shown()) models.emplace_back(model);
  }
  return models.empty() ? nullptr : std::make_shared<TableWindow>(std::move(models));
}

}  // namespace tessarine::qgis
