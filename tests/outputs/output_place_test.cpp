// SPDX-License-Identifier: GPL-2.0-or-later
#include "outputs/output_place.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "helpers/temporary_folder.h"
#include "outputs/driver_facts.h"
#include "outputs/output_argument.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using testing::TemporaryFolder;

const Format* const kShapefileRow = FormatOfKind(1);
const Format* const kGeodatabaseRow = FormatOfKind(2);

TEST(Formats, AreFoundByKindPathAndDriver) {
  EXPECT_EQ(kShapefileRow->name, "Shapefile");
  EXPECT_EQ(FormatOfPath("/data/A.GDB"), kGeodatabaseRow);
  EXPECT_EQ(FormatOfDriver("PGeo"), FormatOfKind(4));
  EXPECT_EQ(FormatOfKind(0), nullptr);
  EXPECT_EQ(FormatOfKind(3), nullptr);
  EXPECT_EQ(FormatOfPath("/data/a.xyz"), nullptr);
}

TEST(Formats, ClassesAreCalledByTheirFormatOrElseTheirDriver) {
  EXPECT_EQ(CategoryOf("ESRI Shapefile"), "Shapefile Feature Class");
  EXPECT_EQ(CategoryOf("OpenFileGDB"), "File Geodatabase Feature Class");
  EXPECT_EQ(CategoryOf("GPKG"), "GPKG Feature Class");
  EXPECT_EQ(CategoryOf("Nobody's"), "Nobody's Feature Class");
}

// What GDAL writes anew as a whole can't be changed row by row.
TEST(Formats, DriversWhoseRowsAreReachedOneByOne) {
  struct Row {
    const char* driver;
    bool in_place;
  };
  for (const Row& row :
       {Row{"ESRI Shapefile", true}, Row{"OpenFileGDB", true}, Row{"PGeo", true}, Row{"GPKG", true},
        Row{"SQLite", true}, Row{"PostgreSQL", true}, Row{"MSSQLSpatial", true}, Row{"MySQL", true}, Row{"OCI", true},
        Row{"GeoJSON", false}, Row{"GML", false}, Row{"MapInfo File", false}, Row{"GPX", false}, Row{"XLSX", false}}) {
    EXPECT_EQ(FactsOfDriver(row.driver).rows_in_place, row.in_place) << row.driver;
  }
}

// Each has its own code for rows that stand, and GDAL's would do damage there or take its time.
TEST(Formats, DriversWhoseFilesTheSuiteChangesItself) {
  struct Row {
    const char* driver;
    FileStore store;
  };
  for (const Row& row :
       {Row{"ESRI Shapefile", FileStore::Shapefile}, Row{"OpenFileGDB", FileStore::FileGeodatabase},
        Row{"PGeo", FileStore::PersonalGeodatabase}, Row{"GPKG", FileStore::GeoPackage},
        Row{"SQLite", FileStore::Other}, Row{"GeoJSON", FileStore::Other}, Row{"Nobody's", FileStore::Other}}) {
    EXPECT_EQ(FactsOfDriver(row.driver).store, row.store) << row.driver;
  }
  for (const char* driver : {"GPKG", "SQLite"}) EXPECT_TRUE(FactsOfDriver(driver).sqlite) << driver;
  for (const char* driver : {"OpenFileGDB", "PostgreSQL"}) EXPECT_FALSE(FactsOfDriver(driver).sqlite) << driver;
}

TEST(Formats, OtherEndingsOfADriverKeepWhatItsRowTells) {
  const Format kmz = FactsOfDriver("LIBKML");
  EXPECT_TRUE(kmz.clean_texts && kmz.degrees);
  EXPECT_EQ(LegalName(kmz.field_names, "q\"<&"), "q___");
  const Format zipped = FactsOfDriver("ESRI Shapefile");
  EXPECT_EQ(zipped.kind, 0);
  EXPECT_FALSE(zipped.updated_in_place);
  EXPECT_TRUE(zipped.parts.empty());
  EXPECT_TRUE(FactsOfDriver("OGR_GMT").needs_shapes);
  EXPECT_FALSE(FactsOfDriver("XLSX").degrees);
}

struct NameRow {
  const char* asked;
  const char* name;
};

TEST(Formats, NamesThatAGeodatabaseDoesNotTake) {
  const NameRow fields[] = {{"select", "select_"}, {"Date", "Date_"}, {"OBJECTID", "OBJECTID_"},
                            {"a b", "a_b"},        {"1x", "_1x"},     {"ab.c", "ab_c"},
                            {"Länge", "Länge"},    {"_u", "_u"},      {"Shape", "Shape"},
                            {"gdb_x", "gdb_x"},    {"", ""}};
  for (const NameRow& row : fields) EXPECT_EQ(LegalName(kGeodatabaseRow->field_names, row.asked), row.name);
  const NameRow classes[] = {{"sde_x", "_sde_x"}, {"GDB_Items", "_GDB_Items"}, {"objectid", "objectid"}};
  for (const NameRow& row : classes) EXPECT_EQ(LegalName(kGeodatabaseRow->class_names, row.asked), row.name);
  EXPECT_EQ(LegalName(kGeodatabaseRow->field_names, std::string(70, 'x')), std::string(64, 'x'));
}

TEST(Formats, NamesThatTextFormatsDoNotTake) {
  struct Row {
    const char *ending, *asked, *name;
  };
  for (const Row& row : {Row{".gml", "a b", "a_b"}, Row{".gml", "a.b", "a.b"}, Row{".gml", "1st", "_1st"},
                         Row{".gml", "gml_id", "gml_id_"}, Row{".gml", "Länge", "Länge"}, Row{".csv", "q\"q", "q_q"},
                         Row{".csv", "two\nlines", "two_lines"}, Row{".csv", "a b", "a b"}, Row{".csv", "WKT", "WKT_"},
                         Row{".kml", "q\"<&", "q___"}, Row{".kml", "a b", "a b"}, Row{".geojson", "q\"q", "q\"q"}}) {
    EXPECT_EQ(LegalName(FormatOfPath(row.ending)->field_names, row.asked), row.name) << row.ending;
  }
  for (const Row& row : {Row{".gpkg", "gpkg_roads", "_gpkg_roads"}, Row{".gpkg", "roads", "roads"},
                         Row{".sqlite", "sqlite_x", "_sqlite_x"}, Row{".gpkg", "sqlite_x", "_sqlite_x"}}) {
    EXPECT_EQ(LegalName(FormatOfPath(row.ending)->class_names, row.asked), row.name) << row.ending;
  }
}

TEST(Formats, NamesOfDbaseColumnsAreCutBetweenCharacters) {
  const NameRule& rule = kShapefileRow->field_names;
  EXPECT_EQ(LegalName(rule, "elevenchars"), "elevenchar");
  EXPECT_EQ(LegalName(rule, "Entfernunü"), "Entfernun");
  EXPECT_EQ(LegalName(rule, "a b.c"), "a b.c");
  const auto taken = [](const std::string& name) { return name == "elevenchar" || name == "elevench_2"; };
  EXPECT_EQ(FreeLegalName(rule, "elevenchars", taken), "elevench_3");
}

class Places : public ::testing::Test {
 protected:
  [[nodiscard]] fs::path At(const char* name) const { return folder_.Native(name); }
  [[nodiscard]] OutputPlace Shapefile(const char* name) const { return {kShapefileRow, folder_.Native(), "", name}; }
  [[nodiscard]] OutputPlace Class(const char* geodatabase, const char* name) const {
    return {kGeodatabaseRow, folder_.Native(geodatabase), "", name};
  }
  [[nodiscard]] bool Reads(const OutputPlace& place, const std::string& file, std::vector<std::string> classes = {}) {
    return place.Overlaps({{file.starts_with("/") ? file : folder_.Native(file)}, std::move(classes)});
  }

  TemporaryFolder folder_;
};

TEST_F(Places, AShapefileOverlapsWithAnyOfItsPartsByAnyName) {
  for (const char* name : {"a.shp", "a.dbf", "b.shp"}) folder_.Write(name);
  fs::create_symlink(At("a.dbf"), At("link.dbf"));
  fs::create_hard_link(At("a.shp"), At("hard.shp"));
  fs::create_directory(At("sub"));
  for (const char* file : {"a.shp", "a.dbf", "link.dbf", "hard.shp", "sub/../a.dbf"}) {
    EXPECT_TRUE(Reads(Shapefile("a.shp"), file)) << file;
    EXPECT_FALSE(Reads(Shapefile("c.shp"), file)) << file;
  }
  EXPECT_FALSE(Reads(Shapefile("a.shp"), "b.shp"));
  EXPECT_TRUE(Reads(Shapefile("link.shp"), "a.dbf")) << "its table would be replaced";
}

TEST_F(Places, InAGeodatabaseTheClassesAreComparedAsTheyWillBeCalled) {
  fs::create_directory(At("g.gdb"));
  folder_.Write("g.gdb/a00000009.gdbtable");
  fs::create_symlink(At("g.gdb"), At("link.gdb"));
  fs::create_symlink(At("g.gdb/a00000009.gdbtable"), At("table"));
  const char* const names[] = {"a_b", "A_B", "a b", "a_b.shp"};
  for (const char* name : names) {
    EXPECT_TRUE(Reads(Class("g.gdb", name), "g.gdb", {"a_b"})) << name;
    EXPECT_TRUE(Reads(Class("link.gdb", name), "g.gdb/a00000009.gdbtable", {"a_b"})) << name;
    EXPECT_TRUE(Reads(Class("g.gdb", name), "table", {"a_b"})) << name;
    EXPECT_FALSE(Reads(Class("g.gdb", name), "g.gdb", {"c"})) << name;
    EXPECT_FALSE(Reads(Class("other.gdb", name), "g.gdb", {"a_b"})) << name;
  }
  EXPECT_TRUE(Reads(Class("g.gdb", "new"), "g.gdb", {""})) << "what is read isn't known";
}

TEST_F(Places, VirtualPathsComeDownToTheirFiles) {
  folder_.Write("a.zip");
  folder_.Write("a.bin");
  const std::string folder = folder_.Native();
  EXPECT_EQ(RealFile("/vsizip/" + folder + "/a.zip/in/b.shp"), folder + "/a.zip");
  EXPECT_EQ(RealFile("/vsizip/{" + folder + "/a.zip}/b.shp"), folder + "/a.zip");
  EXPECT_EQ(RealFile("/vsisubfile/10_20," + folder + "/a.bin"), folder + "/a.bin");
  EXPECT_EQ(RealFile("/vsizip//vsisubfile/0_9," + folder + "/a.bin/b.shp"), folder + "/a.bin");
  EXPECT_EQ(RealFile(folder + "/nowhere.shp"), folder + "/nowhere.shp");
}

TEST_F(Places, NamesThatCannotBeWrittenAreRefused) {
  const char* const refused[] = {"", ".shp", ".SHP", " blank.shp", "blank.shp ", "a\"b.shp", "a\\b.shp"};
  for (const char* name : refused) EXPECT_TRUE(NameProblem(Shapefile(name))) << name;
  for (const char* name : {"a.shp", "a.shp.shp", "a b.shp", "ä.shp"})
    EXPECT_FALSE(NameProblem(Shapefile(name))) << name;
  OutputPlace quoted = Shapefile("a.shp");
  quoted.container += "/\"q\"";
  EXPECT_THAT(NameProblem(quoted).value_or(""), ::testing::HasSubstr("'\"q\"'"));
}

TEST_F(Places, AFreeNameIsOneThatNoDataSetHasAFileOf) {
  folder_.Write("v.dbf");
  folder_.Write("v_2.SHX");
  EXPECT_EQ(FirstFreePath(At("v.shp")), At("v_3.shp"));
  EXPECT_EQ(FirstFreePath(At("w.shp")), At("w.shp"));
}

TEST(PlaceIn, TakesBackslashPathsAndGivesThemBack) {
  struct Row {
    std::int32_t kind;
    const char *given, *name, *dataset, *container, *directory, *path;
  };
  for (const Row& row : {
           Row{1, "\\data", "a.shp", "", "/data", "\\data", "\\data\\a.shp"},
           Row{1, "\\data\\", "a.shp", "", "/data", "\\data", "\\data\\a.shp"},
           Row{1, "\\", "a.shp", "", "/", "\\", "\\a.shp"},
           Row{2, "C:\\x.gdb", "a", "set", "C:/x.gdb", "C:\\x.gdb", "C:\\x.gdb\\set\\a"},
           Row{1, "", "", "", "", "", "\\"},
           Row{3, "\\data", "", "", "/data", "\\data", "\\data\\"},
       }) {
    const OutputPlace place = PlaceIn(row.kind, row.given, row.name, row.dataset);
    EXPECT_EQ(place.container, row.container) << row.path;
    EXPECT_EQ(place.Directory(), row.directory) << row.path;
    EXPECT_EQ(place.Path(), row.path);
    EXPECT_EQ(place.Kind(), row.kind == 3 ? 0 : row.kind) << "no format has the kind 3";
  }
}

TEST(PlaceIn, IsTheSameByWayOfAnArgument) {
  const ToolOutput folder = ArgumentFor(PlaceIn(0, "\\data\\", ""));
  EXPECT_EQ(folder.directory, "\\data");
  EXPECT_TRUE(PlaceOf(folder).IsFolder());
  const OutputPlace place = PlaceOf(ArgumentFor(PlaceIn(2, "\\x.gdb", "a", "set")));
  EXPECT_EQ(place.Path(), "\\x.gdb\\set\\a");
  EXPECT_EQ(place.format, kGeodatabaseRow);
}

}  // namespace
}  // namespace tessarine
