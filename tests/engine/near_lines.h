// SPDX-License-Identifier: GPL-2.0-or-later
// Lines so near to each other that rounding makes new crossings.
#pragma once

#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include "engine/noding.h"
#include "helpers/shapes.h"

namespace tessarine::testing {

inline constexpr double kWidth = 300.0;  // of the square around each set of lines

// In UTM, a square with lines through it that run 1e-9 to 1e-6 m from each other, and a few that cross them all.
inline engine::LineList NearLines(unsigned seed, int count) {
  std::mt19937_64 random(seed);
  const auto between = [&](double least, double most) {
    return std::uniform_real_distribution<double>(least, most)(random);
  };
  const XY center{500000.0 + between(0, 1000), 5400000.0 + between(0, 1000)};
  const auto across = [&](double angle, double reach, double off_x, double off_y) {
    const double dx = reach * std::cos(angle), dy = reach * std::sin(angle);
    return std::vector<XY>{{center.x - dx + off_x, center.y - dy + off_y},
                           {center.x + dx + off_x, center.y + dy - off_y}};
  };
  const double angle = between(0, 2.0 * std::numbers::pi);
  engine::LineList lines;
  for (int number = 0; number < count; ++number) {
    const double apart = std::pow(10.0, between(-9, -6));
    lines.push_back(
        across(angle + between(-1e-9, 1e-9), between(30, 100), between(-apart, apart), between(-apart, apart)));
  }
  for (int number = 0; number < 5; ++number)
    lines.push_back(across(angle + between(0.5, 2.5), 20, between(-20, 20), 0));
  const double half = kWidth / 2.0;
  lines.push_back(Box(center.x - half, center.y - half, center.x + half, center.y + half));
  return lines;
}

}  // namespace tessarine::testing
