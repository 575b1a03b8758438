// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/results/run_history.h"

#include <QMetaObject>
#include <iterator>
#include <mutex>

#include "hosts/windows/qt_text.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine::qgis {
namespace {

std::mutex g_mutex;
RunHistory* g_history = nullptr;
QObject* g_context = nullptr;

QString CountOf(std::int64_t count, const char* what) {
  return QString::number(count) + QLatin1Char(' ') + QLatin1String(what) +
         (count == 1 ? QString() : QStringLiteral("s"));
}

QString ToldOf(const RunJournal& journal) {
  const QString written = CountOf(journal.written, "record") + QStringLiteral(" written");
  switch (journal.Outcome()) {
    case RunOutcome::Failed:
      return QStringLiteral("Failed: ") + LinesToQt(journal.failure);
    case RunOutcome::Stopped:
      return QStringLiteral("Stopped; ") + written;
    case RunOutcome::Cancelled:
      return QStringLiteral("Given up at a question; nothing was done");
    case RunOutcome::Incomplete:
      return CountOf(std::ssize(journal.unmeasured_oids), "record") + QStringLiteral(" met a fault; ") + written;
    case RunOutcome::Done:
      break;
  }
  return written;
}

}  // namespace

PastRun PastRunOf(RunFrom from, std::string_view title, const RunJournal& journal, const std::string& report,
                  TerminalLine line) {
  return {from,
          0,
          QDateTime::currentDateTime(),
          ToQt(title),
          ToQt(ToNativePath(journal.output_path)),
          journal.Outcome(),
          ToldOf(journal),
          report,
          std::move(line)};
}

RunHistory::RunHistory() {
  const std::lock_guard lock(g_mutex);
  g_history = this;
  g_context = &context_;
}

RunHistory::~RunHistory() {
  const std::lock_guard lock(g_mutex);
  if (g_history != this) return;
  g_history = nullptr;
  g_context = nullptr;
}

void RunHistory::Add(PastRun run) {
  run.number = ++added_;
  runs_.push_back(std::move(run));
  if (runs_.size() > kMost) runs_.erase(runs_.begin());
  on_changed();
}

void RunHistory::Clear() {
  runs_.clear();
  on_changed();
}

void RunHistory::Post(PastRun run) {
  const std::lock_guard lock(g_mutex);
  if (g_history == nullptr) return;
  QMetaObject::invokeMethod(
      g_context, [history = g_history, run = std::move(run)] { history->Add(run); }, Qt::AutoConnection);
}

}  // namespace tessarine::qgis
