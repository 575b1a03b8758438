// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/filegdb_edit.h"

#include <algorithm>
#include <filesystem>

#include "engine/edit_findings.h"
#include "engine/engine_fault.h"
#include "engine/filegdb_check.h"
#include "engine/filegdb_indexes.h"
#include "engine/filegdb_table.h"
#include "engine/held_by_file.h"
#include "engine/ogr_source.h"
#include "engine/sql.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

HeldByFile<FileGdbEdit>& AllEdits() {
  static HeldByFile<FileGdbEdit> edits;
  return edits;
}

std::string FileName(const std::string& path) { return fs::path(path).filename().string(); }

// GDAL makes the index that has no entry yet.
void MakeIndex(const std::string& folder, const std::string& table, const GdbIndex& index) {
  const GdalErrorScope errors;
  const DatasetHandle dataset = OpenDatasetAt(folder, FileAccess::Change);
  // The driver takes names as they stand here, without quotes.
  RunSql(*dataset, "CREATE INDEX " + index.name + " ON " + table + "(" + index.expression + ")");
}

// What an index is made of; empty where the column isn't there.
std::optional<GdbColumn::Type> IndexedType(const GdbTable& table, const GdbIndex& index) {
  const int found = table.FindColumn(index.Column());
  if (found < 0) return std::nullopt;
  return table.Description().columns[static_cast<std::size_t>(found)].type;
}

}  // namespace

bool IsFileGdb(const std::string& native_path) {
  std::string_view path = native_path;
  while (path.ends_with('/')) path.remove_suffix(1);
  return EndsWithIgnoringCase(path, ".gdb") && !path.starts_with("/vsi");
}

std::shared_ptr<FileGdbEdit> FileGdbEdit::UnderWay(const std::string& native_path) {
  return AllEdits().Find(native_path);
}

std::shared_ptr<FileGdbEdit> FileGdbEdit::Begin(const std::string& native_path) {
  if (auto edit = UnderWay(native_path)) return edit;
  std::shared_ptr<FileGdbEdit> edit(new FileGdbEdit(RealFileKey(native_path)));
  AllEdits().Put(edit->path_, edit);
  return edit;
}

void FileGdbEdit::End(std::shared_ptr<FileGdbEdit>& edit) {
  const std::shared_ptr<FileGdbEdit> last = std::move(edit);
  edit.reset();
  if (last && last.use_count() == 1) last->Publish();
}

FileGdbEdit::FileGdbEdit(const std::string& native_path) : path_(native_path), copy_(native_path) {
  if (!copy_.IsNew()) OwnCatalogue();
}

FileGdbEdit::~FileGdbEdit() {
  try {
    Publish();
  } catch (const Fault& fault) {
    // Who calls End is told by the fault; here GDAL's handler is the only listener.
    CPLError(CE_Failure, CPLE_AppDefined, "%s", fault.what());
  }
}

void FileGdbEdit::OwnCatalogue() {
  for (const auto& [number, name] : GdbTableNames(Folder())) {
    if (!name.starts_with("GDB_")) continue;
    const std::string base = GdbTableBase(Folder(), number);
    copy_.OwnFiles(FileName(base) + ".");
    BlockFreePlaces(base);
    changes_[FileName(base)] = {name, true, {}};
  }
  for (const char* name : {"gdb", "timestamps"}) copy_.OwnFiles(name);
}

void FileGdbEdit::BlockFreePlaces(const std::string& base) {
  const std::string list = base + ".freelist";
  std::error_code error;
  if (fs::is_directory(list, error)) return;
  fs::remove(list, error);
  fs::create_directory(list, error);
  if (error) RaiseEngineFault("'" + list + "' can't be made: " + error.message() + ".");
  blocks_.insert(list);
}

void FileGdbEdit::UnblockFreePlaces() {
  std::error_code error;
  for (const std::string& list : blocks_) fs::remove(list, error);
  blocks_.clear();
}

void FileGdbEdit::TableChanges(const std::string& name) {
  const std::string base = FindGdbTable(Folder(), name);
  if (base.empty() || changes_.contains(FileName(base))) return;
  copy_.OwnFiles(FileName(base) + ".");
  BlockFreePlaces(base);
  changes_[FileName(base)].name = name;
}

void FileGdbEdit::RowsChange(const std::string& name) {
  TableChanges(name);
  if (const std::string base = FindGdbTable(Folder(), name); !base.empty()) changes_[FileName(base)].rows = true;
}

void FileGdbEdit::ColumnChanges(const std::string& base, const std::string& column) {
  changes_[FileName(base)].columns.insert(column);
}

// Index by index: one that went away comes back from before where no value changed, and is made anew elsewhere. What
// GDAL can't make (an index on identifiers of objects) isn't told of any more.
void FileGdbEdit::MendIndexes(const std::string& base, const Changes& changes) {
  std::vector<GdbIndex> told, kept, anew;
  {
    const GdbTable table(base);
    told = ReadGdbIndexes(base);
    if (!table.IsUsable()) return;
    for (const GdbIndex& index : told) {
      const auto type = IndexedType(table, index);
      const bool spatial = type == GdbColumn::kShape;
      const std::string file = spatial ? GdbSpatialIndexFile(base) : GdbIndexFile(base, index);
      const std::string before = (fs::path(copy_.Target()) / FileName(file)).string();
      const bool stale = changes.columns.contains(index.Column());
      std::error_code error;
      const bool outdated = type && type != GdbColumn::kOid && (stale || !fs::exists(file, error));
      if (outdated && !changes.rows && !stale && fs::exists(before, error)) {
        fs::copy_file(before, file, error);
      } else if (outdated && !spatial) {  // GDAL makes a spatial one with the rows
        fs::remove(file, error);
        anew.push_back(index);
        continue;
      }
      kept.push_back(index);
    }
  }
  if (kept.size() != told.size()) WriteGdbIndexes(base, kept);
  for (const GdbIndex& index : anew) MakeIndex(Folder(), changes.name, index);
}

std::vector<std::string> FileGdbEdit::Check(const std::string& folder) const {
  std::vector<std::string> findings = CheckGdbCatalogue(folder);
  for (const auto& [file, changes] : changes_) {
    const std::string base = (fs::path(folder) / file).string();
    std::error_code error;
    if (changes.name.starts_with("GDB_") || !fs::exists(base + ".gdbtable", error)) continue;
    const std::vector<std::string> more = CheckGdbTable(base, changes.name);
    findings.insert(findings.end(), more.begin(), more.end());
  }
  return findings;
}

void FileGdbEdit::Publish() {
  if (done_) return;
  done_ = true;
  AllEdits().Forget(path_);
  FileChanged(path_);
  std::error_code error;
  if (abandoned_ || !fs::exists(Folder(), error)) return;
  UnblockFreePlaces();
  for (const auto& [file, changes] : changes_) {
    const std::string base = (fs::path(Folder()) / file).string();
    if (!fs::exists(base + ".gdbtable", error)) continue;
    MendIndexes(base, changes);
    SettleGdbHeader(base);
    fs::remove(base + ".freelist", error);
  }
  RequireNoNewFindings(path_, Check(Folder()),
                       copy_.IsNew() ? nullptr : std::function([this] { return Check(path_); }));
  copy_.Publish();
}

std::string PlaceOfData(const std::string& native_path) {
  if (AllEdits().IsEmpty() || !IsFileGdb(native_path)) return native_path;
  const auto edit = FileGdbEdit::UnderWay(native_path);
  return edit ? edit->Folder() : native_path;
}

void EditFileGdb(const std::string& native_path, const std::function<void(FileGdbEdit& edit)>& work) {
  std::shared_ptr<FileGdbEdit> edit = FileGdbEdit::Begin(native_path);
  try {
    work(*edit);
  } catch (...) {
    // As a part of another edit it is for that to go on or not.
    if (edit.use_count() == 1) edit->Abandon();
    throw;
  }
  FileGdbEdit::End(edit);
}

}  // namespace tessarine::engine
