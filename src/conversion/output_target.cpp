// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/output_target.h"

#include "platform/text_formats.h"
#include "support/aml_func_mod.h"
#include "support/output_chooser.h"

namespace tessarine {

OutputTarget SplitOutputPath(const std::string& path, const clsExtension& extension) {
  OutputTarget target;
  target.directory = aml_func_mod::ReturnDir(path);
  target.name = aml_func_mod::ReturnFilename(path);
  target.kind = MyGeneralOperations::KindOfDirectoryType(extension.DirectoryType);
  target.is_feature_dataset = extension.IsFeatureDataset;
  target.feature_dataset = extension.FeatDatasetName;
  const std::string folder = MyGeneralOperations::WithoutTrailingSlash(target.directory);
  if (target.InDataset() && EqualsIgnoringCase(aml_func_mod::ReturnFilename(folder), target.feature_dataset)) {
    target.directory = aml_func_mod::ReturnDir(folder);
  }
  return target;
}

}  // namespace tessarine
