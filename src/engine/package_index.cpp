// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/package_index.h"

#include <cpl_conv.h>
#include <ogrsf_frmts.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <deque>
#include <limits>
#include <span>
#include <utility>
#include <vector>

#include "engine/engine_fault.h"
#include "engine/ogr_source.h"
#include "engine/sql.h"
#include "engine/sqlite_connection.h"
#include "outputs/way_out.h"

namespace tessarine::engine {
namespace {

constexpr std::size_t kHead = 4, kCell = 24;
constexpr std::int64_t kRoot = 1;

struct Cell {
  std::int64_t number = 0;  // of a row, or of a node
  float least_x = 0.0F, greatest_x = 0.0F, least_y = 0.0F, greatest_y = 0.0F;
};

// In small blocks: they go, and make room, while nodes are made of them.
using Cells = std::deque<Cell>;

struct Node {
  std::int64_t number = 0;
  std::span<const Cell> cells;
};

std::vector<Cell> TakeFirst(Cells& cells, std::size_t count) {
  const auto end = cells.begin() + static_cast<std::ptrdiff_t>(std::min(count, cells.size()));
  std::vector<Cell> taken(cells.begin(), end);
  cells.erase(cells.begin(), end);
  return taken;
}

float Below(double value) {
  constexpr float kDown = -std::numeric_limits<float>::infinity();
  const auto near = static_cast<float>(value);
  return static_cast<double>(near) > value ? std::nextafter(near, kDown) : near;
}

float Above(double value) { return -Below(-value); }

// Sides beyond what a float holds are infinite.
double Middle(float least, float greatest) {
  constexpr double kMost = std::numeric_limits<float>::max();
  return std::clamp<double>(least, -kMost, kMost) + std::clamp<double>(greatest, -kMost, kMost);
}

// Neighbours stand together, as many as a node holds: in strips by x, and within these by y.
void Tile(Cells& cells, std::size_t room) {
  // In place: a stable sort would hold half of the cells twice. The number decides between equal ones.
  const auto middle_x = [](const Cell& cell) { return std::pair(Middle(cell.least_x, cell.greatest_x), cell.number); };
  const auto middle_y = [](const Cell& cell) { return std::pair(Middle(cell.least_y, cell.greatest_y), cell.number); };
  const double nodes = std::ceil(static_cast<double>(cells.size()) / static_cast<double>(room));
  const std::size_t strip = static_cast<std::size_t>(std::ceil(std::sqrt(nodes))) * room;
  std::ranges::sort(cells, {}, middle_x);
  for (std::size_t first = 0; first < cells.size(); first += strip) {
    const auto begin = cells.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = cells.begin() + static_cast<std::ptrdiff_t>(std::min(first + strip, cells.size()));
    std::ranges::sort(begin, end, {}, middle_y);
  }
}

Cell CellAround(const Node& node) {
  Cell around = node.cells.front();
  around.number = node.number;
  for (const Cell& cell : node.cells) {
    around.least_x = std::min(around.least_x, cell.least_x);
    around.greatest_x = std::max(around.greatest_x, cell.greatest_x);
    around.least_y = std::min(around.least_y, cell.least_y);
    around.greatest_y = std::max(around.greatest_y, cell.greatest_y);
  }
  return around;
}

template <class Whole>
void PutWhole(std::vector<unsigned char>& bytes, std::size_t place, Whole value) {
  for (std::size_t index = sizeof(Whole); index-- > 0;) {
    bytes[place + index] = static_cast<unsigned char>(value & 0xFFU);
    if constexpr (sizeof(Whole) > 1) value = static_cast<Whole>(value >> 8U);
  }
}

/// Writes the tables of one index.
class IndexTables {
 public:
  IndexTables(sqlite3& connection, const std::string& layer, const std::string& column)
      : connection_(connection), layer_(layer), column_(column), name_("rtree_" + layer + "_" + column) {}

  // The boxes of all shapes.
  [[nodiscard]] Cells ReadCells(const std::string& key) const {
    const std::string shape = SqlName(column_);
    const SqliteStatement rows = Prepare("SELECT " + SqlName(key) + ", ST_MinX(" + shape + "), ST_MaxX(" + shape +
                                         "), ST_MinY(" + shape + "), ST_MaxY(" + shape + ") FROM " + SqlName(layer_) +
                                         " WHERE " + shape + " NOT NULL AND NOT ST_IsEmpty(" + shape + ")");
    Cells cells;
    int state = SQLITE_ROW;
    while ((state = sqlite3_step(rows.get())) == SQLITE_ROW) {
      const auto side = [&](int index) { return sqlite3_column_double(rows.get(), index); };
      cells.push_back(
          {sqlite3_column_int64(rows.get(), 0), Below(side(1)), Above(side(2)), Below(side(3)), Above(side(4))});
    }
    if (state != SQLITE_DONE) Fail();
    return cells;
  }

  // An index without entries is there.
  void Fill(Cells cells) {
    if (cells.empty()) return;
    const std::size_t size = NodeSize();
    const std::size_t room = size > kHead ? (size - kHead) / kCell : 0;
    if (room < 2) RaiseEngineFault("The index of '" + layer_ + "' has nodes of an unknown kind.");
    put_node_ = Prepare("INSERT OR REPLACE INTO " + SqlName(name_ + "_node") + " VALUES (?, ?)");
    put_parent_ = Prepare("INSERT INTO " + SqlName(name_ + "_parent") + " VALUES (?, ?)");
    std::deque<std::pair<std::int64_t, std::int64_t>> leaves;  // of the rows
    std::uint16_t depth = 0;
    for (std::int64_t next = kRoot + 1;; ++depth) {
      Tile(cells, room);
      const bool is_root = cells.size() <= room;
      Cells above;
      while (!cells.empty()) {
        const std::vector<Cell> taken = TakeFirst(cells, room);
        const Node node{is_root ? kRoot : next++, taken};
        PutNode(node, size, is_root ? depth : std::uint16_t{0});
        for (const Cell& cell : node.cells) {
          if (depth == 0) leaves.emplace_back(cell.number, node.number);
          if (depth > 0) Put(*put_parent_, cell.number, node.number);
        }
        above.push_back(CellAround(node));
      }
      if (is_root) break;
      cells = std::move(above);
    }
    std::ranges::sort(leaves);
    const SqliteStatement put_row = Prepare("INSERT INTO " + SqlName(name_ + "_rowid") + " VALUES (?, ?)");
    for (const auto& [row, leaf] : leaves) Put(*put_row, row, leaf);
  }

  void Execute(const char* statement) const {
    if (sqlite3_exec(&connection_, statement, nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
  }

 private:
  [[noreturn]] void Fail() const {
    RaiseEngineFault("The layer '" + layer_ + "' can't be indexed (SQLite says: " + sqlite3_errmsg(&connection_) +
                     ").");
  }

  [[nodiscard]] SqliteStatement Prepare(const std::string& text) const {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(&connection_, text.c_str(), -1, &statement, nullptr) != SQLITE_OK) Fail();
    return SqliteStatement(statement);
  }

  [[nodiscard]] std::size_t NodeSize() const {
    const SqliteStatement root = Prepare("SELECT length(data) FROM " + SqlName(name_ + "_node") + " WHERE nodeno = 1");
    if (sqlite3_step(root.get()) != SQLITE_ROW) Fail();
    return static_cast<std::size_t>(sqlite3_column_int64(root.get(), 0));
  }

  void Run(sqlite3_stmt& statement) const {
    if (sqlite3_step(&statement) != SQLITE_DONE) Fail();
    sqlite3_reset(&statement);
  }

  void Put(sqlite3_stmt& statement, std::int64_t first, std::int64_t second) const {
    sqlite3_bind_int64(&statement, 1, first);
    sqlite3_bind_int64(&statement, 2, second);
    Run(statement);
  }

  void PutNode(const Node& node, std::size_t size, std::uint16_t depth) const {
    std::vector<unsigned char> bytes(size, 0);
    PutWhole(bytes, 0, depth);
    PutWhole(bytes, 2, static_cast<std::uint16_t>(node.cells.size()));
    std::size_t place = kHead;
    for (const Cell& cell : node.cells) {
      PutWhole(bytes, place, static_cast<std::uint64_t>(cell.number));
      place += sizeof(std::uint64_t);
      for (const float side : {cell.least_x, cell.greatest_x, cell.least_y, cell.greatest_y}) {
        PutWhole(bytes, place, std::bit_cast<std::uint32_t>(side));
        place += sizeof(std::uint32_t);
      }
    }
    sqlite3_bind_int64(put_node_.get(), 1, node.number);
    sqlite3_bind_blob(put_node_.get(), 2, bytes.data(), static_cast<int>(bytes.size()), SQLITE_STATIC);
    Run(*put_node_);
  }

  sqlite3& connection_;
  std::string layer_, column_, name_;
  SqliteStatement put_node_, put_parent_;
};

void AlwaysTrue(sqlite3_context* context, int, sqlite3_value**) { sqlite3_result_int(context, 1); }

// GDAL writes the table, its entry among the extensions and its triggers.
void MakeIndex(GDALDataset& dataset, const std::string& layer, const std::string& column) {
  RunSql(dataset, "SELECT CreateSpatialIndex(" + SqlText(layer) + ", " + SqlText(column) + ")");
}

}  // namespace

void IndexPackageLayer(const std::filesystem::path& file, const std::string& layer) {
  const CPLConfigOptionSetter unhurried("OGR_SQLITE_SYNCHRONOUS", "OFF", true);
  const CPLConfigOptionSetter journal("OGR_SQLITE_JOURNAL", "MEMORY", true);
  const GdalErrorScope errors;
  DatasetHandle dataset = OpenDatasetAt(file.string(), FileAccess::Change);
  OGRLayer* indexed = dataset->GetLayerByName(layer.c_str());
  if (indexed == nullptr) RaiseEngineFault("The layer '" + layer + "' isn't there to be indexed.");
  const std::string column = indexed->GetGeometryColumn(), key = indexed->GetFIDColumn();
  if (sqlite3* connection = ConnectionOf(*dataset)) {
    IndexTables tables(*connection, layer, column);
    Cells cells = tables.ReadCells(key);
    // To this connection all shapes are empty from here on, so that none is entered one by one.
    sqlite3_create_function(connection, "ST_IsEmpty", 1, SQLITE_UTF8, nullptr, AlwaysTrue, nullptr, nullptr);
    MakeIndex(*dataset, layer, column);
    if (!errors.Failed()) {
      tables.Execute("BEGIN");
      tables.Fill(std::move(cells));
      tables.Execute("COMMIT");
    }
  } else {
    MakeIndex(*dataset, layer, column);
  }
  dataset.reset();
  if (errors.Failed()) {
    RaiseEngineFault("The layer '" + layer + "' can't be indexed" + errors.Quote() +
                     WayOut(file.string(), errors.Text()));
  }
}

}  // namespace tessarine::engine
