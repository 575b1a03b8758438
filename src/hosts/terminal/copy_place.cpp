// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/copy_place.h"

#include <filesystem>
#include <vector>

#include "engine/layer_copy.h"
#include "hosts/terminal/form_answers.h"
#include "hosts/terminal/output_checks.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/report_output.h"
#include "platform/host.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

constexpr const char* kQuestionTitle = "Feature Class Already Exists:";

}  // namespace

void RefuseUnusableCopy(const NamedOutput& copy, const DocumentFeatureLayer& source, const CommonOptions& options) {
  const OutputPlace& place = copy.place;
  RefuseUnusablePlace(place, options);
  RefuseSource(place, source);
  if (const auto files = Cast<IDatasetFiles>(source.FeatureClass())) {
    RefuseReportOver(options.report_file, files->Files().files, "'" + source.Name() + "' is read from");
  }
  CheckDataset(place, copy.wished ? copy.wished : source.SpatialReference());
}

ReplacementAnswer AskToReplace(const NamedOutput& copy, const CommonOptions& options) {
  const OutputPlace& place = copy.place;
  const bool stands = Stands(place);
  // The user may not know of the other layers in it.
  const bool enters = EntersContainer(copy);
  if (!stands && !enters) return {};
  const Replacing agreed = stands ? Replacing::Agreed : Replacing::Nothing;
  RefuseTakenPlace(copy, options);
  const std::string question =
      stands ? "The Feature Class '" + place.ClassName() + "' already exists!  Do you wish to overwrite it?"
             : EnteringQuestion(place);
  if (Host().PlanOnly()) return {agreed, "Feature Class Already Exists: the run would ask whether to overwrite it."};
  return {Host().Ask(RunQuestion::ReplaceOutput, question, kQuestionTitle) ? agreed : Replacing::Declined, ""};
}

}  // namespace tessarine
