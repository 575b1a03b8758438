// SPDX-License-Identifier: GPL-2.0-or-later
// Columns of a GeoPackage table, changed by SQL. Unlike OGR's own way it leaves the shape's column alone, so neither
// the shape nor the spatial index is written.
#include <sqlite3.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/attribute_update.h"
#include "engine/engine_fault.h"
#include "engine/sql.h"
#include "engine/sqlite_connection.h"
#include "outputs/way_out.h"

namespace tessarine::engine {
namespace {

using Statement = SqliteStatement;

class GeoPackageUpdate final : public AttributeUpdate {
 public:
  GeoPackageUpdate(sqlite3* connection, OGRLayer& layer)
      : connection_(connection), table_(layer.GetName()), key_(SqlName(layer.GetFIDColumn())) {
    const OGRFeatureDefn& definition = *layer.GetLayerDefn();
    for (int index = 0; index < definition.GetFieldCount(); ++index) {
      columns_.push_back(SqlName(definition.GetFieldDefn(index)->GetNameRef()));
    }
  }

  bool Write(const OGRFeature& feature, std::span<const int> attributes) override {
    if (attributes.empty()) return true;
    for (const int index : attributes) {
      if (!IsWritable(feature.GetFieldDefnRef(index)->GetType())) return false;
    }
    if (!std::ranges::equal(attributes, attributes_)) PrepareFor(attributes);
    int place = 0;
    for (const int index : attributes) Bind(++place, feature, index);
    sqlite3_bind_int64(update_.get(), ++place, feature.GetFID());
    changed_ = true;
    Run(*update_);
    return true;
  }

  void Finish() override {
    if (!changed_) return;
    changed_ = false;
    Run(
        *Prepared("UPDATE gpkg_contents SET last_change = strftime('%Y-%m-%dT%H:%M:%fZ', 'now') WHERE "
                  "lower(table_name) = lower(" +
                  SqlText(table_) + ")"));
  }

 private:
  static bool IsWritable(OGRFieldType type) {
    return type == OFTInteger || type == OFTInteger64 || type == OFTReal || type == OFTString;
  }

  void PrepareFor(std::span<const int> attributes) {
    std::string sql = "UPDATE " + SqlName(table_) + " SET ";
    for (const int index : attributes) sql += columns_[static_cast<std::size_t>(index)] + " = ?, ";
    sql.resize(sql.size() - 2);
    update_ = Prepared(sql + " WHERE " + key_ + " = ?");
    attributes_.assign(attributes.begin(), attributes.end());
  }

  // The values live as long as the feature, and the statement runs at once.
  void Bind(int place, const OGRFeature& feature, int index) {
    if (feature.IsFieldSetAndNotNull(index) == 0) {
      sqlite3_bind_null(update_.get(), place);
      return;
    }
    switch (feature.GetFieldDefnRef(index)->GetType()) {
      case OFTInteger:
      case OFTInteger64:
        sqlite3_bind_int64(update_.get(), place, feature.GetFieldAsInteger64(index));
        return;
      case OFTReal:
        sqlite3_bind_double(update_.get(), place, feature.GetFieldAsDouble(index));
        return;
      default:
        sqlite3_bind_text(update_.get(), place, feature.GetFieldAsString(index), -1, SQLITE_TRANSIENT);
    }
  }

  [[nodiscard]] Statement Prepared(const std::string& sql) const {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(connection_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) RaiseFailure();
    return Statement(statement);
  }

  void Run(sqlite3_stmt& statement) const {
    const bool done = sqlite3_step(&statement) == SQLITE_DONE;
    if (!done) RaiseFailure();
    sqlite3_reset(&statement);
  }

  [[noreturn]] void RaiseFailure() const {
    const char* file = sqlite3_db_filename(connection_, "main");
    const std::string path = file == nullptr ? "" : file, complaint = sqlite3_errmsg(connection_);
    RaiseEngineFault("Rows of '" + table_ + "' in '" + path + "' can't be written (SQLite says: " + complaint + ")" +
                     WayOut(path, complaint));
  }

  sqlite3* connection_;
  std::string table_, key_;
  std::vector<std::string> columns_;
  std::vector<int> attributes_;  // those of the statement
  Statement update_;
  bool changed_ = false;
};

}  // namespace

std::unique_ptr<AttributeUpdate> OpenGeoPackageUpdate(GDALDataset& dataset, OGRLayer& layer) {
  sqlite3* const connection = ConnectionOf(dataset);
  if (connection == nullptr || *layer.GetFIDColumn() == '\0') return nullptr;
  return std::make_unique<GeoPackageUpdate>(connection, layer);
}

}  // namespace tessarine::engine
