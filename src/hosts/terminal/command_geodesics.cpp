// SPDX-License-Identifier: GPL-2.0-or-later
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
#include <utility>

#include "geodesy/geodesics.h"
#include "geodesy/longitude_continuation.h"
#include "hosts/document/map_document.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/spheroid_options.h"
#include "hosts/terminal/terminal_host.h"
#include "platform/exact_geodesy.h"
#include "platform/fault.h"

namespace tessarine {
namespace {

using geodesy::Figure;
using FourNumbers = std::array<double, 4>;

/// What a problem is solved on, and how.
struct Way {
  Figure figure = geodesy::kWgs1984;
  bool exactly = false;
};

/// A value of a result: its name, and the places after the point that are worth reading.
struct Result {
  const char* name;
  int places;
  double value;
};
struct Solution {
  std::array<Result, 3> results;
  /// How it was solved where Vincenty's series wasn't asked, or its iteration didn't settle; empty otherwise.
  std::string other_method = {};
  bool converged = true;
};

std::array<Result, 3> InverseResults(double length, double start, double end) {
  return {{{"distance", 4, length}, {"azimuth1", 8, start}, {"azimuth2", 8, end}}};
}

Solution SolveInverseWithoutSeries(const FourNumbers& given, const Figure& figure, bool converged) {
  const ExactGeodesic exact =
      SolveInverseExactly({given[0], given[1]}, {given[2], given[3]}, figure.semi_major, figure.semi_minor);
  return {InverseResults(exact.distance, exact.azimuth1, exact.azimuth2),
          std::string(ExactGeodesyMethod(figure.semi_major, figure.semi_minor)), converged};
}

// Nearly antipodal positions are left to the exact method.
Solution SolveInverse(const FourNumbers& given, const Way& way) {
  if (way.exactly) return SolveInverseWithoutSeries(given, way.figure, true);
  // A turn apart, as -180 and 180 are, the iteration wouldn't start.
  const double lon2 = geodesy::WithinOneTurn(given[0], given[2]);
  try {
    const geodesy::GeodesicLine line = geodesy::Inverse({given[0], given[1]}, {lon2, given[3]}, way.figure);
    if (line.converged) return {InverseResults(line.distance, line.azimuth1, line.azimuth2)};
  } catch (const Fault&) {
    // The series has no answer between these two; the exact method may.
  }
  return SolveInverseWithoutSeries(given, way.figure, false);
}

Solution SolveDirect(const FourNumbers& given, const Way& way) {
  const double semi_major = way.figure.semi_major, semi_minor = way.figure.semi_minor;
  const auto results = [](XY end, double azimuth) {
    return std::array<Result, 3>{{{"lon", 9, end.x}, {"lat", 9, end.y}, {"azimuth2", 8, azimuth}}};
  };
  if (way.exactly) {
    const ExactPosition exact = SolveDirectExactly({given[0], given[1]}, given[2], given[3], semi_major, semi_minor);
    return {results(exact.end, exact.azimuth2), std::string(ExactGeodesyMethod(semi_major, semi_minor))};
  }
  // Points along lines take the flattening of the axes in all tools, on WGS 1984 too.
  const geodesy::GeodesicEnd end =
      geodesy::Direct({given[0], given[1]}, given[3], given[2], Figure::FromAxes(semi_major, semi_minor));
  return {results(end.position, end.azimuth2)};
}

struct ProblemRow {
  const char* command;
  const char* description;
  std::array<const char*, 4> takes;
  std::array<bool, 4> is_latitude;
  Solution (*solve)(const FourNumbers&, const Way&);
  bool iterates;  ///< and may fail to settle
  const char* caution;
  const char* example;
};

constexpr ProblemRow kProblems[] = {
    {"inverse",
     "The distance in metres between two positions, and the azimuths at both in the direction of travel",
     {"lon1", "lat1", "lon2", "lat2"},
     {false, true, false, true},
     SolveInverse,
     true,
     "Near the antipode of the first position the iteration may not settle: within 1.1 degrees of it on the Earth, 1.9 "
     "on\n"
     "Mars, 21 on Jupiter, 30 on Saturn. Such a pair is solved by an exact method; a line on standard error and, with\n"
     "--json, \"converged\": false and \"method\" tell so.",
     "tessarine inverse 2.35 48.86 -73.94 40.67"},
    {"direct",
     "The position at a distance in metres and an azimuth from a start, and the azimuth of travel there",
     {"lon", "lat", "distance", "azimuth"},
     {false, true, false, false},
     SolveDirect,
     false,
     "A line across the 180 degree meridian ends past 180 or -180.",
     "tessarine direct 2.35 48.86 1000000 90 --spheroid \"WGS 1984\""},
};

struct GeodesicOptions {
  std::vector<std::string> numbers;
  SpheroidOptions spheroid;
  bool exact = false;
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

/// Solves line by line and prints each result, or what is wrong with its line, on a line of its own.
class GeodesicPrinter {
 public:
  GeodesicPrinter(const ProblemRow& problem, const Way& way, bool json) : problem_(problem), way_(way), json_(json) {}

  void PrintLine(std::string_view line) {
    ++line_number_;
    try {
      PrintSolution(problem_.solve(ReadNumbers(problem_, line), way_));
    } catch (const std::invalid_argument& error) {
      failed_ = true;
      PrintError(error.what());
    } catch (const Fault& fault) {
      failed_ = true;
      PrintError(fault.Description());
    }
  }

  [[nodiscard]] bool Failed() const { return failed_; }

 private:
  void PrintSolution(const Solution& solution) const {
    const auto& results = solution.results;
    if (!solution.converged) {
      fmt::print(stderr, "line {}: nearly antipodal positions, where the iteration doesn't settle: solved by {}\n",
                 line_number_, solution.other_method);
    }
    if (!json_) {
      fmt::print("{:.{}f} {:.{}f} {:.{}f}\n", results[0].value, results[0].places, results[1].value, results[1].places,
                 results[2].value, results[2].places);
      return;
    }
    nlohmann::ordered_json object;
    for (const Result& result : results) object[result.name] = result.value;
    if (problem_.iterates) object["converged"] = solution.converged;
    if (!solution.other_method.empty()) object["method"] = solution.other_method;
    fmt::print("{}\n", object.dump());
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
  Way way_;
  bool json_;
  bool failed_ = false;
  std::int64_t line_number_ = 0;
};

Figure ChosenFigure(const SpheroidOptions& options) {
  const TerminalHost host({}, MapDocument().host_version);
  const std::optional<ChosenSpheroid> spheroid = ChooseSpheroid(options);
  return spheroid ? Figure::FromAxes(spheroid->semi_major_axis, spheroid->semi_minor_axis) : geodesy::kWgs1984;
}

// Each result is as far off as its line is long, so this is said once.
void TellOfRoughSeries(const Way& way) {
  if (way.exactly || !geodesy::IsSeriesRough(way.figure)) return;
  fmt::print(
      stderr,
      "On a spheroid of this shape Vincenty's series is off: by up to 2e-6 of the distance at a flattening of "
      "1/15, 2e-5 at 1/10, 1e-3 at 1/5, and by percents beyond. Where the polar axis is the longer one, a line to "
      "the other side may not be the shortest. Add --exact to solve without it.\n");
}

ExitStatus RunGeodesics(const ProblemRow& problem, const GeodesicOptions& options) {
  const Way way{ChosenFigure(options.spheroid), options.exact};
  TellOfRoughSeries(way);
  GeodesicPrinter printer(problem, way, options.json);
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
  command.add_flag("--exact", options->exact,
                   "Solve by GeographicLib on any spheroid, and not by Vincenty's series as the calculator does");
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
