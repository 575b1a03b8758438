// SPDX-License-Identifier: GPL-2.0-or-later
// The way of whole layers from one reference to another.
//
// Of the transformations between two datums, the best for the layer's extent that this machine has the grids for is
// chosen once, so that all records take the same one and its name can be told.
#pragma once

#include <ogr_geometry.h>

#include <memory>
#include <string>

#include "engine/engine_fault.h"
#include "engine/srs_from_gdal.h"
#include "platform/geometry.h"
#include "platform/run_journal.h"

namespace tessarine::engine {

struct CoordinateWayRelease {
  void operator()(OGRCoordinateTransformation* way) const { OGRCoordinateTransformation::DestroyCT(way); }
};

class Reprojection {
 public:
  /// `extent` is that of the data, in `from`; empty where it isn't known. Fault 5 where a reference is unknown or there
  /// is no way.
  Reprojection(SpatialReferenceRef from, SpatialReferenceRef to, const Envelope& extent);

  [[nodiscard]] const SpatialReferenceRef& To() const { return to_; }
  [[nodiscard]] const OGRSpatialReference* Target() const { return target_.get(); }
  /// A sentence that names both references and the transformation.
  [[nodiscard]] const std::string& Told() const { return told_; }
  /// Parts of it: " by 'X', to about 2 m", and what may be wrong about it, sentences that begin with a blank. Each may
  /// be empty.
  [[nodiscard]] const std::string& Manner() const { return manner_; }
  [[nodiscard]] const std::string& Doubt() const { return doubt_; }

  /// What became of a shape.
  enum class Outcome : std::uint8_t {
    Brought,
    Torn,  ///< an edge of it runs elsewhere, as one over the edge of the map does
  };
  /// Brings the shape there; curves become chords. Fault where a vertex has no place there.
  Outcome Bring(IGeometry& shape) const;
  /// The same for a shape of OGR's, which keeps heights and measures.
  Outcome Bring(std::unique_ptr<OGRGeometry>& shape) const;
  /// What the rectangle covers there; empty where that can't be told.
  [[nodiscard]] Envelope Bring(const Envelope& extent) const;

 private:
  [[nodiscard]] bool IsTorn(const OGRGeometry& before, const OGRGeometry& after) const;
  [[nodiscard]] bool IsTornLine(const OGRSimpleCurve& before, const OGRSimpleCurve& after, double size_before,
                                double size_after) const;

  SpatialReferenceRef from_, to_;
  OgrReference target_;
  std::unique_ptr<OGRCoordinateTransformation, CoordinateWayRelease> way_;
  std::string told_, manner_, doubt_;
};

/// Of a shape that was torn, a whole sentence.
inline constexpr const char* kTorn =
    "An edge of the shape runs elsewhere in the output: it reaches over the edge of the map there, as over the 180th "
    "meridian or a pole, or is too long to stay straight. Cut the source there first, as 'tessarine wrap' does.";

/// Brings a record's shape there. False, and a fault in the notes, where it has no place there: the record is written
/// without it then. A warning where it is torn. Raises `RunStopped`.
template <class Shape>
[[nodiscard]] bool BringTo(const Reprojection& way, Shape& shape, std::int64_t oid, RunJournal& notes) {
  try {
    if (way.Bring(shape) == Reprojection::Outcome::Torn) notes.NoteWarning(kTorn, oid);
    return true;
  } catch (const Fault&) {
    notes.NoteFault(RecordFault(kRowRefused, "A vertex of the shape has no place in '" + way.To()->Name() +
                                                 "': the record has no shape in the output."),
                    oid);
    return false;
  }
}

}  // namespace tessarine::engine
