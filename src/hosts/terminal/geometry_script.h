// SPDX-License-Identifier: GPL-2.0-or-later
// How the terminal answers the dialog of the geometry calculator.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "hosts/document/document_layer.h"
#include "hosts/terminal/form_script.h"
#include "hosts/terminal/spheroid_options.h"

namespace tessarine {

/// A measure as the dialog offers it for a layer.
struct OfferedMeasure {
  std::int32_t option_id = 0;
  std::string caption;
  std::vector<std::string> report_labels;
  bool slow = false;
  struct Field {
    std::string name;
    bool taken = false;  ///< the layer has a numeric field of this name
  };
  std::vector<Field> fields;
};

struct OfferedMeasures {
  std::string layer, feature_type, spheroid;
  std::vector<OfferedMeasure> measures;
};

/// Opens the dialog on a layer, reads what it offers and leaves it by Cancel.
class MeasureListing final : public FormScript {
 public:
  explicit MeasureListing(const DocumentFeatureLayer& layer) : layer_(layer) {}
  void Answer(Form& form) override;
  [[nodiscard]] const OfferedMeasures& Offered() const { return offered_; }

 private:
  const DocumentFeatureLayer& layer_;
  OfferedMeasures offered_;
};

/// "MEASURE" or "MEASURE=FIELD,FIELD", taken apart.
struct MeasureText {
  std::string name;
  std::vector<std::string> fields;  ///< empty where none are named

  explicit MeasureText(const std::string& text);
  [[nodiscard]] std::string Joined() const;
};

struct GeometryAnswers {
  /// "MEASURE", "MEASURE=FIELD" or "MEASURE=FIELD,FIELD", each by its caption, a report label or its option id
  std::vector<std::string> measures;
  bool all_measures = false;
  std::optional<ChosenSpheroid> spheroid;
  bool planetocentric = false;
};

/// Ticks the measures, names their fields, picks the spheroid, presses OK and answers what the dialog asks. Raises
/// `Refusal` for what the dialog doesn't offer.
class GeometryScript final : public FormScript {
 public:
  GeometryScript(const GeometryAnswers& answers, const DocumentFeatureLayer& layer)
      : answers_(answers), layer_(layer) {}
  void Answer(Form& form) override;

 private:
  void AnswerGeometry(Form& form);
  void AnswerSpheroid(Form& form);
  static void AnswerQuestion(Form& form);
  /// The option id of the measure.
  std::int32_t Tick(Form& form, const std::string& measure) const;

  const GeometryAnswers& answers_;
  const DocumentFeatureLayer& layer_;
  bool spheroid_taken_ = false;
};

}  // namespace tessarine
