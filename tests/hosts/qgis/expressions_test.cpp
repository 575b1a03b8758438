// SPDX-License-Identifier: GPL-2.0-or-later
// The suite's functions in expressions. Numbers were computed with GeographicLib by pyproj 3.4.1 (`Geod.inv`,
// `Geod.polygon_area_perimeter`, `Geod.fwd`), UTM coordinates with PROJ 9.1.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <qgsapplication.h>
#include <qgsexpression.h>
#include <qgsexpressioncontextutils.h>
#include <qgsmessagelog.h>
#include <qgsproject.h>
#include <qgsvectorlayer.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <thread>

#include "hosts/qgis/expressions/expression_functions.h"
#include "hosts/qgis/expressions/function_table.h"
#include "hosts/windows/qt_text.h"
#include "platform/trap.h"

namespace tessarine::testing {
namespace {

using ::testing::HasSubstr;

// What BOX and UTM stand for in a text.
const QString kBox = QStringLiteral("geom_from_wkt('POLYGON((10 10, 10 20, 20 20, 20 10, 10 10))')");
const QString kUtm = QStringLiteral(
    "geom_from_wkt('LINESTRING(454373.97299301426 3873157.254474184, 545063.9895682236 3984064.0305223954)')");

class Expressions : public ::testing::Test {
 protected:
  void SetUp() override {
    QgsProject::instance()->clear();
    qgis::AddExpressionFunctions();
  }
  void TearDown() override {
    qgis::RemoveExpressionFunctions();
    QgsProject::instance()->clear();
  }

  // What an expression has around it for a layer of this reference; an empty one is no layer at all.
  static QgsExpressionContext ContextOf(const char* reference) {
    QgsExpressionContext context;
    context << QgsExpressionContextUtils::globalScope()
            << QgsExpressionContextUtils::projectScope(QgsProject::instance());
    if (*reference == '\0') return context;
    const QgsVectorLayer layer(QStringLiteral("Point"), QStringLiteral("fields"), QStringLiteral("memory"));
    QgsVectorLayer& changeable = const_cast<QgsVectorLayer&>(layer);
    changeable.setCrs(QgsCoordinateReferenceSystem(QLatin1String(reference)));
    context << QgsExpressionContextUtils::layerScope(&layer);
    return context;
  }

  struct Answer {
    QVariant value;
    std::string error;
  };
  static Answer Evaluate(const char* text, const char* reference = "EPSG:4326") {
    QgsExpressionContext context = ContextOf(reference);
    QgsExpression expression(
        QString::fromLatin1(text).replace(QStringLiteral("BOX"), kBox).replace(QStringLiteral("UTM"), kUtm));
    EXPECT_FALSE(expression.hasParserError()) << text << ": " << FromQt(expression.parserErrorString());
    expression.prepare(&context);
    const QVariant value = expression.evaluate(&context);
    return {value, FromQt(expression.evalErrorString())};
  }
};

TEST_F(Expressions, Values) {
  struct Row {
    const char* text;
    double expected, tolerance;
    const char* reference = "EPSG:4326";
  };
  const Row rows[] = {
      {"tessarine_length(geom_from_wkt('LINESTRING(0 0, 1 0)'))", 111319.49079327357, 1e-4},
      {"tessarine_length(geom_from_wkt('LINESTRING(10 20, 30 -40)'), 'mars2000')", 3691357.983667404, 1e-3},
      {"tessarine_length(geom_from_wkt('LINESTRING(0 0, 1 0)'), 'ESRI:107905')", 59274.69752330622, 1e-4},
      {"tessarine_length(geom_from_wkt('LINESTRING(0 0, 1 0)'), 107905)", 59274.69752330622, 1e-4},
      {"tessarine_length(geom_from_wkt('LINESTRING(0 0, 1 0)'), 'PARAMETER:3396190:3376200')", 59274.69752330622, 1e-4},
      {"tessarine_length(geom_from_wkt('LINESTRING(0 0, 1 0)'))", 59274.69752330622, 1e-4, "ESRI:104905"},
      {"tessarine_length(geom_from_wkt('LINESTRING(0 0, 1 0)'), NULL)", 111319.49079327357, 1e-4},
      {"tessarine_length(geom_from_wkt('LineStringZ(0 0 5, 1 0 7)'))", 111319.49079327357, 1e-4},
      {"tessarine_length(UTM)", 143321.578181783, 1e-3, "EPSG:32612"},
      {"tessarine_length(UTM, crs:='EPSG:32612')", 143321.578181783, 1e-3},
      {"tessarine_length(BOX)", 4355689.47254797, 1e-3},
      {"tessarine_area(BOX)", 1190968350339.391, 1.0},
      {"tessarine_area(BOX, 'Mars 2000')", 336196109910.16235, 1.0},
      {"tessarine_area(geom_from_wkt('POLYGON((170 10, 170 20, -170 20, -170 10, 170 10))'))", 2396553402237.1167, 1.0},
      {"tessarine_area(geom_from_wkt('POLYGON((0 80, 120 80, -120 80, 0 80))'))", 1634782820860.7188, 1.0},
      {"tessarine_distance(make_point(170, 10), make_point(-170, 20))", 2415318.0182577027, 1e-3},
      {"tessarine_distance(geom_from_wkt('MULTIPOINT((170 10))'), make_point(-170, 20))", 2415318.0182577027, 1e-3},
      {"tessarine_distance(make_point(45, 60), make_point(0, 90))", 3347892.909822211, 1e-3},
      {"tessarine_distance(make_point(0, 0), make_point(179.7, 0.2))", 19975624.276995994, 1e-3},
      {"tessarine_distance(make_point(5, 5), make_point(5, 5))", 0.0, 0.0},
      {"tessarine_azimuth(make_point(170, 10), make_point(-170, 20))", 60.42301753263243, 1e-7},
      {"tessarine_azimuth(make_point(170, 10), make_point(-170, 20), end:='end')", 65.66931330456964, 1e-7},
      {"x(tessarine_midpoint(geom_from_wkt('LINESTRING(170 10, -170 20)')))", 179.76461654173949, 1e-8},
      {"y(tessarine_midpoint(geom_from_wkt('LINESTRING(170 10, -170 20)')))", 15.223124194547218, 1e-8},
  };
  for (const Row& row : rows) {
    const Answer answer = Evaluate(row.text, row.reference);
    EXPECT_EQ(answer.error, "") << row.text;
    ASSERT_TRUE(answer.value.isValid()) << row.text;
    EXPECT_NEAR(answer.value.toDouble(), row.expected, row.tolerance) << row.text;
  }
}

// Without a layer the project decides.
TEST_F(Expressions, WithoutALayer) {
  const char* degree = "tessarine_length(geom_from_wkt('LINESTRING(0 0, 1 0)'))";
  EXPECT_THAT(Evaluate(degree, "").error, HasSubstr("tessarine_length: argument 3 (crs)"));
  QgsProject::instance()->setCrs(QgsCoordinateReferenceSystem(QStringLiteral("EPSG:4326")));
  QgsProject::instance()->setEllipsoid(QStringLiteral("ESRI:107905"));
  EXPECT_NEAR(Evaluate(degree, "").value.toDouble(), 59274.69752330622, 1e-4);
  EXPECT_NEAR(Evaluate(degree, "EPSG:4326").value.toDouble(), 111319.49079327357, 1e-4) << "a layer has its own";
  QgsProject::instance()->setEllipsoid(QStringLiteral("NONE"));
  EXPECT_NEAR(Evaluate(degree, "").value.toDouble(), 111319.49079327357, 1e-4);
}

TEST_F(Expressions, NoShapeGivesNull) {
  for (const char* text :
       {"tessarine_length(NULL)", "tessarine_area(NULL, 'Mars 2000')", "tessarine_midpoint(NULL)",
        "tessarine_length(geom_from_wkt('LineString EMPTY'))", "tessarine_distance(NULL, make_point(1, 2))",
        "tessarine_azimuth(make_point(1, 2), geom_from_wkt('Point EMPTY'))",
        "tessarine_azimuth(make_point(1, 2), make_point(1, 2))",
        "tessarine_azimuth(make_point(-180, 2), make_point(180, 2))"}) {
    const Answer answer = Evaluate(text);
    EXPECT_EQ(answer.error, "") << text;
    EXPECT_TRUE(answer.value.isNull()) << text;
  }
  EXPECT_TRUE(Evaluate("tessarine_length(geom_from_wkt('LineString EMPTY'))", "no reference").value.isNull());
}

TEST_F(Expressions, WrongArgumentsAreNamed) {
  struct Row {
    const char *text, *error;
    const char* reference = "EPSG:4326";
  };
  const Row rows[] = {
      {"tessarine_length(make_point(1, 2))",
       "tessarine_length: argument 1 (geometry): it has to be a line or a polygon"},
      {"tessarine_area('text')", "tessarine_area: argument 1 (geometry): it has to be a polygon, and is 'text'"},
      {"tessarine_area(geom_from_wkt('LINESTRING(0 0, 1 1)'))", "and is a geometry of the type LineString"},
      {"tessarine_midpoint(BOX)", "tessarine_midpoint: argument 1 (geometry): it has to be a line"},
      {"tessarine_distance(make_point(1, 2), geom_from_wkt('MULTIPOINT((1 1), (2 2))'))",
       "tessarine_distance: argument 2 (to): it has to be a point"},
      {"tessarine_length(NULL, 'Marz 2000')",
       "argument 2 (spheroid): there is no spheroid 'Marz 2000'. Near are 'Mars"},
      {"tessarine_length(NULL, 2.5)", "argument 2 (spheroid): it has to be a text"},
      {"tessarine_area(BOX, crs:='nowhere')", "argument 3 (crs): there is no reference 'nowhere'"},
      {"tessarine_azimuth(make_point(1, 2), make_point(2, 2), end:='middle')",
       "argument 5 (end): it has to be 'start'"},
      {"tessarine_area(BOX)", "tessarine_area: argument 3 (crs): the layer has no reference", "none"},
  };
  for (const Row& row : rows) {
    const Answer answer = Evaluate(row.text, row.reference);
    EXPECT_THAT(answer.error, HasSubstr(std::string(row.error))) << row.text;
    EXPECT_TRUE(answer.value.isNull()) << row.text;
  }
}

// A geometry that can't be measured costs its own value alone.
TEST_F(Expressions, FaultsOfAGeometryGoToTheLog) {
  QStringList told;
  const auto connection = QObject::connect(
      QgsApplication::messageLog(),
      QOverload<const QString&, const QString&, Qgis::MessageLevel>::of(&QgsMessageLog::messageReceived),
      [&](const QString& text, const QString& tag, Qgis::MessageLevel) {
        if (tag == QStringLiteral("Tessarine")) told << text;
      });
  const Answer beyond = Evaluate("tessarine_distance(make_point(0, 0), make_point(0, 91))");
  EXPECT_EQ(beyond.error, "");
  EXPECT_TRUE(beyond.value.isNull());
  ASSERT_EQ(told.size(), 1);
  EXPECT_THAT(FromQt(told.at(0)), HasSubstr("tessarine_distance, layer 'fields': A latitude lies beyond a pole."));
  EXPECT_GT(Evaluate("tessarine_length(geom_from_wkt('LINESTRING(0 0, 179.7 0.2)'))").value.toDouble(), 1e7);
  ASSERT_EQ(told.size(), 2);
  EXPECT_THAT(FromQt(told.at(1)), HasSubstr("nearly antipodal"));
  for (int round = 0; round < 30; ++round) {
    static_cast<void>(Evaluate("tessarine_distance(make_point(0, 0), make_point(0, -91))"));
  }
  EXPECT_EQ(told.size(), 2 + 9) << "ten of a kind";
  QObject::disconnect(connection);
}

TEST_F(Expressions, TheHelpTellsTrueExamples) {
  int checked = 0;
  for (const qgis::FunctionRow& row : qgis::ExpressionFunctions()) {
    const QString help =
        QgsExpression::Functions().at(QgsExpression::functionIndex(QLatin1String(row.name)))->helpText();
    EXPECT_TRUE(help.contains(QLatin1String(row.name)) && help.contains(QLatin1String(row.notes))) << row.name;
    for (const qgis::FunctionExample& example : row.examples) {
      const char* call = example.call;
      EXPECT_FALSE(QgsExpression(QLatin1String(call)).hasParserError()) << call;
      if (std::string_view(call).find("EPSG:7030") == std::string_view::npos) continue;  // depends on a feature
      const Answer answer = Evaluate(call, "");
      EXPECT_EQ(FromQt(answer.value.toString()), example.result) << call << answer.error;
      ++checked;
    }
  }
  EXPECT_EQ(checked, 6);
}

TEST_F(Expressions, ComeAndGo) {
  qgis::AddExpressionFunctions();
  const auto group_size = [] {
    const auto& all = QgsExpression::Functions();
    return std::count_if(all.begin(), all.end(), [](QgsExpressionFunction* function) {
      return function->groups().contains(QStringLiteral("Tessarine"));
    });
  };
  EXPECT_EQ(group_size(), 5);
  qgis::RemoveExpressionFunctions();
  EXPECT_FALSE(QgsExpression::isFunctionName(QStringLiteral("tessarine_length")));
  EXPECT_EQ(group_size(), 0);
  qgis::RemoveExpressionFunctions();
  qgis::AddExpressionFunctions();
  EXPECT_EQ(group_size(), 5);
}

// Maps are drawn on threads of their own.
TEST_F(Expressions, WorkOnOtherThreads) {
  static std::atomic<int> reported;
  reported = 0;
  const FaultReporter before = SetFaultReporter([](const TrapSite&, const Fault&) { ++reported; });
  const QgsExpressionContext context = ContextOf("EPSG:32612");
  std::array<double, 3> areas{};
  std::vector<std::thread> threads;
  for (double& area : areas) {
    threads.emplace_back([&] {
      QgsExpressionContext own = context;
      QgsExpression expression(QStringLiteral(
          "tessarine_area(geom_from_wkt('POLYGON((454000 3873000, 454000 3874000, 455000 3874000, 455000 3873000, "
          "454000 3873000))'), 'EPSG:7030')"));
      QgsExpression faulty(QStringLiteral("tessarine_distance(make_point(0, 0), make_point(0, 91), crs:='EPSG:4326')"));
      for (int round = 0; round < 20; ++round) {
        area = expression.evaluate(&own).toDouble();
        EXPECT_TRUE(faulty.evaluate(&own).isNull());
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  SetFaultReporter(before);
  EXPECT_EQ(reported, 0);
  for (const double area : areas) EXPECT_NEAR(area, 1000749.3924807347, 1e-2);
  EXPECT_EQ(areas[0], areas[1]);
  EXPECT_EQ(areas[0], areas[2]);
}

}  // namespace
}  // namespace tessarine::testing
