// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/plan_texts.h"

#include "conversion/run_data.h"
#include "conversion/run_reports.h"
#include "platform/rich_text.h"
#include "support/MyGeneralOperations.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

std::string KindText(const OutputTarget& target) {
  const std::string kind = DirectoryTypeText(target.kind);
  return target.InDataset() ? kind + ", feature dataset " + EscapeRtf(target.feature_dataset) : kind;
}

std::string FieldLines(const FieldTransfer& transfer) {
  std::string lines;
  const std::int32_t own_count = transfer.OutputFields()->Count() - static_cast<std::int32_t>(transfer.Chosen().size());
  for (std::int32_t index = 0; index < transfer.OutputFields()->Count(); ++index) {
    lines += "       " + EscapeRtf(transfer.OutputFields()->Element(index).AsObject<Field>()->Name);
    if (index >= own_count) {
      lines += "  <--  " + EscapeRtf(transfer.Chosen()[static_cast<std::size_t>(index - own_count)].input);
    }
    lines += "\\par\r\n";
  }
  return lines;
}

std::string ForetoldLines(const FieldTransfer& transfer, const OutputTarget& target, std::vector<std::string> losses) {
  const std::vector<std::string> changes = ForetoldChanges(transfer.Carried(), target.kind);
  losses.insert(losses.end(), changes.begin(), changes.end());
  std::string lines;
  for (const std::string& sentence : losses) {
    lines += "  ** " + EscapeRtf(sentence) + "\\par\r\n";
  }
  return lines.empty() ? "" : "\\b Foretold:\\b0\\par\r\n" + lines;
}

}  // namespace

std::string PlannedOutput(RunContext& context, const OutputTarget& target, std::string_view shape_word,
                          const FieldTransfer& transfer, std::vector<std::shared_ptr<IClass>> sources,
                          const std::vector<std::string>& losses) {
  OutputRequest request = RequestFor(target, "");
  request.fields = transfer.OutputFields();
  request.sources = std::move(sources);
  const OutputPlan plan = PlanOutput(context, request);
  const std::string question = NotePlan(context, plan, request);
  return "\\b Output:\\b0\\par\r\n  ** " + PathForReport(plan.path) + "\\par\r\n  ** " + KindText(target) + ", " +
         std::string(shape_word) + "\\par\r\n\\b Fields:\\b0\\par\r\n" + FieldLines(transfer) +
         ForetoldLines(transfer, target, losses) + "\\b Questions:\\b0\\par\r\n  ** " + question + "\\par\r\n";
}

}  // namespace tessarine
