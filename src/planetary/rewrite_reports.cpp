// SPDX-License-Identifier: GPL-2.0-or-later
#include "planetary/rewrite_reports.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "platform/paths.h"
#include "platform/report_heads.h"
#include "platform/rich_text.h"
#include "platform/text_formats.h"
#include "support/aml_func_mod.h"
#include "support/journal_report.h"

namespace tessarine {
namespace {

constexpr std::string_view kTitleEnd = "\\b0\\fs17\\par\r\n\\pard ";
constexpr std::string_view kRule = "---------------------------------------------\\par\r\n";
constexpr std::string_view kCreateFailure = "'CreateGeneralFeatureClass' Function failed unexpectedly...";
constexpr std::string_view kProblemHeading = "NOTE:  The following problems were found in the dataset:";
constexpr std::string_view kStoppedNote = "NOTE:  Exited Function Prematurely at Record ";

constexpr std::size_t kListed = 10;

std::string Opening(std::string_view title) {
  return LargeReportHead() + EscapeRtf(title) + std::string(kTitleEnd) + std::string(kRule);
}

std::string FailedOpening(std::string_view conversion) {
  return Opening("!!!  " + std::string(conversion) + " Conversion Failed  !!!");
}

std::string Bold(std::string_view heading) { return "\\b " + EscapeRtf(heading) + "\\b0\\par\r\n"; }

std::string Section(const ReportSection& section) {
  std::string text = Bold(section.heading);
  for (const std::string& line : section.lines) text += EscapeRtf(line) + "\\par\r\n";
  return text + std::string(kRule);
}

std::string Sections(const std::vector<ReportSection>& sections) {
  std::string text;
  for (const ReportSection& section : sections) text += Section(section);
  return text;
}

struct MeasureWords {
  const char* name;
  const char* unit;
};

MeasureWords WordsOf(esriGeometryType type) {
  if (type == esriGeometryPolygon) return {"area", " square degrees"};
  if (type == esriGeometryPolyline) return {"length", " degrees"};
  return {"number of places", ""};
}

std::string OidList(std::span<const std::int64_t> first, std::int64_t count) {
  std::string text;
  for (const std::int64_t oid : first) text += (text.empty() ? "#" : ", #") + std::to_string(oid);
  const auto more = count - static_cast<std::int64_t>(first.size());
  return more > 0 ? text + " and " + std::to_string(more) + " more" : text;
}

void AddPole(const char* name, const std::vector<std::int64_t>& oids, ReportSection& section) {
  if (oids.empty()) return;
  const std::span<const std::int64_t> first(oids.data(), std::min(oids.size(), kListed));
  section.lines.push_back(std::string("  --> ") + name + ":  OID " +
                          OidList(first, static_cast<std::int64_t>(oids.size())));
}

ReportSection PoleSection(const HeldPoles& poles) {
  ReportSection section{"NOTE:  Rings round the globe were led over a pole:", {}};
  AddPole("North Pole", poles.north, section);
  AddPole("South Pole", poles.south, section);
  return section;
}

ReportSection DifferenceSection(const MeasureAccount& account) {
  const MeasureWords words = WordsOf(account.type);
  return {
      std::string("NOTE:  The ") + words.name + " of some features changed:",
      {"  --> In:  " + NumberText(account.before) + words.unit, "  --> Out:  " + NumberText(account.after) + words.unit,
       "  --> Changed at OID " + OidList(account.first_oids, account.differing),
       "  --> Pieces that come to lie on each other count once; what lies on an edge stands on both edges."}};
}

}  // namespace

bool MeasureAccount::Add(const RewrittenMeasure& measure, std::int64_t oid) {
  constexpr double kTolerance = 1e-9;
  before += measure.before;
  after += measure.after;
  const double allowed = kTolerance * std::fabs(measure.before) + measure.rounding;
  if (std::fabs(measure.after - measure.before) <= allowed) return false;
  ++differing;
  if (first_oids.size() < kListed) first_oids.push_back(oid);
  return true;
}

std::string ProblemLine(const std::string& text) { return EscapeRtf(text) + "\\par\r\n"; }

std::string RewriteReport(std::string_view title, const std::vector<ReportSection>& sections, const OutputFacts& output,
                          const RewriteFacts& facts) {
  std::string report =
      Opening(title) + Sections(sections) +
      Section({"Output:",
               {"  ** Feature Class:  " + output.class_name, "  ** Workspace:  " + ToNativePath(output.workspace),
                "  ** Contains " + aml_func_mod::InsertCommas(output.count) +
                    (output.count == 1 ? " feature" : " features")}});
  if (facts.stopped) {
    report += Bold(std::string(kStoppedNote) + std::to_string(facts.records_done)) + std::string(kRule);
  }
  if (!facts.poles.north.empty() || !facts.poles.south.empty()) report += Section(PoleSection(facts.poles));
  if (facts.measures.differing > 0) report += Section(DifferenceSection(facts.measures));
  if (!facts.problems.empty()) report += Bold(kProblemHeading) + facts.problems + std::string(kRule);
  return report + "\\pard\\qc " + facts.time_spent + "\\par\r\n}";
}

std::string NoOutputReport(std::string_view conversion) {
  return FailedOpening(conversion) + EscapeRtf(kCreateFailure) + "\\par\r\n}";
}

std::string FaultReport(std::string_view conversion, std::string_view worker, const RewriteFacts& facts,
                        const Fault& fault) {
  return FailedOpening(conversion) +
         FaultBlock(worker, fault, "planetary/feature_rewrite.cpp", kRule, facts.records_done) + facts.problems + "}";
}

std::string PlanReport(std::string_view conversion, const std::vector<ReportSection>& sections) {
  return Opening(std::string(conversion) + " Conversion, planned only: nothing was written") + Sections(sections) + "}";
}

}  // namespace tessarine
