// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/form_answers.h"

#include <algorithm>
#include <filesystem>

#include "engine/data_source.h"
#include "engine/layer_copy.h"
#include "hosts/terminal/refusal.h"
#include "platform/letter_case.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

// Layers may differ in case alone.
std::int32_t FindExactLine(const ListBox& list, const std::string& text) {
  for (std::int32_t line = 0; line < list.ListCount(); ++line) {
    if (list.List(line) == text) return line;
  }
  return -1;
}

// The fields of a layer that a list may show, with the aliases under which it does.
struct ShownField {
  std::string name, alias;
};

std::vector<ShownField> ShownFields(const DocumentFeatureLayer& layer) {
  std::vector<ShownField> fields;
  std::int32_t index = 0;
  for (const FieldRef& field : *layer.FeatureClass()->Fields()) {
    const std::string alias = layer.FieldInfo(index++).Alias;
    if (field->Type != esriFieldTypeOID && field->Type != esriFieldTypeGeometry) fields.push_back({field->Name, alias});
  }
  return fields;
}

// The fields that a user may mean: the one of this name, or else those of this alias; exactly, or but for case.
std::vector<std::size_t> FieldsCalled(const std::vector<ShownField>& fields, const std::string& name) {
  using Same = bool (*)(const std::string&, const std::string&);
  const Same exactly = [](const std::string& a, const std::string& b) { return a == b; };
  const Same but_for_case = [](const std::string& a, const std::string& b) { return FoldedCase(a) == FoldedCase(b); };
  std::vector<std::size_t> called;
  for (const auto part : {&ShownField::name, &ShownField::alias}) {
    for (const Same same : {exactly, but_for_case}) {
      for (std::size_t at = 0; at < fields.size(); ++at) {
        if (same(fields[at].*part, name)) called.push_back(at);
      }
      if (!called.empty()) return called;
    }
  }
  return called;
}

// The line of a field: of the lines with its alias the one at its place among the fields with that alias. -1 where the
// list doesn't show it, -2 where that can't be told.
constexpr std::int32_t kNoLine = -1, kUnsureLine = -2;

std::int32_t LineOfField(const ListBox& list, const std::vector<ShownField>& fields, std::size_t field) {
  std::vector<std::int32_t> lines;
  for (std::int32_t line = 0; line < list.ListCount(); ++line) {
    if (list.List(line) == fields[field].alias) lines.push_back(line);
  }
  const auto same = [&](const ShownField& other) { return other.alias == fields[field].alias; };
  const auto count = static_cast<std::size_t>(std::ranges::count_if(fields, same));
  if (lines.empty()) return kNoLine;
  if (lines.size() != count) return kUnsureLine;
  return lines[static_cast<std::size_t>(
      std::count_if(fields.begin(), fields.begin() + static_cast<std::ptrdiff_t>(field), same))];
}

std::string AllLines(const ListBox& list) {
  std::string lines;
  for (std::int32_t line = 0; line < list.ListCount(); ++line) lines += (line == 0 ? "" : ", ") + list.List(line);
  return lines.empty() ? "none that can be carried over" : lines;
}

// The name that a form proposes, without the number that makes it unique in the form's own folder.
std::string PlainName(const fs::path& proposal) {
  const std::string stem = proposal.stem().string();
  const std::string plain = stem.substr(0, stem.rfind('_')) + proposal.extension().string();
  const bool numbered = FirstFreePath(proposal.parent_path() / plain) == proposal;
  return numbered ? plain : proposal.filename().string();
}

}  // namespace

void ChooseLayer(ListBox& list, const DocumentFeatureLayer& layer, const std::string& command,
                 const std::string& takes) {
  const std::int32_t line = FindExactLine(list, layer.Name());
  if (line < 0) {
    throw Refusal("The layer '" + layer.Name() + "' is of the wrong kind: '" + command + "' takes " + takes + ".");
  }
  list.SetListIndex(line);
}

void ChooseFields(ListBox& list, const DocumentFeatureLayer& layer, const std::string& option,
                  const std::vector<std::string>& names, bool all) {
  for (std::int32_t line = 0; line < list.ListCount(); ++line) list.SetSelected(line, all);
  const std::vector<ShownField> fields = ShownFields(layer);
  for (const std::string& name : names) {
    const std::vector<std::size_t> called = FieldsCalled(fields, name);
    const std::int32_t line = called.size() == 1 ? LineOfField(list, fields, called.front()) : kNoLine;
    if (called.size() > 1 || line == kUnsureLine) {
      std::string several;
      for (const std::size_t field : called) several += (several.empty() ? "" : ", ") + fields[field].name;
      throw Refusal(option + ": '" + name + "' may be one of several fields of '" + layer.Name() +
                    "'. Give the name of one, or another alias: " + several + ".");
    }
    if (line < 0) {
      throw Refusal(option + ": '" + layer.Name() + "' has no field '" + name + "'. It has: " + AllLines(list) + ".");
    }
    list.SetSelected(line, true);
  }
}

bool IsTypedPlace(const OutputPlace& output) {
  return output.format != nullptr && output.format->IsFile() && output.format->HasOwnWorkspace();
}

void ChooseOutput(Form& form, const OutputPlace& output) {
  auto& text = ControlOf<TextBox>(form, "txtOutput");
  if (!output.IsFolder() && !IsTypedPlace(output)) {
    ControlOf<CommandButton>(form, "cmdGetWorkspace").Press();
  } else if (output.IsFolder()) {
    const fs::path path = fs::path(output.container) / PlainName(ToNativePath(text.Text()));
    text.SetText(FromNativePath(FirstFreePath(path).string()));
  } else {
    text.SetText(FromNativePath(output.NativePath()));
  }
}

bool EntersContainer(const NamedOutput& output) {
  std::error_code error;
  return output.whole_container && fs::exists(output.place.container, error);
}

std::string EnteringQuestion(const OutputPlace& place) {
  return "'" + place.container + "' already exists!  Do you wish to add the layer '" + place.ClassName() + "' to it?";
}

void RefuseTakenPlace(const NamedOutput& output, const CommonOptions& options) {
  const TerminalManners manners = options.Manners();
  if (manners.overwrite || manners.yes || manners.interactive) return;
  const OutputPlace& place = output.place;
  const bool stands = !place.IsFolder() && Stands(place);
  if (!stands && !EntersContainer(output)) return;
  throw Refusal("'" + (stands ? place.NativePath() : place.container) + "' exists already: add --overwrite to " +
                (stands ? "replace it" : "put the layer '" + place.ClassName() + "' into it") + ", or name another.");
}

void RefuseSource(const OutputPlace& place, const DocumentFeatureLayer& layer) {
  const auto files = Cast<IDatasetFiles>(layer.FeatureClass());
  if (!place.IsFolder() && files && place.Overlaps(files->Files())) {
    throw Refusal("'" + place.NativePath() + "' is read by this run: name another output.");
  }
}

void CheckDataset(const OutputPlace& place, const SpatialReferenceRef& reference) {
  if (place.dataset.empty()) return;
  const SpatialReferenceRef own = FeatureDatasetReference(place.container, place.dataset);
  if (own && !own->IsEqual(*reference)) {
    throw Refusal("The feature dataset '" + place.dataset + "' is in '" + own->Name() + "', but the output in '" +
                  reference->Name() + "': name another dataset, or none.");
  }
}

}  // namespace tessarine
