// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/merged_rows.h"

#include "engine/copy_rows.h"
#include "engine/copy_values.h"
#include "engine/ogr_geometry.h"

namespace tessarine::engine {

MergedRows::MergedRows(const Conversion& conversion, const std::shared_ptr<OgrClass>& worked)
    : conversion_(conversion),
      worked_(worked),
      worked_rows_(worked->Source()->Read()),
      merges_(conversion.worked_columns != nullptr),
      source_(conversion.source, conversion.source->Source()->Read(), nullptr, Recycling::Yes) {}

bool MergedRows::Next() {
  while (OgrFeatureHandle feature = source_.NextOgr()) {
    const std::int64_t oid = feature->GetFID();
    if (!IsChosen(conversion_.chosen, oid)) continue;
    const std::int64_t worked_oid = merges_ ? conversion_.worked_oids.at(next_++) : oid;
    if (worked_oid == kNoRow) continue;
    from_.emplace(conversion_.source->Traits(), std::move(feature), conversion_.source);
    if (!merges_) return true;
    row_.reset(worked_rows_.Layer().GetFeature(worked_oid));
    if (!row_) RaiseEngineFault("Row " + std::to_string(worked_oid) + " of the copy can't be read any more.");
    Compare();
    return true;
  }
  return false;
}

const OGRGeometry* MergedRows::Shape() const {
  const OGRGeometry* shape = from_->Feature().GetGeometryRef();
  return shape != nullptr && HasFinitePositions(*shape) ? shape : nullptr;
}

// Finds out which attributes aren't as they were when the record was copied.
void MergedRows::Compare() {
  const std::vector<CopyColumn>& columns = conversion_.worked_columns->All();
  OgrRow copied(worked_->Traits(), OgrFeatureHandle(OGRFeature::CreateFeature(worked_rows_.Layer().GetLayerDefn())));
  changed_.assign(columns.size(), false);
  for (std::size_t index = 0; index < columns.size(); ++index) {
    if (columns[index].target < 0) continue;
    (void)conversion_.worked_columns->Copy(columns[index], *from_, copied);
    const int target = columns[index].target;
    changed_[index] = CompareValues(*row_, target, copied.Feature(), target) != ValueChange::None;
  }
}

}  // namespace tessarine::engine
