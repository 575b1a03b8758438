// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/dbase_columns.h"

#include <algorithm>
#include <string_view>

#include "engine/dbase_layout.h"
#include "outputs/formats.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

constexpr std::int32_t kGreatestWidth = 32;
constexpr std::size_t kMostColumns = 255;
constexpr std::int64_t kLargestSize = 65535;  // of the header, and of a record
constexpr std::int64_t kLongestTrailer = 1024;
constexpr char kNullDigit = '*';
constexpr char kEndOfHeader = '\r';

bool IsPlainName(std::string_view name) {
  constexpr std::string_view kDigits = "0123456789";
  constexpr std::string_view kPlain = "0123456789_ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  return !name.empty() && name.size() <= kDbaseNameLength && name.find_first_not_of(kPlain) == std::string_view::npos &&
         kDigits.find(name.front()) == std::string_view::npos;
}

// The table as it is to become.
class Extension {
 public:
  explicit Extension(const DbaseLayout& before) : before_(before), size_(before.record_size) {}

  [[nodiscard]] bool Add(const Field& field) {
    const bool plain = field.Type == esriFieldTypeDouble && field.Scale > 0 && field.Precision > field.Scale + 1 &&
                       field.Precision <= kGreatestWidth && IsPlainName(field.Name) &&
                       (field.AliasName.empty() || field.AliasName == field.Name);
    if (!plain || HasColumn(field.Name) || before_.columns.size() + added_.size() >= kMostColumns) return false;
    const std::int64_t header = FirstRecord() + static_cast<std::int64_t>(kDbaseColumnSize);
    if (header > kLargestSize || size_ + field.Precision > kLargestSize) return false;
    added_.push_back(
        {field.Name, 'N', static_cast<std::size_t>(size_), static_cast<std::size_t>(field.Precision), field.Scale});
    size_ += field.Precision;
    return true;
  }

  [[nodiscard]] std::size_t AddedCount() const { return added_.size(); }

  void Write(const RawFile& from, const RawFile& to, std::int64_t block_bytes) const {
    WriteHeader(from, to);
    const std::int64_t block = std::max<std::int64_t>(1, block_bytes / size_);
    std::vector<char> rows, longer;
    for (std::int64_t row = 0; row < before_.record_count; row += block) {
      const std::int64_t count = std::min(block, before_.record_count - row);
      rows.resize(static_cast<std::size_t>(count * before_.record_size));
      from.Read(before_.first_record + row * before_.record_size, rows);
      longer.assign(static_cast<std::size_t>(count * size_), kNullDigit);
      for (std::int64_t index = 0; index < count; ++index) {
        std::copy_n(rows.begin() + index * before_.record_size, before_.record_size, longer.begin() + index * size_);
      }
      to.Write(FirstRecord() + row * size_, longer);
    }
    // The mark after the last row, where there is one.
    std::vector<char> trailer(static_cast<std::size_t>(from.Size() - EndOfRows(before_)));
    from.Read(EndOfRows(before_), trailer);
    to.Write(FirstRecord() + before_.record_count * size_, trailer);
  }

  static std::int64_t EndOfRows(const DbaseLayout& layout) {
    return layout.first_record + layout.record_count * layout.record_size;
  }

 private:
  [[nodiscard]] std::int64_t FirstRecord() const {
    return before_.first_record + static_cast<std::int64_t>(added_.size() * kDbaseColumnSize);
  }

  [[nodiscard]] bool HasColumn(std::string_view name) const {
    const auto same = [&](const DbaseColumn& column) { return EqualsIgnoringCase(column.name, name); };
    return std::ranges::any_of(before_.columns, same) || std::ranges::any_of(added_, same);
  }

  void WriteHeader(const RawFile& from, const RawFile& to) const {
    std::vector<char> header(static_cast<std::size_t>(before_.first_record) - 1);
    from.Read(0, header);
    for (const DbaseColumn& column : added_) {
      const std::size_t at = header.size();
      header.resize(at + kDbaseColumnSize);
      std::ranges::copy(column.name, header.begin() + static_cast<std::ptrdiff_t>(at));
      header[at + kDbaseTypeAt] = column.type;
      header[at + kDbaseWidthAt] = static_cast<char>(column.width);
      header[at + kDbaseDecimalsAt] = static_cast<char>(column.decimals);
    }
    header.push_back(kEndOfHeader);
    std::ranges::copy(DbaseDate(), header.begin() + kDbaseDateAt);
    PutLittleEndian(header.size(), header, kDbaseFirstRecord);
    PutLittleEndian(static_cast<std::uint64_t>(size_), header, kDbaseRecordSize);
    to.Write(0, header);
  }

  const DbaseLayout& before_;
  std::vector<DbaseColumn> added_;
  std::int64_t size_;
};

// Nothing but columns in the header, and all rows in the file.
bool IsPlainTable(const DbaseLayout& layout, std::int64_t file_size) {
  const std::size_t header = kDbaseHeaderSize + layout.columns.size() * kDbaseColumnSize + 1;
  const std::int64_t rest = file_size - Extension::EndOfRows(layout);
  return !layout.columns.empty() && layout.first_record == static_cast<std::int64_t>(header) && rest >= 0 &&
         rest <= kLongestTrailer;
}

}  // namespace

std::size_t AddDbaseColumns(const OgrSource& source, std::span<const FieldRef> fields, std::int64_t block_bytes) {
  const std::string path = FindDbaseTable(source);
  if (path.empty()) return 0;
  const RawFile table(path);
  if (!table.IsOpen() || table.Size() < static_cast<std::int64_t>(kDbaseHeaderSize)) return 0;
  const DbaseLayout layout = ReadDbaseLayout(table);
  if (!IsPlainTable(layout, table.Size())) return 0;
  Extension extension(layout);
  for (const FieldRef& field : fields) {
    if (!extension.Add(*field)) break;
  }
  if (extension.AddedCount() == 0) return 0;
  FileReplacement replacement(path);
  if (!replacement.File().IsOpen()) return 0;
  extension.Write(table, replacement.File(), block_bytes);
  replacement.Commit();
  return extension.AddedCount();
}

}  // namespace tessarine::engine
