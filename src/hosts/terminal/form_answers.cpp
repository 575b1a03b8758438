#include "hosts/terminal/form_answers.h"

#include <filesystem>

#include "engine/data_source.h"
#include "hosts/terminal/refusal.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

template <class List>
std::int32_t FindLine(const List& list, const std::string& text) {
  for (std::int32_t line = 0; line < list.ListCount(); ++line) {
    if (EqualsIgnoringCase(list.List(line), text)) return line;
  }
  return -1;
}

// Layers may differ in case alone.
std::int32_t FindExactLine(const ListBox& list, const std::string& text) {
  for (std::int32_t line = 0; line < list.ListCount(); ++line) {
    if (list.List(line) == text) return line;
  }
  return -1;
}

std::int32_t FindFieldLine(const ListBox& list, const DocumentFeatureLayer& layer, const std::string& name) {
  const std::int32_t line = FindLine(list, name);
  if (line >= 0) return line;
  const std::int32_t index = layer.FindField(name);
  return index < 0 ? -1 : FindLine(list, layer.FieldInfo(index).Alias);
}

std::string AllLines(const ListBox& list) {
  std::string lines;
  for (std::int32_t line = 0; line < list.ListCount(); ++line) lines += (line == 0 ? "" : ", ") + list.List(line);
  return lines.empty() ? "none that can be carried over" : lines;
}

bool IsSameFile(const fs::path& first, const fs::path& second) {
  std::error_code error;
  return fs::equivalent(first, second, error);
}

// True for an output that is the very data to be read.
bool IsSource(const OutputPlace& place, const DocumentFeatureLayer& layer) {
  const fs::path source = layer.Source().path;
  if (place.InGeodatabase()) {
    return IsSameFile(place.container, source) && EqualsIgnoringCase(place.name, layer.Source().layer);
  }
  return place.kind == OutputPlace::Kind::Shapefile &&
         (IsSameFile(place.NativePath(), source) ||
          IsSameFile(place.NativePath(), source / (layer.Source().layer + ".shp")));
}

// The path, or the first of name_2, name_3 and so on that is free: how the forms propose names.
fs::path FirstFree(const fs::path& path) {
  fs::path free = path;
  for (int number = 2; fs::exists(free); ++number) {
    free.replace_filename(path.stem().string() + "_" + std::to_string(number) + path.extension().string());
  }
  return free;
}

// The name that a form proposes, without the number that makes it unique in the form's own folder.
std::string PlainName(const fs::path& proposal) {
  const std::string stem = proposal.stem().string();
  const std::string plain = stem.substr(0, stem.rfind('_')) + proposal.extension().string();
  const bool numbered = FirstFree(proposal.parent_path() / plain) == proposal;
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
  for (const std::string& name : names) {
    const std::int32_t line = FindFieldLine(list, layer, name);
    if (line < 0) {
      throw Refusal(option + ": '" + layer.Name() + "' has no field '" + name + "'. It has: " + AllLines(list) + ".");
    }
    list.SetSelected(line, true);
  }
}

void ChooseOutput(Form& form, const OutputPlace& output) {
  auto& text = ControlOf<TextBox>(form, "txtOutput");
  if (output.InGeodatabase()) {
    ControlOf<CommandButton>(form, "cmdGetWorkspace").Press();
  } else if (output.kind == OutputPlace::Kind::Folder) {
    const fs::path path = fs::path(output.container) / PlainName(ToNativePath(text.Text()));
    text.SetText(FromNativePath(FirstFree(path).string()));
  } else {
    text.SetText(FromNativePath(output.NativePath()));
  }
}

void RefuseTakenName(const OutputPlace& place, const CommonOptions& options) {
  const TerminalManners manners = options.Manners();
  if (manners.overwrite || manners.yes || manners.interactive || manners.plan_only) return;
  if (OutputExists(place)) {
    throw Refusal("'" + place.NativePath() + "' exists already: add --overwrite to replace it, or name another.");
  }
}

void RefuseSource(const OutputPlace& place, const DocumentFeatureLayer& layer) {
  if (IsSource(place, layer)) {
    throw Refusal("'" + place.NativePath() + "' is read by this run: name another output.");
  }
}

void CheckDataset(const OutputPlace& place, const SpatialReferenceRef& reference) {
  if (place.kind != OutputPlace::Kind::FileGeodatabase || place.dataset.empty()) return;
  const SpatialReferenceRef own = FeatureDatasetReference(place.container, place.dataset);
  if (own && !own->IsEqual(*reference)) {
    throw Refusal("The feature dataset '" + place.dataset + "' is in '" + own->Name() + "', but the output in '" +
                  reference->Name() + "': name another dataset, or none.");
  }
}

}  // namespace tessarine
