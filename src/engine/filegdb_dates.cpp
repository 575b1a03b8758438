// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/filegdb_dates.h"

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "engine/engine_fault.h"

namespace tessarine::engine {
namespace {

constexpr int kUnixYear = 1970;

// Asked of GDAL itself, so that a version that reads rightly is left alone.
double LatenessBefore1970() {
  constexpr const char* kProbe = "/vsimem/tessarine_date_probe.gdb";
  constexpr int kProbeYear = 1950, kProbeSecond = 30;
  const GdalErrorScope quiet;
  GDALDriver* driver = GetGDALDriverManager()->GetDriverByName("OpenFileGDB");
  GDALDatasetUniquePtr made(driver == nullptr ? nullptr : driver->Create(kProbe, 0, 0, 0, GDT_Unknown, nullptr));
  OGRLayer* layer = made ? made->CreateLayer("probe", nullptr, wkbNone, nullptr) : nullptr;
  OGRFieldDefn definition("at", OFTDateTime);
  if (layer == nullptr || layer->CreateField(&definition) != OGRERR_NONE) return 0.0;
  OGRFeature row(layer->GetLayerDefn());
  row.SetField(0, kProbeYear, 1, 1, 0, 0, static_cast<float>(kProbeSecond), 0);
  const bool written = layer->CreateFeature(&row) == OGRERR_NONE;
  made.reset();
  double lateness = 0.0;
  made.reset(GDALDataset::Open(kProbe, GDAL_OF_VECTOR));
  const OGRFeatureUniquePtr read(written && made ? made->GetLayer(0)->GetNextFeature() : nullptr);
  int part = 0, zone = 0;
  auto second = static_cast<float>(kProbeSecond);
  if (read) read->GetFieldAsDateTime(0, &part, &part, &part, &part, &part, &second, &zone);
  lateness = static_cast<double>(second) - kProbeSecond;
  made.reset();
  VSIRmdirRecursive(kProbe);
  return lateness;
}

}  // namespace

Date WithoutLateness(Date read) {
  if (read >= MakeDate(kUnixYear, 1, 1)) return read;
  static const double lateness = LatenessBefore1970();
  return AddSeconds(read, -lateness);
}

}  // namespace tessarine::engine
