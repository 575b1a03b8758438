// SPDX-License-Identifier: GPL-2.0-or-later
// The kinds, containers and places of the browse dialog.
#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSettings>
#include <QTest>
#include <filesystem>

#include "engine/data_source.h"
#include "helpers/published.h"
#include "helpers/temporary_folder.h"
#include "hosts/windows/browse_dialog.h"
#include "outputs/format_workspace.h"
#include "outputs/temporary_layers.h"
#include "support/output_chooser.h"
#include "tests/hosts/windows/windows_fixture.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using namespace MyGeneralOperations;

class BrowseKindsTest : public testing::WindowsTest {
 protected:
  testing::TemporaryFolder folder;

  static std::vector<std::string> Lines(const QWidget& dialog, const char* list_name = "lbxItems") {
    std::vector<std::string> lines;
    const auto* list = dialog.findChild<QListWidget*>(QLatin1String(list_name));
    for (int row = 0; row < list->count(); ++row) lines.push_back(list->item(row)->text().toStdString());
    return lines;
  }
  static QListWidgetItem* Line(const QWidget& dialog, const char* list_name, const char* text) {
    const auto found =
        dialog.findChild<QListWidget*>(QLatin1String(list_name))->findItems(QLatin1String(text), Qt::MatchExactly);
    return found.isEmpty() ? nullptr : found.first();
  }
  static void Double(const QWidget& dialog, const char* text) {
    QListWidgetItem* line = Line(dialog, "lbxItems", text);
    ASSERT_NE(line, nullptr) << text;
    Q_EMIT dialog.findChild<QListWidget*>("lbxItems")->itemActivated(line);
  }
  static QString Named(const QWidget& dialog) { return dialog.findChild<QLineEdit*>("txtName")->text(); }
  static void Type(const QWidget& dialog, const std::string& text) {
    auto* box = dialog.findChild<QLineEdit*>("txtName");
    box->clear();
    QTest::keyClicks(box, ToQt(text));
  }
  static void Pick(const QWidget& dialog, const char* kind) {
    auto* box = dialog.findChild<QComboBox*>("cbxKind");
    const int row = box->findText(QLatin1String(kind));
    ASSERT_GE(row, 0) << kind;
    box->setCurrentIndex(row);
    Q_EMIT box->activated(row);
  }

  /// What the output box makes of the answer: kind, directory and name.
  template <class User>
  std::string Browse(User user, std::string start = "") {
    OutputPlace choice = PlaceIn(kShapefile, start.empty() ? folder.Path() : start, "Output.shp");
    WhenModal([user](QWidget& window) { user(window); });
    if (!BrowseForOutput(choice.Path(), choice)) return "cancelled";
    return DirectoryTypeText(choice.Kind()) + "|" + choice.Directory() + "|" + choice.name;
  }

  void MakeGeoPackage(const char* name) const {
    const auto source = DataSource::Open(TESSARINE_TEST_DATA "/cities.shp")->OpenFeatureClass("");
    const auto workspace = CreateFormatWorkspaceFactory(*FormatOfPath(".gpkg"))->OpenFromFile(folder.Path(name), 0);
    (void)testing::Published(
        workspace->CreateFeatureClass("towns", source->Fields(), nullptr, nullptr, esriFTSimple, "Shape", ""));
  }
};

TEST_F(BrowseKindsTest, TheEndingOfATypedNameIsTheKind) {
  struct Row {
    const char *typed, *kind, *place, *name;
  };
  for (const Row& row :
       {Row{"lakes", "Shapefile", "", "lakes.shp"}, Row{"lakes.SHP", "Shapefile", "", "lakes.SHP"},
        Row{"lakes.geojson", "GeoJSON", "", "lakes.geojson"},
        Row{"lakes.geojsonl", "GeoJSON Lines", "", "lakes.geojsonl"}, Row{"lakes.fgb", "FlatGeobuf", "", "lakes.fgb"},
        Row{"lakes.csv", "Comma Separated Values", "", "lakes.csv"}, Row{"new.gpkg", "GeoPackage", "\\new.gpkg", "new"},
        Row{"new.sqlite", "SpatiaLite", "\\new.sqlite", "new"}, Row{"lakes.gdb", "Shapefile", "", "lakes.gdb.shp"},
        Row{"a.b", "Shapefile", "", "a.b.shp"}}) {
    EXPECT_EQ(Browse([&](QWidget& window) {
                Type(window, row.typed);
                Click(window, "cmdEnter");
              }),
              std::string(row.kind) + "|" + folder.Path() + row.place + "|" + row.name)
        << row.typed;
  }
}

TEST_F(BrowseKindsTest, AKindCanBePickedAndFollowsTheName) {
  EXPECT_EQ(Browse([](QWidget& window) {
              auto* kinds = window.findChild<QComboBox*>("cbxKind");
              EXPECT_TRUE(kinds->isVisible());
              EXPECT_EQ(kinds->itemText(0), "Shapefile (*.shp)");
              EXPECT_EQ(kinds->itemText(1), "GeoPackage (*.gpkg)");
              EXPECT_EQ(kinds->findText("Temporary layer"), -1) << "this host has none";
              Pick(window, "GeoJSON (*.geojson)");
              EXPECT_EQ(Named(window), "Output.geojson");
              Type(window, "lakes.fgb");
              EXPECT_EQ(kinds->currentText(), "FlatGeobuf (*.fgb)");
              Type(window, "lakes");
              Pick(window, "GeoPackage (*.gpkg)");
              Click(window, "cmdEnter");
            }),
            "GeoPackage|" + folder.Path("lakes.gpkg") + "|lakes");
}

TEST_F(BrowseKindsTest, ContainersAndFilesOfAllFormatsAreListed) {
  MakeGeoPackage("store.gpkg");
  for (const char* name : {"a.geojson", "b.fgb", "c.csv", "d.shp", "no_database.db", "notes.txt"}) folder.Write(name);
  EXPECT_EQ(Browse([](QWidget& window) {
              EXPECT_THAT(Lines(window), ElementsAre("store.gpkg", "a.geojson", "b.fgb", "c.csv", "d.shp"));
              EXPECT_EQ(window.findChild<QLabel*>("lblName")->text(), "&Name:");
              Double(window, "store.gpkg");
              EXPECT_THAT(Lines(window), ElementsAre("towns"));
              EXPECT_EQ(window.findChild<QLabel*>("lblName")->text(), "Layer &name:");
              EXPECT_FALSE(window.findChild<QComboBox*>("cbxKind")->isVisible());
              EXPECT_EQ(Named(window), "Output") << "a layer's name has no ending";
              Type(window, "rivers of today");
              Click(window, "cmdEnter");
            }),
            "GeoPackage|" + folder.Path("store.gpkg") + "|rivers of today");
  EXPECT_EQ(Browse([&](QWidget& window) {
              Type(window, folder.Native("store.gpkg") + "/rivers");
              Click(window, "cmdEnter");
            }),
            "GeoPackage|" + folder.Path("store.gpkg") + "|rivers");
}

TEST_F(BrowseKindsTest, LayersOfContainersAndFilesOpen) {
  MakeGeoPackage("store.gpkg");
  folder.Write("a.geojson", R"({"type":"FeatureCollection","features":[{"type":"Feature","properties":{"n":1},)"
                            R"("geometry":{"type":"Point","coordinates":[1,2]}}]})");
  const auto open = [&](const std::string& start, const char* name) {
    const auto dialog = host.CreateGxDialog();
    dialog->AddFilter(GxFilter::FeatureClasses, true);
    dialog->SetStartingLocation(start);
    WhenModal([name](QWidget& window) {
      EXPECT_FALSE(window.findChild<QComboBox*>("cbxKind")->isVisible());
      Type(window, name);
      Click(window, "cmdEnter");
    });
    std::vector<std::shared_ptr<IGxObject>> chosen;
    if (!dialog->DoModalOpen(0, chosen) || chosen.size() != 1) return std::string("nothing");
    const auto features = Cast<IFeatureClass>(Cast<IGxDataset>(chosen.front())->Dataset());
    return chosen.front()->Category() + "|" + chosen.front()->FullName() + "|" +
           std::to_string(features->FeatureCount(nullptr));
  };
  EXPECT_EQ(open(folder.Path("store.gpkg"), "towns"), "GPKG Feature Class|" + folder.Path("store.gpkg") + "\\towns|0");
  EXPECT_EQ(open(folder.Path(), "a.geojson"), "GeoJSON Feature Class|" + folder.Path("a.geojson") + "|1");
}

TEST_F(BrowseKindsTest, ANewGeoPackageIsMadeAndEntered) {
  EXPECT_EQ(Browse([&](QWidget& window) {
              WhenModal([](QWidget& question) {
                auto& input = dynamic_cast<QInputDialog&>(question);
                EXPECT_EQ(input.windowTitle(), "New GeoPackage");
                input.setTextValue("fresh");
                input.accept();
              });
              Click(window, "cmdNewGeoPackage");
              EXPECT_THAT(Lines(window), ElementsAre());
              EXPECT_FALSE(window.findChild<QWidget*>("cmdNewGeoPackage")->isEnabled());
              Click(window, "cmdEnter");
            }),
            "GeoPackage|" + folder.Path("fresh.gpkg") + "|Output");
  // It takes layers as any other.
  MakeGeoPackage("fresh.gpkg");
  EXPECT_EQ(DataSource::Open(folder.Native("fresh.gpkg"))->LayerNames(), std::vector<std::string>{"towns"});
  EXPECT_THROW(CreateGeoPackage(folder.Native("fresh.gpkg")), Fault);
}

TEST_F(BrowseKindsTest, PlacesStandAtTheSideAndAreRemembered) {
  QCoreApplication::setOrganizationName("Tessarine tests");
  QCoreApplication::setApplicationName("browse");
  const QSettings::Format format = QSettings::defaultFormat();
  QSettings::setDefaultFormat(QSettings::IniFormat);
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, ToQt(folder.Native("settings")));
  for (const char* name : {"project", "sub", "gone"}) std::filesystem::create_directory(folder.Native(name));
  const auto enter = [](QWidget& window) { Click(window, "cmdEnter"); };
  (void)Browse(enter, folder.Path("gone"));
  (void)Browse(enter, folder.Path("sub"));
  std::filesystem::remove(folder.Native("gone"));

  WindowGxDialog dialog(host.FormWindows(), folder.Native("project"));
  dialog.AddFilter(GxFilter::FeatureClasses, true);
  dialog.SetStartingLocation(folder.Path());
  dialog.SetName("Output.shp");
  WhenModal([](QWidget& window) {
    const std::vector<std::string> places = Lines(window, "lbxPlaces");
    EXPECT_THAT(places, ElementsAre("Project", "Home", "sub"));
    auto* list = window.findChild<QListWidget*>("lbxPlaces");
    const auto click = [&](const char* place) {
      const QRect row = list->visualItemRect(Line(window, "lbxPlaces", place));
      QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
    };
    click("sub");
    EXPECT_THAT(window.findChild<QComboBox*>("cbxLookIn")->currentText().toStdString(), HasSubstr("/sub"));
    click("Project");
    Click(window, "cmdEnter");
  });
  ASSERT_TRUE(dialog.DoModalSave(0));
  EXPECT_EQ(dialog.FinalLocation()->FullName(), folder.Path("project"));
  QSettings::setDefaultFormat(format);
  QCoreApplication::setOrganizationName("");
  QCoreApplication::setApplicationName("");
}

TEST_F(BrowseKindsTest, LayersInMemoryAreAKindWhereTheHostHasThem) {
  OfferTemporaryLayers([] { return std::shared_ptr<IWorkspaceFactory>(); });
  EXPECT_EQ(Browse([](QWidget& window) {
              auto* kinds = window.findChild<QComboBox*>("cbxKind");
              EXPECT_EQ(kinds->itemText(kinds->count() - 1), "Temporary layer");
              Pick(window, "Temporary layer");
              EXPECT_EQ(Named(window), "Output");
              Click(window, "cmdEnter");
            }),
            "Temporary layer|Temporary layer|Output");
  // Browsing again begins with the kind of before.
  EXPECT_EQ(Browse(
                [](QWidget& window) {
                  EXPECT_EQ(window.findChild<QComboBox*>("cbxKind")->currentText(), "Temporary layer");
                  Type(window, "river/lake");
                  Click(window, "cmdEnter");
                },
                "Temporary layer"),
            "Temporary layer|Temporary layer|river/lake");
  OfferTemporaryLayers(nullptr);
}

}  // namespace
}  // namespace tessarine
