// SPDX-License-Identifier: GPL-2.0-or-later
// Casts for what is done once or more for each record. To ask an object for the class that it nearly always is costs a
// comparison; to find the way along its interfaces costs hundreds.
#pragma once

#include <type_traits>
#include <typeinfo>

#include "platform/geometry.h"

namespace tessarine {

/// The object as a `T` where it was made as one; null for all others, those derived from `T` among them.
template <class T, class U>
[[nodiscard]] T* ExactlyAs(U& object) {
  // The address is that of the whole object, whatever part of it the reference names.
  return typeid(object) == typeid(T) ? static_cast<T*>(dynamic_cast<void*>(&object)) : nullptr;
}

template <class T, class U>
[[nodiscard]] const T* ExactlyAs(const U& object) {
  return ExactlyAs<T>(const_cast<U&>(object));
}

/// The shape as one of parts; null for those that have none.
[[nodiscard]] inline PartedShape* PartedShapeOf(IGeometry& shape) {
  if (auto* polygon = ExactlyAs<Polygon>(shape)) return polygon;
  return ExactlyAs<Polyline>(shape);
}

[[nodiscard]] inline const PartedShape* PartedShapeOf(const IGeometry& shape) {
  return PartedShapeOf(const_cast<IGeometry&>(shape));
}

// No class of parts is missing above.
static_assert(std::is_final_v<Polygon> && std::is_final_v<Polyline>);

}  // namespace tessarine
