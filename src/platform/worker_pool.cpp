// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/worker_pool.h"

#include <chrono>
#include <system_error>
#include <utility>

namespace tessarine {
namespace {

// A stop is to be seen while one record keeps all threads busy.
constexpr std::chrono::milliseconds kLook{50};

thread_local std::vector<KeptReport> t_reports;

[[noreturn]] void RaiseNoDialogs() {
  Raise(kInvalidCall, "Work on one record among others can't ask, show or make anything.");
}

class NoServices final : public IRunServices {
 public:
  IOperatingSystem& System() override { RaiseNoDialogs(); }
  std::shared_ptr<IGxDialog> CreateGxDialog() override { RaiseNoDialogs(); }
  std::shared_ptr<IFeatureLayer> CreateFeatureLayer() override { RaiseNoDialogs(); }
  std::shared_ptr<ISimpleRenderer> CreateSimpleRenderer() override { RaiseNoDialogs(); }
};

}  // namespace

void TellReports(const std::vector<KeptReport>& reports) {
  for (const KeptReport& report : reports) ReportFault(report.site, report.fault);
}

// The run of a thread that is at work.
class WorkerPool::Desk final : private IRunFeedback {
 public:
  /// `of_caller` for the thread that the run belongs to, which asks the run itself for a stop.
  Desk(WorkerPool& pool, bool of_caller)
      : pool_(pool), of_caller_(of_caller), context_{pool.run_.clock, *this, services_, journal_} {}

  [[nodiscard]] RunContext& Context() { return context_; }

 private:
  void Tell(const std::string&, const std::string&) override { RaiseNoDialogs(); }
  bool Ask(RunQuestion, const std::string&, const std::string&) override { RaiseNoDialogs(); }
  [[nodiscard]] bool StopRequested() const override {
    return of_caller_ ? pool_.LooksForStop() : pool_.stop_.load(std::memory_order_relaxed);
  }
  bool TakeFault(const TrapSite& site, const Fault& fault) override {
    t_reports.push_back({site, fault});
    return true;
  }

  WorkerPool& pool_;
  bool of_caller_;
  NoServices services_;
  RunJournal journal_;
  RunContext context_;
};

WorkerPool::WorkerPool(RunContext& run, unsigned jobs) : run_(run) {
  try {
    for (unsigned thread = 1; thread < jobs; ++thread) threads_.emplace_back([this] { Serve(); });
  } catch (const std::system_error&) {
    // As many as the machine gives.
  }
}

WorkerPool::~WorkerPool() {
  stop_ = true;
  {
    const std::lock_guard lock(mutex_);
    closing_ = true;
    next_ = count_;
  }
  begun_.notify_all();
  for (std::thread& thread : threads_) thread.join();
}

bool WorkerPool::LooksForStop() {
  if (run_.feedback.StopRequested()) stop_ = true;
  return stop_;
}

void WorkerPool::Begin(std::size_t count, Work work) {
  {
    std::unique_lock lock(mutex_);
    // A thread that came late to the last round may still be on its way out.
    done_.wait(lock, [&] { return at_work_ == 0; });
    work_ = std::move(work);
    count_ = count;
    next_ = 0;
    ++round_;
  }
  begun_.notify_all();
}

void WorkerPool::WorkOn(Desk& desk) {
  const RunningContextScope running(desk.Context());
  for (std::size_t index = next_++; index < count_; index = next_++) work_(index);
}

void WorkerPool::Serve() {
  Desk desk(*this, false);
  std::unique_lock lock(mutex_);
  for (std::size_t served = 0;;) {
    begun_.wait(lock, [&] { return closing_ || round_ != served; });
    if (closing_) return;
    served = round_;
    ++at_work_;
    lock.unlock();
    WorkOn(desk);
    lock.lock();
    if (--at_work_ == 0) done_.notify_all();
  }
}

void WorkerPool::Finish() {
  {
    Desk desk(*this, true);
    WorkOn(desk);
  }
  std::unique_lock lock(mutex_);
  while (!done_.wait_for(lock, kLook, [&] { return at_work_ == 0; })) static_cast<void>(LooksForStop());
}

std::vector<KeptReport> WorkerPool::TakeReports() { return std::exchange(t_reports, {}); }

}  // namespace tessarine
