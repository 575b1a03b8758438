// SPDX-License-Identifier: GPL-2.0-or-later
// The geodesic lengths of a run of segments, several at a time.
//
// One inverse problem waits for itself: each pass needs the longitude of the pass before. Eight of them side by side
// keep the processor busy, and the latitude of a vertex is reduced once for the two segments that share it. The
// operations of each segment and their order are those of `DistanceVincentyNumbers` and `DistanceVincentyNumbers2`, so
// every length is theirs to the last bit.
//
// A segment whose arithmetic isn't plainly sound (a division by zero, an overflow, a latitude so close to 0 that an
// azimuth might overflow) is handed to these routines themselves, which report what there is to report. So is a segment
// whose ends are a whole turn of longitude apart, with the far end brought to the turn of the near one: at +360 degrees
// the iteration doesn't start, and every length would be 0.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "platform/geometry_types.h"

namespace tessarine::MyGeometricOperations {

/// The spheroid of a run: WGS 1984 by the fixed constants of the routines without suffix 2, or the axes of a caller.
class LineFigure {
 public:
  LineFigure();
  LineFigure(double semi_major, double semi_minor);

  [[nodiscard]] double SemiMajor() const { return a_; }
  [[nodiscard]] double SemiMinor() const { return b_; }
  [[nodiscard]] double Flattening() const { return f_; }

  /// The length and forward azimuth of one segment, its ends within one turn, by the routine that the figure stands
  /// for, faults and all: a fault
  /// is reported there, gives the length 0 and leaves the azimuth as it was.
  double Measure(XY from, XY to, double& azimuth) const;

 private:
  double a_, b_, f_;
  bool fixed_;
};

/// Walks the segments between consecutive vertices in order and hands out their lengths. It lives on the stack.
class SegmentLengths {
 public:
  static constexpr std::size_t kLanes = 8;

  struct Batch {
    std::size_t first = 0;  ///< the segment from vertex `first` to the next one has the first length
    std::span<const double> lengths;
    std::span<const double> azimuths;  ///< set for measured lengths only
    unsigned measured = 0;

    /// Length i came from `LineFigure::Measure`.
    [[nodiscard]] bool Measured(std::size_t index) const { return ((measured >> index) & 1U) != 0; }
    /// The forward azimuth of a measured length, not-a-number where the measure failed.
    [[nodiscard]] double Azimuth(std::size_t index) const { return azimuths[index]; }
  };

  SegmentLengths(const LineFigure& figure, std::span<const XY> vertices);

  /// The next lengths, at most `kLanes`; false at the end.
  bool Next(Batch& batch);

 private:
  struct Latitude {
    double sine, cosine;  // of the reduced latitude
  };
  [[nodiscard]] Latitude Reduced(double lat) const;

  const LineFigure& figure_;
  std::span<const XY> vertices_;
  std::size_t next_ = 0;
  Latitude latitude_{};  // of the vertex `next_`
  std::array<double, kLanes> lengths_{}, azimuths_{};
};

}  // namespace tessarine::MyGeometricOperations
