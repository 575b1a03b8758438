// SPDX-License-Identifier: GPL-2.0-or-later
// plain_attributes FILE none|lengths|azimuths|polygons: reads every feature through OGR, measures it by the geodesy
// core alone, and adds the values as columns of doubles, nothing else: the floor of a calculation in place. `none` adds
// one column and measures nothing.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "shapes/MyGeometricOperations.h"

namespace {

using namespace tessarine;
namespace shapes = MyGeometricOperations;

constexpr double kSemiMajor = 6378137.0, kSemiMinor = 6356752.314245179;

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "plain_attributes: %s\n", what);
  std::exit(1);
}

std::vector<XY> VerticesOf(const OGRSimpleCurve& line) {
  static_assert(sizeof(OGRRawPoint) == sizeof(XY));
  std::vector<XY> vertices(static_cast<std::size_t>(line.getNumPoints()));
  line.getPoints(reinterpret_cast<OGRRawPoint*>(vertices.data()), nullptr);
  return vertices;
}

// The values of all rows, row by row.
struct Table {
  std::size_t columns = 1;
  std::vector<std::int64_t> keys;
  std::vector<double> values;
};

void MeasureAzimuths(const OGRLineString& line, std::vector<double>& values) {
  const std::vector<XY> vertices = VerticesOf(line);
  double start = 0.0, end = 0.0;
  shapes::DistanceVincentyPoints2(vertices.front(), vertices.back(), start, end, kSemiMajor, kSemiMinor);
  values.insert(values.end(), {start, end});
}

void MeasurePolygon(const OGRPolygon& polygon, std::vector<double>& values) {
  auto ring = std::make_shared<Ring>();
  ring->SetVertices(VerticesOf(*polygon.getExteriorRing()));
  const auto shape = std::make_shared<Polygon>();
  shape->SetParts({ring});
  double lon = 0.0, lat = 0.0;
  const double area = shapes::SphericalPolygonArea2(shape, true, lon, lat, kSemiMajor, kSemiMinor);
  values.insert(values.end(),
                {area, lon, lat, shapes::SpheroidalPolylineLength2(ring->Vertices(), kSemiMajor, kSemiMinor)});
}

void Measure(const OGRFeature& feature, const std::string& what, std::vector<double>& values) {
  const OGRGeometry& shape = *feature.GetGeometryRef();
  if (what == "azimuths") {
    MeasureAzimuths(*shape.toLineString(), values);
  } else if (what == "polygons") {
    MeasurePolygon(*shape.toPolygon(), values);
  } else if (what == "lengths") {
    values.push_back(shapes::SpheroidalPolylineLength2(VerticesOf(*shape.toLineString()), kSemiMajor, kSemiMinor));
  } else {
    values.push_back(feature.GetFieldAsDouble("value") + 1.0);
  }
}

std::string NewColumn(std::size_t index) { return "new_" + std::to_string(index); }

// One pass from the old table to a longer one in its place.
void WriteDbase(std::string path, const Table& table) {
  constexpr std::size_t kWidth = 24, kDescriptor = 32;
  path.replace(path.size() - 3, 3, "dbf");
  std::ifstream old_table(path, std::ios::binary);
  const std::string old_bytes{std::istreambuf_iterator<char>(old_table), {}};
  const auto number = [&](std::size_t at) {
    return static_cast<unsigned char>(old_bytes[at]) + 256U * static_cast<unsigned char>(old_bytes[at + 1]);
  };
  const std::size_t first = number(8), size = number(10), rows = table.values.size() / table.columns;
  std::string bytes = old_bytes.substr(0, first - 1);
  for (std::size_t column = 0; column < table.columns; ++column) {
    std::string descriptor(kDescriptor, '\0');
    descriptor.replace(0, NewColumn(column).size(), NewColumn(column));
    descriptor[11] = 'N';
    descriptor[16] = static_cast<char>(kWidth);
    descriptor[17] = 6;
    bytes += descriptor;
  }
  bytes += old_bytes[first - 1];
  const auto put = [&](std::size_t at, std::size_t value) {
    bytes[at] = static_cast<char>(value & 0xFFU);
    bytes[at + 1] = static_cast<char>(value >> 8U);
  };
  put(8, bytes.size());
  put(10, size + kWidth * table.columns);
  for (std::size_t row = 0; row < rows; ++row) {
    bytes.append(old_bytes, first + row * size, size);
    for (std::size_t column = 0; column < table.columns; ++column) {
      char text[400];
      std::snprintf(text, sizeof(text), "%24.6f", table.values[row * table.columns + column]);
      bytes.append(text, kWidth);
    }
  }
  bytes += '\x1A';
  std::ofstream(path + ".new", std::ios::binary) << bytes;
  if (std::rename((path + ".new").c_str(), path.c_str()) != 0) Fail("the table can't be written");
}

void Execute(sqlite3* base, const char* sql) {
  if (sqlite3_exec(base, sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail(sqlite3_errmsg(base));
}

// On GDAL's connection, which has the functions that the triggers of a GeoPackage call.
void WriteGeoPackage(const std::string& path, const std::string& layer, const Table& table) {
  GDALDatasetUniquePtr data(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
  if (!data) Fail("the file can't be opened for writing");
  auto* base = static_cast<sqlite3*>(data->GetInternalHandle("SQLITE_HANDLE"));
  sqlite3_stmt* update = nullptr;
  std::string sql = "UPDATE \"" + layer + "\" SET ";
  for (std::size_t column = 0; column < table.columns; ++column) {
    const std::string add = "ALTER TABLE \"" + layer + "\" ADD COLUMN " + NewColumn(column) + " DOUBLE";
    Execute(base, add.c_str());
    sql += (column == 0 ? "" : ", ") + NewColumn(column) + " = ?";
  }
  sql += " WHERE fid = ?";
  Execute(base, "BEGIN");
  if (sqlite3_prepare_v2(base, sql.c_str(), -1, &update, nullptr) != SQLITE_OK) Fail(sqlite3_errmsg(base));
  const int columns = static_cast<int>(table.columns);
  auto value = table.values.begin();
  for (const std::int64_t key : table.keys) {
    for (int column = 1; column <= columns; ++column) sqlite3_bind_double(update, column, *value++);
    sqlite3_bind_int64(update, columns + 1, key);
    if (sqlite3_step(update) != SQLITE_DONE) Fail(sqlite3_errmsg(base));
    sqlite3_reset(update);
  }
  sqlite3_finalize(update);
  Execute(base, "COMMIT");
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("plain_attributes FILE none|lengths|azimuths|polygons\n", stderr);
    return 2;
  }
  const std::string path = argv[1], what = argv[2];
  GDALAllRegister();
  Table table;
  table.columns = what == "polygons" ? 4 : what == "azimuths" ? 2 : 1;
  std::string name;
  {
    GDALDatasetUniquePtr data(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
    if (!data) Fail("the file can't be opened");
    OGRLayer* layer = data->GetLayer(0);
    name = layer->GetName();
    for (const auto& feature : *layer) {
      table.keys.push_back(feature->GetFID());
      Measure(*feature, what, table.values);
    }
  }
  if (path.ends_with(".shp")) {
    WriteDbase(path, table);
  } else {
    WriteGeoPackage(path, name, table);
  }
}
