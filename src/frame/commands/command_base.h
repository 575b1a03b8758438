// SPDX-License-Identifier: GPL-2.0-or-later
// What all commands share: their answers come from their row of the table of commands.
#pragma once

#include <memory>
#include <source_location>
#include <string>

#include "frame/commands/command_table.h"
#include "platform/application.h"

namespace tessarine {

class CommandBase : public ICommand {
 public:
  /// `own` lies in the file of the command's class; faults that end in a click are reported with it.
  CommandBase(const CommandRow& row, const std::source_location& own);
  ~CommandBase() override;
  CommandBase(const CommandBase&) = delete;
  CommandBase& operator=(const CommandBase&) = delete;

  /// Always, for all commands but one. Dialogs and workers tell in words what they can't work on.
  [[nodiscard]] bool Enabled() const override { return true; }
  [[nodiscard]] bool Checked() const override { return false; }
  [[nodiscard]] std::string Name() const override;
  [[nodiscard]] std::string Caption() const override { return row_.texts.caption; }
  [[nodiscard]] std::string Tooltip() const override { return row_.texts.tooltip; }
  [[nodiscard]] std::string Message() const override { return row_.texts.message; }
  [[nodiscard]] std::string HelpFile() const override { return ""; }
  [[nodiscard]] std::int32_t HelpContextID() const override { return 0; }
  [[nodiscard]] std::shared_ptr<Picture> Bitmap() const override { return bitmap_; }
  [[nodiscard]] std::string Category() const override { return "Halvorn"; }
  void OnCreate(const ObjectRef& hook) override;
  /// Runs the tool under the error trap.
  void OnClick() final;

 protected:
  virtual void Run() = 0;

  [[nodiscard]] const CommandRow& Row() const { return row_; }
  [[nodiscard]] const std::shared_ptr<IApplication>& Application() const { return application_; }
  [[nodiscard]] const std::shared_ptr<IMxDocument>& Document() const { return document_; }
  void MarkDirty() const;

 private:
  const CommandRow& row_;
  std::source_location own_;
  std::shared_ptr<IApplication> application_;
  std::shared_ptr<IMxDocument> document_;
  std::shared_ptr<Picture> bitmap_;
};

}  // namespace tessarine
