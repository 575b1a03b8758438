// SPDX-License-Identifier: GPL-2.0-or-later
// The fields of a conversion's output: its own ones first, clones of the chosen input fields after them, and how
// attribute values get from the one table to the other.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/arrays.h"
#include "platform/data.h"
#include "support/attribute_copy.h"
#include "support/foretold_changes.h"

namespace tessarine {

/// A chosen field takes a legal dBASE name that is still free, whatever the kind of output. The chosen fields
/// themselves stay as they are.
class FieldTransfer {
 public:
  /// Own fields that give way to the input class: one whose name the class already bears becomes name_2, name_3 and
  /// so on. `measures` are the base names of the double fields after `Uniq_ID`. The kind of output decides how
  /// carried fields are called.
  [[nodiscard]] static FieldTransfer BesideInput(const IFeatureClass& input, std::span<const std::string_view> measures,
                                                 const VarArray& chosen, std::int32_t output_kind);
  /// Own fields that give way to the chosen fields alone, whose names are compared with case.
  [[nodiscard]] static FieldTransfer BesideChosen(std::span<const std::string_view> measures, const VarArray& chosen,
                                                  std::int32_t output_kind);

  /// The output fields in order, for the creation of the class.
  [[nodiscard]] const std::shared_ptr<VarArray>& OutputFields() const { return output_fields_; }

  struct NamePair {
    std::string input, output;
  };
  /// The chosen fields under both names, in the order of the choice.
  [[nodiscard]] const std::vector<NamePair>& Chosen() const { return chosen_; }

  /// The same, for what can be foretold of their values.
  [[nodiscard]] std::vector<CarriedField> Carried() const;

  /// Finds all field positions, once, before the first feature is read. `input` is the class of the chosen fields and
  /// may be null when none of them is to be copied. The output was created with the output fields.
  void Bind(const IFeatureClass* input, const IFeatureClass& output);
  [[nodiscard]] std::int32_t UniqueIdIndex() const { return unique_id_index_; }
  [[nodiscard]] std::int32_t MeasureIndex(std::size_t measure) const { return measure_indexes_[measure]; }
  /// Copies the chosen attributes; a null stays null. Values that change on the way are counted.
  void CopyAttributes(const IRow& from, IRowBuffer& to, RunJournal& journal) const { copy_.Copy(from, to, journal); }
  [[nodiscard]] const AttributeCopy& Attributes() const { return copy_; }

  /// The field lines of the report, as RTF.
  [[nodiscard]] std::string FieldReport() const;

 private:
  FieldTransfer(std::string unique_id_name, std::vector<std::string> measure_names, const VarArray& chosen,
                std::int32_t output_kind);

  std::shared_ptr<VarArray> output_fields_ = std::make_shared<VarArray>();
  std::string unique_id_name_;
  std::vector<std::string> measure_names_;
  std::vector<NamePair> chosen_;
  std::vector<FieldRef> chosen_fields_;
  std::int32_t unique_id_index_ = -1;
  std::vector<std::int32_t> measure_indexes_;
  AttributeCopy copy_;
};

}  // namespace tessarine
