// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/command_line.h"

#include <algorithm>
#include <optional>

#include "platform/text_formats.h"

namespace tessarine {
namespace {

constexpr std::string_view kPlainCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-./,:=+@%";

std::string Joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : ",") + part;
  return text;
}

bool IsOwnOf(const ToolSpheroid& spheroid, const Arguments& arguments) {
  const auto layer = arguments.Get<std::shared_ptr<IFeatureLayer>>(kSourceParameter);
  const auto features = layer ? layer->FeatureClass() : nullptr;
  const auto system = features ? GeographicOf(features->SpatialReference()) : nullptr;
  if (!system) return false;
  const Spheroid& own = *system->Datum()->Spheroid();
  return own.SemiMajorAxis() == spheroid.semi_major && own.SemiMinorAxis() == spheroid.semi_minor;
}

class LineMaker {
 public:
  LineMaker(const ToolSpec& spec, const Arguments& arguments, const CommandWords& words)
      : spec_(spec), arguments_(arguments), words_(words) {}

  TerminalLine Make() {
    line_.text = "tessarine " + std::string(spec_.name);
    for (const ToolParameter& parameter : spec_.parameters) {
      if (IsGiven(parameter)) Add(parameter);
    }
    AddManners();
    if (!line_.why_none.empty()) line_.text.clear();
    return std::move(line_);
  }

 private:
  [[nodiscard]] bool IsGiven(const ToolParameter& parameter) const {
    if (parameter.kind == ParameterKind::Layer) return words_.layers.contains(parameter.name);
    if (parameter.kind == ParameterKind::Output || !arguments_.Has(parameter.name)) return false;
    if (parameter.kind == ParameterKind::Flag) return arguments_.Get<bool>(parameter.name);
    const ToolParameter* needed = parameter.needs.empty() ? nullptr : spec_.Find(parameter.needs);
    return needed == nullptr || IsGiven(*needed);
  }

  void Add(const ToolParameter& parameter) {
    const std::string_view name = parameter.name;
    switch (parameter.kind) {
      case ParameterKind::Layer:
        return AddLayer(name, words_.layers.find(name)->second);
      case ParameterKind::Fields:
        return AddFields(name, arguments_.Get<std::vector<std::string>>(name));
      case ParameterKind::Number:
        return AddOption(name, ExactNumberText(arguments_.Get<double>(name)));
      case ParameterKind::Box:
        return AddOption(name, Joined(arguments_.Get<std::vector<std::string>>(name)));
      case ParameterKind::Choice:
      case ParameterKind::Shapes:
      case ParameterKind::Text:
        return AddText(parameter, arguments_.Get<std::string>(name));
      case ParameterKind::Texts:
        for (const std::string& text : arguments_.Get<std::vector<std::string>>(name)) AddText(parameter, text);
        return;
      case ParameterKind::Reference:
        return Refuse("a spatial reference is chosen in the dialog");
      case ParameterKind::Flag:
        AddWord("--" + std::string(name));
        return;
      case ParameterKind::Spheroid:
        return AddSpheroid(arguments_.Get<ToolSpheroid>(name));
      case ParameterKind::Measures:
        for (const ToolMeasure& measure : arguments_.Get<std::vector<ToolMeasure>>(name)) AddMeasure(name, measure);
        return;
      case ParameterKind::Output:
        return;
    }
  }

  void AddText(const ToolParameter& parameter, const std::string& text) {
    if (parameter.by_place) return AddWord(text);
    AddOption(parameter.name, text);
  }

  void AddLayer(std::string_view name, const LayerWords& layer) {
    if (!layer.why_none.empty()) Refuse(layer.why_none);
    if (name == kSourceParameter) {
      AddWord(layer.path);
    } else {
      AddOption(name, layer.path);
    }
    if (!layer.layer.empty()) AddWord(LayerOption(name, "layer") + "=" + layer.layer);
    if (!layer.where.empty()) AddWord(LayerOption(name, "where") + "=" + layer.where);
  }

  void AddFields(std::string_view name, const std::vector<std::string>& fields) {
    RefuseCommas(fields);
    if (!fields.empty()) AddOption(name, Joined(fields));
  }

  void AddMeasure(std::string_view name, const ToolMeasure& measure) {
    RefuseCommas(measure.fields);
    AddOption(name, measure.name + (measure.fields.empty() ? "" : "=" + Joined(measure.fields)));
  }

  void AddSpheroid(const ToolSpheroid& spheroid) {
    if (IsOwnOf(spheroid, arguments_)) return;
    const auto* const same = FirstOfName(spheroid.name);
    if (same != nullptr && same->semi_major == spheroid.semi_major && same->semi_minor == spheroid.semi_minor) {
      return AddWord("--spheroid=" + spheroid.name);
    }
    AddWord("--radii=" + ExactNumberText(spheroid.semi_major) + "," + ExactNumberText(spheroid.semi_minor));
  }

  [[nodiscard]] const ToolSpheroid* FirstOfName(const std::string& name) const {
    const auto found = std::ranges::find(words_.spheroids, name, &ToolSpheroid::name);
    return found != words_.spheroids.end() && !name.empty() ? &*found : nullptr;
  }

  void AddManners() {
    const auto source = words_.layers.find(kSourceParameter);
    // A copy of the layer holds all of its records unless told otherwise; a class that a tool makes never does.
    const bool copies = spec_.WritesIntoSource() && !words_.output.empty();
    if (copies && source != words_.layers.end() && !source->second.where.empty()) AddWord("--only-selected");
    if (!words_.output.empty()) AddOption("output", words_.output);
    if (words_.replaces) AddWord("--overwrite");
    if (arguments_.confirmed) AddWord("--yes");
  }

  void AddOption(std::string_view name, const std::string& value) { AddWord("--" + std::string(name) + "=" + value); }
  void AddWord(const std::string& word) { line_.text += " " + ShellWord(word); }

  void RefuseCommas(const std::vector<std::string>& fields) {
    for (const std::string& field : fields) {
      if (field.find(',') != std::string::npos)
        Refuse("a comma in the name of the field '" + field + "' parts it in two");
    }
  }
  // The first reason stays.
  void Refuse(const std::string& why) {
    if (line_.why_none.empty()) line_.why_none = "No line at the terminal does the same: " + why + ".";
  }

  const ToolSpec& spec_;
  const Arguments& arguments_;
  const CommandWords& words_;
  TerminalLine line_;
};

}  // namespace

TerminalLine TerminalLineOf(const ToolSpec& spec, const Arguments& arguments, const CommandWords& words) {
  return LineMaker(spec, arguments, words).Make();
}

std::string ShellWord(std::string_view text) {
  if (!text.empty() && text.find_first_not_of(kPlainCharacters) == std::string_view::npos) return std::string(text);
  return "'" + Replace(std::string(text), "'", "'\\''") + "'";
}

std::string LayerOption(std::string_view parameter, std::string_view part) {
  if (parameter == kSourceParameter) return "--" + std::string(part);
  if (parameter.ends_with('s')) parameter.remove_suffix(1);
  return "--" + std::string(parameter) + "-" + std::string(part);
}

}  // namespace tessarine
