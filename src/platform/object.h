// SPDX-License-Identifier: GPL-2.0-or-later
// The root of everything that is held by reference, and the two questions one may ask of it.
#pragma once

#include <memory>

namespace tessarine {

/// Base of every class that travels by `shared_ptr`. All interfaces derive from it virtually, so that any
/// interface of an object leads to any other.
class Object {
 public:
  virtual ~Object() = default;

 protected:
  Object() = default;
  Object(const Object&) = default;
  Object& operator=(const Object&) = default;
};

using ObjectRef = std::shared_ptr<Object>;

/// The object as a `T`, or null when it is none.
template <class T, class U>
[[nodiscard]] std::shared_ptr<T> Cast(const std::shared_ptr<U>& from) {
  return std::dynamic_pointer_cast<T>(from);
}

/// True when the object is a `T`.
template <class T, class U>
[[nodiscard]] bool Is(const std::shared_ptr<U>& from) {
  return dynamic_cast<const T*>(from.get()) != nullptr;
}

class IClone : public virtual Object {
 public:
  /// A deep copy that shares nothing with its source.
  [[nodiscard]] virtual ObjectRef Clone() const = 0;
  /// True when `other` is of the same class and holds the same values.
  [[nodiscard]] virtual bool IsEqual(const Object& other) const = 0;
};

/// `value.Clone()` under its own type.
template <class T>
[[nodiscard]] std::shared_ptr<T> CloneOf(const T& value) {
  return Cast<T>(value.Clone());
}

}  // namespace tessarine
