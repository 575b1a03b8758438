// SPDX-License-Identifier: GPL-2.0-or-later
#include "graphics/element_naming.h"

#include "graphics/element_names.h"

namespace tessarine {
namespace {

std::shared_ptr<IGraphicsContainer> ContainerOf(const IMxDocument& document) {
  return Require(Cast<IGraphicsContainer>(document.FocusMap()), "IGraphicsContainer");
}

std::shared_ptr<IGraphicsContainerSelect> SelectionOf(const IMxDocument& document) {
  return Require(Cast<IGraphicsContainerSelect>(document.FocusMap()), "IGraphicsContainerSelect");
}

// Without a word about it, the selected elements where there are any.
bool TakesSelected(const Arguments& arguments, const ElementCounts& counts) {
  return !arguments.Get<bool>("all") && (arguments.Get<bool>("selected") || counts.selected > 0);
}

template <class Sequence>
std::int32_t NameEach(Sequence& elements, const std::string& name) {
  std::int32_t count = 0;
  elements.Reset();
  while (const std::shared_ptr<IElement> element = elements.Next()) {
    Require(Cast<IElementProperties>(element), "IElementProperties")->SetName(name);
    ++count;
  }
  return count;
}

std::string QuestionAboutNoName(bool selected, std::int32_t count) {
  const std::string target =
      std::to_string(count) +
      (selected ? " selected graphic elements will\r\nbe assigned no name (i.e. they will be assigned the empty string "
                  "for a name)."
                : " graphic elements will be\r\nassigned no name (i.e. they will be assigned the empty string for a "
                  "name).");
  return "Your 'Name' value is an empty string, so your " + target +
         "\r\nAny existing name will be removed.\r\n\r\nPlease click 'OK' to confirm this action, or 'Cancel' to exit "
         "without making changes...";
}

}  // namespace

ElementCounts CountElements(const IMxDocument& document) {
  return {CountOf(*ContainerOf(document)), SelectionOf(document)->ElementSelectionCount()};
}

std::optional<Objection> ObjectionToNaming(const Arguments& arguments, const IMxDocument& document) {
  const ElementCounts counts = CountElements(document);
  if (arguments.Get<bool>("selected") && counts.selected == 0) {
    return Objection{"selected", "no graphic element is selected."};
  }
  if (arguments.confirmed || !arguments.Get<std::string>("name").empty()) return std::nullopt;
  const bool selected = TakesSelected(arguments, counts);
  return Objection{"", QuestionAboutNoName(selected, selected ? counts.selected : counts.all),
                   "Confirm Action:", Objection::kAsked};
}

std::int32_t NameElements(const Arguments& arguments, const IMxDocument& document) {
  const auto name = arguments.Get<std::string>("name");
  return TakesSelected(arguments, CountElements(document)) ? NameEach(*SelectionOf(document)->SelectedElements(), name)
                                                           : NameEach(*ContainerOf(document), name);
}

std::string PlannedNaming(const Arguments& arguments, const IMxDocument& document) {
  const ElementCounts counts = CountElements(document);
  const std::int32_t count = TakesSelected(arguments, counts) ? counts.selected : counts.all;
  const auto name = arguments.Get<std::string>("name");
  return std::to_string(count) + " of " + CountedElements(counts.all) + " would be named '" + name + "'." +
         kOnlyPlanned;
}

std::string NamingSentence(std::int32_t named, const IMxDocument& document, const std::string& name) {
  return std::to_string(named) + " of " + CountedElements(CountElements(document).all) + " named '" + name + "'.";
}

}  // namespace tessarine
