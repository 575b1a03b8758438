// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/form_answers.h"

#include <filesystem>

#include "engine/data_source.h"
#include "engine/layer_copy.h"
#include "hosts/terminal/refusal.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

}  // namespace

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
