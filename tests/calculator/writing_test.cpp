// SPDX-License-Identifier: GPL-2.0-or-later
// What reaches the table: values in every format that is changed in place, and the null mark.
#include <gmock/gmock.h>

#include <cmath>
#include <fstream>
#include <iterator>

#include "calculator/calculator_layers.h"
#include "calculator/result_fields.h"
#include "calculator/result_writing.h"

namespace tessarine {
namespace {

using namespace testing;

std::string BytesOf(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// Rows of very different lengths, so that none fits into the place that another leaves.
std::vector<TestRow> ManyPolygons(int count) {
  std::vector<TestRow> rows;
  for (int row = 0; row < count; ++row) {
    std::string wkt = "POLYGON ((";
    const int corners = 4 + row * 37 % 211;
    for (int corner = 0; corner <= corners; ++corner) {
      const double angle = -6.283185307179586 * (corner % corners) / corners;
      wkt += std::to_string(row * 0.1 + std::cos(angle)) + " " + std::to_string(std::sin(angle)) +
             (corner < corners ? "," : "))");
    }
    rows.push_back({wkt, "row " + std::to_string(row), row * 1.5});
  }
  return rows;
}

class Writing : public CalculatorTest, public ::testing::WithParamInterface<const char*> {
 protected:
  static constexpr int kCount = 300;
  [[nodiscard]] std::string File() const { return std::string("areas.") + GetParam(); }
  static double Value(std::int64_t oid) { return std::sqrt(static_cast<double>(oid) + 0.1) * 1e-3; }
};

TEST_P(Writing, OnlyTheSetAttributesChange) {
  const auto layer = Add(File(), wkbPolygon, ManyPolygons(kCount));
  std::vector<std::map<std::string, std::string>> before;
  for (const int row : {0, 1, 7, 150, kCount - 1}) before.push_back(Row(File(), row));
  const std::string shapes = BytesOf(folder.Native("areas.shp"));
  const auto features = layer->FeatureClass();
  for (const char* name : {"Measure", "Other"}) features->AddField(NewResultField(name));
  const std::int32_t measure = features->FindField("Measure");
  const std::int32_t other = features->FindField("Other");
  const auto cursor = features->Update(nullptr, Recycling::No);
  while (const auto feature = cursor->NextFeature()) {
    feature->SetValue(measure, Value(feature->OID()));
    if (feature->OID() % 2 == 0) feature->SetValue(other, std::int32_t{-12345678});
    cursor->UpdateFeature(feature);
  }
  cursor->Close();

  std::size_t checked = 0;
  for (const int row : {0, 1, 7, 150, kCount - 1}) {
    auto now = Row(File(), row);
    now.erase("Measure");
    now.erase("Other");
    EXPECT_EQ(now, before[checked++]) << row;
  }
  const double tolerance = std::string(GetParam()) == "shp" ? 0.5e-12 : 0.0;
  int read = 0;
  const GDALDatasetUniquePtr dataset(GDALDataset::Open(folder.Native(File()).c_str(), GDAL_OF_VECTOR));
  for (const auto& feature : *dataset->GetLayer(0)) {
    ++read;
    EXPECT_NEAR(feature->GetFieldAsDouble("Measure"), Value(feature->GetFID()), tolerance);
    const bool even = feature->GetFID() % 2 == 0;
    EXPECT_EQ(feature->IsFieldSetAndNotNull(feature->GetFieldIndex("Other")) != 0, even);
    if (even) {
      EXPECT_EQ(feature->GetFieldAsDouble("Other"), -12345678.0);
    }
  }
  EXPECT_EQ(read, kCount);
  EXPECT_EQ(BytesOf(folder.Native("areas.shp")), shapes);
}

TEST_P(Writing, SelectedRowsAreWrittenByTheirIdentifiers) {
  const auto layer = Add(File(), wkbPolygon, ManyPolygons(kCount));
  const auto features = layer->FeatureClass();
  features->AddField(NewResultField("Measure"));
  const std::int32_t measure = features->FindField("Measure");
  struct Choice {
    const char* where;
    double mark;
    int rows;
  };
  // The first picks few rows, the second most of them.
  for (const Choice& choice : {Choice{"size > 30 AND size < 40", 1.0, 6}, Choice{"size > 30", 2.0, 279}}) {
    const auto selection = Cast<ISelectionSet2>(SelectByWhere(features, choice.where));
    const auto cursor = Cast<IFeatureCursor>(selection->Update(nullptr, Recycling::No));
    while (const auto feature = cursor->NextFeature()) {
      feature->SetValue(measure, choice.mark);
      cursor->UpdateFeature(feature);
    }
    cursor->Close();
    EXPECT_EQ(SelectByWhere(features, "Measure = " + std::to_string(choice.mark))->Count(), choice.rows);
  }
  EXPECT_EQ(features->FeatureCount(nullptr), kCount);
  EXPECT_EQ(SelectByWhere(features, "Measure IS NULL")->Count(), kCount - 279);
}

TEST_P(Writing, ShapesThatAreSetArriveBesideAttributes) {
  const auto layer = Add(File(), wkbPolygon, ManyPolygons(40));
  const auto features = layer->FeatureClass();
  features->AddField(NewResultField("Measure"));
  const std::int32_t measure = features->FindField("Measure");
  const auto cursor = features->Update(nullptr, Recycling::No);
  int row = 0;
  while (const auto feature = cursor->NextFeature()) {
    feature->SetValue(measure, row * 1.0);
    if (row++ % 3 == 1) feature->SetShape(PolygonOf({Box(row, 0, row + 1, 1)}));
    cursor->UpdateFeature(feature);
  }
  cursor->Close();
  const auto rows = ReadLayer(folder.Native(File()));
  ASSERT_EQ(rows.size(), 40U);
  for (int number = 0; number < 40; ++number) {
    EXPECT_EQ(std::stod(Row(File(), number).at("Measure")), number);
    EXPECT_EQ(rows[static_cast<std::size_t>(number)].name, "row " + std::to_string(number));
    EXPECT_EQ(rows[static_cast<std::size_t>(number)].wkt.size() < 100, number % 3 == 1 || number == 0) << number;
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, Writing, ::testing::Values("shp", "gpkg", "gdb"),
                         [](const auto& row) { return std::string(row.param); });

// A row that remembers what was written to it.
class NotedRow final : public IRowBuffer {
 public:
  std::map<std::int32_t, Variant> written;
  std::int32_t refuses = -1;
  std::int32_t narrow = -1;  ///< turns what is set into null, as a field without room does
  [[nodiscard]] FieldsRef Fields() const override { return nullptr; }
  [[nodiscard]] Variant Value(std::int32_t index) const override {
    const auto found = written.find(index);
    return found != written.end() ? found->second : Variant(Null());
  }
  ValueChange SetValue(std::int32_t index, const Variant& value) override {
    if (index == refuses) Raise(kTypeMismatch, "no such value");
    const bool has_room = index != narrow || value.kind() != Variant::Kind::Double;
    written[index] = has_room ? value : Variant(Null());
    if (!has_room) return ValueChange::OutOfRange;
    return index == rounds ? ValueChange::Rounded : ValueChange::None;
  }
  std::int32_t rounds = -1;
};

struct NullRow {
  const char* name;
  esriGeometryType shape;
  SpatialKind kind;
  int options;
  const char* marked;  ///< the fields that take the mark, as option and position
};

// Every option is ticked. The last fields of polylines keep what they hold.
const NullRow kNullRows[] = {
    {"PointProjected", esriGeometryPoint, SpatialKind::Projected, 2, "11 12 21 22 "},
    {"MultipointProjected", esriGeometryMultipoint, SpatialKind::Projected, 3, "11 12 21 22 31 "},
    {"PolylineUnknown", esriGeometryPolyline, SpatialKind::Unknown, 7, "11 21 22 31 32 41 42 51 61 "},
    {"PolylineProjected", esriGeometryPolyline, SpatialKind::Projected, 11, "11 21 31 32 41 42 51 52 61 62 71 81 "},
    {"PolylineGeographic", esriGeometryPolyline, SpatialKind::Geographic, 8, "11 21 22 31 32 41 42 51 61 "},
    {"PolygonProjected", esriGeometryPolygon, SpatialKind::Projected, 8, "11 21 31 32 41 42 51 61 71 81 "},
    {"PolygonGeographic", esriGeometryPolygon, SpatialKind::Geographic, 5, "11 21 22 31 41 51 "},
};

TEST_F(CalculatorTest, TheNullMarkFollowsTheCatalogue) {
  for (const NullRow& row : kNullRows) {
    std::vector<OptionEntry> entries;
    FieldIndexes indexes;
    for (int id = 1; id <= row.options; ++id) {
      entries.emplace_back(static_cast<std::int16_t>(id), "a" + std::to_string(id), "b" + std::to_string(id));
      indexes.Add("A" + std::to_string(id), id * 10 + 1);
      indexes.Add("b" + std::to_string(id), id * 10 + 2);
    }
    NotedRow written;
    WriteNullValues(entries, row.shape, row.kind, written, indexes);
    std::string marked;
    for (const auto& [index, value] : written.written) {
      marked += std::to_string(index) + " ";
      EXPECT_EQ(value, Variant(std::int16_t{-9999}));
    }
    EXPECT_EQ(marked, row.marked) << row.name;
  }
}

TEST_F(CalculatorTest, ARefusedNullMarkIsReportedAndLeavesTheRestUnwritten) {
  std::vector<OptionEntry> entries;
  FieldIndexes indexes;
  for (const int id : {1, 3, 4}) {
    entries.emplace_back(static_cast<std::int16_t>(id), "f" + std::to_string(id), "");
    indexes.Add("f" + std::to_string(id), id);
  }
  NotedRow row;
  row.refuses = 3;
  WriteNullValues(entries, esriGeometryPolygon, SpatialKind::Geographic, row, indexes);
  EXPECT_EQ(row.written.size(), 1U);
  ASSERT_EQ(host.error_reports.size(), 1U);
  EXPECT_THAT(host.error_reports[0], ::testing::HasSubstr("WriteNullValues"));
}

TEST_F(CalculatorTest, AMeasureWithoutRoomLeavesWhatItsFieldsHeld) {
  for (const std::int32_t narrow : {4, 5}) {
    NotedRow row;
    row.narrow = narrow;
    row.written = {{4, Variant(std::int32_t{7})}, {5, Variant(std::string("eight"))}};
    const ChosenMeasure pair{FindMeasure(esriGeometryPolyline, SpatialKind::Geographic, 2), 4, 5};
    row.rounds = narrow == 4 ? 5 : 4;
    std::vector<std::int32_t> noted;
    const ChangeNote note = [&](std::int32_t index, ValueChange) { noted.push_back(index); };
    EXPECT_EQ(WriteValues(pair, XY{1.5, 2.5}, row, note), narrow);
    EXPECT_THAT(noted, ::testing::IsEmpty()) << "what was taken back isn't rounded";
    EXPECT_EQ(row.written[4], Variant(std::int32_t{7}));
    EXPECT_EQ(row.written[5], Variant(std::string("eight")));
    row.narrow = -1;
    EXPECT_EQ(WriteValues(pair, XY{1.5, 2.5}, row, note), std::nullopt);
    EXPECT_EQ(row.written[5], Variant(2.5));
    EXPECT_THAT(noted, ::testing::ElementsAre(row.rounds));
  }
}

TEST_F(CalculatorTest, AMeasureThatFailsLeavesItsMarkOrNull) {
  NotedRow row;
  WriteMissing({FindMeasure(esriGeometryPolyline, SpatialKind::Geographic, 2), 4, 5}, row);
  WriteMissing({FindMeasure(esriGeometryPolyline, SpatialKind::Geographic, 8), 6, -1}, row);
  EXPECT_EQ(row.written[4], Variant(std::int16_t{-9999}));
  EXPECT_EQ(row.written[5], Variant(std::int16_t{-9999}));
  EXPECT_TRUE(row.written[6].IsNull()) << "a count of vertices has no mark";
}

}  // namespace
}  // namespace tessarine
