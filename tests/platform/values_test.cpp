// SPDX-License-Identifier: GPL-2.0-or-later
// Variants, lists, fields, paths and error traps.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "helpers/shapes.h"
#include "platform/arrays.h"
#include "platform/field.h"
#include "platform/paths.h"
#include "platform/trap.h"

namespace tessarine {
namespace {

using testing::FaultOf;
using Kind = Variant::Kind;

TEST(Variants, KnowTheirKind) {
  EXPECT_EQ(Variant().kind(), Kind::Empty);
  EXPECT_EQ(Variant(Null{}).kind(), Kind::Null);
  EXPECT_EQ(Variant(true).kind(), Kind::Boolean);
  EXPECT_EQ(Variant(std::int16_t{1}).kind(), Kind::Short);
  EXPECT_EQ(Variant(1).kind(), Kind::Long);
  EXPECT_EQ(Variant(1.0F).kind(), Kind::Single);
  EXPECT_EQ(Variant(1.0).kind(), Kind::Double);
  EXPECT_EQ(Variant("text").kind(), Kind::String);
  EXPECT_EQ(Variant(Date{1.0}).kind(), Kind::Date);
  EXPECT_EQ(Variant(std::make_shared<Point>()).kind(), Kind::Object);
  EXPECT_NE(Variant(), Variant(Null{}));
  EXPECT_NE(Variant(1), Variant(1.0));
}

TEST(Variants, WholeNumbersRoundHalvesToEven) {
  struct Row {
    double value;
    std::int32_t whole;
  };
  for (const Row& row : {Row{2.5, 2}, Row{3.5, 4}, Row{-2.5, -2}, Row{-3.5, -4}, Row{0.5, 0}, Row{2.4999, 2},
                         Row{2147483647.4, 2147483647}, Row{-2147483648.5, -2147483647 - 1}}) {
    EXPECT_EQ(Variant(row.value).AsLong(), row.whole) << row.value;
  }
  EXPECT_EQ(FaultOf([] { (void)Variant(2147483647.5).AsLong(); }), kOverflow);
  EXPECT_EQ(FaultOf([] { (void)Variant(32768).AsShort(); }), kOverflow);
  EXPECT_EQ(Variant(-32768).AsShort(), -32768);
  EXPECT_EQ(FaultOf([] { (void)Variant(std::nan("")).AsLong(); }), kOverflow);
  EXPECT_EQ(FaultOf([] { (void)Variant(1e39).AsSingle(); }), kOverflow);
}

TEST(Variants, WholeNumbersOf64BitsKeepAllDigits) {
  constexpr std::int64_t kLarge = 123456789012345678;
  const Variant large(kLarge);
  EXPECT_EQ(large.kind(), Kind::LongLong);
  EXPECT_TRUE(large.IsNumeric());
  EXPECT_EQ(large.AsLongLong(), kLarge);
  EXPECT_EQ(large.AsText(), "123456789012345678");
  EXPECT_EQ(large.AsDouble(), 123456789012345680.0);
  EXPECT_EQ(Variant("123456789012345678").AsLongLong(), kLarge);
  EXPECT_EQ(Variant(" 1,234.5 ").AsLongLong(), 1234);
  EXPECT_EQ(Variant(std::int64_t{-7}).AsLong(), -7);
  EXPECT_EQ(Variant(-9223372036854775808.0).AsLongLong(), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(FaultOf([&] { (void)large.AsLong(); }), kOverflow);
  EXPECT_EQ(FaultOf([] { (void)Variant(std::int64_t{4294967297}).AsShort(); }), kOverflow);
  EXPECT_EQ(FaultOf([] { (void)Variant(9223372036854775808.0).AsLongLong(); }), kOverflow);
  EXPECT_EQ(FaultOf([] { (void)Variant(Null{}).AsLongLong(); }), kTypeMismatch);
}

TEST(Variants, ConvertAmongFlagsNumbersTextsAndDates) {
  EXPECT_EQ(Variant(true).AsDouble(), -1.0);
  EXPECT_EQ(Variant().AsDouble(), 0.0);
  EXPECT_EQ(Variant().AsText(), "");
  EXPECT_FALSE(Variant().AsBoolean());
  EXPECT_EQ(Variant(" 1,234.5 ").AsDouble(), 1234.5);
  EXPECT_TRUE(Variant("tRUE").AsBoolean());
  EXPECT_FALSE(Variant("0").AsBoolean());
  EXPECT_TRUE(Variant("2").AsBoolean());
  EXPECT_EQ(Variant(0.1F).AsText(), "0.1");
  EXPECT_EQ(Variant(-9999.0).AsText(), "-9999");
  EXPECT_EQ(Variant(false).AsText(), "False");
  EXPECT_EQ(Variant(MakeDate(2000, 1, 1, 18)).AsDouble(), 36526.75);
  EXPECT_EQ(Variant(36526.75).AsDate(), MakeDate(2000, 1, 1, 18));
  EXPECT_EQ(Variant(MakeDate(2000, 1, 1, 18)).AsText(), "1/1/2000 6:00:00 PM");
}

TEST(Variants, RefuseWhatCantBeRead) {
  EXPECT_EQ(FaultOf([] { (void)Variant(Null{}).AsDouble(); }), kTypeMismatch);
  EXPECT_EQ(FaultOf([] { (void)Variant(Null{}).AsText(); }), kTypeMismatch);
  EXPECT_EQ(FaultOf([] { (void)Variant(Null{}).AsBoolean(); }), kTypeMismatch);
  EXPECT_EQ(FaultOf([] { (void)Variant("ten").AsLong(); }), kTypeMismatch);
  EXPECT_EQ(FaultOf([] { (void)Variant("").AsDouble(); }), kTypeMismatch);
  EXPECT_EQ(FaultOf([] { (void)Variant(std::make_shared<Point>()).AsText(); }), kTypeMismatch);
  EXPECT_EQ(FaultOf([] { (void)Variant(1).Text(); }), kTypeMismatch);
  EXPECT_TRUE(Variant("12e3").IsNumeric());
  EXPECT_FALSE(Variant("12x").IsNumeric());
  EXPECT_FALSE(Variant(Null{}).IsNumeric());
  EXPECT_FALSE(Variant(Date{1.0}).IsNumeric());
}

TEST(Variants, ObjectsKeepTheirIdentity) {
  const auto point = std::make_shared<Point>(1.0, 2.0);
  const Variant value(point);
  EXPECT_EQ(value.AsObject<Point>(), point);
  EXPECT_EQ(value.AsObject<IRelationalOperator>(), point);
  EXPECT_EQ(value.AsObject<Polygon>(), nullptr);
  EXPECT_EQ(Variant(1).AsObject<Point>(), nullptr);
}

TEST(Lists, CountFromZeroAndRefusePlacesOutside) {
  VarArray list{1, "two", Null{}};
  list.Add(std::make_shared<VarArray>());
  EXPECT_EQ(list.Count(), 4);
  EXPECT_EQ(list.Element(1).Text(), "two");
  list.SetElement(1, 2.0);
  EXPECT_EQ(list.Element(1), Variant(2.0));
  EXPECT_EQ(FaultOf([&] { (void)list.Element(4); }), kInvalidCall);
  EXPECT_EQ(FaultOf([&] { list.SetElement(-1, 0); }), kInvalidCall);
}

TEST(FieldLists, FindNamesIgnoringCase) {
  Fields fields;
  for (const char* name : {"FID", "Shape", "Uniq_ID"}) {
    auto field = std::make_shared<Field>();
    field->Name = name;
    fields.AddField(field);
  }
  EXPECT_EQ(fields.FieldCount(), 3);
  EXPECT_EQ(fields.FindField("UNIQ_id"), 2);
  EXPECT_EQ(fields.FindField("Uniq"), -1);
  EXPECT_EQ(fields.FindField(""), -1);
  EXPECT_EQ(fields.Field(1)->Name, "Shape");
  EXPECT_EQ(FaultOf([&] { (void)fields.Field(3); }), kInvalidCall);
  EXPECT_EQ(FaultOf([&] { (void)fields.Field(-1); }), kInvalidCall);
}

TEST(FieldLists, FindAFieldByItselfOrAmongTheAttributes) {
  const auto made = [](const char* name, esriFieldType type) {
    auto field = std::make_shared<Field>();
    field->Name = name;
    field->Type = type;
    return field;
  };
  Fields fields;
  fields.AddField(made("FID", esriFieldTypeOID));
  fields.AddField(made("Shape", esriFieldTypeGeometry));
  for (const char* name : {"shape", "a", "A"}) fields.AddField(made(name, esriFieldTypeString));
  EXPECT_EQ(fields.IndexOf(*fields.Field(0)), 0);
  EXPECT_EQ(fields.IndexOf(*fields.Field(4)), 4);
  EXPECT_EQ(fields.IndexOf(*made("A", esriFieldTypeString)), 4) << "with case first";
  EXPECT_EQ(fields.IndexOf(*made("SHAPE", esriFieldTypeString)), 2) << "never the shape";
  EXPECT_EQ(fields.IndexOf(*made("FID", esriFieldTypeInteger)), -1) << "never the identifier";
}

TEST(FieldLists, ACloneSharesNothing) {
  Field field;
  field.Name = "Shape";
  field.Type = esriFieldTypeGeometry;
  field.GeometryDef = std::make_shared<GeometryDef>();
  field.GeometryDef->SetGridSize(2, 1000.0);
  const auto copy = CloneOf(field);
  EXPECT_TRUE(copy->IsEqual(field));
  ASSERT_NE(copy->GeometryDef, field.GeometryDef);
  EXPECT_EQ(copy->GeometryDef->GridSize(2), 1000.0);
  EXPECT_EQ(copy->GeometryDef->GridSize(0), 0.0);
  EXPECT_EQ(copy->GeometryDef->GridSize(9), 0.0);
  copy->GeometryDef->HasZ = true;
  EXPECT_FALSE(field.GeometryDef->HasZ);
  copy->Length = 5;
  EXPECT_FALSE(copy->IsEqual(field));
}

TEST(PathNames, BackslashesInsideSlashesOutside) {
  EXPECT_EQ(ToNativePath("\\home\\ann\\roads.shp"), "/home/ann/roads.shp");
  EXPECT_EQ(FromNativePath("/home/ann/a.gdb/roads"), "\\home\\ann\\a.gdb\\roads");
  EXPECT_EQ(FaultOf([] { (void)FromNativePath("/home/a\\b.shp"); }), kInvalidCall);
}

struct Report {
  std::string procedure, source, description;
  std::int32_t number;
  std::vector<FaultCall> calls;
};
std::vector<Report> g_reports;

class Traps : public ::testing::Test {
 protected:
  void SetUp() override {
    g_reports.clear();
    before_ = SetFaultReporter([](const TrapSite& site, const Fault& fault) {
      g_reports.push_back({site.procedure, site.source, fault.Description(), fault.Number(), fault.Calls()});
    });
  }
  void TearDown() override { SetFaultReporter(before_); }

 private:
  FaultReporter before_ = nullptr;
};

TEST_F(Traps, EndAFaultWithTheEmptyResult) {
  EXPECT_EQ(Trap("Answer", [] { return 42; }), 42);
  EXPECT_TRUE(g_reports.empty());
  EXPECT_EQ(Trap("Area", []() -> double { Raise(kDivisionByZero, "Division by zero."); }), 0.0);
  EXPECT_EQ(Trap("Name", []() -> std::string { throw std::out_of_range("too far"); }), "");
  Trap("Nothing", [] { throw 1; });
  ASSERT_EQ(g_reports.size(), 3U);
  EXPECT_EQ(g_reports[0].procedure, "Area ");
  EXPECT_EQ(g_reports[0].number, kDivisionByZero);
  EXPECT_NE(g_reports[0].source.find("values_test.cpp"), std::string::npos);
  EXPECT_EQ(g_reports[1].number, kInvalidCall);
  EXPECT_EQ(g_reports[1].description, "too far");
}

TEST_F(Traps, PassAFaultOnOrMakeAResultOfIt) {
  const auto inner = [] { TrapAndPassOn("Inner", [] { Raise(kOverflow, "Overflow."); }); };
  const int made = TrapWith(
      "Outer", [&] { return inner(), 1; }, [](const Fault& fault) { return -fault.Number(); });
  EXPECT_EQ(made, -kOverflow);
  ASSERT_EQ(g_reports.size(), 1U);
  EXPECT_EQ(g_reports[0].procedure, "Outer ");
  ASSERT_EQ(g_reports[0].calls.size(), 1U);
  EXPECT_EQ(g_reports[0].calls[0].procedure, "Inner");
  EXPECT_EQ(FaultOf([] { (void)Require(std::shared_ptr<Point>(), "shape"); }), kObjectNotSet);
}

}  // namespace
}  // namespace tessarine
