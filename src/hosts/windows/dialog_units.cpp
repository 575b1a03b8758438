// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/dialog_units.h"

#include <QFontMetricsF>
#include <cmath>

namespace tessarine {
namespace {

constexpr const char* kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

int Rounded(double value) { return static_cast<int>(std::lround(value)); }

}  // namespace

DialogUnits::DialogUnits(const QFont& font)
    : width_(QFontMetricsF(font).horizontalAdvance(QLatin1String(kLetters)) / 52.0 / 4.0),
      height_(QFontMetricsF(font).height() / 8.0) {}

QRect DialogUnits::Rect(double left, double top, double width, double height) const {
  const QPoint first(Rounded(left * width_), Rounded(top * height_));
  const QPoint beyond(Rounded((left + width) * width_), Rounded((top + height) * height_));
  return {first, QSize(beyond.x() - first.x(), beyond.y() - first.y())};
}

QSize DialogUnits::Size(double width, double height) const {
  return {Rounded(width * width_), Rounded(height * height_)};
}

}  // namespace tessarine
