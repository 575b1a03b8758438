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

}  // namespace

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

void WriteValues(const ChosenMeasure& measure, const MeasuredValues& values, IRowBuffer& row) {
  row.SetValue(measure.first, values.First);
  if (measure.second >= 0) row.SetValue(measure.second, values.Second);
}

void WriteMissing(const ChosenMeasure& measure, IRowBuffer& row) {
  const std::int32_t places[] = {measure.first, measure.second};
  for (std::size_t position = 0; position < measure.row->FieldCount(); ++position) {
    row.SetValue(places[position], position < measure.row->NullFieldCount() ? Variant(kNullMark) : Variant(Null()));
  }
}

void WriteNullValues(std::span<const OptionEntry> entries, esriGeometryType shape, SpatialKind kind, IRowBuffer& row,
                     const FieldIndexes& indexes) {
  TrapHelper("WriteNullValues", [&] {
    for (const OptionEntry& entry : entries) {
      const MeasureRow* measure = FindMeasure(shape, kind, entry.OptionId());
      if (measure == nullptr) continue;
      for (std::size_t position = 0; position < measure->NullFieldCount(); ++position) {
        row.SetValue(indexes.Item(entry.Field(static_cast<std::int32_t>(position))), kNullMark);
      }
    }
  });
}

}  // namespace tessarine
