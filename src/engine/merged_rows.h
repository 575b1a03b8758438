// SPDX-License-Identifier: GPL-2.0-or-later
// The records of a source as a run leaves them.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "engine/converted_copy.h"
#include "engine/ogr_cursor.h"

namespace tessarine::engine {

/// A record of the source with what the run has made of it, for one row of the output.
class MergedRows {
 public:
  /// `worked` is the GeoPackage that the run works on, or the source itself.
  MergedRows(const Conversion& conversion, const std::shared_ptr<OgrClass>& worked);

  /// False at the end.
  [[nodiscard]] bool Next();

  [[nodiscard]] const OgrFeature& From() const { return *from_; }
  /// Null also for a shape that isn't written, as was told when its record was copied.
  [[nodiscard]] const OGRGeometry* Shape() const;
  [[nodiscard]] const OGRFeature& Worked() const { return *row_; }
  [[nodiscard]] bool IsChanged(std::size_t column) const { return merges_ && changed_[column]; }
  [[nodiscard]] const OGRFeatureDefn& WorkedDefinition() const { return *worked_rows_.Layer().GetLayerDefn(); }

 private:
  void Compare();

  const Conversion& conversion_;
  std::shared_ptr<OgrClass> worked_;
  LayerHandle worked_rows_;
  bool merges_;
  ReadingCursor source_;
  std::size_t next_ = 0;
  std::optional<OgrFeature> from_;
  OGRFeatureUniquePtr row_;
  std::vector<bool> changed_;
};

}  // namespace tessarine::engine
