// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/measure_catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "calculator/geometry_options.h"
#include "helpers/shapes.h"

namespace tessarine {
namespace {

using enum SpatialKind;

// One letter for each option of a layer: p a pair of numbers, r a number, c a count; s a slow measure, - a quick one;
// and the number of fields that take the null value.
struct Offer {
  esriGeometryType shape;
  SpatialKind kind;
  std::string values, slow, nulls;
};

const Offer kOffers[] = {
    {esriGeometryPoint, Unknown, "p", "-", "2"},
    {esriGeometryPoint, Projected, "pp", "--", "22"},
    {esriGeometryPoint, Geographic, "p", "-", "2"},
    {esriGeometryMultipoint, Unknown, "pc", "--", "21"},
    {esriGeometryMultipoint, Projected, "ppc", "-s-", "221"},
    {esriGeometryMultipoint, Geographic, "pc", "s-", "21"},
    {esriGeometryPolyline, Unknown, "rppprcc", "-------", "1222110"},
    {esriGeometryPolyline, Projected, "rrpppprrrcc", "-s--s------", "11222211000"},
    {esriGeometryPolyline, Geographic, "rppprrcc", "s-s-----", "12221100"},
    {esriGeometryPolygon, Unknown, "rprcc", "-----", "12111"},
    {esriGeometryPolygon, Projected, "rrpprrccr", "-s-s-s--s", "112211111"},
    {esriGeometryPolygon, Geographic, "rprccr", "sss--s", "121111"},
    {esriGeometryNull, Projected, "", "", ""},
};

char LetterOf(MeasuredKind kind) {
  return kind == MeasuredKind::RealPair ? 'p' : kind == MeasuredKind::Count ? 'c' : 'r';
}

TEST(MeasureCatalogue, OffersOfEachLayer) {
  std::size_t total = 0;
  for (const Offer& offer : kOffers) {
    SCOPED_TRACE(std::to_string(offer.shape) + "/" + std::to_string(static_cast<int>(offer.kind)));
    std::string values, slow, nulls;
    std::set<std::string_view> fields;
    for (const MeasureRow& row : MeasuresOf(offer.shape, offer.kind)) {
      values += LetterOf(row.measure.kind);
      slow += row.slow ? 's' : '-';
      nulls += std::to_string(row.NullFieldCount());
      for (std::size_t field = 0; field < row.FieldCount(); ++field) fields.insert(row.default_fields[field]);
      EXPECT_EQ(FindMeasure(offer.shape, offer.kind, row.option_id), &row);
      ++total;
    }
    EXPECT_EQ(values, offer.values);
    EXPECT_EQ(slow, offer.slow);
    EXPECT_EQ(nulls, offer.nulls);
    // Two measures of one layer never share a default field.
    const auto pairs = static_cast<std::size_t>(std::count(values.begin(), values.end(), 'p'));
    EXPECT_EQ(fields.size(), values.size() + pairs);
    EXPECT_EQ(FindMeasure(offer.shape, offer.kind, 0), nullptr);
    EXPECT_EQ(FindMeasure(offer.shape, offer.kind, static_cast<std::int32_t>(values.size()) + 1), nullptr);
  }
  EXPECT_EQ(total, 57u);
  EXPECT_EQ(AllMeasures().size(), 57u);
}

// The same idea has other names in other layers.
TEST(MeasureCatalogue, NamesThatDifferBetweenLayers) {
  const struct {
    esriGeometryType shape;
    SpatialKind kind;
    std::int32_t id;
    std::string caption, first, second, label;
  } rows[] = {
      {esriGeometryPoint, Projected, 2, "Longitude / Latitude", "Longitude", "Latitude", "Longitude"},
      {esriGeometryMultipoint, Unknown, 2, "Number of Points", "Points", "", "Point Count"},
      {esriGeometryPolyline, Projected, 2, "Spheroidal Length", "Sph_Len", "", "Spheroidal Length"},
      {esriGeometryPolygon, Projected, 2, "Spherical Area", "Sph_Area", "", "Spherical Area"},
      {esriGeometryPolyline, Geographic, 3, "Midpoint", "Mid_X", "Mid_Y", "Spheroidal Midpoint Longitude"},
      {esriGeometryPolygon, Unknown, 2, "Centroid", "X_Coord", "Y_Coord", "Centroid X-Coordinate"},
      {esriGeometryPolygon, Projected, 3, "Plan. Centroid", "Cent_X", "Cent_Y", "Planimetric Centroid X-Coordinate"},
      {esriGeometryPolygon, Geographic, 2, "Sph. Centroid", "Longitude", "Latitude", "Spherical Centroid X-Coordinate"},
      {esriGeometryPolygon, Projected, 5, "Plan. Perimeter", "Pl_Perim", "", "Projected Perimeter Length"},
      {esriGeometryPolygon, Geographic, 3, "Perimeter Length", "Sph_Len", "", "Spheroidal Perimeter Length"},
  };
  for (const auto& expected : rows) {
    SCOPED_TRACE(expected.first);
    const MeasureRow* row = FindMeasure(expected.shape, expected.kind, expected.id);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->caption, expected.caption);
    EXPECT_EQ(row->default_fields[0], expected.first);
    EXPECT_EQ(row->default_fields[1], expected.second);
    EXPECT_EQ(row->report_labels[0], expected.label);
  }
}

TEST(MeasureCatalogue, UseFlags) {
  const auto trues = [](const ComboUseFlags& flags) {
    std::vector<std::size_t> places;
    for (std::size_t place = 0; place < flags.size(); ++place) {
      if (flags[place]) places.push_back(place);
    }
    return places;
  };
  using Places = std::vector<std::size_t>;
  EXPECT_EQ(trues(ComboUseFlagsOf(esriGeometryPolyline, Geographic)), (Places{0, 2, 3, 4, 5, 6, 7, 8, 10, 12, 13}));
  EXPECT_EQ(trues(ComboUseFlagsOf(esriGeometryPolyline, Projected)),
            (Places{0, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}));
  EXPECT_EQ(trues(ComboUseFlagsOf(esriGeometryNull, Unknown)), Places{});
}

TEST(MeasureCatalogue, KindsAndNouns) {
  const auto geographic = SpatialReferenceEnvironment::CreateFromText("EPSG:4326");
  EXPECT_EQ(SpatialKindOf(geographic), Geographic);
  EXPECT_EQ(SpatialKindOf(SpatialReferenceEnvironment::CreateFromText("EPSG:32633")), Projected);
  EXPECT_EQ(SpatialKindOf(std::make_shared<UnknownCoordinateSystem>()), Unknown);
  EXPECT_EQ(SpatialKindOf(nullptr), Unknown);
  EXPECT_EQ(ShapeNoun(esriGeometryPolyline, 1), "Polyline");
  EXPECT_EQ(ShapeNoun(esriGeometryMultipoint, 0), "Multipoints");
  EXPECT_EQ(ShapeNoun(esriGeometryBag, 2), "");
}

TEST(GeometryOptions, TravelThroughTheList) {
  GeometryChoices choices;
  choices.all_records = false;
  choices.options = {{2, "Len", "left over"}, {3, "X", "Y"}, {8, "Az", ""}, {12, "no", "no"}, {0, "no", "no"}};
  choices.use_flags = ComboUseFlagsOf(esriGeometryPolyline, Projected);
  choices.spheroid_name = "Mars";
  choices.semi_major = 3396190.0, choices.semi_minor = 3376200.0;
  choices.geocentric = true;

  // The reader sees the list only.
  const GeometryOptions read(GeometryOptions(choices).Carrier());
  ASSERT_EQ(read.Carrier()->Count(), 8);
  EXPECT_EQ(read.Carrier()->Element(3).AsObject<VarArray>()->Count(), 17);
  EXPECT_EQ(read.Carrier()->Element(2).AsObject<VarArray>()->Element(0).AsObject<VarArray>()->Element(0).kind(),
            Variant::Kind::Short);
  EXPECT_EQ(read.Layer(), nullptr);
  EXPECT_FALSE(read.AllRecords());
  EXPECT_EQ(read.UseFlags(), choices.use_flags);
  EXPECT_EQ(read.SpheroidName(), "Mars");
  EXPECT_EQ(read.SemiMajor(), 3396190.0);
  EXPECT_EQ(read.SemiMinor(), 3376200.0);
  EXPECT_TRUE(read.Geocentric());

  // The flags decide about the second field, and options that don't exist are passed over.
  EXPECT_EQ(FieldNamesInUse(read.Options(), read.UseFlags()), (std::vector<std::string>{"Len", "X", "Y", "Az"}));

  // A substituted name is seen by every later reader.
  read.Options()[1].SetSecondField("Y2");
  EXPECT_EQ(read.Options()[1].SecondField(), "Y2");
}

TEST(GeometryOptions, RefusesListsOfOtherSize) {
  EXPECT_EQ(testing::FaultOf([] { GeometryOptions(std::make_shared<VarArray>()); }), kInvalidCall);
  EXPECT_EQ(testing::FaultOf([] { OptionEntry(std::shared_ptr<VarArray>()); }), kObjectNotSet);
}

}  // namespace
}  // namespace tessarine
