// plain_attributes FILE none|lengths|azimuths|polygons: reads every feature through OGR, measures it by the geodesy
// core alone, and writes one double column of the table, nothing else. `none` measures nothing. The floor of a
// calculation in place.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>
#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "geodesy/MyGeometricOperations.h"

namespace {

using namespace tessarine;
namespace geodesy = MyGeometricOperations;

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

double MeasureLength(const OGRLineString& line) {
  return geodesy::SpheroidalPolylineLength2(VerticesOf(line), kSemiMajor, kSemiMinor);
}

double MeasureAzimuths(const OGRLineString& line) {
  const std::vector<XY> vertices = VerticesOf(line);
  double start = 0.0, end = 0.0;
  geodesy::DistanceVincentyPoints2(vertices.front(), vertices.back(), start, end, kSemiMajor, kSemiMinor);
  return start + end;
}

double MeasurePolygon(const OGRPolygon& polygon) {
  auto ring = std::make_shared<Ring>();
  ring->SetVertices(VerticesOf(*polygon.getExteriorRing()));
  const auto shape = std::make_shared<Polygon>();
  shape->SetParts({ring});
  double lon = 0.0, lat = 0.0;
  const double perimeter = geodesy::SpheroidalPolylineLength2(ring->Vertices(), kSemiMajor, kSemiMinor);
  return geodesy::SphericalPolygonArea2(shape, true, lon, lat, kSemiMajor, kSemiMinor) + 0.0 * (perimeter + lon + lat);
}

double Measure(const OGRFeature& feature, const std::string& what) {
  const OGRGeometry& shape = *feature.GetGeometryRef();
  if (what == "lengths") return MeasureLength(*shape.toLineString());
  if (what == "azimuths") return MeasureAzimuths(*shape.toLineString());
  if (what == "polygons") return MeasurePolygon(*shape.toPolygon());
  return feature.GetFieldAsDouble("value") + 1.0;
}

// The column `value` is the last one: 24 bytes at the end of each record.
void WriteDbase(std::string path, const std::vector<double>& values) {
  path.replace(path.size() - 3, 3, "dbf");
  std::fstream table(path, std::ios::in | std::ios::out | std::ios::binary);
  unsigned char header[12];
  table.read(reinterpret_cast<char*>(header), sizeof(header));
  const std::size_t first = header[8] + 256U * header[9], size = header[10] + 256U * header[11];
  std::vector<char> rows(values.size() * size);
  table.seekg(static_cast<std::streamoff>(first));
  table.read(rows.data(), static_cast<std::streamsize>(rows.size()));
  for (std::size_t row = 0; row < values.size(); ++row) {
    char text[400];
    std::snprintf(text, sizeof(text), "%24.6f", values[row]);
    std::memcpy(&rows[(row + 1) * size - 24], text, 24);
  }
  table.seekp(static_cast<std::streamoff>(first));
  table.write(rows.data(), static_cast<std::streamsize>(rows.size()));
  if (!table) Fail("the table can't be written");
}

void Execute(sqlite3* base, const char* sql) {
  if (sqlite3_exec(base, sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail(sqlite3_errmsg(base));
}

// On GDAL's connection, which has the functions that the triggers of a GeoPackage call.
void WriteGeoPackage(const std::string& path, const std::string& layer, const std::vector<std::int64_t>& keys,
                     const std::vector<double>& values) {
  GDALDatasetUniquePtr data(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
  if (!data) Fail("the file can't be opened for writing");
  auto* base = static_cast<sqlite3*>(data->GetInternalHandle("SQLITE_HANDLE"));
  sqlite3_stmt* update = nullptr;
  const std::string sql = "UPDATE \"" + layer + "\" SET value = ? WHERE fid = ?";
  Execute(base, "BEGIN");
  if (sqlite3_prepare_v2(base, sql.c_str(), -1, &update, nullptr) != SQLITE_OK) Fail(sqlite3_errmsg(base));
  for (std::size_t row = 0; row < values.size(); ++row) {
    sqlite3_bind_double(update, 1, values[row]);
    sqlite3_bind_int64(update, 2, keys[row]);
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
  std::vector<double> values;
  std::vector<std::int64_t> keys;
  std::string name;
  {
    GDALDatasetUniquePtr data(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
    if (!data) Fail("the file can't be opened");
    OGRLayer* layer = data->GetLayer(0);
    name = layer->GetName();
    for (const auto& feature : *layer) {
      keys.push_back(feature->GetFID());
      values.push_back(Measure(*feature, what));
    }
  }
  if (path.ends_with(".shp")) {
    WriteDbase(path, values);
  } else {
    WriteGeoPackage(path, name, keys, values);
  }
}
