// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/measuring/measure_window.h"

#include <qgssettings.h>

#include <QClipboard>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <utility>

#include "hosts/qgis/qgis_host.h"
#include "hosts/windows/dialog_units.h"
#include "hosts/windows/local_numbers.h"
#include "hosts/windows/manual_window.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/readable_window.h"
#include "hosts/windows/translation.h"
#include "platform/text_formats.h"

namespace tessarine::qgis {
namespace {

constexpr int kDegreeDecimals = 6;
constexpr const char* kColumns[] = {"Start longitude", "Start latitude", "End longitude", "End latitude",
                                    "Distance",        "Start azimuth",  "End azimuth"};
constexpr int kDistance = 4;
const QString kSpheroidSetting = QStringLiteral("tessarine/measuring/spheroid");
const QString kLengthSetting = QStringLiteral("tessarine/measuring/length_unit");
const QString kAreaSetting = QStringLiteral("tessarine/measuring/area_unit");

QString DegreesText(double degrees) { return InLocale(FixedText(degrees, kDegreeDecimals)) + QStringLiteral("\u00b0"); }

QString AzimuthText(const std::optional<double>& azimuth) { return azimuth ? DegreesText(*azimuth) : QString(); }

QString InUnit(double value, const MeasureUnit& unit) {
  return InLocale(FixedText(value / unit.size, unit.decimals, true)) + QLatin1Char(' ') + ToQt(unit.symbol);
}

template <class Units>
void FillUnits(QComboBox& box, const Units& units, const QString& setting) {
  for (const MeasureUnit& unit : units) {
    box.addItem(Translated(unit.name) + QStringLiteral(" (%1)").arg(ToQt(unit.symbol)), QLatin1String(unit.name));
  }
  box.setCurrentIndex(std::max(0, box.findData(QgsSettings().value(setting))));
}

// With room for a leg to the other side of the Earth.
int WidthOfColumns(QTableWidget& legs) {
  constexpr int kBeside = 60;  // the numbers of the rows, a scroll bar and the margins of the window
  constexpr int kInCell = 10;
  legs.resizeColumnsToContents();
  const int longest = legs.fontMetrics().horizontalAdvance(InUnit(20'003'931.459, kLengthUnits[0])) + kInCell;
  return legs.horizontalHeader()->length() + std::max(0, longest - legs.columnWidth(kDistance)) + kBeside;
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
      spheroid_(new SpheroidBox(this)),
      length_unit_(new QComboBox(this)),
      area_unit_(new QComboBox(this)),
      legs_(new QTableWidget(this)),
      pointer_(ValueLabel("lblPointer", this)),
      total_(ValueLabel("lblTotal", this)),
      area_(ValueLabel("lblArea", this)),
      note_(ValueLabel("lblNote", this)),
      new_(new QPushButton(Translated("&New"), this)),
      copy_(new QPushButton(Translated("C&opy"), this)),
      help_(new QPushButton(Translated("&Help"), this)),
      close_(new QPushButton(Translated("&Close"), this)) {
  Build();
  spheroid_->Choose(QgsSettings().value(kSpheroidSetting).toString());
  FillUnits(*length_unit_, kLengthUnits, kLengthSetting);
  FillUnits(*area_unit_, kAreaUnits, kAreaSetting);
  const auto changed = QOverload<int>::of(&QComboBox::currentIndexChanged);
  connect(spheroid_, changed, this, [this] {
    Remember();
    callbacks_.spheroid_changed();
  });
  connect(new QShortcut(QKeySequence::Copy, this), &QShortcut::activated, this, [this] { Copy(); });
  connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this, [this] { ShowHelp(); });
  connect(help_, &QPushButton::clicked, this, [this] { ShowHelp(); });
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
  setWindowTitle(Translated("Measure on the Spheroid"));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  spheroid_->setObjectName(QStringLiteral("cboSpheroid"));
  length_unit_->setObjectName(QStringLiteral("cboLengthUnit"));
  area_unit_->setObjectName(QStringLiteral("cboAreaUnit"));
  legs_->setObjectName(QStringLiteral("tblLegs"));
  new_->setObjectName(QStringLiteral("cmdNew"));
  copy_->setObjectName(QStringLiteral("cmdCopy"));
  help_->setObjectName(QStringLiteral("cmdHelp"));
  close_->setObjectName(QStringLiteral("cmdClose"));
  QStringList heads;
  for (const char* column : kColumns) heads << Translated(column);
  legs_->setColumnCount(heads.size());
  legs_->setHorizontalHeaderLabels(heads);
  legs_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  legs_->setSelectionBehavior(QAbstractItemView::SelectRows);
  legs_->setTabKeyNavigation(false);
  legs_->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  for (QPushButton* button : {new_, copy_, help_, close_}) button->setAutoDefault(false);

  auto* choices = new QFormLayout;
  choices->addRow(Translated("&Spheroid:"), spheroid_);
  choices->addRow(Translated("&Lengths in:"), length_unit_);
  choices->addRow(Translated("&Areas in:"), area_unit_);
  auto* sums = new QFormLayout;
  sums->addRow(Translated("To the pointer:"), pointer_);
  sums->addRow(Translated("Total:"), total_);
  sums->addRow(Translated("Area:"), area_);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(new_);
  buttons->addWidget(copy_);
  buttons->addStretch();
  buttons->addWidget(help_);
  buttons->addWidget(close_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(choices);
  layout->addWidget(legs_, 1);
  layout->addLayout(sums);
  layout->addWidget(note_);
  layout->addLayout(buttons);
  resize(DialogUnits(font()).Size(330, 190).expandedTo({WidthOfColumns(*legs_), 0}));
  KeepReadable(*this);
}

// At first in the lower right corner, where it hides least of the map; then where it was moved to.
void MeasureWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (std::exchange(has_place_, true) || parentWidget() == nullptr) return;
  constexpr int kMargin = 30;
  const QRect room = parentWidget()->frameGeometry() & parentWidget()->screen()->availableGeometry();
  if (width() > room.width() - 2 * kMargin) resize(room.width() - 2 * kMargin, height());
  move(room.bottomRight() - frameGeometry().bottomRight() + pos() - QPoint(kMargin, kMargin));
}

void MeasureWindow::Remember() const {
  QgsSettings settings;
  const auto chosen = spheroid_->Chosen();
  settings.setValue(kSpheroidSetting, chosen ? ToQt(chosen->name) : QString());
  settings.setValue(kLengthSetting, length_unit_->currentData());
  settings.setValue(kAreaSetting, area_unit_->currentData());
}

std::optional<NamedSpheroid> MeasureWindow::ChosenSpheroid() const { return spheroid_->Chosen(); }

void MeasureWindow::NameProjectSpheroid(const QString& name) { spheroid_->NameFirst(name); }

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
  QString told;
  if (leg) told = LengthText(leg->distance);
  if (leg && leg->start_azimuth) told = Translated("%1, azimuth %2").arg(told, DegreesText(*leg->start_azimuth));
  pointer_->setText(told);
}

void MeasureWindow::Refresh() {
  legs_->setRowCount(static_cast<int>(path_.legs.size()));
  for (int row = 0; row < legs_->rowCount(); ++row) AddLeg(row);
  legs_->scrollToBottom();
  const bool is_measured = !path_.legs.empty();
  QString total = is_measured ? LengthText(path_.total) : QString();
  if (path_.closing_leg) {
    total = Translated("%1, closed %2").arg(total, LengthText(path_.total + *path_.closing_leg));
  }
  total_->setText(total);
  area_->setText(path_.area ? InUnit(*path_.area, AreaUnit()) : QString());
  QStringList notes;
  if (!hint_.isEmpty()) notes << hint_;
  if (!path_.problem.empty()) notes << Translated(LinesToQt(path_.problem));
  for (const std::string_view note : path_.notes) notes << Translated(note);
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
  if (path_.legs.empty()) return;
  QGuiApplication::clipboard()->setText(TableText(path_, LengthUnit(), AreaUnit()));
}

void MeasureWindow::ShowHelp() { ShowManual(ManualFolder(), {QStringLiteral("measuring-on-the-map.md"), {}}, *this); }

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
