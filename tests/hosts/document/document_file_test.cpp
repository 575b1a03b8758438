// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/document_file.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>

#include "helpers/temporary_folder.h"
#include "hosts/document/document_layer.h"

namespace tessarine {
namespace {

using nlohmann::json;
using testing::TemporaryFolder;

// Everything that a document can hold.
constexpr const char* kFull = R"({
  "format": "tessarine map document", "host version": "9.1", "active view": "layout",
  "map": {
    "name": "Wölfe", "extent": [-10, -5.5, 10, 1e-7],
    "layers": [
      {"name": "group", "visible": false, "members": [
        {"name": "inner", "source": "data/inner.shp", "visible": true, "chosen": true, "selection": [3, 1]}]},
      {"name": "elsewhere", "source": "/far/a.gpkg", "layer": "roads", "visible": false, "symbol": "red line",
       "fields": {"pop": {"alias": "Population", "visible": false}}}],
    "tables": [{"name": "owners", "source": "owners.dbf"}],
    "graphics": [
      {"kind": "marker", "name": "here", "selected": true, "symbol": "dot", "shape": {"type": "point", "at": [0.1, -2]}},
      {"kind": "text", "content": "a \"quoted\"\nline", "shape": {"type": "point"}},
      {"kind": "line", "shape": {"type": "polyline", "parts": [[[0, 0], [1, 1]],
        [[0, 0], {"arc": [2, 0], "center": [1, 0], "sweep": -3.141592653589793},
         {"bezier": [6, 0], "controls": [[3, 1], [5, 1]]}, [7, 0]]]}},
      {"kind": "ellipse", "shape": {"type": "polygon", "parts": [[[2, 0],
        {"ellipse": [2, 0], "center": [0, 0], "axes": [2, 1], "rotation": 0.5, "start": 0, "sweep": 6.28}]]}},
      {"kind": "group", "members": [{"kind": "data graph", "content": "Title"},
        {"kind": "frame", "shape": {"type": "multipoint", "points": [[1, 2], [3, 4]]}}]}]
  },
  "layout": {"extent": [0, 0, 21, 29.7], "graphics": [{"kind": "picture", "content": "north.png"}]},
  "settings": [{"double": 3.0}, {"string": "C:\\data"}, {"boolean": true}, {"long": -2147483648}, {"double": 0.1}]
})";

TEST(DocumentFileTest, ADocumentComesBackWhole) {
  const auto document = ReadDocumentText(kFull, "/maps");
  const json written = json::parse(WriteDocumentText(*document, "/maps"));
  json expected = json::parse(kFull);
  // Lists that are empty are written too.
  EXPECT_EQ(json::diff(expected, written), json::array()) << written.dump(2);
  EXPECT_EQ(WriteDocumentText(*ReadDocumentText(written.dump(), "/maps"), "/maps"),
            WriteDocumentText(*document, "/maps"));
}

// Members that other programs wrote, at each level, and texts that need not be as this program would put them.
constexpr const char* kForeign = R"({
  "format": "tessarine map document", "host version": "9.3.1", "active view": "map", "author": {"name": "A"},
  "map": {"name": "m", "reference": "EPSG:4326", "scale": 5000, "graphics": [
      {"kind": "text", "content": "x", "angle": 45, "shape": {"type": "point", "at": [1, 2], "z": 3}},
      {"kind": "group", "locked": true, "members": [{"kind": "line", "dash": [1, 2]}]}],
    "layers": [{"name": "up", "source": "../up.shp", "visible": true, "opacity": 0.5,
                "fields": {"a": {"alias": "A", "visible": true, "format": "%d"}}},
               {"name": "dots", "source": "./sub/../here.shp", "visible": true},
               {"name": "g", "visible": true, "open": false, "members": []}],
    "tables": [{"name": "t", "source": "../t.dbf", "note": null}]},
  "layout": {"graphics": [], "paper": "A4"}
})";

TEST(DocumentFileTest, WhatOtherProgramsWroteStays) {
  const auto document = ReadDocumentText(kForeign, "/maps/one");
  EXPECT_EQ(Cast<DocumentFeatureLayer>(document->Map().Layer(0))->Source().path, "/maps/up.shp");
  const json written = json::parse(WriteDocumentText(*document, "/maps/one"));
  EXPECT_EQ(json::diff(json::parse(kForeign), written), json::array()) << written.dump(2);
  // Somewhere else the paths must lead to the same files.
  const json moved = json::parse(WriteDocumentText(*document, "/other"));
  EXPECT_EQ(moved["map"]["layers"][0]["source"], "/maps/up.shp");
  // What the suite knows it may also take away.
  document->Map().Elements()[0]->content.clear();
  const json changed = json::parse(WriteDocumentText(*document, "/maps/one"));
  EXPECT_FALSE(changed["map"]["graphics"][0].contains("content"));
  EXPECT_EQ(changed["map"]["graphics"][0]["angle"], 45);
}

TEST(DocumentFileTest, AnOpenRingIsClosed) {
  const auto document = ReadDocumentText(
      R"({"format": "tessarine map document", "map": {"graphics": [{"kind": "polygon", "shape":
         {"type": "polygon", "parts": [[[0, 0], [0, 3], [4, 0]], [[0, 0], [0, 3], [4, 0], [0, 0]]]}}]}})",
      "/maps");
  const auto polygon = Cast<Polygon>(document->Map().Elements()[0]->shape);
  ASSERT_EQ(polygon->GeometryCount(), 2);
  for (const auto& ring : polygon->Parts()) EXPECT_EQ(ring->Length(), 12.0);
}

TEST(DocumentFileTest, WhatIsReadStandsInTheDocument) {
  const auto document = ReadDocumentText(kFull, "/maps");
  EXPECT_TRUE(document->LayoutActive());
  EXPECT_EQ(document->host_version, "9.1");
  EXPECT_FALSE(document->Dirty());
  EXPECT_EQ(document->SelectedLayer()->Name(), "inner");
  const auto inner = Cast<DocumentFeatureLayer>(document->SelectedLayer());
  EXPECT_EQ(inner->Source().path, "/maps/data/inner.shp");
  EXPECT_EQ(inner->SelectedOids(), (std::vector<std::int64_t>{3, 1}));
  const auto& elements = document->Map().Elements();
  ASSERT_EQ(elements.size(), 5U);
  EXPECT_EQ(document->Map().ElementSelectionCount(), 1);
  EXPECT_TRUE(elements[1]->shape->IsEmpty());
  const auto line = Cast<Polyline>(elements[2]->shape);
  EXPECT_EQ(line->SegmentCount(), 4);
  EXPECT_TRUE(line->HasCurves());
  // The half circle of radius 1 over (1, 0) reaches height 1.
  EXPECT_NEAR(elements[2]->shape->Envelope().YMax(), 1.0, 1e-12);
  EXPECT_TRUE(Is<IEllipseElement>(elements[3]) && Is<IFillShapeElement>(elements[3]));
  EXPECT_FALSE(Is<IPolygonElement>(elements[3]));
  EXPECT_EQ(document->settings[3], Variant(std::int32_t{-2147483647 - 1}));
  EXPECT_EQ(document->settings[0].kind(), Variant::Kind::Double);
}

TEST(DocumentFileTest, SourcesMoveWithTheDocument) {
  const auto document = ReadDocumentText(kFull, "/maps/../maps");
  EXPECT_NE(WriteDocumentText(*document, "/maps").find("\"data/inner.shp\""), std::string::npos);
  EXPECT_NE(WriteDocumentText(*document, "/elsewhere").find("\"/maps/data/inner.shp\""), std::string::npos);
  EXPECT_NE(WriteDocumentText(*document, "/mapsandmore").find("\"/maps/data/inner.shp\""), std::string::npos);
}

std::string InMap(const std::string& members) {
  return R"({"format": "tessarine map document", "map": {)" + members + "}}";
}

TEST(DocumentFileTest, DamagedDocumentsNameThePlace) {
  struct Row {
    const char* name;
    std::string text;
    const char* told;
  };
  std::string deep;
  for (int level = 0; level < 40; ++level) deep += R"({"name": "g", "members": [)";
  for (int level = 0; level < 40; ++level) deep += "]}";
  const std::string settings = R"({"format": "tessarine map document", "settings": [{"double": 1}, )";
  const Row rows[] = {
      {"empty", "", "no JSON"},
      {"cut off", R"({"format": "tessarine map doc)", "no JSON: byte"},
      {"bytes that are no UTF-8", "{\"format\": \"\xFF\"}", "no JSON"},
      {"a list", "[]", "It must be an object"},
      {"another file", R"({"type": "FeatureCollection"})", "It has no 'format'"},
      {"another format", R"({"format": "atlas"})", "'format' must be \"tessarine map document\""},
      {"a number too large", InMap(R"("extent": [0, 0, 1e999, 1])"), "no JSON"},
      {"extent of three", InMap(R"("extent": [1, 2, 3])"), "'map.extent' must be four numbers"},
      {"extent of words", InMap(R"("extent": [1, 2, "3", 4])"), "'map.extent[2]' must be a number"},
      {"layers that are no list", InMap(R"("layers": {})"), "'map.layers' must be a list"},
      {"a layer without a name", InMap(R"("layers": [{"source": "a"}])"), "'map.layers[0]' has no 'name'"},
      {"a layer without a source", InMap(R"("layers": [{"name": "a"}])"), "'map.layers[0]' has no 'source'"},
      {"a broken selection", InMap(R"("layers": [{"name": "a", "source": "b", "selection": [1.5]}])"),
       "'map.layers[0].selection[0]' must be a whole number"},
      {"groups without end", InMap("\"layers\": [" + deep + "]"), "nested less deeply"},
      {"an unknown kind", InMap(R"("graphics": [{"kind": "cloud"}])"), "'map.graphics[0].kind' must be one of: marker"},
      {"an unknown shape", InMap(R"("graphics": [{"kind": "line", "shape": {"type": "spline"}}])"),
       "'map.graphics[0].shape.type' must be point"},
      {"a part that begins with a curve",
       InMap(R"("graphics": [{"kind": "line", "shape": {"type": "polyline", "parts": [[{"arc": [1, 1]}]]}}])"),
       "'map.graphics[0].shape.parts[0][0]' must be a pair"},
      {"a curve that is none",
       InMap(R"("graphics": [{"kind": "line", "shape": {"type": "polyline", "parts": [[[0, 0], {"spiral": 1}]]}}])"),
       "must be a pair of numbers, an arc"},
      {"an unknown view", R"({"format": "tessarine map document", "active view": "globe"})", "'active view' must be"},
      {"a setting of no type", settings + R"({"date": 1}]})", "'settings[1]' must be an object with"},
      {"a setting beyond 32 bits", settings + R"({"long": 2147483648}]})", "'settings[1].long' must be"},
      {"a setting beyond 64 bits", settings + R"({"long": 18446744073709551615}]})", "'settings[1].long' must be"},
      {"a bad reference", InMap(R"("reference": "EPSG:99999999")"), "99999999"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    try {
      (void)ReadDocumentText(row.text, "/maps");
      ADD_FAILURE() << "was read";
    } catch (const Fault& fault) {
      EXPECT_NE(fault.Description().find(row.told), std::string::npos) << fault.Description();
    } catch (const std::exception& error) {
      ADD_FAILURE() << "no fault but: " << error.what();
    }
  }
}

TEST(DocumentFileTest, FilesAreReplacedAsAWhole) {
  const TemporaryFolder folder;
  const auto document = ReadDocumentText(kFull, folder.Native());
  document->path = folder.Native("map.json");
  folder.Write("map.json", "before");
  WriteDocumentFile(*document);
  const auto again = ReadDocumentFile(folder.Native("map.json"));
  EXPECT_EQ(again->path, folder.Native("map.json"));
  EXPECT_EQ(Cast<DocumentFeatureLayer>(again->SelectedLayer())->Source().path, folder.Native("data/inner.shp"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Native()), {}), 1) << "no draft stays";

  document->path = folder.Native("gone/map.json");
  EXPECT_THROW(WriteDocumentFile(*document), Fault);
  // A name that is no UTF-8 has no place in JSON; the old file stays.
  document->path = folder.Native("map.json");
  document->Map().AppendLayer(std::make_shared<DocumentFeatureLayer>("l\xE9on", LayerSource{"/l\xE9on.shp", ""}));
  EXPECT_THROW(WriteDocumentFile(*document), Fault);
  EXPECT_NO_THROW((void)ReadDocumentFile(folder.Native("map.json")));
}

TEST(DocumentFileTest, LinksAndPermissionsStay) {
  namespace fs = std::filesystem;
  const TemporaryFolder folder;
  folder.Write("map.json", "before");
  fs::permissions(folder.Native("map.json"), fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink("map.json", folder.Native("link.json"));
  const auto document = std::make_shared<MapDocument>();
  document->path = folder.Native("link.json");
  WriteDocumentFile(*document);
  EXPECT_TRUE(fs::is_symlink(folder.Native("link.json")));
  EXPECT_NO_THROW((void)ReadDocumentFile(folder.Native("map.json")));
  EXPECT_EQ(fs::status(folder.Native("map.json")).permissions(), fs::perms::owner_read | fs::perms::owner_write);

  fs::permissions(folder.Native("map.json"), fs::perms::owner_read);
  // Whoever may write everything isn't refused.
  if (geteuid() != 0) {
    EXPECT_THROW(WriteDocumentFile(*document), Fault);
  }
}

TEST(DocumentFileTest, SavingTouchesNoOtherFile) {
  const TemporaryFolder folder;
  folder.Write("map.json.part", "mine");
  MapDocument document;
  document.path = folder.Native("map.json");
  WriteDocumentFile(document);
  EXPECT_EQ(ReadDocumentFile(document.path)->Map().Name(), "Layers");
  std::ifstream kept(folder.Native("map.json.part"));
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(kept), {}), "mine");
  EXPECT_FALSE(std::filesystem::exists(folder.Native("map.json.part2")));
}

TEST(DocumentFileTest, FaultsNameTheFile) {
  const TemporaryFolder folder;
  folder.Write("bad.json", "{");
  for (const char* name : {"bad.json", "missing.json"}) {
    try {
      (void)ReadDocumentFile(folder.Native(name));
      ADD_FAILURE() << "was read";
    } catch (const Fault& fault) {
      EXPECT_NE(fault.Description().find(folder.Native(name)), std::string::npos);
    }
  }
}

}  // namespace
}  // namespace tessarine
