// SPDX-License-Identifier: GPL-2.0-or-later
// The chapters that help opens are there.
#include <fstream>
#include <set>

#include "helpers/temporary_folder.h"
#include "hosts/windows/manual_window.h"
#include "tests/hosts/windows/windows_fixture.h"

namespace tessarine {
namespace {

std::set<std::string> HeadingsOf(const std::string& file) {
  std::set<std::string> headings;
  std::ifstream text(TESSARINE_SOURCE_DIR "/docs/manual/" + file);
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with('#')) headings.insert(line.substr(line.find_first_not_of("# ")));
  }
  return headings;
}

TEST(ManualTest, EveryFormHasItsChapterAndHeading) {
  const testing::QtSession qt;
  const testing::TemporaryFolder folder;
  testing::SampleHost host;
  std::set<std::string> at_the_contents;
  VisitForms(host, folder.Native(), [&](const std::string& name, FormWindow& window) {
    const Chapter chapter = ChapterOf(window.ShownForm().Name(), window.ShownForm().Caption());
    const std::set<std::string> headings = HeadingsOf(chapter.file.toStdString());
    EXPECT_FALSE(headings.empty()) << name << ": " << chapter.file.toStdString();
    if (chapter.file == "index.md") at_the_contents.insert(window.ShownForm().Name());
    if (chapter.heading.isEmpty()) return;
    EXPECT_THAT(headings, ::testing::Contains(chapter.heading.toStdString())) << name;
  });
  EXPECT_THAT(at_the_contents, ::testing::ElementsAre("frmAbout"));
}

TEST(ManualTest, HelpOpensOneWindowOfItsOwnBesideOtherDialogs) {
  const testing::QtSession qt;
  QDialog over;
  auto* other = new QDialog(&over);
  const auto dialogs = [&] { return over.findChildren<QDialog*>(QString(), Qt::FindDirectChildrenOnly).size(); };
  for (int time = 0; time < 2; ++time) {
    ShowManual(QStringLiteral(TESSARINE_SOURCE_DIR "/docs/manual"), ChapterOf("frmGeometry", ""), over);
    EXPECT_EQ(dialogs(), 2);
    EXPECT_FALSE(other->isVisible());
  }
}

}  // namespace
}  // namespace tessarine
