// SPDX-License-Identifier: GPL-2.0-or-later
// Runs over records on several threads: in order, and read aside where the cursor allows it.
#include "support/record_pipeline.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <set>
#include <thread>

#include "helpers/memory_class.h"
#include "helpers/test_host.h"
#include "platform/host.h"
#include "platform/reads_aside.h"

namespace tessarine {
namespace {

using testing::MemoryClass;

constexpr std::int32_t kRecords = 2000;  // several batches

// Notes who reads, and how far.
class WatchedCursor final : public IFeatureCursor, public IReadsAside {
 public:
  WatchedCursor(std::shared_ptr<IFeatureCursor> rows, bool may_read_aside)
      : rows_(std::move(rows)), may_read_aside_(may_read_aside) {}

  [[nodiscard]] std::shared_ptr<IFeature> NextFeature() override {
    std::shared_ptr<IFeature> feature = rows_->NextFeature();
    const std::lock_guard locked(lock_);
    readers_.insert(std::this_thread::get_id());
    ++read_;
    moved_.notify_all();
    return feature;
  }
  [[nodiscard]] bool MayReadAside() const override { return may_read_aside_; }
  [[nodiscard]] std::shared_ptr<IRow> NextRow() override { return NextFeature(); }
  void UpdateRow(const std::shared_ptr<IRow>&) override {}
  void UpdateFeature(const std::shared_ptr<IFeature>&) override {}
  std::int64_t InsertRow(const IRowBuffer&) override { return -1; }
  std::int64_t InsertFeature(const IFeatureBuffer&) override { return -1; }
  void Flush() override {}

  // False when nobody reads that far while the caller waits.
  bool WaitFor(std::int64_t count) {
    std::unique_lock locked(lock_);
    return moved_.wait_for(locked, std::chrono::seconds(20), [&] { return read_ >= count; });
  }
  [[nodiscard]] std::set<std::thread::id> Readers() {
    const std::lock_guard locked(lock_);
    return readers_;
  }

 private:
  std::shared_ptr<IFeatureCursor> rows_;
  bool may_read_aside_;
  std::mutex lock_;
  std::condition_variable moved_;
  std::set<std::thread::id> readers_;
  std::int64_t read_ = 0;
};

class RecordPipeline : public ::testing::Test {
 protected:
  RecordPipeline() {
    run_.jobs = 2;
    for (std::int32_t row = 1; row <= kRecords; ++row) {
      const auto place = std::make_shared<Point>();
      place->PutCoords(row, -row);
      class_.Add(place);
    }
  }

  // What is written, each by its identifier and what the work made of its shape.
  template <class Before>
  std::vector<std::pair<std::int64_t, double>> Run(WatchedCursor& cursor, Before&& before) {
    std::vector<std::pair<std::int64_t, double>> written;
    const auto work = [](const ReadRecord& record) { return Cast<Point>(record.shape)->X() * 2.0; };
    EXPECT_TRUE(SpreadRecords<double>(
        run_, cursor, [] { return true; }, work,
        [&](const ReadRecord& record, double result) {
          before(record.oid);
          written.emplace_back(record.oid, result);
        }));
    return written;
  }

  testing::TestHost host_;
  RunContext run_ = HostContext();
  MemoryClass class_{esriGeometryPoint};
};

TEST_F(RecordPipeline, ReadsAsideWhileItWritesInOrder) {
  WatchedCursor cursor(class_.Search(nullptr, Recycling::No), true);
  // The first record is written while the one after the next batch is read by somebody else.
  constexpr std::int64_t kFar = 700;
  bool has_read_aside = false;
  const auto written = Run(cursor, [&](std::int64_t oid) {
    if (oid == 1) has_read_aside = cursor.WaitFor(kFar);
  });
  EXPECT_TRUE(has_read_aside);
  ASSERT_EQ(written.size(), static_cast<std::size_t>(kRecords));
  for (std::int32_t row = 1; row <= kRecords; ++row) {
    EXPECT_EQ(written[static_cast<std::size_t>(row) - 1], std::pair(std::int64_t{row}, row * 2.0));
  }
}

TEST_F(RecordPipeline, LeavesACursorThatIsWrittenThroughToTheRunsOwnThread) {
  WatchedCursor cursor(class_.Search(nullptr, Recycling::No), false);
  EXPECT_EQ(Run(cursor, [](std::int64_t) {}).size(), static_cast<std::size_t>(kRecords));
  EXPECT_EQ(cursor.Readers(), std::set{std::this_thread::get_id()});
}

TEST_F(RecordPipeline, EndsByAFaultOfReadingBehindTheRecordsBeforeIt) {
  constexpr std::size_t kFails = 1500;
  class_.fails_at = kFails;
  WatchedCursor cursor(class_.Search(nullptr, Recycling::No), true);
  std::int64_t last = 0;
  EXPECT_THROW(static_cast<void>(Run(cursor, [&](std::int64_t oid) { last = oid; })), Fault);
  EXPECT_EQ(last, static_cast<std::int64_t>(kFails) - 1);
}

}  // namespace
}  // namespace tessarine
