// SPDX-License-Identifier: GPL-2.0-or-later
#include "bench/accuracy_of_projections.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <memory>
#include <numbers>
#include <vector>

#include "calculator/measures.h"
#include "engine/data_source.h"
#include "platform/fault.h"
#include "shapes/MyGeometricOperations.h"

namespace tessarine::bench {
namespace {

namespace shapes = MyGeometricOperations;

constexpr double kSame = 1e-6;

const std::vector<std::string> kReferences = {
    "EPSG:3832",  "EPSG:3031",  "EPSG:3995",  "EPSG:3338",   "ESRI:54030",  "EPSG:27572",  "EPSG:3857",
    "EPSG:3395",  "EPSG:6933",  "EPSG:8857",  "EPSG:3410",   "EPSG:3408",   "EPSG:3413",   "EPSG:3572",
    "EPSG:3574",  "EPSG:32661", "EPSG:32761", "EPSG:3035",   "EPSG:3577",   "EPSG:3979",   "EPSG:2154",
    "EPSG:3112",  "EPSG:9311",  "EPSG:6932",  "ESRI:54002",  "ESRI:54008",  "ESRI:54009",  "ESRI:54012",
    "ESRI:54014", "ESRI:54016", "ESRI:54019", "ESRI:54024",  "ESRI:54029",  "ESRI:54032",  "ESRI:54034",
    "ESRI:54042", "ESRI:54043", "ESRI:54021", "ESRI:102001", "ESRI:102003", "ESRI:102008", "ESRI:102014",
};

struct Values {
  double spherical_area, perimeter, spheroidal_area;
  XY centroid;
};

struct Country {
  std::string name;
  std::shared_ptr<Polygon> shape;
};

std::vector<Country> Countries() {
  std::vector<Country> result;
  const auto source = DataSource::Open(TESSARINE_COUNTRIES);
  const auto features = source->OpenFeatureClass("");
  const std::int32_t name = features->FindField("NAME");
  const auto cursor = features->Search(nullptr, false);
  while (const auto feature = cursor->NextFeature()) {
    result.push_back({feature->Value(name).AsText(), Cast<Polygon>(feature->ShapeCopy())});
  }
  return result;
}

Values MeasuresOf(const Polygon& polygon) {
  const SpatialReferenceRef reference = polygon.SpatialReference();
  const auto spheroid = shapes::DegreesOf(reference)->Datum()->Spheroid();
  MeasureSettings settings{esriGeometryPolygon,       SpatialKindOf(reference),  reference,
                           spheroid->SemiMajorAxis(), spheroid->SemiMinorAxis(), false};
  const auto record = BeginRecord(CloneOf(polygon), settings);
  const bool geographic = settings.kind == SpatialKind::Geographic;
  const auto measured = [&](std::int32_t id) {
    return Measure(*FindMeasure(settings.shape, settings.kind, id), *record);
  };
  const MeasuredValues centroid = measured(geographic ? 2 : 4);
  return {measured(geographic ? 1 : 2).first.AsDouble(), measured(geographic ? 3 : 6).first.AsDouble(),
          measured(geographic ? 6 : 9).first.AsDouble(),
          shapes::ToDegrees({centroid.first.AsDouble(), centroid.second.AsDouble()}, reference)};
}

double Apart(XY a, XY b) {
  const double across = std::remainder(a.x - b.x, 360.0) * std::cos(b.y * std::numbers::pi / 180.0);
  return std::hypot(across, a.y - b.y);
}

struct Differences {
  double area = 0.0, perimeter = 0.0, centroid = 0.0;

  [[nodiscard]] bool Small() const { return area <= kSame && perimeter <= kSame && centroid <= kSame; }
};

Differences Between(const Values& a, const Values& b) {
  return {std::max(std::fabs(a.spherical_area / b.spherical_area - 1.0),
                   std::fabs(a.spheroidal_area / b.spheroidal_area - 1.0)),
          std::fabs(a.perimeter / b.perimeter - 1.0), Apart(a.centroid, b.centroid)};
}

// One line of the table. The countries are taken for ones of the geographic reference beneath the projection, so that
// no shift of datum comes in.
void PrintReference(const std::string& text, const std::vector<Country>& countries) {
  const SpatialReferenceRef reference = SpatialReferenceEnvironment::CreateFromText(text);
  Differences worst;
  int same = 0, not_measured = 0;
  std::string others;
  for (const Country& country : countries) {
    const auto geographic = CloneOf(*country.shape);
    geographic->SetSpatialReference(shapes::DegreesOf(reference));
    const auto projected = CloneOf(*geographic);
    try {
      projected->Project(reference);
      const Differences differences = Between(MeasuresOf(*projected), MeasuresOf(*geographic));
      if (!differences.Small()) {
        char line[120];
        std::snprintf(line, sizeof line, " (%.1e, %.1e, %.1e)", differences.area, differences.perimeter,
                      differences.centroid);
        others += (others.empty() ? "" : ", ") + country.name + line;
        continue;
      }
      ++same;
      worst = {std::max(worst.area, differences.area), std::max(worst.perimeter, differences.perimeter),
               std::max(worst.centroid, differences.centroid)};
    } catch (const Fault&) {
      ++not_measured;
    }
  }
  std::fflush(stdout);
  std::printf("| %s | %s | %d | %.1e | %.1e | %.1e degrees | %d | %s |\n", text.c_str(), reference->Name().c_str(),
              same, worst.area, worst.perimeter, worst.centroid, not_measured, others.c_str());
}

}  // namespace

void PrintProjections(std::span<const std::string> references) {
  std::printf(
      "\n| reference | name | the same | worst area of them | worst perimeter | worst centroid | can't be projected | "
      "others (area, perimeter, centroid) |\n|---|---|---|---|---|---|---|---|\n");
  const std::vector<Country> countries = Countries();
  for (const std::string& reference : references.empty() ? std::span(kReferences) : references) {
    PrintReference(reference, countries);
  }
}

}  // namespace tessarine::bench
