// SPDX-License-Identifier: GPL-2.0-or-later
// What a tool is, as data, and how it is run.
//
// A `ToolSpec` says once what a tool is called, what it takes and what comes out. Every face reads it: the terminal
// makes its options from it, a toolbox its parameters, a script its functions. `Arguments` carry what somebody chose,
// by the names of the parameters; a dialog is one more way to fill them. `Validate` tells what stands against a run in
// the words that every face shows, and `Run` does the work:
//
//   const ITool& tool = *catalog->Tools().front();
//   Arguments arguments;
//   arguments.Set("source", layer);
//   arguments.Set("fields", std::vector<std::string>{"name"});
//   arguments.Set("output", ToolOutput{.kind = kShapefile, .directory = "\\data", .name = "vertex.shp"});
//   if (const auto objection = tool.Validate(arguments, application)) ...
//   const std::string report = tool.Run(context, arguments, application);
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/application.h"
#include "platform/run_context.h"

namespace tessarine {

/// What the value of a parameter is, and as what `Arguments` carry it.
enum class ParameterKind : std::uint8_t {
  Layer,     ///< features to read: `std::shared_ptr<IFeatureLayer>`
  Fields,    ///< fields of a layer, by name or by the alias that the layer shows: texts
  Number,    ///< `double`
  Box,       ///< west, south, east and north as somebody wrote them: four texts
  Choice,    ///< one of the words of the parameter: text
  Flag,      ///< `bool`; not given is false
  Spheroid,  ///< one of the catalogue by name or code, or two radii: `ToolSpheroid`
  Measures,  ///< measures of the layer, each with its fields: `ToolMeasure`s
  Output,    ///< the new class, or the copy that a tool works on instead of its source: `ToolOutput`
  Shapes,    ///< the shapes of a new class, one of the words of the parameter: text
  Text,      ///< words of the user's own: text
  Texts,     ///< several of them: texts
  Reference  ///< a spatial reference: `SpatialReferenceRef`
};

struct ToolParameter {
  std::string_view name;  ///< of the argument and of the option, as "label-fields"
  ParameterKind kind;
  std::string_view text;  ///< what it does, in words without a full stop
  bool required = false;
  std::string_view unit = {};                  ///< of a number
  std::optional<double> least = std::nullopt;  ///< that a number may be
  std::vector<std::string_view> choices = {};  ///< of a choice
  std::string_view otherwise = {};             ///< what is done where it isn't given, in words
  std::string_view of = {};                    ///< the parameter of the layer that the fields or measures are of
  std::string_view needs = {};                 ///< a parameter without which this one can't be given
  std::string_view excludes = {};              ///< a parameter beside which this one can't be given
  std::vector<esriGeometryType> shapes = {};   ///< that a layer may be of
  bool remembered = false;                     ///< where it isn't given, what the map document remembers is taken
  bool by_place = false;                       ///< command lines give it by its place, without its name
};

/// Which reference the coordinates of an output bear.
enum class ToolReference : std::uint8_t {
  Source,       ///< that of the source; the output can be brought to another on the way out
  Geographic,   ///< degrees on the spheroid of the source; the output can be brought to another
  SourceAlone,  ///< that of the source, and no other would make sense: `why_no_other_reference` says why
  Chosen,       ///< that of the parameter "reference", or else the map's
  None,         ///< there are no new coordinates
};

/// What a tool works on.
enum class ToolSubject : std::uint8_t {
  Layers,    ///< features of the parameters that are layers: any program that has such can run it
  Document,  ///< the map document with its graphic elements and its view, which it may change
};

/// What the features of the new class stand for, by which a face may choose how to show them.
enum class ToolResult : std::uint8_t {
  Features,  ///< the features of the source themselves, or parts of them
  Vertices,  ///< the corners of shapes
  Centers,   ///< one place for each feature
  Outlines,  ///< what bounds areas
  Regions,   ///< areas that lines bound
  Moved,     ///< the features of the source at other coordinates
};

struct ToolSpec {
  std::string_view name;        ///< in commands: "label-points", or after the word of a group: "graphics select"
  std::string_view title;       ///< for people: "Polygons to Label Points"
  std::string_view text;        ///< what it does, in words without a full stop
  std::string_view takes;       ///< the layers that it works on: "polylines, polygons or multipoints"
  std::string_view makes;       ///< what comes out, a sentence
  std::string_view class_name;  ///< of the command that opens its dialog: "clsConvertLabelpoint"
  std::vector<ToolParameter> parameters;
  ToolSubject works_on = ToolSubject::Layers;
  ToolResult result = ToolResult::Features;
  ToolReference reference = ToolReference::Source;
  std::string_view why_no_other_reference = {};
  std::vector<std::string_view> one_of = {};  ///< parameters of which one must be given, or be remembered by a document
  std::string_view without_one_of = {};       ///< what stands against a run without any, as an `Objection` says it
  bool whole_layers = false;                  ///< it reads all records of a layer, whatever is selected
  bool several_sources = true;                ///< it can be run over one source after the other
  bool renames = false;                       ///< a run whose output's name is taken takes another one, and doesn't ask
  bool spreads = false;                       ///< its work can be spread over threads
  bool asks = false;                          ///< it may ask before it begins, though it makes no output
  std::string_view note = {};                 ///< what else a reader of its help should know: a sentence
  std::string_view example = {};              ///< a command line

  /// It writes into its source, or into a copy where an output is given.
  [[nodiscard]] bool WritesIntoSource() const {
    const ToolParameter* output = Find("output");
    return works_on == ToolSubject::Layers && output != nullptr && !output->required;
  }
  [[nodiscard]] const ToolParameter* Find(std::string_view parameter) const {
    for (const ToolParameter& one : parameters) {
      if (one.name == parameter) return &one;
    }
    return nullptr;
  }
};

/// Where the new class goes. Paths are backslash paths.
struct ToolOutput {
  std::int32_t kind = 0;  ///< of the table of formats; 0 for a folder, in which the tool finds a name
  std::string directory;  ///< the folder or container, without a separator at its end
  std::string dataset;    ///< the feature dataset in it, empty where there is none
  std::string name;       ///< of the class or file; empty for a folder
  std::string path;       ///< the whole, as somebody typed it; empty where the rest says all
};

struct ToolSpheroid {
  std::string name;
  double semi_major = 0.0, semi_minor = 0.0;  ///< metres
};

struct ToolMeasure {
  std::string name;                 ///< its caption, a label of the report, or its option id
  std::vector<std::string> fields;  ///< empty for the ones that are proposed
};

/// Which records of a layer are read, by tools that heed a selection.
enum class ToolRecords : std::uint8_t { SelectedIfAny, All, Selected };

/// What somebody chose, by the names of the parameters. A parameter that isn't there was not given.
class Arguments {
 public:
  using Value = std::variant<bool, double, std::string, std::vector<std::string>, std::shared_ptr<IFeatureLayer>,
                             ToolSpheroid, std::vector<ToolMeasure>, ToolOutput, SpatialReferenceRef>;

  /// Of the source. A tool that works on a copy makes one of the selected records alone where these are named, and else
  /// one of all.
  ToolRecords records = ToolRecords::SelectedIfAny;
  ToolRecords label_records = ToolRecords::SelectedIfAny;  ///< of a layer of label points
  bool confirmed = false;  ///< somebody agreed already to what the tool would ask, but for the output's place

  void Set(std::string_view name, Value value) { values_.insert_or_assign(std::string(name), std::move(value)); }
  [[nodiscard]] bool Has(std::string_view name) const { return values_.contains(name); }

  /// The value; null where it wasn't given. A value of another type is a fault of the face that set it: 13.
  template <class Type>
  [[nodiscard]] const Type* Find(std::string_view name) const {
    const auto found = values_.find(name);
    if (found == values_.end()) return nullptr;
    const Type* value = std::get_if<Type>(&found->second);
    if (value == nullptr) Raise(kTypeMismatch, "The argument '" + std::string(name) + "' is of another type.");
    return value;
  }
  template <class Type>
  [[nodiscard]] Type Get(std::string_view name, Type otherwise = {}) const {
    const Type* value = Find<Type>(name);
    return value != nullptr ? *value : std::move(otherwise);
  }

 private:
  std::map<std::string, Value, std::less<>> values_;
};

/// What stands against a run: the parameter that it is about, and a sentence that says what to do. Parameters that it
/// names stand in braces, as "{range}": each face writes them in its own way.
struct Objection {
  enum Telling : std::uint8_t {
    kToldAlone,
    kToldByPlan,  ///< a plan can be made all the same, and tells it
    kAsked,       ///< the text is a question; who agrees to it sets `Arguments::confirmed`, and the run may begin
  };

  std::string parameter;  ///< empty where it is about none in particular
  std::string text;
  std::string title = {};  ///< of the message that tells the text alone; empty where no dialog can come to it
  Telling telling = kToldAlone;
};

/// Its sentence, with the parameters as a face writes them.
[[nodiscard]] std::string SentenceOf(const Objection& objection,
                                     const std::function<std::string(std::string_view parameter)>& written);

/// What a field holds that a run makes or fills.
struct FieldMeaning {
  std::string field;
  std::string text;          ///< "Spheroidal Length"
  std::string unit;          ///< "metres"; empty for counts
  bool on_spheroid = false;  ///< the value depends on the spheroid of the run
};

class ITool : public virtual Object {
 public:
  [[nodiscard]] virtual const ToolSpec& Spec() const = 0;
  /// What stands against a run of these arguments; empty where it may begin. It looks at layers and folders and
  /// changes nothing.
  [[nodiscard]] virtual std::optional<Objection> Validate(const Arguments& arguments,
                                                          const std::shared_ptr<IApplication>& application) const = 0;
  /// Carries the run out and returns its report as RTF; empty where a message has told all. What the map document
  /// remembers of a run is left in the application's extension. Faults end in the report and the journal.
  [[nodiscard]] virtual std::string Run(RunContext& context, const Arguments& arguments,
                                        const std::shared_ptr<IApplication>& application) const = 0;
  /// What such a run would read, make and ask, as a report: nothing is written.
  [[nodiscard]] virtual std::string Plan(RunContext& context, const Arguments& arguments,
                                         const std::shared_ptr<IApplication>& application) const = 0;
  /// What the fields hold that such a run makes or fills with measures, under the names that it asks for.
  [[nodiscard]] virtual std::vector<FieldMeaning> Meanings(const Arguments&) const { return {}; }
};

/// Told of the runs that commands begin. An application may be one.
class IRunWatcher : public virtual Object {
 public:
  /// The arguments are what the dialog was left with; nothing is written yet.
  virtual void RunBegins(const ITool& tool, const Arguments& arguments) = 0;
  /// The run that began last has ended; its report comes next, if there is one.
  virtual void RunEnded(const RunJournal& journal, const std::string& report) = 0;
};

/// The tools of the suite: the component "Tessarine.clsToolCatalog".
class IToolCatalog : public virtual Object {
 public:
  /// In the order of the menus. They live as long as the program.
  [[nodiscard]] virtual std::vector<const ITool*> Tools() const = 0;
  /// Shows a report in the window in which commands show theirs, and waits.
  virtual void ShowReport(const std::string& report) const = 0;
};

}  // namespace tessarine
