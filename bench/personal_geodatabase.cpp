// SPDX-License-Identifier: GPL-2.0-or-later
// Writes and reads classes of geodatabases by the suite's engine alone, and reads them by GDAL alone.
//
// personal_geodatabase write FOLDER/NAME.mdb|.gdb COUNT   makes the class "points" with so many points
// personal_geodatabase read FILE LAYER                    walks over all rows: shapes and attributes
// personal_geodatabase read-by-gdal FILE LAYER            the same by GDAL's PGeo driver over mdbtools and ODBC
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "engine/data_source.h"
#include "engine/ogr_source.h"
#include "platform/data.h"
#include "platform/fault.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace {

using namespace tessarine;

FieldRef NewField(const char* name, esriFieldType type, std::int32_t length = 0) {
  auto field = std::make_shared<Field>();
  field->Name = name;
  field->Type = type;
  field->Length = length;
  return field;
}

FieldsRef PointFields() {
  auto fields = std::make_shared<Fields>();
  const FieldRef shape = NewField("Shape", esriFieldTypeGeometry);
  shape->GeometryDef = std::make_shared<GeometryDef>();
  shape->GeometryDef->GeometryType = esriGeometryPoint;
  shape->GeometryDef->SpatialReference = SpatialReferenceEnvironment::CreateFromText("EPSG:4326");
  fields->AddField(shape);
  fields->AddField(NewField("number", esriFieldTypeInteger));
  fields->AddField(NewField("value", esriFieldTypeDouble));
  fields->AddField(NewField("label", esriFieldTypeString, 20));
  return fields;
}

void Write(const std::string& path, int count) {
  const bool personal = EndsWithIgnoringCase(path, ".mdb");
  PromiseFileGeodatabase(path);
  const auto factory = personal ? CreateAccessWorkspaceFactory() : CreateFileGDBWorkspaceFactory();
  const auto made = factory->OpenFromFile(FromNativePath(path), 0)
                        ->CreateFeatureClass("points", PointFields(), nullptr, nullptr, esriFTSimple, "Shape", "");
  const std::int32_t number = made->FindField("number"), value = made->FindField("value"),
                     label = made->FindField("label");
  {
    const auto cursor = made->Insert(true);
    const auto buffer = made->CreateFeatureBuffer();
    for (int index = 0; index < count; ++index) {
      buffer->SetShape(std::make_shared<Point>(index % 3600 / 10.0 - 180.0, index % 1700 / 10.0 - 85.0));
      buffer->SetValue(number, index);
      buffer->SetValue(value, index / 7.0);
      buffer->SetValue(label, "point " + std::to_string(index));
      cursor->InsertFeature(*buffer);
    }
    cursor->Flush();
  }
  Cast<IStagedDataset>(made)->Publish();
}

int CountRows(GDALDataset* dataset, const char* name) {
  OGRLayer* layer = dataset == nullptr ? nullptr : dataset->GetLayerByName(name);
  if (layer == nullptr) return -1;
  int count = 0;
  for (const OGRFeatureUniquePtr& feature : layer) count += feature->GetGeometryRef() != nullptr ? 1 : 0;
  return count;
}

int ReadByGdal(const char* path, const char* layer) {
  GDALAllRegister();
  CPLSetConfigOption("PGEO_DRIVER_TEMPLATE", "DRIVER=libmdbodbc.so;DBQ=%s");
  const char* const drivers[] = {"PGeo", nullptr};
  const GDALDatasetUniquePtr dataset(GDALDataset::Open(path, GDAL_OF_VECTOR, drivers));
  return CountRows(dataset.get(), layer);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("personal_geodatabase write PATH COUNT | read PATH LAYER | read-by-gdal PATH LAYER\n", stderr);
    return 2;
  }
  try {
    if (std::strcmp(argv[1], "write") == 0) {
      Write(std::filesystem::absolute(argv[2]).string(), std::atoi(argv[3]));
      return 0;
    }
    const bool by_gdal = std::strcmp(argv[1], "read-by-gdal") == 0;
    const int count = by_gdal ? ReadByGdal(argv[2], argv[3]) : CountRows(engine::OpenDataset(argv[2]).get(), argv[3]);
    std::printf("%d rows with shapes\n", count);
    return count < 0 ? 1 : 0;
  } catch (const Fault& fault) {
    std::fprintf(stderr, "%s\n", fault.what());
    return 1;
  }
}
