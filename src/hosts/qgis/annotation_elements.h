// SPDX-License-Identifier: GPL-2.0-or-later
// Annotation items as graphic elements.
#pragma once

#include <qgsannotationitem.h>
#include <qgsgeometry.h>

#include "hosts/qgis/element_view.h"

namespace tessarine::qgis {

/// The element of an item, its shape in the reference of the map; null for an item of a kind that has no element.
[[nodiscard]] ElementRef ElementOf(const QString& id, const QgsAnnotationItem& item,
                                   const SpatialReferenceRef& own_reference, const SpatialReferenceRef& map_reference,
                                   const std::weak_ptr<ElementView>& view);

/// The item's own geometry, as it stands in the annotation layer.
[[nodiscard]] QgsGeometry GeometryOfItem(const QgsAnnotationItem& item);

}  // namespace tessarine::qgis
