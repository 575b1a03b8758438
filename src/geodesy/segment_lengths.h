// SPDX-License-Identifier: MIT
// The geodesic lengths of a run of segments, several at a time.
//
// One inverse problem waits for itself: each pass needs the longitude of the pass before. Eight of them side by side
// keep the processor busy, and the latitude of a vertex is reduced once for the two segments that share it. The
// operations of each segment and their order are those of `Inverse`, so every length is its to the last bit.
//
// A segment whose arithmetic isn't plainly sound (a division by zero, an overflow, a latitude so close to 0 that an
// azimuth might overflow) is left to `InverseOfSegment`, which raises what there is to raise. So is a segment whose
// ends are a whole turn of longitude apart: at +360 degrees the iteration doesn't start, and every length would be 0.
//
// Positions, units, poles, antipodes and accuracy: as `geodesics.h` tells of one pair.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "geodesy/geodesics.h"
#include "geodesy/vincenty_series.h"

namespace tessarine::geodesy {

/// The far end of a segment, in the turn of its near end: -180 and 180 are one meridian. A turn to the east and back to
/// the same place stays: it is no length to `Inverse` either, which also checks the figure then.
[[nodiscard]] LonLat EndOfSegment(LonLat from, LonLat to);

/// True for positions less than a hundredth of a micrometre apart. Their sines may be the same, and no azimuth leads
/// from one to the other; as a segment of a line that is no reason to lose the line.
[[nodiscard]] bool AreOnePlace(LonLat from, LonLat to);

/// One segment of a line: `Inverse` to its `EndOfSegment`, and nothing at all where that is a fault and the ends are
/// one place.
[[nodiscard]] GeodesicLine InverseOfSegment(LonLat from, LonLat to, const Figure& figure = kWgs1984);

/// Walks the segments between consecutive vertices in order and hands out their lengths. It lives on the stack and
/// allocates nothing.
class SegmentLengths {
 public:
  static constexpr std::size_t kLanes = 8;

  struct Batch {
    std::size_t first = 0;      ///< the segment from vertex `first` to the next one has the first length
    std::span<double> lengths;  ///< valid until the next batch
    unsigned unsound = 0;       ///< a bit for each length that is none, and is left to the caller
    unsigned unconverged = 0;   ///< how many of the others didn't converge: their lengths may be far off

    [[nodiscard]] bool IsUnsound(std::size_t index) const { return ((unsound >> index) & 1U) != 0; }
  };

  SegmentLengths(const Figure& figure, std::span<const LonLat> vertices);

  /// The next lengths, at most `kLanes`; false at the end.
  bool Next(Batch& batch);

 private:
  Figure figure_;
  std::span<const LonLat> vertices_;
  std::size_t next_ = 0;
  detail::ReducedLatitude latitude_{};  // of the vertex `next_`
  std::array<double, kLanes> lengths_{};
};

/// The length of a line.
struct PathLength {
  double length = 0.0;
  std::size_t unconverged = 0;  ///< how many segments didn't converge
};

/// The lengths of all segments between consecutive vertices, added in order; 0 for less than two vertices. Linear. A
/// segment that can't be measured is a fault.
[[nodiscard]] PathLength LengthOf(std::span<const LonLat> path, const Figure& figure = kWgs1984);

}  // namespace tessarine::geodesy
