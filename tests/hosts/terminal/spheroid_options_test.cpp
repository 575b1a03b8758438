// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/spheroid_options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"
#include "hosts/terminal/refusal.h"

namespace tessarine {
namespace {

using ::testing::HasSubstr;

class SpheroidChoice : public ::testing::Test {
 protected:
  SpheroidChoice() { host_.system.program_folder = folder_.Path(); }

  static std::string RefusalOf(const SpheroidOptions& options) {
    try {
      (void)ChooseSpheroid(options);
    } catch (const Refusal& refusal) {
      return refusal.what();
    }
    return "not refused";
  }

  testing::TemporaryFolder folder_;
  testing::TestHost host_;
};

struct Choice {
  SpheroidOptions options;
  const char* name;
  double major, minor;
};

TEST_F(SpheroidChoice, NamesCodesAndRadii) {
  folder_.Write("spheroids.dat", "Mars 2000,3,2,\nHome,7,6,\n");
  const Choice choices[] = {
      {{"WGS 1984", ""}, "WGS 1984", 6378137.0, 6356752.314245179},
      {{"7030", ""}, "WGS 1984", 6378137.0, 6356752.314245179},
      {{"107908", ""}, "Jupiter", 71492000.0, 66854000.0},
      {{"EPSG:7030", ""}, "WGS 1984", 6378137.0, 6356752.314245179},
      {{"esri:107908", ""}, "Jupiter", 71492000.0, 66854000.0},
      {{"clarke_1866", ""}, "Clarke 1866", 6378206.4, 6356583.8},
      {{"neptune larissa", ""}, "Neptune - Larissa", 104000.0, 89000.0},
      {{"home", ""}, "Home", 7.0, 6.0},
      {{"Mars 2000", ""}, "Mars 2000", 3.0, 2.0},
      {{"107905", ""}, "Mars 2000", 3396190.0, 3376200.0},
      {{"", "6378137, 6.356752E6"}, "Custom Spheroid", 6378137.0, 6356752.0},
  };
  for (const Choice& row : choices) {
    const std::optional<ChosenSpheroid> chosen = ChooseSpheroid(row.options);
    ASSERT_TRUE(chosen) << row.name;
    EXPECT_EQ(chosen->name, row.name);
    EXPECT_NEAR(chosen->semi_major_axis, row.major, 1e-6) << row.name;
    EXPECT_NEAR(chosen->semi_minor_axis, row.minor, 1e-6) << row.name;
  }
  EXPECT_EQ(ChooseSpheroid({}), std::nullopt);
}

TEST_F(SpheroidChoice, RefusalsTellTheWayOut) {
  EXPECT_THAT(RefusalOf({"WGS84", ""}), HasSubstr("Near are 'WGS 1984'"));
  EXPECT_THAT(RefusalOf({"marz", ""}), HasSubstr("'Mars 2000'"));
  EXPECT_THAT(RefusalOf({"Europa", ""}), HasSubstr("Near are 'Jupiter - Europa'"));
  EXPECT_THAT(RefusalOf({"qqqqqqqq", ""}), HasSubstr("'tessarine spheroids' lists"));
  for (const char* text : {" ", "EPSG:107908", "ESRI:7030", "IAU:7030"}) {
    EXPECT_THAT(RefusalOf({text, ""}), HasSubstr("There is no spheroid")) << text;
  }
  for (const char* radii : {"1", "1,", ",", "1,2,3", "a,b", "0,1", "1,-1", "1e999,1", "nan,1"}) {
    EXPECT_THAT(RefusalOf({"", radii}), HasSubstr("--radii")) << radii;
  }
  folder_.Write("spheroids.dat", "nothing\n");
  EXPECT_THAT(RefusalOf({"7030", ""}), HasSubstr("tells no spheroid"));
}

TEST_F(SpheroidChoice, AxesComeAsTheyAreListedOrTyped) {
  const ChosenSpheroid listed = *ChooseSpheroid({"7019", ""});
  EXPECT_EQ(listed.name, "GRS 1980");
  EXPECT_EQ(listed.semi_major_axis, 6378137.0);
  const ChosenSpheroid typed = *ChooseSpheroid({"", "6378137,6356752.314245179"});
  EXPECT_EQ(typed.semi_minor_axis, 6356752.314245179);
}

}  // namespace
}  // namespace tessarine
