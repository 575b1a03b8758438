// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/aml_func_mod.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "helpers/fake_application.h"
#include "helpers/reported_faults.h"
#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"

namespace tessarine::aml_func_mod {
namespace {

using testing::FakeApplication;
using testing::TemporaryFolder;
using testing::TestHost;

TEST(ParseStringTest, SplitsTrimsAndHonoursQuotes) {
  struct Row {
    const char* name;
    const char* text;
    char delimiter;
    std::vector<std::string> parts;
  };
  const Row rows[] = {
      {"plain", "a,b,c", ',', {"a", "b", "c"}},
      {"no delimiter", "whole text", ',', {"whole text"}},
      {"blanks around parts", " a ; b c ", ';', {"a", "b c"}},
      {"empty parts stay", ",a,,b,", ',', {"", "a", "", "b", ""}},
      {"quotes protect", "\"a,b\",c", ',', {"a,b", "c"}},
      {"two pairs in one part", "\"a,b\"\"c,d\",e", ',', {"a,bc,d", "e"}},
      {"a protected delimiter at the end is cut", "\"a,\",b", ',', {"a", "b"}},
      {"an open quote protects the rest", "a,\"b,c", ',', {"a", "\"b,c"}},
      {"delimiters alone leave the list", " , ,", ',', {"before"}},
      {"no text leaves the list", "", ',', {"before"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    std::vector<std::string> parts{"before"};
    ParseString(row.text, parts, row.delimiter);
    EXPECT_EQ(parts, row.parts);
  }
}

TEST(PathTest, FolderNameAndExtension) {
  struct Row {
    const char* path;
    const char* folder;
    const char* name;
    const char* clipped;
  };
  const Row rows[] = {
      {R"(C:\data\x.shp)", R"(C:\data\)", "x.shp", R"(C:\data\x)"},
      {R"(\home\ann\roads)", R"(\home\ann\)", "roads", R"(\home\ann\roads)"},
      {R"(C:\my data\a.b.shp)", R"(C:\my data\)", "a.b.shp", R"(C:\my data\a.b)"},
      {R"(C:\data\)", R"(C:\data\)", "", R"(C:\data\)"},
      {"x.shp", R"(x.shp\)", "x.shp", "x"},
      // The last "." counts wherever it stands.
      {R"(C:\v1.2\roads)", R"(C:\v1.2\)", "roads", R"(C:\v1)"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.path);
    EXPECT_EQ(ReturnDir(row.path), row.folder);
    EXPECT_EQ(ReturnFilename(row.path), row.name);
    EXPECT_EQ(ClipExtension(row.path), row.clipped);
    EXPECT_EQ(SetExtension(row.path, "dbf"), std::string(row.clipped) + ".dbf");
  }
}

TEST(TextTest, SubstCutsOrOverwritesInPlace) {
  EXPECT_EQ(Subst("a--b--", "--"), "ab");
  EXPECT_EQ(Subst("a-b", "+"), "a-b");
  EXPECT_EQ(Subst("a-b-c", "-", "+"), "a+b+c");
  EXPECT_EQ(Subst("a__b", "__", "X"), "aX_b");
  EXPECT_EQ(Subst("a-b-", "-", "+++"), "a+++");
  EXPECT_EQ(Subst("aaa", "a", "a"), "aaa");
}

TEST(TextTest, PartsAroundMarkersAndTrimming) {
  EXPECT_EQ(Before("key=a=b", "="), "key");
  EXPECT_EQ(After("key=a=b", "="), "a=b");
  EXPECT_EQ(Before("key", "="), "");
  EXPECT_EQ(After("key", "="), "");
  EXPECT_EQ(BasicTrimAvenue("abc   ", "", " "), "abc");
  EXPECT_EQ(BasicTrimAvenue("x-abc-x", "-x", ""), "abc-x");
  EXPECT_EQ(BasicTrimAvenue("xxxx", "x", "x"), "");
}

TEST(TextTest, InsertCommas) {
  struct Row {
    Variant value;
    const char* text;
  };
  const Row rows[] = {
      {0, "0"},
      {123, "123"},
      {1000, "1,000"},
      {999999, "999,999"},
      {1000000, "1,000,000"},
      {-1234567, "-1,234,567"},
      {1234567.89, "1,234,567.89"},
      {0.12345, "0.12345"},
      {1234.5678, "1,234.5678"},
      {"98765", "98,765"},
  };
  for (const Row& row : rows) EXPECT_EQ(InsertCommas(row.value), row.text);
}

TEST(FieldTest, FourTypesAreNumeric) {
  std::string numeric;
  for (std::int32_t type = esriFieldTypeSmallInteger; type <= esriFieldTypeXML; ++type) {
    Field field;
    field.Type = static_cast<esriFieldType>(type);
    numeric += FieldIsNumeric(field) ? '1' : '0';
  }
  EXPECT_EQ(numeric, "1111000000000");
}

TEST(FileTest, FilesAndFolders) {
  const TestHost host;
  const TemporaryFolder folder;
  folder.Write("here.txt");
  EXPECT_TRUE(FileExists(folder.Path("here.txt")));
  EXPECT_TRUE(ExistFileDir(folder.Path("here.txt")));
  EXPECT_FALSE(FileExists(folder.Path()));
  EXPECT_TRUE(ExistFileDir(folder.Path()));
  EXPECT_FALSE(ExistFileDir(folder.Path("gone")));
  EXPECT_FALSE(ExistFileDir(""));
  EXPECT_EQ(GetFullFileString("x.txt"), FromNativePath((std::filesystem::current_path() / "x.txt").string()));
}

TEST(FileTest, MakeUniqueFilename) {
  const TestHost host;
  const TemporaryFolder folder;
  for (const char* name : {"a.shp", "b.shp", "b_2.shp", "bare", "c.json", "d.table", "e.v.shp"}) folder.Write(name);
  struct Row {
    const char* wanted;
    const char* free;
  };
  const Row rows[] = {
      {"new.shp", "new.shp"},
      {"a.shp", "a_2.shp"},
      {"b.shp", "b_3.shp"},
      {"bare", "bare_2"},
      {"c.json", "c_2.json"},
      {"e.v.shp", "e.v_2.shp"},
      // Only an ending of at most four letters is one.
      {"d.table", "d.table_2"},
  };
  for (const Row& row : rows) EXPECT_EQ(MakeUniqueFilename(folder.Path(row.wanted)), folder.Path(row.free));
}

TEST(HostTest, DocumentPathAndUser) {
  TestHost host;
  const testing::ReportedFaults reported;
  const auto application = std::make_shared<FakeApplication>();
  application->templates = {R"(\normal.mxt)", R"(\home\ann\map.mxd)"};
  EXPECT_EQ(GetMxDocPath(application), R"(\home\ann\map.mxd)");
  host.system.user = std::string("ann\0\0", 5);
  EXPECT_EQ(GetTheUserName(), "ann");

  EXPECT_EQ(GetMxDocPath(nullptr), "");
  ASSERT_EQ(host.error_reports.size(), 1U);
  EXPECT_NE(host.error_reports[0].find("GetMxDocPath "), std::string::npos);
}

}  // namespace
}  // namespace tessarine::aml_func_mod
