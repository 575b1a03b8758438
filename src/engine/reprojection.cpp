// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/reprojection.h"

#include <proj.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <vector>

#include "engine/ogr_geometry.h"
#include "engine/projecting.h"
#include "platform/run_stop.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

struct ProjRelease {
  void operator()(PJ_CONTEXT* context) const { proj_context_destroy(context); }
  void operator()(PJ* object) const { proj_destroy(object); }
  void operator()(PJ_OBJ_LIST* list) const { proj_list_destroy(list); }
  void operator()(PJ_OPERATION_FACTORY_CONTEXT* choice) const { proj_operation_factory_context_destroy(choice); }
};
template <class Object>
using ProjOwned = std::unique_ptr<Object, ProjRelease>;

// The transformation that is chosen.
struct Operation {
  std::string name;      // empty where the library doesn't tell one
  std::string pipeline;  // for GDAL; empty leaves the choice to it
  double accuracy = -1.0;
  bool guessed = false;    // the datums are taken for the same
  bool elsewhere = false;  // none is made for where the data lie; this one is the best of all
};

// The extent in degrees on the datum of its reference; empty where that can't be told.
std::optional<Envelope> InDegrees(const SpatialReferenceRef& reference, const Envelope& extent) {
  if (extent.IsEmpty()) return std::nullopt;
  const auto geographic = GeographicOf(reference);
  if (!geographic) return std::nullopt;
  const OgrReference source = OgrFromReference(*reference), degrees = OgrFromReference(*geographic);
  const std::unique_ptr<OGRCoordinateTransformation, CoordinateWayRelease> way(
      OGRCreateCoordinateTransformation(source.get(), degrees.get()));
  constexpr int kBetweenCorners = 21;
  double west = 0.0, south = 0.0, east = 0.0, north = 0.0;
  const bool told = way && way->TransformBounds(extent.XMin(), extent.YMin(), extent.XMax(), extent.YMax(), &west,
                                                &south, &east, &north, kBetweenCorners) != 0;
  if (!told || !std::isfinite(west + south + east + north) || west > east) return std::nullopt;
  return Envelope(std::max(west, -180.0), std::max(south, -90.0), std::min(east, 180.0), std::min(north, 90.0));
}

// The best of those that are made for the area, or of all.
Operation BestWithin(const SpatialReferenceRef& from, const SpatialReferenceRef& to,
                     const std::optional<Envelope>& area) {
  const ProjOwned<PJ_CONTEXT> context(proj_context_create());
  proj_log_level(context.get(), PJ_LOG_NONE);
  const ProjOwned<PJ> source(proj_create(context.get(), from->Wkt().c_str()));
  const ProjOwned<PJ> target(proj_create(context.get(), to->Wkt().c_str()));
  const ProjOwned<PJ_OPERATION_FACTORY_CONTEXT> choice(proj_create_operation_factory_context(context.get(), nullptr));
  if (!source || !target || !choice) return {};
  proj_operation_factory_context_set_spatial_criterion(context.get(), choice.get(),
                                                       PROJ_SPATIAL_CRITERION_PARTIAL_INTERSECTION);
  proj_operation_factory_context_set_grid_availability_use(context.get(), choice.get(),
                                                           PROJ_GRID_AVAILABILITY_DISCARD_OPERATION_IF_MISSING_GRID);
  if (area && area->XMin() <= area->XMax() && area->YMin() <= area->YMax()) {
    proj_operation_factory_context_set_area_of_interest(context.get(), choice.get(), area->XMin(), area->YMin(),
                                                        area->XMax(), area->YMax());
  }
  const ProjOwned<PJ_OBJ_LIST> operations(
      proj_create_operations(context.get(), source.get(), target.get(), choice.get()));
  const int count = operations ? proj_list_get_count(operations.get()) : 0;
  for (int index = 0; index < count; ++index) {
    const ProjOwned<PJ> one(proj_list_get(context.get(), operations.get(), index));
    if (!one || proj_coordoperation_is_instantiable(context.get(), one.get()) == 0) continue;
    const char* pipeline = proj_as_proj_string(context.get(), one.get(), PJ_PROJ_5, nullptr);
    if (pipeline == nullptr) continue;
    const char* name = proj_get_name(one.get());
    return {name != nullptr ? name : "", pipeline, proj_coordoperation_get_accuracy(context.get(), one.get()),
            proj_coordoperation_has_ballpark_transformation(context.get(), one.get()) != 0};
  }
  return {};
}

// Outside of all areas, what is made for one of them is still far better than to take the datums for the same.
Operation BestOperation(const SpatialReferenceRef& from, const SpatialReferenceRef& to, const Envelope& extent) {
  const std::optional<Envelope> area = InDegrees(from, extent);
  Operation within = BestWithin(from, to, area);
  if (!area || (!within.guessed && !within.pipeline.empty())) return within;
  Operation any = BestWithin(from, to, std::nullopt);
  if (any.guessed || any.pipeline.empty()) return within;
  any.elsewhere = true;
  return any;
}

// A reference of a PROJ string has no name of its own.
constexpr std::string_view kNameless = "unknown";

std::string ShownName(const SpatialReference& reference) {
  return reference.Name() == kNameless ? "a reference without a name" : "'" + reference.Name() + "'";
}

std::string MannerOf(const Operation& operation) {
  std::string text;
  if (!operation.name.empty() && operation.name != kNameless) text = " by '" + operation.name + "'";
  if (operation.accuracy > 0.0) text += ", to about " + NumberText(operation.accuracy) + " m";
  return text;
}

std::string DoubtOf(const Operation& operation) {
  if (operation.guessed) {
    return " No transformation between the two datums is known here: they are taken for the same, which may be wrong "
           "by hundreds of metres.";
  }
  return operation.elsewhere ? " That transformation is made for another area than where the data lie: no known one is "
                               "made for theirs."
                             : "";
}

// Lets OGR's shapes take the way that ours take.
class VertexWay final : public OGRCoordinateTransformation {
 public:
  VertexWay(OGRCoordinateTransformation& way, const SpatialReference& from, const SpatialReference& to)
      : way_(way), from_(from), to_(to) {}

  OGRSpatialReference* GetSourceCS() override { return nullptr; }
  OGRSpatialReference* GetTargetCS() override { return nullptr; }
  [[nodiscard]] OGRCoordinateTransformation* Clone() const override { return nullptr; }
  [[nodiscard]] OGRCoordinateTransformation* GetInverse() const override { return nullptr; }
  // No exception may go through the library.
  int Transform(int count, double* x, double* y, double*, double*, int* ok) override {
    const auto size = static_cast<std::size_t>(count);
    std::vector<XY> vertices(size);
    for (std::size_t index = 0; index < size; ++index) vertices[index] = {x[index], y[index]};
    const bool done = UnlessRaised([&] { vertices = ProjectedVertices(vertices, way_, from_, to_); });
    for (std::size_t index = 0; index < size; ++index) {
      x[index] = vertices[index].x;
      y[index] = vertices[index].y;
      if (ok != nullptr) ok[index] = done ? TRUE : FALSE;
    }
    return done ? TRUE : FALSE;
  }
  void RaiseWhatWasRaised() const {
    if (raised_) std::rethrow_exception(raised_);
  }

 private:
  template <class Work>
  bool UnlessRaised(Work&& work) {
    try {
      work();
      return true;
    } catch (...) {
      raised_ = std::current_exception();
      return false;
    }
  }

  OGRCoordinateTransformation& way_;
  const SpatialReference &from_, &to_;
  std::exception_ptr raised_;
};

double SizeOf(const OGRGeometry& shape) {
  OGREnvelope box;
  shape.getEnvelope(&box);
  return std::max(box.MaxX - box.MinX, box.MaxY - box.MinY);
}

// Edges that are shorter than this share of their shape can't be the ones that are torn.
constexpr double kLongEdge = 0.25;
// An edge that bends by more than this share of its length lies elsewhere.
constexpr double kBend = 0.25;

// The lines of a shape, in order.
void CollectLines(const OGRGeometry& shape, std::vector<const OGRSimpleCurve*>& lines) {
  if (const auto* collection = dynamic_cast<const OGRGeometryCollection*>(&shape)) {
    for (const OGRGeometry* part : *collection) CollectLines(*part, lines);
  } else if (const auto* polygon = dynamic_cast<const OGRPolygon*>(&shape)) {
    for (const OGRLinearRing* ring : *polygon) lines.push_back(ring);
  } else if (const auto* surface = dynamic_cast<const OGRPolyhedralSurface*>(&shape)) {
    for (const OGRPolygon* part : *surface) CollectLines(*part, lines);
  } else if (const auto* line = dynamic_cast<const OGRSimpleCurve*>(&shape)) {
    lines.push_back(line);
  }
}

}  // namespace

Reprojection::Reprojection(SpatialReferenceRef from, SpatialReferenceRef to, const Envelope& extent)
    : from_(std::move(from)), to_(std::move(to)) {
  if (!from_ || from_->Wkt().empty()) {
    Raise(kInvalidCall,
          "Data without a known spatial reference can't be brought to another one: declare theirs "
          "first, as with a .prj file.");
  }
  const GdalErrorScope errors;
  const OgrReference source = OgrFromReference(*from_);
  target_ = OgrFromReference(*to_);
  const Operation operation = BestOperation(from_, to_, extent);
  OGRCoordinateTransformationOptions options;
  if (!operation.pipeline.empty()) options.SetCoordinateOperation(operation.pipeline.c_str(), false);
  way_.reset(OGRCreateCoordinateTransformation(source.get(), target_.get(), options));
  if (!way_) {
    Raise(kInvalidCall, "There is no way from '" + from_->Name() + "' to '" + to_->Name() + "'" + errors.Quote() + ".");
  }
  manner_ = MannerOf(operation);
  doubt_ = DoubtOf(operation);
  told_ = "Shapes are brought from " + ShownName(*from_) + " to " + ShownName(*to_) + manner_ +
          "; measured values are those in " + (from_->Name() == kNameless ? "the first" : ShownName(*from_)) + "." +
          doubt_;
}

Reprojection::Outcome Reprojection::Bring(IGeometry& shape) const {
  const std::unique_ptr<OGRGeometry> before = OgrFromShape(shape, false);
  ProjectShape(shape, *way_, *from_, to_);
  const std::unique_ptr<OGRGeometry> after = OgrFromShape(shape, false);
  return before && after && IsTorn(*before, *after) ? Outcome::Torn : Outcome::Brought;
}

Reprojection::Outcome Reprojection::Bring(std::unique_ptr<OGRGeometry>& shape) const {
  if (!shape || shape->IsEmpty()) return Outcome::Brought;
  const GdalErrorScope quiet;
  if (shape->hasCurveGeometry() != 0) shape.reset(shape->getLinearGeometry());
  shape->assignSpatialReference(nullptr);
  const std::unique_ptr<OGRGeometry> before(shape->clone());
  VertexWay way(*way_, *from_, *to_);
  const bool brought = shape->transform(&way) == OGRERR_NONE;
  way.RaiseWhatWasRaised();
  if (!brought) RaiseEngineFault("The shape can't be projected to '" + to_->Name() + "'.");
  shape->assignSpatialReference(nullptr);
  return IsTorn(*before, *shape) ? Outcome::Torn : Outcome::Brought;
}

Envelope Reprojection::Bring(const Envelope& extent) const {
  if (extent.IsEmpty()) return {};
  const GdalErrorScope quiet;
  constexpr int kBetweenCorners = 21;
  std::array<double, 4> side{};
  const bool told = way_->TransformBounds(extent.XMin(), extent.YMin(), extent.XMax(), extent.YMax(), &side[0],
                                          &side[1], &side[2], &side[3], kBetweenCorners) != 0;
  const bool finite = std::ranges::all_of(side, [](double value) { return std::isfinite(value); });
  if (!told || !finite || side[0] > side[2]) return {};
  return {side[0], side[1], side[2], side[3]};
}

bool Reprojection::IsTorn(const OGRGeometry& before, const OGRGeometry& after) const {
  std::vector<const OGRSimpleCurve*> old_lines, new_lines;
  CollectLines(before, old_lines);
  CollectLines(after, new_lines);
  if (old_lines.empty() || old_lines.size() != new_lines.size()) return false;
  const double size_before = SizeOf(before), size_after = SizeOf(after);
  for (std::size_t index = 0; index < old_lines.size(); ++index) {
    if (IsTornLine(*old_lines[index], *new_lines[index], size_before, size_after)) return true;
  }
  return false;
}

// The middle of an edge, brought there, has to lie near the middle of the edge there.
bool Reprojection::IsTornLine(const OGRSimpleCurve& before, const OGRSimpleCurve& after, double size_before,
                              double size_after) const {
  if (before.getNumPoints() != after.getNumPoints()) return false;
  std::vector<double> x, y;
  std::vector<int> edges;
  const auto length = [](const OGRSimpleCurve& line, int edge) {
    return std::hypot(line.getX(edge + 1) - line.getX(edge), line.getY(edge + 1) - line.getY(edge));
  };
  for (int edge = 0; edge + 1 < before.getNumPoints(); ++edge) {
    const bool is_long = length(before, edge) > kLongEdge * size_before || length(after, edge) > kLongEdge * size_after;
    if (!is_long) continue;
    x.push_back((before.getX(edge) + before.getX(edge + 1)) / 2.0);
    y.push_back((before.getY(edge) + before.getY(edge + 1)) / 2.0);
    edges.push_back(edge);
  }
  if (edges.empty()) return false;
  const GdalErrorScope quiet;
  std::vector<int> ok(edges.size(), 0);
  way_->Transform(static_cast<int>(edges.size()), x.data(), y.data(), nullptr, ok.data());
  for (std::size_t index = 0; index < edges.size(); ++index) {
    const int edge = edges[index];
    if (ok[index] == 0) return true;
    const double away = std::hypot(x[index] - (after.getX(edge) + after.getX(edge + 1)) / 2.0,
                                   y[index] - (after.getY(edge) + after.getY(edge + 1)) / 2.0);
    // Of an edge that shrinks to a point its own length says nothing.
    const double kept = std::max(length(after, edge), kLongEdge * size_after);
    if (away > kBend * kept) return true;
  }
  return false;
}

}  // namespace tessarine::engine
