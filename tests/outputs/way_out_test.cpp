// SPDX-License-Identifier: GPL-2.0-or-later
#include "outputs/way_out.h"

#include <gtest/gtest.h>

#include "outputs/shown_places.h"

namespace tessarine::testing {
namespace {

TEST(WayOut, HiddenPlacesOfOutputsAreToldAsTheOutputs) {
  const struct {
    const char *said, *shown;
  } rows[] = {
      {"'/nowhere/.o.shp.tessarine-Ab12Cd/new/o.prj' can't be read.", "'/nowhere/o.prj' can't be read."},
      {"'/nowhere/.o.csv.work.gpkg.tessarine-Ab12Cd/new/o.csv.work.gpkg' is none (/nowhere/.o.csv.work.gpkg.tessarine-"
       "Ab12Cd/new/o.csv.work.gpkg).",
       "'/nowhere/o.csv' is none (/nowhere/o.csv)."},
      {"'/no where/.o.gpkg.tessarine-Ab12Cd/new/o.gpkg'", "'/no where/o.gpkg'"},
      {"'/data/my.tessarine-files/o.gpkg' can't be read.", "'/data/my.tessarine-files/o.gpkg' can't be read."},
      {"'/data/.hidden/o.tessarine-1' can't be read.", "'/data/.hidden/o.tessarine-1' can't be read."},
      {"", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(WithShownPlaces(row.said), row.shown);
}

TEST(WayOut, AFullDiskIsToldWhereTheLibraryTellsOfIt) {
  for (const char* complaint : {"No space left on device", "sqlite3_exec(COMMIT) failed: database or disk is full"}) {
    EXPECT_EQ(WayOut("/tmp/o.gpkg", complaint), ": there is no room left on its disk.") << complaint;
  }
}

}  // namespace
}  // namespace tessarine::testing
