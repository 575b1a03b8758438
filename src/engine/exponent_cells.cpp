// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/exponent_cells.h"

#include <algorithm>
#include <array>

#include "engine/dbase_layout.h"
#include "engine/engine_fault.h"
#include "engine/raw_file.h"
#include "platform/value_fit.h"

namespace tessarine::engine {

void ExponentCells::TakeOut(OGRFeature& feature, std::span<const int> attributes) {
  taken_.clear();
  for (const int attribute : attributes) {
    taken_.push_back({OGRNullFID, attribute, feature.GetFieldAsDouble(attribute)});
    feature.SetFieldNull(attribute);
  }
}

void ExponentCells::PutBack(OGRFeature& feature) {
  for (Cell cell : taken_) {
    feature.SetField(cell.attribute, cell.value);
    cell.fid = feature.GetFID();
    cells_.push_back(cell);
  }
  taken_.clear();
}

void ExponentCells::Write(const OgrSource& source) {
  if (cells_.empty()) return;
  const std::string path = FindDbaseTable(source);
  const RawFile file(path);
  if (!file.IsOpen()) RaiseEngineFault("'" + path + "' can't be changed: check its permissions.");
  const DbaseLayout layout = ReadDbaseLayout(file);
  for (const Cell& cell : cells_) {
    const DbaseColumn& column = layout.columns.at(static_cast<std::size_t>(cell.attribute));
    std::array<char, 400> room;
    const std::string_view text = ExponentInColumn(cell.value, column.width, room);
    std::string place(column.width - text.size(), ' ');
    place += text;
    file.Write(layout.first_record + cell.fid * layout.record_size + static_cast<std::int64_t>(column.offset), place);
  }
  cells_.clear();
}

}  // namespace tessarine::engine
