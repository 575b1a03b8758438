// Geodesics at the prompt: the inverse and the direct problem, from arguments or line by line from standard input.
#include <fmt/core.h>
#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "geodesy/vincenty.h"
#include "hosts/document/map_document.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/spheroid_options.h"
#include "hosts/terminal/terminal_host.h"
#include "platform/trap.h"

namespace tessarine {
namespace {

namespace geodesy = MyGeometricOperations;

struct Axes {
  double semi_major, semi_minor;
};
constexpr Axes kWgs84{6378137.0, 6356752.31424518};

using FourNumbers = std::array<double, 4>;

/// A value of a result: its name, and the places after the point that are worth reading.
struct Result {
  const char* name;
  int places;
  double value;
};
using Results = std::array<Result, 3>;

// A turn apart, as -180 and 180 are, the iteration doesn't start and every distance would be 0. The same meridian by
// another number is free of that.
double WithinOneTurn(double lon1, double lon2) {
  const double apart = lon2 - lon1;
  return std::fabs(apart) > 359.0 ? lon2 - 360.0 * std::round(apart / 360.0) : lon2;
}

Results SolveInverse(const FourNumbers& given, const std::optional<Axes>& axes) {
  double azimuth1 = 0.0, azimuth2 = 0.0;
  const double lon2 = WithinOneTurn(given[0], given[2]);
  const double distance =
      axes ? geodesy::DistanceVincentyNumbers2(given[0], given[1], lon2, given[3], azimuth1, azimuth2, axes->semi_major,
                                               axes->semi_minor)
           : geodesy::DistanceVincentyNumbers(given[0], given[1], lon2, given[3], azimuth1, azimuth2);
  return {{{"distance", 4, distance}, {"azimuth1", 8, azimuth1}, {"azimuth2", 8, azimuth2}}};
}

Results SolveDirect(const FourNumbers& given, const std::optional<Axes>& axes) {
  const Axes used = axes.value_or(kWgs84);
  XY end{};
  double azimuth2 = 0.0;
  geodesy::PointLineVincentyPerPoint2(XY{given[0], given[1]}, given[2], given[3], end, azimuth2, used.semi_major,
                                      used.semi_minor);
  return {{{"lon", 9, end.x}, {"lat", 9, end.y}, {"azimuth2", 8, azimuth2}}};
}

struct ProblemRow {
  const char* command;
  const char* description;
  std::array<const char*, 4> takes;
  std::array<bool, 4> is_latitude;
  Results (*solve)(const FourNumbers&, const std::optional<Axes>&);
  const char* caution;
  const char* example;
};

constexpr ProblemRow kProblems[] = {
    {"inverse",
     "The distance in metres between two positions, and the azimuths at both in the direction of travel",
     {"lon1", "lat1", "lon2", "lat2"},
     {false, true, false, true},
     SolveInverse,
     "Within a degree of the antipode the figures may be far off, without a word.",
     "tessarine inverse 2.35 48.86 -73.94 40.67"},
    {"direct",
     "The position at a distance in metres and an azimuth from a start, and the azimuth of travel there",
     {"lon", "lat", "distance", "azimuth"},
     {false, true, false, false},
     SolveDirect,
     "A line across the 180 degree meridian ends past 180 or -180.",
     "tessarine direct 2.35 48.86 1000000 90 --spheroid \"WGS 1984\""},
};

struct GeodesicOptions {
  std::vector<std::string> numbers;
  SpheroidOptions spheroid;
  bool json = false;
};

std::vector<std::string_view> Words(std::string_view line) {
  std::vector<std::string_view> words;
  constexpr std::string_view kBetween = " \t\r,;";
  for (std::size_t at = line.find_first_not_of(kBetween); at != std::string_view::npos;) {
    const std::size_t end = std::min(line.find_first_of(kBetween, at), line.size());
    words.push_back(line.substr(at, end - at));
    at = line.find_first_not_of(kBetween, end);
  }
  return words;
}

double ReadNumber(std::string_view word, const char* name) {
  double value = 0.0;
  const std::string_view digits = word.starts_with('+') ? word.substr(1) : word;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  const bool is_whole = error == std::errc() && end == digits.data() + digits.size() && !word.starts_with("+-");
  if (!is_whole || !std::isfinite(value)) {
    throw std::invalid_argument(fmt::format("'{}' is no number for {}", word, name));
  }
  return value;
}

FourNumbers ReadNumbers(const ProblemRow& problem, std::string_view line) {
  const std::vector<std::string_view> words = Words(line);
  if (words.size() != 4) {
    throw std::invalid_argument(fmt::format("{} numbers instead of four: {} {} {} {}", words.size(), problem.takes[0],
                                            problem.takes[1], problem.takes[2], problem.takes[3]));
  }
  FourNumbers numbers{};
  for (std::size_t index = 0; index < 4; ++index) {
    numbers[index] = ReadNumber(words[index], problem.takes[index]);
    if (problem.is_latitude[index] && std::abs(numbers[index]) > 90.0) {
      throw std::invalid_argument(
          fmt::format("{} is {}: latitudes lie between -90 and 90", problem.takes[index], words[index]));
    }
  }
  return numbers;
}

/// While it lives, a fault that a routine traps is kept here instead of being reported.
class FaultCatcher {
 public:
  FaultCatcher() : previous_(SetFaultReporter(Keep)) { kept_.reset(); }
  ~FaultCatcher() { SetFaultReporter(previous_); }
  FaultCatcher(const FaultCatcher&) = delete;
  FaultCatcher& operator=(const FaultCatcher&) = delete;

  /// Raises what was kept since the last call.
  static void Check() {
    if (!kept_) return;
    const std::string text = *kept_;
    kept_.reset();
    throw std::invalid_argument(text);
  }

 private:
  static void Keep(const TrapSite&, const Fault& fault) {
    if (!kept_) kept_ = fault.Description();
  }

  static inline std::optional<std::string> kept_;
  FaultReporter previous_;
};

/// Solves line by line and prints each result, or what is wrong with its line, on a line of its own.
class GeodesicPrinter {
 public:
  GeodesicPrinter(const ProblemRow& problem, std::optional<Axes> axes, bool json)
      : problem_(problem), axes_(axes), json_(json) {}

  void PrintLine(std::string_view line) {
    ++line_number_;
    try {
      const Results results = problem_.solve(ReadNumbers(problem_, line), axes_);
      FaultCatcher::Check();
      PrintResults(results);
    } catch (const std::invalid_argument& error) {
      failed_ = true;
      PrintError(error.what());
    }
  }

  [[nodiscard]] bool Failed() const { return failed_; }

 private:
  void PrintResults(const Results& results) const {
    if (json_) {
      nlohmann::ordered_json object;
      for (const Result& result : results) object[result.name] = result.value;
      fmt::print("{}\n", object.dump());
      return;
    }
    fmt::print("{:.{}f} {:.{}f} {:.{}f}\n", results[0].value, results[0].places, results[1].value, results[1].places,
               results[2].value, results[2].places);
  }

  void PrintError(const std::string& text) const {
    if (json_) {
      // The text may quote a line in any encoding.
      const nlohmann::ordered_json object = {{"error", text}, {"line", line_number_}};
      fmt::print("{}\n", object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace));
    } else {
      fmt::print("error: line {}: {}\n", line_number_, text);
    }
  }

  const ProblemRow& problem_;
  std::optional<Axes> axes_;
  bool json_;
  bool failed_ = false;
  std::int64_t line_number_ = 0;
};

std::optional<Axes> ChosenAxes(const SpheroidOptions& options) {
  const TerminalHost host({}, MapDocument().HostVersion);
  const std::optional<ChosenSpheroid> spheroid = ChooseSpheroid(options);
  if (!spheroid) return std::nullopt;
  return Axes{spheroid->semi_major_axis, spheroid->semi_minor_axis};
}

ExitStatus RunGeodesics(const ProblemRow& problem, const GeodesicOptions& options) {
  GeodesicPrinter printer(problem, ChosenAxes(options.spheroid), options.json);
  const FaultCatcher catcher;
  if (!options.numbers.empty()) {
    printer.PrintLine(fmt::format("{}", fmt::join(options.numbers, " ")));
    return printer.Failed() ? ExitStatus::Failed : ExitStatus::Done;
  }
  std::string line;
  while (std::getline(std::cin, line)) printer.PrintLine(line);
  return printer.Failed() ? ExitStatus::Failed : ExitStatus::Done;
}

void AddGeodesic(const ProblemRow& problem, CLI::App& program, ChosenCommand& chosen) {
  auto options = std::make_shared<GeodesicOptions>();
  CLI::App& command = *program.add_subcommand(problem.command, problem.description);
  const std::string takes =
      fmt::format("{} {} {} {}", problem.takes[0], problem.takes[1], problem.takes[2], problem.takes[3]);
  command.add_option("numbers", options->numbers, takes + "; without them, a line of them each from standard input")
      ->type_name("")
      ->expected(4);
  AddSpheroidOptions(command, options->spheroid);
  command.add_flag("--json", options->json, "Print one JSON object a line, with all digits");
  command.footer(
      fmt::format("On WGS 1984 unless told otherwise. Angles are degrees; azimuths run clockwise from "
                  "north. A bad line gives an error on its\nown line, the others go on, and the exit "
                  "status is 1.\n{}\n\nExample:\n  {}",
                  problem.caution, problem.example));
  command.callback(
      [&problem, &chosen, options] { chosen.run = [&problem, options] { return RunGeodesics(problem, *options); }; });
}

}  // namespace

void AddGeodesicCommands(CLI::App& program, ChosenCommand& chosen) {
  for (const ProblemRow& problem : kProblems) AddGeodesic(problem, program, chosen);
}

}  // namespace tessarine
