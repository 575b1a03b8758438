// SPDX-License-Identifier: GPL-2.0-or-later
#include "frame/commands/command_base.h"
#include "frame/commands/commands.h"
#include "frame/frmAbout.h"

namespace tessarine {
namespace {

class AboutCommand final : public CommandBase {
 public:
  using CommandBase::CommandBase;

 private:
  void Run() override {
    frmAbout dialog;
    dialog.SetArcApplication(Application());
    dialog.ShowModal();
  }
};

}  // namespace

std::shared_ptr<ICommand> MakeAboutCommand(const CommandRow& row) {
  return std::make_shared<AboutCommand>(row, std::source_location::current());
}

}  // namespace tessarine
