// SPDX-License-Identifier: GPL-2.0-or-later
// Statements for the databases beneath GDAL's datasets, and names and texts in them.
#pragma once

#include <gdal_priv.h>

#include <memory>
#include <string>
#include <vector>

namespace tessarine::engine {

/// A table or column by its name, which may hold any character: between double quotes.
[[nodiscard]] std::string SqlName(const std::string& name);

/// A text as a value: between single quotes.
[[nodiscard]] std::string SqlText(const std::string& text);

/// A table of a server, which OGR calls schema.table outside of the schema that the connection works in. What stands
/// in front of the first point is taken for the schema.
[[nodiscard]] std::string SqlTable(const std::string& layer);

struct SqlRelease {
  GDALDataset* dataset = nullptr;
  void operator()(OGRLayer* rows) const { dataset->ReleaseResultSet(rows); }
};
using SqlRows = std::unique_ptr<OGRLayer, SqlRelease>;

/// The rows of a query, to be let go before the dataset; null where it fails or has none to give. Errors go to GDAL's
/// handler.
[[nodiscard]] SqlRows AskSql(GDALDataset& dataset, const std::string& query);

/// The first column of all rows.
[[nodiscard]] std::vector<std::string> AskSqlTexts(GDALDataset& dataset, const std::string& query);

/// Runs a statement whose rows nobody wants.
void RunSql(GDALDataset& dataset, const std::string& statement);

}  // namespace tessarine::engine
