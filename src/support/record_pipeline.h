// SPDX-License-Identifier: GPL-2.0-or-later
// A run over records whose work is shared out to threads: one batch is worked on while the next is read and the last
// one written. Writing stays on the run's own thread; reading does, too, unless the cursor can be read aside. Both are
// in order, and what a record has to tell is told when its turn to be written comes; so a run does the same with any
// number of threads.
//
//   const bool finished = SpreadRecords<Result>(
//       run, cursor, [&] { return progress.Step(++count); },
//       [&](ReadRecord& record) { return Measure(record.shape); },               // on any thread
//       [&](ReadRecord& record, Result& result) { Write(*record.feature, result); });
#pragma once

#include <cstdint>
#include <exception>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "platform/data.h"
#include "platform/run_journal.h"
#include "platform/run_stop.h"
#include "platform/trap.h"
#include "platform/worker_pool.h"

namespace tessarine {

struct ReadRecord {
  std::shared_ptr<IFeature> feature;
  std::int64_t oid = 0;
  GeometryRef shape;                  ///< a private copy; null where there is none, or a fault
  std::optional<Fault> fault;         ///< of reading the shape
  std::vector<RunWarning> notes;      ///< what the reading told
  std::vector<KeptReport> reports;    ///< of reading and work
  std::exception_ptr stop = nullptr;  ///< the user stopped the run in the midst of the record
  bool has_shape = false;             ///< as read: one that isn't empty
};

/// Reads the shape of a row.
[[nodiscard]] ReadRecord ReadRecordOf(const std::shared_ptr<IFeature>& feature);

/// Does the work on a record; a fault of it goes to `fault`. A stop comes out.
template <class Work>
void KeepFault(std::int64_t oid, std::optional<Fault>& fault, Work&& work) {
  const RecordInHand in_hand(oid);
  try {
    std::forward<Work>(work)();
  } catch (...) {
    fault = CurrentFault();
  }
}

/// Records that were read ahead of their turn.
struct RecordBatch {
  std::vector<ReadRecord> records;
  bool is_last = false;
  // Of the reading after the last record.
  std::vector<RunWarning> end_notes;
  std::vector<KeptReport> end_reports;
  std::exception_ptr end = nullptr;  ///< what ended the reading, when the class wasn't at its end
};

/// Reads the next records for so many threads: a few hundred, or fewer where they have many vertices. Raises nothing.
/// The rows of the cursor must stay when it goes on. For the run's own thread.
[[nodiscard]] RecordBatch ReadBatch(RunContext& run, IFeatureCursor& cursor, unsigned jobs);

/// The same in work of a pool.
[[nodiscard]] RecordBatch ReadBatchAside(IFeatureCursor& cursor, unsigned jobs);
[[nodiscard]] bool MayReadAside(const IFeatureCursor& cursor);

/// Hands on what reading told.
void TellNotes(const std::vector<RunWarning>& notes, RunJournal& journal);

/// Goes through all records of the cursor. `step()` is asked before each record is written; false ends the run, and the
/// answer is false. `work(record)` touches nothing but the record, keeps its faults in its result, and may raise
/// `RunStopped`, which comes out when the record's turn comes. `write(record, result)` may raise anything.
template <class Result, class Step, class Work, class Write>
[[nodiscard]] bool SpreadRecords(RunContext& run, IFeatureCursor& cursor, Step&& step, Work&& work, Write&& write) {
  struct Turn {
    RecordBatch batch;
    std::vector<Result> results;
    void Take(RecordBatch read) {
      batch = std::move(read);
      results.clear();
      results.resize(batch.records.size());
    }
  };
  Turn turns[3];
  WorkerPool pool(run, run.jobs);
  const auto work_on = [&work](Turn& turn, std::size_t place) {
    ReadRecord& record = turn.batch.records[place];
    try {
      turn.results[place] = work(record);
    } catch (const RunStopped&) {
      record.stop = std::current_exception();
    }
    for (KeptReport& report : WorkerPool::TakeReports()) record.reports.push_back(std::move(report));
  };
  const auto write_all = [&](Turn& turn) {
    for (std::size_t place = 0; place < turn.results.size(); ++place) {
      ReadRecord& record = turn.batch.records[place];
      TellNotes(record.notes, run.journal);
      if (!step()) return false;
      TellReports(record.reports);
      if (record.stop) std::rethrow_exception(record.stop);
      write(record, turn.results[place]);
      record = {};
    }
    TellNotes(turn.batch.end_notes, run.journal);
    TellReports(turn.batch.end_reports);
    if (turn.batch.end) std::rethrow_exception(turn.batch.end);
    return true;
  };
  turns[0].Take(ReadBatch(run, cursor, run.jobs));
  for (std::size_t round = 0;; ++round) {
    Turn &at_work = turns[round % 3], &next = turns[(round + 1) % 3], &last = turns[(round + 2) % 3];
    const bool more = !at_work.batch.is_last;
    // First, so that it is begun before the run's own thread comes back from writing.
    const std::size_t readings = more && MayReadAside(cursor) ? 1 : 0;
    pool.Begin(readings + at_work.results.size(), [&, readings](std::size_t place) {
      if (place < readings) {
        next.Take(ReadBatchAside(cursor, run.jobs));
      } else {
        work_on(at_work, place - readings);
      }
    });
    if (!write_all(last)) return false;
    if (more && readings == 0) next.Take(ReadBatch(run, cursor, run.jobs));
    pool.Finish();
    if (!more) return write_all(at_work);
  }
}

}  // namespace tessarine
