// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/pipes.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "hosts/terminal/interrupt.h"
#include "hosts/terminal/refusal.h"
#include "outputs/scratch_folder.h"
#include "platform/fault.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

// It goes away when the program ends.
const ScratchFolder& Folder() {
  try {
    static const ScratchFolder folder("pipe");
    return folder;
  } catch (const Fault& fault) {
    throw Refusal(fault.what());
  }
}

std::string& PipedFile() {
  static std::string file;
  return file;
}

using Block = std::array<char, 1 << 16>;

}  // namespace

std::string SpoolStandardInput() {
  const fs::path path = Folder().Path() / "stdin.geojsonl";
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  Block block{};
  bool any = false;
  for (;;) {
    const ssize_t count = read(STDIN_FILENO, block.data(), block.size());
    if (count < 0 && errno == EINTR && !WasInterrupted()) continue;
    if (count <= 0) break;
    file.write(block.data(), count);
    any = true;
  }
  file.close();
  if (!file) throw Refusal("Standard input can't be kept in '" + path.string() + "': check the room on the disk.");
  if (!any) throw Refusal("Standard input is empty: send features as GeoJSON lines, or name a source.");
  return path.string();
}

std::string FileOfPipedOutput() {
  if (PipedFile().empty()) PipedFile() = (Folder().Path() / "stdout.geojsonl").string();
  return PipedFile();
}

bool OutputIsPiped() { return !PipedFile().empty(); }

void SendPipedOutput() {
  std::ifstream file(PipedFile(), std::ios::binary);
  Block block{};
  while (file.read(block.data(), block.size()), file.gcount() > 0) {
    const auto count = static_cast<std::size_t>(file.gcount());
    if (std::fwrite(block.data(), 1, count, stdout) < count) return;
  }
}

std::string WithoutPipedFile(const std::string& text) {
  if (!OutputIsPiped()) return text;
  const std::string whole = Replace(text, PipedFile(), "standard output");
  return Replace(whole, Folder().Path().string(), "standard output");
}

}  // namespace tessarine
