// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/kept_digits.h"

#include <cpl_vsi.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <mutex>
#include <string>

#include "engine/copy_target.h"
#include "engine/engine_fault.h"

namespace tessarine::engine {
namespace {

constexpr double kTried = 123456.78901234567;  // with fewer digits it is another number
constexpr const char* kField = "number";

std::string MakeTrial(GDALDriver& driver, const std::string& path) {
  const DatasetHandle made(driver.Create(path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
  if (!made) return "";
  OGRSpatialReference degrees;
  degrees.SetWellKnownGeogCS("WGS84");
  OGRLayer* layer = made->CreateLayer("trial", &degrees, wkbPoint);
  OGRFieldDefn field(kField, OFTReal);
  if (layer == nullptr || layer->CreateField(&field) != OGRERR_NONE) return "";
  const OGRFeatureUniquePtr row(OGRFeature::CreateFeature(layer->GetLayerDefn()));
  row->SetField(kField, kTried);
  OGRPoint place(1.0, 2.0);
  row->SetGeometry(&place);
  return layer->CreateFeature(row.get()) == OGRERR_NONE ? path : "";
}

// The number as it comes back; 0 where it doesn't.
double Again(const std::string& path) {
  if (path.empty()) return 0.0;
  const DatasetHandle read(GDALDataset::Open(path.c_str(), GDAL_OF_VECTOR));
  OGRLayer* layer = read && read->GetLayerCount() > 0 ? read->GetLayer(0) : nullptr;
  const OGRFeatureUniquePtr row(layer != nullptr ? layer->GetNextFeature() : nullptr);
  const int index = row ? row->GetFieldIndex(kField) : -1;
  return index >= 0 ? row->GetFieldAsDouble(index) : 0.0;
}

int DigitsOf(double again) {
  if (again == kTried || again == 0.0) return kAllDigits;
  for (int digits = kAllDigits - 1; digits > 0; --digits) {
    char text[40];
    std::snprintf(text, sizeof text, "%.*g", digits, kTried);
    if (std::strtod(text, nullptr) == again) return digits;
  }
  return kAllDigits;
}

int Try(const Format& format) {
  GDALDriver* driver = format.server ? nullptr : FindDriver(format);
  if (driver == nullptr || !WritesVectors(*driver)) return kAllDigits;
  const GdalErrorScope quiet;
  const std::string folder = "/vsimem/tessarine_digits";
  VSIMkdir(folder.c_str(), 0700);
  const int digits = DigitsOf(Again(MakeTrial(*driver, folder + "/trial" + std::string(format.ending))));
  VSIRmdirRecursive(folder.c_str());
  return digits;
}

}  // namespace

int KeptDigits(const Format& format) {
  static std::mutex mutex;
  static std::map<std::string, int, std::less<>> known;
  const std::lock_guard lock(mutex);
  const auto found = known.find(format.driver);
  if (found != known.end()) return found->second;
  return known.emplace(format.driver, Try(format)).first->second;
}

}  // namespace tessarine::engine
