// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/windowless_host.h"

#include "hosts/document/document_layer.h"

namespace tessarine {

std::shared_ptr<IFeatureLayer> WindowlessHost::CreateFeatureLayer() { return std::make_shared<DocumentFeatureLayer>(); }

std::shared_ptr<ISimpleRenderer> WindowlessHost::CreateSimpleRenderer() { return std::make_shared<DocumentRenderer>(); }

std::string WindowlessHost::QueryLocalMachine(const std::string& key, const std::string& value) const {
  // The terminating null belongs to what a registry answers.
  return key == "Software\\ESRI\\ArcGIS" && value == "RealVersion" ? host_version_ + '\0' : std::string();
}

}  // namespace tessarine
