// SPDX-License-Identifier: GPL-2.0-or-later
#include <ogr_srs_api.h>
#include <proj.h>

#include <array>
#include <cmath>

#include "engine/engine_fault.h"
#include "engine/srs_from_gdal.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

using engine::GdalErrorScope;
using engine::OgrReference;

constexpr double kToleranceMetres = 0.001;
constexpr double kDegree = 0.017453292519943295;
constexpr double kSameUnit = 1e-9;  // between the degrees of one text and another
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

// What GDAL makes of a GeoPackage layer that declares degrees of no known body: the axes of WGS 84 under this name.
bool IsUndefined(const OGRSpatialReference& reference) {
  const char* name = reference.GetName();
  return name != nullptr && EqualsIgnoringCase(name, "Undefined geographic SRS");
}

std::string WktOf(const OGRSpatialReference& reference) {
  return engine::WellKnownText(reference, engine::WktForm::Iso);
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

PrimeMeridian PrimeMeridianOf(const OGRSpatialReference& reference) {
  const char* name = nullptr;
  const double longitude = reference.GetPrimeMeridian(&name);
  return {name != nullptr ? name : "", longitude};
}

// The same reference counted in degrees.
OgrReference InDegrees(const OGRSpatialReference& reference) {
  OgrReference degrees(reference.Clone());
  degrees->SetAngularUnits(SRS_UA_DEGREE, kDegree);
  degrees->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  return degrees;
}

bool IsInDegrees(const OGRSpatialReference& reference) {
  return std::fabs(reference.GetAngularUnits(nullptr) / kDegree - 1.0) < kSameUnit;
}

std::shared_ptr<const GeographicCoordinateSystem> GeographicOf(const OGRSpatialReference& reference) {
  std::shared_ptr<const GeographicCoordinateSystem> in_degrees;
  if (!IsInDegrees(reference)) in_degrees = GeographicOf(*InDegrees(reference));
  const char* unit_name = nullptr;
  const double radians = reference.GetAngularUnits(&unit_name);
  auto datum = DatumOf(reference);
  const double tolerance = kToleranceMetres / datum->Spheroid()->SemiMajorAxis() / radians;
  const char* name = reference.GetName();
  return std::make_shared<GeographicCoordinateSystem>(name != nullptr ? name : "", WktOf(reference), CodeOf(reference),
                                                      tolerance, std::move(datum),
                                                      CoordinateUnit{unit_name != nullptr ? unit_name : "", radians},
                                                      PrimeMeridianOf(reference), std::move(in_degrees));
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

// An ellipsoid of this code.
ProjObject FindEllipsoid(PJ_CONTEXT* context, const char* authority, const std::string& code) {
  return ProjObject(proj_create_from_database(context, authority, code.c_str(), PJ_CATEGORY_ELLIPSOID, 0, nullptr));
}

// The ellipsoid of a reference of this code.
ProjObject FindEllipsoidOfReference(PJ_CONTEXT* context, const char* authority, const std::string& code) {
  const ProjObject crs(proj_create_from_database(context, authority, code.c_str(), PJ_CATEGORY_CRS, 0, nullptr));
  return ProjObject(crs ? proj_get_ellipsoid(context, crs.get()) : nullptr);
}

// The reference of a text with its axes longitude or easting first, as the suite keeps coordinates.
ProjObject EastFirst(PJ_CONTEXT* context, const std::string& wkt) {
  ProjObject reference(proj_create(context, wkt.c_str()));
  if (!reference) return nullptr;
  ProjObject turned(proj_normalize_for_visualization(context, reference.get()));
  return turned ? std::move(turned) : std::move(reference);
}

// Names that the registry knows for the same thing don't count, nor does the order in which a text gives the axes.
bool AreEquivalent(const std::string& first, const std::string& second) {
  thread_local const ProjContext context = QuietContext();
  const ProjObject a = EastFirst(context.get(), first), b = EastFirst(context.get(), second);
  return a && b && proj_is_equivalent_to_with_ctx(context.get(), a.get(), b.get(), PJ_COMP_EQUIVALENT) != 0;
}

// The drivers look for a code of a reference that has none, and of a zone of UTM they find one whatever its unit is.
bool IsTakenForAnother(const OGRSpatialReference& reference) {
  if (reference.GetAuthorityCode(nullptr) != nullptr || reference.IsProjected() == 0) return false;
  const OgrReference guessed(reference.Clone());
  if (guessed->AutoIdentifyEPSG() != OGRERR_NONE || guessed->GetAuthorityCode(nullptr) == nullptr) return false;
  const OgrReference declared = NewOgrReference();
  return declared->importFromEPSG(std::atoi(guessed->GetAuthorityCode(nullptr))) != OGRERR_NONE ||
         !engine::AreEquivalent(*declared, reference);
}

// From the older form of the text the drivers take no code for it.
void KeepFromBeingTaken(OGRSpatialReference& reference) {
  const std::string text = engine::WellKnownText(reference, engine::WktForm::Gdal);
  if (!text.empty()) reference.importFromWkt(text.c_str());
}

}  // namespace

namespace engine {

SpatialReferenceRef ReferenceFromOgr(const OGRSpatialReference* reference) {
  static const SpatialReferenceRef unknown = std::make_shared<UnknownCoordinateSystem>();
  if (reference == nullptr || reference->IsEmpty() || reference->IsLocal() || IsUndefined(*reference)) return unknown;
  const GdalErrorScope quiet;
  OgrReference own(reference->Clone());
  own->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  // Heights are no part of what the suite works on.
  if (own->IsCompound()) own->StripVertical();
  if (own->IsGeographic()) return GeographicOf(*own);
  if (!own->IsProjected()) return unknown;
  const OgrReference base(own->CloneGeogCS());
  base->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  const auto geographic = GeographicOf(*base);
  const char* unit_name = nullptr;
  const double metres = own->GetLinearUnits(&unit_name);
  const char* name = own->GetName();
  return std::make_shared<ProjectedCoordinateSystem>(name != nullptr ? name : "", WktOf(*own), CodeOf(*own),
                                                     kToleranceMetres / metres,
                                                     geographic->InDegrees() ? geographic->InDegrees() : geographic,
                                                     CoordinateUnit{unit_name != nullptr ? unit_name : "", metres});
}

OgrReference OgrFromReference(const SpatialReference& reference) {
  if (reference.Wkt().empty()) return nullptr;
  OgrReference own = NewOgrReference();
  const GdalErrorScope errors;
  if (own->importFromWkt(reference.Wkt().c_str()) != OGRERR_NONE) {
    RaiseEngineFault("The spatial reference '" + reference.Name() + "' can't be read" + errors.Quote() + ".");
  }
  if (IsTakenForAnother(*own)) KeepFromBeingTaken(*own);
  return own;
}

}  // namespace engine

bool SpatialReference::IsEqual(const Object& other) const {
  const auto* reference = dynamic_cast<const SpatialReference*>(&other);
  if (reference == nullptr) return false;
  if (reference->wkt_ == wkt_) return true;
  if (wkt_.empty() || reference->wkt_.empty()) return false;
  // Whole layers are compared shape by shape, and reading the texts costs far more than comparing them.
  struct Answer {
    std::string first, second;
    bool equal = false;
  };
  thread_local Answer last;
  if (last.first != wkt_ || last.second != reference->wkt_) {
    last = {wkt_, reference->wkt_, AreEquivalent(wkt_, reference->wkt_)};
  }
  return last.equal;
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
  // Opening the database costs far more than a look into it.
  thread_local const ProjContext context = QuietContext();
  // An authority gives the same number to an ellipsoid and to a reference that has nothing to do with it, so a
  // reference only counts when no authority has an ellipsoid of this code.
  for (const auto find : {FindEllipsoid, FindEllipsoidOfReference}) {
    for (const char* authority : kAuthorities) {
      const ProjObject ellipsoid = find(context.get(), authority, std::to_string(code));
      if (!ellipsoid) continue;
      if (auto spheroid = SpheroidOf(context.get(), ellipsoid.get())) return spheroid;
    }
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
