#include "conversion/plan_texts.h"

#include "conversion/run_reports.h"
#include "platform/host.h"
#include "platform/rich_text.h"
#include "support/MyGeneralOperations.h"
#include "support/attempt.h"
#include "support/output_chooser.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

std::shared_ptr<IFeatureWorkspace> OpenTarget(const OutputTarget& target) {
  const auto factory = target.kind == kFileGeodatabase       ? CreateFileGDBWorkspaceFactory()
                       : target.kind == kPersonalGeodatabase ? CreateAccessWorkspaceFactory()
                                                             : CreateShapefileWorkspaceFactory();
  return Attempt([&] { return factory->OpenFromFile(WithoutTrailingSlash(target.directory), 0); });
}

bool OutputExists(const OutputTarget& target) {
  const std::shared_ptr<IFeatureWorkspace> workspace = OpenTarget(target);
  return workspace && CheckIfFeatureClassExists(workspace, target.name);
}

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

std::string ForetoldLines(const FieldTransfer& transfer, const OutputTarget& target) {
  std::string lines;
  for (const std::string& sentence : ForetoldChanges(transfer.Carried(), target.kind)) {
    lines += "  ** " + EscapeRtf(sentence) + "\\par\r\n";
  }
  return lines.empty() ? "" : "\\b Foretold:\\b0\\par\r\n" + lines;
}

}  // namespace

std::string PlannedOutput(const std::string& path, const OutputTarget& target, std::string_view shape_word,
                          const FieldTransfer& transfer) {
  RunJournal& journal = Host().Journal();
  journal.output_path = path;
  for (const Variant& field : *transfer.OutputFields()) journal.planned_fields.push_back(field.AsObject<Field>()->Name);
  std::string question = "None";
  if (OutputExists(target)) {
    question = "Feature Class Already Exists: the run would ask whether to overwrite it.";
    journal.planned_questions.push_back(question);
  }
  return "\\b Output:\\b0\\par\r\n  ** " + PathForReport(path) + "\\par\r\n  ** " + KindText(target) + ", " +
         std::string(shape_word) + "\\par\r\n\\b Fields:\\b0\\par\r\n" + FieldLines(transfer) +
         ForetoldLines(transfer, target) + "\\b Questions:\\b0\\par\r\n  ** " + question + "\\par\r\n";
}

}  // namespace tessarine
