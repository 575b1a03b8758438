// SPDX-License-Identifier: GPL-2.0-or-later
#include "graphics/element_selection.h"

#include <algorithm>

#include "graphics/element_names.h"
#include "platform/letter_case.h"

namespace tessarine {
namespace {

constexpr std::int32_t kRepaintPhases = esriViewGeography | esriViewGraphics | esriViewGraphicSelection;

template <class Kind>
bool Fits(const std::shared_ptr<IElement>& element) {
  return Is<Kind>(element);
}

constexpr ElementType kTypes[] = {
    {"points", "Points", "Select the points", Fits<IMarkerElement>},
    {"lines", "Lines", "Select the lines", Fits<ILineElement>},
    {"polygons", "Polygons", "Select the polygons", Fits<IPolygonElement>},
    {"rectangles", "Rectangles", "Select the rectangles", Fits<IRectangleElement>},
    {"ellipses", "Ellipses", "Select the ellipses", Fits<IEllipseElement>},
    {"circles", "Circles", "Select the circles", Fits<ICircleElement>},
    {"text", "Text", "Select the text", Fits<ITextElement>},
    {"pictures", "Pictures", "Select the pictures", Fits<IPictureElement>},
    {"data-graphs", "Data Graphs", "Select the data graphs", Fits<IDataGraphElement>},
    {"groups", "Group Elements", "Select the groups", Fits<IGroupElement>},
    {"frames", "Frames", "Select the frames", Fits<IFrameElement>},
};

std::shared_ptr<IGraphicsContainer> ContainerOf(const IMxDocument& document) {
  const bool layout = Is<IPageLayout>(document.ActiveView());
  const auto container =
      layout ? Cast<IGraphicsContainer>(document.PageLayout()) : Cast<IGraphicsContainer>(document.FocusMap());
  return Require(container, "IGraphicsContainer");
}

std::shared_ptr<IGraphicsContainerSelect> SelectionOf(const std::shared_ptr<IGraphicsContainer>& container) {
  return Require(Cast<IGraphicsContainerSelect>(container), "IGraphicsContainerSelect");
}

std::string NameOf(const std::shared_ptr<IElement>& element) {
  const auto properties = Cast<IElementProperties>(element);
  return properties ? properties->Name() : "";
}

// The first type of the table that the element is of; null for an element of none.
const ElementType* TypeOf(const std::shared_ptr<IElement>& element) {
  const auto* type = std::ranges::find_if(kTypes, [&](const ElementType& row) { return row.fits(element); });
  return type == std::end(kTypes) ? nullptr : type;
}

std::vector<std::string> NamesIn(const Arguments& arguments) { return arguments.Get<std::vector<std::string>>("name"); }

/// Selects, and knows whether there was anything to select.
class Selecting {
 public:
  explicit Selecting(std::shared_ptr<IGraphicsContainer> container)
      : container_(std::move(container)), selection_(SelectionOf(container_)) {}

  void Take(const Elements& elements) {
    for (const auto& element : elements) Take(element);
  }
  void TakeMatching(const std::string& pattern) {
    container_->Reset();
    while (const std::shared_ptr<IElement> element = container_->Next()) {
      if (selection_->ElementSelected(element)) continue;
      const std::string name = NameOf(element);
      if (!name.empty() && MatchesPattern(name, pattern)) Take(element);
    }
  }
  [[nodiscard]] bool Any() const { return any_; }

 private:
  void Take(const std::shared_ptr<IElement>& element) {
    selection_->SelectElement(element);
    any_ = true;
  }

  std::shared_ptr<IGraphicsContainer> container_;
  std::shared_ptr<IGraphicsContainerSelect> selection_;
  bool any_ = false;
};

// Whether an element is among those that are to be selected.
bool IsAskedFor(const std::shared_ptr<IElement>& element, const Arguments& arguments) {
  const ElementType* type = TypeOf(element);
  if (type != nullptr && arguments.Get<bool>(type->word)) return true;
  const std::string name = NameOf(element);
  if (name.empty()) return false;
  const auto is_name = [&](const std::string& asked) { return FoldedCase(asked) == FoldedCase(name); };
  return std::ranges::any_of(NamesIn(arguments), is_name) ||
         (arguments.Has("pattern") && MatchesPattern(name, arguments.Get<std::string>("pattern")));
}

}  // namespace

std::span<const ElementType> ElementTypes() { return kTypes; }

ElementCensus TakeCensus(const IMxDocument& document) {
  ElementCensus census{std::vector<Elements>(std::size(kTypes)), {}};
  const std::shared_ptr<IGraphicsContainer> container = ContainerOf(document);
  container->Reset();
  while (const std::shared_ptr<IElement> element = container->Next()) {
    if (const std::string name = NameOf(element); !name.empty()) {
      NamedElements& entry = census.names[FoldedCase(name)];
      if (entry.elements.empty()) entry.name = name;
      entry.elements.push_back(element);
    }
    if (const ElementType* type = TypeOf(element); type != nullptr) {
      census.of_types[static_cast<std::size_t>(type - kTypes)].push_back(element);
    }
  }
  return census;
}

std::optional<Objection> ObjectionToSelection(const Arguments& arguments, const IMxDocument& document) {
  const ElementCensus census = TakeCensus(document);
  const std::vector<std::string> names = NamesIn(arguments);
  const bool asks_names = !names.empty() || arguments.Has("pattern");
  bool any = asks_names;
  for (std::size_t index = 0; index < std::size(kTypes); ++index) {
    if (!arguments.Get<bool>(kTypes[index].word)) continue;
    if (census.of_types[index].empty()) return Objection{std::string(kTypes[index].word), "the view has none."};
    any = true;
  }
  if (!any) return Objection{"", kNothingToSelect};
  if (asks_names && census.names.empty()) return Objection{"", "No graphic element of the view has a name."};
  for (const std::string& name : names) {
    if (census.names.contains(FoldedCase(name))) continue;
    std::vector<std::string> lines;
    for (const auto& [key, entry] : census.names) lines.push_back(entry.name);
    std::ranges::sort(lines);
    std::string all;
    for (const std::string& line : lines) all += (all.empty() ? "" : ", ") + line;
    return Objection{"name", "no graphic element is named '" + name + "'. There are: " + all + "."};
  }
  return std::nullopt;
}

void SelectElements(const Arguments& arguments, const std::shared_ptr<IMxDocument>& document) {
  const ElementCensus census = TakeCensus(*document);
  Selecting selecting(ContainerOf(*document));
  for (std::size_t index = 0; index < std::size(kTypes); ++index) {
    if (arguments.Get<bool>(kTypes[index].word)) selecting.Take(census.of_types[index]);
  }
  for (const std::string& name : NamesIn(arguments)) {
    const auto named = census.names.find(FoldedCase(name));
    if (named != census.names.end()) selecting.Take(named->second.elements);
  }
  if (arguments.Has("pattern")) selecting.TakeMatching(arguments.Get<std::string>("pattern"));
  if (!selecting.Any()) return;
  document->ActiveView()->PartialRefresh(kRepaintPhases, nullptr, nullptr);
  Require(Cast<IDocumentDirty>(document), "IDocumentDirty")->SetDirty();
}

std::string SelectionSentence(const IMxDocument& document) {
  const std::shared_ptr<IGraphicsContainer> container = ContainerOf(document);
  return std::to_string(SelectionOf(container)->ElementSelectionCount()) + " of " +
         CountedElements(CountOf(*container)) + " selected.";
}

std::string PlannedSelection(const Arguments& arguments, const IMxDocument& document) {
  const std::shared_ptr<IGraphicsContainer> container = ContainerOf(document);
  const std::shared_ptr<IGraphicsContainerSelect> selection = SelectionOf(container);
  std::int32_t selected = 0;
  container->Reset();
  while (const std::shared_ptr<IElement> element = container->Next()) {
    if (selection->ElementSelected(element) || IsAskedFor(element, arguments)) ++selected;
  }
  return std::to_string(selected) + " of " + CountedElements(CountOf(*container)) + " would be selected." +
         kOnlyPlanned;
}

}  // namespace tessarine
