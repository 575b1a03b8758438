// SPDX-License-Identifier: GPL-2.0-or-later
// A new feature class that is made beside its place.
#pragma once

#include <memory>
#include <string>

#include "engine/filegdb_edit.h"
#include "engine/ogr_class.h"
#include "outputs/staged_output.h"

namespace tessarine::engine {

/// Bears the names of its place from the start, so that every message tells of the place that the user named.
class StagedFeatureClass : public OgrFeatureClass, public IStagedDataset {
 public:
  /// The layer was made in `staged`.
  StagedFeatureClass(std::unique_ptr<StagedOutput> staged, const std::string& layer, StagedOutput::Standing standing);

  void Publish() override;
  void Discard() override;

 private:
  std::unique_ptr<StagedOutput> staged_;
  StagedOutput::Standing standing_;
};

/// A new class of a file geodatabase. The edit that made it ends with its publication; until then this program alone
/// sees the class.
class StagedGeodatabaseClass : public OgrFeatureClass, public IStagedDataset {
 public:
  StagedGeodatabaseClass(const std::string& geodatabase, const std::string& layer, std::shared_ptr<FileGdbEdit> edit);
  ~StagedGeodatabaseClass() override;
  StagedGeodatabaseClass(const StagedGeodatabaseClass&) = delete;
  StagedGeodatabaseClass& operator=(const StagedGeodatabaseClass&) = delete;

  void Publish() override;
  void Discard() override;

 private:
  std::shared_ptr<FileGdbEdit> edit_;
};

}  // namespace tessarine::engine
