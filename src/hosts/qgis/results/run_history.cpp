// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/results/run_history.h"

#include <QMetaObject>
#include <iterator>
#include <mutex>

#include "hosts/windows/local_numbers.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine::qgis {
namespace {

std::mutex g_mutex;
RunHistory* g_history = nullptr;
QObject* g_context = nullptr;

QString Counted(std::int64_t count, const char* one, const char* several) {
  return count == 1 ? Translated(one) : Translated(several).arg(CountText(count));
}

QString ToldOf(const RunJournal& journal) {
  const QString written = Counted(journal.written, "1 record written", "%1 records written");
  switch (journal.Outcome()) {
    case RunOutcome::Failed:
      return Translated("Failed: %1").arg(Translated(LinesToQt(journal.failure)));
    case RunOutcome::Stopped:
      return Translated("Stopped; %1").arg(written);
    case RunOutcome::Cancelled:
      return Translated("Given up at a question; nothing was done");
    case RunOutcome::Incomplete:
      return Counted(std::ssize(journal.unmeasured_oids), "1 record met a fault; %1", "%1 records met a fault; %2")
          .arg(written);
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
