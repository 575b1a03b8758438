// SPDX-License-Identifier: GPL-2.0-or-later
// What the project remembers of annotation items beyond what the program keeps: their names and the order in which
// they were made.
#pragma once

#include <QMap>
#include <QStringList>
#include <string>
#include <vector>

namespace tessarine::qgis {

/// Items go by their keys.
class GraphicsMemory {
 public:
  /// Reads the project's entry; an absent or unreadable one remembers nothing.
  void Load();
  /// Writes the project's entry.
  void Save() const;
  /// Takes up items that came since the last look, and forgets those that are gone.
  void Notice();

  [[nodiscard]] std::string NameOf(const QString& id) const;
  /// Makes the project dirty.
  void SetNameOf(const QString& id, const std::string& name);
  /// The place of an item in the order of making.
  [[nodiscard]] int RankOf(const QString& id) const { return static_cast<int>(order_.indexOf(id)); }

 private:
  QStringList order_;
  QMap<QString, QString> names_;
};

}  // namespace tessarine::qgis
