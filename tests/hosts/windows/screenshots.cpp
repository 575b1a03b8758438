// SPDX-License-Identifier: GPL-2.0-or-later
// Writes a picture of every form and of the host's own dialogs: tessarine_screenshots FOLDER [SCALE [POINTS [dark]]]
#include <QLineEdit>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QTimer>
#include <cstdio>
#include <cstdlib>

#include "frame/commands/command_table.h"
#include "helpers/temporary_folder.h"
#include "hosts/windows/pictures.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/sample_forms.h"

namespace tessarine::testing {
namespace {

// A picture shows the same place wherever it is taken.
void ShowSamplePlace(QWidget& window, const std::string& folder) {
  for (auto* box : window.findChildren<QLineEdit*>()) {
    box->setText(box->text().replace(ToQt(folder), QStringLiteral("/home/ann/maps")));
    box->setCursorPosition(0);
  }
}

class Album {
 public:
  Album(std::filesystem::path folder, std::string data) : folder_(std::move(folder)), data_(std::move(data)) {
    std::filesystem::create_directories(folder_);
  }
  void Add(const std::string& name, QWidget& window) {
    ShowSamplePlace(window, data_);
    Add(name, window.grab());
  }
  void Add(const std::string& name, const QPixmap& picture) {
    if (picture.save(ToQt((folder_ / (name + ".png")).string()))) ++written_;
  }
  /// A dialog of the host: its picture is taken when it waits, then it is closed.
  template <class Show>
  void AddDialog(const std::string& name, Show&& show) {
    QTimer::singleShot(0, qApp, [this, name] {
      QWidget* dialog = QApplication::activeModalWidget();
      Add(name, *dialog);
      dialog->close();
    });
    show();
  }
  [[nodiscard]] int Written() const { return written_; }

 private:
  std::filesystem::path folder_;
  std::string data_;
  int written_ = 0;
};

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
    (void)host.MessageBox().Show("The semi-major radius is no number.\r\n\r\nDo you want to enter it again?",
                                 "Invalid Spheroid Parameter:", MessageButtons::YesNo, MessageIcon::Exclamation);
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
  if (count < 2) {
    std::fprintf(stderr, "usage: %s FOLDER [SCALE [POINTS [dark]]]\n", arguments[0]);
    return 2;
  }
  Drawing drawing;
  if (count > 2) drawing.scale = std::atof(arguments[2]);
  if (count > 3) drawing.points = std::atoi(arguments[3]);
  drawing.dark = count > 4;
  const QtSession session(drawing);
  const TemporaryFolder data;
  SampleHost host;
  host.clock_stands = true;
  Album album(arguments[1], data.Native());
  VisitForms(host, data.Native(), [&](const std::string& name, tessarine::FormWindow& window) {
    QCoreApplication::processEvents();
    album.Add(name, window);
  });
  AddHostDialogs(album, host, data);
  std::printf("%d pictures in %s\n", album.Written(), arguments[1]);
  return album.Written() > 0 ? 0 : 1;
}
