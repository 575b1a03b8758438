// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/personal_geodatabase_dataset.h"

#include "engine/attribute_update.h"
#include "engine/engine_fault.h"
#include "engine/personal_geodatabase_create.h"
#include "engine/personal_geodatabase_edit.h"
#include "engine/personal_geodatabase_layer.h"

namespace tessarine::engine {
namespace {

double OptionOf(CSLConstList options, const char* name, double otherwise) {
  const char* text = CSLFetchNameValue(options, name);
  return text == nullptr ? otherwise : CPLAtof(text);
}

std::int32_t ShapeTypeNumber(OGRwkbGeometryType type) {
  switch (wkbFlatten(type)) {
    case wkbPoint:
      return 1;
    case wkbMultiPoint:
      return 2;
    case wkbLineString:
    case wkbMultiLineString:
      return 3;
    case wkbPolygon:
    case wkbMultiPolygon:
      return 4;
    default:
      throw jet::Error(std::string("a personal geodatabase keeps no classes of the type ") +
                       OGRGeometryTypeToName(type));
  }
}

// Where nothing is told: 10 nanodegrees, a tenth of a millimetre.
PersonalReference ReferenceWithGrid(const OGRSpatialReference* reference, CSLConstList options) {
  PersonalReference made = ReferenceOf(reference);
  const bool degrees = made.kind == "GeographicCoordinateSystem";
  made.x_origin = OptionOf(options, "XORIGIN", degrees ? -400.0 : -2147483647.0);
  made.y_origin = OptionOf(options, "YORIGIN", degrees ? -400.0 : -2147483647.0);
  made.xy_scale = OptionOf(options, "XYSCALE", degrees ? 1e9 : 1e4);
  made.xy_tolerance = OptionOf(options, "XYTOLERANCE", degrees ? 8.983152841195215e-09 : 0.001);
  return made;
}

// A table of which something isn't known or damaged. Its name is taken all the same.
class UnreadableLayer final : public OGRLayer {
 public:
  UnreadableLayer(const PersonalClass& described, const char* why) : definition_(new OGRFeatureDefn) {
    definition_->Reference();
    definition_->SetName(described.name.c_str());
    definition_->SetGeomType(described.OgrType());
    SetDescription(described.name.c_str());
    SetMetadataItem(kWhyUnreadable, why);
  }
  ~UnreadableLayer() override { definition_->Release(); }
  UnreadableLayer(const UnreadableLayer&) = delete;
  UnreadableLayer& operator=(const UnreadableLayer&) = delete;

  OGRFeatureDefn* GetLayerDefn() override { return definition_; }
  void ResetReading() override {}
  OGRFeature* GetNextFeature() override {
    CPLError(CE_Failure, CPLE_AppDefined, "%s", GetMetadataItem(kWhyUnreadable));
    return nullptr;
  }
  int TestCapability(const char*) override { return 0; }

 private:
  OGRFeatureDefn* definition_;
};

class PersonalGdalDataset final : public GDALDataset {
 public:
  PersonalGdalDataset(const std::string& path, std::shared_ptr<jet::Database> database,
                      std::shared_ptr<PersonalEdit> edit, bool can_write)
      : edit_(std::move(edit)) {
    poDriver = &PersonalDriver();
    SetDescription(path.c_str());
    const auto access = edit_ ? PersonalLayer::Access::Write : PersonalLayer::Access::Read;
    for (PersonalClass& described : ReadPersonalClasses(*database)) {
      try {
        layers_.push_back(std::make_unique<PersonalLayer>(database, described, access, can_write));
      } catch (const jet::Error& error) {
        layers_.push_back(std::make_unique<UnreadableLayer>(described, error.what()));
      }
    }
    database_ = std::move(database);
  }

  // What GDAL reports of closing is all that the one who closes sees.
  ~PersonalGdalDataset() override {
    try {
      if (edit_) {
        for (const auto& layer : layers_) {
          if (auto* own = dynamic_cast<PersonalLayer*>(layer.get())) own->Settle();
        }
      }
      layers_.clear();
      database_.reset();
      PersonalEdit::End(edit_);
    } catch (const std::exception& error) {
      if (edit_) edit_->Abandon();
      CPLError(CE_Failure, CPLE_AppDefined, "%s", error.what());
    }
  }

  int GetLayerCount() override { return static_cast<int>(layers_.size()); }
  OGRLayer* GetLayer(int index) override {
    return index < 0 || index >= GetLayerCount() ? nullptr : layers_[static_cast<std::size_t>(index)].get();
  }
  int TestCapability(const char* capability) override {
    if (EQUAL(capability, ODsCMeasuredGeometries) || EQUAL(capability, ODsCZGeometries)) return 1;
    return edit_ && (EQUAL(capability, ODsCDeleteLayer) || EQUAL(capability, ODsCCreateLayer)) ? 1 : 0;
  }

  /// Options: GEOMETRY_NAME, FID, FEATURE_DATASET, XORIGIN, YORIGIN, XYSCALE, XYTOLERANCE.
  OGRLayer* ICreateLayer(const char* name, OGRSpatialReference* reference, OGRwkbGeometryType type,
                         char** options) override {
    try {
      if (!edit_) throw jet::Error("the geodatabase is written to outside of an edit");
      NewPersonalClass made;
      made.description.name = name;
      made.description.shape_column = CSLFetchNameValueDef(options, "GEOMETRY_NAME", "SHAPE");
      made.description.shape_type = ShapeTypeNumber(type);
      made.description.layout = {OGR_GT_HasZ(type) != 0, OGR_GT_HasM(type) != 0};
      made.identifier_column = CSLFetchNameValueDef(options, "FID", "OBJECTID");
      made.dataset = CSLFetchNameValueDef(options, "FEATURE_DATASET", "");
      made.reference = ReferenceWithGrid(reference, options);
      CreatePersonalClass(*database_, made);
      for (PersonalClass& described : ReadPersonalClasses(*database_)) {
        if (described.name != name) continue;
        layers_.push_back(
            std::make_unique<PersonalLayer>(database_, std::move(described), PersonalLayer::Access::Write, true));
        return layers_.back().get();
      }
      throw jet::Error("the new class can't be found");
    } catch (const std::exception& error) {
      CPLError(CE_Failure, CPLE_AppDefined, "%s", error.what());
      return nullptr;
    }
  }

  OGRErr DeleteLayer(int index) override {
    try {
      if (!edit_) throw jet::Error("the geodatabase is written to outside of an edit");
      OGRLayer& layer = *layers_.at(static_cast<std::size_t>(index));
      if (const char* why = layer.GetMetadataItem(kWhyUnreadable)) throw jet::Error(why);
      const PersonalClass described = dynamic_cast<PersonalLayer&>(layer).Description();
      layers_.erase(layers_.begin() + index);
      DeletePersonalClass(*database_, described);
      return OGRERR_NONE;
    } catch (const std::exception& error) {
      CPLError(CE_Failure, CPLE_AppDefined, "%s", error.what());
      return OGRERR_FAILURE;
    }
  }

 private:
  std::shared_ptr<PersonalEdit> edit_;
  std::shared_ptr<jet::Database> database_;
  std::vector<std::unique_ptr<OGRLayer>> layers_;
};

class PersonalUpdate final : public AttributeUpdate {
 public:
  explicit PersonalUpdate(PersonalLayer& layer) : layer_(layer) {}

  bool Write(const OGRFeature& feature, std::span<const int> attributes) override {
    try {
      layer_.WriteAttributes(feature, attributes);
    } catch (const jet::RowError& error) {
      throw RecordFault(kRowRefused, "Row " + std::to_string(feature.GetFID()) + " of '" + layer_.Description().name +
                                         "' can't be written: " + error.what() + ".");
    } catch (const jet::Error& error) {
      RaiseEngineFault("Row " + std::to_string(feature.GetFID()) + " of '" + layer_.Description().name +
                       "' can't be written: " + error.what() + ".");
    }
    return true;
  }
  void Finish() override {}

 private:
  PersonalLayer& layer_;
};

}  // namespace

GDALDriver& PersonalDriver() {
  static GDALDriver* const driver = [] {
    auto* made = new GDALDriver();
    made->SetDescription("PGeo");
    made->SetMetadataItem(GDAL_DCAP_VECTOR, "YES");
    made->SetMetadataItem(GDAL_DCAP_CREATE, "YES");
    made->SetMetadataItem(GDAL_DMD_CREATIONFIELDDATATYPES, "Integer Real String DateTime Binary");
    made->SetMetadataItem(GDAL_DMD_CREATIONFIELDDATASUBTYPES, "Int16 Float32");
    return made;
  }();
  return *driver;
}

DatasetHandle OpenPersonalGeodatabase(const std::string& native_path, FileAccess access) {
  const bool update = access == FileAccess::Change;
  try {
    const std::shared_ptr<PersonalEdit> edit = PersonalEdit::UnderWay(native_path);
    std::shared_ptr<jet::Database> database =
        edit ? edit->Database() : std::make_shared<jet::Database>(native_path, jet::Database::Mode::Read);
    return DatasetHandle(new PersonalGdalDataset(native_path, std::move(database), update ? edit : nullptr, update));
  } catch (const std::exception& error) {
    CPLError(CE_Failure, CPLE_OpenFailed, "%s", error.what());
    return nullptr;
  }
}

std::unique_ptr<AttributeUpdate> OpenPersonalUpdate(OGRLayer& layer) {
  auto* own = dynamic_cast<PersonalLayer*>(&layer);
  return own == nullptr ? nullptr : std::make_unique<PersonalUpdate>(*own);
}

}  // namespace tessarine::engine
