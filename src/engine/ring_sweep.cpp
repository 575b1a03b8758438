// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/ring_sweep.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <vector>

#include "platform/run_stop.h"

namespace tessarine::engine {
namespace {

// The sweep goes from left to right, and up where places stand above each other.
bool Before(XY a, XY b) { return a.x != b.x ? a.x < b.x : a.y < b.y; }

// A side under the sweep. Where one side of a vertex ends and the other begins, it takes its slot.
struct Slot {
  mutable RingSide side;
  mutable XY left, right;
};

struct SlotBelow {
  using is_transparent = void;

  bool operator()(const Slot& slot, XY place) const { return Turn(slot.left, slot.right, place) > 0; }
  bool operator()(const Slot& a, const Slot& b) const {
    if (a.left == b.left) return Turn(a.left, a.right, b.right) > 0;
    return Before(a.left, b.left) ? Turn(a.left, a.right, b.left) > 0 : Turn(b.left, b.right, a.left) < 0;
  }
};

class Sweep {
 public:
  explicit Sweep(std::span<const XY> ring) : ring_(ring), count_(ring.size() - 1), slots_(count_, status_.end()) {}

  [[nodiscard]] bool FindsMeeting() {
    std::vector<std::size_t> order(count_);
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, [&](std::size_t a, std::size_t b) { return Before(ring_[a], ring_[b]); });
    const auto same = [&](std::size_t a, std::size_t b) { return ring_[a] == ring_[b]; };
    if (std::ranges::adjacent_find(order, same) != order.end()) return true;
    StopPoll poll;
    return std::ranges::any_of(order, [&](std::size_t vertex) {
      poll();
      return MeetsAt(vertex);
    });
  }

 private:
  using Status = std::set<Slot, SlotBelow>;
  using Place = Status::iterator;

  [[nodiscard]] Slot SlotOf(std::size_t index) const {
    const XY from = ring_[index], to = ring_[index + 1];
    return Before(from, to) ? Slot{{from, to, index}, from, to} : Slot{{from, to, index}, to, from};
  }

  bool MeetsAt(std::size_t vertex) {
    const std::size_t in = (vertex + count_ - 1) % count_, out = vertex;
    const bool in_begins = Before(ring_[vertex], ring_[in]), out_begins = Before(ring_[vertex], ring_[out + 1]);
    if (in_begins && out_begins) return MeetsWhereBothBegin(in, out);
    if (in_begins) return MeetsWhereOneFollows(out, in);
    if (out_begins) return MeetsWhereOneFollows(in, out);
    return MeetsWhereBothEnd(in, out);
  }

  bool MeetsWhereBothBegin(std::size_t in, std::size_t out) {
    Slot lower = SlotOf(in), upper = SlotOf(out);
    const int turn = Turn(lower.left, lower.right, upper.right);
    if (turn == 0) return true;
    if (turn < 0) std::swap(lower, upper);
    const auto above = status_.lower_bound(lower.left);
    if (above != status_.end() && Turn(above->left, above->right, lower.left) == 0) return true;
    const auto upper_at = status_.insert(above, upper), lower_at = status_.insert(upper_at, lower);
    slots_[upper.side.index] = upper_at;
    slots_[lower.side.index] = lower_at;
    return MeetsNext(upper_at) || MeetsPrevious(lower_at);
  }

  bool MeetsWhereOneFollows(std::size_t ends, std::size_t begins) {
    const Place at = slots_[ends];
    const Slot next = SlotOf(begins);
    at->side = next.side;
    at->left = next.left;
    at->right = next.right;
    slots_[begins] = at;
    return MeetsNext(at) || MeetsPrevious(at);
  }

  // Something between the two must have come there across one of them.
  bool MeetsWhereBothEnd(std::size_t in, std::size_t out) {
    auto lower = slots_[in], upper = slots_[out];
    if (std::next(upper) == lower) std::swap(lower, upper);
    if (std::next(lower) != upper) return true;
    const auto above = status_.erase(lower, std::next(upper));
    return above != status_.end() && MeetsPrevious(above);
  }

  [[nodiscard]] bool MeetsNext(Place at) const {
    const auto next = std::next(at);
    return next != status_.end() && SidesMeet(at->side, next->side, count_);
  }
  [[nodiscard]] bool MeetsPrevious(Place at) const {
    return at != status_.begin() && SidesMeet(std::prev(at)->side, at->side, count_);
  }

  std::span<const XY> ring_;
  std::size_t count_;
  Status status_;             // the sides under the sweep, from the lowest up
  std::vector<Place> slots_;  // by side
};

}  // namespace

bool MeetsItself(std::span<const XY> ring) { return Sweep(ring).FindsMeeting(); }

}  // namespace tessarine::engine
