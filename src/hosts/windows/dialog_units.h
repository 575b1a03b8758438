// SPDX-License-Identifier: GPL-2.0-or-later
// The measure of forms: a dialog unit is a quarter of the average character's width and an eighth of its height.
#pragma once

#include <QFont>
#include <QRect>
#include <QSize>

namespace tessarine {

/// Dialog units of one font, in the pixels that widgets are measured in. Edges are rounded, never widths, so that
/// controls which touch in units touch on the screen.
class DialogUnits {
 public:
  explicit DialogUnits(const QFont& font);

  [[nodiscard]] QRect Rect(double left, double top, double width, double height) const;
  [[nodiscard]] QSize Size(double width, double height) const;
  [[nodiscard]] double UnitsAcross(int pixels) const { return pixels / width_; }
  [[nodiscard]] double UnitsDown(int pixels) const { return pixels / height_; }

 private:
  double width_, height_;
};

}  // namespace tessarine
