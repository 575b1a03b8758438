// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/dataset_names.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "helpers/memory_class.h"
#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"

namespace tessarine::MyGeneralOperations {
namespace {

using testing::MemoryClass;
using testing::NewField;
using testing::TemporaryFolder;

TEST(DbaseNameTest, LegalNames) {
  struct Row {
    const char* name;
    const char* legal;
  };
  const Row rows[] = {
      {"", "zField"},
      {"area", "area"},
      {"2009 area (km)", "z2009_area"},
      {"_hidden", "z_hidden"},
      {"1234567890", "z123456789"},
      {"population_2010", "population"},
      {"a-b.c d", "a_b_c_d"},
      {"Gr\xC3\xB6\xC3\x9F"
       "e (m\xC2\xB2)",
       "Gr__e__m__"},  // ten characters in fourteen bytes
      {"\xC3\x89tat", "z_tat"},
  };
  for (const Row& row : rows) EXPECT_EQ(ReturnDBASEFieldName(row.name, nullptr), row.legal);
}

TEST(DbaseNameTest, FreeNamesInEveryKindOfList) {
  const auto texts = std::make_shared<StrArray>();
  texts->Add("POPULATION");
  for (int number = 2; number <= 9; ++number) texts->Add("populatio" + std::to_string(number));
  EXPECT_EQ(ReturnDBASEFieldName("population_2020", texts), "populati10");

  const auto mixed = std::make_shared<VarArray>();
  mixed->Add(NewField("area", esriFieldTypeDouble));
  mixed->Add("Area2");
  EXPECT_EQ(ReturnDBASEFieldName("area", mixed), "area3");

  const auto fields = std::make_shared<Fields>();
  fields->AddField(NewField("zField", esriFieldTypeDouble));
  EXPECT_EQ(ReturnDBASEFieldName("", fields), "zField2");
  EXPECT_EQ(ReturnDBASEFieldName("area", std::make_shared<UID>("area")), "area");
}

TEST(ReplaceBadCharsTest, EachOptionLetsItsCharacterThrough) {
  struct Row {
    const char* text;
    bool dot, backslash, blank, prefix;
    const char* clean;
  };
  const Row rows[] = {
      {"", false, false, false, false, "z"},
      {R"(a.b\c d-e)", true, true, true, false, "a_b_c_d_e"},
      {R"(a.b\c d-e)", false, true, true, false, "a.b_c_d_e"},
      {R"(a.b\c d-e)", true, false, true, false, R"(a_b\c_d_e)"},
      {R"(a.b\c d-e)", true, true, false, false, "a_b_c d_e"},
      {"9lives", true, true, true, true, "z9lives"},
      {"9lives", true, true, true, false, "9lives"},
      {"_x", true, true, true, true, "z_x"},
      {"\xC3\xB6l", true, true, true, true, "z_l"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(ReplaceBadChars(row.text, row.dot, row.backslash, row.blank, row.prefix), row.clean);
  }
}

TEST(ConvertLongBinaryTest, DigitsAndWidth) {
  EXPECT_EQ(ConvertLongBinary(1, 9), "000000001");
  EXPECT_EQ(ConvertLongBinary(112, 9), "001110000");
  EXPECT_EQ(ConvertLongBinary(256, 9), "100000000");
  EXPECT_EQ(ConvertLongBinary(1023, 9), "1111111111");
  EXPECT_EQ(ConvertLongBinary(0, 9), "");
}

TEST(ExistenceTest, ATableTakesTheNameOfAClassToo) {
  const testing::TestHost host;
  const TemporaryFolder folder;
  std::filesystem::copy_file(TESSARINE_TEST_DATA "/cities.dbf", folder.Native("lonely.dbf"));
  for (const char* ending : {".shp", ".shx", ".dbf"}) {
    std::filesystem::copy_file(TESSARINE_TEST_DATA "/cities" + std::string(ending), folder.Native("towns") + ending);
  }
  const auto workspace = CreateShapefileWorkspaceFactory()->OpenFromFile(folder.Path(), 0);
  EXPECT_TRUE(CheckIfFeatureClassExists(workspace, "towns"));
  EXPECT_TRUE(CheckIfFeatureClassExists(workspace, "lonely"));
  EXPECT_TRUE(CheckIfTableExists(workspace, "lonely"));
  EXPECT_FALSE(CheckIfFeatureClassExists(workspace, "none"));
  EXPECT_FALSE(CheckIfTableExists(workspace, "none"));

  EXPECT_EQ(MakeUniqueGDBFeatureClassName(workspace, "none"), "none");
  EXPECT_EQ(MakeUniqueGDBFeatureClassName(workspace, "lonely"), "lonely_2");
  std::filesystem::copy_file(TESSARINE_TEST_DATA "/cities.dbf", folder.Native("towns_2.dbf"));
  EXPECT_EQ(MakeUniqueGDBTableName(workspace, "towns"), "towns_3");
}

TEST(FieldPairsTest, NamesAndIndexesOfBothClasses) {
  const MemoryClass from(esriGeometryPoint,
                         {NewField("FID", esriFieldTypeOID), NewField("population", esriFieldTypeDouble)});
  const MemoryClass to(esriGeometryPoint,
                       {NewField("pop", esriFieldTypeDouble), NewField("Population", esriFieldTypeDouble)});
  VarArray fields;
  fields.Add(NewField("population", esriFieldTypeDouble));
  const auto by_field = MakeFieldNameVarArray(from, to, fields, false);
  ASSERT_EQ(by_field->Count(), 1);
  const auto row = by_field->Element(0).AsObject<VarArray>();
  EXPECT_EQ(row->Element(0).AsText() + "/" + row->Element(2).AsText(), "population/population");
  EXPECT_EQ(row->Element(1).AsLong() * 10 + row->Element(3).AsLong(), 11);

  VarArray pairs;
  pairs.Add(std::make_shared<StrArray>(StrArray{"population", "pop"}));
  pairs.Add(std::make_shared<StrArray>(StrArray{"missing", "pop"}));
  const auto by_names = MakeFieldNameVarArray(from, to, pairs, true);
  ASSERT_EQ(by_names->Count(), 2);
  EXPECT_EQ(by_names->Element(0).AsObject<VarArray>()->Element(3).AsLong(), 0);
  EXPECT_EQ(by_names->Element(1).AsObject<VarArray>()->Element(1).AsLong(), -1);
}

}  // namespace
}  // namespace tessarine::MyGeneralOperations
