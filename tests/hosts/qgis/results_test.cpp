// SPDX-License-Identifier: GPL-2.0-or-later
// What layers of results are given, the rows that conditions name, and the panel of reports.
#include <gmock/gmock.h>
#include <qgslayermetadata.h>
#include <qgsmarkersymbol.h>
#include <qgspallabeling.h>
#include <qgsproject.h>
#include <qgssinglesymbolrenderer.h>
#include <qgsvectordataprovider.h>
#include <qgsvectorfilewriter.h>
#include <qgsvectorlayer.h>
#include <qgsvectorlayerlabeling.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>

#include "helpers/temporary_folder.h"
#include "hosts/qgis/results/layer_words.h"
#include "hosts/qgis/results/report_dock.h"
#include "hosts/qgis/results/result_layer.h"
#include "hosts/qgis/results/result_style.h"
#include "hosts/windows/qt_text.h"
#include "platform/rich_text.h"

namespace tessarine::testing {
namespace {

using namespace qgis;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

using LayerPtr = std::unique_ptr<QgsVectorLayer>;

LayerPtr InMemory(const QString& kind,
                  const QString& fields = QStringLiteral("field=label:string&field=Sph_Len:double")) {
  return std::make_unique<QgsVectorLayer>(kind + QStringLiteral("?crs=EPSG:4326&") + fields, QStringLiteral("made"),
                                          QStringLiteral("memory"));
}

// The layer's rows 1 to 3 in a file of the format that the ending names.
LayerPtr InFile(const TemporaryFolder& folder, const QString& name) {
  const LayerPtr memory = InMemory(QStringLiteral("Point"));
  QgsFeatureList rows;
  for (int x = 1; x <= 3; ++x) {
    QgsFeature row(memory->fields());
    row.setGeometry(QgsGeometry::fromPointXY(QgsPointXY(x, x)));
    row.setAttribute(0, QStringLiteral("row %1").arg(x));
    rows << row;
  }
  memory->dataProvider()->addFeatures(rows);
  const QString path = ToQt(folder.Native(FromQt(name)));
  QgsVectorFileWriter::SaveVectorOptions options;
  options.driverName = QgsVectorFileWriter::driverForExtension(name.section('.', -1));
  options.layerName = QStringLiteral("points");
  QgsVectorFileWriter::writeAsVectorFormatV3(memory.get(), path, QgsProject::instance()->transformContext(), options);
  return std::make_unique<QgsVectorLayer>(path, QStringLiteral("shown"), QStringLiteral("ogr"));
}

QColor ColorOf(const QgsVectorLayer& layer) {
  return dynamic_cast<const QgsSingleSymbolRenderer&>(*layer.renderer()).symbol()->color();
}

struct StyleRow {
  const char* what;
  const char* shape;
  ToolResult kind;
  std::vector<std::string> carried;
  const char* fields;
  const char* label;  // the field; nothing for no labels
};

TEST(ResultStyle, FollowsTheKindOfResult) {
  const StyleRow rows[] = {
      {"vertices", "Point", ToolResult::Vertices, {"label"}, "field=label:string", nullptr},
      {"centres with a chosen text",
       "Point",
       ToolResult::Centers,
       {"n", "kind"},
       "field=n:integer&field=kind:string",
       "kind"},
      {"centres with a name", "Point", ToolResult::Centers, {}, "field=kind:string&field=name:string", "name"},
      {"centres without a text", "Point", ToolResult::Centers, {"n"}, "field=n:integer", nullptr},
      {"outlines", "LineString", ToolResult::Outlines, {"kind"}, "field=kind:string", "kind"},
      {"regions", "Polygon", ToolResult::Regions, {"kind"}, "field=kind:string", "kind"},
      {"moved points", "Point", ToolResult::Moved, {}, "field=kind:string", nullptr},
  };
  for (const StyleRow& row : rows) {
    SCOPED_TRACE(row.what);
    const LayerPtr first = InMemory(QString::fromLatin1(row.shape), QString::fromLatin1(row.fields));
    const LayerPtr second = InMemory(QString::fromLatin1(row.shape), QString::fromLatin1(row.fields));
    StyleResult(*first, row.kind, row.carried);
    StyleResult(*second, row.kind, row.carried);
    EXPECT_EQ(ColorOf(*first), ColorOf(*second));  // which the program would choose by chance
    ASSERT_EQ(first->labelsEnabled(), row.label != nullptr);
    if (row.label == nullptr) continue;
    EXPECT_EQ(first->labeling()->settings().fieldName, QString::fromLatin1(row.label));
  }
}

TEST(ResultStyle, FeaturesOfTheSourceAreLeftToTheProgram) {
  const LayerPtr layer = InMemory(QStringLiteral("Point"));
  const QColor before = ColorOf(*layer);
  StyleResult(*layer, ToolResult::Features, {"label"});
  EXPECT_EQ(ColorOf(*layer), before);
  EXPECT_FALSE(layer->labelsEnabled());
}

TEST(ResultStyle, AStyleOfOnesOwnStays) {
  const TemporaryFolder folder;
  const LayerPtr chosen = InMemory(QStringLiteral("Point"));
  chosen->setRenderer(new QgsSingleSymbolRenderer(QgsMarkerSymbol::createSimple({{"size", "5"}, {"color", "red"}})));
  StyleResult(*chosen, ToolResult::Centers, {});
  EXPECT_EQ(ColorOf(*chosen), QColor(Qt::red));

  for (const char* file : {"beside.shp", "within.gpkg"}) {
    SCOPED_TRACE(file);
    LayerPtr layer = InFile(folder, QString::fromLatin1(file));
    QgsSymbol* symbol = dynamic_cast<QgsSingleSymbolRenderer&>(*layer->renderer()).symbol()->clone();
    symbol->setColor(Qt::green);
    layer->setRenderer(new QgsSingleSymbolRenderer(symbol));
    if (QByteArray(file).endsWith("gpkg")) {
      QString error;
      layer->saveStyleToDatabase(QStringLiteral("own"), QString(), true, QString(), error);
      ASSERT_TRUE(error.isEmpty()) << FromQt(error);
    } else {
      bool saved = false;
      layer->saveDefaultStyle(saved);
      ASSERT_TRUE(saved);
    }
    layer = std::make_unique<QgsVectorLayer>(layer->source(), QStringLiteral("again"), QStringLiteral("ogr"));
    ASSERT_EQ(ColorOf(*layer), QColor(Qt::green));
    StyleResult(*layer, ToolResult::Centers, {"label"});
    EXPECT_EQ(ColorOf(*layer), QColor(Qt::green));
    EXPECT_FALSE(layer->labelsEnabled());
  }
}

TEST(ResultFields, AnAliasOfOnesOwnStaysAndThatOfAnEarlierRunGoes) {
  const LayerPtr layer = InMemory(QStringLiteral("LineString"));
  NameFields(*layer, {{"sph_len", "Length (metres, WGS 84)"}, {"gone", "Nothing"}});
  EXPECT_EQ(FromQt(layer->attributeAlias(1)), "Length (metres, WGS 84)");
  EXPECT_EQ(FromQt(layer->attributeAlias(0)), "");
  NameFields(*layer, {{"Sph_Len", "Length (metres, Mars 2000)"}});
  EXPECT_EQ(FromQt(layer->attributeAlias(1)), "Length (metres, Mars 2000)");
  layer->setFieldAlias(1, QStringLiteral("mine"));
  NameFields(*layer, {{"Sph_Len", "Length (metres, Moon 2000)"}});
  EXPECT_EQ(FromQt(layer->attributeAlias(1)), "mine");
}

TEST(ResultMetadata, TellWhatTheLayerIsAndKeepWhatIsThere) {
  const LayerPtr layer = InMemory(QStringLiteral("Point"));
  QgsLayerMetadata own;
  own.setTitle(QStringLiteral("My title"));
  own.addHistoryItem(QStringLiteral("drawn by hand"));
  layer->setMetadata(own);
  ResultOrigin origin;
  origin.title = "Shapes to Vertices";
  origin.makes = "A class of points.";
  origin.stamp = {{"TESSARINE_COMMAND", "tessarine vertices a.shp"}, {"TESSARINE_VERSION", "1"}};
  TellOrigin(*layer, origin);
  const QgsLayerMetadata& metadata = layer->metadata();
  EXPECT_EQ(FromQt(metadata.title()), "My title");
  EXPECT_EQ(FromQt(metadata.abstract()), "Shapes to Vertices: A class of points.");
  EXPECT_EQ(FromQt(metadata.crs().authid()), "EPSG:4326");
  EXPECT_EQ(FromQt(metadata.history().join('|')),
            "drawn by hand|TESSARINE_COMMAND=tessarine vertices a.shp|TESSARINE_VERSION=1");
}

TEST(ResultOrigin, NamesFieldsAsTheOutputDoes) {
  RunJournal journal;
  journal.NoteName("Longitude_of_it", "Longitude_");
  journal.spheroid = RunSpheroid{"Mars 2000", 3396190.0, 3376200.0};
  ToolSpec spec{};
  spec.parameters = {ToolParameter{"fields", ParameterKind::Fields, ""}};
  Arguments arguments;
  arguments.Set("fields", std::vector<std::string>{"longitude_of_it", "other"});
  const ResultOrigin origin = OriginOf(
      spec, arguments, {{"Longitude_of_it", "Longitude", "degrees", true}, {"N", "Count", "", false}}, journal, "line");
  EXPECT_THAT(origin.carried, ElementsAre("Longitude_", "other"));
  ASSERT_EQ(origin.aliases.size(), 2U);
  EXPECT_EQ(origin.aliases[0].field + ": " + origin.aliases[0].alias, "Longitude_: Longitude (degrees, Mars 2000)");
  EXPECT_EQ(origin.aliases[1].alias, "Count");
  EXPECT_EQ(origin.stamp.front().value, "line");
}

TEST(LayerWords, RowsAreListedOrRanged) {
  EXPECT_EQ(RowsCondition("FID", {9}), "FID IN (9)");
  EXPECT_EQ(RowsCondition("FID", {9, 3, 4}), "FID IN (3,4,9)");
  EXPECT_EQ(RowsCondition("FID", {5, 6, 7, 8}), "FID BETWEEN 5 AND 8");
  EXPECT_EQ(RowsCondition("FID", {1, 5, 6, 7, 8, 20}), "FID IN (1,20) OR FID BETWEEN 5 AND 8");
}

TEST(LayerWords, TellFilesFiltersAndSelections) {
  const TemporaryFolder folder;
  const LayerPtr package = InFile(folder, QStringLiteral("town.gpkg"));
  package->selectByIds({2, 3});
  LayerWords words = WordsOf(*package, ReadRows::All);
  EXPECT_EQ(words.path, folder.Native("town.gpkg"));
  EXPECT_EQ(words.where + words.why_none, "");
  EXPECT_EQ(WordsOf(*package, ReadRows::Selected).where, "\"fid\" IN (2,3)");
  ASSERT_TRUE(package->setSubsetString(QStringLiteral("\"label\" <> 'row 2'")));
  package->selectByIds({3});
  EXPECT_EQ(WordsOf(*package, ReadRows::All).where, "\"label\" <> 'row 2'");
  EXPECT_EQ(WordsOf(*package, ReadRows::Selected).where, "(\"label\" <> 'row 2') AND (\"fid\" IN (3))");

  const LayerPtr shape = InFile(folder, QStringLiteral("town.shp"));
  shape->selectByIds({0});
  EXPECT_EQ(WordsOf(*shape, ReadRows::Selected).where, "FID IN (0)");
}

TEST(LayerWords, SayWhatNoFileHolds) {
  const TemporaryFolder folder;
  EXPECT_THAT(WordsOf(*InMemory(QStringLiteral("Point")), ReadRows::All).why_none, HasSubstr("lie in no file"));
  const LayerPtr edited = InFile(folder, QStringLiteral("edited.gpkg"));
  ASSERT_TRUE(edited->startEditing());
  EXPECT_EQ(WordsOf(*edited, ReadRows::All).why_none, "");
  edited->deleteFeature(2);
  EXPECT_THAT(WordsOf(*edited, ReadRows::All).why_none, HasSubstr("edits that aren't saved"));
  edited->rollBack();
  edited->setCrs(QgsCoordinateReferenceSystem(QStringLiteral("EPSG:4258")));
  EXPECT_THAT(WordsOf(*edited, ReadRows::All).why_none, HasSubstr("another reference"));
}

PastRun RunOf(const char* tool, const char* line, RunOutcome outcome = RunOutcome::Done) {
  PastRun run;
  run.tool = QString::fromLatin1(tool);
  run.outcome = outcome;
  run.report = PlainTextToRtf(std::string("Report of ") + tool);
  run.line.text = line;
  return run;
}

class ReportPanel : public ::testing::Test {
 protected:
  QString Shown() { return dock.findChild<QTextBrowser*>(QStringLiteral("txtReport"))->toPlainText(); }
  QTableWidget& Table() { return *dock.findChild<QTableWidget*>(QStringLiteral("tblRuns")); }
  QPushButton& Button(const char* name) { return *dock.findChild<QPushButton*>(QLatin1String(name)); }

  RunHistory history;
  ReportDock dock{history, nullptr};
};

TEST_F(ReportPanel, ShowsTheNewestUnlessAnotherIsBeingRead) {
  history.Add(RunOf("one", "tessarine one"));
  history.Add(RunOf("two", "tessarine two"));
  EXPECT_EQ(FromQt(Shown()), "Report of two");
  Table().setCurrentCell(1, 0);
  EXPECT_EQ(FromQt(Shown()), "Report of one");
  history.Add(RunOf("three", ""));
  EXPECT_EQ(FromQt(Shown()), "Report of one");
  EXPECT_EQ(FromQt(Table().item(0, 1)->text()), "three");
  dock.ShowRun(2);
  EXPECT_EQ(FromQt(Shown()), "Report of two");
  Button("cmdCopyCommand").click();
  EXPECT_EQ(FromQt(QApplication::clipboard()->text()), "tessarine two");
  dock.ShowRun(3);
  EXPECT_FALSE(Button("cmdCopyCommand").isEnabled());
  Button("cmdClear").click();
  EXPECT_EQ(Table().rowCount(), 0);
  EXPECT_EQ(FromQt(Shown()), "");
  EXPECT_FALSE(Button("cmdOpenReport").isEnabled());
}

TEST_F(ReportPanel, ShowsLongTextsInLinesButNotInAnyNumber) {
  history.Add(RunOf("short", ""));
  history.Add(RunOf("Features to Spherical Centroids", ""));
  PastRun failed = RunOf("failed", "", RunOutcome::Failed);
  failed.told = QStringLiteral("It failed. ").repeated(100);
  history.Add(failed);
  dock.resize(420, 500);
  dock.show();
  QCoreApplication::processEvents();
  const int line = Table().fontMetrics().lineSpacing();
  EXPECT_LT(Table().rowHeight(0), 6 * line);
  EXPECT_GE(Table().rowHeight(1), 2 * line);
  EXPECT_GT(Table().rowHeight(1), Table().rowHeight(2));
  EXPECT_EQ(Table().horizontalScrollBar()->maximum(), 0);
}

TEST_F(ReportPanel, KeepsTheLastRunsAlone) {
  for (std::size_t run = 0; run < RunHistory::kMost + 2; ++run) history.Add(RunOf("one", ""));
  EXPECT_EQ(history.Runs().size(), RunHistory::kMost);
  EXPECT_EQ(history.Runs().front().number, 3U);
  EXPECT_EQ(Table().rowCount(), static_cast<int>(RunHistory::kMost));
}

TEST(RunHistory, ToldByTheJournal) {
  RunJournal journal;
  journal.written = 1;
  EXPECT_EQ(FromQt(PastRunOf(RunFrom::Menus, "x", journal, "", {}).told), "1 record written");
  journal.NoteFault(Fault(11, "x", "Division by zero"), 7);
  EXPECT_EQ(FromQt(PastRunOf(RunFrom::Menus, "x", journal, "", {}).told), "1 record met a fault; 1 record written");
  journal.stopped = true;
  EXPECT_EQ(FromQt(PastRunOf(RunFrom::Menus, "x", journal, "", {}).told), "Stopped; 1 record written");
  journal.Fail("No space is left.");
  EXPECT_EQ(FromQt(PastRunOf(RunFrom::Menus, "x", journal, "", {}).told), "Failed: No space is left.");
}

}  // namespace
}  // namespace tessarine::testing
