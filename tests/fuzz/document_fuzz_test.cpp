// SPDX-License-Identifier: GPL-2.0-or-later
// Damaged map documents: whatever the bytes, the reader gives a document or a fault, and what it gives can be written
// and read again.
#include <gtest/gtest.h>

#include "fuzz/mutator.h"
#include "hosts/document/document_file.h"
#include "platform/fault.h"

namespace tessarine::testing {
namespace {

std::vector<std::string> Corpus() {
  const std::string sample = TextsOf(TESSARINE_TEST_DATA "/../fuzz/corpus/documents").front();
  std::ifstream file(TESSARINE_TEST_DATA "/graphics.json", std::ios::binary);
  return {std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()), sample};
}

std::shared_ptr<MapDocument> ReadOrNothing(const std::string& text) {
  try {
    return ReadDocumentText(text, "/data");
  } catch (const Fault& fault) {
    EXPECT_FALSE(fault.Description().empty());
    return nullptr;
  }
}

void ExpectSameAgain(const MapDocument& document) {
  std::string text;
  try {
    text = WriteDocumentText(document, "/data");
  } catch (const Fault&) {
    return;  // names that are no text
  }
  const std::shared_ptr<MapDocument> again = ReadOrNothing(text);
  ASSERT_NE(again, nullptr) << text;
  EXPECT_EQ(WriteDocumentText(*again, "/data"), text);
}

TEST(DocumentFuzz, EveryTextIsReadOrRefused) {
  Mutator mutator(Corpus(), {"\"",
                             "{",
                             "}",
                             "[",
                             "]",
                             ",",
                             ":",
                             "null",
                             "-",
                             "1e308",
                             "1e999",
                             "99999999999999999999",
                             "true",
                             "\"kind\"",
                             "\"arc\"",
                             "\xFF",
                             std::string(1, '\0'),
                             "\"\\ud800\"",
                             "0.5",
                             "-180"});
  int read = 0, refused = 0;
  for (int round = 0; round < 3000; ++round) {
    SCOPED_TRACE(round);
    const std::shared_ptr<MapDocument> document = ReadOrNothing(mutator.Next());
    ++(document ? read : refused);
    if (document) ExpectSameAgain(*document);
    ASSERT_FALSE(HasFailure());
  }
  // A run that only ever took one way would have tried nothing.
  EXPECT_GT(read, 200);
  EXPECT_GT(refused, 1000);
}

}  // namespace
}  // namespace tessarine::testing
