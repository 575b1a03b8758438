// SPDX-License-Identifier: GPL-2.0-or-later
#include "outputs/staged_output.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <functional>
#include <set>
#include <span>

#include "outputs/formats.h"
#include "outputs/shown_places.h"
#include "outputs/way_out.h"
#include "platform/fault.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

constexpr const char* kLockName = "lock";
// Says that all new files are whole, and what is to be renamed.
constexpr const char* kReadyName = "ready";
constexpr const char* kOldFolder = "old";

// What stands beside a file of its whole name.
constexpr std::array<std::string_view, 4> kCompanions = {"-wal", "-shm", "-journal", ".aux.xml"};

using Parts = std::span<const std::string_view>;

// The endings of the files that a data set of this path consists of; none for one of a single file or folder. The table
// beside a shapefile is a part of it, or a data set of its own, under the same name.
Parts PartsOf(const fs::path& path) {
  const std::string ending = path.extension().string();
  const Format* format = FormatOfPath(EqualsIgnoringCase(ending, ".dbf") ? ".shp" : ending);
  return format == nullptr ? Parts() : format->parts;
}

bool HasParts(const fs::path& path) { return !PartsOf(path).empty(); }

bool BelongsTo(const Parts& parts, const fs::path& file, const std::string& stem) {
  const std::string name = file.filename().string();
  if (name.size() < stem.size() || !EqualsIgnoringCase(name.substr(0, stem.size()), stem)) return false;
  const std::string_view rest = std::string_view(name).substr(stem.size());
  std::error_code error;
  if (!name.starts_with(stem) && !fs::equivalent(file, file.parent_path() / (stem + std::string(rest)), error)) {
    return false;
  }
  if (std::ranges::any_of(parts, [&](std::string_view ending) { return EqualsIgnoringCase(rest, ending); }))
    return true;
  // An attribute index bears its field's name: "roads.name.atx".
  const bool indexed = std::ranges::find(parts, ".atx") != parts.end();
  return indexed && rest.starts_with('.') && EndsWithIgnoringCase(std::string(rest), ".atx");
}

[[noreturn]] void RaiseAccess(const std::string& what, const fs::path& path, int error) {
  const std::string reason = std::strerror(error);
  Raise(kPathAccess, what + " '" + path.string() + "' (" + reason + ")" + WayOut(path.string(), reason));
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

void Step() {
  if (before_publishing_step != nullptr) before_publishing_step();
}

bool Exchange(const fs::path& first, const fs::path& second) {
  Step();
  return syscall(SYS_renameat2, AT_FDCWD, first.c_str(), AT_FDCWD, second.c_str(), RENAME_EXCHANGE) == 0;
}

void Rename(const fs::path& from, const fs::path& to) {
  Step();
  fs::rename(from, to);
}

// What a file is, whatever its name: another program that writes to it makes another of it.
std::string IdentityOf(const fs::path& path) {
  struct stat status {};
  if (lstat(path.c_str(), &status) != 0) return "";
  std::string identity = std::to_string(status.st_dev) + " " + std::to_string(status.st_ino);
  if (S_ISDIR(status.st_mode)) return identity;
  return identity + " " + std::to_string(status.st_size) + " " + std::to_string(status.st_mtim.tv_sec) + " " +
         std::to_string(status.st_mtim.tv_nsec);
}

using Identities = std::set<std::string>;

Identities IdentitiesOf(const std::vector<fs::path>& files) {
  Identities identities;
  for (const fs::path& file : files) identities.insert(IdentityOf(file));
  return identities;
}

std::vector<fs::path> FilesIn(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::directory_iterator(folder)) files.push_back(entry.path());
  std::ranges::sort(files);
  return files;
}

// What a publication moves: the files that stand at the target, and those that were made.
struct Moves {
  Identities old, fresh;
};

constexpr std::string_view kOldMark = "old ";
constexpr std::string_view kNewMark = "new ";

void WriteMoves(const fs::path& folder, const Moves& moves) {
  Step();
  const fs::path unfinished = folder / "list";
  std::ofstream file(unfinished);
  for (const std::string& identity : moves.old) file << kOldMark << identity << '\n';
  for (const std::string& identity : moves.fresh) file << kNewMark << identity << '\n';
  file.close();
  if (!file) RaiseAccess("Nothing can be written to the folder", folder, errno);
  SyncOne(unfinished);
  Rename(unfinished, folder / kReadyName);
  SyncOne(folder);
}

Moves ReadMoves(const fs::path& folder) {
  Moves moves;
  std::ifstream file(folder / kReadyName);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(kOldMark)) moves.old.insert(line.substr(kOldMark.size()));
    if (line.starts_with(kNewMark)) moves.fresh.insert(line.substr(kNewMark.size()));
  }
  return moves;
}

// Renames what the list tells: the old files into the staging folder, the new ones to their places. Whatever was done
// already is passed over, so that it can be called again. False, with nothing done, where others have written there.
bool FinishPublishing(const fs::path& target, const fs::path& folder) {
  const Moves moves = ReadMoves(folder);
  const fs::path old = folder / kOldFolder;
  const fs::path place = target.parent_path();
  std::vector<fs::path> leaving;
  for (const fs::path& file : FilesOfDataset(target)) {
    const std::string identity = IdentityOf(file);
    if (moves.fresh.contains(identity)) continue;
    if (!moves.old.contains(identity)) return false;
    leaving.push_back(file);
  }
  std::vector<fs::path> made = FilesIn(folder / kStagingFolder);
  // The file that the data are opened by.
  const auto is_main = [&](const fs::path& file) { return file.filename() == target.filename(); };
  std::ranges::stable_partition(leaving, is_main);
  std::ranges::stable_partition(made, std::not_fn(is_main));
  fs::create_directory(old);
  for (const fs::path& file : leaving) Rename(file, old / file.filename());
  SyncOne(old);
  SyncOne(place);
  for (const fs::path& file : made) Rename(file, place / file.filename());
  SyncOne(place);
  return true;
}

// Puts back what a publication moved before it failed. False where not all could be put back: then nothing may be
// removed.
bool TakeBack(const fs::path& target, const fs::path& folder) {
  try {
    const Moves moves = ReadMoves(folder);
    for (const fs::path& file : FilesOfDataset(target)) {
      if (moves.fresh.contains(IdentityOf(file))) Rename(file, folder / kStagingFolder / file.filename());
    }
    if (fs::exists(folder / kOldFolder)) {
      for (const fs::path& file : FilesIn(folder / kOldFolder)) Rename(file, target.parent_path() / file.filename());
    }
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

// The list goes first: without it the rest is only rubbish.
void RemoveFolder(const fs::path& folder) {
  std::error_code error;
  if (fs::remove(folder / kReadyName, error)) SyncOne(folder);
  Step();
  fs::remove_all(folder, error);
}

// New files are as open to others as those that they replace.
void TakeModes(const std::vector<fs::path>& made, const fs::path& place) {
  for (const fs::path& file : made) {
    struct stat status {};
    if (stat((place / file.filename()).c_str(), &status) != 0 || !S_ISREG(status.st_mode)) continue;
    (void)chmod(file.c_str(), status.st_mode & 07777U);
    if (chown(file.c_str(), status.st_uid, status.st_gid) != 0) errno = 0;  // then it is the user's
  }
}

// A folder or single file is what a link to it leads to.
fs::path ResolvedTarget(const fs::path& target) {
  const fs::path path = fs::absolute(target).lexically_normal();
  std::error_code error;
  const fs::path real = HasParts(path) ? path : fs::canonical(path, error);
  return error ? path : real;
}

// A new folder with a lock in it that is held; the lock. Whoever clears away what dead runs left may take a folder for
// such until it is locked: then another is made.
int MakeLockedFolder(const fs::path& parent, const std::string& prefix, fs::path& folder) {
  for (;;) {
    std::string name = (parent / (prefix + "XXXXXX")).string();
    if (mkdtemp(name.data()) == nullptr) RaiseAccess("Nothing can be written to the folder", parent, errno);
    folder = name;
    const int lock = open((folder / kLockName).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (lock < 0 && errno == ENOENT) continue;
    if (lock < 0) {
      const int error = errno;
      rmdir(name.c_str());
      RaiseAccess("Nothing can be written to the folder", parent, error);
    }
    struct stat own {
    }, named{};
    // Some network file systems have no such locks.
    const bool taken = flock(lock, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    const bool there = fstat(lock, &own) == 0 && stat((folder / kLockName).c_str(), &named) == 0;
    if (!taken && there && own.st_ino == named.st_ino) return lock;
    close(lock);
  }
}

std::string FolderPrefix(const fs::path& target) {
  return "." + target.filename().string() + std::string(kStagingMark);
}

// Ends or clears away a run's folder for this target, unless the run lives.
void FinishOne(const fs::path& target, const fs::path& folder) {
  const auto open_lock = [&] { return open((folder / kLockName).c_str(), O_RDWR | O_CLOEXEC); };
  int lock = open_lock();
  // Without a lock it was only just made, by a run that makes another when it is gone, or it was being removed.
  if (lock < 0 && (rmdir(folder.c_str()) == 0 || errno == ENOENT)) return;
  if (lock < 0) lock = open_lock();
  const bool living = lock >= 0 && flock(lock, LOCK_EX | LOCK_NB) != 0;
  if (!living) {
    try {
      if (fs::exists(folder / kReadyName)) (void)FinishPublishing(target, folder);
      RemoveFolder(folder);
    } catch (const std::exception&) {
      // The next run tries again.
    }
  }
  if (lock >= 0) close(lock);
}

// Those of one name, or of all names when it is empty.
void FinishIn(const fs::path& place, const std::string& name) {
  std::error_code error;
  std::vector<std::pair<fs::path, fs::path>> found;
  for (const auto& entry : fs::directory_iterator(place, error)) {
    const std::string folder = entry.path().filename().string();
    const std::size_t mark = folder.starts_with('.') ? folder.rfind(kStagingMark) : std::string::npos;
    if (mark == std::string::npos || mark < 2) continue;
    const std::string target = folder.substr(1, mark - 1);
    if (name.empty() || target == name) found.emplace_back(place / target, entry.path());
  }
  for (const auto& [target, folder] : found) FinishOne(target, folder);
}

}  // namespace

std::vector<fs::path> FilesOfDataset(const fs::path& path) {
  std::vector<fs::path> files;
  std::error_code error;
  const Parts parts = PartsOf(path);
  if (parts.empty()) {
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
    if (BelongsTo(parts, entry.path(), stem)) files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

std::optional<std::string> ReplacingProblem(const fs::path& path) {
  if (!HasParts(path)) return std::nullopt;
  std::error_code error;
  for (const fs::path& file : FilesOfDataset(path)) {
    const bool full = !fs::is_symlink(file, error) && fs::is_directory(file, error) && !fs::is_empty(file, error);
    if (!full) continue;
    return "'" + file.string() + "' is a folder with something in it and isn't replaced by a file: name another " +
           "output, or remove the folder.";
  }
  return std::nullopt;
}

void (*before_publishing_step)() = nullptr;

void FinishInterrupted(const fs::path& path) {
  std::error_code error;
  const fs::path target = ResolvedTarget(path);
  FinishIn(target.has_parent_path() ? target.parent_path() : ".", target.filename().string());
  if (fs::is_directory(target, error)) FinishIn(target, "");
}

StagedOutput::StagedOutput(const fs::path& target, Begin begin) : target_(ResolvedTarget(target)) {
  const fs::path parent = target_.parent_path();
  if (!fs::is_directory(parent)) Raise(kPathNotFound, "There is no folder '" + parent.string() + "'.");
  FinishInterrupted(target_);
  lock_ = MakeLockedFolder(parent, FolderPrefix(target_), folder_);
  const fs::path fresh = folder_ / kStagingFolder;
  if (std::error_code error; !fs::create_directory(fresh, error)) {
    Discard();
    RaiseAccess("Nothing can be written to the folder", parent, error.value());
  }
  path_ = fresh / target_.filename();
  if (begin == Begin::Empty) return;
  copied_ = IdentityOf(target_);
  try {
    for (const fs::path& file : FilesOfDataset(target_)) {
      // Copying tells of a full disk as of any other failure.
      const bool fits = fs::is_directory(file) || fs::space(fresh).available >= fs::file_size(file);
      if (!fits) throw fs::filesystem_error("copy", file, std::make_error_code(std::errc::no_space_on_device));
      fs::copy(file, fresh / file.filename(), fs::copy_options::recursive);
    }
  } catch (const fs::filesystem_error& error) {
    Discard();
    RaiseAccess("No copy can be made of", target_, error.code().value());
  }
}

StagedOutput::~StagedOutput() { Discard(); }

void StagedOutput::Publish(Standing on_standing) {
  if (folder_.empty()) Raise(kInvalidCall, "The output '" + target_.string() + "' was published already.");
  const fs::path fresh = folder_ / kStagingFolder;
  try {
    const std::vector<fs::path> made = FilesIn(fresh);
    const std::vector<fs::path> standing = FilesOfDataset(target_);
    if (!standing.empty() && on_standing == Standing::Keep) {
      Raise(kPathAccess, "'" + standing.front().string() + "' came to be while this run worked; it is left as it is, " +
                             "and nothing of this run is in it. Name another output, or overwrite it.");
    }
    if (!copied_.empty() && copied_ != IdentityOf(target_)) {
      Raise(kPathAccess, "'" + target_.string() +
                             "' was changed by another program while this run worked on a copy of " +
                             "it; it is left as it is, and nothing of this run is in it. Run it again.");
    }
    if (const auto problem = ReplacingProblem(target_)) Raise(kPathAccess, *problem);
    TakeModes(made, target_.parent_path());
    SyncTree(fresh);
    const bool one_for_one = made.size() == 1 && standing.size() == 1 && standing.front() == target_;
    if (!one_for_one || !Exchange(path_, target_)) {
      WriteMoves(folder_, {IdentitiesOf(standing), IdentitiesOf(made)});
      if (!FinishPublishing(target_, folder_)) {
        Raise(kPathAccess, "'" + target_.string() + "' is being written to by another program; it is left as it is.");
      }
    }
    SyncOne(target_.parent_path());
  } catch (const fs::filesystem_error& error) {
    // The next run ends what can't be taken back now.
    if (!TakeBack(target_, folder_)) Leave();
    RaiseAccess("The output can't take the place of", target_, error.code().value());
  }
  Discard();
}

void StagedOutput::Discard() {
  if (folder_.empty()) return;
  RemoveFolder(folder_);
  Leave();
}

void StagedOutput::Leave() {
  if (lock_ >= 0) close(lock_);
  lock_ = -1;
  folder_.clear();
}

}  // namespace tessarine
