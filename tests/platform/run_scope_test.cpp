// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/run_scope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "helpers/test_host.h"
#include "platform/run_stop.h"
#include "platform/running_journal.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

TEST(RunScopeTest, EveryRunHasAJournalOfItsOwn) {
  testing::TestHost host;
  host.journal.read = 4;
  host.journal.Fail("the run before");
  {
    RunContext context = HostContext();
    RunScope scope(context);
    EXPECT_EQ(scope.Journal().read, 0);
    EXPECT_EQ(scope.Journal().Outcome(), RunOutcome::Done);
    EXPECT_EQ(SecondsBetween(scope.Journal().begin, host.clock.now), 0);
    host.clock.now = AddSeconds(host.clock.now, 90);
    host.clock.SetBack(3600);
    scope.End();
    host.clock.now = AddSeconds(host.clock.now, 5);
  }
  EXPECT_EQ(host.journal.elapsed_seconds, 90) << "the first end counts, whatever the wall clock says";
}

// What begins a run takes its faults, its stop and its notes, whatever host serves the process.
TEST(RunScopeTest, ARunKeepsToItsOwnContext) {
  class Feedback final : public IRunFeedback {
   public:
    std::vector<std::string> faults;
    bool stop = false;
    void Tell(const std::string&, const std::string&) override {}
    bool Ask(RunQuestion, const std::string&, const std::string&) override { return false; }
    [[nodiscard]] bool StopRequested() const override { return stop; }
    bool TakeFault(const TrapSite& site, const Fault& fault) override {
      faults.push_back(site.procedure + fault.Description());
      return true;
    }
  };
  testing::TestHost host;
  static std::int32_t reported;
  reported = 0;
  SetFaultReporter([](const TrapSite&, const Fault&) { ++reported; });
  Feedback feedback;
  RunJournal journal;
  RunContext own{host.clock, feedback, host, journal};
  const auto fail = [] { Trap("Step", [] { Raise(kOverflow, "Overflow."); }); };
  {
    const RunScope scope(own);
    fail();
    RunningJournal()->read = 7;
    feedback.stop = true;
    EXPECT_THROW(EndIfStopped(), RunStopped);
    {
      RunContext inner = HostContext();
      const RunScope within(inner);
      EXPECT_NO_THROW(EndIfStopped()) << "the inner run isn't stopped";
    }
    EXPECT_THROW(EndIfStopped(), RunStopped);
  }
  EXPECT_NO_THROW(EndIfStopped());
  EXPECT_THAT(feedback.faults, ElementsAre("Step Overflow."));
  EXPECT_EQ(reported, 0);
  EXPECT_EQ(journal.read, 7);
  EXPECT_EQ(host.journal.read, 0);
  fail();
  EXPECT_EQ(reported, 1);
  SetFaultReporter(nullptr);
}

TEST(RunScopeTest, ARecordThatFailsIsDataAndARunThatCanNotGoOnEnds) {
  RunJournal journal;
  EXPECT_TRUE(WorkOnRecord(journal, 1, [] {}));
  EXPECT_FALSE(WorkOnRecord(journal, 2, [] { Raise(kOverflow, "Overflow."); }));
  EXPECT_FALSE(WorkOnRecord(journal, 2, [] { throw std::out_of_range("beyond the end"); }));
  EXPECT_FALSE(WorkOnRecord(journal, 3, [] {
    WriteRow([] { Raise(kCoordinateRange, "The shape lies beyond the grid."); });
  })) << "a row that can't be stored is a record's own affair";
  EXPECT_THAT(journal.unmeasured_oids, ElementsAre(2, 3));
  EXPECT_THAT(journal.faults, SizeIs(3));
  EXPECT_EQ(journal.Outcome(), RunOutcome::Incomplete);

  const auto full_disk = [&] {
    static_cast<void>(WorkOnRecord(
        journal, 4, [] { WriteRow([] { TrapAndPassOn("Insert", [] { Raise(kEngine, "The disk is full."); }); }); }));
  };
  EXPECT_THROW(full_disk(), Fault);
  EXPECT_THAT(journal.unmeasured_oids, ElementsAre(2, 3));
}

TEST(RunScopeTest, TheJournalStaysSmallHoweverManyFaultsThereAre) {
  RunJournal journal;
  for (std::int64_t oid = 0; oid < 1000; ++oid) {
    journal.NoteFault(Fault(5, "Tessarine", "Row " + std::to_string(oid) + " is odd."), oid);
    journal.NoteFault(Fault(6, "Tessarine", "Overflow."), oid);
    journal.NoteWarning("Row " + std::to_string(oid) + " is strange.", oid);
  }
  EXPECT_THAT(journal.faults, SizeIs(RunJournal::kListedKinds));
  EXPECT_EQ(journal.FaultCount(), 2000);
  EXPECT_THAT(journal.faults[1].first_oids, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9));
  EXPECT_EQ(journal.faults[1].count, 1000);
  EXPECT_EQ(journal.warnings.size() + static_cast<std::size_t>(journal.other_warnings), 1000U);
  EXPECT_LT(journal.warnings.size(), 100U);
  EXPECT_THAT(journal.unmeasured_oids, SizeIs(1000)) << "which records is data";
}

}  // namespace
}  // namespace tessarine
