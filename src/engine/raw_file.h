// SPDX-License-Identifier: GPL-2.0-or-later
// A file that is changed in place, byte by byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>

#include "engine/file_access.h"

namespace tessarine::engine {

/// Every transfer is whole, or a fault that names the file.
class RawFile {
 public:
  explicit RawFile(std::string path, FileAccess access = FileAccess::Change);
  /// Takes over an open file.
  RawFile(std::string path, int handle) : path_(std::move(path)), handle_(handle) {}
  ~RawFile();
  RawFile(const RawFile&) = delete;
  RawFile& operator=(const RawFile&) = delete;

  /// False when there is no such file or it may not be opened for what was asked.
  [[nodiscard]] bool IsOpen() const { return handle_ >= 0; }
  [[nodiscard]] std::int64_t Size() const;
  void Read(std::int64_t offset, std::span<char> bytes) const;
  void Write(std::int64_t offset, std::span<const char> bytes) const;

 private:
  [[noreturn]] void Fail(const char* reason) const;

  std::string path_;
  int handle_;
};

/// The new version of a file: written beside it, and put in its place when it is whole.
class FileReplacement {
 public:
  explicit FileReplacement(const std::string& path);
  /// Removes what was not committed.
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  /// Not open where the folder takes no new file.
  [[nodiscard]] const RawFile& File() const { return file_; }
  /// From here on the file is the new one; owner and permissions stay.
  void Commit();

 private:
  std::string target_, path_;
  RawFile file_;
};

/// Whole numbers of `bytes.size()` bytes, the lowest first.
[[nodiscard]] inline std::uint64_t LittleEndian(std::span<const char> bytes) {
  std::uint64_t value = 0;
  for (std::size_t at = bytes.size(); at > 0; --at) value = value * 256 + static_cast<unsigned char>(bytes[at - 1]);
  return value;
}
inline void PutLittleEndian(std::uint64_t value, std::span<char> bytes) {
  for (char& byte : bytes) {
    byte = static_cast<char>(value & 0xFFU);
    value >>= 8U;
  }
}

/// A whole number at a fixed place of a header.
struct HeaderNumber {
  std::size_t at, size;
};
[[nodiscard]] inline std::uint64_t LittleEndian(std::span<const char> header, HeaderNumber number) {
  return LittleEndian(header.subspan(number.at, number.size));
}
inline void PutLittleEndian(std::uint64_t value, std::span<char> header, HeaderNumber number) {
  PutLittleEndian(value, header.subspan(number.at, number.size));
}

}  // namespace tessarine::engine
