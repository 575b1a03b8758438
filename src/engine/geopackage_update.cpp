// Columns of a GeoPackage table, changed by SQL. Unlike OGR's own way it leaves the shape's column alone, so neither
// the shape nor the spatial index is written.
#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <vector>

#include "engine/attribute_update.h"
#include "engine/engine_fault.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

std::string Identifier(const std::string& name) { return "\"" + Replace(name, "\"", "\"\"") + "\""; }
std::string Literal(const std::string& text) { return "'" + Replace(text, "'", "''") + "'"; }

template <class Number, class... Format>
void AppendNumber(std::string& sql, Number number, Format... format) {
  std::array<char, 48> room;
  const auto end = std::to_chars(room.data(), room.data() + room.size(), number, format...);
  sql.append(room.data(), end.ptr);
}

// A statement for each row would cost more than its work; so many rows go into one.
constexpr int kRowsPerStatement = 400;

class GeoPackageUpdate final : public AttributeUpdate {
 public:
  GeoPackageUpdate(GDALDataset& dataset, OGRLayer& layer)
      : dataset_(dataset), table_(layer.GetName()), key_(Identifier(layer.GetFIDColumn())) {
    const OGRFeatureDefn& definition = *layer.GetLayerDefn();
    for (int index = 0; index < definition.GetFieldCount(); ++index) {
      columns_.push_back(Identifier(definition.GetFieldDefn(index)->GetNameRef()));
    }
  }

  bool Write(const OGRFeature& feature, std::span<const int> attributes) override {
    if (attributes.empty()) return true;
    for (const int index : attributes) {
      if (!IsWritable(feature.GetFieldDefnRef(index)->GetType())) return false;
    }
    if (!std::ranges::equal(attributes, held_attributes_)) {
      ExecuteHeld();
      held_attributes_.assign(attributes.begin(), attributes.end());
    }
    values_ += held_rows_ == 0 ? "(" : ",(";
    AppendNumber(values_, static_cast<long long>(feature.GetFID()));
    for (const int index : attributes) {
      values_ += ',';
      AppendValue(feature, index);
    }
    values_ += ')';
    if (++held_rows_ >= kRowsPerStatement) ExecuteHeld();
    return true;
  }

  void Finish() override {
    ExecuteHeld();
    if (!changed_) return;
    changed_ = false;
    Execute(
        "UPDATE gpkg_contents SET last_change = strftime('%Y-%m-%dT%H:%M:%fZ', 'now') WHERE lower(table_name) = "
        "lower(" +
        Literal(table_) + ")");
  }

 private:
  static bool IsWritable(OGRFieldType type) {
    return type == OFTInteger || type == OFTInteger64 || type == OFTReal || type == OFTString;
  }

  void AppendValue(const OGRFeature& feature, int index) {
    if (feature.IsFieldSetAndNotNull(index) == 0) {
      values_ += "NULL";
      return;
    }
    switch (feature.GetFieldDefnRef(index)->GetType()) {
      case OFTInteger:
      case OFTInteger64:
        AppendNumber(values_, static_cast<long long>(feature.GetFieldAsInteger64(index)));
        return;
      case OFTReal:
        // With 17 digits SQLite reads back the very same double; the exponent keeps whole numbers real.
        AppendNumber(values_, feature.GetFieldAsDouble(index), std::chars_format::scientific, 16);
        return;
      default:
        values_ += Literal(feature.GetFieldAsString(index));
    }
  }

  // UPDATE table SET a = held.column2, b = held.column3 FROM (VALUES (key, a, b), ...) AS held WHERE ...
  void ExecuteHeld() {
    if (held_rows_ == 0) return;
    std::string sql = "UPDATE " + Identifier(table_) + " SET ";
    int column = 1;
    for (const int index : held_attributes_) {
      if (column > 1) sql += ", ";
      sql += columns_[static_cast<std::size_t>(index)] + " = held_rows.column" + std::to_string(++column);
    }
    sql +=
        " FROM (VALUES " + values_ + ") AS held_rows WHERE " + Identifier(table_) + "." + key_ + " = held_rows.column1";
    values_.clear();
    held_rows_ = 0;
    changed_ = true;
    Execute(sql);
  }

  void Execute(const std::string& sql) {
    const GdalErrorScope errors;
    OGRLayer* result = dataset_.ExecuteSQL(sql.c_str(), nullptr, nullptr);
    if (result != nullptr) dataset_.ReleaseResultSet(result);
    if (errors.Failed()) RaiseEngineFault("Rows of '" + table_ + "' can't be written" + errors.Quote() + ".");
  }

  GDALDataset& dataset_;
  std::string table_, key_;
  std::vector<std::string> columns_;
  std::vector<int> held_attributes_;
  std::string values_;
  int held_rows_ = 0;
  bool changed_ = false;
};

}  // namespace

std::unique_ptr<AttributeUpdate> OpenGeoPackageUpdate(GDALDataset& dataset, OGRLayer& layer) {
  if (*layer.GetFIDColumn() == '\0') return nullptr;
  return std::make_unique<GeoPackageUpdate>(dataset, layer);
}

}  // namespace tessarine::engine
