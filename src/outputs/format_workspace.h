// SPDX-License-Identifier: GPL-2.0-or-later
// Workspaces for the formats that have no workspace of their own: a container, or the folder of a file.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "outputs/formats.h"
#include "platform/data.h"

namespace tessarine {

/// A column as a format will have it.
struct PlannedField {
  std::string asked;  ///< in the order of the attributes that were asked for
  std::string name;   ///< empty where the format keeps nothing of its kind
  std::string type;   ///< "text", "whole number" and so on
};

struct PlannedClass {
  std::vector<PlannedField> fields;
  std::vector<std::string> foretold;  ///< whole sentences
};

/// A workspace that tells what a class in it would be. Nothing is left on the disk.
class IClassPlanner : public virtual Object {
 public:
  /// Fault where there can be no such class.
  [[nodiscard]] virtual PlannedClass PlanClass(const std::string& name, const FieldsRef& fields,
                                               const std::string& shape_field) = 0;
};

/// A new class that may bear other fields in its place than while it is worked on.
class IPlannedClass : public virtual Object {
 public:
  [[nodiscard]] virtual const PlannedClass& Planned() const = 0;
};

/// Opens, by the native path of a folder as a backslash path, the place of files of this format, or by the path of a
/// container the container, which need not be there. Made by the engine.
[[nodiscard]] std::shared_ptr<IWorkspaceFactory> CreateFormatWorkspaceFactory(const Format& format);

/// Makes an empty GeoPackage. Fault where something stands there, or nothing can be written.
void CreateGeoPackage(const std::string& native_path);

}  // namespace tessarine
