// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/windowless_host.h"

#include "hosts/document/document_layer.h"
#include "platform/known_ids.h"

namespace tessarine {

std::shared_ptr<IFeatureLayer> WindowlessHost::CreateFeatureLayer() { return std::make_shared<DocumentFeatureLayer>(); }

std::shared_ptr<ISimpleRenderer> WindowlessHost::CreateSimpleRenderer() { return std::make_shared<DocumentRenderer>(); }

std::string WindowlessHost::QueryLocalMachine(const std::string& key, const std::string& value) const {
  return key == known_ids::kVersionKey && value == known_ids::kVersionValue ? host_version_ + '\0' : std::string();
}

}  // namespace tessarine
