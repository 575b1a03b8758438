// SPDX-License-Identifier: GPL-2.0-or-later
// Conversions that could never end well: refused before anything is touched.
#include <gmock/gmock.h>

#include "cli/program_run.h"

namespace tessarine::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class RefusedConversions : public ProgramTest {};

TEST_F(RefusedConversions, OfPointsLeaveWhatIsThere) {
  for (const char* command : {"split", "combine"}) {
    SCOPED_TRACE(command);
    for (const char* ending : {".shp", ".shx", ".dbf"}) WriteFile(In(std::string("old") + ending), "somebody's");
    const ProgramOutcome run = RunTessarine({command, Data("cities.shp"), "-o", In("old.shp"), "--overwrite"});
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(run.err, HasSubstr("'cities' holds points"));
    EXPECT_EQ(ReadFile(In("old.shp")), "somebody's");
    EXPECT_EQ(Left().size(), 3U);

    const ProgramOutcome plan = RunTessarine({command, Data("cities.shp"), "-o", In("new.shp"), "--dry-run"});
    EXPECT_EQ(plan.status, 2);
    EXPECT_THAT(plan.out, HasSubstr("The run would be refused:"));
    EXPECT_EQ(Left().size(), 3U);
  }
}

TEST_F(RefusedConversions, ToleranceWithACommaOrNothing) {
  for (const char* tolerance : {"1,5", "", " ", "1e", "-1", "nan", "inf", "1e400"}) {
    const ProgramOutcome run =
        RunTessarine({"build-polygons", Data("disputed_borders.shp"), "-t", tolerance, "-o", In("out.shp")});
    EXPECT_EQ(run.status, 2) << tolerance;
    EXPECT_THAT(run.err, HasSubstr("--cluster-tolerance")) << tolerance;
  }
  EXPECT_THAT(Left(), IsEmpty());
}

TEST_F(RefusedConversions, ShiftsThatAreNoNumber) {
  for (const char* shift : {"ten", "1e400", "nan"}) {
    const ProgramOutcome run = RunTessarine({"to-graphic", Data("cities.shp"), "--shift", shift, "-o", In("out.shp")});
    EXPECT_EQ(run.status, 2) << shift;
    EXPECT_THAT(run.err, HasSubstr("--shift")) << shift;
  }
  EXPECT_THAT(Left(), IsEmpty());
}

}  // namespace
}  // namespace tessarine::testing
