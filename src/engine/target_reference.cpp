// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/target_reference.h"

#include <ogr_geometry.h>

#include <cmath>

#include "engine/engine_fault.h"
#include "engine/kept_reference.h"

namespace tessarine::engine {
namespace {

std::string Quoted(const OGRSpatialReference& reference) {
  const char* name = reference.GetName();
  return "'" + std::string(name != nullptr ? name : "") + "'";
}

// A driver of such a format may take what is a rounding beyond 180 degrees for the other edge.
class OntoTheEdge final : public OGRDefaultGeometryVisitor {
 public:
  using OGRDefaultGeometryVisitor::visit;
  void visit(OGRPoint* place) override {
    constexpr double kEdge = 180.0, kRounding = 1e-9;
    const double x = place->getX();
    if (std::fabs(x) > kEdge && std::fabs(x) <= kEdge + kRounding) place->setX(std::copysign(kEdge, x));
  }
};

}  // namespace

TargetReference::TargetReference(const Format& format, const OGRSpatialReference* source, const Envelope& extent,
                                 const std::filesystem::path& shown)
    : degrees_(format.degrees) {
  if (source == nullptr) return;
  if (!format.degrees) {
    target_ = WordedFor(format, source, extent);
    if (format.without_reference) {
      foretold_ = "The spatial reference " + Quoted(*source) + " is left out: the format keeps none.";
    }
    return;
  }
  const OgrReference own(source->Clone());
  own->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  OgrReference wgs84 = Wgs84();
  if (own->IsSame(wgs84.get()) != 0) {
    target_ = std::move(wgs84);
    return;
  }
  std::string problem;
  try {
    way_.emplace(ReferenceFromOgr(own.get()), ReferenceFromOgr(wgs84.get()), extent);
    target_ = std::move(wgs84);
    foretold_ = "Shapes are brought from " + Quoted(*source) + " to longitudes and latitudes on WGS 84" +
                way_->Manner() + ": the format keeps nothing else." + way_->Doubt();
    return;
  } catch (const Fault& fault) {
    problem = fault.Description();
  }
  if (own->IsGeographic() == 0) {
    Raise(kInvalidCall, "'" + shown.string() + "' can't be written: its format keeps longitudes and latitudes alone. " +
                            problem + " Name another format.");
  }
  foretold_ = "Longitudes and latitudes are written as they are in " + Quoted(*source) +
              ", which the format has no place for: readers take them for WGS 84.";
}

std::unique_ptr<OGRGeometry> TargetReference::Bring(std::unique_ptr<OGRGeometry> shape, std::int64_t oid,
                                                    RunJournal& notes) const {
  if (!shape || shape->IsEmpty()) return shape;
  const GdalErrorScope quiet;
  shape->assignSpatialReference(nullptr);
  if (way_ && !BringTo(*way_, shape, oid, notes)) return nullptr;
  if (degrees_) {
    OntoTheEdge onto_the_edge;
    shape->accept(&onto_the_edge);
  }
  return shape;
}

}  // namespace tessarine::engine
