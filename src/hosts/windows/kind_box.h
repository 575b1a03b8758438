// SPDX-License-Identifier: GPL-2.0-or-later
// The kinds of a new class in a folder, as a box of the browse dialog.
#pragma once

#include <QComboBox>
#include <string>
#include <vector>

#include "outputs/formats.h"

namespace tessarine {

/// Shapefiles first, then what else can be written here, then layers in the map's memory where the host has them. The
/// ending of a name and the kind follow each other.
class KindBox final : public QComboBox {
 public:
  explicit KindBox(QWidget* parent);

  /// Picks the kind that the ending of a name tells; any other name leaves the kind alone.
  void FollowName(const std::string& name);
  void PickTemporaryLayers();
  [[nodiscard]] bool PicksTemporaryLayers() const;
  /// The name as it is for the kind that was picked: with its ending in the place of any other kind's. An empty name
  /// stays empty.
  [[nodiscard]] std::string NameOfKind(const std::string& name) const;
  /// The name without the ending of a kind.
  [[nodiscard]] std::string WithoutEnding(const std::string& name) const;
  /// The name of the output: a name without any kind's ending gets that of the kind that was picked.
  [[nodiscard]] std::string WithEnding(const std::string& name) const;

 private:
  [[nodiscard]] const Format& Picked() const;
  [[nodiscard]] const Format* FormatOfName(const std::string& name) const;

  std::vector<const Format*> formats_;
};

}  // namespace tessarine
