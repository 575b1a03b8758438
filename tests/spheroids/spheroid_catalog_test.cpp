// SPDX-License-Identifier: GPL-2.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <map>

#include "helpers/reported_faults.h"
#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"
#include "spheroids/USGS_Functions.h"
#include "spheroids/spheroid_entries.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

std::vector<std::string> Texts(const std::shared_ptr<StrArray>& names) { return {names->begin(), names->end()}; }

class Catalog : public ::testing::Test {
 protected:
  Catalog() { host_.system.program_folder = folder_.Path(); }

  void WriteFile(const std::string& text) const { folder_.Write("spheroids.dat", text); }
  static SpheroidLists Lists() { return SpheroidLists(USGS_Functions::GetSpheroids()); }

  testing::TemporaryFolder folder_;
  testing::TestHost host_;
  testing::ReportedFaults reported_;
};

struct PublishedSpheroid {
  const char* name;
  double major, minor;
  double tolerance;  // metres
};

// Earth: the defining constants of each figure, the other axis by hand; feet after the ratios of their definitions.
// Planets: equatorial and polar radii of the IAU reports of 1979 to 2000.
const PublishedSpheroid kEarth[] = {
    {"WGS 1984", 6378137.0, 6356752.314245179, 1e-6},
    {"GRS 1980", 6378137.0, 6356752.314140347, 1e-4},
    {"WGS 1972", 6378135.0, 6356750.520016, 1e-5},
    {"Airy 1830", 6377563.396, 6356256.909, 1e-3},
    {"Bessel 1841", 6377397.155, 6356078.963, 1e-3},
    {"Clarke 1866", 6378206.4, 6356583.8, 1e-6},
    {"Clarke 1866 Michigan", 20926631.531 * 1200 / 3937, 20855688.674 * 1200 / 3937, 1e-6},
    {"Clarke 1880", 20926202 * 0.3047972654, 20854895 * 0.3047972654, 1e-6},
    {"Clarke 1880 (Intl Foot)", 20926202 * 0.3048, 20854895 * 0.3048, 1e-6},
    {"Clarke 1880 (IGN)", 6378249.2, 6356515.0, 1e-6},
    {"International 1924", 6378388.0, 6356911.946, 1e-3},
    {"Krasovsky 1940", 6378245.0, 6356863.019, 1e-3},
    {"GRS 1967 = International 1967", 6378160.0, 6356774.516, 1e-3},
    {"NWL-10D", 6378135.0, 6356750.520, 1e-3},
    {"Hughes 1980", 6378273.0, 6356889.449, 1e-6},
    {"Authalic sphere", 6371000.0, 6371000.0, 1e-6},
    {"Major auxiliary sphere based upon WGS 1984", 6378137.0, 6378137.0, 1e-6},
};
const PublishedSpheroid kPlanets[] = {
    {"Mercury", 2439700, 2439700, 1e-6},          {"Venus 1985", 6051000, 6051000, 1e-6},
    {"The Moon", 1737400, 1737400, 1e-6},         {"Mars 1979", 3393400, 3375730, 1e-3},
    {"Mars 2000", 3396190, 3376200, 1e-3},        {"Jupiter", 71492000, 66854000, 1e-3},
    {"Jupiter - Europa", 1562090, 1562090, 1e-6}, {"Saturn", 60268000, 54364000, 1e-3},
    {"Saturn - Titan", 2575000, 2575000, 1e-6},   {"Uranus", 25559000, 24973000, 1e-3},
    {"Neptune", 24764000, 24341000, 1e-3},        {"Neptune - Larissa", 104000, 89000, 1e-6},
    {"Pluto - Charon", 593000, 593000, 1e-6},
};

TEST_F(Catalog, AxesAreThePublishedOnes) {
  const SpheroidLists lists = Lists();
  const auto check = [](const SpheroidNames& list, const PublishedSpheroid& published) {
    const SpheroidRow row = list.Row(published.name);
    EXPECT_NEAR(row.SemiMajorAxis(), published.major, published.tolerance) << published.name;
    EXPECT_NEAR(row.SemiMinorAxis(), published.minor, published.tolerance) << published.name;
    EXPECT_EQ(row.Spheroid()->SemiMinorAxis(), row.SemiMinorAxis()) << published.name;
  };
  for (const PublishedSpheroid& published : kEarth) check(lists.Earth(), published);
  for (const PublishedSpheroid& published : kPlanets) check(lists.Planets(), published);
}

// Letters and digits alone, in lower case.
std::string Bare(std::string_view name) {
  std::string bare;
  for (const char letter : name) {
    if (std::isalnum(static_cast<unsigned char>(letter)) != 0) {
      bare += static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    }
  }
  return bare;
}

// What the registry calls the body or figure whose name the table words otherwise.
const std::map<std::string, std::string> kRegistryNames = {
    {"Everest (adjustment 1937)", "Everest 1830 (1937 Adjustment)"},
    {"Everest (definition 1962)", "Everest 1830 (1962 Definition)"},
    {"Everest (definition 1967)", "Everest 1830 (1967 Definition)"},
    {"Everest (definition 1975)", "Everest 1830 (1975 Definition)"},
    {"Everest modified", "Everest 1830 Modified"},
    {"GEM gravity potential model", "GEM 10C"},
    {"GRS 1967 = International 1967", "GRS 1967"},
    {"Krasovsky 1940", "Krassowsky 1940"},
    {"Transit precise ephemeris", "NWL 9D"},
    {"OSU 1986 geoidal model", "OSU86F"},
    {"OSU 1991 geoidal model", "OSU91A"},
    {"Authalic sphere", "Sphere"},
    {"WGS 1972", "WGS 72"},
    {"WGS 1984", "WGS 84"},
    {"Authalic sphere (ARC/INFO)", "Sphere_ARC_INFO"},
    {"PZ 1990", "PZ-90"},
    {"Clarke 1880 (Intl Foot)", "Clarke 1880 (international foot)"},
    {"Authalic sphere based upon Intl 1924", "International 1924 Authalic Sphere"},
    {"Major auxiliary sphere based upon WGS 1984", "WGS_1984_Major_Auxiliary_Sphere"},
};

// The axes come from the registry by the code of the table: a code beside the wrong name takes another body's axes.
TEST_F(Catalog, EveryCodeIsThatOfItsName) {
  const SpheroidLists lists = Lists();
  int count = 0;
  for (const SpheroidNames& list : {lists.Planets(), lists.Earth()}) {
    for (const std::string& name : Texts(list.names)) {
      const std::string registry = list.Row(name).Spheroid()->Name();
      if (const auto other = kRegistryNames.find(name); other != kRegistryNames.end()) {
        EXPECT_EQ(registry, other->second) << name;
      } else {
        const std::size_t planet = name.find(" - ");
        std::string own = planet == std::string::npos ? name : name.substr(planet + 3);
        if (own.starts_with("The ")) own.erase(0, 4);
        EXPECT_THAT(Bare(registry), HasSubstr(Bare(own))) << name;
      }
      ++count;
    }
  }
  EXPECT_EQ(count, 127);
}

TEST_F(Catalog, EveryCodeOfBothTablesIsKnownAndInOrder) {
  const SpheroidLists lists = Lists();
  const std::vector<std::string> planets = Texts(lists.Planets().names), earth = Texts(lists.Earth().names);
  ASSERT_EQ(planets.size(), 71U);
  ASSERT_EQ(earth.size(), 56U);
  EXPECT_EQ(planets.front() + planets[6] + planets.back(), "MercuryMars - DeimosPluto - Charon");
  EXPECT_EQ(earth[2] + earth[3], "Average Terrestrial System 1977Australian National");
  EXPECT_EQ(lists.Planets().rows->Count(), 71);
  EXPECT_EQ(lists.Planets().Row("MARS - phobos").Text(), "esriSRSpheroid_MarsPhobos");
  EXPECT_EQ(lists.Custom().rows, nullptr);
  EXPECT_EQ(lists.Custom().names, nullptr);
  EXPECT_TRUE(host_.error_reports.empty());
}

TEST_F(Catalog, TablesHaveTheirLines) {
  const std::string planets = USGS_Functions::ESRIPlanetString(), earth = USGS_Functions::ESRICommonEarthString();
  EXPECT_THAT(planets, StartsWith("esriSRSpheroid_Mercury 107900 Mercury. \r\n"));
  EXPECT_THAT(planets, HasSubstr("\r\nesriSRSpheroid_Mars2000 107905 Mars 2000. \r\n"));
  EXPECT_THAT(planets, EndsWith("\r\nesriSRSpheroid_PlutoCharon 107970 Pluto - Charon. \r\n"));
  EXPECT_THAT(earth, HasSubstr("\r\nesriSRSpheroid_Clarke1880_IntlFt 7055 Clarke 1880 (Intl Foot) \r\n"));
  EXPECT_THAT(earth, EndsWith(" 107037 Major auxiliary sphere based upon WGS 1984.\r\n"));
}

TEST_F(Catalog, UnknownCodesShortenTheListSilently) {
  const auto entries = USGS_Functions::ReadSpheroidTable(
      "a 7030 WGS 1984. \r\nb 999999 Nowhere. \r\nc 99999999999 Too large. \r\nd 70x Odd. \r\ne 7019 wgs 1984\r\n\r\n");
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0].name, "WGS 1984");
  EXPECT_EQ(entries[1].name, "wgs 1984 (2)");
  EXPECT_TRUE(host_.error_reports.empty());
}

struct CustomFile {
  const char* what;
  const char* text;
  std::vector<std::string> names;
};

TEST_F(Catalog, CustomFileGivesItsValidLinesInOrder) {
  const CustomFile files[] = {
      {"bad lines are passed over",
       "Zeta,2,1,a\r\nthree,1,2\r\nfive,1,2,3,4\r\naxis,abc,1,x\r\nhuge,1e999,1,x\r\n\r\nAlpha,2,1,",
       {"Zeta", "Alpha"}},
      {"line feeds alone", "A,1,1,\nB,1,1,\n", {"A", "B"}},
      {"names are kept as written", " A ,1,1,\n\"B\",1,1,\n", {" A ", "\"B\""}},
      {"equal names", "Moon,1,1,\nMoon,2,2,\nMoon,3,3,\n", {"Moon", "Moon (2)", "Moon (3)"}},
      {"equal but for case", "Moon,1,1,\nMOON,2,2,\n", {"Moon", "MOON (2)"}},
      {"a number that is taken", "Moon (2),1,1,\nMoon,2,2,\nMoon,3,3,\n", {"Moon (2)", "Moon", "Moon (3)"}},
      {"Latin-1", "Na\xEFve,1,1,\n", {"Na\xC3\xAFve"}},
      {"UTF-8 with its mark", "\xEF\xBB\xBFNa\xC3\xAFve,1,1,\n", {"Na\xC3\xAFve"}},
  };
  for (const CustomFile& file : files) {
    WriteFile(file.text);
    EXPECT_EQ(Texts(Lists().Custom().names), file.names) << file.what;
  }
  WriteFile("Disk, 2.5E3 ,-1,note, \nBall,3,4,note\n");
  const SpheroidRow row = Lists().Custom().Row("BALL");
  EXPECT_EQ(row.Name() + "/" + row.Text(), "Ball/note");
  EXPECT_EQ(row.SemiMajorAxis(), 3.0);
  EXPECT_EQ(row.SemiMinorAxis(), 4.0);
  EXPECT_EQ(row.Spheroid(), nullptr);
  EXPECT_TRUE(host_.error_reports.empty());
}

TEST_F(Catalog, AFileWithoutAnySpheroidFailsTheWholeCall) {
  for (const char* text : {"", "\r\n", "Moon,1737400\n"}) {
    WriteFile(text);
    host_.error_reports.clear();
    EXPECT_EQ(USGS_Functions::GetSpheroids(), nullptr) << text;
    EXPECT_THAT(host_.error_reports, ElementsAre(HasSubstr("GetSpheroids "))) << text;
  }
}

TEST_F(Catalog, CodesComeAsText) {
  const SpatialReferenceEnvironment factory;
  EXPECT_EQ(USGS_Functions::SpheroidFromCode(factory, "7004")->SemiMajorAxis(), 6377397.155);
  for (const char* code : {"", "abc", "-1", "999999", "99999999999"}) {
    EXPECT_EQ(USGS_Functions::SpheroidFromCode(factory, code), nullptr) << code;
  }
}

}  // namespace
}  // namespace tessarine
