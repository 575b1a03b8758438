// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/results/layer_words.h"

#include <qgsvectordataprovider.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "hosts/qgis/layer_file.h"
#include "hosts/windows/qt_text.h"

namespace tessarine::qgis {
namespace {

// No shell hands over a longer word.
constexpr std::size_t kLongestCondition = 100'000;
// So many neighbours are shorter as a range.
constexpr std::size_t kShortestRange = 4;

// The column of identifiers, or the name that they have in conditions where no column holds them.
std::string KeyOf(const QgsVectorLayer& layer) {
  const QgsAttributeList keys = layer.dataProvider()->pkAttributeIndexes();
  if (keys.size() != 1) return "FID";
  return "\"" + FromQt(layer.fields().at(keys.front()).name().replace('"', QStringLiteral("\"\""))) + "\"";
}

void Add(std::string& text, const char* between, const std::string& part) {
  text += (text.empty() ? "" : between) + part;
}

}  // namespace

std::string RowsCondition(const std::string& key, const QgsFeatureIds& ids) {
  std::vector<QgsFeatureId> sorted(ids.begin(), ids.end());
  std::ranges::sort(sorted);
  std::string single, ranges;
  for (auto first = sorted.begin(); first != sorted.end();) {
    auto last = first;
    while (std::next(last) != sorted.end() && *std::next(last) == *last + 1) ++last;
    const auto behind = std::next(last);
    if (static_cast<std::size_t>(behind - first) >= kShortestRange) {
      Add(ranges, " OR ", key + " BETWEEN " + std::to_string(*first) + " AND " + std::to_string(*last));
    } else {
      for (auto id = first; id != behind; ++id) Add(single, ",", std::to_string(*id));
    }
    first = behind;
  }
  if (!single.empty()) single = key + " IN (" + single + ")";
  Add(single, ranges.empty() ? "" : " OR ", ranges);
  return single;
}

LayerWords WordsOf(const QgsVectorLayer& layer, ReadRows rows) {
  FileBehind file = FileOf(layer);
  LayerWords words{std::move(file.path), std::move(file.layer)};
  const std::string quoted = "'" + FromQt(layer.name()) + "'";
  if (!file.why_other.empty()) {
    words.why_none = quoted + " can't be named there, because " + file.why_other;
    return words;
  }
  const QString filter = layer.subsetString().trimmed();
  if (filter.startsWith(QStringLiteral("SELECT "), Qt::CaseInsensitive)) {
    words.why_none = "the filter of " + quoted + " is a whole query";
    return words;
  }
  words.where = FromQt(filter);
  if (rows == ReadRows::All) return words;
  const std::string chosen = RowsCondition(KeyOf(layer), layer.selectedFeatureIds());
  words.where = words.where.empty() ? chosen : "(" + words.where + ") AND (" + chosen + ")";
  if (words.where.size() > kLongestCondition) {
    words.why_none = "the selected records of " + quoted + " are too many to be listed";
  }
  return words;
}

}  // namespace tessarine::qgis
