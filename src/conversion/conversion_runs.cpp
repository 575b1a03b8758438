// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/conversion_runs.h"

namespace tessarine::modCreateVertices {

ShapeRule RuleFor(const ConversionRun& run, esriGeometryType input) {
  for (const ShapeRule& rule : run.rules) {
    if (rule.input == esriGeometryNull || rule.input == input) return rule;
  }
  return {input, run.kind == RunKind::Joining ? input : esriGeometryNull, {}};
}

std::string_view WhyNever(const ConversionRun& run, esriGeometryType input) {
  if (run.kind == RunKind::Joining && input == esriGeometryPoint) {
    return "Points can't be combined: what they make is a multipoint, which the new class of points can't hold.";
  }
  if (RuleFor(run, input).output != esriGeometryNull) return "";
  return "Features of this kind have no parts to split: choose a layer of multipoints, polylines or polygons.";
}

SpatialReferenceRef OutputReference(const ConversionRun& run, const SpatialReferenceRef& input) {
  if (run.kind != RunKind::Geographic) return input;
  const SpatialReferenceRef geographic = GeographicOf(input);
  return geographic ? geographic : input;
}

}  // namespace tessarine::modCreateVertices
