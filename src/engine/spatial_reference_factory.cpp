#include <ogr_srs_api.h>
#include <proj.h>

#include <array>
#include <cmath>

#include "engine/engine_fault.h"
#include "engine/srs_from_gdal.h"

namespace tessarine {
namespace {

using engine::GdalErrorScope;
using engine::OgrReference;

constexpr double kToleranceMetres = 0.001;
constexpr double kDegree = 0.017453292519943295;
// Codes are looked up under these authorities, in this order.
constexpr std::array kAuthorities = {"EPSG", "ESRI", "IAU_2015"};

OgrReference NewOgrReference() {
  OgrReference reference(new OGRSpatialReference());
  reference->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  return reference;
}

std::string NodeName(const OGRSpatialReference& reference, const char* node) {
  const char* value = reference.GetAttrValue(node);
  return value != nullptr ? value : "";
}

std::string WktOf(const OGRSpatialReference& reference) {
  char* text = nullptr;
  const char* const options[] = {"FORMAT=WKT2_2018", nullptr};
  reference.exportToWkt(&text, options);
  std::string wkt = text != nullptr ? text : "";
  CPLFree(text);
  return wkt;
}

std::int32_t CodeOf(const OGRSpatialReference& reference) {
  const char* code = reference.GetAuthorityCode(nullptr);
  return code != nullptr ? std::atoi(code) : 0;
}

std::shared_ptr<const Datum> DatumOf(const OGRSpatialReference& reference) {
  std::string spheroid_name = NodeName(reference, "SPHEROID");
  if (spheroid_name.empty()) spheroid_name = NodeName(reference, "ELLIPSOID");
  auto spheroid =
      std::make_shared<Spheroid>(spheroid_name, reference.GetSemiMajor(nullptr), reference.GetSemiMinor(nullptr));
  return std::make_shared<Datum>(NodeName(reference, "DATUM"), std::move(spheroid));
}

std::shared_ptr<const GeographicCoordinateSystem> GeographicOf(const OGRSpatialReference& reference) {
  const char* unit_name = nullptr;
  const double radians = reference.GetAngularUnits(&unit_name);
  auto datum = DatumOf(reference);
  const double tolerance = kToleranceMetres / datum->Spheroid()->SemiMajorAxis() / radians;
  const char* name = reference.GetName();
  return std::make_shared<GeographicCoordinateSystem>(name != nullptr ? name : "", WktOf(reference),
                                                      CodeOf(reference), tolerance, std::move(datum),
                                                      CoordinateUnit{unit_name != nullptr ? unit_name : "", radians});
}

struct ProjContextRelease {
  void operator()(PJ_CONTEXT* context) const { proj_context_destroy(context); }
};
struct ProjRelease {
  void operator()(PJ* object) const { proj_destroy(object); }
};
using ProjContext = std::unique_ptr<PJ_CONTEXT, ProjContextRelease>;
using ProjObject = std::unique_ptr<PJ, ProjRelease>;

ProjContext QuietContext() {
  ProjContext context(proj_context_create());
  proj_log_level(context.get(), PJ_LOG_NONE);
  return context;
}

std::shared_ptr<const Spheroid> SpheroidOf(PJ_CONTEXT* context, const PJ* ellipsoid) {
  double major = 0.0, minor = 0.0, inverse_flattening = 0.0;
  int computed = 0;
  if (proj_ellipsoid_get_parameters(context, ellipsoid, &major, &minor, &computed, &inverse_flattening) == 0) {
    return nullptr;
  }
  return std::make_shared<Spheroid>(proj_get_name(ellipsoid), major, minor);
}

// An ellipsoid of this code, or the ellipsoid of a reference of this code.
std::shared_ptr<const Spheroid> FindSpheroid(PJ_CONTEXT* context, const char* authority, const std::string& code) {
  ProjObject ellipsoid(
      proj_create_from_database(context, authority, code.c_str(), PJ_CATEGORY_ELLIPSOID, 0, nullptr));
  if (!ellipsoid) {
    const ProjObject crs(proj_create_from_database(context, authority, code.c_str(), PJ_CATEGORY_CRS, 0, nullptr));
    if (crs) ellipsoid.reset(proj_get_ellipsoid(context, crs.get()));
  }
  return ellipsoid ? SpheroidOf(context, ellipsoid.get()) : nullptr;
}

}  // namespace

namespace engine {

SpatialReferenceRef ReferenceFromOgr(const OGRSpatialReference* reference) {
  static const SpatialReferenceRef unknown = std::make_shared<UnknownCoordinateSystem>();
  if (reference == nullptr || reference->IsEmpty() || reference->IsLocal()) return unknown;
  const GdalErrorScope quiet;
  OgrReference own(reference->Clone());
  own->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  // Heights are no part of what the suite works on.
  if (own->IsCompound()) own->StripVertical();
  if (own->IsGeographic()) return GeographicOf(*own);
  if (!own->IsProjected()) return unknown;
  const OgrReference geographic(own->CloneGeogCS());
  geographic->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  const char* unit_name = nullptr;
  const double metres = own->GetLinearUnits(&unit_name);
  const char* name = own->GetName();
  return std::make_shared<ProjectedCoordinateSystem>(
      name != nullptr ? name : "", WktOf(*own), CodeOf(*own), kToleranceMetres / metres, GeographicOf(*geographic),
      CoordinateUnit{unit_name != nullptr ? unit_name : "", metres});
}

OgrReference OgrFromReference(const SpatialReference& reference) {
  if (reference.Wkt().empty()) return nullptr;
  OgrReference own = NewOgrReference();
  const GdalErrorScope errors;
  if (own->importFromWkt(reference.Wkt().c_str()) != OGRERR_NONE) {
    RaiseEngineFault("The spatial reference '" + reference.Name() + "' can't be read" + errors.Quote() + ".");
  }
  return own;
}

}  // namespace engine

bool SpatialReference::IsEqual(const Object& other) const {
  const auto* reference = dynamic_cast<const SpatialReference*>(&other);
  if (reference == nullptr) return false;
  if (reference->wkt_ == wkt_) return true;
  if (wkt_.empty() || reference->wkt_.empty()) return false;
  const GdalErrorScope quiet;
  const OgrReference first = engine::OgrFromReference(*this);
  const OgrReference second = engine::OgrFromReference(*reference);
  const char* const options[] = {"IGNORE_DATA_AXIS_TO_SRS_AXIS_MAPPING=YES", "CRITERION=EQUIVALENT", nullptr};
  return first->IsSame(second.get(), options) != 0;
}

std::shared_ptr<const GeographicCoordinateSystem> SpatialReferenceEnvironment::CreateGeographicCoordinateSystem(
    std::int32_t code) {
  const GdalErrorScope quiet;
  for (const char* authority : kAuthorities) {
    const OgrReference reference = NewOgrReference();
    const std::string name = std::string(authority) + ":" + std::to_string(code);
    if (reference->SetFromUserInput(name.c_str()) == OGRERR_NONE && reference->IsGeographic()) {
      return GeographicOf(*reference);
    }
  }
  Raise(kInvalidCall, "No geographic coordinate system has the code " + std::to_string(code) + ".");
}

std::shared_ptr<const Spheroid> SpatialReferenceEnvironment::CreateSpheroid(std::int32_t code) {
  const ProjContext context = QuietContext();
  for (const char* authority : kAuthorities) {
    if (auto spheroid = FindSpheroid(context.get(), authority, std::to_string(code))) return spheroid;
  }
  Raise(kInvalidCall, "No spheroid has the code " + std::to_string(code) + ".");
}

SpatialReferenceRef SpatialReferenceEnvironment::CreateFromText(std::string_view text) {
  if (text.empty()) return engine::ReferenceFromOgr(nullptr);
  const GdalErrorScope errors;
  const OgrReference reference = NewOgrReference();
  if (reference->SetFromUserInput(std::string(text).c_str()) != OGRERR_NONE) {
    Raise(kInvalidCall, "'" + std::string(text) +
                            "' is no spatial reference: use AUTHORITY:CODE as in EPSG:4326, well-known text or a "
                            "PROJ string.");
  }
  return engine::ReferenceFromOgr(reference.get());
}

}  // namespace tessarine
