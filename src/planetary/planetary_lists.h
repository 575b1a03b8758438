// SPDX-License-Identifier: GPL-2.0-or-later
// The lists that carry a planetary run from its command to the dialog and from the dialog to the run, each with a view
// that gives its positions their names.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "geodesy/longitude_continuation.h"
#include "outputs/output_place.h"
#include "platform/arrays.h"
#include "platform/map.h"
#include "session/clsExtension.h"
#include "shapes/wrap.h"

namespace tessarine {

/// How longitudes are brought into a range, as dialogs, runs and the extension keep it. What 0 stands for depends on
/// the tool.
enum WrapOption : std::int32_t {
  kCustomOrNoWrap = 0,
  kWrap180 = 1,
  kWrap360 = 2,
};

/// What a step of more than 180 degrees of longitude means.
enum class LongSteps : std::int32_t { AsTheyStand = 0, ShortWay = 1 };

/// How shapes that jump over the edge are read.
struct StepChoice {
  LongSteps steps = LongSteps::AsTheyStand;
  geodesy::EnclosedPole pole = geodesy::EnclosedPole::SmallerPart;
};

constexpr WrapBox kBox180{-180.0, 90.0, 180.0, -90.0};
constexpr WrapBox kBox360{0.0, 90.0, 360.0, -90.0};

/// What the creation of an output class takes, in the order of its arguments, and after it the names that the fields
/// bear on both sides: one `StrArray` of input and output name for each.
class OutputDescription {
 public:
  explicit OutputDescription(std::shared_ptr<VarArray> list) : list_(std::move(list)) {}

  /// An output for the features of the layer in the place. It takes the layer's shapes and reference.
  [[nodiscard]] static std::shared_ptr<VarArray> Make(const IFeatureLayer& layer, const OutputPlace& place);

  [[nodiscard]] esriGeometryType ShapeType() const { return static_cast<esriGeometryType>(At(kShapeType).AsLong()); }
  [[nodiscard]] SpatialReferenceRef Reference() const { return At(kReference).AsObject<SpatialReference>(); }
  [[nodiscard]] OutputPlace Place() const;
  [[nodiscard]] std::shared_ptr<VarArray> Fields() const { return At(kFields).AsObject<VarArray>(); }
  [[nodiscard]] std::string DialogTitle() const { return At(kDialogTitle).AsText(); }
  [[nodiscard]] std::shared_ptr<VarArray> FieldNames() const { return At(kFieldNames).AsObject<VarArray>(); }

 private:
  enum Position : std::int32_t {
    kShapeType,
    kReference,
    kDirectory,
    kName,
    kOutputKind,
    kFields,
    kDialogTitle,
    kIsFeatureDataset,
    kFeatureDatasetName,
    kReserved,
    kAddUniqueId,
    kEnvelope,
    kFeatureCount,
    kFieldNames
  };
  [[nodiscard]] const Variant& At(std::int32_t position) const { return list_->Element(position); }
  std::shared_ptr<VarArray> list_;
};

/// The texts at a position; none where the list ends before it.
[[nodiscard]] std::vector<std::string> TextsAt(const VarArray& list, std::int32_t position);
/// Puts texts at a position, which must be in the list or the next after it.
void PutTexts(VarArray& list, std::int32_t position, const std::vector<std::string>& texts);

/// The choices of the wrap dialog.
class WrapArguments {
 public:
  explicit WrapArguments(std::shared_ptr<VarArray> list) : list_(std::move(list)) {}

  [[nodiscard]] static std::shared_ptr<VarArray> Make(const std::shared_ptr<IFeatureLayer>& layer, const WrapBox& box,
                                                      std::int32_t option, std::shared_ptr<VarArray> output,
                                                      double shift, const StepChoice& steps = {});

  /// Nothing once the run is over.
  [[nodiscard]] std::shared_ptr<IFeatureLayer> Layer() const { return At(kLayer).AsObject<IFeatureLayer>(); }
  [[nodiscard]] WrapBox Box() const {
    return {At(kWest).AsDouble(), At(kNorth).AsDouble(), At(kEast).AsDouble(), At(kSouth).AsDouble()};
  }
  [[nodiscard]] std::int32_t Option() const { return At(kOption).AsLong(); }
  [[nodiscard]] OutputDescription Output() const { return OutputDescription(At(kOutput).AsObject<VarArray>()); }
  [[nodiscard]] double Shift() const { return At(kShift).AsDouble(); }
  /// As they stand in a list that says nothing of it.
  [[nodiscard]] StepChoice Steps() const;
  /// The names of settings that came from the map document without anybody's word.
  [[nodiscard]] std::vector<std::string> FromDocument() const { return TextsAt(*list_, kFromDocument); }
  void SetFromDocument(const std::vector<std::string>& names) { PutTexts(*list_, kFromDocument, names); }

 private:
  enum Position : std::int32_t {
    kLayer,
    kWest,
    kNorth,
    kEast,
    kSouth,
    kOption,
    kOutput,
    kShift,
    kSteps,
    kPole,
    kFromDocument
  };
  [[nodiscard]] const Variant& At(std::int32_t position) const { return list_->Element(position); }
  std::shared_ptr<VarArray> list_;
};

/// The choices of the dialog of the planetary latitudes.
class GeoCentricArguments {
 public:
  explicit GeoCentricArguments(std::shared_ptr<VarArray> list) : list_(std::move(list)) {}

  [[nodiscard]] static std::shared_ptr<VarArray> Make(const std::shared_ptr<IFeatureLayer>& layer,
                                                      const std::string& spheroid_name, double semi_major_axis,
                                                      double semi_minor_axis, double shift, std::int32_t wrap_option,
                                                      std::shared_ptr<VarArray> output);

  [[nodiscard]] std::shared_ptr<IFeatureLayer> Layer() const { return At(kLayer).AsObject<IFeatureLayer>(); }
  [[nodiscard]] std::string SpheroidName() const { return At(kSpheroidName).AsText(); }
  [[nodiscard]] double SemiMajorAxis() const { return At(kSemiMajorAxis).AsDouble(); }
  [[nodiscard]] double SemiMinorAxis() const { return At(kSemiMinorAxis).AsDouble(); }
  [[nodiscard]] double Shift() const { return At(kShift).AsDouble(); }
  [[nodiscard]] std::int32_t Option() const { return At(kOption).AsLong(); }
  [[nodiscard]] OutputDescription Output() const { return OutputDescription(At(kOutput).AsObject<VarArray>()); }
  /// The names of settings that came from the map document without anybody's word.
  [[nodiscard]] std::vector<std::string> FromDocument() const { return TextsAt(*list_, kFromDocument); }
  void SetFromDocument(const std::vector<std::string>& names) { PutTexts(*list_, kFromDocument, names); }

 private:
  enum Position : std::int32_t {
    kLayer,
    kSpheroidName,
    kSemiMajorAxis,
    kSemiMinorAxis,
    kShift,
    kOption,
    kOutput,
    kFromDocument
  };
  [[nodiscard]] const Variant& At(std::int32_t position) const { return list_->Element(position); }
  std::shared_ptr<VarArray> list_;
};

/// Takes the layer out of a list of arguments whose run is over. Its name stays, so that the next dialog selects it
/// again.
void ReleaseLayer(VarArray& arguments);
/// The name that `ReleaseLayer` left; empty without a list or with a layer still in it.
[[nodiscard]] std::string ReleasedLayerName(const std::shared_ptr<VarArray>& arguments);

/// What a command hands the dialog of the planetary latitudes, which serves both directions.
class GeoCentricInput {
 public:
  explicit GeoCentricInput(std::shared_ptr<VarArray> list) : list_(std::move(list)) {}

  [[nodiscard]] static std::shared_ptr<VarArray> Make(const std::shared_ptr<IApplication>& application,
                                                      const std::shared_ptr<clsExtension>& extension,
                                                      const std::string& directory, std::int32_t output_kind,
                                                      const std::string& caption, const std::string& instruction);

  [[nodiscard]] std::shared_ptr<IApplication> Application() const { return At(kApplication).AsObject<IApplication>(); }
  [[nodiscard]] std::shared_ptr<clsExtension> Extension() const { return At(kExtension).AsObject<clsExtension>(); }
  [[nodiscard]] std::string Directory() const { return At(kDirectory).AsText(); }
  [[nodiscard]] std::int32_t OutputKind() const { return At(kOutputKind).AsLong(); }
  [[nodiscard]] std::string Caption() const { return At(kCaption).AsText(); }
  [[nodiscard]] std::string Instruction() const { return At(kInstruction).AsText(); }

 private:
  enum Position : std::int32_t { kApplication, kExtension, kDirectory, kOutputKind, kCaption, kInstruction };
  [[nodiscard]] const Variant& At(std::int32_t position) const { return list_->Element(position); }
  std::shared_ptr<VarArray> list_;
};

}  // namespace tessarine
