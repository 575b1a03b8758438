// SPDX-License-Identifier: GPL-2.0-or-later
// Direct actions on the graphic elements of the focus map, also while the layout is the active view.
#include <optional>

#include "frame/commands/command_base.h"
#include "frame/commands/commands.h"
#include "platform/map.h"

namespace tessarine {
namespace {

constexpr std::int32_t kRepaintPhases = esriViewGeography | esriViewGraphics | esriViewGraphicSelection;
constexpr double kRepaintFactor = 1.1;
constexpr double kZoomFactor = 1.05;

class GraphicsCommand : public CommandBase {
 public:
  using CommandBase::CommandBase;

 protected:
  [[nodiscard]] std::shared_ptr<IActiveView> View() const { return Document()->ActiveView(); }

  // The map's graphics, also when the layout is shown.
  [[nodiscard]] std::shared_ptr<IGraphicsContainer> Graphics() const {
    const auto map = Cast<IGraphicsContainer>(Document()->FocusMap());
    return Require(map, "IGraphicsContainer");
  }
  [[nodiscard]] std::shared_ptr<IGraphicsContainerSelect> Selection() const {
    const auto map = Cast<IGraphicsContainerSelect>(Document()->FocusMap());
    return Require(map, "IGraphicsContainerSelect");
  }

  // One step of the bounds walk: nothing before the first element.
  void Include(const IElement& element, std::optional<Envelope>& bounds) const {
    const std::shared_ptr<IDisplay> display = View()->ScreenDisplay();
    if (!bounds) {
      bounds.emplace();
      element.QueryBounds(*display, *bounds);
      return;
    }
    Envelope scratch;
    element.QueryBounds(*display, scratch);
    bounds->Union(scratch);
  }

  template <class Elements>
  [[nodiscard]] std::optional<Envelope> BoundsOf(Elements& elements) const {
    std::optional<Envelope> bounds;
    elements.Reset();
    while (const std::shared_ptr<IElement> element = elements.Next()) Include(*element, bounds);
    return bounds;
  }

  void Repaint(const Envelope& bounds) const {
    View()->PartialRefresh(kRepaintPhases, nullptr, &bounds);
    MarkDirty();
  }
};

class SelectAllCommand final : public GraphicsCommand {
 public:
  using GraphicsCommand::GraphicsCommand;

 private:
  void Run() override {
    Selection()->SelectAllElements();
    const std::optional<Envelope> bounds = BoundsOf(*Graphics());
    if (bounds) Repaint(*bounds);
  }
};

class UnselectAllCommand final : public GraphicsCommand {
 public:
  using GraphicsCommand::GraphicsCommand;

 private:
  void Run() override {
    // First the bounds: afterwards nothing is selected any more.
    std::optional<Envelope> bounds = BoundsOf(*Selection()->SelectedElements());
    Selection()->UnselectAllElements();
    if (!bounds) return;
    bounds->Expand(kRepaintFactor, kRepaintFactor, true);
    Repaint(*bounds);
  }
};

class FlipSelectionCommand final : public GraphicsCommand {
 public:
  using GraphicsCommand::GraphicsCommand;

 private:
  void Run() override {
    const std::shared_ptr<IGraphicsContainer> graphics = Graphics();
    const std::shared_ptr<IGraphicsContainerSelect> selection = Selection();
    std::optional<Envelope> bounds;
    graphics->Reset();
    while (const std::shared_ptr<IElement> element = graphics->Next()) {
      if (selection->ElementSelected(element)) {
        selection->UnselectElement(element);
      } else {
        selection->SelectElement(element);
      }
      Include(*element, bounds);
    }
    if (!bounds) return;
    bounds->Expand(kRepaintFactor, kRepaintFactor, true);
    Repaint(*bounds);
  }
};

class ZoomCommand final : public GraphicsCommand {
 public:
  using GraphicsCommand::GraphicsCommand;

 private:
  void Run() override {
    std::optional<Envelope> bounds = BoundsOf(*Selection()->SelectedElements());
    // Elements without a shape lie nowhere; a view without an extent would show nothing.
    if (!bounds || bounds->IsEmpty()) return;
    bounds->Expand(kZoomFactor, kZoomFactor, true);
    View()->SetExtent(*bounds);
    View()->Refresh();
    MarkDirty();
  }
};

}  // namespace

std::shared_ptr<ICommand> MakeSelectAllCommand(const CommandRow& row) {
  return std::make_shared<SelectAllCommand>(row, std::source_location::current());
}
std::shared_ptr<ICommand> MakeUnselectAllCommand(const CommandRow& row) {
  return std::make_shared<UnselectAllCommand>(row, std::source_location::current());
}
std::shared_ptr<ICommand> MakeFlipSelectionCommand(const CommandRow& row) {
  return std::make_shared<FlipSelectionCommand>(row, std::source_location::current());
}
std::shared_ptr<ICommand> MakeZoomCommand(const CommandRow& row) {
  return std::make_shared<ZoomCommand>(row, std::source_location::current());
}

}  // namespace tessarine
