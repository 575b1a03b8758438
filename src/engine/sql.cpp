// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/sql.h"

#include <ogrsf_frmts.h>

#include "platform/text_formats.h"

namespace tessarine::engine {

std::string SqlName(const std::string& name) { return '"' + Replace(name, "\"", "\"\"") + '"'; }

std::string SqlText(const std::string& text) { return "'" + Replace(text, "'", "''") + "'"; }

std::string SqlTable(const std::string& layer) {
  const std::size_t point = layer.find('.');
  if (point == std::string::npos) return SqlName(layer);
  return SqlName(layer.substr(0, point)) + "." + SqlName(layer.substr(point + 1));
}

SqlRows AskSql(GDALDataset& dataset, const std::string& query) {
  return {dataset.ExecuteSQL(query.c_str(), nullptr, nullptr), SqlRelease{&dataset}};
}

std::vector<std::string> AskSqlTexts(GDALDataset& dataset, const std::string& query) {
  std::vector<std::string> texts;
  const SqlRows rows = AskSql(dataset, query);
  if (!rows) return texts;
  for (const auto& row : *rows) texts.emplace_back(row->GetFieldAsString(0));
  return texts;
}

void RunSql(GDALDataset& dataset, const std::string& statement) { (void)AskSql(dataset, statement); }

}  // namespace tessarine::engine
