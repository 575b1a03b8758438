// SPDX-License-Identifier: GPL-2.0-or-later
// Names and codes of the spheroids that the platform knows.
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/trap.h"
#include "spheroids/USGS_Functions.h"

namespace tessarine::USGS_Functions {
namespace {

// The codes run from here in steps of one, in the order of the names. A constant's name is the display name without
// blanks and hyphens.
constexpr std::int32_t kFirstPlanetCode = 107900;
constexpr std::string_view kPlanets[] = {
    "Mercury",
    "Venus 1985",
    "Venus 2000",
    "The Moon",
    "Mars 1979",
    "Mars 2000",
    "Mars - Deimos",
    "Mars - Phobos",
    "Jupiter",
    "Jupiter - Adrastea",
    "Jupiter - Amalthea",
    "Jupiter - Ananke",
    "Jupiter - Callisto",
    "Jupiter - Carme",
    "Jupiter - Elara",
    "Jupiter - Europa",
    "Jupiter - Ganymede",
    "Jupiter - Himalia",
    "Jupiter - Io",
    "Jupiter - Leda",
    "Jupiter - Lysithea",
    "Jupiter - Metis",
    "Jupiter - Pasiphae",
    "Jupiter - Sinope",
    "Jupiter - Thebe",
    "Saturn",
    "Saturn - Atlas",
    "Saturn - Calypso",
    "Saturn - Dione",
    "Saturn - Enceladus",
    "Saturn - Epimetheus",
    "Saturn - Helene",
    "Saturn - Hyperion",
    "Saturn - Iapetus",
    "Saturn - Janus",
    "Saturn - Mimas",
    "Saturn - Pan",
    "Saturn - Pandora",
    "Saturn - Phoebe",
    "Saturn - Prometheus",
    "Saturn - Rhea",
    "Saturn - Telesto",
    "Saturn - Tethys",
    "Saturn - Titan",
    "Uranus",
    "Uranus - Ariel",
    "Uranus - Belinda",
    "Uranus - Bianca",
    "Uranus - Cordelia",
    "Uranus - Cressida",
    "Uranus - Desdemona",
    "Uranus - Juliet",
    "Uranus - Miranda",
    "Uranus - Oberon",
    "Uranus - Ophelia",
    "Uranus - Portia",
    "Uranus - Puck",
    "Uranus - Rosalind",
    "Uranus - Titania",
    "Uranus - Umbriel",
    "Neptune",
    "Neptune - Despina",
    "Neptune - Galatea",
    "Neptune - Larissa",
    "Neptune - Naiad",
    "Neptune - Nereid",
    "Neptune - Proteus",
    "Neptune - Thalassa",
    "Neptune - Triton",
    "Pluto",
    "Pluto - Charon",
};

struct EarthSpheroid {
  std::int32_t code;
  std::string_view display, constant;
};

// The order is that of the list as users know it, neither by code nor quite by name.
constexpr EarthSpheroid kEarth[] = {
    {7001, "Airy 1830", "Airy1830"},
    {7002, "Airy modified", "ModifiedAiry"},
    {7041, "Average Terrestrial System 1977", "ATS1977"},
    {7003, "Australian National", "Australian"},
    {7004, "Bessel 1841", "Bessel1841"},
    {7005, "Bessel modified", "ModifiedBessel"},
    {7006, "Bessel Namibia", "BesselNamibia"},
    {7007, "Clarke 1858", "Clarke1858"},
    {7008, "Clarke 1866", "Clarke1866"},
    {7009, "Clarke 1866 Michigan", "Clarke1866Michigan"},
    {7034, "Clarke 1880", "Clarke1880"},
    {7013, "Clarke 1880 (Arc)", "Clarke1880Arc"},
    {7010, "Clarke 1880 (Benoit)", "Clarke1880Benoit"},
    {7011, "Clarke 1880 (IGN)", "Clarke1880IGN"},
    {7012, "Clarke 1880 (RGS)", "Clarke1880RGS"},
    {7014, "Clarke 1880 (SGA)", "Clarke1880SGA"},
    {7042, "Everest 1830", "Everest1830"},
    {7015, "Everest (adjustment 1937)", "Everest1937"},
    {7044, "Everest (definition 1962)", "Everest1962"},
    {7016, "Everest (definition 1967)", "Everest1967"},
    {7045, "Everest (definition 1975)", "Everest1975"},
    {7018, "Everest modified", "ModifiedEverest"},
    {7031, "GEM gravity potential model", "GEM10C"},
    {7036, "GRS 1967 = International 1967", "GRS1967"},
    {7019, "GRS 1980", "GRS1980"},
    {7020, "Helmert 1906", "Helmert1906"},
    {7021, "Indonesian National", "Indonesian"},
    {7022, "International 1924", "International1924"},
    {7023, "International 1967", "International1967"},
    {7024, "Krasovsky 1940", "Krasovsky1940"},
    {7025, "Transit precise ephemeris", "NWL9D"},
    {7032, "OSU 1986 geoidal model", "OSU1986F"},
    {7033, "OSU 1991 geoidal model", "OSU1991A"},
    {7027, "Plessis 1817", "Plessis1817"},
    {7035, "Authalic sphere", "AuthalicSphere"},
    {7028, "Struve 1860", "Struve1860"},
    {7029, "War Office", "WarOffice"},
    {7026, "NWL-10D", "NWL10D"},
    {7043, "WGS 1972", "WGS1972"},
    {7030, "WGS 1984", "WGS1984"},
    {107001, "WGS 1966", "WGS1966"},
    {107002, "Fischer 1960", "Fischer1960"},
    {107003, "Fischer 1968", "Fischer1968"},
    {107004, "Fischer modified", "ModifiedFischer"},
    {7053, "Hough 1960", "Hough1960"},
    {107006, "Everest modified 1969", "ModifiedEverest1969"},
    {107007, "Walbeck", "Walbeck"},
    {107008, "Authalic sphere (ARC/INFO)", "AuthalicSphereArcInfo"},
    {107036, "GRS 1967 Truncated", "GRS1967Truncated"},
    {7052, "Clarke 1866 Authalic Sphere", "Clarke1866AuthalicSphere"},
    {7051, "Danish 1876", "Danish1876"},
    {7054, "PZ 1990", "PZ1990"},
    {7055, "Clarke 1880 (Intl Foot)", "Clarke1880_IntlFt"},
    {7057, "Authalic sphere based upon Intl 1924", "AuthalicSphere_Intl1924"},
    {7058, "Hughes 1980", "Hughes1980"},
    {107037, "Major auxiliary sphere based upon WGS 1984", "MajorAuxiliarySphere_WGS1984"},
};

std::string TableLine(const std::string& constant, std::int32_t code, std::string_view display,
                      std::string_view ending) {
  return "esriSRSpheroid_" + constant + " " + std::to_string(code) + " " + std::string(display) + std::string(ending) +
         "\r\n";
}

std::string WithoutBlanksAndHyphens(std::string_view name) {
  std::string constant(name);
  std::erase_if(constant, [](char c) { return c == ' ' || c == '-'; });
  return constant;
}

// Two lines end unlike the others.
std::string_view EarthEnding(const EarthSpheroid& row) {
  switch (row.code) {
    case 7055:
      return " ";
    case 107037:
      return ".";
    default:
      return ". ";
  }
}

}  // namespace

std::string ESRIPlanetString() {
  return Trap("ESRIPlanetString", [] {
    std::string table;
    std::int32_t code = kFirstPlanetCode;
    for (const std::string_view name : kPlanets) table += TableLine(WithoutBlanksAndHyphens(name), code++, name, ". ");
    return table;
  });
}

std::string ESRICommonEarthString() {
  return Trap("ESRICommonEarthString", [] {
    std::string table;
    for (const EarthSpheroid& row : kEarth) {
      table += TableLine(std::string(row.constant), row.code, row.display, EarthEnding(row));
    }
    return table;
  });
}

}  // namespace tessarine::USGS_Functions
