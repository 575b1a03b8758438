// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/plan_texts.h"

#include "conversion/run_data.h"
#include "conversion/run_reports.h"
#include "platform/rich_text.h"
#include "platform/shape_words.h"
#include "support/MyGeneralOperations.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

std::string KindText(const OutputPlace& place) {
  const std::string kind = DirectoryTypeText(place.Kind());
  return place.dataset.empty() ? kind : kind + ", feature dataset " + EscapeRtf(place.dataset);
}

// The planned fields are those of the transfer, in their order.
std::string FieldLines(const FieldTransfer& transfer, const OutputPlan& plan) {
  std::string lines;
  const std::size_t own_count = plan.fields.size() - transfer.Chosen().size();
  for (std::size_t index = 0; index < plan.fields.size(); ++index) {
    const PlannedField& field = plan.fields[index];
    lines += "       " + EscapeRtf(field.name.empty() ? "(left out)" : field.name);
    if (index >= own_count) lines += "  <--  " + EscapeRtf(transfer.Chosen()[index - own_count].input);
    if (!field.type.empty()) lines += "  (" + field.type + ")";
    lines += "\\par\r\n";
  }
  return lines;
}

std::string ForetoldLines(const FieldTransfer& transfer, const OutputPlace& place, const OutputPlan& plan,
                          std::vector<std::string> losses) {
  const std::vector<std::string> changes = ForetoldChanges(transfer.Carried(), place.Kind());
  losses.insert(losses.end(), changes.begin(), changes.end());
  losses.insert(losses.end(), plan.foretold.begin(), plan.foretold.end());
  std::string lines;
  for (const std::string& sentence : losses) {
    lines += "  ** " + EscapeRtf(sentence) + "\\par\r\n";
  }
  return lines.empty() ? "" : "\\b Foretold:\\b0\\par\r\n" + lines;
}

}  // namespace

std::string PlannedOutput(RunContext& context, const OutputPlace& place, esriGeometryType shape,
                          const FieldTransfer& transfer, const Envelope& extent,
                          std::vector<std::shared_ptr<IClass>> sources, const std::vector<std::string>& losses) {
  OutputRequest request = RequestFor(place, "");
  request.fields = transfer.OutputFields();
  request.geometry_type = shape;
  request.reference = context.journal.reference;
  request.envelope = &extent;
  request.sources = std::move(sources);
  const OutputPlan plan = PlanOutput(context, request);
  const std::string question = NotePlan(context, plan);
  return "\\b Output:\\b0\\par\r\n  ** " + PathForReport(plan.path) + "\\par\r\n  ** " + KindText(place) + ", " +
         std::string(ShapeWord(shape, "unknown")) + "\\par\r\n\\b Fields:\\b0\\par\r\n" + FieldLines(transfer, plan) +
         ForetoldLines(transfer, place, plan, losses) + "\\b Questions:\\b0\\par\r\n  ** " + question + "\\par\r\n";
}

}  // namespace tessarine
