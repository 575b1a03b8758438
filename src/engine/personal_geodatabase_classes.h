// SPDX-License-Identifier: GPL-2.0-or-later
// New classes of personal geodatabases.
#pragma once

#include <memory>
#include <string>

#include "engine/geodatabase_class.h"
#include "engine/ogr_class.h"
#include "engine/personal_geodatabase_edit.h"

namespace tessarine::engine {

/// A new class. The edit that made it ends with its publication; until then this program alone sees the class.
class StagedPersonalClass : public OgrFeatureClass, public IStagedDataset {
 public:
  StagedPersonalClass(const std::string& path, const std::string& name, std::shared_ptr<PersonalEdit> edit);
  ~StagedPersonalClass() override;
  StagedPersonalClass(const StagedPersonalClass&) = delete;
  StagedPersonalClass& operator=(const StagedPersonalClass&) = delete;

  void Publish() override;
  void Discard() override;

 private:
  std::shared_ptr<PersonalEdit> edit_;
};

struct MadePersonalClass {
  std::shared_ptr<PersonalEdit> edit;  ///< ends with the publication of the class
  std::string name;
};
/// As `MakeInGeodatabase` does in file geodatabases.
[[nodiscard]] MadePersonalClass MakeInPersonalGeodatabase(const GeodatabaseWish& wish, const LayerMaker& make);

/// Makes an empty personal geodatabase. A fault where something stands there.
void MakePersonalGeodatabaseAt(const std::string& native_path);

/// The feature dataset's name as the geodatabase has it; empty where there is none of this name in any case.
[[nodiscard]] std::string StoredPersonalDataset(const std::string& native_path, const std::string& name);
/// A class of the feature dataset; empty where it has none.
[[nodiscard]] std::string ClassOfPersonalDataset(const std::string& native_path, const std::string& dataset);

}  // namespace tessarine::engine
