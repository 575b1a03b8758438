// SPDX-License-Identifier: MIT
#include "platform/geometry_types.h"

#include <algorithm>

namespace tessarine {

Envelope::Envelope(double xmin, double ymin, double xmax, double ymax)
    : empty_(false), xmin_(xmin), ymin_(ymin), xmax_(xmax), ymax_(ymax) {}

void Envelope::Union(const Envelope& other) {
  if (other.empty_) return;
  Union(XY{other.xmin_, other.ymin_});
  Union(XY{other.xmax_, other.ymax_});
}

void Envelope::Union(XY point) {
  if (empty_) {
    *this = Envelope(point.x, point.y, point.x, point.y);
    return;
  }
  xmin_ = std::min(xmin_, point.x);
  ymin_ = std::min(ymin_, point.y);
  xmax_ = std::max(xmax_, point.x);
  ymax_ = std::max(ymax_, point.y);
}

void Envelope::Expand(double dx, double dy, bool as_ratio) {
  if (empty_) return;
  if (as_ratio) {
    dx = Width() * (dx - 1.0) / 2.0;
    dy = Height() * (dy - 1.0) / 2.0;
  }
  xmin_ -= dx;
  xmax_ += dx;
  ymin_ -= dy;
  ymax_ += dy;
}

bool Envelope::Intersects(const Envelope& other) const {
  return !empty_ && !other.empty_ && xmin_ <= other.xmax_ && other.xmin_ <= xmax_ && ymin_ <= other.ymax_ &&
         other.ymin_ <= ymax_;
}

}  // namespace tessarine
