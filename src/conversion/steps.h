// SPDX-License-Identifier: GPL-2.0-or-later
// The steps of the conversion runs, one maker each.
#pragma once

#include <memory>

#include "conversion/conversion_step.h"

namespace tessarine {

/// One point for each vertex of the shape, closing vertices included, in the order of the shape's parts.
[[nodiscard]] std::unique_ptr<ConversionStep> MakeVertexStep(const StepContext& context);
/// A point inside each polygon.
[[nodiscard]] std::unique_ptr<ConversionStep> MakeLabelPointStep(const StepContext& context);
/// The centre of gravity of a polygon, the middle of a polyline's length, the mean of a multipoint's coordinates.
[[nodiscard]] std::unique_ptr<ConversionStep> MakeCentroidStep(const StepContext& context);
/// The same on the curved body, in degrees: the centre of a polygon draped over the sphere of the spheroid's volume,
/// the middle of a polyline of geodesics, the mean of a multipoint in space.
[[nodiscard]] std::unique_ptr<ConversionStep> MakeSphericalCentroidStep(const StepContext& context);
/// A polygon whose rings are the parts of a polyline, closed; rings inside others become holes.
[[nodiscard]] std::unique_ptr<ConversionStep> MakePolygonStep(const StepContext& context);
/// A polyline of a polygon's boundaries, each exterior ring followed by its holes.
[[nodiscard]] std::unique_ptr<ConversionStep> MakePolylineStep(const StepContext& context);
/// One feature for each point, path, or exterior ring with its holes.
[[nodiscard]] std::unique_ptr<ConversionStep> MakeSplitStep(const StepContext& context);
/// One feature for all shapes: their union, or a multipoint of all points.
[[nodiscard]] std::unique_ptr<ConversionStep> MakeJoinStep(const StepContext& context);

}  // namespace tessarine
