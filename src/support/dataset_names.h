// SPDX-License-Identifier: GPL-2.0-or-later
// Names that are legal and free in each kind of storage.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/arrays.h"
#include "platform/data.h"

namespace tessarine::MyGeneralOperations {

/// True when the workspace holds a feature class or a table of this name; the two share one name space. The
/// first routine looks among the classes first, the second among the tables.
[[nodiscard]] bool CheckIfFeatureClassExists(const std::shared_ptr<IFeatureWorkspace>& workspace,
                                             const std::string& name);
[[nodiscard]] bool CheckIfTableExists(const std::shared_ptr<IFeatureWorkspace>& workspace, const std::string& name);

/// The name, or the first of name_2, name_3 and so on that is free.
[[nodiscard]] std::string MakeUniqueGDBFeatureClassName(const std::shared_ptr<IFeatureWorkspace>& workspace,
                                                        const std::string& name);
[[nodiscard]] std::string MakeUniqueGDBTableName(const std::shared_ptr<IFeatureWorkspace>& workspace,
                                                 const std::string& name);
/// The same for the full path of a file, the number ahead of its extension.
[[nodiscard]] std::string MakeUniqueShapeFilename(const std::string& path);
[[nodiscard]] std::string MakeUniquedBASEName(const std::string& path);

/// Letters, digits and "_" stay, every other character becomes "_"; dots, backslashes and blanks may be let through.
/// An empty text gives "z"; with `prefix_first_letter` a text that begins with no letter gets a "z" in front.
[[nodiscard]] std::string ReplaceBadChars(const std::string& text, bool replace_dot, bool replace_backslash,
                                          bool replace_blank, bool prefix_first_letter);

/// A legal name for a field of a dBASE table that none of the existing fields bears: at most 10 characters, a letter
/// first. `existing_fields` is a `Fields`, a `VarArray` of fields or texts, or a `StrArray`; anything else counts as
/// an empty list.
[[nodiscard]] std::string ReturnDBASEFieldName(const std::string& name, const ObjectRef& existing_fields);

/// Rows of source name, source index, output name, output index. An entry of `selected_fields` is a `StrArray` of
/// both names with `use_array_elements`, else a `Field` that has one name in both classes.
[[nodiscard]] std::shared_ptr<VarArray> MakeFieldNameVarArray(const IClass& from_class, const IClass& to_class,
                                                              const VarArray& selected_fields, bool use_array_elements);

/// The value in binary digits, at least `width` of them. The value is at least 1.
[[nodiscard]] std::string ConvertLongBinary(std::int32_t value, std::int32_t width);

/// True for a compressed class of a file geodatabase.
[[nodiscard]] bool CheckDatafileFormat(const IDataset& dataset);

}  // namespace tessarine::MyGeneralOperations
