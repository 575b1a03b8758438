// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/browse_dialog.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <algorithm>
#include <filesystem>
#include <utility>

#include "engine/data_source.h"
#include "hosts/windows/browse_places.h"
#include "hosts/windows/kind_box.h"
#include "hosts/windows/message_box.h"
#include "hosts/windows/pictures.h"
#include "hosts/windows/pointer.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "outputs/format_workspace.h"
#include "outputs/temporary_layers.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

QIcon IconOf(const CatalogItem& item) {
  constexpr std::int32_t kLayers = 203, kTool = 204;
  const QStyle& style = *QApplication::style();
  switch (item.kind) {
    case CatalogKind::Folder:
      return style.standardIcon(QStyle::SP_DirIcon);
    case CatalogKind::FileGeodatabase:
    case CatalogKind::PersonalGeodatabase:
    case CatalogKind::Container:
      return style.standardIcon(QStyle::SP_DriveHDIcon);
    case CatalogKind::FeatureDataset:
      return PictureOf(kLayers);
    case CatalogKind::Shapefile:
    case CatalogKind::FeatureClass:
    case CatalogKind::LayerFile:
      return PictureOf(109);
    case CatalogKind::Table:
      return PictureOf(kTool);
    default:
      return style.standardIcon(QStyle::SP_FileIcon);
  }
}

// The part after the last separator, of either kind.
std::string LastPart(const std::string& path) {
  const std::size_t at = path.find_last_of("\\/");
  return at == std::string::npos ? path : path.substr(at + 1);
}

}  // namespace

BrowseDialog::BrowseDialog(BrowseRequest request, QWidget* parent)
    : QDialog(parent),
      request_(std::move(request)),
      look_in_(new QComboBox(this)),
      up_(new QPushButton(this)),
      new_folder_(new QPushButton(Translated("New &Folder"), this)),
      new_geodatabase_(new QPushButton(Translated("New &Geodatabase"), this)),
      new_geopackage_(new QPushButton(Translated("New Geo&Package"), this)),
      places_(new QListWidget(this)),
      list_(new QListWidget(this)),
      name_label_(new QLabel(this)),
      name_(new QLineEdit(this)),
      kind_label_(new QLabel(Translated("&Kind:"), this)),
      kind_(new KindBox(this)),
      filter_(new QComboBox(this)),
      enter_(new QPushButton(this)),
      cancel_(new QPushButton(this)) {
  Build();
  name_->setText(ToQt(LastPart(request_.name)));
  FollowName();
  const Format* temporary = TemporaryLayers();
  if (temporary != nullptr && request_.start == temporary->ending) kind_->PickTemporaryLayers();
  // A container that isn't made yet lies in a folder.
  const std::string above = fs::path(request_.start).parent_path().string();
  for (const std::string& start :
       {request_.start, above, request_.project_folder, FromQt(QDir::homePath()), std::string("/")}) {
    const auto container = FindContainer(start);
    if (!container) continue;
    LookIn(*container);
    break;
  }
  name_->setFocus();
  name_->selectAll();
}

GxFilter BrowseDialog::Filter() const {
  return request_.filters[static_cast<std::size_t>(qMax(0, filter_->currentIndex()))];
}

void BrowseDialog::LookIn(const CatalogItem& container) {
  location_ = container;
  ShowAncestors();
  FillList();
  new_folder_->setEnabled(container.kind == CatalogKind::Folder);
  new_geodatabase_->setEnabled(container.kind == CatalogKind::Folder);
  new_geopackage_->setEnabled(container.kind == CatalogKind::Folder);
  ShowKinds();
  const bool layers = container.kind == CatalogKind::Container;
  name_label_->setText(layers ? Translated("Layer &name:") : Translated("&Name:"));
  // A layer's name has no ending.
  if (request_.save && layers) name_->setText(ToQt(kind_->WithoutEnding(FromQt(name_->text()))));
}

// Only what is named in a folder has a choice of kinds.
void BrowseDialog::ShowKinds() {
  kind_label_->setVisible(NamesInFolder());
  kind_->setVisible(NamesInFolder());
}

void BrowseDialog::FillPlaces() {
  for (const SidePlace& place : SidePlaces(request_.project_folder)) {
    auto* line = new QListWidgetItem(style()->standardIcon(QStyle::SP_DirIcon), ToQt(place.caption), places_);
    line->setToolTip(ToQt(place.path));
    line->setData(Qt::UserRole, ToQt(place.path));
  }
}

bool BrowseDialog::NamesInFolder() const {
  return request_.save && location_.kind == CatalogKind::Folder && Filter() == GxFilter::FeatureClasses;
}

void BrowseDialog::PickKind() { name_->setText(ToQt(kind_->NameOfKind(FromQt(name_->text().trimmed())))); }

void BrowseDialog::FollowName() { kind_->FollowName(FromQt(name_->text().trimmed())); }

CatalogItem BrowseDialog::Location() const {
  if (!NamesInFolder() || !kind_->PicksTemporaryLayers()) return location_;
  const std::string place(TemporaryLayers()->ending);
  return {CatalogKind::Container, place, "", place};
}

void BrowseDialog::ShowAncestors() {
  look_in_->clear();
  std::optional<CatalogItem> container = location_;
  while (container) {
    const QString path = ToQt(container->DisplayPath());
    look_in_->addItem(path, path);
    container = ContainerAbove(*container);
  }
  look_in_->setCurrentIndex(0);
  up_->setEnabled(look_in_->count() > 1);
}

void BrowseDialog::FillList() {
  items_ = ListContainer(location_, Filter());
  const QSignalBlocker quiet(list_);
  list_->clear();
  for (const CatalogItem& item : items_) {
    auto* line = new QListWidgetItem(IconOf(item), ToQt(item.name), list_);
    line->setToolTip(Translated(item.Category()));
  }
}

void BrowseDialog::GoUp() {
  if (const auto above = ContainerAbove(location_)) LookIn(*above);
}

void BrowseDialog::GoTo(const QString& path) {
  if (const auto container = FindContainer(FromQt(path))) {
    LookIn(*container);
  } else {
    Refuse(Translated("There is no folder or geodatabase '%1'.").arg(path));
    look_in_->setEditText(ToQt(location_.DisplayPath()));
  }
}

void BrowseDialog::Activate(int row) {
  if (row < 0) return;
  const CatalogItem item = items_[static_cast<std::size_t>(row)];
  if (item.IsContainer()) {
    LookIn(item);
  } else {
    Confirm();
  }
}

// The name of chosen data; a container leaves the name alone.
void BrowseDialog::TakeSelection() {
  QStringList names;
  for (const QListWidgetItem* line : list_->selectedItems()) {
    const CatalogItem& item = items_[static_cast<std::size_t>(list_->row(line))];
    if (!item.IsContainer()) names << ToQt(item.name);
  }
  if (names.isEmpty()) return;
  name_->setText(names.join(QStringLiteral("; ")));
  FollowName();
}

// A name that is a path leads to its place first.
bool BrowseDialog::FollowTypedPath() {
  const std::string typed = FromQt(name_->text().trimmed());
  const bool names_container = typed == ".." || std::ranges::any_of(items_, [&](const CatalogItem& item) {
                                 return item.IsContainer() && item.name == typed;
                               });
  if (typed.find('/') == std::string::npos && !names_container) return true;
  const fs::path path = fs::path(location_.DisplayPath()) / typed;
  if (const auto container = FindContainer(path.string())) {
    LookIn(*container);
    name_->clear();
    return false;
  }
  const auto above = FindContainer(path.parent_path().string());
  if (!above) {
    Refuse(Translated("There is no folder or geodatabase '%1'.").arg(ToQt(path.parent_path().string())));
    return false;
  }
  LookIn(*above);
  name_->setText(ToQt(path.filename().string()));
  return true;
}

bool BrowseDialog::TakeNamedData() {
  chosen_.clear();
  for (const QString& part : name_->text().split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
    const std::string wanted = FromQt(part.trimmed());
    const CatalogItem* found = nullptr;
    for (const CatalogItem& item : items_) {
      if (!item.IsContainer() && EqualsIgnoringCase(item.name, wanted)) found = &item;
    }
    if (found == nullptr) {
      Refuse(Translated("'%1' holds nothing of the name '%2'.").arg(ToQt(location_.DisplayPath()), part.trimmed()));
      return false;
    }
    chosen_.push_back(*found);
  }
  return !chosen_.empty();
}

// Return has led to a place already where these have the focus, and confirms nothing there.
void BrowseDialog::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && (focusWidget() == look_in_ || focusWidget() == list_ || focusWidget() == places_)) return;
  QDialog::keyPressEvent(event);
}

void BrowseDialog::Confirm() {
  // A container that is marked in the list opens, unless a name was typed for this one.
  if (list_->hasFocus() && list_->selectedItems().size() == 1) {
    const CatalogItem item = items_[static_cast<std::size_t>(list_->row(list_->selectedItems().first()))];
    if (item.IsContainer()) {
      LookIn(item);
      return;
    }
  }
  // The name of a layer in memory is no path.
  const bool in_memory = NamesInFolder() && kind_->PicksTemporaryLayers();
  if (!in_memory && !FollowTypedPath()) return;
  if (name_->text().trimmed().isEmpty()) {
    name_->setFocus();
    return;
  }
  if (request_.save || TakeNamedData()) accept();
}

std::string BrowseDialog::Name() const {
  const std::string name = FromQt(name_->text().trimmed());
  return NamesInFolder() ? kind_->WithEnding(name) : name;
}

// Wide enough for its own title, buttons of the title bar included. Nothing where the user gave up.
QString BrowseDialog::AskName(const char* title) {
  QInputDialog dialog(this);
  dialog.setObjectName(QStringLiteral("NameDialog"));
  dialog.setWindowTitle(Translated(title));
  dialog.setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  dialog.setLabelText(Translated("Name:"));
  dialog.setOkButtonText(Translated("OK"));
  dialog.setCancelButtonText(Translated("Cancel"));
  constexpr int kRoomForButtons = 120;
  dialog.resize(dialog.fontMetrics().horizontalAdvance(dialog.windowTitle()) + kRoomForButtons,
                dialog.sizeHint().height());
  return dialog.exec() == QDialog::Accepted ? dialog.textValue().trimmed() : QString();
}

void BrowseDialog::MakeFolder() {
  const QString name = AskName("New Folder");
  if (name.isEmpty()) return;
  std::error_code error;
  const fs::path path = fs::path(location_.path) / FromQt(name);
  fs::create_directory(path, error);
  if (error) {
    Refuse(Translated("The folder '%1' can't be made: %2.").arg(ToQt(path.string()), ToQt(error.message())));
    return;
  }
  GoTo(ToQt(path.string()));
}

void BrowseDialog::MakeGeodatabase() {
  const QString name = AskName("New Geodatabase");
  if (name.isEmpty()) return;
  std::string file = FromQt(name);
  const bool named = EndsWithIgnoringCase(file, ".gdb") || EndsWithIgnoringCase(file, ".mdb");
  if (!named) file += ".gdb";
  const fs::path path = fs::path(location_.path) / file;
  try {
    CreateFileGeodatabase(path.string());
  } catch (const Fault& fault) {
    Refuse(Translated(LinesToQt(fault.Description())));
    return;
  }
  GoTo(ToQt(path.string()));
}

void BrowseDialog::MakeGeoPackage() {
  const QString name = AskName("New GeoPackage");
  if (name.isEmpty()) return;
  std::string file = FromQt(name);
  if (!EndsWithIgnoringCase(file, ".gpkg")) file += ".gpkg";
  const fs::path path = fs::path(location_.path) / file;
  try {
    CreateGeoPackage(path.string());
  } catch (const Fault& fault) {
    Refuse(Translated(LinesToQt(fault.Description())));
    return;
  }
  GoTo(ToQt(path.string()));
}

void BrowseDialog::Refuse(const QString& text) {
  ShowMessageBox(this, FromQt(text), FromQt(windowTitle()), MessageButtons::Ok, MessageIcon::Exclamation);
}

void WindowGxDialog::AddFilter(GxFilter filter, bool is_default) {
  if (is_default) request_.default_filter = request_.filters.size();
  request_.filters.push_back(filter);
}

void WindowGxDialog::SetStartingLocation(const std::string& path) { request_.start = ToNativePath(path); }

bool WindowGxDialog::Run(bool save, std::vector<CatalogItem>& chosen) {
  const PointerPause pause;
  request_.save = save;
  // Where no place was given, the name may tell one.
  if (request_.start.empty() && request_.name.find('\\') != std::string::npos) {
    request_.start = fs::path(ToNativePath(request_.name)).parent_path().string();
  }
  BrowseDialog dialog(request_, forms_.DialogParent());
  if (dialog.exec() != QDialog::Accepted) return false;
  const CatalogItem location = dialog.Location();
  location_ = ToGxObject(location);
  if (const auto place = FindContainer(location.DisplayPath())) NoteRecentPlace(place->DisplayPath());
  request_.name = dialog.Name();
  chosen = dialog.Chosen();
  return true;
}

bool WindowGxDialog::DoModalSave(std::int32_t) {
  std::vector<CatalogItem> none;
  return Run(true, none);
}

bool WindowGxDialog::DoModalOpen(std::int32_t, std::vector<std::shared_ptr<IGxObject>>& selection) {
  std::vector<CatalogItem> chosen;
  if (!Run(false, chosen)) return false;
  selection.clear();
  for (const CatalogItem& item : chosen) selection.push_back(ToGxObject(item));
  return true;
}

}  // namespace tessarine
