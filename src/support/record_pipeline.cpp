// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/record_pipeline.h"

#include <algorithm>

#include "platform/exact_class.h"
#include "platform/geometry.h"
#include "platform/reads_aside.h"

namespace tessarine {
namespace {

// Few enough that memory stays that of some records.
constexpr std::size_t kMostRecords = 256;
constexpr std::int64_t kMostVertices = 200'000;
// Enough to keep a thread busy while others are read and written. More of them, where they have many vertices, would
// have left the processor's own memory when their turn comes, and cost a tenth of the time.
constexpr std::size_t kEnoughRecords = 32;
constexpr std::int64_t kVerticesAtHand = 1'200;

bool IsFull(std::size_t records, std::int64_t vertices, unsigned jobs) {
  if (records >= kMostRecords || vertices >= kMostVertices) return true;
  return records >= jobs * kEnoughRecords && vertices >= jobs * kVerticesAtHand;
}

// The run, but that faults that end in traps and what the journal is told are kept.
class RunAside final : private IRunFeedback {
 public:
  explicit RunAside(RunContext& run)
      : run_(run), context_{run.clock, *this, run.services, journal_, run.jobs}, running_(context_) {}

  [[nodiscard]] std::vector<RunWarning> TakeNotes() { return std::exchange(journal_.warnings, {}); }
  [[nodiscard]] std::vector<KeptReport> TakeReports() { return std::exchange(reports_, {}); }

 private:
  void Announce(const std::string& text) override { run_.feedback.Announce(text); }
  void Tell(const std::string& text, const std::string& title) override { run_.feedback.Tell(text, title); }
  bool Ask(RunQuestion question, const std::string& text, const std::string& title) override {
    return run_.feedback.Ask(question, text, title);
  }
  [[nodiscard]] bool StopRequested() const override { return run_.feedback.StopRequested(); }
  bool TakeFault(const TrapSite& site, const Fault& fault) override {
    reports_.push_back({site, fault});
    return true;
  }
  void PumpEvents() override { run_.feedback.PumpEvents(); }

  RunContext& run_;
  RunJournal journal_;
  std::vector<KeptReport> reports_;
  RunContext context_;
  RunningContextScope running_;
};

std::int64_t VerticesOf(const ReadRecord& record) {
  if (!record.has_shape) return 1;
  // Without a cast between faces, which would cost as much as a hundred vertices.
  if (const PartedShape* shape = PartedShapeOf(*record.shape)) return shape->PointCount();
  const auto* points = ExactlyAs<Multipoint>(*record.shape);
  return points != nullptr ? points->PointCount() : 1;
}

}  // namespace

ReadRecord ReadRecordOf(const std::shared_ptr<IFeature>& feature) {
  ReadRecord record;
  record.feature = feature;
  record.oid = feature->OID();
  // A copy, because work may project and simplify it.
  KeepFault(record.oid, record.fault, [&] { record.shape = feature->ShapeCopy(); });
  record.has_shape = record.shape && !record.shape->IsEmpty();
  return record;
}

RecordBatch ReadBatch(RunContext& run, IFeatureCursor& cursor, unsigned jobs) {
  RecordBatch batch;
  RunAside aside(run);
  std::int64_t vertices = 0;
  try {
    while (!IsFull(batch.records.size(), vertices, jobs)) {
      const std::shared_ptr<IFeature> feature = cursor.NextFeature();
      if (!feature) {
        batch.is_last = true;
        break;
      }
      ReadRecord& record = batch.records.emplace_back(ReadRecordOf(feature));
      record.notes = aside.TakeNotes();
      record.reports = aside.TakeReports();
      vertices += VerticesOf(record);
    }
  } catch (...) {
    batch.end = std::current_exception();
    batch.is_last = true;
  }
  batch.end_notes = aside.TakeNotes();
  batch.end_reports = aside.TakeReports();
  return batch;
}

// A pool's thread has a run of its own, which asks the pool for a stop.
RecordBatch ReadBatchAside(IFeatureCursor& cursor, unsigned jobs) { return ReadBatch(*RunningContext(), cursor, jobs); }

bool MayReadAside(const IFeatureCursor& cursor) {
  const auto* aside = dynamic_cast<const IReadsAside*>(&cursor);
  return aside != nullptr && aside->MayReadAside();
}

void TellNotes(const std::vector<RunWarning>& notes, RunJournal& journal) {
  for (const RunWarning& note : notes) {
    const bool is_told = std::ranges::find(journal.warnings, note.text, &RunWarning::text) != journal.warnings.end();
    if (!is_told) journal.warnings.push_back(note);
  }
}

}  // namespace tessarine
