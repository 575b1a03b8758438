// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/in_place_report.h"

#include <QLocale>
#include <string_view>

#include "hosts/windows/qt_text.h"
#include "platform/rich_text.h"

namespace tessarine::qgis {
namespace {

// Sections of reports have a bold heading and end with a rule.
constexpr std::string_view kHeading = "\\b Output:\\b0\\par\r\n";
constexpr std::string_view kRule = "---------------------------------------------";
constexpr std::string_view kLineEnd = "\\par\r\n";

// Reports are in English.
std::string Counted(std::size_t count, const char* one, const char* several) {
  const QString number = QLocale(QLocale::English, QLocale::UnitedStates).toString(static_cast<qulonglong>(count));
  return "  ** " + FromQt(number) + (count == 1 ? one : several) + std::string(kLineEnd);
}

}  // namespace

std::string InPlaceReport(const std::string& report, const std::string& layer, std::size_t moved, std::size_t kept) {
  const std::size_t heading = report.find(kHeading);
  const std::size_t begin = heading + kHeading.size();
  const std::size_t end = heading == std::string::npos ? heading : report.find(kRule, begin);
  if (end == std::string::npos) return report;
  std::string section = "  ** Edited in Place:  the layer '" + EscapeRtf(layer) + "'" + std::string(kLineEnd) +
                        Counted(moved, " feature has a new shape", " features have new shapes");
  if (kept > 0) section += Counted(kept, " feature keeps its shape", " features keep their shapes");
  return report.substr(0, begin) + section + report.substr(end);
}

}  // namespace tessarine::qgis
