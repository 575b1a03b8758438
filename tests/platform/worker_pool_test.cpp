// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/worker_pool.h"

#include <gtest/gtest.h>

#include <chrono>

#include "platform/run_stop.h"
#include "platform/silence.h"
#include "platform/trap.h"

namespace tessarine {
namespace {

class OwnClock final : public IClock {
 public:
  [[nodiscard]] Date Now() const override { return Date(); }
};

class OwnFeedback final : public IRunFeedback {
 public:
  void Tell(const std::string&, const std::string&) override {}
  bool Ask(RunQuestion, const std::string&, const std::string&) override { return true; }
  [[nodiscard]] bool StopRequested() const override { return stop; }
  bool TakeFault(const TrapSite& site, const Fault& fault) override {
    told.push_back(site.procedure + fault.Description());
    return true;
  }

  bool stop = false;
  std::vector<std::string> told;
};

class NoServices final : public IRunServices {
 public:
  IOperatingSystem& System() override { std::abort(); }
  std::shared_ptr<IGxDialog> CreateGxDialog() override { return nullptr; }
  std::shared_ptr<IFeatureLayer> CreateFeatureLayer() override { return nullptr; }
  std::shared_ptr<ISimpleRenderer> CreateSimpleRenderer() override { return nullptr; }
};

class WorkerPools : public ::testing::TestWithParam<unsigned> {
 protected:
  OwnClock clock_;
  OwnFeedback feedback_;
  NoServices services_;
  RunJournal journal_;
  RunContext run_{clock_, feedback_, services_, journal_, GetParam()};
};

TEST_P(WorkerPools, DoAllOfEachRoundOnce) {
  WorkerPool pool(run_, run_.jobs);
  for (const std::size_t count : {0, 1, 7, 1000, 3, 0, 500}) {
    std::vector<int> done(count, 0);
    pool.Begin(count, [&](std::size_t index) { ++done[index]; });
    pool.Finish();
    EXPECT_EQ(done, std::vector<int>(count, 1));
  }
}

TEST_P(WorkerPools, KeepReportsUntilTheirRecordIsTold) {
  constexpr std::size_t kCount = 200;
  std::vector<std::vector<KeptReport>> reports(kCount);
  {
    const RunningContextScope running(run_);
    WorkerPool pool(run_, run_.jobs);
    pool.Begin(kCount, [&](std::size_t index) {
      if (index % 3 == 0) Trap("Thirds", [&] { Raise(kInvalidCall, "fault " + std::to_string(index)); });
      reports[index] = WorkerPool::TakeReports();
    });
    pool.Finish();
    EXPECT_THAT(feedback_.told, ::testing::IsEmpty());
    for (const auto& own : reports) TellReports(own);
  }
  std::vector<std::string> expected;
  for (std::size_t index = 0; index < kCount; index += 3) expected.push_back("Thirds fault " + std::to_string(index));
  EXPECT_EQ(feedback_.told, expected);
}

TEST_P(WorkerPools, KeepNoReportOfSilentWork) {
  WorkerPool pool(run_, run_.jobs);
  std::vector<std::size_t> kept(100, 0);
  pool.Begin(kept.size(), [&](std::size_t index) {
    {
      const Silence done_before;
      Trap("Again", [] { Raise(kInvalidCall, "fault"); });
    }
    if (index % 2 == 0) Trap("First", [] { Raise(kInvalidCall, "fault"); });
    kept[index] = WorkerPool::TakeReports().size();
  });
  pool.Finish();
  for (std::size_t index = 0; index < kept.size(); ++index) EXPECT_EQ(kept[index], index % 2 == 0 ? 1U : 0U) << index;
}

TEST_P(WorkerPools, EndLongWorkWhenTheRunIsStopped) {
  WorkerPool pool(run_, run_.jobs);
  std::atomic<int> stopped = 0;
  feedback_.stop = true;
  pool.Begin(4, [&](std::size_t) {
    try {
      for (;;) EndIfStopped();
    } catch (const RunStopped&) {
      ++stopped;
    }
  });
  pool.Finish();
  EXPECT_EQ(stopped, 4);
}

TEST_P(WorkerPools, EndWhatIsUnderWayWhenTheyGo) {
  std::atomic<int> begun = 0, ended = 0;
  {
    WorkerPool pool(run_, run_.jobs);
    pool.Begin(1000, [&](std::size_t) {
      ++begun;
      try {
        for (;;) EndIfStopped();
      } catch (const RunStopped&) {
        ++ended;
      }
    });
  }
  EXPECT_EQ(begun, ended);
  EXPECT_LT(begun, static_cast<int>(GetParam()));
}

TEST_P(WorkerPools, LetNoWorkAskOrMakeAnything) {
  WorkerPool pool(run_, run_.jobs);
  std::vector<std::int32_t> faults(20, 0);
  pool.Begin(faults.size(), [&](std::size_t index) {
    try {
      static_cast<void>(RunningContext()->feedback.Ask(RunQuestion::ReplaceOutput, "", ""));
    } catch (const Fault& fault) {
      faults[index] = fault.Number();
    }
  });
  pool.Finish();
  EXPECT_EQ(faults, std::vector<std::int32_t>(20, kInvalidCall));
}

INSTANTIATE_TEST_SUITE_P(Jobs, WorkerPools, ::testing::Values(1U, 2U, 5U),
                         [](const auto& row) { return "Of" + std::to_string(row.param); });

}  // namespace
}  // namespace tessarine
