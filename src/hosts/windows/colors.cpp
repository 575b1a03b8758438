// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/colors.h"

#include <algorithm>
#include <cmath>

#include "platform/form.h"

namespace tessarine {
namespace {

// The least contrast at which a text of normal size counts as readable (WCAG 2, level AA).
constexpr double kReadableContrast = 4.5;

// Below this luminance white is easier to read than black.
constexpr double kDarkLuminance = 0.18;

double Linear(double share) { return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4); }

double Luminance(const QColor& color) {
  return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) + 0.0722 * Linear(color.blueF());
}

double Contrast(const QColor& first, const QColor& second) {
  const double a = Luminance(first), b = Luminance(second);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// The same hue in a lighter shade that can be read on a dark background.
QColor Lightened(const QColor& color, const QColor& background) {
  QColor lighter = color;
  for (double lightness = color.lightnessF(); lightness < 1.0 && Contrast(lighter, background) < kReadableContrast;
       lightness += 0.02) {
    lighter.setHslF(qMax(0.0, color.hslHueF()), color.hslSaturationF(), lightness);
  }
  return lighter;
}

}  // namespace

bool IsExplicitColor(std::int32_t color) { return color >= 0; }

QColor ColorOf(std::int32_t color, const QPalette& palette) {
  switch (color) {
    case kWindowBackground:
      return palette.color(QPalette::Active, QPalette::Base);
    case kWindowText:
      return palette.color(QPalette::Active, QPalette::WindowText);
    case kButtonFace:
      return palette.color(QPalette::Active, QPalette::Window);
    case kGrayText:
      return palette.color(QPalette::Disabled, QPalette::WindowText);
    default:
      return QColor((color >> 16) & 0xFF, (color >> 8) & 0xFF, color & 0xFF);
  }
}

bool IsReadableOn(const QColor& background, const QColor& text) {
  return Contrast(text, background) >= kReadableContrast;
}

QColor TextColorOn(const QColor& background, std::int32_t fore_color, const QPalette& palette) {
  const QColor text = ColorOf(fore_color, palette);
  if (fore_color == kGrayText || IsReadableOn(background, text)) return text;
  if (IsExplicitColor(fore_color)) return Luminance(background) < kDarkLuminance ? Lightened(text, background) : text;
  return Contrast(Qt::black, background) >= Contrast(Qt::white, background) ? Qt::black : Qt::white;
}

QColor BoxColorOn(const QColor& window) {
  constexpr int kShade = 150;
  return window.lightnessF() < 0.5 ? window.darker(kShade) : window.lighter(kShade);
}

QColor DimTextOn(const QColor& background, const QColor& text) {
  constexpr double kMargin = 1.05;  // what smoothing takes from thin letters
  const auto mixed = [&](double share) {
    const auto part = [share](double of_text, double of_ground) { return share * of_text + (1.0 - share) * of_ground; };
    return QColor::fromRgbF(part(text.redF(), background.redF()), part(text.greenF(), background.greenF()),
                            part(text.blueF(), background.blueF()));
  };
  double share = 0.5;
  while (share < 1.0 && Contrast(mixed(share), background) < kMargin * kReadableContrast) share += 0.02;
  return mixed(std::min(share, 1.0));
}

QColor FadedText(const QColor& text, const QColor& background) {
  return QColor((text.red() + background.red()) / 2, (text.green() + background.green()) / 2,
                (text.blue() + background.blue()) / 2);
}

}  // namespace tessarine
