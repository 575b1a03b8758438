// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/reshape.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

#include "geodesy/checked_arithmetic.h"
#include "platform/fault.h"
#include "platform/tell_user.h"
#include "platform/trap.h"

namespace tessarine::MyGeometricOperations {
namespace {

constexpr std::int32_t kFewestPieces = 8;

// A constructed shape is asked for both flags before it is made simple, whatever it returns: `Simplify` goes by what it
// finds itself.
void MakeSimple(ITopologicalOperator& shape) {
  static_cast<void>(shape.IsKnownSimple());
  static_cast<void>(shape.IsSimple());
  shape.Simplify();
}

void AddAsPath(const ISegmentCollection& ring, Polyline& polyline) {
  const auto path = std::make_shared<Path>();
  path->AddSegmentCollection(ring);
  polyline.AddGeometry(path);
}

void AddRingsOfComponent(Polygon& component, Polyline& polyline) {
  MakeSimple(component);
  // A ring that bounds nothing has no line round it.
  if (component.IsEmpty()) return;
  const auto exterior = Cast<Ring>(component.ExteriorRingBag()->Geometry(0));
  AddAsPath(*exterior, polyline);
  if (component.InteriorRingCount(*exterior) <= 0) return;
  const std::shared_ptr<GeometryBag> holes = component.InteriorRingBag(*exterior);
  for (std::int32_t index = 0; index < holes->GeometryCount(); ++index) {
    AddAsPath(*Cast<Ring>(holes->Geometry(index)), polyline);
  }
}

std::int32_t PiecesOf(double length, double total, std::int32_t piece_count) {
  const double pieces = std::floor(geodesy::checked::Divide(length, total) * piece_count);
  if (!(pieces <= std::numeric_limits<std::int32_t>::max())) Raise(kOverflow, "Overflow");
  return std::max(kFewestPieces, static_cast<std::int32_t>(std::max<double>(kFewestPieces, pieces)));
}

void AddPieces(const Segment& curve, std::int32_t pieces, Path& target) {
  Path run;
  run.Reserve(static_cast<std::size_t>(pieces) + 1);
  const double step = 1.0 / pieces;
  XY start = curve.FromPoint();
  for (std::int32_t piece = 1; piece <= pieces; ++piece) {
    const XY end = curve.QueryPoint(esriNoExtension, piece * step, true);
    run.AddSegment(Line{start, end});
    start = end;
  }
  target.AddSegmentCollection(run);
}

// Adds the part's segments to the target, curves in pieces; true when there was a curve.
bool AddStraightened(const Path& part, double total, std::int32_t piece_count, Path& target) {
  bool met_curve = false;
  target.Reserve(part.Vertices().size());
  const std::int32_t count = part.SegmentCount();
  for (std::int32_t index = 0; index < count; ++index) {
    const Segment segment = part.Segment(index);
    if (segment.GeometryType() == esriGeometryLine) {
      target.AddSegment(segment);
      continue;
    }
    met_curve = true;
    AddPieces(segment, PiecesOf(segment.Length(), total, piece_count), target);
  }
  // The last ratio, n times 1 / n, may fall an ulp short of 1, which must not open a closed part.
  if (part.IsClosed() && !target.IsEmpty() && !target.IsClosed()) target.SetToPoint(target.FromPoint());
  return met_curve;
}

// A part of a polyline as a ring, closed with a straight segment.
std::shared_ptr<const Path> ClosedCopy(const Path& part) {
  auto ring = std::make_shared<Ring>();
  ring->AddSegmentCollection(part);
  ring->Close();
  return ring;
}

template <class Target>
std::shared_ptr<Target> Straightened(const GeometryRef& geometry, std::int32_t piece_count) {
  constexpr bool kToPolygon = std::is_same_v<Target, Polygon>;
  using Part = std::conditional_t<kToPolygon, Ring, Path>;

  const auto source = Cast<PartedShape>(Require(geometry, "Geometry"));
  if (!source) Raise(kTypeMismatch, "Type mismatch");
  const SpatialReferenceRef reference = source->SpatialReference();
  const double total = source->Length();
  const auto same_kind = Cast<Target>(source);
  const auto target = std::make_shared<Target>();
  bool met_curve = false;
  for (const std::shared_ptr<Path>& part : source->Parts()) {
    const bool closes = kToPolygon && !same_kind;
    const std::shared_ptr<const Path> input = closes ? ClosedCopy(*part) : part;
    const auto output = std::make_shared<Part>();
    met_curve = AddStraightened(*input, total, piece_count, *output) || met_curve;
    target->AddGeometry(output);
  }
  if (same_kind && !met_curve) {
    same_kind->SetSpatialReference(reference);
    return same_kind;
  }
  MakeSimple(*target);
  target->SetSpatialReference(reference);
  return target;
}

// The trap of the two routines that show their faults in a message box of their own.
template <class Body>
auto ShowFaults(const char* procedure, Body&& body) -> decltype(body()) {
  try {
    return body();
  } catch (...) {
    const Fault fault = CurrentFault();
    const std::string name(procedure);
    TellUser("Failed in " + name + ": \r\nError = " + fault.Description() +
                 "\r\nLine Number = " + std::to_string(fault.Line()),
             name + ":");
    return nullptr;
  }
}

}  // namespace

std::shared_ptr<Polyline> PolygonToPolyline(const std::shared_ptr<Polygon>& polygon) {
  return TrapHelper("PolygonToPolyline", [&] {
    const SpatialReferenceRef reference = Require(polygon, "Polygon")->SpatialReference();
    auto polyline = std::make_shared<Polyline>();
    // Holes without an exterior ring stand after the others in the bag and bound no component.
    const std::int32_t count = polygon->ExteriorRingCount();
    const std::shared_ptr<GeometryBag> components = polygon->ConnectedComponentBag();
    for (std::int32_t index = 0; index < count; ++index) {
      AddRingsOfComponent(*Cast<Polygon>(components->Geometry(index)), *polyline);
    }
    if (count > 0 && polyline->IsEmpty()) Raise(kInvalidCall, "No ring of the polygon bounds an area.");
    MakeSimple(*polyline);
    polyline->SetSpatialReference(reference);
    return polyline;
  });
}

std::shared_ptr<Polygon> CurveToPolygon(const GeometryRef& geometry, std::int32_t piece_count) {
  return ShowFaults("CurveToPolygon", [&] { return Straightened<Polygon>(geometry, piece_count); });
}

std::shared_ptr<Polyline> CurveToPolyline(const GeometryRef& geometry, std::int32_t piece_count) {
  return ShowFaults("CurveToPolyline", [&] { return Straightened<Polyline>(geometry, piece_count); });
}

}  // namespace tessarine::MyGeometricOperations
