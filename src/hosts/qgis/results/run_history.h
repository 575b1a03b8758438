// SPDX-License-Identifier: GPL-2.0-or-later
// The runs of the session, from menus and toolbox, the newest last.
#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>
#include <functional>
#include <string>
#include <vector>

#include "platform/command_line.h"
#include "platform/run_journal.h"

namespace tessarine::qgis {

enum class RunFrom { Menus, Toolbox };

struct PastRun {
  RunFrom from = RunFrom::Menus;
  std::size_t number = 0;  ///< in the session, from 1; the history gives it
  QDateTime ended;
  QString tool;    ///< its title
  QString output;  ///< its path, or the layer that the tool worked on
  RunOutcome outcome = RunOutcome::Done;
  QString told;        ///< how it ended, a sentence
  std::string report;  ///< as RTF; empty where a message has told all
  TerminalLine line;
};

/// Of a run that has ended now.
[[nodiscard]] PastRun PastRunOf(RunFrom from, std::string_view title, const RunJournal& journal,
                                const std::string& report, TerminalLine line);

class RunHistory {
 public:
  static constexpr std::size_t kMost = 200;  ///< older ones go

  RunHistory();
  ~RunHistory();
  RunHistory(const RunHistory&) = delete;
  RunHistory& operator=(const RunHistory&) = delete;

  /// On the thread that made this.
  void Add(PastRun run);
  void Clear();
  [[nodiscard]] const std::vector<PastRun>& Runs() const { return runs_; }

  /// How many there ever were.
  [[nodiscard]] std::size_t Added() const { return added_; }

  /// Called after each change.
  std::function<void()> on_changed = [] {};

  /// Adds to the history that is there, on its thread, at once or when that has time; nothing where there is none.
  static void Post(PastRun run);

 private:
  std::vector<PastRun> runs_;
  std::size_t added_ = 0;
  QObject context_;  // what is planned dies with it
};

}  // namespace tessarine::qgis
