// SPDX-License-Identifier: GPL-2.0-or-later
// Outputs that are made beside their target and take its place when they are whole.
//
//   StagedOutput staged("/data/roads.shp", StagedOutput::Begin::Empty);
//   ... make staged.Path() and all files beside it ...
//   staged.Publish(StagedOutput::Standing::Replace);
//
// The staging folder lies beside the target, hidden, so that a rename suffices; it is locked while its run lives. Until
// `Publish` the target is as it was. A single file or folder is exchanged with the target in one step of the file
// system. Of several files, a list of what is to be done is on the disk before the first is renamed: when the process
// dies between two renames, `FinishInterrupted` ends them, unless somebody else has written there since. The file that
// a data set is opened by goes first and comes last, so that nobody takes a half for the whole. Files are on the disk
// before they are renamed, so that a loss of power leaves the old output or the new one.
//
// A target that is a link to a folder or to a single file is followed: what it points to is replaced. The links of a
// shapefile's parts are replaced themselves; the files that they point to stay as they are.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tessarine {

/// The files that make up the data set at this native path, as they lie on the disk: of a shapefile, dBASE table or
/// other format of several files those of its name with the endings of its format in any case (and the name in any
/// case, where the file system doesn't tell them apart), of everything else the file or folder itself with the files
/// that SQLite and GDAL put beside it. Sorted; empty when there are none. Costs a walk over the folder for a shapefile.
[[nodiscard]] std::vector<std::filesystem::path> FilesOfDataset(const std::filesystem::path& path);

/// Why what stands at the path of a data set of several files can't be replaced, as a sentence: a folder with something
/// in it bears the name of one of them. Empty where it can.
[[nodiscard]] std::optional<std::string> ReplacingProblem(const std::filesystem::path& path);

/// Ends what a dead run was about to publish at this path, or in this folder, and removes what other dead runs left
/// for it. Runs that live are left alone. Faults of the file system end it silently: it is tried again by the next run.
/// Costs a walk over the folder.
void FinishInterrupted(const std::filesystem::path& path);

/// Called ahead of each change of the disk while an output is published; null but in tests, which end the process
/// there.
extern void (*before_publishing_step)();

class StagedOutput {
 public:
  enum class Begin {
    Empty,  ///< nothing lies at `Path()`
    Copy,   ///< a copy of the target, where there is one
  };

  /// Makes the staging folder. Fault 76 when the target's folder isn't there, 75 when it can't be written to.
  StagedOutput(const std::filesystem::path& target, Begin begin);
  /// Discards what was not published.
  ~StagedOutput();
  StagedOutput(const StagedOutput&) = delete;
  StagedOutput& operator=(const StagedOutput&) = delete;

  [[nodiscard]] const std::filesystem::path& Target() const { return target_; }
  /// Where the output is to be made: of the target's own name, in the staging folder.
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

  enum class Standing {
    Replace,  ///< what stands at the target goes away with all its files
    Keep,     ///< what came to stand there meanwhile is left alone: fault 75
  };

  /// Puts what was made in the target's place. Every handle on the files must be closed. Fault 75 when the file system
  /// refuses, when a folder with something in it bears the name of a file, or when the target of a copy was changed
  /// since; the old output is whole then.
  void Publish(Standing standing = Standing::Replace);
  /// Removes what was made; the target is as it was.
  void Discard();

 private:
  void Leave();

  std::filesystem::path target_;
  std::filesystem::path folder_;
  std::filesystem::path path_;
  std::string copied_;  // what the target was when it was copied, empty where it wasn't
  int lock_ = -1;
};

}  // namespace tessarine
