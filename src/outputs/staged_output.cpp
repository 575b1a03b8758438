#include "outputs/staged_output.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/file.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>

#include "platform/fault.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

constexpr const char* kMark = ".tessarine-";
constexpr const char* kLockName = "lock";
// Says that all new files are whole; what stands in the folder is to be published.
constexpr const char* kReadyName = "ready";
constexpr const char* kNewFolder = "new";
constexpr const char* kOldFolder = "old";

// What a shapefile may consist of, as the programs of the field write it.
constexpr std::array<std::string_view, 18> kShapefileEndings = {".shp", ".shx", ".dbf", ".prj", ".cpg", ".sbn",
                                                                ".sbx", ".qix", ".qpj", ".qmd", ".fbn", ".fbx",
                                                                ".ain", ".aih", ".atx", ".ixs", ".mxs", ".shp.xml"};
// What stands beside a file of its whole name.
constexpr std::array<std::string_view, 4> kCompanions = {"-wal", "-shm", "-journal", ".aux.xml"};

bool IsShapefile(const fs::path& path) {
  const std::string ending = path.extension().string();
  return EqualsIgnoringCase(ending, ".shp") || EqualsIgnoringCase(ending, ".dbf");
}

bool BelongsToShapefile(const std::string& name, const std::string& stem) {
  if (!name.starts_with(stem)) return false;
  const std::string_view rest = std::string_view(name).substr(stem.size());
  if (std::ranges::any_of(kShapefileEndings, [&](std::string_view ending) { return EqualsIgnoringCase(rest, ending); }))
    return true;
  // An attribute index bears its field's name: "roads.name.atx".
  return rest.starts_with('.') && EndsWithIgnoringCase(std::string(rest), ".atx");
}

[[noreturn]] void RaiseAccess(const std::string& what, const fs::path& path, int error) {
  Raise(kPathAccess, what + " '" + path.string() + "' (" + std::strerror(error) +
                         "): check its permissions and the room on the disk.");
}

void SyncOne(const fs::path& path) {
  const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return;
  (void)fsync(descriptor);
  close(descriptor);
}

void SyncTree(const fs::path& path) {
  std::error_code error;
  if (fs::is_directory(path, error)) {
    for (const auto& entry : fs::recursive_directory_iterator(path, error)) SyncOne(entry.path());
  }
  SyncOne(path);
}

bool Exchange(const fs::path& first, const fs::path& second) {
  return syscall(SYS_renameat2, AT_FDCWD, first.c_str(), AT_FDCWD, second.c_str(), RENAME_EXCHANGE) == 0;
}

// Renames what `FinishPublishing` was called for: the old files into the staging folder, the new ones to their places.
// Whatever was done already is passed over, so that it can be called again.
void FinishPublishing(const fs::path& target, const fs::path& folder) {
  const fs::path fresh = folder / kNewFolder;
  const fs::path old = folder / kOldFolder;
  const fs::path place = target.parent_path();
  std::vector<fs::path> made;
  for (const auto& entry : fs::directory_iterator(fresh)) made.push_back(entry.path());
  fs::create_directory(old);
  // The old files of a data set whose new files lie in their places already bear the names of new ones.
  if (!fs::exists(folder / "moved")) {
    for (const fs::path& file : FilesOfDataset(target)) fs::rename(file, old / file.filename());
    std::ofstream(folder / "moved").close();
    SyncOne(folder);
  }
  for (const fs::path& file : made) fs::rename(file, place / file.filename());
  SyncOne(place);
}

std::string FolderPrefix(const fs::path& target) { return "." + target.filename().string() + kMark; }

}  // namespace

std::vector<fs::path> FilesOfDataset(const fs::path& path) {
  std::vector<fs::path> files;
  std::error_code error;
  if (!IsShapefile(path)) {
    if (!fs::exists(fs::symlink_status(path, error))) return files;
    files.push_back(path);
    for (const std::string_view companion : kCompanions) {
      const fs::path beside = path.string() + std::string(companion);
      if (fs::exists(beside, error)) files.push_back(beside);
    }
    std::ranges::sort(files);
    return files;
  }
  const std::string stem = path.stem().string();
  for (const auto& entry : fs::directory_iterator(path.has_parent_path() ? path.parent_path() : ".", error)) {
    if (BelongsToShapefile(entry.path().filename().string(), stem)) files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

void FinishInterrupted(const fs::path& target) {
  std::error_code error;
  const std::string prefix = FolderPrefix(target);
  std::vector<fs::path> folders;
  for (const auto& entry : fs::directory_iterator(target.has_parent_path() ? target.parent_path() : ".", error)) {
    if (entry.path().filename().string().starts_with(prefix)) folders.push_back(entry.path());
  }
  for (const fs::path& folder : folders) {
    const int lock = open((folder / kLockName).c_str(), O_RDWR | O_CLOEXEC);
    if (lock >= 0 && flock(lock, LOCK_EX | LOCK_NB) != 0) {
      close(lock);
      continue;
    }
    try {
      if (fs::exists(folder / kReadyName)) FinishPublishing(target, folder);
      fs::remove_all(folder);
    } catch (const std::exception&) {
      // The next run tries again.
    }
    if (lock >= 0) close(lock);
  }
}

StagedOutput::StagedOutput(fs::path target, Begin begin) : target_(fs::absolute(target).lexically_normal()) {
  const fs::path parent = target_.parent_path();
  if (!fs::is_directory(parent)) Raise(kPathNotFound, "There is no folder '" + parent.string() + "'.");
  FinishInterrupted(target_);
  std::string name = (parent / (FolderPrefix(target_) + "XXXXXX")).string();
  if (mkdtemp(name.data()) == nullptr) RaiseAccess("Nothing can be written to the folder", parent, errno);
  folder_ = name;
  lock_ = open((folder_ / kLockName).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (lock_ >= 0) (void)flock(lock_, LOCK_EX | LOCK_NB);
  const fs::path fresh = folder_ / kNewFolder;
  fs::create_directory(fresh);
  path_ = fresh / target_.filename();
  if (begin == Begin::Empty) return;
  try {
    for (const fs::path& file : FilesOfDataset(target_)) {
      fs::copy(file, fresh / file.filename(), fs::copy_options::recursive);
    }
  } catch (const fs::filesystem_error& error) {
    Discard();
    RaiseAccess("No copy can be made of", target_, error.code().value());
  }
}

StagedOutput::~StagedOutput() { Discard(); }

void StagedOutput::Publish() {
  if (folder_.empty()) Raise(kInvalidCall, "The output '" + target_.string() + "' was published already.");
  const fs::path fresh = folder_ / kNewFolder;
  SyncTree(fresh);
  const auto made = std::distance(fs::directory_iterator(fresh), fs::directory_iterator());
  try {
    const std::vector<fs::path> standing = FilesOfDataset(target_);
    const bool one_for_one = made == 1 && standing.size() == 1 && standing.front() == target_;
    if (!one_for_one || !Exchange(path_, target_)) {
      std::ofstream(folder_ / kReadyName).close();
      SyncTree(folder_);
      FinishPublishing(target_, folder_);
    }
    SyncOne(target_.parent_path());
  } catch (const fs::filesystem_error& error) {
    RaiseAccess("The output can't take the place of", target_, error.code().value());
  }
  Discard();
}

void StagedOutput::Discard() {
  if (folder_.empty()) return;
  std::error_code error;
  fs::remove_all(folder_, error);
  if (lock_ >= 0) close(lock_);
  lock_ = -1;
  folder_.clear();
}

}  // namespace tessarine
