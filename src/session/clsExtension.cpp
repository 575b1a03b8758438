// SPDX-License-Identifier: GPL-2.0-or-later
#include "session/clsExtension.h"

#include <cmath>
#include <functional>
#include <sstream>

#include "platform/host.h"
#include "platform/known_ids.h"
#include "platform/text_formats.h"
#include "platform/trap.h"
#include "session/ErrorHandling.h"

namespace tessarine {
namespace {

constexpr const char* kUnknownVersion = "Unable to determine ArcGIS Version!";
constexpr double kStreamVersion = 3.0;

// The settings that a document keeps, in the order of the stream, after the stream's version.
struct PersistedField {
  std::function<Variant(const clsExtension&)> write;
  std::function<void(clsExtension&, const Variant&)> read;
};

PersistedField Persisted(double clsExtension::*member) {
  return {[=](const clsExtension& e) { return Variant(e.*member); },
          [=](clsExtension& e, const Variant& v) { e.*member = v.AsDouble(); }};
}
PersistedField Persisted(std::string clsExtension::*member) {
  return {[=](const clsExtension& e) { return Variant(e.*member); },
          [=](clsExtension& e, const Variant& v) { e.*member = v.AsText(); }};
}
PersistedField Persisted(bool clsExtension::*member) {
  return {[=](const clsExtension& e) { return Variant(e.*member); },
          [=](clsExtension& e, const Variant& v) { e.*member = v.AsBoolean(); }};
}
PersistedField Persisted(std::int32_t clsExtension::*member) {
  return {[=](const clsExtension& e) { return Variant(e.*member); },
          [=](clsExtension& e, const Variant& v) { e.*member = v.AsLong(); }};
}

const std::vector<PersistedField>& PersistedFields() {
  static const std::vector<PersistedField> fields = {
      Persisted(&clsExtension::DirectoryPath),
      Persisted(&clsExtension::NewShapefileLocation),
      Persisted(&clsExtension::ProgressDialogSetExpanded),
      Persisted(&clsExtension::ProgressDialogAutoClose),
      Persisted(&clsExtension::LongitudeShift),
      Persisted(&clsExtension::LongitudeWrapOption),
      Persisted(&clsExtension::CustomBoundaryWest),
      Persisted(&clsExtension::CustomBoundaryNorth),
      Persisted(&clsExtension::CustomBoundaryEast),
      Persisted(&clsExtension::CustomBoundarySouth),
      Persisted(&clsExtension::DirectoryType),
  };
  return fields;
}

// Version texts such as "9.3.1", read as far as the minor number.
bool IsAtLeast92(const std::string& version) {
  std::istringstream parts(version);
  std::string major_text, minor_text;
  std::getline(parts, major_text, '.');
  std::getline(parts, minor_text, '.');
  if (!IsNumericText(major_text) || !IsNumericText(minor_text)) return false;
  const double major = std::floor(ToNumber(major_text));
  const double minor = std::floor(ToNumber(minor_text));
  return major > 9 || (major == 9 && minor >= 2);
}

}  // namespace

std::string clsExtension::Name() const { return "Tessarine Suite"; }

void clsExtension::Startup(const Variant& initialization_data) {
  ErrorHandling::Install();
  Trap("IExtension_Startup", [&] {
    is_version_92_ = false;
    is_version_92_ = IsAtLeast92(ReturnArcGISVersion());
    const auto application = initialization_data.AsObject<IApplication>();
    other_extension_ = Require(application, "IApplication")->FindExtensionByCLSID(UID(known_ids::kHeldExtension));
  });
}

void clsExtension::Shutdown() {
  Trap("IExtension_Shutdown", [this] {
    SelectedLayer = nullptr;
    SelectedFeatureClass = nullptr;
    SelectedFields = nullptr;
    GeometryOptions = nullptr;
    SelectedPointLayer = nullptr;
    other_extension_ = nullptr;
    frmGeoCentricReturn = nullptr;
    frmBoundaryWrapReturn = nullptr;
    frmLayerFieldsReturn = nullptr;
  });
}

std::shared_ptr<UID> clsExtension::ID() const { return std::make_shared<UID>(known_ids::kSuiteExtension); }

void clsExtension::Load(IVariantStream& stream) {
  Trap("IPersistVariant_Load", [&] {
    stream_version_ = stream.Read().AsDouble();
    for (const PersistedField& field : PersistedFields()) field.read(*this, stream.Read());
  });
}

void clsExtension::Save(IVariantStream& stream) {
  Trap("IPersistVariant_Save", [&] {
    stream.Write(kStreamVersion);
    for (const PersistedField& field : PersistedFields()) stream.Write(field.write(*this));
  });
}

std::shared_ptr<clsExtension> FindExtension(const std::shared_ptr<IApplication>& application) {
  return Cast<clsExtension>(
      Require(application, "IApplication")->FindExtensionByCLSID(UID(known_ids::kSuiteExtension)));
}

std::string ReturnArcGISVersion() {
  return TrapWith(
      "ReturnArcGISVersion",
      []() -> std::string {
        std::string text = Host().Registry().QueryLocalMachine(
            SubKey(known_ids::kVersionCompany, known_ids::kVersionProduct, ""), known_ids::kVersionValue);
        if (text.empty()) return kUnknownVersion;
        text.pop_back();  // the terminating null
        return text;
      },
      [](const Fault&) { return std::string(kUnknownVersion); });
}

std::string SubKey(const std::string& company, const std::string& product, const std::string& version) {
  return "Software\\" + company + "\\" + product + (version.empty() ? "" : "\\" + version);
}

}  // namespace tessarine
