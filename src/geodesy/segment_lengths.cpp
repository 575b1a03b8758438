// SPDX-License-Identifier: GPL-2.0-or-later
#include "geodesy/segment_lengths.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "geodesy/angles.h"
#include "geodesy/convergence.h"
#include "geodesy/longitude_continuation.h"
#include "geodesy/vincenty.h"
#include "platform/fault.h"

namespace tessarine::MyGeometricOperations {
namespace {

constexpr int kPasses = 40;
// Sines between this and 0 might make the components of an azimuth so small that their quotient overflows.
constexpr double kTinySine = 1e-200;

// The operations of `DegToRad`, without its trap. What isn't finite is caught at the end.
double Radians(double degrees) { return degrees * kPi / 180.0; }

// One segment under iteration; the names are those of Vincenty's symbols.
struct Lane {
  double L, sin_U1, cos_U1, sin_U2, cos_U2;
  double lambda, lambda_before;
  double sigma, sin_sigma, cos_sigma, cos_sq_alpha, cos_2_sigma_m;
  bool sound;
};

// `atan2` of a y that is never negative, which leaves its factor Sgn(y) out. A quotient that isn't finite spoils the
// lane.
inline double AngleOf(double y, double x, bool& sound) {
  if (x == 0.0) return y == 0.0 ? 0.0 : kPi / 2.0;
  const double quotient = y / x;
  sound = sound && std::isfinite(quotient);
  if (x > 0.0) return std::atan(quotient);
  return kPi - std::atan(std::fabs(quotient));
}

inline void Pass(Lane& lane, double f) {
  const double sin_lambda = std::sin(lane.lambda), cos_lambda = std::cos(lane.lambda);
  const double east = lane.cos_U2 * sin_lambda;
  const double north = lane.cos_U1 * lane.sin_U2 - lane.sin_U1 * lane.cos_U2 * cos_lambda;
  const double sin_sigma = std::sqrt(east * east + north * north);
  const double cos_sigma = lane.sin_U1 * lane.sin_U2 + lane.cos_U1 * lane.cos_U2 * cos_lambda;
  const double sigma = AngleOf(sin_sigma, cos_sigma, lane.sound);
  const double sin_alpha = lane.cos_U1 * lane.cos_U2 * sin_lambda / sin_sigma;
  const double cos_sq_alpha = 1.0 - sin_alpha * sin_alpha;
  const double m = cos_sq_alpha == 0.0 ? 0.0 : cos_sigma - 2.0 * lane.sin_U1 * lane.sin_U2 / cos_sq_alpha;
  const double C = f / 16.0 * cos_sq_alpha * (4.0 + f * (4.0 - 3.0 * cos_sq_alpha));
  lane.lambda_before = lane.lambda;
  lane.lambda =
      lane.L + (1.0 - C) * f * sin_alpha * (sigma + C * sin_sigma * (m + C * cos_sigma * (2.0 * (m * m) - 1.0)));
  lane.sigma = sigma;
  lane.sin_sigma = sin_sigma;
  lane.cos_sigma = cos_sigma;
  lane.cos_sq_alpha = cos_sq_alpha;
  lane.cos_2_sigma_m = m;
}

bool Runs(const Lane& lane) { return std::fabs(lane.lambda - lane.lambda_before) > kTolerance; }

// A lane stops by itself as soon as it converged, and its values stay those of its last pass.
void Iterate(std::span<Lane> lanes, double f) {
  std::array<Lane*, SegmentLengths::kLanes> running;
  std::size_t count = 0;
  const auto keep_running = [&](Lane& lane) {
    if (Runs(lane)) running[count++] = &lane;
  };
  for (Lane& lane : lanes) keep_running(lane);
  for (int passes = kPasses; count > 0 && passes >= 1; --passes) {
    const std::size_t in_pass = count;
    for (std::size_t index = 0; index < in_pass; ++index) Pass(*running[index], f);
    count = 0;
    for (std::size_t index = 0; index < in_pass; ++index) keep_running(*running[index]);
  }
  NoteUnconverged(count);
}

double LengthOf(const Lane& lane, double a, double b) {
  const double a_sq = a * a, b_sq = b * b;
  const double u_sq = (a_sq - b_sq) * lane.cos_sq_alpha / b_sq;
  const double A = 1.0 + u_sq / 16384.0 * (4096.0 + u_sq * (-768.0 + u_sq * (320.0 - 175.0 * u_sq)));
  const double B = u_sq / 1024.0 * (256.0 + u_sq * (-128.0 + u_sq * (74.0 - 47.0 * u_sq)));
  const double m = lane.cos_2_sigma_m, m_sq = m * m;
  const double delta_sigma =
      B * lane.sin_sigma *
      (m + B / 4.0 *
               (lane.cos_sigma * (2.0 * m_sq - 1.0) -
                B / 6.0 * m * (4.0 * (lane.sin_sigma * lane.sin_sigma) - 3.0) * (4.0 * m_sq - 3.0)));
  return b * A * (lane.sigma - delta_sigma);
}

// Positions less than a hundredth of a micrometre apart. Their sines may be the same, and no azimuth leads from one to
// the other; as a segment of a line that is no reason to lose the line.
bool AreOnePlace(XY from, XY to) {
  constexpr double kDegrees = 1e-13;
  return std::fabs(from.x - to.x) < kDegrees && std::fabs(from.y - to.y) < kDegrees;
}

bool IsTiny(double sine) { return sine != 0.0 && std::fabs(sine) < kTinySine; }

}  // namespace

LineFigure::LineFigure() : a_(6378137.0), b_(6356752.31424518), f_(1.0 / 298.257223563), fixed_(true) {}

// A major axis of 0 makes the flattening and with it every length unsound.
LineFigure::LineFigure(double semi_major, double semi_minor)
    : a_(semi_major), b_(semi_minor), f_((semi_major - semi_minor) / semi_major), fixed_(false) {}

double LineFigure::Measure(XY from, XY to, double& azimuth) const {
  double azimuth2 = 0.0;
  // A turn to the east and back to the same place is no length to the routine itself, which also checks the axes then.
  const XY turned{WithinOneTurn(from.x, to.x), to.y};
  if (turned != from || to.x < from.x) to = turned;
  try {
    return fixed_ ? DistanceVincentyPoints(from, to, azimuth, azimuth2)
                  : DistanceVincentyPoints2(from, to, azimuth, azimuth2, a_, b_);
  } catch (const Fault&) {
    if (!AreOnePlace(from, to)) throw;
    return 0.0;
  }
}

SegmentLengths::SegmentLengths(const LineFigure& figure, std::span<const XY> vertices)
    : figure_(figure), vertices_(vertices) {
  if (!vertices_.empty()) latitude_ = Reduced(vertices_.front().y);
}

SegmentLengths::Latitude SegmentLengths::Reduced(double lat) const {
  const double U = std::atan((1.0 - figure_.Flattening()) * std::tan(Radians(lat)));
  return {std::sin(U), std::cos(U)};
}

bool SegmentLengths::Next(Batch& batch) {
  if (next_ + 1 >= vertices_.size()) return false;
  const std::size_t count = std::min(kLanes, vertices_.size() - 1 - next_);
  std::array<Lane, kLanes> lanes;
  const bool sound_figure = std::isfinite(figure_.Flattening());
  for (std::size_t index = 0; index < count; ++index) {
    const XY from = vertices_[next_ + index], to = vertices_[next_ + index + 1];
    const Latitude start = latitude_;
    latitude_ = Reduced(to.y);
    const double L = Radians(to.x - from.x);
    lanes[index] = {
        L,
        start.sine,
        start.cosine,
        latitude_.sine,
        latitude_.cosine,
        L,
        kTwoPi,
        0.0,
        0.0,
        0.0,
        0.0,
        0.0,
        sound_figure && !IsTiny(start.sine) && !IsTiny(latitude_.sine) && to.x == WithinOneTurn(from.x, to.x)};
    // Coincident positions have the length 0 and make no pass.
    if (from == to) lanes[index].lambda_before = L;
  }
  Iterate({lanes.data(), count}, figure_.Flattening());

  batch = {next_, {lengths_.data(), count}, {azimuths_.data(), count}, 0};
  for (std::size_t index = 0; index < count; ++index) {
    const XY from = vertices_[next_ + index], to = vertices_[next_ + index + 1];
    const Lane& lane = lanes[index];
    const double length = from == to ? 0.0 : LengthOf(lane, figure_.SemiMajor(), figure_.SemiMinor());
    lengths_[index] = length;
    if (from == to || (lane.sound && std::isfinite(length) && std::isfinite(lane.lambda))) continue;
    azimuths_[index] = std::numeric_limits<double>::quiet_NaN();
    lengths_[index] = figure_.Measure(from, to, azimuths_[index]);
    batch.measured |= 1U << index;
  }
  next_ += count;
  return true;
}

}  // namespace tessarine::MyGeometricOperations
