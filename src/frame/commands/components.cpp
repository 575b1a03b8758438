// SPDX-License-Identifier: GPL-2.0-or-later
#include "frame/commands/components.h"

#include <dlfcn.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "calculator/clsMeasureCatalog.h"
#include "calculator/clsShapeMeasures.h"
#include "frame/commands/command_table.h"
#include "frame/menus.h"
#include "frame/published/clsFunctionFactory.h"
#include "platform/known_ids.h"
#include "platform/text_formats.h"
#include "session/clsExtension.h"
#include "spheroids/clsSpheroidCatalog.h"
#include "tools/clsToolCatalog.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

std::atomic<int> g_living_objects = 0;

// Keeps count of what the library made: the count falls when the last reference goes.
ObjectRef Counted(ObjectRef object) {
  ++g_living_objects;
  Object* const raw = object.get();
  return {raw, [owner = std::move(object)](Object*) mutable {
            owner = nullptr;
            --g_living_objects;
          }};
}

class Factory final : public IClassFactory {
 public:
  explicit Factory(const ComponentClass& component) : component_(component) {}
  [[nodiscard]] ObjectRef CreateInstance() const override { return Counted(component_.make()); }
  [[nodiscard]] const ComponentClass& Component() const { return component_; }

 private:
  const ComponentClass& component_;
};

template <class Class>
ComponentClass Plain(const char* prog_id, std::vector<std::string> interfaces) {
  return {prog_id, std::move(interfaces), [] { return std::make_shared<Class>(); }};
}

std::vector<ComponentClass> MakeClasses() {
  std::vector<ComponentClass> classes = {
      Plain<clsExtension>(known_ids::kSuiteExtension, {"IExtension", "IPersistVariant"}),
      Plain<clsToolBar>("Tessarine.clsToolBar", {"IToolBarDef"}),
      Plain<clsMenu>("Tessarine.clsMenu", {"IMenuDef", "IRootLevelMenu"}),
      Plain<clsShapeSubMenu>("Tessarine.clsShapeSubMenu", {"IMenuDef"}),
      Plain<clsGraphicsSubMenu>("Tessarine.clsGraphicsSubMenu", {"IMenuDef"}),
      Plain<clsGeodesicSubMenu>("Tessarine.clsGeodesicSubMenu", {"IMenuDef"}),
      Plain<clsFunctionFactory>("Tessarine.clsFunctionFactory", {"IGPFunctionFactory"}),
      Plain<clsToolCatalog>("Tessarine.clsToolCatalog", {"IToolCatalog"}),
      Plain<clsMeasureCatalog>("Tessarine.clsMeasureCatalog", {"IMeasureCatalog"}),
      Plain<clsShapeMeasures>("Tessarine.clsShapeMeasures", {"IShapeMeasures"}),
      Plain<clsSpheroidCatalog>("Tessarine.clsSpheroidCatalog", {"ISpheroidCatalog"}),
  };
  for (const CommandRow& row : AllCommands()) {
    classes.push_back(
        {std::string("Tessarine.") + row.texts.class_name, {"ICommand"}, [&row] { return row.make(row); }});
  }
  return classes;
}

const std::vector<Factory>& Factories() {
  static const std::vector<Factory> factories(ComponentClasses().begin(), ComponentClasses().end());
  return factories;
}

std::string JsonText(const std::string& text) {
  constexpr const char* kHex = "0123456789abcdef";
  std::string escaped = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      escaped += '\\';
      escaped += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      escaped += std::string("\\u00") + kHex[c >> 4] + kHex[c & 15];
    } else {
      escaped += c;
    }
  }
  return escaped + "\"";
}

fs::path ManifestPath() {
  if (const char* data = std::getenv("XDG_DATA_HOME"); data != nullptr && *data != '\0') {
    return fs::path(data) / kManifestFile;
  }
  const char* home = std::getenv("HOME");
  return fs::path(home != nullptr ? home : ".") / ".local/share" / kManifestFile;
}

std::string LibraryPath() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&DllGetClassObject), &info) == 0 || info.dli_fname == nullptr) return "";
  std::error_code error;
  return fs::absolute(info.dli_fname, error).string();
}

std::string ManifestText() {
  std::string text = "{\n  \"library\": " + JsonText(LibraryPath()) +
                     ",\n  \"version\": " + JsonText(TESSARINE_VERSION) + ",\n  \"classes\": [";
  bool first = true;
  for (const ComponentClass& component : ComponentClasses()) {
    std::string interfaces;
    for (const std::string& name : component.interfaces) {
      interfaces += (interfaces.empty() ? "" : ", ") + JsonText(name);
    }
    text += std::string(first ? "" : ",") + "\n    {\"id\": " + JsonText(component.prog_id) + ", \"interfaces\": [" +
            interfaces + "]}";
    first = false;
  }
  return text + "\n  ]\n}\n";
}

}  // namespace

const std::vector<ComponentClass>& ComponentClasses() {
  static const std::vector<ComponentClass> classes = MakeClasses();
  return classes;
}

}  // namespace tessarine

using namespace tessarine;

int DllGetClassObject(const char* class_id, const char* interface_name, const IClassFactory** factory) {
  if (factory == nullptr || class_id == nullptr || interface_name == nullptr) return kNoSuchInterface;
  *factory = nullptr;
  for (const Factory& candidate : Factories()) {
    if (!EqualsIgnoringCase(candidate.Component().prog_id, class_id)) continue;
    const auto& interfaces = candidate.Component().interfaces;
    if (std::ranges::find(interfaces, interface_name) == interfaces.end()) return kNoSuchInterface;
    *factory = &candidate;
    return kComponentOk;
  }
  return kNoSuchClass;
}

int DllCanUnloadNow() { return g_living_objects == 0 ? kComponentOk : kComponentFalse; }

int DllRegisterServer() {
  const fs::path path = ManifestPath();
  std::error_code error;
  fs::create_directories(path.parent_path(), error);
  std::ofstream file(path, std::ios::trunc);
  file << ManifestText();
  file.close();
  return file ? kComponentOk : kComponentFailed;
}

int DllUnregisterServer() {
  std::error_code error;
  fs::remove(ManifestPath(), error);
  return error ? kComponentFailed : kComponentOk;
}
