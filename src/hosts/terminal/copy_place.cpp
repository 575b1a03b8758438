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

const Format* ContainerFormat(const std::string& path) {
  const Format* format = FormatOfPath(path);
  return format != nullptr && format->container ? format : nullptr;
}

// "town.gpkg" of "town.gpkg:roads"; nothing where the text isn't of this form.
std::size_t FindColon(const std::string& text) {
  const std::size_t colon = text.rfind(':');
  const bool names_layer = colon != std::string::npos && ContainerFormat(text.substr(0, colon)) != nullptr;
  return names_layer ? colon : std::string::npos;
}

CopyPlace PlaceIn(const std::string& text, const fs::path& container, const std::vector<std::string>& rest) {
  CopyPlace copy;
  copy.place.format = ContainerFormat(container.string());
  copy.place.container = container.string();
  if (rest.size() > (copy.place.format->feature_datasets ? 2U : 1U)) {
    throw Refusal("-o " + text + " names no layer: write CONTAINER, CONTAINER:LAYER or GEODATABASE.gdb/DATASET/LAYER.");
  }
  copy.whole_container = rest.empty();
  copy.place.name = rest.empty() ? container.stem().string() : rest.back();
  if (rest.size() == 2) copy.place.dataset = rest.front();
  return copy;
}

}  // namespace

CopyPlace ParseCopyPlace(const std::string& text) {
  if (const std::size_t colon = FindColon(text); colon != std::string::npos) {
    return PlaceIn(text, fs::absolute(text.substr(0, colon)).lexically_normal(), {text.substr(colon + 1)});
  }
  fs::path path = fs::absolute(text).lexically_normal();
  if (!path.has_filename()) path = path.parent_path();
  fs::path walked;
  for (auto part = path.begin(); part != path.end(); ++part) {
    walked /= *part;
    if (ContainerFormat(part->string()) == nullptr) continue;
    std::vector<std::string> rest;
    for (auto behind = std::next(part); behind != path.end(); ++behind) rest.push_back(behind->string());
    // Folders may be called like files.
    const bool is_folder_on_the_way =
        !rest.empty() && !ContainerFormat(walked.string())->folder && fs::is_directory(walked);
    if (!is_folder_on_the_way) return PlaceIn(text, walked, rest);
  }
  return {{FormatToWrite(path.string()), path.parent_path().string(), "", path.filename().string()}, false};
}

void RefuseUnusableCopy(const CopyPlace& copy, const DocumentFeatureLayer& source, const CommonOptions& options) {
  const OutputPlace& place = copy.place;
  if (place.format == nullptr || !place.format->writable) {
    throw Refusal("-o " + place.NativePath() +
                  ": no format is known for this ending. Name a .shp, .gpkg, .gdb/NAME, .geojson or another file that "
                  "GDAL writes.");
  }
  const fs::path file = place.InContainer() ? fs::path(place.container) : fs::path(place.NativePath());
  RefuseUnusablePlace(place, options);
  std::error_code error;
  if (!place.format->folder && fs::is_directory(file, error)) {
    throw Refusal("'" + file.string() + "' is a folder and isn't replaced by a file: name another output.");
  }
  RefuseSource(place, source);
  if (const auto files = Cast<IDatasetFiles>(source.FeatureClass())) {
    RefuseReportOver(options.report_file, files->Files().files, "'" + source.Name() + "' is read from");
  }
  CheckDataset(place, source.SpatialReference());
}

ReplacementAnswer AskToReplace(const CopyPlace& copy, const CommonOptions& options) {
  const OutputPlace& place = copy.place;
  const bool stands = Stands(place);
  // The user may not know of the other layers in it.
  const bool enters = copy.whole_container && std::filesystem::exists(place.container);
  if (!stands && !enters) return {};
  const Replacing agreed = stands ? Replacing::Agreed : Replacing::Nothing;
  const TerminalManners manners = options.Manners();
  const bool can_answer = manners.overwrite || manners.yes || manners.interactive;
  if (!can_answer) {
    throw Refusal("'" + (stands ? place.NativePath() : place.container) + "' exists already: add --overwrite to " +
                  (stands ? "replace it" : "put the layer '" + place.ClassName() + "' into it") + ", or name another.");
  }
  const std::string question =
      stands ? "The Feature Class '" + place.ClassName() + "' already exists!  Do you wish to overwrite it?"
             : "'" + place.container + "' already exists!  Do you wish to add the layer '" + place.ClassName() +
                   "' to it?";
  if (Host().PlanOnly()) return {agreed, "Feature Class Already Exists: the run would ask whether to overwrite it."};
  return {Host().Ask(RunQuestion::ReplaceOutput, question, kQuestionTitle) ? agreed : Replacing::Declined, ""};
}

}  // namespace tessarine
