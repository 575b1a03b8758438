// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/output_chooser.h"

#include <filesystem>
#include <string_view>

#include "outputs/output_place.h"
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

// Tables count as places of outputs beside them.
OutputKind KindOfPlace(std::string_view category) {
  if (category == "dBASE Table") return kShapefile;
  if (category == "File Geodatabase Table") return kFileGeodatabase;
  if (category == "Personal Geodatabase Table") return kPersonalGeodatabase;
  return KindOfCategory(category);
}

std::shared_ptr<IFeatureWorkspace> OpenGeodatabase(OutputKind kind, const std::string& path) {
  return Require(FactoryOfKind(kind), "factory")->OpenFromFile(path, 0);
}

// A kind that dialogs haven't always offered.
const Format* NamedFormat(std::int32_t kind) {
  const Format* format = FormatOfKind(kind);
  return format == nullptr || format->HasOwnWorkspace() ? nullptr : format;
}

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
  if (EndsWithIgnoringCase(name, ".shp")) name.resize(name.size() - 4);
  return ReplaceBadChars(name, true, true, true, true);
}

// The place that a confirmed browse dialog names.
OutputChoice ChosenPlace(const IGxDialog& dialog, OutputKind kind) {
  OutputChoice chosen;
  const std::shared_ptr<IGxObject> location = dialog.FinalLocation();
  chosen.directory = location->FullName();
  chosen.name = dialog.Name();
  chosen.kind = kind;
  if (const auto item = Cast<IGxDataset>(location)) {
    const std::shared_ptr<IDataset> dataset = item->Dataset();
    chosen.directory = dataset->Workspace()->PathName();
    chosen.is_feature_dataset = true;
    chosen.feature_dataset_name = dataset->Name();
  }
  if (kind == kShapefile && FollowNamedFormat(chosen.FullPath(), chosen)) return chosen;
  if (FormatOfKind(kind)->feature_datasets) chosen.name = NameInGeodatabase(std::move(chosen.name));
  return chosen;
}

// Any category that begins as the geodatabases' do.
OutputKind KindOfAnyPlace(std::string_view category) {
  if (category.starts_with("File Geodatabase")) return kFileGeodatabase;
  if (category.starts_with("Personal Geodatabase")) return kPersonalGeodatabase;
  return KindOfPlace(category);
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

std::string WithoutTrailingSlash(std::string path) {
  if (!path.empty() && (path.back() == '\\' || path.back() == '/')) path.pop_back();
  return path;
}

std::string OutputChoice::FullPath() const {
  return directory + "\\" + (is_feature_dataset ? feature_dataset_name + "\\" : "") + name;
}

OutputChoice RememberedPlace(const clsExtension& extension, const std::shared_ptr<IApplication>& application) {
  OutputChoice place;
  place.directory = extension.DirectoryPath;
  place.is_feature_dataset = extension.IsFeatureDataset;
  place.feature_dataset_name = extension.FeatDatasetName;
  place.kind = extension.DirectoryType.empty() ? kShapefile : KindOfDirectoryType(extension.DirectoryType);
  const Format* temporary = TemporaryLayers();
  const bool there = (temporary != nullptr && place.kind == temporary->kind) || ExistFileDir(place.directory);
  if (!there || place.kind == kUnknownOutput) {
    place.directory = ReturnDir(GetFullFileString(GetMxDocPath(application)));
    place.kind = kShapefile;
  }
  place.directory = WithoutTrailingSlash(place.directory);
  if (!FormatOfKind(place.kind)->feature_datasets) {
    place.is_feature_dataset = false;
    place.feature_dataset_name.clear();
  }
  return place;
}

OutputChoice ProposeName(OutputChoice place, const std::string& base_name) {
  if (place.kind == kShapefile) {
    const std::string path = MakeUniqueShapeFilename(place.directory + "\\" + base_name + ".shp");
    place.directory = WithoutTrailingSlash(ReturnDir(path));
    place.name = ReturnFilename(path);
    return place;
  }
  if (const Format* format = FormatOfKind(place.kind); format->IsFile()) {
    place.name = ReturnFilename(MakeUniqueFilename(place.directory + "\\" + base_name + std::string(format->ending)));
    return place;
  }
  place.name = MakeUniqueGDBFeatureClassName(OpenGeodatabase(place.kind, place.directory), base_name);
  return place;
}

OutputChoice ProposeOutput(const clsExtension& extension, const std::shared_ptr<IApplication>& application,
                           std::string base_name) {
  return ProposeName(RememberedPlace(extension, application), base_name);
}

bool FollowNamedFormat(const std::string& text, OutputChoice& choice) {
  const std::string folder = WithoutTrailingSlash(ReturnDir(text));
  const std::string name = ReturnFilename(text);
  OutputChoice named{folder, name, kUnknownOutput, false, ""};
  const Format* format = ContainerAround(folder);
  if (format != nullptr) {
    if (name.empty()) named.name = StemOf(folder);
  } else {
    format = NamedFormatOfPath(name);
    if (format == nullptr || format->server) return false;
    if (format->container) named = {text, StemOf(name), kUnknownOutput, false, ""};
  }
  named.kind = static_cast<OutputKind>(format->kind);
  choice = std::move(named);
  return true;
}

void FollowTypedPath(const std::string& text, OutputChoice& choice) {
  if (FollowNamedFormat(text, choice)) return;
  choice.directory = WithoutTrailingSlash(ReturnDir(text));
  choice.name = ReturnFilename(text);
  if (EndsWithIgnoringCase(text, ".gdb")) {
    choice.kind = kFileGeodatabase;
  } else if (EndsWithIgnoringCase(text, ".mdb")) {
    choice.kind = kPersonalGeodatabase;
  } else {
    choice.kind = kShapefile;
    choice.name = SetExtension(choice.name, "shp");
  }
}

namespace {

bool Browse(const std::string& text, OutputChoice& choice, const BrowseRules& rules) {
  const std::string offered = choice.kind == kShapefile ? MakeUniqueShapeFilename(text) : text;
  for (;;) {
    const std::shared_ptr<IGxDialog> dialog = Host().CreateGxDialog();
    dialog->AddFilter(GxFilter::FeatureClasses, true);
    dialog->SetAllowMultiSelect(false);
    dialog->SetStartingLocation(Replace(choice.directory, "/", "\\"));
    dialog->SetTitle(rules.title);
    dialog->SetName(offered);
    if (!dialog->DoModalSave(0)) return false;
    const std::string category = Require(dialog->FinalLocation(), "FinalLocation")->Category();
    if (const OutputKind kind = rules.kind_of(category); kind != kUnknownOutput) {
      choice = ChosenPlace(*dialog, kind);
      return true;
    }
    if (RefuseCategory(category, rules.refusal_line_break) != MessageAnswer::Ok) return false;
  }
}

}  // namespace

bool BrowseForOutput(const std::string& text, OutputChoice& choice, const std::string& title) {
  return Browse(text, choice, {title, KindOfPlace, "\r\n"});
}

bool BrowseForOutput(const std::string& text, OutputChoice& choice, AnyGeodatabasePlace) {
  return Browse(text, choice, {"Enter the name of your new Feature Class or Shapefile:", KindOfAnyPlace, ""});
}

std::string ChosenPath(const std::string& text, const OutputChoice& choice) {
  return NamedFormat(choice.kind) == nullptr ? text : choice.FullPath();
}

std::optional<Objection> ObjectionTo(const std::string& path, const OutputChoice& choice) {
  constexpr const char* kTitle = "Failed to Create Feature Class:";
  const Format* format = FormatOfKind(choice.kind);
  if (format != nullptr && format == TemporaryLayers()) return std::nullopt;
  // A feature dataset is no folder: its place is the geodatabase.
  const std::string directory = choice.is_feature_dataset ? choice.directory : WithoutTrailingSlash(ReturnDir(path));
  const Objection no_workspace{"output",
                               "Unable to create Feature Class:\r\n" +
                                   (directory.empty() && !path.empty() ? "/" : ToNativePath(directory)) +
                                   " is not a valid workspace...",
                               kTitle};
  if (format == nullptr) return ExistFileDir(directory) ? std::nullopt : std::optional(no_workspace);
  const OutputPlace place{format, ToNativePath(WithoutTrailingSlash(path.substr(0, path.rfind('\\')))), "",
                          path.substr(path.rfind('\\') + 1)};
  if (const auto problem = path.empty() ? std::nullopt : NameProblem(place))
    return Objection{"output", *problem, kTitle};
  // A shapefile in the folder of a geodatabase would be lost in it, and a class outside of any has no place.
  const bool chosen = !format->HasOwnWorkspace() && format->container;
  const bool fits = chosen || format->container == IsContainerPath(directory);
  // A container of one file is made with its first layer.
  const bool can_be_made = chosen && ExistFileDir(WithoutTrailingSlash(ReturnDir(directory)));
  if (fits && (ExistFileDir(directory) || can_be_made)) return std::nullopt;
  return no_workspace;
}

bool OutputWorkspaceExists(const std::string& text, const OutputChoice& choice) {
  const std::optional<Objection> objection = ObjectionTo(ChosenPath(text, choice), choice);
  if (objection) TellUser(objection->text, objection->title);
  return !objection;
}

OutputChoice ChoiceOf(const ToolOutput& output, const std::string& base_name) {
  if (output.kind == kUnknownOutput) {
    const std::filesystem::path wished = std::filesystem::path(ToNativePath(output.directory)) / (base_name + ".shp");
    return {output.directory, FirstFreePath(wished).filename().string(), kShapefile, false, ""};
  }
  OutputChoice choice{output.directory, output.name, static_cast<OutputKind>(output.kind), !output.dataset.empty(),
                      output.dataset};
  if (!output.path.empty()) return choice;
  if (FormatOfKind(choice.kind)->feature_datasets) choice.name = NameInGeodatabase(std::move(choice.name));
  if (choice.kind == kShapefile) choice.name = SetExtension(choice.name, "shp");
  return choice;
}

ToolOutput ToolOutputOf(const OutputChoice& choice, const std::string& path) {
  return {choice.kind, choice.directory, choice.is_feature_dataset ? choice.feature_dataset_name : "", choice.name,
          path};
}

ToolOutput RememberedOutput(const clsExtension& extension) {
  return {KindOfDirectoryType(extension.DirectoryType), extension.DirectoryPath,
          extension.IsFeatureDataset ? extension.FeatDatasetName : "", ReturnFilename(extension.NewShapefileLocation),
          extension.NewShapefileLocation};
}

void RememberOutput(const OutputChoice& choice, clsExtension& extension) {
  extension.DirectoryPath = choice.directory;
  extension.IsFeatureDataset = choice.is_feature_dataset;
  extension.FeatDatasetName = choice.feature_dataset_name;
  extension.DirectoryType = DirectoryTypeText(choice.kind);
}

}  // namespace tessarine::MyGeneralOperations
