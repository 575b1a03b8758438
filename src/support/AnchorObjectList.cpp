// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/AnchorObjectList.h"

namespace tessarine {

void AnchorObjectList::Hold(std::initializer_list<AnchoredControl> controls) {
  for (const AnchoredControl& held : controls) Item(held.control).SetAnchors(held.x, held.y);
}

std::int32_t AnchorObjectList::IndexOf(const Control& control) const {
  for (std::size_t index = 0; index < items_.size(); ++index) {
    if (&items_[index].Control() == &control) return static_cast<std::int32_t>(index);
  }
  return -1;
}

AnchorObject& AnchorObjectList::Item(Control& control) {
  const std::int32_t index = IndexOf(control);
  if (index >= 0) return items_[static_cast<std::size_t>(index)];
  return items_.emplace_back(control);
}

void AnchorObjectList::Remove(const Control& control) {
  const std::int32_t index = IndexOf(control);
  if (index >= 0) items_.erase(items_.begin() + index);
}

void AnchorObjectList::SetAnchors() {
  for (AnchorObject& item : items_) item.SetAnchors();
}

void AnchorObjectList::DoAnchors() const {
  for (const AnchorObject& item : items_) item.DoAnchors();
}

}  // namespace tessarine
