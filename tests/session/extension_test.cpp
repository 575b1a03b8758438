// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "helpers/fake_application.h"
#include "helpers/reported_faults.h"
#include "helpers/test_host.h"
#include "hosts/document/settings_stream.h"
#include "session/clsExtension.h"

namespace tessarine {
namespace {

using testing::FakeApplication;
using testing::TestHost;

const std::vector<Variant> kTwelve = {
    3.0,   R"(C:\data)", R"(C:\data\vertex.shp)", true, true, 180.25, std::int32_t{2}, -170.5, 80.0, 170.5,
    -80.0, "Shapefile",
};

class ExtensionTest : public ::testing::Test {
 protected:
  TestHost host;
  testing::ReportedFaults reported;
  clsExtension extension;

  void Load(std::vector<Variant> values) {
    SettingsStream stream(values);
    extension.Load(stream);
  }
  std::vector<Variant> Saved() {
    std::vector<Variant> values;
    SettingsStream stream(values);
    extension.Save(stream);
    return values;
  }
};

TEST_F(ExtensionTest, TheStreamKeepsTwelveValuesInTheirTypes) {
  Load(kTwelve);
  EXPECT_EQ(extension.DirectoryPath, R"(C:\data)");
  EXPECT_EQ(extension.LongitudeWrapOption, 2);
  EXPECT_EQ(extension.CustomBoundaryNorth, 80.0);
  EXPECT_EQ(extension.CustomBoundarySouth, -80.0);
  EXPECT_EQ(Saved(), kTwelve);
  EXPECT_EQ(extension.ID()->Value, "Tessarine.clsExtension");

  extension = clsExtension();
  const std::vector<Variant> unset = {3.0, "", "", false, false, 0.0, std::int32_t{0}, 0.0, 0.0, 0.0, 0.0, ""};
  EXPECT_EQ(Saved(), unset);
  Load(unset);
  EXPECT_EQ(Saved(), unset);
  EXPECT_TRUE(host.error_reports.empty());
}

TEST_F(ExtensionTest, OtherVersionsAndOtherTypesAreConverted) {
  auto values = kTwelve;
  values[0] = 1.5;
  values[3] = std::int32_t{0};
  values[4] = std::int32_t{-1};
  values[5] = "12.5";
  values[6] = 4.0;
  values[7] = Variant();
  Load(values);
  EXPECT_TRUE(host.error_reports.empty());
  EXPECT_FALSE(extension.ProgressDialogSetExpanded);
  EXPECT_TRUE(extension.ProgressDialogAutoClose);
  EXPECT_EQ(extension.LongitudeShift, 12.5);
  EXPECT_EQ(extension.LongitudeWrapOption, 4);
  EXPECT_EQ(extension.CustomBoundaryWest, 0.0);
  EXPECT_EQ(Saved()[0].AsDouble(), 3.0);
}

TEST_F(ExtensionTest, ShortAndDamagedStreamsKeepWhatWasRead) {
  struct Row {
    const char* name;
    std::size_t length;
    std::size_t damaged;  // the value that is replaced
    Variant by;
  };
  const Row rows[] = {
      {"ends early", 6, 99, {}},
      {"a word for a number", 12, 6, "west"},
      {"a null", 12, 6, Null{}},
      {"too large for 32 bits", 12, 6, 3e9},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    extension = clsExtension();
    extension.DirectoryType = "File Geodatabase";
    auto values = kTwelve;
    values.resize(row.length);
    if (row.damaged < values.size()) values[row.damaged] = row.by;
    host.error_reports.clear();
    Load(values);
    EXPECT_EQ(host.error_reports.size(), 1U);
    EXPECT_EQ(extension.DirectoryPath, R"(C:\data)");
    EXPECT_EQ(extension.LongitudeShift, 180.25);
    EXPECT_EQ(extension.LongitudeWrapOption, 0);
    EXPECT_EQ(extension.DirectoryType, "File Geodatabase");
  }
  host.error_reports.clear();
  Load({});
  ASSERT_EQ(host.error_reports.size(), 1U);
  EXPECT_NE(host.error_reports[0].find("\tIPersistVariant_Load "), std::string::npos);
}

TEST_F(ExtensionTest, TheHostsVersionIsReadAtStartup) {
  struct Row {
    const char* version;  // "": there is no such key
    bool at_least_92;
  };
  const Row rows[] = {
      {"9.2", true},  {"9.3.1", true}, {"10.0", true}, {"9.10", true}, {"10.8.2", true}, {"9.1", false},
      {"8.3", false}, {"9", false},    {"10", false},  {"", false},    {"9.x", false},   {"x.9", false},
  };
  const auto application = std::make_shared<FakeApplication>();
  for (const Row& row : rows) {
    host.registry.real_version = row.version;
    extension.Startup(Variant(application));
    EXPECT_EQ(extension.IsVersion92(), row.at_least_92) << row.version;
  }
  EXPECT_TRUE(host.error_reports.empty());
  EXPECT_EQ(host.registry.asked_key, R"(Software\ESRI\ArcGIS)");
  EXPECT_EQ(host.registry.asked_value, "RealVersion");
  EXPECT_EQ(application->asked_extensions.back(), "{BD6262BC-D9D4-4B93-87E0-E442702D93E6}");

  host.registry.real_version = "9.3";
  extension.Startup(Variant("no application"));
  EXPECT_EQ(host.error_reports.size(), 1U);
  EXPECT_TRUE(extension.IsVersion92()) << "as far as it got";
}

TEST_F(ExtensionTest, VersionTextAndKeys) {
  EXPECT_EQ(ReturnArcGISVersion(), "9.3.1");
  host.registry.real_version.clear();
  EXPECT_EQ(ReturnArcGISVersion(), "Unable to determine ArcGIS Version!");
  EXPECT_EQ(SubKey("A", "B", ""), R"(Software\A\B)");
  EXPECT_EQ(SubKey("A", "B", "9.2"), R"(Software\A\B\9.2)");
}

TEST_F(ExtensionTest, ShutdownReleasesTheObjectsAndKeepsTheSettings) {
  const auto list = std::make_shared<VarArray>();
  extension.SelectedFields = extension.GeometryOptions = extension.frmGeoCentricReturn = list;
  extension.frmBoundaryWrapReturn = extension.frmLayerFieldsReturn = list;
  extension.SelectedLayer = extension.SelectedPointLayer = std::make_shared<testing::TestFeatureLayer>();
  const std::weak_ptr<IFeatureLayer> layer = extension.SelectedLayer;
  extension.DirectoryPath = R"(C:\data)";
  extension.Shutdown();
  EXPECT_EQ(list.use_count(), 1);
  EXPECT_TRUE(layer.expired());
  EXPECT_EQ(extension.DirectoryPath, R"(C:\data)");
}

}  // namespace
}  // namespace tessarine
