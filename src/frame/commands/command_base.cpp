// SPDX-License-Identifier: GPL-2.0-or-later
#include "frame/commands/command_base.h"

#include "platform/trap.h"

namespace tessarine {

CommandBase::CommandBase(const CommandRow& row, const std::source_location& own)
    : row_(row), own_(own), bitmap_(std::make_shared<Picture>(row.texts.bitmap_id)) {}

CommandBase::~CommandBase() {
  bitmap_ = nullptr;
  document_ = nullptr;
  application_ = nullptr;
}

std::string CommandBase::Name() const { return std::string("Tessarine_") + row_.texts.name; }

void CommandBase::OnCreate(const ObjectRef& hook) {
  Trap(
      "ICommand_OnCreate",
      [&] {
        application_ = Cast<IApplication>(hook);
        document_ = Cast<IMxDocument>(Require(application_, "IApplication")->Document());
      },
      own_);
}

void CommandBase::OnClick() {
  Trap(
      "ICommand_OnClick",
      [this] {
        Require(document_, "IMxDocument");
        Run();
      },
      own_);
}

void CommandBase::MarkDirty() const {
  const auto dirty = Cast<IDocumentDirty>(document_);
  Require(dirty, "IDocumentDirty")->SetDirty();
}

}  // namespace tessarine
