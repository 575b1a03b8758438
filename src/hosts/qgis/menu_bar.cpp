// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/menu_bar.h"

#include <qgsapplication.h>
#include <qgsmapcanvas.h>
#include <qgsmessagebar.h>

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolButton>
#include <algorithm>

#include "hosts/document/component_loader.h"
#include "hosts/qgis/processing/run_turn.h"
#include "hosts/windows/mnemonics.h"
#include "hosts/windows/pictures.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/component.h"
#include "platform/trap.h"

namespace tessarine::qgis {
namespace {

constexpr const char* kToolBarId = "Tessarine.clsToolBar";

bool IsMenu(const std::string& id) {
  const IClassFactory* factory = nullptr;
  return DllGetClassObject(id.c_str(), "IMenuDef", &factory) == kComponentOk;
}

// Gives the title a letter for the Alt key that no other menu of the bar has.
void TakeFreeLetter(QMenu& menu, const QMenuBar& bar) {
  std::vector<MarkedCaption> captions;
  for (const QAction* action : bar.actions()) {
    if (action != menu.menuAction()) captions.push_back({action->text()});
  }
  captions.push_back({menu.title(), true});
  ShareLetters(captions);
  menu.setTitle(captions.back().text);
}

}  // namespace

MenuBar::MenuBar(QgisInterface& program, WindowHost& host, std::shared_ptr<ProgramApplication> application)
    : program_(program), host_(host), application_(std::move(application)) {
  const auto definition = CreateComponentAs<IToolBarDef>(kToolBarId, "IToolBarDef");
  toolbar_ = program_.addToolBar(Translated(definition->Caption()));
  toolbar_->setObjectName(ToQt(definition->Name()));
  for (std::int32_t position = 0; position < definition->ItemCount(); ++position) {
    ItemDef item;
    definition->GetItemInfo(position, item);
    if (item.ID.empty() || !IsMenu(item.ID)) continue;
    const auto root = CreateComponentAs<IMenuDef>(item.ID, "IMenuDef");
    QMenu* menu = MakeMenu(item.ID, *root, program_.mainWindow());
    roots_.emplace_back(menu);
    auto* button = new QToolButton(toolbar_);
    button->setMenu(menu);
    // The letter of the Alt key is that of the menu.
    button->setText(WithoutMnemonic(menu->title()));
    button->setPopupMode(QToolButton::InstantPopup);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    toolbar_->addWidget(button);
    if (!Is<IRootLevelMenu>(root)) continue;
    auto* bar = qobject_cast<QMainWindow*>(program_.mainWindow())->menuBar();
    bar->insertMenu(program_.firstRightStandardMenu()->menuAction(), menu);
    TakeFreeLetter(*menu, *bar);
  }
  AddSelectionTool();
  AddMeasureTool();
  QObject::connect(&program_, &QgisInterface::layoutDesignerOpened, &context_,
                   [this](QgsLayoutDesignerInterface* designer) { AddToDesigner(*designer); });
  for (QgsLayoutDesignerInterface* designer : program_.openLayoutDesigners()) AddToDesigner(*designer);
}

MenuBar::~MenuBar() {
  // The canvas drops them.
  selection_tool_ = nullptr;
  if (measure_tool_) program_.unregisterMainWindowAction(measure_tool_->action());
  measure_tool_ = nullptr;
  for (const Item& item : items_) program_.unregisterMainWindowAction(item.action);
  // Windows lose the menus first; afterwards nothing points at them.
  for (const auto& root : roots_) {
    if (!root) continue;
    for (QWidget* widget : root->menuAction()->associatedWidgets()) widget->removeAction(root->menuAction());
  }
  if (toolbar_) {
    qobject_cast<QMainWindow*>(program_.mainWindow())->removeToolBar(toolbar_);
    delete toolbar_.data();
  }
  for (const auto& root : roots_) delete root.data();
}

QMenu* MenuBar::MakeMenu(const std::string& id, const IMenuDef& definition, QWidget* parent) {
  auto* menu = new QMenu(Translated(definition.Caption()), parent);
  menu->setObjectName(ToQt(id));
  menu->setToolTipsVisible(true);
  Fill(*menu, definition);
  QObject::connect(menu, &QMenu::aboutToShow, &context_, [this] {
    Trap("MenuOpened", [this] {
      NoteWindow();
      AskEnabled();
    });
  });
  return menu;
}

void MenuBar::Fill(QMenu& menu, const IMenuDef& definition) {
  for (std::int32_t position = 0; position < definition.ItemCount(); ++position) {
    ItemDef item;
    definition.GetItemInfo(position, item);
    if (item.ID.empty()) continue;
    if (item.Group && !menu.isEmpty()) menu.addSeparator();
    if (IsMenu(item.ID)) {
      menu.addMenu(MakeMenu(item.ID, *CreateComponentAs<IMenuDef>(item.ID, "IMenuDef"), &menu));
    } else {
      AddCommand(menu, item.ID);
    }
  }
}

void MenuBar::AddCommand(QMenu& menu, const std::string& id) {
  const auto command = CreateComponentAs<ICommand>(id, "ICommand");
  command->OnCreate(application_);
  auto* action = new QAction(Translated(command->Caption()), &menu);
  action->setObjectName(ToQt(command->Name()));
  if (const auto picture = command->Bitmap()) action->setIcon(PictureOf(picture->ResourceId()));
  // The user may give it a shortcut. This writes the tip anew.
  program_.registerMainWindowAction(action, QString());
  action->setToolTip(Translated(command->Tooltip()));
  action->setStatusTip(Translated(command->Message()));
  // The program moves items to a menu of its own where their texts say "About" or "Preferences".
  action->setMenuRole(QAction::NoRole);
  menu.addAction(action);
  items_.push_back({command, action});
  QObject::connect(action, &QAction::triggered, &context_, [this, clicked = command.get()] { Click(*clicked); });
}

void MenuBar::AddSelectionTool() {
  QgsMapCanvas& canvas = *program_.mapCanvas();
  selection_tool_ = std::make_unique<ItemSelectionTool>(canvas, application_->Project().Map());
  auto* action = new QAction(QgsApplication::getThemeIcon(QStringLiteral("/mActionSelectRectangle.svg")),
                             Translated("Select Annotation Items"), toolbar_);
  action->setObjectName(QLatin1String(kSelectItemsAction));
  action->setStatusTip(Translated(
      "Select annotation items with a click or a rectangle; with Shift, in addition to those that are selected"));
  action->setCheckable(true);
  toolbar_->addAction(action);
  selection_tool_->setAction(action);
  QObject::connect(action, &QAction::triggered, &context_,
                   [this, &canvas] { canvas.setMapTool(selection_tool_.get()); });
}

void MenuBar::AddMeasureTool() {
  QgsMapCanvas& canvas = *program_.mapCanvas();
  measure_tool_ = std::make_unique<MeasureTool>(canvas, program_.mainWindow());
  auto* action = new QAction(QgsApplication::getThemeIcon(QStringLiteral("/mActionMeasure.svg")),
                             Translated("&Measure on the Spheroid"), toolbar_);
  action->setObjectName(QLatin1String(kMeasureAction));
  program_.registerMainWindowAction(action, QString());
  action->setToolTip(Translated("Measure on the Spheroid"));
  action->setStatusTip(Translated("Distances, azimuths and areas of places that are clicked on the map"));
  action->setCheckable(true);
  toolbar_->addAction(action);
  // After what the suite defines, and beside the program's own measuring tools.
  if (!roots_.empty() && roots_.front()) {
    roots_.front()->addSeparator();
    roots_.front()->addAction(action);
  }
  if (auto* measuring = program_.viewMenu()->findChild<QMenu*>(QStringLiteral("mMenuMeasure"))) {
    measuring->addAction(action);
  }
  measure_tool_->setAction(action);
  QObject::connect(action, &QAction::triggered, &context_, [this, &canvas] { canvas.setMapTool(measure_tool_.get()); });
}

void MenuBar::AddToDesigner(QgsLayoutDesignerInterface& designer) {
  auto* window = qobject_cast<QMainWindow*>(designer.window());
  if (window == nullptr) return;
  for (const auto& root : roots_) {
    if (root) window->menuBar()->addAction(root->menuAction());
  }
}

void MenuBar::NoteWindow() {
  QgsLayoutDesignerInterface* active = nullptr;
  for (QgsLayoutDesignerInterface* designer : program_.openLayoutDesigners()) {
    if (designer->window() == QApplication::activeWindow()) active = designer;
  }
  application_->Project().SetActiveDesigner(active);
}

void MenuBar::AskEnabled() {
  for (const Item& item : items_) item.action->setEnabled(!host_.Running() && item.command->Enabled());
}

void MenuBar::Click(ICommand& command) {
  if (host_.Running()) return;
  Trap("MenuClicked", [&] {
    // A click by a shortcut or a script comes without an opened menu.
    if (!command.Enabled()) return;
    const RunTurn turn;
    if (!turn.Taken()) {
      program_.messageBar()->pushWarning(
          QStringLiteral("Tessarine"), Translated("A run from the toolbox is at work: wait for its end, or stop it."));
      return;
    }
    NoteWindow();
    const WindowHost::CommandScope running(host_);
    command.OnClick();
    // A run that stopped or failed may have left its bar.
    application_->StatusBar()->HideProgressBar();
    on_done();
  });
}

}  // namespace tessarine::qgis
