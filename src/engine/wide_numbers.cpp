// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/wide_numbers.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

constexpr int kWidestExact = 18;

}  // namespace

bool IsWideWhole(const OGRFieldDefn& field) {
  return field.GetType() == OFTReal && field.GetPrecision() == 0 && field.GetWidth() > kWidestExact;
}

std::shared_ptr<const WideNumbers> WideNumbers::Open(const OgrSource& source, OGRLayer& layer) {
  const OGRFeatureDefn& definition = *layer.GetLayerDefn();
  std::vector<bool> wide;
  for (int index = 0; index < definition.GetFieldCount(); ++index) {
    wide.push_back(IsWideWhole(*definition.GetFieldDefn(index)));
  }
  if (std::ranges::none_of(wide, [](bool is_wide) { return is_wide; })) return nullptr;
  const std::string path = FindDbaseTable(source);
  if (path.empty()) return nullptr;
  auto file = std::make_unique<RawFile>(path, FileAccess::Read);
  if (!file->IsOpen()) return nullptr;
  DbaseLayout layout = ReadDbaseLayout(*file);
  if (layout.columns.size() != wide.size()) return nullptr;
  return std::shared_ptr<const WideNumbers>(new WideNumbers(std::move(file), std::move(layout), std::move(wide)));
}

std::optional<std::int64_t> WideNumbers::Read(std::int64_t fid, int index) const {
  const DbaseColumn& column = layout_.columns[static_cast<std::size_t>(index)];
  std::string digits(column.width, '\0');
  const std::int64_t row = layout_.first_record + fid * layout_.record_size;
  file_->Read(row + static_cast<std::int64_t>(column.offset), digits);
  digits = Trim(digits);
  std::int64_t whole = 0;
  const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), whole);
  if (end.ec != std::errc() || end.ptr != digits.data() + digits.size()) return std::nullopt;
  return whole;
}

}  // namespace tessarine::engine
