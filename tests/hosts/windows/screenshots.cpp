// SPDX-License-Identifier: GPL-2.0-or-later
// Writes a picture of every form and of the host's own dialogs.
#include <QPainter>
#include <QPalette>

#include "frame/commands/command_table.h"
#include "hosts/windows/pictures.h"
#include "planetary/planetary_rules.h"
#include "tests/hosts/windows/album.h"

namespace tessarine::testing {
namespace {

// The pictures of the commands in their size and larger, in the order of the commands.
QPixmap PicturesOfCommands() {
  const auto commands = AllCommands();
  QPixmap sheet(static_cast<int>(commands.size()) * 40, 64);
  sheet.fill(QApplication::palette().color(QPalette::Window));
  QPainter painter(&sheet);
  int left = 4;
  for (const CommandRow& row : commands) {
    PictureOf(row.texts.bitmap_id).paint(&painter, QRect(left, 4, 16, 16));
    PictureOf(row.texts.bitmap_id).paint(&painter, QRect(left, 28, 32, 32));
    left += 40;
  }
  return sheet;
}

void AddHostDialogs(Album& album, SampleHost& host, const TemporaryFolder& data) {
  album.AddDialog("host_message", [&] {
    const auto objection = ObjectionToMajorAxis(-1.0);
    (void)host.MessageBox().Show(objection->text, objection->title, MessageButtons::Ok, MessageIcon::Exclamation);
  });
  album.AddDialog("host_browse", [&] {
    const auto dialog = host.CreateGxDialog();
    dialog->AddFilter(GxFilter::FeatureClasses, true);
    dialog->SetTitle("Enter the name of your new Feature Class or Shapefile:");
    dialog->SetStartingLocation(data.Path());
    dialog->SetName(data.Path("Polygons.shp"));
    (void)dialog->DoModalSave(0);
  });
  album.AddDialog("host_reference", [&] {
    const auto dialog = host.CreateSpatialReferenceDialog();
    dialog->SetInitial(SpatialReferenceEnvironment::CreateFromText("EPSG:32612"));
    (void)dialog->DoModalCreate(0);
  });
  const auto errors = host.CreateErrorDialog();
  errors->AppendErrorText("Tessarine Tools v. 3.0.0:  Error Number \r\n\t5\r\nDescription\r\n\tNo layer.\r\n");
  errors->SetVisible(true);
  QCoreApplication::processEvents();
  album.Add("host_error", *QApplication::activeModalWidget());
  QApplication::activeModalWidget()->close();
  album.Add("commands", PicturesOfCommands());
}

}  // namespace
}  // namespace tessarine::testing

int main(int count, char** arguments) {
  using namespace tessarine::testing;
  return DrawPictures(count, arguments, [](Studio& studio) {
    VisitForms(studio.host, studio.data.Native(), [&](const std::string& name, tessarine::FormWindow& window) {
      QCoreApplication::processEvents();
      studio.album.Add(name, window);
    });
    AddHostDialogs(studio.album, studio.host, studio.data);
  });
}
