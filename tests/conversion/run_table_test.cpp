// SPDX-License-Identifier: GPL-2.0-or-later
// The table of runs: from how many records on a person sees a progress dialog, by the command's number.
#include "conversion/conversion_runs.h"

#include <gtest/gtest.h>

#include <map>

#include "tools/common/conversion_tool.h"

namespace tessarine::modCreateVertices {
namespace {

TEST(RunTable, ProgressIsShownAboveTheThresholdOfEachRun) {
  // Below 0: every number of records is above it. Such a run shows its progress by other means.
  const std::map<std::int32_t, std::int32_t> thresholds = {{1, 500},  {2, 2000}, {4, 2000},  {8, 20},
                                                           {16, 500}, {32, 500}, {64, 2000}, {128, -1}};
  for (const auto& [option, threshold] : thresholds) {
    const ConversionRun* run = FindRun(option);
    ASSERT_NE(run, nullptr) << option;
    EXPECT_EQ(run->progress_threshold, threshold) << run->worker;
  }
  EXPECT_EQ(FindRun(3), nullptr);
}

// Dialogs, reports and programs know a conversion by its number alone.
TEST(RunTable, EveryConversionHasANumberOfItsOwn) {
  int conversions = 0;
  for (const Tool* tool : AllTools()) {
    const auto* conversion = dynamic_cast<const ConversionTool*>(tool);
    if (conversion == nullptr) continue;
    ++conversions;
    const ConversionRun& run = conversion->Row().run;
    EXPECT_EQ(FindRun(run.conversion_option), &run) << tool->Spec().name;
  }
  EXPECT_EQ(conversions, 8);
}

}  // namespace
}  // namespace tessarine::modCreateVertices
