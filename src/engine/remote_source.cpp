// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/remote_source.h"

#include <cpl_string.h>

#include <array>
#include <filesystem>
#include <memory>
#include <string_view>

#include "platform/text_formats.h"

namespace tessarine {
namespace {

constexpr std::array<std::string_view, 3> kWeb = {"http://", "https://", "ftp://"};
constexpr std::array<std::string_view, 3> kRemote = {"/vsi", "PG:", "<OGRVRTDataSource"};

struct CplFree {
  void operator()(char* text) const { CPLFree(text); }
};

std::string Escaped(const std::string& text) {
  const std::unique_ptr<char, CplFree> escaped(CPLEscapeString(text.c_str(), static_cast<int>(text.size()), CPLES_XML));
  return escaped.get();
}

bool IsWebAddress(const std::string& text) {
  for (const std::string_view beginning : kWeb) {
    if (text.starts_with(beginning)) return true;
  }
  return false;
}

}  // namespace

bool IsRemoteSource(const std::string& path) {
  for (const std::string_view beginning : kRemote) {
    if (path.starts_with(beginning)) return true;
  }
  return false;
}

std::string PathOfSource(const std::string& text) {
  const bool archive = EndsWithIgnoringCase(text, ".zip");
  if (IsWebAddress(text)) return (archive ? "/vsizip//vsicurl/" : "/vsicurl/") + text;
  std::error_code error;
  if (archive && std::filesystem::is_regular_file(text, error)) {
    return "/vsizip/" + std::filesystem::absolute(text).lexically_normal().string();
  }
  return text;
}

std::string QuerySource(const std::string& path, const std::string& sql, const std::string& name) {
  return "<OGRVRTDataSource><OGRVRTLayer name=\"" + Escaped(name) + "\"><SrcDataSource>" + Escaped(path) +
         "</SrcDataSource><SrcSQL>" + Escaped(sql) + "</SrcSQL></OGRVRTLayer></OGRVRTDataSource>";
}

}  // namespace tessarine
