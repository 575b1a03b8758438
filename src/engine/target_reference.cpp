// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/target_reference.h"

#include <ogr_geometry.h>

#include <cmath>

#include "engine/engine_fault.h"

namespace tessarine::engine {
namespace {

constexpr int kWgs84 = 4326;

OgrReference Wgs84() {
  OgrReference reference(new OGRSpatialReference());
  reference->importFromEPSG(kWgs84);
  reference->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  return reference;
}

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

TargetReference::TargetReference(const Format& format, const OGRSpatialReference* source,
                                 const std::filesystem::path& shown)
    : degrees_(format.degrees) {
  if (source == nullptr) return;
  if (!format.degrees) {
    target_.reset(source->Clone());
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
  const GdalErrorScope errors;
  way_.reset(OGRCreateCoordinateTransformation(own.get(), wgs84.get()));
  if (way_) {
    target_ = std::move(wgs84);
    foretold_ = "Shapes are brought from " + Quoted(*source) +
                " to longitudes and latitudes on WGS 84: the format keeps nothing else.";
    return;
  }
  if (own->IsGeographic() == 0) {
    Raise(kInvalidCall, "'" + shown.string() + "' can't be written: its format keeps longitudes and latitudes alone, " +
                            "and there is no way to them from " + Quoted(*source) + errors.Quote() +
                            ". Name another format.");
  }
  foretold_ = "Longitudes and latitudes are written as they are in " + Quoted(*source) +
              ", which the format has no place for: readers take them for WGS 84.";
}

std::string LossOfReference(std::string_view driver, const OGRSpatialReference* reference) {
  if (reference == nullptr || (driver != "OpenFileGDB" && driver != "ESRI Shapefile")) return "";
  const GdalErrorScope quiet;
  const char* const options[] = {"FORMAT=WKT1_ESRI", nullptr};
  char* text = nullptr;
  const bool told = reference->exportToWkt(&text, options) == OGRERR_NONE && text != nullptr && *text != '\0';
  CPLFree(text);
  return told ? "" : "The spatial reference " + Quoted(*reference) + " is left out: the format has no words for it.";
}

std::unique_ptr<OGRGeometry> TargetReference::Bring(std::unique_ptr<OGRGeometry> shape) const {
  if (!shape || shape->IsEmpty()) return shape;
  const GdalErrorScope quiet;
  shape->assignSpatialReference(nullptr);
  if (way_ && shape->transform(way_.get()) != OGRERR_NONE) return nullptr;
  if (degrees_) {
    OntoTheEdge onto_the_edge;
    shape->accept(&onto_the_edge);
  }
  return shape;
}

}  // namespace tessarine::engine
