// SPDX-License-Identifier: GPL-2.0-or-later
// The tools that are a dialog and nothing else: graphics to features, selection and names of graphics, and the about
// dialog. All further work happens inside the dialog.
#include "frame/commands/command_base.h"
#include "frame/commands/commands.h"
#include "frame/frmAbout.h"
#include "graphics/frmGraphicsShapefile.h"
#include "graphics/frmNameElements.h"
#include "graphics/frmSelectGraphics.h"

namespace tessarine {
namespace {

template <class Dialog>
class DialogCommand final : public CommandBase {
 public:
  using CommandBase::CommandBase;

 private:
  void Run() override {
    Dialog dialog;
    dialog.SetArcApplication(Application());
    dialog.ShowModal();
  }
};

}  // namespace

std::shared_ptr<ICommand> MakeNewShapefileCommand(const CommandRow& row) {
  return std::make_shared<DialogCommand<frmGraphicsShapefile>>(row, std::source_location::current());
}
std::shared_ptr<ICommand> MakeSelectGraphicsCommand(const CommandRow& row) {
  return std::make_shared<DialogCommand<frmSelectGraphics>>(row, std::source_location::current());
}
std::shared_ptr<ICommand> MakeNameGraphicsCommand(const CommandRow& row) {
  return std::make_shared<DialogCommand<frmNameElements>>(row, std::source_location::current());
}
std::shared_ptr<ICommand> MakeAboutCommand(const CommandRow& row) {
  return std::make_shared<DialogCommand<frmAbout>>(row, std::source_location::current());
}

}  // namespace tessarine
