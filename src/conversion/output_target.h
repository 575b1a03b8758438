// SPDX-License-Identifier: GPL-2.0-or-later
// Where a run's output goes, taken apart from its path.
#pragma once

#include <string>

#include "session/clsExtension.h"
#include "support/output_kinds.h"

namespace tessarine {

struct OutputTarget {
  std::string directory;
  std::string name;
  MyGeneralOperations::OutputKind kind = MyGeneralOperations::kUnknownOutput;
  bool is_feature_dataset = false;
  std::string feature_dataset;

  [[nodiscard]] bool InDataset() const { return is_feature_dataset && kind != MyGeneralOperations::kShapefile; }
};

/// Splits the path; the kind and the dataset are those that the dialog left in the extension. The name of a feature
/// dataset is a part of the path that no workspace knows, so it leaves the directory.
[[nodiscard]] OutputTarget SplitOutputPath(const std::string& path, const clsExtension& extension);

}  // namespace tessarine
