// SPDX-License-Identifier: GPL-2.0-or-later
// Making personal geodatabases, their feature datasets and their classes, and deleting classes. All raise
// `jet::Error`s.
#pragma once

#include <string>

#include "engine/personal_geodatabase_xml.h"

namespace tessarine::engine {

/// The geodatabase's own tables in a database that has none.
void MakePersonalGeodatabase(jet::Database& database);

/// An error where no class can be made or deleted: the geodatabase is of a version before 10, or something about its
/// own tables isn't known.
void RequireRoomForClasses(jet::Database& database);

struct NewPersonalClass {
  PersonalClass description;  ///< name, shape column, shape type
  std::string identifier_column;
  std::string dataset;  ///< made where it isn't there; empty for the root
  PersonalReference reference;
};
/// An empty class without attributes. An error where the name can't be one, or where the geodatabase is of a version
/// before 10.
void CreatePersonalClass(jet::Database& database, const NewPersonalClass& made);
/// The class with all that the geodatabase's own tables tell of it. An error where other items depend on it.
void DeletePersonalClass(jet::Database& database, const PersonalClass& description);

/// What the geodatabase tells of a class's fields and extent.
void TellNewField(jet::Database& database, const std::string& class_name, const std::string& column,
                  const std::string& alias);
void TellExtent(jet::Database& database, const PersonalClass& description);

/// The reference of new data: what coordinates are kept between.
[[nodiscard]] PersonalReference ReferenceOf(const OGRSpatialReference* reference);

}  // namespace tessarine::engine
