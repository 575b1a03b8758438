// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/reading_warnings.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <string_view>
#include <vector>

#include "engine/held_by_file.h"
#include "platform/running_journal.h"

namespace tessarine::engine {
namespace {

// Words of the warnings that tell of a value that became another; drivers warn of much else.
constexpr std::string_view kTelling[] = {
    "clamped",   "Invalid content", "Invalid value", "Value '",         "parsed incompletely",   "overflow",
    "truncated", "not valid UTF-8", "out of range",  "too many digits", "cannot be represented", kDamagedValue};
constexpr std::size_t kKept = 10;
constexpr std::size_t kKeptAtOnce = 20;

// What was kept of each file; rows are read on several threads.
struct Kept {
  std::mutex lock;
  std::map<std::string, std::vector<std::string>> by_file;
};

Kept& KeptWarnings() {
  static Kept kept;
  return kept;
}

bool TellsOfAChange(std::string_view message) {
  return std::ranges::any_of(kTelling,
                             [&](std::string_view words) { return message.find(words) != std::string_view::npos; });
}

}  // namespace

std::string ReadingScope::Quote() const {
  const std::string& said = failed_ || warnings_.empty() ? failure_ : warnings_.front();
  return said.empty() ? "" : " (GDAL says: " + said + ")";
}

void ReadingScope::Clear() {
  failed_ = false;
  failure_.clear();
  warnings_.clear();
}

void CPL_STDCALL ReadingScope::Collect(CPLErr severity, CPLErrorNum, const char* message) {
  auto* scope = static_cast<ReadingScope*>(CPLGetErrorHandlerUserData());
  if (severity >= CE_Failure && !scope->failed_) {
    scope->failed_ = true;
    scope->failure_ = message;
  }
  if (severity == CE_Warning && scope->warnings_.size() < kKeptAtOnce) scope->warnings_.emplace_back(message);
}

void KeepReadingWarnings(const std::string& path, const ReadingScope& scope) {
  for (const std::string& message : scope.Warnings()) {
    if (!TellsOfAChange(message)) continue;
    const std::lock_guard locked(KeptWarnings().lock);
    std::vector<std::string>& kept = KeptWarnings().by_file[RealFileKey(path)];
    if (kept.size() < kKept && std::ranges::find(kept, message) == kept.end()) kept.push_back(message);
  }
}

void ForgetReadingWarnings(const std::string& path) {
  const std::lock_guard locked(KeptWarnings().lock);
  if (!KeptWarnings().by_file.empty()) KeptWarnings().by_file.erase(RealFileKey(path));
}

void TellReadingWarnings(const std::string& path, RunJournal& journal) {
  const std::lock_guard locked(KeptWarnings().lock);
  const auto& by_file = KeptWarnings().by_file;
  if (by_file.empty()) return;
  const auto kept = by_file.find(RealFileKey(path));
  if (kept == by_file.end()) return;
  for (const std::string& message : kept->second) {
    const std::string text = "Values of '" + path + "' were read otherwise than they are stored. GDAL says: " + message;
    const bool is_told = std::ranges::find(journal.warnings, text, &RunWarning::text) != journal.warnings.end();
    if (!is_told) journal.warnings.push_back({text, 0, {}});
  }
}

void TellReadingWarnings(const std::string& path) {
  if (RunJournal* journal = RunningJournal()) TellReadingWarnings(path, *journal);
}

}  // namespace tessarine::engine
