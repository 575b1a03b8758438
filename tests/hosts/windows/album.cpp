// SPDX-License-Identifier: GPL-2.0-or-later
#include "tests/hosts/windows/album.h"

#include <QCommandLineParser>
#include <QLineEdit>
#include <QLocale>
#include <algorithm>
#include <cstdio>
#include <map>
#include <utility>
#include <vector>

#include "hosts/windows/qt_text.h"
#include "hosts/windows/readable.h"

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

}  // namespace

Album::Album(std::filesystem::path folder, std::string data) : folder_(std::move(folder)), data_(std::move(data)) {
  std::filesystem::create_directories(folder_);
}

void Album::Add(const std::string& name, QWidget& window) {
  ShowSamplePlace(window, data_);
  Add(name, window.grab());
}

void Album::Add(const std::string& name, const QPixmap& picture) {
  if (WithFewColors(picture).save(ToQt((folder_ / (name + ".png")).string()), "PNG", 0)) ++written_;
}

int DrawPictures(int count, char** arguments, const std::function<void(Studio&)>& draw) {
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
  // Numbers come out alike wherever pictures are taken.
  QLocale::setDefault(parser.isSet(german) ? QLocale(QLocale::German, QLocale::Germany)
                                           : QLocale(QLocale::English, QLocale::UnitedStates));
  const QStringList sides = parser.value(room).split('x');
  const QSize screen = sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) * 0.95 : QSize();
  if (!screen.isEmpty()) host.FormWindows().SetRoom(screen);
  host.clock_stands = true;
  const std::string folder = FromQt(parser.positionalArguments().front());
  Album album(folder, data.Native());
  Studio studio{album, host, data, screen};
  draw(studio);
  std::printf("%d pictures in %s\n", album.Written(), folder.c_str());
  return album.Written() > 0 ? 0 : 1;
}

}  // namespace tessarine::testing
