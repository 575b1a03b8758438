// SPDX-License-Identifier: GPL-2.0-or-later
// What hosts have in common that draw no windows: a host is its own message box, forms, clipboard and registry.
#pragma once

#include <memory>
#include <string>

#include "engine/local_system.h"
#include "platform/host.h"

namespace tessarine {

/// A frame that nobody sees.
class UnseenFrame : public IModelessFrame {
 public:
  void Create(const std::shared_ptr<Form>&) override {}
  [[nodiscard]] std::string Caption() const override { return caption_; }
  void SetCaption(const std::string& caption) override { caption_ = caption; }
  [[nodiscard]] bool Visible() const override { return visible_; }
  void SetVisible(bool visible) override { visible_ = visible; }

 private:
  std::string caption_;
  bool visible_ = false;
};

class WindowlessHost : public IHost, public IMessageBox, public IFormHost, public IClipboard, public IRegistry {
 public:
  /// `host_version` is what the registry tells, as "9.3.1".
  explicit WindowlessHost(std::string host_version) : host_version_(std::move(host_version)) {}

  // IHost
  IClock& Clock() override { return clock_; }
  IMessageBox& MessageBox() override { return *this; }
  IFormHost& Forms() override { return *this; }
  IClipboard& Clipboard() override { return *this; }
  IRegistry& Registry() override { return *this; }
  RunJournal& Journal() override { return journal_; }
  std::shared_ptr<IModelessFrame> CreateModelessFrame() override { return std::make_shared<UnseenFrame>(); }
  std::shared_ptr<IPrinter> ChoosePrinter() override { return nullptr; }
  // The layers of a document.
  std::shared_ptr<IFeatureLayer> CreateFeatureLayer() override;
  std::shared_ptr<ISimpleRenderer> CreateSimpleRenderer() override;

  // IFormHost: a form that doesn't wait for an answer isn't shown.
  void ShowModeless(Form&) override {}
  [[nodiscard]] double ScreenWidth() const override { return 640.0; }
  [[nodiscard]] double ScreenHeight() const override { return 400.0; }
  // IClipboard: none, or one that is the user's.
  void Clear() override {}
  void SetRichText(const std::string&) override {}
  // IRegistry
  [[nodiscard]] std::string QueryLocalMachine(const std::string& key, const std::string& value) const override;

 private:
  std::string host_version_;
  SystemClock clock_;
  RunJournal journal_;
};

}  // namespace tessarine
