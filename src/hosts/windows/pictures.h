// SPDX-License-Identifier: GPL-2.0-or-later
// The pictures of the suite: those of its commands and those that stand on forms, by their resource ids.
#pragma once

#include <QColor>
#include <QIcon>
#include <cstdint>

namespace tessarine {

/// The three bars in the corner by which a window is resized.
inline constexpr std::int32_t kCornerPicture = 202;

/// The strip of a graticule along the lower edge of a form; it fills whatever it is given.
inline constexpr std::int32_t kStripPicture = 205;

/// The picture of this id, drawn sharp at any size; an empty one for an id that has none. Its lines are dark, or light
/// on a dark background. An invalid colour stands for that of the program's windows.
[[nodiscard]] QIcon PictureOf(std::int32_t resource_id, const QColor& background = {});

}  // namespace tessarine
