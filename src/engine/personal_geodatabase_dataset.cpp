#include "engine/personal_geodatabase_dataset.h"

#include "engine/attribute_update.h"
#include "engine/engine_fault.h"
#include "engine/personal_geodatabase_create.h"
#include "engine/personal_geodatabase_edit.h"
#include "engine/personal_geodatabase_layer.h"

namespace tessarine::engine {
namespace {

// Known to nobody else: other parts of the process open such files as they did.
GDALDriver* Driver() {
  static GDALDriver* const driver = [] {
    auto* made = new GDALDriver();
    made->SetDescription("PGeo");
    made->SetMetadataItem(GDAL_DCAP_VECTOR, "YES");
    return made;
  }();
  return driver;
}

class PersonalGdalDataset final : public GDALDataset {
 public:
  PersonalGdalDataset(const std::string& path, std::shared_ptr<jet::Database> database,
                      std::shared_ptr<PersonalEdit> edit, bool can_write)
      : edit_(std::move(edit)) {
    poDriver = Driver();
    SetDescription(path.c_str());
    const auto access = edit_ ? PersonalLayer::Access::Write : PersonalLayer::Access::Read;
    for (PersonalClass& described : ReadPersonalClasses(*database)) {
      layers_.push_back(std::make_unique<PersonalLayer>(database, std::move(described), access, can_write));
    }
    database_ = std::move(database);
  }

  // What GDAL reports of closing is all that the one who closes sees.
  ~PersonalGdalDataset() override {
    try {
      if (edit_) {
        for (const auto& layer : layers_) layer->Settle();
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
  int TestCapability(const char* capability) override { return EQUAL(capability, ODsCDeleteLayer) && edit_ ? 1 : 0; }

  OGRErr DeleteLayer(int index) override {
    try {
      if (!edit_) throw jet::Error("the geodatabase is written to outside of an edit");
      const PersonalClass described = layers_.at(static_cast<std::size_t>(index))->Description();
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
  std::vector<std::unique_ptr<PersonalLayer>> layers_;
};

class PersonalUpdate final : public AttributeUpdate {
 public:
  explicit PersonalUpdate(PersonalLayer& layer) : layer_(layer) {}

  bool Write(const OGRFeature& feature, std::span<const int> attributes) override {
    try {
      layer_.WriteAttributes(feature, attributes);
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

DatasetHandle OpenPersonalGeodatabase(const std::string& native_path, bool update) {
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
