#include "support/output_chooser.h"

#include <array>
#include <string_view>

#include "platform/host.h"
#include "platform/paths.h"
#include "platform/text_formats.h"
#include "support/MyGeneralOperations.h"
#include "support/aml_func_mod.h"

namespace tessarine::MyGeneralOperations {
namespace {

using namespace aml_func_mod;

struct PlaceCategory {
  std::string_view category;
  OutputKind kind;
};

constexpr std::array kAcceptedPlaces = {
    PlaceCategory{"Shapefile", kShapefile},
    PlaceCategory{"Folder", kShapefile},
    PlaceCategory{"dBASE Table", kShapefile},
    PlaceCategory{"File Geodatabase Feature Class", kFileGeodatabase},
    PlaceCategory{"File Geodatabase Raster Catalog", kFileGeodatabase},
    PlaceCategory{"File Geodatabase", kFileGeodatabase},
    PlaceCategory{"File Geodatabase Feature Dataset", kFileGeodatabase},
    PlaceCategory{"File Geodatabase Table", kFileGeodatabase},
    PlaceCategory{"Personal Geodatabase Feature Class", kPersonalGeodatabase},
    PlaceCategory{"Personal Geodatabase Raster Catalog", kPersonalGeodatabase},
    PlaceCategory{"Personal Geodatabase", kPersonalGeodatabase},
    PlaceCategory{"Personal Geodatabase Feature Dataset", kPersonalGeodatabase},
    PlaceCategory{"Personal Geodatabase Table", kPersonalGeodatabase},
};

OutputKind KindOfPlace(std::string_view category) {
  for (const PlaceCategory& place : kAcceptedPlaces) {
    if (place.category == category) return place.kind;
  }
  return kUnknownOutput;
}

std::shared_ptr<IFeatureWorkspace> OpenGeodatabase(OutputKind kind, const std::string& path) {
  const auto factory = kind == kFileGeodatabase ? CreateFileGDBWorkspaceFactory() : CreateAccessWorkspaceFactory();
  return factory->OpenFromFile(path, 0);
}

// The place that a confirmed browse dialog names.
OutputChoice ChosenPlace(const IGxDialog& dialog, OutputKind kind) {
  OutputChoice chosen;
  const std::shared_ptr<IGxObject> location = dialog.FinalLocation();
  chosen.Directory = location->FullName();
  chosen.Name = dialog.Name();
  chosen.Kind = kind;
  if (const auto item = Cast<IGxDataset>(location)) {
    const std::shared_ptr<IDataset> dataset = item->Dataset();
    chosen.Directory = dataset->Workspace()->PathName();
    chosen.IsFeatureDataset = true;
    chosen.FeatureDatasetName = dataset->Name();
  }
  if (kind != kShapefile) {
    if (EndsWithIgnoringCase(chosen.Name, ".shp")) chosen.Name.resize(chosen.Name.size() - 4);
    chosen.Name = ReplaceBadChars(chosen.Name, true, true, true, true);
  }
  return chosen;
}

MessageAnswer RefuseCategory(const std::string& category) {
  return Host().MessageBox().Show(
      "Unexpected Feature Class Type (" + category +
          ")!\r\nThis function will only create shapefiles or feature classes in "
          "\r\nFile or Personal GeoDatabases.  Please click 'OK' to select a "
          "\r\nnew Feature Class Name, or 'Cancel' to bail out.",
      "Invalid Feature Class Type:", MessageButtons::OkCancel);
}

}  // namespace

std::string WithoutTrailingSlash(std::string path) {
  if (!path.empty() && (path.back() == '\\' || path.back() == '/')) path.pop_back();
  return path;
}

std::string OutputChoice::FullPath() const {
  return Directory + "\\" + (IsFeatureDataset ? FeatureDatasetName + "\\" : "") + Name;
}

OutputChoice ProposeOutput(const clsExtension& extension, const std::shared_ptr<IApplication>& application,
                           std::string base_name) {
  OutputChoice choice;
  choice.Directory = extension.DirectoryPath;
  choice.IsFeatureDataset = extension.IsFeatureDataset;
  choice.FeatureDatasetName = extension.FeatDatasetName;
  choice.Kind = extension.DirectoryType.empty() ? kShapefile : KindOfDirectoryType(extension.DirectoryType);
  if (!ExistFileDir(choice.Directory) || choice.Kind == kUnknownOutput) {
    choice.Directory = ReturnDir(GetFullFileString(GetMxDocPath(application)));
    choice.Kind = kShapefile;
  }
  choice.Directory = WithoutTrailingSlash(choice.Directory);
  if (choice.Kind == kShapefile) {
    choice.IsFeatureDataset = false;
    choice.FeatureDatasetName.clear();
    const std::string path = MakeUniqueShapeFilename(choice.Directory + "\\" + base_name + ".shp");
    choice.Directory = WithoutTrailingSlash(ReturnDir(path));
    choice.Name = ReturnFilename(path);
    return choice;
  }
  choice.Name = MakeUniqueGDBFeatureClassName(OpenGeodatabase(choice.Kind, choice.Directory), base_name);
  return choice;
}

void FollowTypedPath(const std::string& text, OutputChoice& choice) {
  choice.Directory = WithoutTrailingSlash(ReturnDir(text));
  choice.Name = ReturnFilename(text);
  if (EndsWithIgnoringCase(text, ".gdb")) {
    choice.Kind = kFileGeodatabase;
  } else if (EndsWithIgnoringCase(text, ".mdb")) {
    choice.Kind = kPersonalGeodatabase;
  } else {
    choice.Kind = kShapefile;
    choice.Name = SetExtension(choice.Name, "shp");
  }
}

bool BrowseForOutput(const std::string& text, OutputChoice& choice) {
  const std::string offered = choice.Kind == kShapefile ? MakeUniqueShapeFilename(text) : text;
  for (;;) {
    const std::shared_ptr<IGxDialog> dialog = Host().CreateGxDialog();
    dialog->AddFilter(GxFilter::FeatureClasses, true);
    dialog->SetAllowMultiSelect(false);
    dialog->SetStartingLocation(Replace(choice.Directory, "/", "\\"));
    dialog->SetTitle("Enter the name of your new Feature Class or Shapefile:");
    dialog->SetName(offered);
    if (!dialog->DoModalSave(0)) return false;
    const std::string category = Require(dialog->FinalLocation(), "FinalLocation")->Category();
    if (const OutputKind kind = KindOfPlace(category); kind != kUnknownOutput) {
      choice = ChosenPlace(*dialog, kind);
      return true;
    }
    if (RefuseCategory(category) != MessageAnswer::Ok) return false;
  }
}

bool OutputWorkspaceExists(const std::string& text, const OutputChoice& choice) {
  // A feature dataset is no folder: its place is the geodatabase.
  const std::string directory =
      choice.IsFeatureDataset ? choice.Directory : WithoutTrailingSlash(ReturnDir(text));
  if (ExistFileDir(directory)) return true;
  Host().MessageBox().Show("Unable to create Feature Class:\r\n" + ToNativePath(directory) + " is not a valid workspace...",
                           "Failed to Create Feature Class:");
  return false;
}

void RememberOutput(const OutputChoice& choice, clsExtension& extension) {
  extension.DirectoryPath = choice.Directory;
  extension.IsFeatureDataset = choice.IsFeatureDataset;
  extension.FeatDatasetName = choice.FeatureDatasetName;
  extension.DirectoryType = DirectoryTypeText(choice.Kind);
}

}  // namespace tessarine::MyGeneralOperations
