// The place that -o names.
#pragma once

#include <optional>
#include <string>

#include "hosts/terminal/terminal_host.h"

namespace tessarine {

struct OutputPlace {
  enum class Kind { Shapefile, Folder, FileGeodatabase, PersonalGeodatabase };
  Kind kind = Kind::Shapefile;
  std::string container;  ///< the folder or geodatabase: an absolute native path
  std::string dataset;    ///< the feature dataset, empty when there is none
  std::string name;       ///< the class, with ".shp" for a shapefile; empty for a folder

  [[nodiscard]] std::string NativePath() const;
  [[nodiscard]] bool InGeodatabase() const {
    return kind == Kind::FileGeodatabase || kind == Kind::PersonalGeodatabase;
  }
};

/// Reads "x.shp", "folder", "x.gdb/name", "x.gdb/dataset/name", "x.mdb/name". Raises `Refusal` for anything else.
[[nodiscard]] OutputPlace ParseOutputPlace(const std::string& text);

/// Refuses a geodatabase that is there but can't be opened.
void RefuseBrokenContainer(const OutputPlace& place);

/// True when something of this name is there already.
[[nodiscard]] bool OutputExists(const OutputPlace& place);

/// Makes the place ready for a run: a file geodatabase that isn't there is created, and a new feature dataset takes
/// the given reference. In a plan they are only promised.
/// What was made and is still empty when this object goes away is removed again.
class PreparedPlace {
 public:
  PreparedPlace(const OutputPlace& place, const SpatialReferenceRef& reference, TerminalSystem& system, bool plan_only);
  ~PreparedPlace();
  PreparedPlace(const PreparedPlace&) = delete;
  PreparedPlace& operator=(const PreparedPlace&) = delete;

  /// What the browse dialog answers for it.
  [[nodiscard]] BrowsePlace Browse() const;

 private:
  OutputPlace place_;
  bool created_ = false;
};

}  // namespace tessarine
