// The conversions of features: vertices.
#include <CLI/CLI.hpp>
#include <memory>

#include "engine/data_source.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/layer_source.h"
#include "hosts/terminal/output_place.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/report_output.h"
#include "hosts/terminal/session.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

struct ConversionRow {
  const char* name;
  const char* class_id;
  const char* description;
  const char* takes;    ///< the shapes that the tool takes, in words
  const char* example;
};

constexpr ConversionRow kConversions[] = {
    {"vertices", "Tessarine.clsShapesToVertices", "One point for each vertex of lines, polygons and multipoints",
     "polylines, polygons or multipoints",
     "tessarine vertices tests/data/countries.shp --fields name,pop_est -o vertex.shp"},
};

struct ConversionOptions {
  CommonOptions common;
  SourceOptions source;
  std::string output;
  std::vector<std::string> fields;
  bool all_fields = false;
};

// Answers the dialog of the conversions.
class LayerFieldsScript final : public FormScript {
 public:
  LayerFieldsScript(const ConversionRow& row, const ConversionOptions& options, const DocumentFeatureLayer& layer,
                    const OutputPlace& output)
      : row_(row), options_(options), layer_(layer), output_(output) {}

  void Answer(Form& form) override {
    ChooseLayer(Control<ListBox>(form, "lbxLayers"));
    ChooseFields(Control<ListBox>(form, "lbxFields"));
    ChooseOutput(form);
    Control<CommandButton>(form, "cmdOK").Press();
  }

 private:
  template <class Kind>
  static Kind& Control(Form& form, const char* name) {
    auto* control = form.FindAs<Kind>(name);
    if (control == nullptr) Raise(kInvalidCall, std::string("The form has no control '") + name + "'.");
    return *control;
  }

  static std::int32_t FindLine(const ListBox& list, const std::string& text) {
    for (std::int32_t line = 0; line < list.ListCount(); ++line) {
      if (EqualsIgnoringCase(list.List(line), text)) return line;
    }
    return -1;
  }

  void ChooseLayer(ListBox& list) const {
    const std::int32_t line = FindLine(list, layer_.Name());
    if (line < 0) {
      throw Refusal("The layer '" + layer_.Name() + "' is of the wrong kind: '" + row_.name + "' takes " + row_.takes +
                    ".");
    }
    list.SetListIndex(line);
  }

  // A field is named by its name or by the alias that the layer shows.
  std::int32_t FindFieldLine(const ListBox& list, const std::string& name) const {
    const std::int32_t line = FindLine(list, name);
    if (line >= 0) return line;
    const std::int32_t index = layer_.FindField(name);
    return index < 0 ? -1 : FindLine(list, layer_.FieldInfo(index).Alias);
  }

  void ChooseFields(ListBox& list) const {
    for (std::int32_t line = 0; line < list.ListCount(); ++line) list.SetSelected(line, options_.all_fields);
    for (const std::string& name : options_.fields) {
      const std::int32_t line = FindFieldLine(list, name);
      if (line < 0) {
        std::string offered;
        for (std::int32_t other = 0; other < list.ListCount(); ++other) {
          offered += (other == 0 ? "" : ", ") + list.List(other);
        }
        throw Refusal("--fields: '" + layer_.Name() + "' has no field '" + name + "'. It has: " +
                      (offered.empty() ? "none that can be carried over" : offered) + ".");
      }
      list.SetSelected(line, true);
    }
  }

  void ChooseOutput(Form& form) const {
    auto& text = Control<TextBox>(form, "txtOutput");
    if (output_.InGeodatabase()) {
      Control<CommandButton>(form, "cmdGetWorkspace").Press();
    } else if (output_.kind == OutputPlace::Kind::Folder) {
      // The proposal's own name, in the folder that was named.
      const std::string proposal = text.Text();
      const std::string name = proposal.substr(proposal.rfind('\\') + 1);
      text.SetText(FromNativePath(output_.container) + "\\" + name);
    } else {
      text.SetText(FromNativePath(output_.NativePath()));
    }
  }

  const ConversionRow& row_;
  const ConversionOptions& options_;
  const DocumentFeatureLayer& layer_;
  const OutputPlace& output_;
};

void RefuseTakenName(const OutputPlace& place, const CommonOptions& options) {
  const TerminalManners manners = options.Manners();
  if (manners.overwrite || manners.yes || manners.interactive || manners.plan_only) return;
  if (OutputExists(place)) {
    throw Refusal("'" + place.NativePath() + "' exists already: add --overwrite to replace it, or name another.");
  }
}

// Coordinates keep the input's reference, so a dataset in another one can't take them.
void CheckDataset(const OutputPlace& place, const DocumentFeatureLayer& layer) {
  if (place.kind != OutputPlace::Kind::FileGeodatabase || place.dataset.empty()) return;
  const SpatialReferenceRef own = FeatureDatasetReference(place.container, place.dataset);
  if (own && !own->IsEqual(*layer.SpatialReference())) {
    throw Refusal("The feature dataset '" + place.dataset + "' is in '" + own->Name() + "', but '" + layer.Name() +
                  "' in '" + layer.SpatialReference()->Name() + "': name another dataset, or none.");
  }
}

ExitStatus RunConversionCommand(const ConversionRow& row, const ConversionOptions& options) {
  CheckReportFile(options.common.report_file);
  const OutputPlace place = ParseOutputPlace(options.output);
  Session session(options.common);
  const std::shared_ptr<DocumentFeatureLayer> layer = TakeLayer(session.Document(), options.source);
  RefuseTakenName(place, options.common);
  CheckDataset(place, *layer);
  const PreparedPlace prepared(place, layer->SpatialReference(), session.Host().LocalSystem(),
                               options.common.dry_run);
  if (place.InGeodatabase()) session.Host().SetBrowsePlace(prepared.Browse());
  LayerFieldsScript script(row, options, *layer, place);
  return session.Run(row.class_id, &script);
}

void AddConversion(const ConversionRow& row, CLI::App& program, ChosenCommand& chosen) {
  auto options = std::make_shared<ConversionOptions>();
  CLI::App& command = *program.add_subcommand(row.name, row.description);
  command.add_option("source", options->source.source, "The data: a path, PATH:LAYER, or a layer of the document")
      ->required();
  command.add_option("-o,--output", options->output,
                     "The new class: NAME.shp, a folder, GEODATABASE.gdb/NAME or GEODATABASE.gdb/DATASET/NAME")
      ->required();
  command.add_option("-l,--layer", options->source.layer, "The layer, where the data holds several");
  command.add_option("-w,--where", options->source.where, "Take only the records that meet this SQL condition");
  command.add_option("-f,--fields", options->fields, "The attribute fields to carry over, with commas between")
      ->delimiter(',');
  command.add_flag("-a,--all-fields", options->all_fields, "Carry all attribute fields over");
  AddCommonOptions(command, options->common);
  command.footer(std::string("Example:\n  ") + row.example);
  command.callback([&row, &chosen, options] {
    options->common.command_line = chosen.command_line;
    chosen.run = [&row, options] { return RunConversionCommand(row, *options); };
  });
}

}  // namespace

void AddConversionCommands(CLI::App& program, ChosenCommand& chosen) {
  for (const ConversionRow& row : kConversions) AddConversion(row, program, chosen);
}

}  // namespace tessarine
