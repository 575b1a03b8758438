// SPDX-License-Identifier: GPL-2.0-or-later
// Writes the data of the benchmarks: generate FOLDER [DRIVER ENDING]. The same seed gives the same bytes.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <numbers>
#include <random>
#include <string>

namespace {

constexpr int kLines = 200'000;
constexpr int kLineVertices = 20;
constexpr int kPolygons = 100'000;
constexpr int kPolygonVertices = 40;
// Streets: lines over a square of this many blocks a side, each a few blocks long.
constexpr int kStreets = 100'000;
constexpr int kBlocks = 400;

// A walk of steps up to 0.05 degrees, away from the poles and the 180th meridian.
std::unique_ptr<OGRGeometry> MakeLine(std::mt19937_64& random) {
  std::uniform_real_distribution<double> longitude(-170.0, 170.0), latitude(-75.0, 75.0), step(-0.05, 0.05);
  auto line = std::make_unique<OGRLineString>();
  double x = longitude(random), y = latitude(random);
  for (int vertex = 0; vertex < kLineVertices; ++vertex) {
    line->addPoint(x, y);
    x += step(random);
    y += step(random);
  }
  return line;
}

// A star-shaped ring, clockwise, its first vertex repeated at the end.
std::unique_ptr<OGRGeometry> MakePolygon(std::mt19937_64& random) {
  std::uniform_real_distribution<double> longitude(-170.0, 170.0), latitude(-75.0, 75.0), radius(0.05, 0.2);
  const double x = longitude(random), y = latitude(random);
  auto ring = std::make_unique<OGRLinearRing>();
  for (int vertex = 0; vertex + 1 < kPolygonVertices; ++vertex) {
    const double angle = -2.0 * std::numbers::pi * vertex / (kPolygonVertices - 1);
    const double reach = radius(random);
    ring->addPoint(x + reach * std::cos(angle), y + reach * std::sin(angle));
  }
  ring->closeRings();
  auto polygon = std::make_unique<OGRPolygon>();
  polygon->addRingDirectly(ring.release());
  return polygon;
}

// The same, one in ten about the 180th meridian, where its longitudes jump from 180 to -180.
std::unique_ptr<OGRGeometry> MakeJumping(std::mt19937_64& random) {
  auto polygon = MakePolygon(random);
  if (random() % 10 != 0) return polygon;
  OGRLinearRing& ring = *polygon->toPolygon()->getExteriorRing();
  const double shift = 180.03 - ring.getX(0);
  for (int vertex = 0; vertex < ring.getNumPoints(); ++vertex) {
    ring.setPoint(vertex, std::remainder(ring.getX(vertex) + shift, 360.0), ring.getY(vertex));
  }
  return polygon;
}

// A piece of a street, along x or along y, that crosses the streets of the other direction.
std::unique_ptr<OGRGeometry> MakeStreet(std::mt19937_64& random) {
  std::uniform_int_distribution<int> block(0, kBlocks);
  std::uniform_real_distribution<double> length(1.2, 3.8);
  const int row = block(random);
  const double from = block(random) - 0.4, to = from + length(random);
  const bool along_x = (random() & 1U) != 0;
  auto line = std::make_unique<OGRLineString>();
  line->addPoint(along_x ? from : row, along_x ? row : from);
  line->addPoint(along_x ? to : row, along_x ? row : to);
  return line;
}

template <class Make>
void WriteLayer(const std::string& path, GDALDriver& driver, const char* name, OGRwkbGeometryType type, int count,
                Make make) {
  std::filesystem::remove_all(path);
  OGRSpatialReference reference;
  reference.SetFromUserInput(std::string(name) == "streets" ? "EPSG:32633" : "EPSG:4326");
  reference.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  GDALDatasetUniquePtr dataset(driver.Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  OGRLayer* layer = dataset->CreateLayer(name, &reference, type);
  OGRFieldDefn number("number", OFTInteger), label("label", OFTString), value("value", OFTReal);
  label.SetWidth(20);
  for (OGRFieldDefn* field : {&number, &label, &value}) layer->CreateField(field);
  dataset->StartTransaction();
  std::mt19937_64 random(20'260'314);
  for (int index = 0; index < count; ++index) {
    OGRFeature feature(layer->GetLayerDefn());
    feature.SetField(0, index);
    feature.SetField(1, ("feature " + std::to_string(index)).c_str());
    feature.SetField(2, index * 0.5);
    feature.SetGeometryDirectly(make(random).release());
    if (layer->CreateFeature(&feature) != OGRERR_NONE) std::exit(1);
  }
  dataset->CommitTransaction();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 && argc != 4) {
    std::fputs("generate FOLDER [DRIVER ENDING]\n", stderr);
    return 2;
  }
  GDALAllRegister();
  const std::string folder = argv[1], ending = argc == 4 ? argv[3] : "shp";
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName(argc == 4 ? argv[2] : "ESRI Shapefile");
  if (driver == nullptr) {
    std::fputs("No such driver.\n", stderr);
    return 2;
  }
  std::filesystem::create_directories(folder);
  WriteLayer(folder + "/lines." + ending, *driver, "lines", wkbLineString, kLines, MakeLine);
  WriteLayer(folder + "/polygons." + ending, *driver, "polygons", wkbPolygon, kPolygons, MakePolygon);
  WriteLayer(folder + "/jumping." + ending, *driver, "jumping", wkbPolygon, kPolygons, MakeJumping);
  WriteLayer(folder + "/streets." + ending, *driver, "streets", wkbLineString, kStreets, MakeStreet);
}
