// SPDX-License-Identifier: GPL-2.0-or-later
// What the geometry dialog hands to the run through `clsExtension.GeometryOptions`, position by position.
//
// The carrier is a list with a fixed layout; these views give its positions their names. A view shares its list with
// whoever else holds it: what one writes, all see.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "calculator/measure_catalogue.h"
#include "platform/arrays.h"
#include "platform/map.h"

namespace tessarine {

/// One ticked option and the fields that take its values.
class OptionEntry {
 public:
  /// A new entry. The second field stays empty for options with one combo box.
  OptionEntry(std::int16_t option_id, std::string first_field, std::string second_field);
  /// The view of an existing list; fault 91 for none, fault 5 unless it has three elements.
  explicit OptionEntry(std::shared_ptr<VarArray> carrier);

  [[nodiscard]] std::int32_t OptionId() const;
  [[nodiscard]] std::string FirstField() const;
  [[nodiscard]] std::string SecondField() const;
  void SetFirstField(const std::string& name);
  void SetSecondField(const std::string& name);

  /// The field at position 0 or 1, as `FirstField` and `SecondField`.
  [[nodiscard]] std::string Field(std::int32_t position) const;

  [[nodiscard]] const std::shared_ptr<VarArray>& Carrier() const { return carrier_; }

 private:
  std::shared_ptr<VarArray> carrier_;
};

/// True when the layer's measure uses the option's field at position 0 or 1. The flags decide, not the emptiness of a
/// name. False for an option id outside 1 to 11.
[[nodiscard]] bool UsesField(const ComboUseFlags& flags, std::int32_t option_id, std::int32_t position);

/// The names of the fields in use, in the order of the options, first before second, repeats kept, empty names too.
[[nodiscard]] std::vector<std::string> FieldNamesInUse(const std::vector<OptionEntry>& entries,
                                                       const ComboUseFlags& flags);

/// The choices of one run as plain values.
struct GeometryChoices {
  std::shared_ptr<IFeatureLayer> layer;
  bool all_records = true;  ///< False: the selected records
  std::vector<OptionEntry> options;
  tessarine::ComboUseFlags use_flags{};
  std::string spheroid_name;
  double semi_major = 0.0, semi_minor = 0.0;  ///< metres
  bool geocentric = false;                    ///< the data's latitudes are planetocentric
};

class GeometryOptions {
 public:
  /// Lays the choices out in a new list.
  explicit GeometryOptions(const GeometryChoices& choices);
  /// The view of an existing list; fault 91 for none, fault 5 unless it has eight elements.
  explicit GeometryOptions(std::shared_ptr<VarArray> carrier);

  [[nodiscard]] std::shared_ptr<IFeatureLayer> Layer() const;
  [[nodiscard]] bool AllRecords() const;
  /// Views of the very entries: what is written to them stays in the list.
  [[nodiscard]] std::vector<OptionEntry> Options() const;
  [[nodiscard]] ComboUseFlags UseFlags() const;
  [[nodiscard]] std::string SpheroidName() const;
  [[nodiscard]] double SemiMajor() const;
  [[nodiscard]] double SemiMinor() const;
  [[nodiscard]] bool Geocentric() const;

  [[nodiscard]] const std::shared_ptr<VarArray>& Carrier() const { return carrier_; }

 private:
  std::shared_ptr<VarArray> carrier_;
};

}  // namespace tessarine
