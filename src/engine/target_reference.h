// SPDX-License-Identifier: GPL-2.0-or-later
// The reference of a new file, and the way of shapes to it.
#pragma once

#include <ogrsf_frmts.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "engine/reprojection.h"
#include "engine/srs_from_gdal.h"
#include "outputs/formats.h"
#include "platform/run_journal.h"

namespace tessarine::engine {

/// Most formats take any reference. Those of longitudes and latitudes on WGS 84 alone get shapes that were brought
/// there; longitudes and latitudes on another body stay as they are, without a reference.
class TargetReference {
 public:
  /// `source` is null for data without a reference, `extent` that of the data in it, empty where it isn't known. Fault
  /// where the format can't have these data, naming `shown`.
  TargetReference(const Format& format, const OGRSpatialReference* source, const Envelope& extent,
                  const std::filesystem::path& shown);

  /// That of the file; null for none.
  [[nodiscard]] const OGRSpatialReference* Target() const { return target_.get(); }
  /// Null where the shape of the record has no place in the file's reference, which the notes tell.
  [[nodiscard]] std::unique_ptr<OGRGeometry> Bring(std::unique_ptr<OGRGeometry> shape, std::int64_t oid,
                                                   RunJournal& notes) const;
  /// What that means for the data, a sentence; empty where they stay as they are.
  [[nodiscard]] const std::optional<std::string>& Foretold() const { return foretold_; }

 private:
  bool degrees_ = false;  // the format keeps nothing else
  OgrReference target_;
  std::optional<Reprojection> way_;
  std::optional<std::string> foretold_;
};

}  // namespace tessarine::engine
