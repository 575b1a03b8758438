// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/output_checks.h"

#include <unistd.h>

#include <filesystem>

#include "engine/data_source.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/report_output.h"
#include "outputs/layer_copy.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

// What has to be there already: a new geodatabase is made in its folder.
fs::path ExistingPart(const OutputPlace& place) {
  const fs::path container = place.container;
  return place.InContainer() && !fs::exists(container) ? container.parent_path() : container;
}

void RefuseDocument(const OutputPlace& place, const std::string& document) {
  if (document.empty() || place.IsFolder() || !place.Overlaps({{document}, {}})) return;
  throw Refusal("'" + place.NativePath() + "' would replace this run's map document '" + document +
                "': name another output.");
}

}  // namespace

void RefuseUnusablePlace(const OutputPlace& place, const CommonOptions& options) {
  if (const auto problem = NameProblem(place)) throw Refusal(*problem);
  RefuseDocument(place, options.document);
  if (place.format != nullptr && place.format->server) return RefuseBrokenContainer(place);
  const fs::path part = ExistingPart(place);
  const std::string output = "The output '" + place.NativePath() + "' can't be made: ";
  const bool is_file = place.InContainer() && !place.format->folder && fs::is_regular_file(part);
  if (!is_file && !fs::is_directory(part)) throw Refusal(output + "there is no folder '" + part.string() + "'.");
  if (access(part.c_str(), W_OK) != 0) {
    throw Refusal(output + "'" + part.string() + "' can't be written to; check its permissions.");
  }
  const fs::path file = place.InContainer() ? fs::path(place.container) : fs::path(place.NativePath());
  std::error_code error;
  // Of the others their own tools tell what is in the way.
  if (!place.IsFolder() && !place.format->HasOwnWorkspace() && fs::is_directory(file, error)) {
    throw Refusal("'" + file.string() + "' is a folder and isn't replaced by a file: name another output.");
  }
  RefuseBrokenContainer(place);
  RefuseReportOver(options.report_file, {place.InContainer() ? place.container : place.NativePath()}, kIsOutput);
}

bool EntersContainer(const NamedOutput& output) {
  std::error_code error;
  return output.whole_container && fs::exists(output.place.container, error);
}

std::string EnteringQuestion(const OutputPlace& place) {
  return "'" + place.container + "' already exists!  Do you wish to add the layer '" + place.ClassName() + "' to it?";
}

void RefuseTakenPlace(const NamedOutput& output, const CommonOptions& options) {
  const TerminalManners manners = options.Manners();
  if (manners.overwrite || manners.yes || manners.interactive) return;
  const OutputPlace& place = output.place;
  const bool stands = !place.IsFolder() && Stands(place);
  if (!stands && !EntersContainer(output)) return;
  throw Refusal("'" + (stands ? place.NativePath() : place.container) + "' exists already: add --overwrite to " +
                (stands ? "replace it" : "put the layer '" + place.ClassName() + "' into it") + ", or name another.");
}

void RefuseSource(const OutputPlace& place, const DocumentFeatureLayer& layer) {
  const auto files = Cast<IDatasetFiles>(layer.FeatureClass());
  if (!place.IsFolder() && files && place.Overlaps(files->Files())) {
    throw Refusal("'" + place.NativePath() + "' is read by this run: name another output.");
  }
}

void CheckDataset(const OutputPlace& place, const SpatialReferenceRef& reference) {
  if (place.dataset.empty()) return;
  const SpatialReferenceRef own = FeatureDatasetReference(place.container, place.dataset);
  if (own && !own->IsEqual(*reference)) {
    throw Refusal("The feature dataset '" + place.dataset + "' is in '" + own->Name() + "', but the output in '" +
                  reference->Name() + "': name another dataset, or none.");
  }
}

}  // namespace tessarine
