// SPDX-License-Identifier: GPL-2.0-or-later
// Threads for pure work on records: work that touches nothing but its own record.
//
//   WorkerPool pool(run, run.jobs);
//   pool.Begin(batch.size(), [&](std::size_t index) {
//     batch[index].value = Compute(batch[index].shape);          // raises nothing
//     batch[index].reports = WorkerPool::TakeReports();
//   });
//   ...                                                          // reading and writing, meanwhile
//   pool.Finish();
//   for (Record& record : batch) { TellReports(record.reports); Write(record); }
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/run_context.h"
#include "platform/trap.h"

namespace tessarine {

/// A fault that ended in a trap while a worker was at a record.
struct KeptReport {
  TrapSite site;
  Fault fault;
};

/// Reports the faults as if they ended now.
void TellReports(const std::vector<KeptReport>& reports);

class WorkerPool {
 public:
  using Work = std::function<void(std::size_t)>;

  /// As many threads as jobs, the one that calls among them. The run must outlive the pool.
  WorkerPool(RunContext& run, unsigned jobs);
  /// What was begun ends as if the user stopped it.
  ~WorkerPool();
  WorkerPool(const WorkerPool&) = delete;
  WorkerPool& operator=(const WorkerPool&) = delete;

  /// Begins `work(index)` for each index below `count`, on any thread of the pool and in any order. The work must raise
  /// nothing. What was begun before must be finished. In the work the thread's run is one of its own: faults that end
  /// in traps are kept for `TakeReports`, `StopRequested` asks the pool's run, and questions raise fault 5.
  void Begin(std::size_t count, Work work);
  /// Takes part in the work until all of it is done.
  void Finish();

  /// The reports of this thread since the last call; for use in work.
  [[nodiscard]] static std::vector<KeptReport> TakeReports();

 private:
  class Desk;

  void Serve();
  void WorkOn(Desk& desk);
  [[nodiscard]] bool LooksForStop();

  RunContext& run_;
  std::atomic<bool> stop_ = false;
  std::mutex mutex_;
  std::condition_variable begun_, done_;
  Work work_;
  std::atomic<std::size_t> next_ = 0;
  std::size_t count_ = 0, at_work_ = 0, round_ = 0;
  bool closing_ = false;
  std::vector<std::thread> threads_;
};

}  // namespace tessarine
