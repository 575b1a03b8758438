// SPDX-License-Identifier: GPL-2.0-or-later
// What may be asked of a personal geodatabase from outside of the engine.
#pragma once

#include <string>
#include <vector>

namespace tessarine::engine {

[[nodiscard]] bool IsPersonalGeodatabase(const std::string& native_path);

enum class PersonalUse {
  Rows,      ///< rows and fields of a class that is there
  NewClass,  ///< the geodatabase's own tables too
};
/// A fault where the geodatabase is there and may not be written to, which says why. Writes nothing.
void RequireWritableGeodatabase(const std::string& native_path, PersonalUse use);

struct PersonalListing {
  struct Class {
    std::string name;
    std::string dataset;  ///< the feature dataset that it lies in; empty at the root
    bool has_shapes = true;
  };
  std::vector<std::string> datasets;
  std::vector<Class> classes;  ///< tables too
};
/// What a geodatabase holds, without a look at any row. A fault where it can't be read.
[[nodiscard]] PersonalListing ListPersonalGeodatabase(const std::string& native_path);

}  // namespace tessarine::engine
