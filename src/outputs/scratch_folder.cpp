// SPDX-License-Identifier: GPL-2.0-or-later
#include "outputs/scratch_folder.h"

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "platform/fault.h"

namespace tessarine {
namespace {

[[noreturn]] void RaiseNoScratch(const std::string& place, const std::error_code& error) {
  Raise(kPathAccess, "No temporary folder can be made" + place + " (" + error.message() +
                         "): name a folder with room in the variable TMPDIR of the environment.");
}

}  // namespace

ScratchFolder::ScratchFolder(const std::string& purpose) {
  std::error_code error;
  const std::filesystem::path parent = std::filesystem::temp_directory_path(error);
  if (error) RaiseNoScratch("", error);
  std::string name = (parent / ("tessarine-" + purpose + "-XXXXXX")).string();
  if (mkdtemp(name.data()) == nullptr) {
    RaiseNoScratch(" in '" + parent.string() + "'", std::error_code(errno, std::generic_category()));
  }
  path_ = name;
}

ScratchFolder::~ScratchFolder() {
  std::error_code error;
  std::filesystem::remove_all(path_, error);
}

}  // namespace tessarine
