// SPDX-License-Identifier: GPL-2.0-or-later
// What the browse dialog looks like: its widgets, their places, and what they set off.
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QVBoxLayout>

#include "hosts/windows/browse_dialog.h"
#include "hosts/windows/dialog_units.h"
#include "hosts/windows/kind_box.h"
#include "hosts/windows/readable_window.h"
#include "hosts/windows/translation.h"

namespace tessarine {
namespace {

struct FilterRow {
  GxFilter filter;
  const char* caption;
};

constexpr FilterRow kFilters[] = {
    {GxFilter::FeatureClasses, "Feature classes and shapefiles"},
    {GxFilter::Tables, "Tables"},
    {GxFilter::TextFiles, "Text files (*.txt, *.csv, *.dat)"},
};

}  // namespace

void BrowseDialog::Build() {
  setObjectName(QStringLiteral("BrowseDialog"));
  setWindowTitle(Translated(request_.title));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  if (request_.filters.empty()) request_.filters.push_back(GxFilter::FeatureClasses);
  NameWidgets();
  SetUpButtons();
  SetUpBoxes();
  FillPlaces();
  LayOut();
  Connect();
}

void BrowseDialog::NameWidgets() {
  const std::pair<QWidget*, const char*> names[] = {
      {look_in_, "cbxLookIn"},       {up_, "cmdUp"},
      {new_folder_, "cmdNewFolder"}, {new_geodatabase_, "cmdNewGeodatabase"},
      {list_, "lbxItems"},           {name_, "txtName"},
      {filter_, "cbxFilter"},        {enter_, "cmdEnter"},
      {places_, "lbxPlaces"},        {new_geopackage_, "cmdNewGeoPackage"},
      {name_label_, "lblName"},      {kind_, "cbxKind"},
      {cancel_, "cmdCancel"}};
  for (const auto& [widget, name] : names) widget->setObjectName(QLatin1String(name));
}

void BrowseDialog::SetUpButtons() {
  up_->setIcon(style()->standardIcon(QStyle::SP_FileDialogToParent));
  up_->setToolTip(Translated("Up one level"));
  for (QPushButton* button : {new_folder_, new_geodatabase_, new_geopackage_}) button->setVisible(request_.save);
  for (QPushButton* button : {up_, new_folder_, new_geodatabase_, new_geopackage_}) button->setAutoDefault(false);
  enter_->setText(Translated(request_.button.empty() ? (request_.save ? "&Save" : "&Open") : request_.button));
  enter_->setDefault(true);
  cancel_->setText(Translated("Cancel"));
}

void BrowseDialog::SetUpBoxes() {
  look_in_->setEditable(true);
  look_in_->setInsertPolicy(QComboBox::NoInsert);
  look_in_->setCompleter(nullptr);
  if (request_.multi_select && !request_.save) list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  for (const GxFilter filter : request_.filters) {
    for (const FilterRow& row : kFilters) {
      if (row.filter == filter) filter_->addItem(Translated(row.caption));
    }
  }
  filter_->setCurrentIndex(static_cast<int>(request_.default_filter));
  name_label_->setText(Translated("&Name:"));
  name_label_->setBuddy(name_);
  kind_label_->setBuddy(kind_);
  places_->setMaximumWidth(DialogUnits(font()).Size(80, 0).width());
}

QLabel* BrowseDialog::LabelOf(const char* caption, QWidget* widget) {
  auto* label = new QLabel(Translated(caption), this);
  label->setBuddy(widget);
  return label;
}

void BrowseDialog::LayOut() {
  auto* top = new QHBoxLayout;
  top->addWidget(look_in_, 1);
  for (QPushButton* button : {up_, new_folder_, new_geodatabase_, new_geopackage_}) top->addWidget(button);
  const auto below = [this](const char* caption, QWidget* list) {
    auto* column = new QVBoxLayout;
    column->addWidget(LabelOf(caption, list));
    column->addWidget(list);
    return column;
  };
  auto* middle = new QHBoxLayout;
  middle->addLayout(below("Pl&aces:", places_));
  middle->addLayout(below("&Contents:", list_), 1);
  auto* grid = new QGridLayout(this);
  grid->addWidget(LabelOf("&Look in:", look_in_), 0, 0);
  grid->addLayout(top, 0, 1, 1, 2);
  grid->addLayout(middle, 1, 0, 1, 3);
  grid->addWidget(name_label_, 2, 0);
  grid->addWidget(name_, 2, 1);
  grid->addWidget(enter_, 2, 2);
  grid->addWidget(kind_label_, 3, 0);
  grid->addWidget(kind_, 3, 1);
  grid->addWidget(LabelOf("Show of &type:", filter_), 4, 0);
  grid->addWidget(filter_, 4, 1);
  grid->addWidget(cancel_, 4, 2);
  grid->setColumnStretch(1, 1);
  resize(DialogUnits(font()).Size(420, 230));
  KeepReadable(*this);
}

void BrowseDialog::Connect() {
  connect(look_in_, QOverload<int>::of(&QComboBox::activated), this,
          [this](int index) { GoTo(look_in_->itemData(index).toString()); });
  connect(look_in_->lineEdit(), &QLineEdit::returnPressed, this, [this] { GoTo(look_in_->currentText()); });
  connect(up_, &QPushButton::clicked, this, [this] { GoUp(); });
  connect(new_folder_, &QPushButton::clicked, this, [this] { MakeFolder(); });
  connect(new_geodatabase_, &QPushButton::clicked, this, [this] { MakeGeodatabase(); });
  connect(new_geopackage_, &QPushButton::clicked, this, [this] { MakeGeoPackage(); });
  const auto visit = [this](const QListWidgetItem* place) { GoTo(place->data(Qt::UserRole).toString()); };
  connect(places_, &QListWidget::itemClicked, this, visit);
  connect(places_, &QListWidget::itemActivated, this, visit);
  connect(name_, &QLineEdit::textEdited, this, [this] { FollowName(); });
  connect(kind_, QOverload<int>::of(&QComboBox::activated), this, [this] { PickKind(); });
  connect(list_, &QListWidget::itemSelectionChanged, this, [this] { TakeSelection(); });
  connect(list_, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) { Activate(list_->row(item)); });
  connect(filter_, QOverload<int>::of(&QComboBox::activated), this, [this] {
    FillList();
    ShowKinds();
  });
  connect(enter_, &QPushButton::clicked, this, [this] { Confirm(); });
  connect(cancel_, &QPushButton::clicked, this, [this] { reject(); });
}

}  // namespace tessarine
