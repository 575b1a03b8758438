// SPDX-License-Identifier: GPL-2.0-or-later
// What a path typed into an output box names.
#include "support/output_chooser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"
#include "outputs/temporary_layers.h"

namespace tessarine::MyGeneralOperations {
namespace {

class OutputChooserTest : public ::testing::Test {
 protected:
  testing::TestHost host;
  testing::TemporaryFolder folder;

  static OutputPlace Typed(const std::string& text) {
    OutputPlace choice;
    FollowTypedPath(text, choice);
    return choice;
  }
};

TEST_F(OutputChooserTest, TheKindOfATypedPathFollowsFromItsEndings) {
  std::filesystem::create_directory(folder.Native("old.db"));
  struct Row {
    const char *typed, *kind, *directory, *name;
    bool usable;
  };
  for (const Row& row : {
           Row{"\\roads.geojson", "GeoJSON", "", "roads.geojson", true},
           Row{"\\roads.JSON", "GeoJSON", "", "roads.JSON", true},
           Row{"\\roads.fgb", "FlatGeobuf", "", "roads.fgb", true},
           Row{"\\roads.csv", "Comma Separated Values", "", "roads.csv", true},
           Row{"\\gone\\roads.fgb", "FlatGeobuf", "\\gone", "roads.fgb", false},
           Row{"\\new.gpkg", "GeoPackage", "\\new.gpkg", "new", true},
           Row{"\\new.gpkg\\", "GeoPackage", "\\new.gpkg", "new", true},
           Row{"\\new.gpkg\\main roads", "GeoPackage", "\\new.gpkg", "main roads", true},
           Row{"\\new.sqlite\\roads", "SpatiaLite", "\\new.sqlite", "roads", true},
           Row{"\\gone\\new.gpkg\\roads", "GeoPackage", "\\gone\\new.gpkg", "roads", false},
           // A folder may be called like a file.
           Row{"\\old.db\\roads.fgb", "FlatGeobuf", "\\old.db", "roads.fgb", true},
           Row{"\\old.db\\roads", "Shapefile", "\\old.db", "roads.shp", true},
           Row{"\\roads.txt", "Shapefile", "", "roads.shp", true},
           Row{"\\roads", "Shapefile", "", "roads.shp", true},
           Row{"\\world.gdb\\roads", "Shapefile", "\\world.gdb", "roads.shp", false},
           Row{"\\world.gdb\\roads.geojson", "GeoJSON", "\\world.gdb", "roads.geojson", false},
           Row{"\\world.gdb", "File Geodatabase", "", "world.gdb", false},
       }) {
    const std::string text = folder.Path() + row.typed;
    const OutputPlace choice = Typed(text);
    EXPECT_EQ(DirectoryTypeText(choice.Kind()), row.kind) << row.typed;
    EXPECT_EQ(choice.Directory(), folder.Path() + row.directory) << row.typed;
    EXPECT_EQ(choice.name, row.name) << row.typed;
    EXPECT_EQ(OutputWorkspaceExists(text, choice), row.usable) << row.typed;
  }
}

TEST_F(OutputChooserTest, AFeatureDatasetLeavesTheDirectoryOfItsPath) {
  struct Row {
    const char* path;
    std::int32_t kind;
    const char *directory, *dataset, *name;
  };
  for (const Row& row : {
           Row{"\\x.gdb\\set\\a", kFileGeodatabase, "\\x.gdb", "set", "a"},
           Row{"\\x.gdb\\SET\\a", kFileGeodatabase, "\\x.gdb", "set", "a"},
           Row{"\\x.gdb\\a", kFileGeodatabase, "\\x.gdb", "set", "a"},
           Row{"\\data\\set\\a.shp", kShapefile, "\\data\\set", "", "a.shp"},
           Row{"\\a.shp", kShapefile, "\\", "", "a.shp"},
       }) {
    const OutputPlace place = PlaceAtPath(row.path, row.kind, "set");
    EXPECT_EQ(place.Directory(), row.directory) << row.path;
    EXPECT_EQ(place.dataset, row.dataset) << row.path;
    EXPECT_EQ(place.name, row.name) << row.path;
  }
}

TEST_F(OutputChooserTest, ARunGetsTheWholePathOfALayer) {
  const std::string whole = folder.Path("new.gpkg");
  EXPECT_EQ(ChosenPath(whole, Typed(whole)), whole + "\\new");
  const std::string shapefile = folder.Path("roads");
  EXPECT_EQ(ChosenPath(shapefile, Typed(shapefile)), shapefile);
}

TEST_F(OutputChooserTest, LayersInMemoryCountWhereTheHostHasThem) {
  const std::string text = "Temporary layer\\roads";
  EXPECT_EQ(Typed(text).Kind(), kShapefile);
  OfferTemporaryLayers([] { return std::shared_ptr<IWorkspaceFactory>(); });
  const OutputPlace choice = Typed(text);
  EXPECT_EQ(DirectoryTypeText(choice.Kind()), "Temporary layer");
  EXPECT_EQ(choice.Path(), text);
  EXPECT_TRUE(OutputWorkspaceExists(text, choice));
  // Whatever else begins so is a path.
  EXPECT_EQ(Typed("Temporary layers\\roads").Kind(), kShapefile);
  OfferTemporaryLayers(nullptr);
  EXPECT_EQ(KindOfDirectoryType("Temporary layer"), kUnknownOutput);
}

}  // namespace
}  // namespace tessarine::MyGeneralOperations
