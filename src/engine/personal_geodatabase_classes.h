// New classes of personal geodatabases.
#pragma once

#include <memory>
#include <string>

#include "engine/workspace_common.h"
#include "platform/data.h"

namespace tessarine::engine {

struct NewPersonalPlace {
  std::string path;
  std::string dataset;    ///< as the geodatabase spells it; empty at the root
  bool replaces = false;  ///< a class or table of this name goes
};

/// The new class, and the geodatabase where that isn't there yet, appear when the class is published.
[[nodiscard]] std::shared_ptr<IFeatureClass> CreateInPersonalGeodatabase(const NewPersonalPlace& place,
                                                                         const NewClass& request);
/// Makes an empty personal geodatabase. A fault where something stands there.
void MakePersonalGeodatabaseAt(const std::string& native_path);

/// The feature dataset's name as the geodatabase has it; empty where there is none of this name in any case.
[[nodiscard]] std::string StoredPersonalDataset(const std::string& native_path, const std::string& name);
/// A class of the feature dataset; empty where it has none.
[[nodiscard]] std::string ClassOfPersonalDataset(const std::string& native_path, const std::string& dataset);

}  // namespace tessarine::engine
