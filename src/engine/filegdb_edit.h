// SPDX-License-Identifier: GPL-2.0-or-later
// The one way that a file geodatabase is written to.
//
// GDAL 3.6 damages file geodatabases: it puts a row that grew into a free place up to four bytes too small, so that the
// next row, often one of GDB_Items, is torn; it doesn't tell the header of rows that grew; and where a new column makes
// it write a table anew, it deletes the indexes. So everything happens in a working copy. There GDAL finds no list of
// free places and can't make one (a folder bears its name), so that what grows goes to the end of its file. Before the
// copy takes the geodatabase's place, headers and indexes are mended, and catalogue and changed tables are checked byte
// by byte; where more is broken than was before, the geodatabase stays as it is and a fault tells what was found.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "engine/filegdb_working_copy.h"

namespace tessarine::engine {

[[nodiscard]] bool IsFileGdb(const std::string& native_path);

/// All changes of one geodatabase that appear together. Who changes something holds the edit; it ends with its last
/// holder. While it lasts, this program sees the geodatabase as the edit has it, others as it was.
class FileGdbEdit {
 public:
  /// Joins the edit that is under way, or begins one. Where there is no geodatabase yet, `Folder` doesn't exist and is
  /// to be made by GDAL.
  [[nodiscard]] static std::shared_ptr<FileGdbEdit> Begin(const std::string& native_path);
  /// The edit under way; null where there is none.
  [[nodiscard]] static std::shared_ptr<FileGdbEdit> UnderWay(const std::string& native_path);
  /// Lets go. The last holder's call publishes the changes, and raises the fault where that fails.
  static void End(std::shared_ptr<FileGdbEdit>& edit);

  FileGdbEdit(const FileGdbEdit&) = delete;
  FileGdbEdit& operator=(const FileGdbEdit&) = delete;
  /// Publishes what no call of `End` did; a failure leaves the geodatabase as it was.
  ~FileGdbEdit();

  /// Where the data are while the edit lasts.
  [[nodiscard]] const std::string& Folder() const { return copy_.Folder(); }

  /// To be called when GDAL has made the geodatabase in `Folder`.
  void OwnCatalogue();
  /// To be called before GDAL opens a class for writing: its files become ones of the copy alone.
  void TableChanges(const std::string& name);
  /// GDAL writes or deletes rows of this table; it makes the indexes anew itself.
  void RowsChange(const std::string& name);
  /// A column gets new values from us; `base` is the path of the table's files without an ending.
  void ColumnChanges(const std::string& base, const std::string& column);
  /// Nothing of this edit is kept.
  void Abandon() { abandoned_ = true; }

 private:
  struct Changes {
    std::string name;
    bool rows = false;
    std::set<std::string> columns;
  };

  explicit FileGdbEdit(const std::string& native_path);
  void BlockFreePlaces(const std::string& base);
  void UnblockFreePlaces();
  void Publish();
  void MendIndexes(const std::string& base, const Changes& changes);
  [[nodiscard]] std::vector<std::string> Check(const std::string& folder) const;

  std::string path_;
  FileGdbWorkingCopy copy_;
  std::map<std::string, Changes> changes_;  // by the file name of the table
  std::set<std::string> blocks_;
  bool abandoned_ = false, done_ = false;
};

/// Where the data of a path are now: those of a geodatabase that is being changed are in its working copy.
[[nodiscard]] std::string PlaceOfData(const std::string& native_path);

/// Calls `work` with the folder to work in, as an edit or a part of the one under way.
void EditFileGdb(const std::string& native_path, const std::function<void(FileGdbEdit& edit)>& work);

}  // namespace tessarine::engine
