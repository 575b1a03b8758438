// SPDX-License-Identifier: MIT
// A fault: what every failing call of the platform and of the suite raises.
#pragma once

#include <cstdint>
#include <memory>
#include <source_location>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tessarine {

/// Fault numbers with a fixed meaning. Engine failures carry `kEngine`.
enum FaultNumber : std::int32_t {
  kInvalidCall = 5,
  kOverflow = 6,
  kDivisionByZero = 11,
  kTypeMismatch = 13,
  kPathAccess = 75,
  kPathNotFound = 76,
  kObjectNotSet = 91,
  kEngine = -2147467259,
  kCoordinateRange = -2147220734,  ///< a shape can't be stored on the grid of its class; without it the row can
  kRowRefused = -2147220733,       ///< this row can't be stored as it is; others can
};

/// A procedure that a fault climbed through, and the line of code that it left it by.
struct FaultCall {
  std::string procedure;
  std::string file;  ///< below the source root
  std::int32_t line = 0;
};

/// An error with a number, a source (who raised it), a description for a person, and the file and line of code that
/// raised it, empty and 0 when unknown. `what()` is the description.
class Fault : public std::runtime_error {
 public:
  Fault(std::int32_t number, std::string source, const std::string& description, std::int32_t line = 0,
        std::string file = "")
      : std::runtime_error(description),
        number_(number),
        source_(std::move(source)),
        file_(std::move(file)),
        line_(line) {}

  [[nodiscard]] std::int32_t Number() const { return number_; }
  [[nodiscard]] const std::string& Source() const { return source_; }
  [[nodiscard]] std::string Description() const { return what(); }
  [[nodiscard]] std::int32_t Line() const { return line_; }
  /// The file below the source root, as "geodesy/vincenty.cpp".
  [[nodiscard]] const std::string& File() const { return file_; }
  /// "geodesy/vincenty.cpp:120"; empty when unknown.
  [[nodiscard]] std::string Place() const { return file_.empty() ? "" : file_ + ":" + std::to_string(line_); }

  /// The procedures that passed the fault on, the deepest first.
  [[nodiscard]] const std::vector<FaultCall>& Calls() const { return calls_; }
  /// Puts a procedure that passes the fault on on top of the others. The deepest bears the place where the fault was
  /// raised, when that is known; the others the line given.
  void PassThrough(FaultCall call) {
    if (calls_.empty() && line_ != 0) call.file = file_, call.line = line_;
    calls_.push_back(std::move(call));
  }
  void PassThrough(const std::vector<FaultCall>& calls) { calls_.insert(calls_.end(), calls.begin(), calls.end()); }

  /// True when the run can't go on with its next record: its source or its output is of no use any more.
  [[nodiscard]] bool EndsRun() const { return ends_run_; }
  [[nodiscard]] Fault EndingTheRun() const {
    Fault fault = *this;
    fault.ends_run_ = true;
    return fault;
  }

 private:
  std::int32_t number_;
  std::string source_;
  std::string file_;
  std::int32_t line_;
  std::vector<FaultCall> calls_;
  bool ends_run_ = false;
};

/// The name of a source file below the source root.
[[nodiscard]] std::string SourceFileName(std::string_view path);

/// Raises a fault that carries the caller's file and line.
[[noreturn]] inline void Raise(std::int32_t number, const std::string& description,
                               const std::source_location where = std::source_location::current()) {
  throw Fault(number, "Tessarine", description, static_cast<std::int32_t>(where.line()),
              SourceFileName(where.file_name()));
}

/// The object, or fault 91 naming what is missing.
template <class T>
const std::shared_ptr<T>& Require(const std::shared_ptr<T>& object, std::string_view what,
                                  const std::source_location where = std::source_location::current()) {
  if (!object) Raise(kObjectNotSet, "Object variable not set: " + std::string(what), where);
  return object;
}

}  // namespace tessarine
