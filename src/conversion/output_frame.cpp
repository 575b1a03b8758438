// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/output_frame.h"

#include "support/attempt.h"

namespace tessarine {
namespace {

// The rectangle in another reference: what its projected corners span.
Envelope Projected(const Envelope& box, const SpatialReferenceRef& from, const SpatialReferenceRef& to) {
  if (box.IsEmpty()) return {};
  Multipoint corners(
      {{box.XMin(), box.YMin()}, {box.XMin(), box.YMax()}, {box.XMax(), box.YMax()}, {box.XMax(), box.YMin()}});
  corners.SetSpatialReference(from);
  // Data that fills its projection's domain has corners that lie nowhere. The extent only tunes the output's index.
  return MyGeneralOperations::Attempt([&] {
    corners.Project(to);
    return corners.Envelope();
  });
}

}  // namespace

bool CanFrame(const modCreateVertices::ConversionRun& run, const SpatialReferenceRef& input) {
  if (run.kind != modCreateVertices::RunKind::Geographic) return true;
  return Is<const ProjectedCoordinateSystem>(input) || Is<const GeographicCoordinateSystem>(input);
}

OutputFrame FrameOf(const modCreateVertices::ConversionRun& run, const IFeatureClass& input) {
  const SpatialReferenceRef own = input.SpatialReference();
  const SpatialReferenceRef reference = OutputReference(run, own);
  if (reference == own) return {own, input.Extent()};
  return {reference, Projected(input.Extent(), own, reference)};
}

}  // namespace tessarine
