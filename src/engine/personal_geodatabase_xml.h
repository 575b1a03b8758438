// SPDX-License-Identifier: GPL-2.0-or-later
// Descriptions of classes and feature datasets in XML, as GDB_Items keeps them.
#pragma once

#include <ogr_spatialref.h>

#include <map>
#include <string>

#include "engine/personal_geodatabase_catalog.h"

namespace tessarine::engine {

/// A reference with the grid and the tolerance of its coordinates.
struct PersonalReference {
  std::string text;  ///< well-known text
  std::string kind;  ///< of the XML: "GeographicCoordinateSystem" and so on
  int number = 0;    ///< EPSG, 0 where there is none
  double x_origin = 0.0, y_origin = 0.0, xy_scale = 1.0, xy_tolerance = 0.0;
};

struct ItemPlace {
  std::string path;  ///< "\Dataset\Class"
  std::string name;
  std::int32_t number = 0;  ///< its row in GDB_Items
};

[[nodiscard]] std::string WorkspaceXml();
[[nodiscard]] std::string DatasetXml(const ItemPlace& place, const PersonalReference& reference);
/// A class with its identifier and shape; `AddFieldXml` adds the others.
[[nodiscard]] std::string ClassXml(const ItemPlace& place, const PersonalClass& description,
                                   const std::string& identifier_column, const PersonalReference& reference);
/// What the description of a class tells of its columns.
struct ClassFacts {
  std::string length_column, area_column;      ///< those that the geodatabase keeps up to date; empty for none
  std::map<std::string, std::string> aliases;  ///< by name in small letters, of the fields that have one
};
/// Nothing where the text isn't such a description.
[[nodiscard]] ClassFacts ReadClassXml(const std::string& xml);
/// The description with one more field after the others; as it was where it has no list of fields.
[[nodiscard]] std::string AddFieldXml(std::string xml, const jet::Column& column, const std::string& alias);

}  // namespace tessarine::engine
