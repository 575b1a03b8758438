// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/component_loader.h"

namespace tessarine {

ObjectRef CreateComponent(const std::string& class_id, const char* interface_name) {
  const IClassFactory* factory = nullptr;
  switch (DllGetClassObject(class_id.c_str(), interface_name, &factory)) {
    case kComponentOk:
      return factory->CreateInstance();
    case kNoSuchInterface:
      Raise(kInvalidCall, "The class '" + class_id + "' has no interface " + interface_name + ".");
    default:
      Raise(kInvalidCall, "The suite has no class '" + class_id + "'.");
  }
}

}  // namespace tessarine
