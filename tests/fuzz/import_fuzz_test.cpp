// SPDX-License-Identifier: GPL-2.0-or-later
// Damaged drawings: whatever the bytes, the import gives elements of finite shapes or a fault.
#include <gtest/gtest.h>

#include <cmath>

#include "fuzz/mutator.h"
#include "helpers/temporary_folder.h"
#include "hosts/document/document_file.h"
#include "hosts/document/drawing_import.h"
#include "platform/fault.h"

namespace tessarine::testing {
namespace {

void ExpectUsable(const MapDocument& document, const ImportResult& result) {
  const auto count = static_cast<std::size_t>(result.markers + result.lines + result.polygons);
  EXPECT_EQ(document.Map().Elements().size(), count);
  for (const auto& element : document.Map().Elements()) {
    const Envelope box = element->shape->Envelope();
    EXPECT_TRUE(std::isfinite(box.XMin()) && std::isfinite(box.YMin()) && std::isfinite(box.XMax()) &&
                std::isfinite(box.YMax()));
  }
}

// True for elements, false for a fault. Any other exception fails the test.
bool Import(const std::string& path) {
  try {
    const Drawing drawing = ReadDrawing(path, "", "");
    MapDocument document;
    document.Map().SetSpatialReference(SpatialReferenceEnvironment::CreateFromText("EPSG:3857"));
    ExpectUsable(document, AddDrawing(drawing, false, document.Map()));
    return true;
  } catch (const Fault& fault) {
    EXPECT_FALSE(fault.Description().empty());
    return false;
  }
}

TEST(ImportFuzz, EveryDrawingIsReadOrRefused) {
  const TemporaryFolder folder;
  struct Row {
    const char* corpus;
    const char* file;
    std::vector<std::string> telling;
  };
  const std::vector<std::string> texts = TextsOf(TESSARINE_TEST_DATA "/../fuzz/corpus/drawings");
  ASSERT_EQ(texts.size(), 2U);
  const Row rows[] = {
      {texts[0].c_str(),
       "drawing.geojson",
       {"[", "]", "{", "null", "1e999", "NaN", "-91", "\"Point\"", ",", "9e15", "\xFF"}},
      {texts[1].c_str(),
       "drawing.kml",
       {"<", ">", "</Point>", "<coordinates>", ",", "nan", "inf", "-91", "1e999", "&", "&#0;", "<name>", "\xFF"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.file);
    Mutator mutator({row.corpus}, row.telling);
    int read = 0, refused = 0;
    for (int round = 0; round < 600; ++round) {
      SCOPED_TRACE(round);
      folder.Write(row.file, mutator.Next());
      ++(Import(folder.Native(row.file)) ? read : refused);
      ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(read, 30);
    EXPECT_GT(refused, 30);
  }
}

}  // namespace
}  // namespace tessarine::testing
