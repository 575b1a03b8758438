// SPDX-License-Identifier: GPL-2.0-or-later
// Changing attributes of stored rows while their shapes stay as they are, byte for byte.
//
// OGR writes a whole row: its shape, which it encodes anew, and all its attributes. Formats that let a column be
// reached alone get a way of their own here; it costs what the changed columns cost.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "engine/ogr_source.h"

namespace tessarine::engine {

class AttributeUpdate {
 public:
  virtual ~AttributeUpdate() = default;
  /// Writes these attributes of the feature. False when one of them can't go this way; nothing was written then. Fault
  /// 6 for a number too long for its column.
  [[nodiscard]] virtual bool Write(const OGRFeature& feature, std::span<const int> attributes) = 0;
  /// Writes what is still held back, and holds nothing more: another writer may follow, then this one again.
  virtual void Finish() = 0;
};

/// Bytes that are held back before they are written. A block of a dBASE table is one record at least.
inline constexpr std::int64_t kDbaseBlock = 1 << 20;
inline constexpr std::size_t kFileGdbHold = 4 << 20;

/// Columns of the dBASE table beside a shapefile; null where the table can't be found or isn't as the layer says.
[[nodiscard]] std::unique_ptr<AttributeUpdate> OpenDbaseUpdate(const OgrSource& source, OGRLayer& layer,
                                                               std::int64_t block_bytes = kDbaseBlock);

/// Columns of a GeoPackage table, in the transaction of the handle.
[[nodiscard]] std::unique_ptr<AttributeUpdate> OpenGeoPackageUpdate(GDALDataset& dataset, OGRLayer& layer);

/// Columns of a table of a file geodatabase. OGR must not change the table while this lives. Null where the table is
/// of a kind that can't be changed this way.
[[nodiscard]] std::unique_ptr<AttributeUpdate> OpenFileGdbUpdate(const OgrSource& source, OGRLayer& layer,
                                                                 std::size_t held_bytes = kFileGdbHold);

/// Columns of a class of a personal geodatabase, in the edit of the handle.
[[nodiscard]] std::unique_ptr<AttributeUpdate> OpenPersonalUpdate(OGRLayer& layer);

}  // namespace tessarine::engine
