// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/project_document.h"

#include <qgslayoutmanager.h>
#include <qgsprintlayout.h>

#include <QAction>
#include <QMainWindow>

#include "hosts/qgis/item_selection_tool.h"
#include "platform/known_ids.h"
#include "platform/text_formats.h"

namespace tessarine::qgis {
namespace {

/// Commands of the program by the identifiers under which the suite looks for them.
struct CommandRow {
  const char* id;
  const char* action;  ///< the object name in the main window
};
constexpr CommandRow kCommands[] = {
    {known_ids::kSelectElementsTool, kSelectItemsAction},
};

class ProgramCommand final : public ICommandItem {
 public:
  explicit ProgramCommand(QAction* action) : action_(action) {}
  void Execute() override {
    if (action_) action_->trigger();
  }

 private:
  QPointer<QAction> action_;
};

class ProgramCommands final : public ICommandBars {
 public:
  explicit ProgramCommands(const QWidget* window) : window_(window) {}
  [[nodiscard]] std::shared_ptr<ICommandItem> Find(const UID& uid, bool, bool) override {
    for (const CommandRow& row : kCommands) {
      if (!EqualsIgnoringCase(uid.Value, row.id)) continue;
      auto* action = window_->findChild<QAction*>(QLatin1String(row.action));
      if (action != nullptr) return std::make_shared<ProgramCommand>(action);
    }
    return nullptr;
  }

 private:
  const QWidget* window_;
};

}  // namespace

ProjectDocument::ProjectDocument(IProgramWindow& program)
    : program_(program), map_(std::make_shared<MapView>(program.Canvas(), book_, memory_)) {}

std::shared_ptr<ICommandBars> ProjectDocument::CommandBars() const {
  return std::make_shared<ProgramCommands>(program_.Window());
}

std::shared_ptr<LayoutView> ProjectDocument::CurrentLayout() const {
  if (designer_) return std::make_shared<LayoutView>(designer_->layout(), designer_);
  const QList<QgsLayoutDesignerInterface*> open = program_.LayoutDesigners();
  if (!open.isEmpty()) return std::make_shared<LayoutView>(open.last()->layout(), open.last());
  const QList<QgsPrintLayout*> stored = QgsProject::instance()->layoutManager()->printLayouts();
  return std::make_shared<LayoutView>(stored.isEmpty() ? nullptr : stored.first(), nullptr);
}

std::shared_ptr<IActiveView> ProjectDocument::ActiveView() const {
  if (designer_) return CurrentLayout();
  return map_;
}

std::shared_ptr<ILayer> ProjectDocument::SelectedLayer() const {
  QgsMapLayer* layer = program_.ActiveLayer();
  return layer != nullptr && !IsTable(*layer) ? book_.Of(*layer) : nullptr;
}

void ProjectDocument::SetDirty() { QgsProject::instance()->setDirty(true); }

void ProjectDocument::Reset() {
  map_->ForgetSelection();
  book_.Clear();
  memory_ = GraphicsMemory();
}

}  // namespace tessarine::qgis
