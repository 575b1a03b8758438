// SPDX-License-Identifier: GPL-2.0-or-later
// The spheroids that somebody may name in the map program: those of the suite's catalogue, and those that the program
// knows by a code of its own. Any thread may look one up.
#pragma once

#include <qgscoordinatereferencesystem.h>

#include <QString>
#include <optional>
#include <vector>

#include "platform/spheroid_catalog.h"

namespace tessarine::qgis {

/// All usable spheroids of the catalogue: custom ones, planets, Earth. A custom file that can't be read is told in the
/// program's log and costs its own spheroids alone. Files are read again once they have changed.
[[nodiscard]] std::vector<NamedSpheroid> SpheroidsOfCatalog();

/// The spheroid that a text means: a name or code of the catalogue, or what the program takes for an ellipsoid, as
/// "EPSG:7019" or "PARAMETER:3396190:3376200". Fault 5 tells which names are near.
[[nodiscard]] NamedSpheroid SpheroidCalled(const QString& text);

/// That of the project's settings for measuring; none where they say "None / Planimetric".
[[nodiscard]] std::optional<NamedSpheroid> SpheroidOfSetting(const QString& ellipsoid);

/// A reference's own; none for a reference that is neither geographic nor projected.
[[nodiscard]] std::optional<NamedSpheroid> SpheroidOf(const QgsCoordinateReferenceSystem& system);

}  // namespace tessarine::qgis
