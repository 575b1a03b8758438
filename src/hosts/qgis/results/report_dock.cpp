// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/results/report_dock.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>

#include "hosts/document/component_loader.h"
#include "hosts/qgis/qgis_host.h"
#include "hosts/windows/manual_window.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/readable_window.h"
#include "hosts/windows/rich_document.h"
#include "hosts/windows/translation.h"
#include "platform/rich_text.h"
#include "platform/tool.h"
#include "platform/trap.h"

namespace tessarine::qgis {
namespace {

constexpr const char* kHeads[] = {"Time", "Tool", "Output", "Status"};
constexpr int kColumns = static_cast<int>(std::size(kHeads));
constexpr int kMostLines = 4;  // of a run in the list; its tip has all
constexpr int kRowMargin = 8;
constexpr double kScale = 1.0;
constexpr int kNumber = Qt::UserRole;

QPushButton* Button(const char* name, const char* text, const char* tip) {
  auto* button = new QPushButton(Translated(text));
  button->setObjectName(QLatin1String(name));
  button->setToolTip(Translated(tip));
  return button;
}

QStringList Heads() {
  QStringList heads;
  for (const char* head : kHeads) heads << Translated(head);
  return heads;
}

}  // namespace

ReportDock::ReportDock(RunHistory& history, QWidget* parent)
    : QDockWidget(Translated("Tessarine Reports"), parent),
      history_(history),
      runs_(new QTableWidget(0, kColumns)),
      report_(new QTextBrowser),
      command_(new QLineEdit),
      copy_(Button("cmdCopyCommand", "Copy as &Command", "Copy the line that does the same at the terminal")),
      open_(Button("cmdOpenReport", "&Open Report", "Show the report in a window of its own, to copy or print it")),
      clear_(Button("cmdClear", "C&lear", "Forget the runs")) {
  setObjectName(QStringLiteral("TessarineReports"));
  Build();
  history_.on_changed = [this] { FillTable(); };
  connect(runs_, &QTableWidget::currentItemChanged, this, [this] { ShowChosen(); });
  connect(copy_, &QPushButton::clicked, this, [this] { CopyCommand(); });
  connect(open_, &QPushButton::clicked, this, [this] { OpenReport(); });
  connect(clear_, &QPushButton::clicked, this, [this] { history_.Clear(); });
  FillTable();
}

ReportDock::~ReportDock() {
  history_.on_changed = [] {};
}

bool ReportDock::event(QEvent* event) {
  const bool is_key = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
  if (!is_key || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::HelpContents)) return QDockWidget::event(event);
  if (event->type() == QEvent::KeyPress) {
    ShowManual(ManualFolder(), {QStringLiteral("results-in-qgis.md"), QStringLiteral("Reports")}, *this);
  }
  event->accept();
  return true;
}

void ReportDock::Build() {
  runs_->setObjectName(QStringLiteral("tblRuns"));
  runs_->setHorizontalHeaderLabels(Heads());
  runs_->setSelectionBehavior(QAbstractItemView::SelectRows);
  runs_->setSelectionMode(QAbstractItemView::SingleSelection);
  runs_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  // The panel is narrow: texts take several lines, and of paths both ends are seen.
  runs_->setWordWrap(true);
  runs_->setTextElideMode(Qt::ElideMiddle);
  runs_->verticalHeader()->hide();
  runs_->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  runs_->verticalHeader()->setMaximumSectionSize(kMostLines * runs_->fontMetrics().lineSpacing() + kRowMargin);
  runs_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  runs_->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  report_->setObjectName(QStringLiteral("txtReport"));
  command_->setObjectName(QStringLiteral("txtCommand"));
  command_->setReadOnly(true);
  command_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  auto* caption = new QLabel(Translated("The same at the &terminal:"));
  caption->setBuddy(command_);

  auto* parts = new QSplitter(Qt::Vertical);
  parts->addWidget(runs_);
  parts->addWidget(report_);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(copy_);
  buttons->addWidget(open_);
  buttons->addStretch();
  buttons->addWidget(clear_);
  auto* whole = new QWidget(this);
  auto* layout = new QVBoxLayout(whole);
  layout->addWidget(parts, 1);
  layout->addWidget(caption);
  layout->addWidget(command_);
  layout->addLayout(buttons);
  setWidget(whole);
  KeepReadable(*this);
}

void ReportDock::FillTable() {
  const std::size_t chosen = runs_->currentRow() > 0 ? NumberAt(runs_->currentRow()) : 0;
  const std::vector<PastRun>& runs = history_.Runs();
  const QSignalBlocker blocker(runs_);
  runs_->setRowCount(static_cast<int>(runs.size()));
  int row = 0;
  for (auto run = runs.rbegin(); run != runs.rend(); ++run, ++row) {
    const QString texts[] = {run->ended.toString(QStringLiteral("HH:mm:ss")), Translated(run->tool), run->output,
                             run->told};
    for (int column = 0; column < kColumns; ++column) {
      auto* item = new QTableWidgetItem(texts[column]);  // the table owns it
      item->setToolTip(column == 0 ? run->ended.toString(Qt::ISODate) : texts[column]);
      item->setData(kNumber, QVariant::fromValue<qulonglong>(run->number));
      runs_->setItem(row, column, item);
    }
  }
  clear_->setEnabled(!runs.empty());
  Choose(chosen);
}

std::size_t ReportDock::NumberAt(int row) const {
  const QTableWidgetItem* item = runs_->item(row, 0);
  return item != nullptr ? item->data(kNumber).toULongLong() : 0;
}

void ReportDock::Choose(std::size_t number) {
  int chosen = 0;
  for (int row = 0; row < runs_->rowCount(); ++row) {
    if (NumberAt(row) == number) chosen = row;
  }
  if (runs_->rowCount() > 0) runs_->setCurrentCell(chosen, 0);
  ShowChosen();
}

const PastRun* ReportDock::Chosen() const {
  const auto& runs = history_.Runs();
  const auto found = std::ranges::find(runs, NumberAt(runs_->currentRow()), &PastRun::number);
  return found != runs.end() ? &*found : nullptr;
}

void ReportDock::ShowChosen() {
  const PastRun* run = Chosen();
  const std::string report = run != nullptr ? run->report : std::string();
  FillDocument(*report_->document(), ReadRtf(report), report_->font().family(), kScale);
  const QString line = run != nullptr ? LinesToQt(run->line.text) : QString();
  command_->setText(line);
  command_->setCursorPosition(0);
  command_->setPlaceholderText(run != nullptr ? Translated(LinesToQt(run->line.why_none)) : QString());
  command_->setToolTip(line.isEmpty() ? command_->placeholderText() : line);
  copy_->setEnabled(!line.isEmpty());
  open_->setEnabled(!report.empty());
}

void ReportDock::CopyCommand() {
  if (const PastRun* run = Chosen()) QApplication::clipboard()->setText(LinesToQt(run->line.text));
}

void ReportDock::OpenReport() {
  const PastRun* run = Chosen();
  if (run == nullptr || run->report.empty()) return;
  Trap("OpenReport", [report = run->report] {
    CreateComponentAs<IToolCatalog>("Tessarine.clsToolCatalog", "IToolCatalog")->ShowReport(report);
  });
}

void ReportDock::ShowRun(std::size_t number) {
  Choose(number);
  show();
  raise();
}

}  // namespace tessarine::qgis
