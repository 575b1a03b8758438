// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/browse_places.h"

#include <QDir>
#include <QSettings>
#include <algorithm>

#include "hosts/windows/catalog.h"
#include "hosts/windows/qt_text.h"

namespace tessarine {
namespace {

constexpr int kMostRecent = 8;
const QString kKey = QStringLiteral("tessarine/recentPlaces");

QStringList Recent() { return QSettings().value(kKey).toStringList(); }

}  // namespace

std::vector<SidePlace> SidePlaces(const std::string& project_folder) {
  std::vector<SidePlace> places;
  const auto add = [&](const std::string& caption, const std::string& path) {
    const auto container = FindContainer(path);
    if (!container) return;
    const std::string found = container->DisplayPath();
    if (std::ranges::find(places, found, &SidePlace::path) != places.end()) return;
    places.push_back({caption.empty() ? container->name : caption, found});
  };
  add("Project", project_folder);
  add("Home", FromQt(QDir::homePath()));
  for (const QString& path : Recent()) add("", FromQt(path));
  return places;
}

void NoteRecentPlace(const std::string& native_path) {
  QStringList places = Recent();
  const QString path = ToQt(native_path);
  places.removeAll(path);
  places.prepend(path);
  QSettings().setValue(kKey, QStringList(places.mid(0, kMostRecent)));
}

}  // namespace tessarine
