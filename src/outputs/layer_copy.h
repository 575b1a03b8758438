// SPDX-License-Identifier: GPL-2.0-or-later
// A copy of a layer, made beside its place, that a run works on before it is published.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "outputs/output_place.h"
#include "platform/data.h"

namespace tessarine {

struct LayerCopyRequest {
  std::shared_ptr<IFeatureClass> source;          ///< a class of the engine's
  OutputPlace place;                              ///< with its format and name
  std::optional<std::vector<std::int64_t>> only;  ///< the records to copy, all without a list
  std::vector<std::int64_t> selected;             ///< records that shall be selected in the copy, ascending
  bool replaces = false;                          ///< what stands at the place goes away when the copy is published
  std::vector<std::string> result_fields;         ///< names that no column may take that the format makes up
  std::string question;                           ///< that the plan tells of, empty for none
  SpatialReferenceRef reference;  ///< that the copy's shapes are brought to when it is whole; null for the source's own
  bool plan_only = false;  ///< the copy is for looking at: its columns are those of the copy, its counts the source's
};

struct CopiedField {
  std::string source;
  std::string copy;    ///< in the format of the copy; empty where it keeps nothing of its kind
  std::string worked;  ///< in the class that is worked on; empty where that keeps nothing of its kind
};

struct LayerCopy {
  /// Holds the records and takes new fields. It is an `IStagedDataset`: publishing it puts the copy in its place, in
  /// its own format, and checks that all its rows are there. Where a format can't be changed in place, what is worked
  /// on is a GeoPackage, and publishing it writes the records of the source anew, with what has been changed.
  std::shared_ptr<IFeatureClass> output;
  std::vector<CopiedField> fields;
  std::vector<std::pair<std::int64_t, std::int64_t>>
      oids;  ///< of the source and the copy, by the first; none of a plan, and none where none are selected
  std::shared_ptr<ISelectionSet> selection =
      nullptr;  ///< those of the request; in a plan with the source's identifiers
};

/// The format that a path's ending names: of the table, or another that GDAL writes. Null where there is none.
[[nodiscard]] const Format* FormatToWrite(const std::string& native_path);

/// True when a layer or table stands under the name of the place, or, outside of containers, any file of it. A
/// publication that died in its last step is ended first.
[[nodiscard]] bool Stands(const OutputPlace& place);

/// The identifiers of the selected rows, ascending. Rows of others than the engine's classes are read for it.
[[nodiscard]] std::vector<std::int64_t> OidsOf(ISelectionSet& selection);

/// False for classes of other programs' making.
[[nodiscard]] bool CanBeCopied(const std::shared_ptr<IFeatureClass>& source);

/// Faults name the target and what to do; nothing is left of the copy then; that of number 5 is
/// about what the format can't hold at all. Raises `RunStopped`.
[[nodiscard]] LayerCopy MakeLayerCopy(const LayerCopyRequest& request);

}  // namespace tessarine
