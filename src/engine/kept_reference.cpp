// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/kept_reference.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <numbers>
#include <optional>

#include "engine/copy_target.h"
#include "engine/engine_fault.h"
#include "engine/target_reference.h"
#include "outputs/foretold_reference.h"
#include "outputs/scratch_folder.h"
#include "outputs/shown_places.h"
#include "outputs/way_out.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

using Way = std::unique_ptr<OGRCoordinateTransformation, CoordinateWayRelease>;

constexpr double kDegree = std::numbers::pi / 180.0;

struct Place {
  double x = 0.0, y = 0.0;
};

OgrReference EastFirst(const OGRSpatialReference& reference) {
  OgrReference own(reference.Clone());
  own->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  if (own->IsCompound() != 0) own->StripVertical();
  return own;
}

// " 'ETRS89'", or words for one that has no name of its own.
std::string ShownName(const OGRSpatialReference& reference, const char* nameless_words) {
  const char* name = reference.GetName();
  const bool nameless =
      name == nullptr || *name == '\0' || EqualsIgnoringCase(name, "unknown") || EqualsIgnoringCase(name, "unnamed");
  return nameless ? nameless_words : " '" + std::string(name) + "'";
}

// Degrees on the datum of the reference, from Greenwich.
class OwnDegrees {
 public:
  explicit OwnDegrees(const OGRSpatialReference& reference)
      : base_(reference.CloneGeogCS()), major_(reference.GetSemiMajor()), minor_(reference.GetSemiMinor()) {
    if (!base_) return;
    meridian_ = base_->GetPrimeMeridian();
    base_->SetAngularUnits(SRS_UA_DEGREE, kDegree);
    base_->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    way_.reset(OGRCreateCoordinateTransformation(&reference, base_.get()));
  }
  [[nodiscard]] std::optional<Place> Of(Place place) const {
    int ok = 0;
    if (!way_) return std::nullopt;
    way_->Transform(1, &place.x, &place.y, nullptr, &ok);
    if (ok == 0 || !std::isfinite(place.x + place.y)) return std::nullopt;
    return Place{place.x + meridian_, place.y};
  }
  [[nodiscard]] double Major() const { return major_; }
  [[nodiscard]] bool SameBody(const OwnDegrees& other) const {
    constexpr double kSame = 1e-8;
    return std::fabs(major_ - other.major_) <= kSame * major_ && std::fabs(minor_ - other.minor_) <= kSame * minor_;
  }

 private:
  OgrReference base_;
  double major_, minor_, meridian_ = 0.0;
  Way way_;
};

double MetresBetween(const Place& first, const Place& second, double radius) {
  const double turn = std::remainder(second.x - first.x, 360.0) * kDegree;
  return radius * std::hypot(turn * std::cos(first.y * kDegree), (second.y - first.y) * kDegree);
}

// Where the shapes lie, or where the reference is made for.
std::vector<Place> PlacesOf(const OGRSpatialReference& reference, const Envelope& extent) {
  std::array<double, 4> side = {extent.XMin(), extent.YMin(), extent.XMax(), extent.YMax()};
  bool known = !extent.IsEmpty();
  const OgrReference degrees(reference.CloneGeogCS());
  double west = 0.0, south = 0.0, east = 0.0, north = 0.0;
  constexpr double kUnknown = -1000.0;
  if (!known && degrees && reference.GetAreaOfUse(&west, &south, &east, &north, nullptr) && west != kUnknown) {
    degrees->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    const Way way(OGRCreateCoordinateTransformation(degrees.get(), &reference));
    constexpr int kBetweenCorners = 21;
    known = way && way->TransformBounds(west, south, east, north, &side[0], &side[1], &side[2], &side[3],
                                        kBetweenCorners) != 0;
  }
  if (!known) {
    return {{reference.GetProjParm(SRS_PP_FALSE_EASTING, 0.0), reference.GetProjParm(SRS_PP_FALSE_NORTHING, 0.0)},
            {10.0, 50.0}};
  }
  std::vector<Place> places;
  for (const double across : {0.01, 0.5, 0.99}) {
    for (const double up : {0.01, 0.5, 0.99}) {
      places.push_back({side[0] + across * (side[2] - side[0]), side[1] + up * (side[3] - side[1])});
    }
  }
  return places;
}

// How far a reader finds the places from where they were meant: metres; empty where he finds one of them nowhere.
std::optional<double> MetresElsewhere(const OGRSpatialReference& meant, const OGRSpatialReference& read,
                                      const std::vector<Place>& places) {
  constexpr double kWithinDatum = 0.01, kBetweenDatums = 0.1;
  const OwnDegrees first(meant), second(read);
  const OgrReference wgs84 = Wgs84();
  const Way first_way(OGRCreateCoordinateTransformation(&meant, wgs84.get()));
  const Way second_way(OGRCreateCoordinateTransformation(&read, wgs84.get()));
  double farthest = 0.0;
  for (const Place& place : places) {
    const std::optional<Place> a = first.Of(place), b = second.Of(place);
    if (!a) continue;
    if (!b) return std::nullopt;
    if (const double metres = MetresBetween(*a, *b, first.Major()); metres > kWithinDatum) {
      farthest = std::max(farthest, metres);
    }
    Place there = place, here = place;
    int there_ok = 0, here_ok = 0;
    if (!first_way || !second_way) continue;
    first_way->Transform(1, &there.x, &there.y, nullptr, &there_ok);
    second_way->Transform(1, &here.x, &here.y, nullptr, &here_ok);
    if (there_ok == 0 || here_ok == 0) continue;
    if (const double metres = MetresBetween(there, here, first.Major()); metres > kBetweenDatums) {
      farthest = std::max(farthest, metres);
    }
  }
  return farthest;
}

std::string Rounded(double metres) {
  const double step = std::pow(10.0, std::floor(std::log10(std::max(metres, 0.1))) - 1.0);
  return NumberText(std::round(metres / step) * step);
}

// The reference that a file of one layer holds.
OgrReference ReadBack(const fs::path& path) {
  const DatasetHandle dataset = OpenDatasetAt(path.string());
  const OGRLayer* layer = dataset->GetLayerCount() > 0 ? dataset->GetLayer(0) : nullptr;
  const OGRSpatialReference* read = layer == nullptr ? nullptr : const_cast<OGRLayer*>(layer)->GetSpatialRef();
  return OgrReference(read == nullptr ? nullptr : read->Clone());
}

// What a register has for a reference of the wording of `searched`, and that means the same places as `meant`; null for
// none.
OgrReference MatchOf(const OGRSpatialReference& searched, const OGRSpatialReference& meant, const Envelope& extent) {
  int count = 0;
  int* sureness = nullptr;
  OGRSpatialReferenceH* found = searched.FindMatches(nullptr, &count, &sureness);
  OgrReference coded;
  for (int index = 0; index < count && !coded; ++index) {
    const auto& match = *OGRSpatialReference::FromHandle(found[index]);
    if (match.GetAuthorityCode(nullptr) == nullptr || !ReferenceLoss(&meant, &match, extent).empty()) continue;
    coded.reset(match.Clone());
    coded->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  }
  OSRFreeSRSArray(found);
  CPLFree(sureness);
  return coded;
}

// The same by its parameters, without names and codes; null where they don't tell it.
OgrReference Nameless(const OGRSpatialReference& reference) {
  char* text = nullptr;
  OgrReference nameless(new OGRSpatialReference());
  const bool told = reference.exportToProj4(&text) == OGRERR_NONE && nameless->importFromProj4(text) == OGRERR_NONE;
  CPLFree(text);
  nameless->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  return told ? std::move(nameless) : nullptr;
}

// A class with one point in it: some formats keep the reference with their shapes.
void WriteOne(const Format& format, const fs::path& path, const OGRSpatialReference& reference,
              const Envelope& extent) {
  const DatasetHandle dataset = OpenTarget(format, path, path);
  OGRLayer* layer = CreateTargetLayer(*dataset, "try", &reference, wkbPoint, LayerOptions(format), path);
  OGRFieldDefn number("number", OFTInteger);
  const bool has_field = layer->CreateField(&number) == OGRERR_NONE;
  OGRFeature row(layer->GetLayerDefn());
  if (has_field && row.GetFieldCount() > 0) row.SetField(0, 1);
  const std::vector<Place> places = PlacesOf(reference, extent);
  const Place& place = places[places.size() / 2];
  row.SetGeometryDirectly(new OGRPoint(place.x, place.y));
  if (layer->CreateFeature(&row) != OGRERR_NONE) RaiseEngineFault("A file can't be tried out.");
}

}  // namespace

std::string ReferenceLoss(const OGRSpatialReference* meant, const OGRSpatialReference* read, const Envelope& extent) {
  if (meant == nullptr || meant->IsEmpty()) return "";
  const GdalErrorScope quiet;
  const std::string subject = "The spatial reference" + ShownName(*meant, "");
  if (read == nullptr || read->IsEmpty()) return subject + " is left out: the format has no words for it.";
  const OgrReference own = EastFirst(*meant), other = EastFirst(*read);
  if (AreEquivalent(*own, *other)) return "";
  const bool same_kind = own->IsProjected() == other->IsProjected() && own->IsGeographic() == other->IsGeographic();
  const OwnDegrees first(*own), second(*other);
  const std::string as = " isn't kept, the format has no words for it: readers take the file's for" +
                         ShownName(*other, " one without a name");
  if (!first.SameBody(second)) return subject + as + ", of another body or ellipsoid.";
  const auto metres = same_kind ? MetresElsewhere(*own, *other, PlacesOf(*own, extent)) : std::nullopt;
  if (!metres) return subject + as + ", where the shapes lie elsewhere.";
  return *metres == 0.0 ? "" : subject + as + ", where the shapes lie elsewhere by up to " + Rounded(*metres) + " m.";
}

OgrReference WordedFor(const Format& format, const OGRSpatialReference* reference, const Envelope& extent) {
  if (reference == nullptr) return nullptr;
  OgrReference own(reference->Clone());
  const GdalErrorScope quiet;
  const char* authority = own->GetAuthorityName(nullptr);
  if (format.degrees_by_rule && authority == nullptr && !own->IsEmpty()) {
    OgrReference coded = MatchOf(*own, *own, extent);
    const OgrReference nameless = coded ? nullptr : Nameless(*own);
    if (nameless) coded = MatchOf(*nameless, *own, extent);
    return coded ? std::move(coded) : std::move(own);
  }
  const bool foreign = authority != nullptr && !EqualsIgnoringCase(authority, "EPSG");
  if (format.epsg_degrees_alone && foreign && own->IsGeographic() != 0) {
    if (OgrReference nameless = Nameless(*own)) return nameless;
  }
  return own;
}

void KeepBesideShapefile(const fs::path& shapefile, const OGRSpatialReference* reference, const Envelope& extent) {
  if (reference == nullptr || reference->IsEmpty()) return;
  if (ReferenceLoss(reference, ReadBack(shapefile).get(), extent).empty()) return;
  const std::string text = WellKnownText(*reference, WktForm::Gdal);
  OgrReference kept(new OGRSpatialReference());
  const GdalErrorScope quiet;
  if (text.empty() || kept->importFromWkt(text.c_str()) != OGRERR_NONE) return;
  if (!ReferenceLoss(reference, kept.get(), extent).empty()) return;
  const fs::path beside = fs::path(shapefile).replace_extension(".prj");
  std::ofstream file(beside, std::ios::trunc);
  file << text;
  file.close();
  if (file) return;
  RaiseEngineFault(
      WithShownPlaces("The reference can't be written to '" + beside.string() + "'" + WayOut(beside.string(), "")));
}

std::vector<std::string> TryReference(const Format& format, const OGRSpatialReference* reference,
                                      const Envelope& extent) {
  const bool tells_itself = format.degrees || format.without_reference || format.server || format.driver.empty();
  if (tells_itself || reference == nullptr || reference->IsEmpty()) return {};
  const GdalErrorScope quiet;
  const ScratchFolder scratch("try");
  const fs::path path = scratch.Path() / ("try" + std::string(format.ending));
  try {
    WriteOne(format, path, *WordedFor(format, reference, extent), extent);
    if (format.reference_beside) KeepBesideShapefile(path, reference, extent);
    const OgrReference read = ReadBack(path);
    if (std::string loss = ReferenceLoss(reference, read.get(), extent); !loss.empty()) return {std::move(loss)};
    if (format.degrees_by_rule && !ReferenceLoss(reference, Wgs84().get(), extent).empty()) {
      return {"The spatial reference" + ShownName(*reference, "") +
              " is named in the file: programs that go by today's rule of the format (RFC 7946) take its coordinates "
              "for longitudes and "
              "latitudes on WGS 84."};
    }
  } catch (const Fault&) {
    // Whoever makes the file itself tells why it can't be made.
  }
  return {};
}

}  // namespace tessarine::engine

std::vector<std::string> tessarine::ForetoldOfReference(const Format& format, const SpatialReferenceRef& reference,
                                                        const Envelope& extent) {
  if (!reference || reference->Wkt().empty()) return {};
  return engine::TryReference(format, engine::OgrFromReference(*reference).get(), extent);
}
