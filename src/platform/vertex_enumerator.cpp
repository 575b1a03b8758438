// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/vertex_enumerator.h"

#include "platform/fault.h"

namespace tessarine {
namespace {

class VertexEnumerator final : public IEnumVertex {
 public:
  explicit VertexEnumerator(detail::VertexSource source) : source_(std::move(source)) {}

  void Reset() override {
    part_ = 0;
    vertex_ = -1;
  }

  void QueryNext(Point& point, std::int32_t& part_index, std::int32_t& vertex_index) override {
    part_index = vertex_index = -1;
    const std::int32_t parts = source_.part_count();
    if (part_ >= parts) return;
    ++vertex_;
    while (vertex_ >= source_.part(part_).PointCount()) {
      vertex_ = 0;
      if (++part_ >= parts) return;
    }
    const XY at = source_.part(part_).Point(vertex_);
    point.PutCoords(at.x, at.y);
    part_index = part_;
    vertex_index = vertex_;
  }

  void SetX(double x) override {
    IPointCollection& part = Current();
    part.UpdatePoint(vertex_, {x, part.Point(vertex_).y});
  }
  void SetY(double y) override {
    IPointCollection& part = Current();
    part.UpdatePoint(vertex_, {part.Point(vertex_).x, y});
  }

 private:
  IPointCollection& Current() {
    if (vertex_ < 0 || part_ >= source_.part_count()) Raise(kInvalidCall, "No vertex was read before it was written.");
    return source_.part(part_);
  }

  detail::VertexSource source_;
  std::int32_t part_ = 0;
  std::int32_t vertex_ = -1;
};

}  // namespace

std::shared_ptr<IEnumVertex> detail::MakeVertexEnumerator(VertexSource source) {
  return std::make_shared<VertexEnumerator>(std::move(source));
}

}  // namespace tessarine
