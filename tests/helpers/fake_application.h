// SPDX-License-Identifier: GPL-2.0-or-later
// An application that hands out what a test gives it, with a status bar that remembers.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/application.h"
#include "platform/text_formats.h"

namespace tessarine::testing {

class FakeStatusBar final : public IStatusBar,
                            public IStepProgressor,
                            public std::enable_shared_from_this<FakeStatusBar> {
 public:
  std::vector<std::string> messages;
  std::string progress_text;
  std::int32_t maximum = 0, steps = 0, position = 0;
  bool bar_visible = false;
  std::function<void()> on_step;

  void SetMessage(std::int32_t, const std::string& text) override { messages.push_back(text); }
  [[nodiscard]] std::shared_ptr<IAnimationProgressor> ProgressAnimation() override { return nullptr; }
  [[nodiscard]] std::shared_ptr<IStepProgressor> ProgressBar() override { return shared_from_this(); }
  void ShowProgressBar(const std::string& text, std::int32_t, std::int32_t last, std::int32_t, bool) override {
    progress_text = text, maximum = last, bar_visible = true;
  }
  void StepProgressBar() override {
    ++steps;
    if (on_step) on_step();
  }
  void HideProgressBar() override { bar_visible = false; }
  [[nodiscard]] std::int32_t Position() const override { return position; }
  void SetPosition(std::int32_t value) override { position = value; }
};

class FakeTemplates final : public ITemplates {
 public:
  explicit FakeTemplates(std::vector<std::string> paths) : paths_(std::move(paths)) {}
  [[nodiscard]] std::int32_t Count() const override { return static_cast<std::int32_t>(paths_.size()); }
  [[nodiscard]] std::string Item(std::int32_t index) const override {
    return paths_.at(static_cast<std::size_t>(index));
  }

 private:
  std::vector<std::string> paths_;
};

class FakeApplication final : public IApplication {
 public:
  std::shared_ptr<IDocument> document;
  std::shared_ptr<FakeStatusBar> status_bar = std::make_shared<FakeStatusBar>();
  std::vector<std::string> templates;
  ObjectRef extension;  ///< answers to the suite's identifier
  mutable std::vector<std::string> asked_extensions;

  [[nodiscard]] std::shared_ptr<IDocument> Document() const override { return document; }
  [[nodiscard]] std::shared_ptr<IStatusBar> StatusBar() const override { return status_bar; }
  [[nodiscard]] std::shared_ptr<ITemplates> Templates() const override {
    return std::make_shared<FakeTemplates>(templates);
  }
  [[nodiscard]] ObjectRef FindExtensionByCLSID(const UID& uid) const override {
    asked_extensions.push_back(uid.Value);
    return EqualsIgnoringCase(uid.Value, "Tessarine.clsExtension") ? extension : nullptr;
  }
};

}  // namespace tessarine::testing
