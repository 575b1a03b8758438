// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/tool_options.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "hosts/document/component_loader.h"
#include "hosts/terminal/option_numbers.h"
#include "hosts/terminal/output_wishes.h"
#include "platform/command_line.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

// The options that have a letter, and how sentences write them.
struct Letter {
  enum Telling : std::uint8_t { kByLetter, kByName };

  std::string_view parameter;
  char letter;
  Telling telling;
};
constexpr Letter kLetters[] = {{"output", 'o', Letter::kByLetter},     {"fields", 'f', Letter::kByLetter},
                               {"all-fields", 'a', Letter::kByLetter}, {"cluster-tolerance", 't', Letter::kByLetter},
                               {"measure", 'm', Letter::kByLetter},    {"to", 't', Letter::kByName},
                               {"both", 'b', Letter::kByName},         {"all", 'a', Letter::kByName},
                               {"selected", 's', Letter::kByName}};

std::string OptionName(std::string_view parameter) {
  const auto* found = std::ranges::find(kLetters, parameter, &Letter::parameter);
  const std::string name = "--" + std::string(parameter);
  return found != std::end(kLetters) ? std::string("-") + found->letter + "," + name : name;
}

// An option, or a word of its own.
std::string WordFor(const ToolParameter& parameter) {
  return parameter.by_place ? std::string(parameter.name) : OptionName(parameter.name);
}

std::vector<std::string> SplitAtCommas(const std::string& text) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == ',') {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  for (std::string& part : parts) part = Trim(part);
  return parts;
}

std::string HelpOf(const ToolParameter& parameter) {
  std::string help(parameter.text);
  if (parameter.kind == ParameterKind::Fields) help += ", with commas between";
  // Such a number's placeholder names it.
  const bool in_degrees = parameter.kind == ParameterKind::Number && parameter.unit == "degrees";
  if (!parameter.unit.empty() && !in_degrees) help += ", in " + std::string(parameter.unit);
  if (!parameter.otherwise.empty()) help += "; otherwise " + std::string(parameter.otherwise);
  return help;
}

/// Adds the options of one command.
class OptionAdder {
 public:
  OptionAdder(CLI::App& command, const ToolSpec& spec, ToolOptions& options)
      : command_(command), spec_(spec), options_(options) {}

  void AddAll() {
    for (const ToolParameter& parameter : spec_.parameters) {
      if (parameter.kind != ParameterKind::Output || !spec_.WritesIntoSource()) Add(parameter);
    }
    for (const ToolParameter& parameter : spec_.parameters) Relate(parameter);
    AddRun();
    if (spec_.spreads) AddJobsOption(command_, options_.common);
    if (spec_.WritesIntoSource()) AddCopy(*spec_.Find("output"));
  }

 private:
  void AddRun() {
    CommonOptions& common = options_.common;
    if (spec_.works_on == ToolSubject::Layers) {
      AddCommonOptions(command_, common);
    } else if (spec_.Find("output") != nullptr) {
      AddRunOptions(command_, common);
    } else {
      if (spec_.asks) command_.add_flag("-y,--yes", common.yes, kYesHelp);
      AddQuietRun(command_, common);
    }
  }

  void Add(const ToolParameter& parameter) {
    const std::string name(parameter.name);
    switch (parameter.kind) {
      case ParameterKind::Layer:
        AddLayer(parameter);
        return;
      case ParameterKind::Output:
        AddOutput(parameter);
        return;
      case ParameterKind::Spheroid:
        AddSpheroidOptions(command_, options_.spheroid);
        return;
      case ParameterKind::Flag:
        made_[name] = command_.add_flag(OptionName(name), options_.flags[name], HelpOf(parameter));
        return;
      case ParameterKind::Fields:
        AddTexts(parameter)->delimiter(',');
        return;
      case ParameterKind::Measures:
        AddTexts(parameter)->type_name("MEASURE[=FIELD[,FIELD]]");
        return;
      case ParameterKind::Choice:
        AddTexts(parameter)->expected(1)->check(
            CLI::IsMember(std::vector<std::string>(parameter.choices.begin(), parameter.choices.end())));
        return;
      case ParameterKind::Box:
        AddTexts(parameter)->expected(1)->type_name("W,S,E,N");
        return;
      case ParameterKind::Number: {
        CLI::Option* option = AddTexts(parameter)->expected(1);
        if (parameter.unit == "degrees") option->type_name("DEGREES");
        return;
      }
      case ParameterKind::Shapes:
        AddTexts(parameter)->expected(1)->type_name("SHAPES");
        return;
      case ParameterKind::Text:
        AddTexts(parameter)->expected(1);
        return;
      case ParameterKind::Texts:
        AddTexts(parameter);
        return;
      case ParameterKind::Reference:
        AddTexts(parameter)->expected(1);
        AddFormatOption(command_, options_.output);
        return;
    }
  }

  CLI::Option* AddTexts(const ToolParameter& parameter) {
    const std::string name(parameter.name);
    CLI::Option* option = command_.add_option(WordFor(parameter), options_.texts[name], HelpOf(parameter));
    made_[name] = option->allow_extra_args(false)->required(parameter.required);
    return option;
  }

  void AddLayer(const ToolParameter& parameter) {
    const std::string name(parameter.name);
    if (name == "source") {
      command_.add_option(name, options_.sources, kSourceHelp)->required();
      AddSourceOptions(command_, options_.source);
      return;
    }
    SourceOptions& layer = options_.layers[name];
    CLI::Option* option = command_.add_option(OptionName(name), layer.source,
                                              HelpOf(parameter) + ": a path, PATH:LAYER, or a layer of the document");
    made_[name] = option->required(parameter.required);
    command_
        .add_option(LayerOption(name, "layer"), layer.layer,
                    "The layer of " + name + ", where their data holds several")
        ->needs(option);
    command_
        .add_option(LayerOption(name, "where"), layer.where, "Take only the " + name + " that meet this SQL condition")
        ->needs(option);
  }

  CLI::Option* AddPlace(const ToolParameter& parameter) {
    return command_
        .add_option(OptionName(parameter.name), options_.output.text, HelpOf(parameter) + ": " + kOutputHelp)
        ->required(parameter.required);
  }

  void AddCopy(const ToolParameter& parameter) {
    AddPlace(parameter)->type_name("COPY");
    command_.add_flag("--only-selected", options_.only_selected,
                      "Copy only the records that meet --where, or that are selected in the document");
    AddFormatOption(command_, options_.output);
    AddReferenceOption(command_, options_.output);
  }

  void AddOutput(const ToolParameter& parameter) {
    AddPlace(parameter);
    // The format's option stands after the reference's, where a parameter is that.
    if (spec_.reference == ToolReference::Chosen) return;
    AddFormatOption(command_, options_.output);
    if (spec_.reference == ToolReference::SourceAlone) {
      AddRefusedReferenceOption(command_, options_.output);
    } else {
      AddReferenceOption(command_, options_.output);
    }
  }

  void Relate(const ToolParameter& parameter) {
    const auto own = made_.find(std::string(parameter.name));
    if (own == made_.end()) return;
    if (!parameter.needs.empty()) own->second->needs(made_.at(std::string(parameter.needs)));
    if (!parameter.excludes.empty()) own->second->excludes(made_.at(std::string(parameter.excludes)));
  }

  CLI::App& command_;
  const ToolSpec& spec_;
  ToolOptions& options_;
  std::map<std::string, CLI::Option*> made_;
};

double ReadNumber(const ToolParameter& parameter, const std::string& text) {
  // A comma would be read as a separator of thousands.
  const auto number = text.find(',') == std::string::npos ? OptionNumber(text) : std::nullopt;
  if (number && std::isfinite(*number) && (!parameter.least || *number >= *parameter.least)) return *number;
  std::string wanted = parameter.unit == "degrees" ? " of degrees" : "";
  if (parameter.least) wanted = " of " + NumberText(*parameter.least) + " or more with a decimal point";
  throw Refusal("--" + std::string(parameter.name) + ": '" + Trim(text) + "' is no number" + wanted + ".");
}

void ReadTexts(const ToolParameter& parameter, const std::vector<std::string>& texts, Arguments& arguments) {
  switch (parameter.kind) {
    case ParameterKind::Fields:
      arguments.Set(parameter.name, texts);
      return;
    case ParameterKind::Measures: {
      std::vector<ToolMeasure> measures;
      for (const std::string& text : texts) measures.push_back(ReadMeasure(text));
      arguments.Set(parameter.name, std::move(measures));
      return;
    }
    case ParameterKind::Box:
      arguments.Set(parameter.name, SplitAtCommas(texts.front()));
      return;
    case ParameterKind::Number:
      arguments.Set(parameter.name, ReadNumber(parameter, texts.front()));
      return;
    case ParameterKind::Texts:
      arguments.Set(parameter.name, texts);
      return;
    case ParameterKind::Reference:
      arguments.Set(parameter.name, ReadReference("--" + std::string(parameter.name), texts.front()));
      return;
    default:
      arguments.Set(parameter.name, texts.front());
  }
}

}  // namespace

std::vector<const ITool*> AllToolsOfSuite() {
  return CreateComponentAs<IToolCatalog>("Tessarine.clsToolCatalog", "IToolCatalog")->Tools();
}

const ITool& ToolNamed(std::string_view name) {
  for (const ITool* tool : AllToolsOfSuite()) {
    if (tool->Spec().name == name) return *tool;
  }
  Raise(kInvalidCall, "The suite has no tool '" + std::string(name) + "'.");
}

CLI::App& AddToolCommand(CLI::App& parent, const ToolSpec& spec, ToolOptions& options) {
  const std::string name(spec.name.substr(spec.name.rfind(' ') + 1));
  const std::string text(spec.text);
  CLI::App& command = spec.works_on == ToolSubject::Document
                          ? AddDocumentCommand(parent, name.c_str(), text.c_str(), options.common)
                          : *parent.add_subcommand(name, text);
  OptionAdder(command, spec, options).AddAll();
  const std::string note = spec.note.empty() ? "" : ObjectionText({"", std::string(spec.note)}) + "\n\n";
  command.footer(note + "Example:\n  " + std::string(spec.example));
  return command;
}

ToolMeasure ReadMeasure(const std::string& text) {
  const std::size_t equals = text.find('=');
  ToolMeasure measure{Trim(text.substr(0, equals)), {}};
  if (equals != std::string::npos) measure.fields = SplitAtCommas(text.substr(equals + 1));
  return measure;
}

Arguments ReadArguments(const ToolSpec& spec, const ToolOptions& options) {
  if (spec.reference == ToolReference::SourceAlone) {
    RefuseReference(options.output, std::string(spec.why_no_other_reference));
  }
  Arguments arguments;
  for (const ToolParameter& parameter : spec.parameters) {
    if (const auto texts = options.texts.find(parameter.name); texts != options.texts.end() && !texts->second.empty()) {
      ReadTexts(parameter, texts->second, arguments);
    }
    if (const auto flag = options.flags.find(parameter.name); flag != options.flags.end() && flag->second) {
      arguments.Set(parameter.name, true);
    }
  }
  return arguments;
}

std::string ObjectionText(const Objection& objection) {
  const auto written = [](std::string_view parameter) {
    const auto* found = std::ranges::find(kLetters, parameter, &Letter::parameter);
    const bool by_letter = found != std::end(kLetters) && found->telling == Letter::kByLetter;
    return by_letter ? std::string("-") + found->letter : "--" + std::string(parameter);
  };
  return (objection.parameter.empty() ? "" : "--" + objection.parameter + ": ") + SentenceOf(objection, written);
}

}  // namespace tessarine
