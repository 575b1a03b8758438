// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/output_chooser.h"

#include <filesystem>
#include <string_view>

#include "outputs/output_argument.h"
#include "outputs/temporary_layers.h"
#include "platform/host.h"
#include "platform/paths.h"
#include "platform/tell_user.h"
#include "platform/text_formats.h"
#include "support/MyGeneralOperations.h"
#include "support/aml_func_mod.h"

namespace tessarine::MyGeneralOperations {
namespace {

using namespace aml_func_mod;

std::shared_ptr<IFeatureWorkspace> OpenGeodatabase(const OutputPlace& place) {
  return Require(FactoryOfKind(place.Kind()), "factory")->OpenFromFile(place.Directory(), 0);
}

// A format that a path can name by its ending, and that has no workspace of its own.
const Format* NamedFormatOfPath(const std::string& path) {
  const Format* format = FormatOfPath(path);
  return format == nullptr || format->HasOwnWorkspace() || !format->writable ? nullptr : format;
}

// The container that a layer's folder is; null for folders of the disk, whatever they are called.
const Format* ContainerAround(const std::string& folder) {
  const Format* format = NamedFormatOfPath(folder);
  if (format == nullptr || !format->container) return nullptr;
  if (format->server) return format == TemporaryLayers() && folder == format->ending ? format : nullptr;
  std::error_code error;
  return std::filesystem::is_directory(ToNativePath(folder), error) ? nullptr : format;
}

bool IsContainerPath(const std::string& path) {
  const Format* format = FormatOfPath(path);
  if (format == nullptr) return false;
  return format->HasOwnWorkspace() ? format->container : ContainerAround(path) != nullptr;
}

std::string StemOf(const std::string& path) { return std::filesystem::path(ToNativePath(path)).stem().string(); }

std::string NameInGeodatabase(std::string name) {
  return ReplaceBadChars(WithoutShapefileEnding(std::move(name)), true, true, true, true);
}

// The place that a confirmed browse dialog names.
OutputPlace ChosenPlace(const IGxDialog& dialog, OutputKind kind) {
  const std::shared_ptr<IGxObject> location = dialog.FinalLocation();
  OutputPlace chosen = PlaceIn(kind, location->FullName(), dialog.Name());
  if (const auto item = Cast<IGxDataset>(location)) {
    const std::shared_ptr<IDataset> dataset = item->Dataset();
    chosen = PlaceIn(kind, dataset->Workspace()->PathName(), dialog.Name(), dataset->Name());
  }
  if (kind == kShapefile && FollowNamedFormat(chosen.Path(), chosen)) return chosen;
  if (chosen.format->feature_datasets) chosen.name = NameInGeodatabase(std::move(chosen.name));
  return chosen;
}

MessageAnswer RefuseCategory(const std::string& category, const std::string& line_break) {
  return Host().MessageBox().Show("Unexpected Feature Class Type (" + category +
                                      ")!\r\nThis function will only create shapefiles or feature classes in " +
                                      line_break + "File or Personal GeoDatabases.  Please click 'OK' to select a " +
                                      line_break + "new Feature Class Name, or 'Cancel' to bail out.",
                                  "Invalid Feature Class Type:", MessageButtons::OkCancel);
}

struct BrowseRules {
  std::string title;
  OutputKind (*kind_of)(std::string_view category);
  const char* refusal_line_break;
};

}  // namespace

OutputPlace PlaceAtPath(const std::string& path, std::int32_t kind, const std::string& dataset) {
  OutputPlace place = PlaceIn(kind, ReturnDir(path), ReturnFilename(path), dataset);
  if (place.format == nullptr || !place.format->feature_datasets) place.dataset.clear();
  const std::string folder = place.Directory();
  if (!place.dataset.empty() && EqualsIgnoringCase(ReturnFilename(folder), place.dataset)) {
    return PlaceIn(kind, ReturnDir(folder), place.name, dataset);
  }
  return place;
}

std::string WithoutTrailingSlash(std::string path) {
  if (!path.empty() && (path.back() == '\\' || path.back() == '/')) path.pop_back();
  return path;
}

OutputPlace RememberedPlace(const clsExtension& extension, const std::shared_ptr<IApplication>& application) {
  const OutputKind kind = extension.DirectoryType.empty() ? kShapefile : KindOfDirectoryType(extension.DirectoryType);
  OutputPlace place =
      PlaceIn(kind, extension.DirectoryPath, "", extension.IsFeatureDataset ? extension.FeatDatasetName : "");
  const Format* temporary = TemporaryLayers();
  const bool there = (temporary != nullptr && place.format == temporary) || ExistFileDir(extension.DirectoryPath);
  if (!there || place.IsFolder())
    place = PlaceIn(kShapefile, ReturnDir(GetFullFileString(GetMxDocPath(application))), "");
  if (!place.format->feature_datasets) place.dataset.clear();
  return place;
}

OutputPlace ProposeName(OutputPlace place, const std::string& base_name) {
  const OutputPlace wished{place.format, place.container, "", base_name};
  if (place.Kind() == kShapefile) {
    place.name = ReturnFilename(MakeUniqueShapeFilename(WithShapefileEnding(wished.Path())));
  } else if (place.format->IsFile()) {
    place.name = ReturnFilename(MakeUniqueFilename(wished.Path() + std::string(place.format->ending)));
  } else {
    place.name = MakeUniqueGDBFeatureClassName(OpenGeodatabase(place), base_name);
  }
  return place;
}

OutputPlace ProposeOutput(const clsExtension& extension, const std::shared_ptr<IApplication>& application,
                          const std::string& base_name) {
  return ProposeName(RememberedPlace(extension, application), base_name);
}

bool FollowNamedFormat(const std::string& text, OutputPlace& place) {
  const std::string folder = WithoutTrailingSlash(ReturnDir(text));
  const std::string name = ReturnFilename(text);
  if (const Format* format = ContainerAround(folder)) {
    place = PlaceIn(format->kind, folder, name.empty() ? StemOf(folder) : name);
    return true;
  }
  const Format* format = NamedFormatOfPath(name);
  if (format == nullptr || format->server) return false;
  place = format->container ? PlaceIn(format->kind, text, StemOf(name)) : PlaceIn(format->kind, ReturnDir(text), name);
  return true;
}

void FollowTypedPath(const std::string& text, OutputPlace& place) {
  if (FollowNamedFormat(text, place)) return;
  const OutputKind kind = KindInFolder(text);
  const std::string name = ReturnFilename(text);
  place = PlaceIn(kind, ReturnDir(text), kind == kShapefile ? SetExtension(name, "shp") : name, place.dataset);
}

namespace {

bool Browse(const std::string& text, OutputPlace& place, const BrowseRules& rules) {
  const std::string offered = place.Kind() == kShapefile ? MakeUniqueShapeFilename(text) : text;
  for (;;) {
    const std::shared_ptr<IGxDialog> dialog = Host().CreateGxDialog();
    dialog->AddFilter(GxFilter::FeatureClasses, true);
    dialog->SetAllowMultiSelect(false);
    dialog->SetStartingLocation(place.Directory());
    dialog->SetTitle(rules.title);
    dialog->SetName(offered);
    if (!dialog->DoModalSave(0)) return false;
    const std::string category = Require(dialog->FinalLocation(), "FinalLocation")->Category();
    if (const OutputKind kind = rules.kind_of(category); kind != kUnknownOutput) {
      place = ChosenPlace(*dialog, kind);
      return true;
    }
    if (RefuseCategory(category, rules.refusal_line_break) != MessageAnswer::Ok) return false;
  }
}

}  // namespace

bool BrowseForOutput(const std::string& text, OutputPlace& place, const std::string& title) {
  return Browse(text, place, {title, KindOfPlace, "\r\n"});
}

bool BrowseForOutput(const std::string& text, OutputPlace& place, AnyGeodatabasePlace) {
  return Browse(text, place, {"Enter the name of your new Feature Class or Shapefile:", KindOfAnyPlace, ""});
}

std::string ChosenPath(const std::string& text, const OutputPlace& place) {
  return place.format == nullptr || place.format->HasOwnWorkspace() ? text : place.Path();
}

std::optional<Objection> ObjectionTo(const std::string& path, const OutputPlace& place) {
  constexpr const char* kTitle = "Failed to Create Feature Class:";
  const Format* format = place.format;
  if (format != nullptr && format == TemporaryLayers()) return std::nullopt;
  // A feature dataset is no folder: its place is the geodatabase.
  const std::string directory = place.dataset.empty() ? WithoutTrailingSlash(ReturnDir(path)) : place.Directory();
  const Objection no_workspace{"output",
                               "Unable to create Feature Class:\r\n" +
                                   (directory.empty() && !path.empty() ? "/" : ToNativePath(directory)) +
                                   " is not a valid workspace...",
                               kTitle};
  if (format == nullptr) return ExistFileDir(directory) ? std::nullopt : std::optional(no_workspace);
  const std::size_t last = path.rfind('\\');
  const OutputPlace typed = PlaceIn(format->kind, path.substr(0, last), path.substr(last + 1));
  if (const auto problem = path.empty() ? std::nullopt : NameProblem(typed))
    return Objection{"output", *problem, kTitle};
  // A shapefile in the folder of a geodatabase would be lost in it, and a class outside of any has no place.
  const bool chosen = !format->HasOwnWorkspace() && format->container;
  const bool fits = chosen || format->container == IsContainerPath(directory);
  // A container of one file is made with its first layer.
  const bool can_be_made = chosen && ExistFileDir(WithoutTrailingSlash(ReturnDir(directory)));
  if (fits && (ExistFileDir(directory) || can_be_made)) return std::nullopt;
  return no_workspace;
}

bool OutputWorkspaceExists(const std::string& text, const OutputPlace& place) {
  const std::optional<Objection> objection = ObjectionTo(ChosenPath(text, place), place);
  if (objection) TellUser(objection->text, objection->title);
  return !objection;
}

OutputPlace PlaceFor(const ToolOutput& output, const std::string& base_name) {
  OutputPlace place = PlaceOf(output);
  if (place.IsFolder()) {
    const std::filesystem::path wished = std::filesystem::path(place.container) / WithShapefileEnding(base_name);
    return PlaceIn(kShapefile, output.directory, FirstFreePath(wished).filename().string());
  }
  if (!output.path.empty()) return place;
  if (place.format->feature_datasets) place.name = NameInGeodatabase(std::move(place.name));
  if (place.Kind() == kShapefile) place.name = SetExtension(place.name, "shp");
  return place;
}

ToolOutput ShownArgument(const OutputPlace& place) {
  ToolOutput output = ArgumentFor(place);
  output.name = place.name;
  output.dataset = place.dataset;
  output.path = place.Path();
  return output;
}

ToolOutput RememberedOutput(const clsExtension& extension) {
  return {KindOfDirectoryType(extension.DirectoryType), extension.DirectoryPath,
          extension.IsFeatureDataset ? extension.FeatDatasetName : "", ReturnFilename(extension.NewShapefileLocation),
          extension.NewShapefileLocation};
}

OutputPlace RememberedPlaceAt(const std::string& path, const clsExtension& extension) {
  return PlaceAtPath(path, KindOfDirectoryType(extension.DirectoryType),
                     extension.IsFeatureDataset ? extension.FeatDatasetName : "");
}

void RememberOutput(const OutputPlace& place, clsExtension& extension) {
  extension.DirectoryPath = place.Directory();
  extension.IsFeatureDataset = !place.dataset.empty();
  extension.FeatDatasetName = place.dataset;
  extension.DirectoryType = DirectoryTypeText(place.Kind());
}

}  // namespace tessarine::MyGeneralOperations
