// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/list_text.h"

#include <cpl_conv.h>

#include <memory>

#include "engine/ogr_class.h"
#include "outputs/list_fields.h"

namespace tessarine::engine {

std::string ListText(const OGRFeature& feature, int index) {
  const std::unique_ptr<char, decltype(&VSIFree)> text(feature.GetFieldAsSerializedJSon(index), VSIFree);
  return text ? text.get() : "";
}

}  // namespace tessarine::engine

namespace tessarine {

bool HoldsLists(const IFeatureClass& rows, std::int32_t field) {
  if (const auto* own = dynamic_cast<const IListFields*>(&rows)) return own->HoldsLists(field);
  const auto* stored = dynamic_cast<const engine::OgrClass*>(&rows);
  if (stored == nullptr) return false;
  const int index = stored->Traits()->fields.OgrIndex(field);
  const engine::LayerHandle handle = stored->Source()->Read();
  const OGRFeatureDefn& columns = *handle.Layer().GetLayerDefn();
  return index >= 0 && index < columns.GetFieldCount() && engine::IsList(columns.GetFieldDefn(index)->GetType());
}

}  // namespace tessarine
