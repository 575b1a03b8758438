// SPDX-License-Identifier: GPL-2.0-or-later
// Writes a picture of every form and of the host's own dialogs.
#include <QCommandLineParser>
#include <QLineEdit>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

#include "frame/commands/command_table.h"
#include "helpers/temporary_folder.h"
#include "hosts/windows/pictures.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/readable.h"
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

// Pictures of windows hold few colours: with a table of the most frequent ones they take little room.
QImage WithFewColors(const QPixmap& picture) {
  constexpr std::size_t kColors = 32;
  const QImage image = picture.toImage().convertToFormat(QImage::Format_RGB32);
  std::map<QRgb, int> counts;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
  }
  std::vector<std::pair<int, QRgb>> by_count;
  for (const auto& [color, count] : counts) by_count.emplace_back(count, color);
  std::ranges::sort(by_count, std::greater<>());
  QVector<QRgb> table;
  for (std::size_t index = 0; index < std::min(kColors, by_count.size()); ++index) table << by_count[index].second;
  return image.convertToFormat(QImage::Format_Indexed8, table, Qt::ThresholdDither | Qt::AvoidDither);
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
    if (WithFewColors(picture).save(ToQt((folder_ / (name + ".png")).string()), "PNG", 0)) ++written_;
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
  const QCommandLineOption scale("scale", "Of the screen: 2 is 200 percent.", "factor", "1");
  const QCommandLineOption points("points", "The size of the font.", "points", "9");
  const QCommandLineOption dark("dark", "In the colours of the night.");
  const QCommandLineOption german("german", "In German.");
  const QCommandLineOption theme("theme", "In a theme of the map program.", "folder");
  const QCommandLineOption room("room", "On a screen of this size.", "WIDTHxHEIGHT");
  QCommandLineParser parser;
  parser.addOptions({scale, points, dark, german, theme, room});
  parser.addPositionalArgument("FOLDER", "Where the pictures go.");
  QStringList words;
  for (int index = 0; index < count; ++index) words << QString::fromLocal8Bit(arguments[index]);
  if (!parser.parse(words) || parser.positionalArguments().size() != 1) {
    std::fprintf(stderr, "%s\n%s", qPrintable(parser.errorText()), qPrintable(parser.helpText()));
    return 2;
  }
  const QtSession session({.scale = parser.value(scale).toDouble(),
                           .points = parser.value(points).toInt(),
                           .dark = parser.isSet(dark),
                           .german = parser.isSet(german)});
  if (parser.isSet(theme)) qApp->setStyleSheet(StyleSheetOf(QDir(parser.value(theme))));
  const TemporaryFolder data;
  SampleHost host;
  const QStringList sides = parser.value(room).split('x');
  if (sides.size() == 2) host.FormWindows().SetRoom(QSize(sides[0].toInt(), sides[1].toInt()) * 0.95);
  host.clock_stands = true;
  const std::string folder = tessarine::FromQt(parser.positionalArguments().front());
  Album album(folder, data.Native());
  VisitForms(host, data.Native(), [&](const std::string& name, tessarine::FormWindow& window) {
    QCoreApplication::processEvents();
    album.Add(name, window);
  });
  AddHostDialogs(album, host, data);
  std::printf("%d pictures in %s\n", album.Written(), folder.c_str());
  return album.Written() > 0 ? 0 : 1;
}
