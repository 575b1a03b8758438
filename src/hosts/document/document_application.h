// SPDX-License-Identifier: GPL-2.0-or-later
// The application around a map document: it makes the suite's extension from its identifier, hands it the document's
// settings, and takes them back.
#pragma once

#include <memory>
#include <string>

#include "hosts/document/map_document.h"
#include "platform/application.h"

namespace tessarine {

class DocumentApplication final : public IApplication, public std::enable_shared_from_this<DocumentApplication> {
 public:
  DocumentApplication(std::shared_ptr<MapDocument> document, std::shared_ptr<IStatusBar> status_bar)
      : document_(std::move(document)), status_bar_(std::move(status_bar)) {}

  /// Creates the extension, starts it, and loads the document's settings where it has some.
  void Start();
  /// Writes the settings back to a document that became dirty, then shuts the extension down.
  void Stop();
  /// Clicks the command of this identifier, as the host's menu would. False, without a click, for one that is not
  /// enabled.
  [[nodiscard]] bool Click(const std::string& class_id);

  [[nodiscard]] MapDocument& Map() const { return *document_; }

  [[nodiscard]] std::shared_ptr<IDocument> Document() const override { return document_; }
  [[nodiscard]] std::shared_ptr<IStatusBar> StatusBar() const override { return status_bar_; }
  [[nodiscard]] std::shared_ptr<ITemplates> Templates() const override;
  [[nodiscard]] ObjectRef FindExtensionByCLSID(const UID& uid) const override;

 private:
  std::shared_ptr<MapDocument> document_;
  std::shared_ptr<IStatusBar> status_bar_;
  std::shared_ptr<IExtension> extension_;
};

}  // namespace tessarine
