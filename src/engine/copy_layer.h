// Whole copies of layers, in any format that GDAL writes.
#pragma once

#include <string>

namespace tessarine {

/// A layer in a data source.
struct LayerPlace {
  std::string path;   ///< native
  std::string layer;  ///< empty for the only one
};

/// The place that a text names: "roads.shp", "town.gpkg", "town.gpkg:roads", "town.gdb/roads".
[[nodiscard]] LayerPlace ParseLayerPlace(const std::string& text);

/// True when GDAL knows a format for new files of this ending.
[[nodiscard]] bool CanWriteFormatOf(const std::string& path);
/// True for formats whose attributes can be changed in place without loss.
[[nodiscard]] bool ChangesInPlace(const std::string& path);
/// True when the place holds a layer, or a file where the format holds one layer alone.
[[nodiscard]] bool LayerExists(const LayerPlace& place);

/// Copies a layer with all rows and attributes. What stands at the target is replaced; other layers of a container
/// stay. Faults name the target and quote GDAL.
void CopyLayer(const LayerPlace& source, const LayerPlace& target);
/// Removes a layer, and its container when it holds nothing else.
void RemoveLayer(const LayerPlace& place);

}  // namespace tessarine
