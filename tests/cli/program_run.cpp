// SPDX-License-Identifier: GPL-2.0-or-later
#include "cli/program_run.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <sstream>
#include <thread>

namespace tessarine::testing {
namespace {

namespace fs = std::filesystem;

fs::path MakeFolder() {
  std::string pattern = (fs::temp_directory_path() / "tessarine-cli-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  return pattern;
}

constexpr std::uintmax_t kNoLimit = 0;

pid_t Start(const std::vector<std::string>& arguments, const std::string& in, const std::string& out,
            const std::string& err, std::uintmax_t largest_file) {
  const pid_t child = fork();
  if (child != 0) return child;
  std::vector<char*> words{const_cast<char*>(TESSARINE_PROGRAM)};
  for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  const int input = open(in.c_str(), O_RDONLY);
  const int output = open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  const int errors = open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  if (dup2(input, 0) < 0 || dup2(output, 1) < 0 || dup2(errors, 2) < 0) _exit(126);
  if (largest_file != kNoLimit) {
    const rlimit limit{largest_file, largest_file};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0 || signal(SIGXFSZ, SIG_IGN) == SIG_ERR) _exit(125);
  }
  execv(TESSARINE_PROGRAM, words.data());
  _exit(127);
}

ProgramOutcome Run(const std::vector<std::string>& arguments, const std::string& input,
                   const std::function<void(pid_t)>& meanwhile, std::uintmax_t largest_file = kNoLimit) {
  const fs::path folder = MakeFolder();
  const std::string out = folder / "out", err = folder / "err";
  const pid_t child = Start(arguments, input, out, err, largest_file);
  meanwhile(child);
  int status = 0;
  waitpid(child, &status, 0);
  ProgramOutcome outcome{WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), ReadFile(out), ReadFile(err)};
  fs::remove_all(folder);
  return outcome;
}

}  // namespace

ProgramOutcome RunTessarine(const std::vector<std::string>& arguments, const std::string& input) {
  return Run(arguments, input, [](pid_t) {});
}

ProgramOutcome RunWithoutRoom(const std::vector<std::string>& arguments, std::uintmax_t bytes) {
  return Run(
      arguments, "/dev/null", [](pid_t) {}, bytes);
}

namespace {

// The size of a file, or of one of that name in a folder beside it: outputs are made there until they are whole.
std::uintmax_t SizeWhereItIsMade(const fs::path& file) {
  std::error_code error;
  for (const auto& entry : fs::recursive_directory_iterator(file.parent_path(), error)) {
    if (entry.path().filename() != file.filename()) continue;
    const std::uintmax_t size = fs::file_size(entry.path(), error);
    if (!error) return size;
  }
  return 0;
}

}  // namespace

// Whether the program has begun to look after this signal: on a busy machine that takes its time.
static bool Catches(pid_t child, int signal) {
  std::ifstream facts("/proc/" + std::to_string(child) + "/status");
  for (std::string line; std::getline(facts, line);) {
    if (!line.starts_with("SigCgt:")) continue;
    return (std::strtoull(line.c_str() + 7, nullptr, 16) >> (signal - 1) & 1U) != 0;
  }
  return false;
}

ProgramOutcome RunAndInterrupt(const std::vector<std::string>& arguments, const fs::path& file, std::uintmax_t bytes,
                               int signal) {
  return Run(arguments, "/dev/null", [&](pid_t child) {
    for (int look = 0; look < 6000; ++look) {
      if (Catches(child, signal) && SizeWhereItIsMade(file) > bytes) break;
      siginfo_t ended{};
      if (waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOHANG | WNOWAIT) != 0 || ended.si_pid != 0) break;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    kill(child, signal);
  });
}

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

void WriteFile(const fs::path& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

ProgramTest::ProgramTest() : folder_(MakeFolder()) {}

ProgramTest::~ProgramTest() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

std::vector<std::string> ProgramTest::Left() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder_)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace tessarine::testing
