// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/polyline_measures.h"

#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "geodesy/checked_arithmetic.h"
#include "geodesy/segment_lengths.h"
#include "platform/run_stop.h"
#include "platform/silence.h"
#include "platform/trap.h"
#include "shapes/convergence.h"
#include "shapes/vincenty.h"

namespace tessarine::MyGeometricOperations {
namespace {

using PathSpan = std::span<const std::shared_ptr<Path>>;
using Vertices = std::span<const XY>;

// The one form that all routines read: a number of parts, each a block of vertices.
class PartsOf {
 public:
  explicit PartsOf(PathSpan paths) : paths_(paths) {}
  explicit PartsOf(Vertices only) : only_(only), bare_(true) {}

  [[nodiscard]] std::size_t Count() const { return bare_ ? 1 : paths_.size(); }
  [[nodiscard]] Vertices At(std::size_t part) const { return bare_ ? only_ : paths_[part]->Vertices(); }

 private:
  PathSpan paths_;
  Vertices only_;
  bool bare_ = false;
};

// The spheroid of a line: WGS 1984, or the axes of a caller.
class LineFigure {
 public:
  LineFigure() : figure_(geodesy::kWgs1984), fixed_(true) {}
  LineFigure(double semi_major, double semi_minor)
      : figure_(geodesy::Figure::FromAxes(semi_major, semi_minor)), fixed_(false) {}

  [[nodiscard]] const geodesy::Figure& Figure() const { return figure_; }

  // The length and forward azimuth of one segment by the routine that the figure stands for. A fault is reported there,
  // gives the length 0 and leaves the azimuth as it was.
  double Measure(XY from, XY to, double& azimuth) const {
    double azimuth2 = 0.0;
    to = geodesy::EndOfSegment(from, to);
    try {
      return fixed_ ? DistanceVincentyPoints(from, to, azimuth, azimuth2)
                    : DistanceVincentyPoints2(from, to, azimuth, azimuth2, figure_.semi_major, figure_.semi_minor);
    } catch (const Fault&) {
      if (!geodesy::AreOnePlace(from, to)) throw;
      return 0.0;
    }
  }

 private:
  geodesy::Figure figure_;
  bool fixed_;
};

// The lengths of the segments of one part. Those that the batch leaves to its caller are measured one by one.
class LengthsOf {
 public:
  struct Batch : geodesy::SegmentLengths::Batch {
    // Of segments measured one by one alone; not-a-number where that failed.
    std::array<double, geodesy::SegmentLengths::kLanes> azimuths;
  };

  LengthsOf(const LineFigure& figure, Vertices vertices)
      : figure_(figure), vertices_(vertices), lengths_(figure.Figure(), vertices) {}

  bool Next(Batch& batch) {
    if (!lengths_.Next(batch)) return false;
    if (batch.unconverged != 0) NoteUnconverged(batch.unconverged);
    if (batch.unsound != 0) [[unlikely]]
      MeasureUnsound(batch);
    return true;
  }

 private:
  void MeasureUnsound(Batch& batch) const {
    for (std::size_t index = 0; index < batch.lengths.size(); ++index) {
      if (!batch.IsUnsound(index)) continue;
      const std::size_t vertex = batch.first + index;
      batch.azimuths[index] = std::numeric_limits<double>::quiet_NaN();
      batch.lengths[index] = figure_.Measure(vertices_[vertex], vertices_[vertex + 1], batch.azimuths[index]);
    }
  }

  const LineFigure& figure_;
  Vertices vertices_;
  geodesy::SegmentLengths lengths_;
};

double LengthOf(const PartsOf& parts, const LineFigure& figure) {
  double running = 0.0;
  StopPoll poll;
  for (std::size_t part = 0; part < parts.Count(); ++part) {
    LengthsOf lengths(figure, parts.At(part));
    for (LengthsOf::Batch batch; lengths.Next(batch);) {
      poll();
      for (const double length : batch.lengths) running += length;
    }
  }
  return geodesy::checked::Finite(running);
}

// What is known of one segment: its length, the running total at its end, the azimuth at its start, the start itself.
struct Row {
  double length = 0.0, running = 0.0, azimuth = 0.0;
  XY from;
};

// Running totals at evenly spaced segments, in a fixed space: when it is full, every other one is dropped. A place that
// is looked for later is reached from the nearest of them, so that no row of the line needs to be kept.
class Milestones {
 public:
  struct Stretch {
    std::size_t part, vertex;  // where its first segment starts
    double before;             // running total there
    double highest;            // greatest running total at the end of one of its segments
  };

  void Pass(std::size_t part, std::size_t vertex, double before, double after) {
    if (in_stretch_ == stride_) Open({part, vertex, before, after});
    Stretch& stretch = stretches_[count_ - 1];
    stretch.highest = std::fmax(stretch.highest, after);
    ++in_stretch_;
  }

  /// The first stretch that reaches beyond the target.
  [[nodiscard]] const Stretch* FirstBeyond(double target) const {
    for (std::size_t index = 0; index < count_; ++index) {
      if (stretches_[index].highest > target) return &stretches_[index];
    }
    return nullptr;
  }

 private:
  static constexpr std::size_t kCapacity = 512;

  void Open(const Stretch& stretch) {
    if (count_ == kCapacity) JoinPairs();
    stretches_[count_++] = stretch;
    in_stretch_ = 0;
  }
  void JoinPairs() {
    for (std::size_t index = 0; index < kCapacity / 2; ++index) {
      stretches_[index] = stretches_[2 * index];
      stretches_[index].highest = std::fmax(stretches_[index].highest, stretches_[2 * index + 1].highest);
    }
    count_ = kCapacity / 2;
    stride_ *= 2;
  }

  std::array<Stretch, kCapacity> stretches_;  // the first `count_` hold values
  std::size_t count_ = 0;
  std::size_t stride_ = 1;
  std::size_t in_stretch_ = 1;  // segments in the last stretch; full at first, so that the first segment opens one
};

// The azimuth of the segment passed last. Where it can't be found it is that of the segment before.
class StandingAzimuth {
 public:
  void Pass(XY from, XY to, const LengthsOf::Batch& batch, std::size_t index, const LineFigure& figure) {
    if (!batch.IsUnsound(index)) {
      known_.reset();
    } else if (!std::isnan(batch.azimuths[index])) {
      known_ = batch.azimuths[index];
    } else {
      known_ = Value(figure);
    }
    from_ = from, to_ = to;
  }
  /// 0 before the first segment.
  [[nodiscard]] double Value(const LineFigure& figure) const {
    if (known_) return *known_;
    double azimuth = 0.0;
    static_cast<void>(figure.Measure(from_, to_, azimuth));
    return azimuth;
  }

 private:
  std::optional<double> known_ = 0.0;
  XY from_, to_;
};

// Calls `visit(part, vertex, from, to, batch, index)` for each segment in order.
template <class Visit>
void ForEachSegment(const PartsOf& parts, const LineFigure& figure, Visit&& visit) {
  StopPoll poll;
  for (std::size_t part = 0; part < parts.Count(); ++part) {
    const Vertices vertices = parts.At(part);
    LengthsOf lengths(figure, vertices);
    for (LengthsOf::Batch batch; lengths.Next(batch);) {
      poll();
      for (std::size_t index = 0; index < batch.lengths.size(); ++index) {
        const std::size_t vertex = batch.first + index;
        visit(part, vertex, vertices[vertex], vertices[vertex + 1], batch, index);
      }
    }
  }
}

// The first row beyond the target, from the start of a stretch that is known to hold it. What fails in it was reported
// when the line was measured.
Row RowBeyond(const PartsOf& parts, const LineFigure& figure, const Milestones::Stretch& stretch, double target) {
  const Silence already_reported;
  Row row{0.0, stretch.before, 0.0, {}};
  std::size_t vertex = stretch.vertex;
  for (std::size_t part = stretch.part; part < parts.Count(); ++part, vertex = 0) {
    const Vertices vertices = parts.At(part);
    for (; vertex + 1 < vertices.size(); ++vertex) {
      row.from = vertices[vertex];
      row.length = figure.Measure(row.from, vertices[vertex + 1], row.azimuth);
      row.running += row.length;
      if (row.running > target) return row;
    }
  }
  return row;
}

double Clamped(double ratio) { return ratio > 1.0 ? 1.0 : ratio < 0.0 ? 0.0 : ratio; }

// The start, azimuth and distance of the last walk.
struct Walk {
  XY start;
  double azimuth, distance;
};

Walk WalkFrom(const Row& row, double target) { return {row.from, row.azimuth, row.length - (row.running - target)}; }

// A line whose segments are all measured, for the places at any part of its length.
class WalkedLine {
 public:
  WalkedLine(const PartsOf& parts, const LineFigure& figure) : parts_(parts), figure_(figure) {
    ForEachSegment(
        parts_, figure_,
        [&](std::size_t part, std::size_t vertex, XY from, XY to, const LengthsOf::Batch& batch, std::size_t index) {
          const double before = last_.running;
          last_.length = batch.lengths[index];
          last_.running += last_.length;
          azimuth_.Pass(from, to, batch, index, figure_);
          milestones_.Pass(part, vertex, before, last_.running);
        });
    static_cast<void>(geodesy::checked::Finite(last_.running));
  }

  [[nodiscard]] double Length() const { return last_.running; }

  [[nodiscard]] Walk To(double ratio) const {
    const double target = geodesy::checked::Finite(ratio * Length());
    const Milestones::Stretch* stretch = milestones_.FirstBeyond(target);
    if (stretch != nullptr) return WalkFrom(RowBeyond(parts_, figure_, *stretch, target), target);
    // At or past the far end the walk starts from 0, 0.
    return WalkFrom({last_.length, last_.running, azimuth_.Value(figure_), {}}, target);
  }

 private:
  PartsOf parts_;
  LineFigure figure_;
  Row last_;
  Milestones milestones_;
  StandingAzimuth azimuth_;
};

Walk WalkToDistance(const PartsOf& parts, const LineFigure& figure, double distance, double& total_length) {
  Row last;
  std::optional<Row> chosen;
  StandingAzimuth azimuth;
  ForEachSegment(parts, figure,
                 [&](std::size_t, std::size_t, XY from, XY to, const LengthsOf::Batch& batch, std::size_t index) {
                   last.length = batch.lengths[index];
                   last.running += last.length;
                   azimuth.Pass(from, to, batch, index, figure);
                   if (!chosen && last.running > distance) {
                     chosen = Row{last.length, last.running, azimuth.Value(figure), from};
                   }
                 });
  total_length = geodesy::checked::Finite(last.running);
  const double target = geodesy::checked::Finite(distance);
  return WalkFrom(chosen ? *chosen : Row{last.length, last.running, azimuth.Value(figure), {}}, target);
}

Walk WalkTo(const PartsOf& parts, const LineFigure& figure, double& position, bool as_ratio, double& total_length) {
  if (!as_ratio) return WalkToDistance(parts, figure, position, total_length);
  const WalkedLine line(parts, figure);
  total_length = line.Length();
  position = Clamped(position);
  return line.To(position);
}

std::shared_ptr<Point> PointAt(const Walk& walk, const SpatialReferenceRef& reference) {
  Point start(walk.start);
  start.SetSpatialReference(reference);
  auto end = std::make_shared<Point>();
  double far_azimuth = 0.0;
  std::int32_t vertex_count = 0;
  std::shared_ptr<Polyline> no_line;
  PointLineVincenty2(start, walk.distance, walk.azimuth, *end, far_azimuth, vertex_count, no_line);
  return end;
}

}  // namespace

struct MeasuredPolyline::Walked {
  std::shared_ptr<Polyline> polyline;
  WalkedLine line;
};

MeasuredPolyline::MeasuredPolyline(const std::shared_ptr<Polyline>& polyline, double semi_major, double semi_minor) {
  TrapHelper("SpheroidalPolylineMidpoint2", [&] {
    const PartsOf parts(Require(polyline, "Polyline")->Parts());
    walked_.reset(new Walked{polyline, WalkedLine(parts, LineFigure(semi_major, semi_minor))});
  });
}

MeasuredPolyline::MeasuredPolyline(MeasuredPolyline&&) noexcept = default;
MeasuredPolyline& MeasuredPolyline::operator=(MeasuredPolyline&&) noexcept = default;
MeasuredPolyline::~MeasuredPolyline() = default;

double MeasuredPolyline::Length() const { return walked_->line.Length(); }

std::shared_ptr<Point> MeasuredPolyline::PlaceAt(double ratio) const {
  return TrapHelper("SpheroidalPolylineMidpoint2",
                    [&] { return PointAt(walked_->line.To(Clamped(ratio)), walked_->polyline->SpatialReference()); });
}

double SpheroidalPolylineLength(const std::shared_ptr<Polyline>& polyline) {
  return TrapHelper("SpheroidalPolylineLength",
                    [&] { return LengthOf(PartsOf(Require(polyline, "Polyline")->Parts()), LineFigure()); });
}

double SpheroidalPolylineLength(std::span<const XY> path) {
  return TrapHelper("SpheroidalPolylineLength", [&] { return LengthOf(PartsOf(path), LineFigure()); });
}

double SpheroidalPolylineLength2(const std::shared_ptr<Polyline>& polyline, double semi_major, double semi_minor) {
  return TrapHelper("SpheroidalPolylineLength2", [&] {
    return LengthOf(PartsOf(Require(polyline, "Polyline")->Parts()), LineFigure(semi_major, semi_minor));
  });
}

double SpheroidalPolylineLength2(std::span<const XY> path, double semi_major, double semi_minor) {
  return TrapHelper("SpheroidalPolylineLength2",
                    [&] { return LengthOf(PartsOf(path), LineFigure(semi_major, semi_minor)); });
}

std::shared_ptr<Point> SpheroidalPolylineMidpoint2(const std::shared_ptr<Polyline>& polyline, double& position,
                                                   bool as_ratio, double& total_length, double semi_major,
                                                   double semi_minor) {
  return TrapHelper("SpheroidalPolylineMidpoint2", [&] {
    const PartsOf parts(Require(polyline, "Polyline")->Parts());
    const LineFigure figure(semi_major, semi_minor);
    return PointAt(WalkTo(parts, figure, position, as_ratio, total_length), polyline->SpatialReference());
  });
}

XY SpheroidalPolylineMidpoint2(std::span<const XY> path, double& position, bool as_ratio, double& total_length,
                               double semi_major, double semi_minor) {
  return TrapHelper("SpheroidalPolylineMidpoint2", [&] {
    const LineFigure figure(semi_major, semi_minor);
    const Walk walk = WalkTo(PartsOf(path), figure, position, as_ratio, total_length);
    XY end;
    double far_azimuth = 0.0;
    PointLineVincentyPerPoint2(walk.start, walk.distance, walk.azimuth, end, far_azimuth, semi_major, semi_minor);
    return end;
  });
}

}  // namespace tessarine::MyGeometricOperations
