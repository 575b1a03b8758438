// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/results/terminal_lines.h"

#include "hosts/document/component_loader.h"
#include "hosts/qgis/layers.h"
#include "hosts/qgis/results/layer_words.h"
#include "platform/spheroid_catalog.h"

namespace tessarine::qgis {
namespace {

// In the order in which commands look names up.
std::vector<ToolSpheroid> SpheroidsOfCommands() {
  const auto catalog = CreateComponentAs<ISpheroidCatalog>("Tessarine.clsSpheroidCatalog", "ISpheroidCatalog");
  std::vector<ToolSpheroid> all;
  for (const SpheroidList list : {SpheroidList::Custom, SpheroidList::Planets, SpheroidList::Earth}) {
    for (const NamedSpheroid& spheroid : catalog->Spheroids(list)) {
      all.push_back({spheroid.name, spheroid.semi_major_axis, spheroid.semi_minor_axis});
    }
  }
  return all;
}

ReadRows RowsRead(const ToolSpec& spec, ToolRecords records, const QgsVectorLayer& layer) {
  if (spec.whole_layers || records == ToolRecords::All) return ReadRows::All;
  return records == ToolRecords::Selected || layer.selectedFeatureCount() > 0 ? ReadRows::Selected : ReadRows::All;
}

}  // namespace

LineOfRun::LineOfRun(const ITool& tool, Arguments arguments, Writes writes)
    : tool_(tool), arguments_(std::move(arguments)), writes_(writes) {
  words_.spheroids = SpheroidsOfCommands();
  for (const ToolParameter& parameter : tool.Spec().parameters) {
    if (parameter.kind != ParameterKind::Layer || !arguments_.Has(parameter.name)) continue;
    const auto layer = Cast<VectorLayer>(arguments_.Get<std::shared_ptr<IFeatureLayer>>(parameter.name));
    if (!layer || layer->Shown() == nullptr) continue;
    const bool is_source = parameter.name == kSourceParameter;
    const ToolRecords records = is_source ? arguments_.records : arguments_.label_records;
    SetLayer(parameter.name, WordsOf(*layer->Shown(), RowsRead(tool.Spec(), records, *layer->Shown())));
  }
}

void LineOfRun::SetLayer(std::string_view parameter, LayerWords words) {
  words_.layers.insert_or_assign(std::string(parameter), std::move(words));
}

void LineOfRun::SetOutput(const std::string& output) {
  if (output.empty() || writes_ == Writes::Source) return;
  words_.output = output.starts_with('/') ? output : std::string(tool_.Spec().name) + ".gpkg";
}

TerminalLine LineOfRun::Line() const {
  if (tool_.Spec().works_on == ToolSubject::Document) {
    return {"", "No line at the terminal does the same: the graphics lie in the project alone."};
  }
  if (writes_ == Writes::Output && words_.output.empty()) {
    return {"", "No line at the terminal does the same: the run made no output."};
  }
  return TerminalLineOf(tool_.Spec(), arguments_, words_);
}

}  // namespace tessarine::qgis
