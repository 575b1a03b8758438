// SPDX-License-Identifier: MIT
#include "geodesy/segment_lengths.h"

#include <algorithm>
#include <cmath>

#include "geodesy/longitude_continuation.h"

namespace tessarine::geodesy {
namespace {

// Sines between this and 0 might make the components of an azimuth so small that their quotient overflows.
constexpr double kTinySine = 1e-200;

bool IsTiny(double sine) { return sine != 0.0 && std::fabs(sine) < kTinySine; }

struct Lane {
  detail::InverseProblem problem;
  MarkedArithmetic arithmetic;
};

// A lane stops by itself as soon as it converged, and its values stay those of its last pass.
void Iterate(std::span<Lane> lanes, double f) {
  std::array<Lane*, SegmentLengths::kLanes> running;
  std::size_t count = 0;
  const auto keep_running = [&](Lane& lane) {
    if (!lane.problem.Settled()) running[count++] = &lane;
  };
  for (Lane& lane : lanes) keep_running(lane);
  for (int passes = detail::kPasses; count > 0 && passes >= 1; --passes) {
    const std::size_t in_pass = count;
    for (std::size_t index = 0; index < in_pass; ++index) Pass(running[index]->problem, f, running[index]->arithmetic);
    count = 0;
    for (std::size_t index = 0; index < in_pass; ++index) keep_running(*running[index]);
  }
}

}  // namespace

LonLat EndOfSegment(LonLat from, LonLat to) {
  const LonLat turned{WithinOneTurn(from.x, to.x), to.y};
  return turned != from || to.x < from.x ? turned : to;
}

bool AreOnePlace(LonLat from, LonLat to) {
  constexpr double kDegrees = 1e-13;
  return std::fabs(from.x - to.x) < kDegrees && std::fabs(from.y - to.y) < kDegrees;
}

GeodesicLine InverseOfSegment(LonLat from, LonLat to, const Figure& figure) {
  const LonLat end = EndOfSegment(from, to);
  try {
    return Inverse(from, end, figure);
  } catch (const Fault&) {
    if (!AreOnePlace(from, end)) throw;
    return {};
  }
}

SegmentLengths::SegmentLengths(const Figure& figure, std::span<const LonLat> vertices)
    : figure_(figure), vertices_(vertices) {
  if (!vertices_.empty()) latitude_ = detail::Reduced(vertices_.front().y, figure_.flattening, MarkedArithmetic());
}

bool SegmentLengths::Next(Batch& batch) {
  if (next_ + 1 >= vertices_.size()) return false;
  const std::size_t count = std::min(kLanes, vertices_.size() - 1 - next_);
  std::array<Lane, kLanes> lanes;
  const bool sound_figure = std::isfinite(figure_.flattening);
  for (std::size_t index = 0; index < count; ++index) {
    const LonLat from = vertices_[next_ + index], to = vertices_[next_ + index + 1];
    const detail::ReducedLatitude start = latitude_;
    latitude_ = detail::Reduced(to.y, figure_.flattening, MarkedArithmetic());
    Lane& lane = lanes[index];
    lane.problem = {detail::Radians(to.x - from.x), start, latitude_};
    lane.arithmetic.sound =
        sound_figure && !IsTiny(start.sine) && !IsTiny(latitude_.sine) && to.x == WithinOneTurn(from.x, to.x);
    // Coincident positions have the length 0 and make no pass.
    if (from == to) lane.problem.lambda_before = lane.problem.lambda;
  }
  Iterate({lanes.data(), count}, figure_.flattening);

  batch = {next_, {lengths_.data(), count}, 0, 0};
  for (std::size_t index = 0; index < count; ++index) {
    const bool coincide = vertices_[next_ + index] == vertices_[next_ + index + 1];
    const Lane& lane = lanes[index];
    const double length = coincide ? 0.0 : DistanceOf(lane.problem, figure_, lane.arithmetic);
    lengths_[index] = length;
    if (coincide || (lane.arithmetic.sound && std::isfinite(length) && std::isfinite(lane.problem.lambda))) {
      if (!lane.problem.Settled()) ++batch.unconverged;
    } else {
      batch.unsound |= 1U << index;
    }
  }
  next_ += count;
  return true;
}

PathLength LengthOf(std::span<const LonLat> path, const Figure& figure) {
  PathLength result;
  SegmentLengths segments(figure, path);
  for (SegmentLengths::Batch batch; segments.Next(batch);) {
    result.unconverged += batch.unconverged;
    for (std::size_t index = 0; index < batch.lengths.size(); ++index) {
      if (!batch.IsUnsound(index)) {
        result.length += batch.lengths[index];
        continue;
      }
      const std::size_t vertex = batch.first + index;
      const GeodesicLine line = InverseOfSegment(path[vertex], path[vertex + 1], figure);
      result.length += line.distance;
      if (!line.converged) ++result.unconverged;
    }
  }
  result.length = checked::Finite(result.length);
  return result;
}

}  // namespace tessarine::geodesy
