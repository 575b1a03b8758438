// SPDX-License-Identifier: GPL-2.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hosts/terminal/terminal_status_bar.h"
#include "hosts/terminal/usage_errors.h"

namespace tessarine {
namespace {

constexpr const char* kText =
    "Generating Vertices from a layer of a rather long name.....[record #1234567 of 4000000  ---  30.86%].....Est. "
    "Time "
    "Left = 0:11:00...";

TEST(ProgressLineTest, TheEndOfTheTextStaysInView) {
  EXPECT_EQ(ProgressLine(0.5, "Reading roads", 60), "[###############...............]  50% Reading roads");
  EXPECT_EQ(ProgressLine(0.3086, kText, 79), "[###.......]  31% [record #1234567 of 4000000] Est. Time Left = 0:11:00");
  EXPECT_EQ(ProgressLine(0.3086, kText, 100),
            "[###.......]  31% Generating Vertices from... [record #1234567 of 4000000] Est. Time Left = 0:11:00");
  EXPECT_EQ(ProgressLine(0.3086, kText, 200).substr(0, 37), "[#########.....................]  31%");
  EXPECT_EQ(ProgressLine(1.0, kText, 20), "[##########] 100% [r");
  EXPECT_EQ(ProgressLine(0.0, "", 1), "[");
  EXPECT_EQ(ProgressLine(0.0, "Größen und Längen", 30), "[..........]   0% Größen und L") << "characters, no bytes";
}

TEST(NearestNameTest, IsNearOrNothing) {
  const std::vector<std::string> names = {"vertices", "calculate", "centroids", "split", "wrap"};
  for (const auto& [typed, nearest] : std::vector<std::pair<std::string, std::string>>{{"vertexes", "vertices"},
                                                                                       {"evrtices", "vertices"},
                                                                                       {"centroid", "centroids"},
                                                                                       {"warp", "wrap"},
                                                                                       {"calc", "calculate"},
                                                                                       {"s", ""},
                                                                                       {"union", ""},
                                                                                       {"", ""}}) {
    EXPECT_EQ(NearestName(typed, names), nearest) << typed;
  }
  EXPECT_EQ(NearestName("--outptu", {"--output", "--overwrite"}), "--output");
}

}  // namespace
}  // namespace tessarine
