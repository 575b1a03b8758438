// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/measuring/measure_window.h"

#include <qgssettings.h>

#include <QClipboard>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QVBoxLayout>

#include "hosts/qgis/spheroid_book.h"
#include "hosts/windows/dialog_units.h"
#include "hosts/windows/qt_text.h"
#include "platform/text_formats.h"

namespace tessarine::qgis {
namespace {

constexpr int kDegreeDecimals = 6;
const QString kSpheroidSetting = QStringLiteral("tessarine/measuring/spheroid");
const QString kLengthSetting = QStringLiteral("tessarine/measuring/length_unit");
const QString kAreaSetting = QStringLiteral("tessarine/measuring/area_unit");

QString DegreesText(double degrees) { return ToQt(FixedText(degrees, kDegreeDecimals)) + QStringLiteral("\u00b0"); }

QString AzimuthText(const std::optional<double>& azimuth) { return azimuth ? DegreesText(*azimuth) : QString(); }

QString InUnit(double value, const MeasureUnit& unit) {
  return ToQt(FixedText(value / unit.size, unit.decimals, true) + " " + unit.symbol);
}

template <class Units>
void FillUnits(QComboBox& box, const Units& units, const QString& setting) {
  for (const MeasureUnit& unit : units) box.addItem(ToQt(std::string(unit.name) + " (" + unit.symbol + ")"));
  box.setCurrentIndex(std::max(0, box.findText(QgsSettings().value(setting).toString())));
}

QLabel* ValueLabel(const char* name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(QLatin1String(name));
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  label->setWordWrap(true);
  return label;
}

}  // namespace

MeasureWindow::MeasureWindow(QWidget* parent, Callbacks callbacks)
    : QDialog(parent),
      callbacks_(std::move(callbacks)),
      spheroids_(SpheroidsOfCatalog()),
      spheroid_(new QComboBox(this)),
      length_unit_(new QComboBox(this)),
      area_unit_(new QComboBox(this)),
      legs_(new QTableWidget(this)),
      pointer_(ValueLabel("lblPointer", this)),
      total_(ValueLabel("lblTotal", this)),
      area_(ValueLabel("lblArea", this)),
      note_(ValueLabel("lblNote", this)),
      new_(new QPushButton(QStringLiteral("&New"), this)),
      copy_(new QPushButton(QStringLiteral("C&opy"), this)),
      close_(new QPushButton(QStringLiteral("&Close"), this)) {
  Build();
  FillSpheroids();
  FillUnits(*length_unit_, kLengthUnits, kLengthSetting);
  FillUnits(*area_unit_, kAreaUnits, kAreaSetting);
  const auto changed = QOverload<int>::of(&QComboBox::currentIndexChanged);
  connect(spheroid_, changed, this, [this] {
    Remember();
    callbacks_.spheroid_changed();
  });
  for (QComboBox* box : {length_unit_, area_unit_}) {
    connect(box, changed, this, [this] {
      Remember();
      Refresh();
    });
  }
  connect(new_, &QPushButton::clicked, this, [this] { callbacks_.start_anew(); });
  connect(copy_, &QPushButton::clicked, this, [this] { Copy(); });
  connect(close_, &QPushButton::clicked, this, [this] { reject(); });
  Refresh();
}

void MeasureWindow::Build() {
  setObjectName(QStringLiteral("TessarineMeasureWindow"));
  setWindowTitle(QStringLiteral("Measure on the Spheroid"));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  spheroid_->setObjectName(QStringLiteral("cboSpheroid"));
  length_unit_->setObjectName(QStringLiteral("cboLengthUnit"));
  area_unit_->setObjectName(QStringLiteral("cboAreaUnit"));
  legs_->setObjectName(QStringLiteral("tblLegs"));
  new_->setObjectName(QStringLiteral("cmdNew"));
  copy_->setObjectName(QStringLiteral("cmdCopy"));
  close_->setObjectName(QStringLiteral("cmdClose"));
  // A name that is longer than the window isn't to widen it.
  spheroid_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  legs_->setColumnCount(7);
  legs_->setHorizontalHeaderLabels({QStringLiteral("Start longitude"), QStringLiteral("Start latitude"),
                                    QStringLiteral("End longitude"), QStringLiteral("End latitude"),
                                    QStringLiteral("Distance"), QStringLiteral("Start azimuth"),
                                    QStringLiteral("End azimuth")});
  legs_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  legs_->setSelectionBehavior(QAbstractItemView::SelectRows);
  legs_->setTabKeyNavigation(false);
  legs_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  for (QPushButton* button : {new_, copy_, close_}) button->setAutoDefault(false);

  auto* choices = new QFormLayout;
  choices->addRow(QStringLiteral("&Spheroid:"), spheroid_);
  choices->addRow(QStringLiteral("&Lengths in:"), length_unit_);
  choices->addRow(QStringLiteral("&Areas in:"), area_unit_);
  auto* sums = new QFormLayout;
  sums->addRow(QStringLiteral("To the pointer:"), pointer_);
  sums->addRow(QStringLiteral("Total:"), total_);
  sums->addRow(QStringLiteral("Area:"), area_);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(new_);
  buttons->addWidget(copy_);
  buttons->addStretch();
  buttons->addWidget(close_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(choices);
  layout->addWidget(legs_, 1);
  layout->addLayout(sums);
  layout->addWidget(note_);
  layout->addLayout(buttons);
  resize(DialogUnits(font()).Size(330, 190));
}

void MeasureWindow::FillSpheroids() {
  spheroid_->addItem(QStringLiteral("As the project"));
  for (const NamedSpheroid& spheroid : spheroids_) spheroid_->addItem(ToQt(spheroid.name));
  const QString last = QgsSettings().value(kSpheroidSetting).toString();
  for (int at = 1; at < spheroid_->count(); ++at) {
    if (spheroid_->itemText(at) == last) spheroid_->setCurrentIndex(at);
  }
}

void MeasureWindow::Remember() const {
  QgsSettings settings;
  settings.setValue(kSpheroidSetting, spheroid_->currentIndex() > 0 ? spheroid_->currentText() : QString());
  settings.setValue(kLengthSetting, length_unit_->currentText());
  settings.setValue(kAreaSetting, area_unit_->currentText());
}

std::optional<NamedSpheroid> MeasureWindow::ChosenSpheroid() const {
  const int chosen = spheroid_->currentIndex() - 1;
  return chosen < 0 ? std::nullopt : std::optional(spheroids_.at(static_cast<std::size_t>(chosen)));
}

void MeasureWindow::NameProjectSpheroid(const QString& name) {
  spheroid_->setItemText(0, QStringLiteral("As the project: ") + name);
}

void MeasureWindow::Show(const PathMeasures& path) {
  path_ = path;
  hint_.clear();
  Refresh();
}

void MeasureWindow::ShowNothing(const QString& text) {
  path_ = {};
  to_pointer_.reset();
  Tell(text);
}

void MeasureWindow::Tell(const QString& text) {
  hint_ = text;
  Refresh();
}

void MeasureWindow::ShowPointer(const std::optional<MeasuredLeg>& leg) {
  to_pointer_ = leg;
  pointer_->setText(
      leg ? LengthText(leg->distance) +
                (leg->start_azimuth ? QStringLiteral(", azimuth ") + DegreesText(*leg->start_azimuth) : QString())
          : QString());
}

void MeasureWindow::Refresh() {
  legs_->setRowCount(static_cast<int>(path_.legs.size()));
  for (int row = 0; row < legs_->rowCount(); ++row) AddLeg(row);
  legs_->scrollToBottom();
  const bool is_measured = !path_.legs.empty();
  QString total = is_measured ? LengthText(path_.total) : QString();
  if (path_.closing_leg) {
    total += QStringLiteral(", closed ") + LengthText(path_.total + *path_.closing_leg);
  }
  total_->setText(total);
  area_->setText(path_.area ? InUnit(*path_.area, AreaUnit()) : QString());
  QStringList notes;
  if (!hint_.isEmpty()) notes << hint_;
  if (!path_.problem.empty()) notes << LinesToQt(path_.problem);
  for (const std::string_view note : path_.notes) notes << ToQt(note);
  note_->setText(notes.join(QLatin1Char('\n')));
  copy_->setEnabled(is_measured);
  ShowPointer(to_pointer_);
}

void MeasureWindow::AddLeg(int row) {
  const auto at = static_cast<std::size_t>(row);
  const MeasuredLeg& leg = path_.legs[at];
  const XY from = path_.places[at], to = path_.places[at + 1];
  const QString cells[] = {DegreesText(from.x),         DegreesText(from.y),      DegreesText(to.x),
                           DegreesText(to.y),           LengthText(leg.distance), AzimuthText(leg.start_azimuth),
                           AzimuthText(leg.end_azimuth)};
  int column = 0;
  for (const QString& cell : cells) {
    auto* item = new QTableWidgetItem(cell);  // the table owns it
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    legs_->setItem(row, column++, item);
  }
}

void MeasureWindow::Copy() const {
  QGuiApplication::clipboard()->setText(ToQt(TableText(path_, LengthUnit(), AreaUnit())));
}

const MeasureUnit& MeasureWindow::LengthUnit() const { return kLengthUnits[std::max(0, length_unit_->currentIndex())]; }

const MeasureUnit& MeasureWindow::AreaUnit() const { return kAreaUnits[std::max(0, area_unit_->currentIndex())]; }

QString MeasureWindow::LengthText(double metres) const { return InUnit(metres, LengthUnit()); }

void MeasureWindow::reject() {
  QDialog::reject();
  callbacks_.closed();
}

void MeasureWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Backspace) {
    callbacks_.take_back();
    return;
  }
  QDialog::keyPressEvent(event);
}

}  // namespace tessarine::qgis
