// SPDX-License-Identifier: GPL-2.0-or-later
// The reports of the session in a panel of the program: a table of the runs, the report of the chosen one, and its line
// for the terminal.
#pragma once

#include <QDockWidget>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTextBrowser>

#include "hosts/qgis/results/run_history.h"

namespace tessarine::qgis {

class ReportDock final : public QDockWidget {
 public:
  /// The history outlives the panel.
  ReportDock(RunHistory& history, QWidget* parent);
  ~ReportDock() override;
  ReportDock(const ReportDock&) = delete;
  ReportDock& operator=(const ReportDock&) = delete;

  /// Opens the panel at the run of this number, where it is still known.
  void ShowRun(std::size_t number);

 protected:
  /// F1 opens the manual here; the program's own key for its help waits.
  bool event(QEvent* event) override;

 private:
  void Build();
  /// Whoever looks at the newest run goes on to the new one; others stay where they are.
  void FillTable();
  void Choose(std::size_t number);
  void ShowChosen();
  void CopyCommand();
  void OpenReport();
  /// Null where none is chosen.
  [[nodiscard]] const PastRun* Chosen() const;
  /// That of the run in a row of the table; 0 for no row.
  [[nodiscard]] std::size_t NumberAt(int row) const;

  RunHistory& history_;
  QTableWidget* runs_;
  QTextBrowser* report_;
  QLineEdit* command_;
  QPushButton* copy_;
  QPushButton* open_;
  QPushButton* clear_;
};

}  // namespace tessarine::qgis
