// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/document_application.h"

#include <filesystem>

#include "hosts/document/component_loader.h"
#include "hosts/document/settings_stream.h"
#include "platform/known_ids.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

/// The files that the document came from; its own path is the last.
class DocumentTemplates final : public ITemplates {
 public:
  explicit DocumentTemplates(std::string path) : path_(std::move(path)) {}
  [[nodiscard]] std::int32_t Count() const override { return 1; }
  [[nodiscard]] std::string Item(std::int32_t index) const override {
    if (index != 0) Raise(kInvalidCall, "The document has no such template.");
    return path_;
  }

 private:
  std::string path_;
};

}  // namespace

void DocumentApplication::Start() {
  extension_ = CreateComponentAs<IExtension>(known_ids::kSuiteExtension, "IExtension");
  extension_->Startup(Variant(shared_from_this()));
  if (document_->settings.empty()) return;
  SettingsStream stream(document_->settings);
  Require(Cast<IPersistVariant>(extension_), "IPersistVariant")->Load(stream);
}

void DocumentApplication::Stop() {
  if (!extension_) return;
  if (document_->Dirty()) {
    document_->settings.clear();
    SettingsStream stream(document_->settings);
    Require(Cast<IPersistVariant>(extension_), "IPersistVariant")->Save(stream);
  }
  extension_->Shutdown();
  extension_ = nullptr;
}

bool DocumentApplication::Click(const std::string& class_id) {
  const auto command = CreateComponentAs<ICommand>(class_id, "ICommand");
  command->OnCreate(shared_from_this());
  if (!command->Enabled()) return false;
  command->OnClick();
  return true;
}

std::shared_ptr<ITemplates> DocumentApplication::Templates() const {
  // A document that was never saved stands for a file in the working folder.
  const std::string path =
      document_->path.empty() ? (std::filesystem::current_path() / "untitled.json").string() : document_->path;
  return std::make_shared<DocumentTemplates>(FromNativePath(path));
}

ObjectRef DocumentApplication::FindExtensionByCLSID(const UID& uid) const {
  return EqualsIgnoringCase(uid.Value, known_ids::kSuiteExtension) ? extension_ : nullptr;
}

}  // namespace tessarine
