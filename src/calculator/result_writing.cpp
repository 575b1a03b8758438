// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/result_writing.h"

#include <algorithm>

#include "platform/fault.h"
#include "platform/text_formats.h"
#include "platform/trap.h"

namespace tessarine {
namespace {

auto FindName(const std::vector<std::pair<std::string, std::int32_t>>& items, std::string_view name) {
  return std::ranges::find_if(items, [&](const auto& item) { return EqualsIgnoringCase(item.first, name); });
}

bool IsLost(ValueChange change) {
  return change == ValueChange::OutOfRange || change == ValueChange::NotFinite || change == ValueChange::Unreadable;
}

// What a field held, and what became of the value that it got: nothing where it has no room and holds the same still.
struct Put {
  Variant before;
  std::optional<ValueChange> change = {};
};

Put PutValue(IRowBuffer& row, std::int32_t index, const Variant& value) {
  Put put{row.Value(index)};
  const ValueChange change = row.SetValue(index, value);
  if (IsLost(change)) {
    row.SetValue(index, put.before);
  } else {
    put.change = change;
  }
  return put;
}

void Tell(const ChangeNote& note, std::int32_t index, ValueChange change) {
  if (note && change != ValueChange::None) note(index, change);
}

}  // namespace

Fault NoRoomIn(std::string_view field, std::string_view other) {
  if (!other.empty()) {
    return {kOverflow, "Tessarine",
            "The field '" + std::string(field) + "' has no room for the value and keeps what it held, and so does '" +
                std::string(other) + "' with the other half of the measure: give it more room, or name another field."};
  }
  return {kOverflow, "Tessarine",
          "The field '" + std::string(field) +
              "' has no room for the value and keeps what it held: give it more room, or name another field."};
}

bool FieldIndexes::Contains(std::string_view name) const { return FindName(items_, name) != items_.end(); }

void FieldIndexes::Add(std::string_view name, std::int32_t index) {
  if (!Contains(name)) items_.emplace_back(name, index);
}

std::int32_t FieldIndexes::Item(std::string_view name) const {
  const auto found = FindName(items_, name);
  if (found == items_.end()) Raise(kInvalidCall, "The run has no field '" + std::string(name) + "'.");
  return found->second;
}

std::vector<ChosenMeasure> ResolveMeasures(std::span<const OptionEntry> entries, esriGeometryType shape,
                                           SpatialKind kind, const FieldIndexes& indexes) {
  std::vector<ChosenMeasure> measures;
  for (const OptionEntry& entry : entries) {
    const MeasureRow* row = FindMeasure(shape, kind, entry.OptionId());
    if (row == nullptr) continue;
    measures.push_back(
        {row, indexes.Item(entry.FirstField()), row->FieldCount() == 2 ? indexes.Item(entry.SecondField()) : -1});
  }
  return measures;
}

std::optional<std::int32_t> WriteValues(const ChosenMeasure& measure, const MeasuredValues& values, IRowBuffer& row,
                                        const ChangeNote& note) {
  const Put first = PutValue(row, measure.first, values.first);
  if (!first.change) return measure.first;
  if (measure.second >= 0) {
    const Put second = PutValue(row, measure.second, values.second);
    if (!second.change) {
      row.SetValue(measure.first, first.before);
      return measure.second;
    }
    Tell(note, measure.second, *second.change);
  }
  Tell(note, measure.first, *first.change);
  return std::nullopt;
}

void WriteMissing(const ChosenMeasure& measure, IRowBuffer& row, const ChangeNote& note) {
  const std::int32_t places[] = {measure.first, measure.second};
  for (std::size_t position = 0; position < measure.row->FieldCount(); ++position) {
    const bool marked = position < measure.row->NullFieldCount();
    Tell(note, places[position], row.SetValue(places[position], marked ? Variant(kNullMark) : Variant(Null())));
  }
}

void WriteNullValues(std::span<const OptionEntry> entries, esriGeometryType shape, SpatialKind kind, IRowBuffer& row,
                     const FieldIndexes& indexes, const ChangeNote& note) {
  TrapHelper("WriteNullValues", [&] {
    for (const OptionEntry& entry : entries) {
      const MeasureRow* measure = FindMeasure(shape, kind, entry.OptionId());
      if (measure == nullptr) continue;
      for (std::size_t position = 0; position < measure->NullFieldCount(); ++position) {
        const std::string name = entry.Field(static_cast<std::int32_t>(position));
        const std::int32_t index = indexes.Item(name);
        const Put put = PutValue(row, index, kNullMark);
        if (!put.change) throw NoRoomIn(name);
        Tell(note, index, *put.change);
      }
    }
  });
}

}  // namespace tessarine
