// SPDX-License-Identifier: GPL-2.0-or-later
// The component contract: how a host finds and makes the classes of the suite without knowing their headers.
#pragma once

#include <memory>

#include "platform/object.h"

#define TESSARINE_EXPORT __attribute__((visibility("default")))

namespace tessarine {

/// Makes instances of one class. The factory lives as long as the library.
class IClassFactory {
 public:
  virtual ~IClassFactory() = default;
  [[nodiscard]] virtual ObjectRef CreateInstance() const = 0;
};

/// What the four exports return.
enum ComponentResult : int {
  kComponentOk = 0,
  kComponentFalse = 1,    ///< `DllCanUnloadNow`: objects of the library still live
  kNoSuchClass = -1,      ///< no class of this identifier
  kNoSuchInterface = -2,  ///< the class doesn't implement the interface
  kComponentFailed = -3,  ///< the manifest could not be written or removed
};

/// The name under which the manifest of a registered library lies in the user's data folder.
inline constexpr const char* kManifestFile = "tessarine/component.json";

}  // namespace tessarine

extern "C" {
/// Looks a class up by its ProgID, ignoring case ("Tessarine.clsExtension"), and checks that its instances
/// implement the interface of the given name ("ICommand"). Writes the factory, or null on failure.
TESSARINE_EXPORT int DllGetClassObject(const char* class_id, const char* interface_name,
                                       const tessarine::IClassFactory** factory);
/// `kComponentOk` when no object made by the library lives any more.
TESSARINE_EXPORT int DllCanUnloadNow();
/// Writes a manifest in the user's data folder that names the library and all its identifiers.
TESSARINE_EXPORT int DllRegisterServer();
/// Removes that manifest.
TESSARINE_EXPORT int DllUnregisterServer();
}
