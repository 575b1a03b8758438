// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/document_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "hosts/document/document_layer.h"
#include "hosts/document/geometry_json.h"
#include "hosts/document/json_reading.h"
#include "hosts/document/settings_stream.h"

namespace tessarine {
namespace {

using nlohmann::json;
namespace fs = std::filesystem;

constexpr const char* kFormat = "tessarine map document";
constexpr int kMaximumGroupDepth = 32;

constexpr const char* kDocumentMembers[] = {"format", "host version", "active view", "map", "layout", "settings"};
constexpr const char* kMapMembers[] = {"name", "reference", "extent", "layers", "tables", "graphics"};
constexpr const char* kLayoutMembers[] = {"extent", "graphics"};
constexpr const char* kGroupMembers[] = {"name", "visible", "chosen", "members"};
constexpr const char* kLayerMembers[] = {"name",  "visible", "chosen", "source",
                                         "layer", "symbol",  "fields", "selection"};
constexpr const char* kFieldMembers[] = {"alias", "visible"};
constexpr const char* kTableMembers[] = {"name", "source", "layer"};
constexpr const char* kElementMembers[] = {"kind", "name", "selected", "symbol", "content", "shape", "members"};
constexpr const char* kShapeMembers[] = {"type", "at", "points", "parts"};

// A path of a document's file, as this program can open it.
std::string SeenFrom(const fs::path& folder, const fs::path& path) {
  return path.is_absolute() ? path.string() : (folder / path).lexically_normal().string();
}

// --- Reading ---------------------------------------------------------------------------------------------------

class DocumentReader {
 public:
  DocumentReader(MapDocument& document, std::string folder) : document_(document), folder_(std::move(folder)) {}

  void Read(const JsonPlace& root) {
    if (root.Member("format").Text() != kFormat) root.Member("format").Fail("\"" + std::string(kFormat) + "\"");
    document_.host_version = root.TextOr("host version", document_.host_version);
    if (root.Has("map")) ReadMap(root.Member("map"));
    if (root.Has("layout")) {
      ReadView(root.Member("layout"), document_.Layout());
      document_.Layout().others = OtherMembers(root.Member("layout").Value(), kLayoutMembers);
    }
    const std::string active = root.TextOr("active view", "map");
    if (active != "map" && active != "layout") root.Member("active view").Fail("\"map\" or \"layout\"");
    document_.SetLayoutActive(active == "layout");
    if (root.Has("settings")) {
      root.Member("settings").ForEach([&](const JsonPlace& item) {
        document_.settings.push_back(SettingFromJson(item));
      });
    }
    document_.others = OtherMembers(root.Value(), kDocumentMembers);
  }

 private:
  void ReadMap(const JsonPlace& place) {
    DocumentMap& map = document_.Map();
    map.SetName(place.TextOr("name", map.Name()));
    if (place.Has("reference")) {
      const std::string text = place.Member("reference").Text();
      map.SetSpatialReference(SpatialReferenceEnvironment::CreateFromText(text), text);
    }
    if (place.Has("layers")) {
      place.Member("layers").ForEach([&](const JsonPlace& item) { map.AppendLayer(ReadLayer(item, 0)); });
    }
    if (place.Has("tables")) {
      place.Member("tables").ForEach([&](const JsonPlace& item) {
        const auto table = std::make_shared<DocumentTable>(item.Member("name").Text(), ReadSource(item));
        table->others = OtherMembers(item.Value(), kTableMembers);
        map.AddTable(table);
      });
    }
    ReadView(place, map);
    map.others = OtherMembers(place.Value(), kMapMembers);
  }

  void ReadView(const JsonPlace& place, DocumentView& view) {
    if (place.Has("extent")) view.SetExtent(ReadExtent(place.Member("extent")));
    if (place.Has("graphics")) {
      place.Member("graphics").ForEach([&](const JsonPlace& item) { view.AddElement(ReadElement(item, 0)); });
    }
  }

  static Envelope ReadExtent(const JsonPlace& place) {
    if (place.Count() != 4) place.Fail("four numbers: west, south, east, north");
    return {place.Item(0).Number(), place.Item(1).Number(), place.Item(2).Number(), place.Item(3).Number()};
  }

  LayerSource ReadSource(const JsonPlace& place) const {
    const std::string written = place.Member("source").Text();
    return {SeenFrom(folder_, written), place.TextOr("layer", ""), written};
  }

  std::shared_ptr<ILayer> ReadLayer(const JsonPlace& place, int depth) {
    const std::string name = place.Member("name").Text();
    std::shared_ptr<ILayer> layer = place.Has("members") ? ReadGroup(place, name, depth) : ReadFeatures(place, name);
    layer->SetVisible(place.FlagOr("visible", true));
    if (place.FlagOr("chosen", false)) document_.SetSelectedLayer(layer);
    return layer;
  }

  std::shared_ptr<ILayer> ReadGroup(const JsonPlace& place, const std::string& name, int depth) {
    if (depth == kMaximumGroupDepth) place.Fail("nested less deeply");
    auto group = std::make_shared<DocumentGroupLayer>(name);
    place.Member("members").ForEach(
        [&](const JsonPlace& item) { group->members.push_back(ReadLayer(item, depth + 1)); });
    group->others = OtherMembers(place.Value(), kGroupMembers);
    return group;
  }

  std::shared_ptr<ILayer> ReadFeatures(const JsonPlace& place, const std::string& name) {
    auto layer = std::make_shared<DocumentFeatureLayer>(name, ReadSource(place));
    if (place.Has("symbol")) {
      auto renderer = std::make_shared<DocumentRenderer>();
      renderer->SetSymbol(std::make_shared<DocumentSymbol>(place.Member("symbol").Text()));
      layer->SetRenderer(renderer);
    }
    if (place.Has("fields")) {
      const JsonPlace fields = place.Member("fields");
      if (!fields.Value().is_object()) fields.Fail("an object");
      for (const auto& [field, value] : fields.Value().items()) {
        const JsonPlace info(value, fields.Path() + "." + field);
        layer->SetFieldInfo(field, {info.TextOr("alias", field), info.FlagOr("visible", true)});
        layer->field_others[field] = OtherMembers(value, kFieldMembers);
      }
    }
    if (place.Has("selection")) {
      std::vector<std::int64_t> oids;
      place.Member("selection").ForEach([&](const JsonPlace& item) { oids.push_back(item.Whole()); });
      layer->SetSelectedOids(std::move(oids));
    }
    layer->others = OtherMembers(place.Value(), kLayerMembers);
    return layer;
  }

  std::shared_ptr<GraphicElement> ReadElement(const JsonPlace& place, int depth) {
    if (depth == kMaximumGroupDepth) place.Fail("nested less deeply");
    std::shared_ptr<GraphicElement> element = MakeElement(place.Member("kind").Text());
    if (!element) place.Member("kind").Fail("one of: " + ElementKinds());
    element->SetName(place.TextOr("name", ""));
    element->selected = place.FlagOr("selected", false);
    element->content = place.TextOr("content", "");
    if (place.Has("symbol")) element->drawn_with = std::make_shared<DocumentSymbol>(place.Member("symbol").Text());
    if (place.Has("shape")) {
      const JsonPlace shape = place.Member("shape");
      element->shape = GeometryFromJson(shape.Value(), shape.Path());
      element->shape_others = OtherMembers(shape.Value(), kShapeMembers);
    }
    element->others = OtherMembers(place.Value(), kElementMembers);
    const auto group = Cast<GroupElement>(element);
    if (group && place.Has("members")) {
      place.Member("members").ForEach(
          [&](const JsonPlace& item) { group->members.push_back(ReadElement(item, depth + 1)); });
    }
    return element;
  }

  MapDocument& document_;
  std::string folder_;
};

// --- Writing ---------------------------------------------------------------------------------------------------

class DocumentWriter {
 public:
  DocumentWriter(const MapDocument& document, std::string folder) : document_(document), folder_(std::move(folder)) {}

  json Write() const {
    json root = {{"format", kFormat},
                 {"host version", document_.host_version},
                 {"active view", document_.LayoutActive() ? "layout" : "map"},
                 {"map", WriteMap()},
                 {"layout", json::object()}};
    WriteView(document_.Layout(), root["layout"]);
    if (!document_.settings.empty()) {
      root["settings"] = json::array();
      for (const Variant& value : document_.settings) root["settings"].push_back(SettingToJson(value));
    }
    document_.others.AddTo(root);
    return root;
  }

 private:
  json WriteMap() const {
    const DocumentMap& map = document_.Map();
    json result = {{"name", map.Name()}, {"layers", json::array()}};
    if (const std::string text = map.OwnReferenceText(); !text.empty()) result["reference"] = text;
    for (const auto& layer : map.AllLayers()) result["layers"].push_back(WriteLayer(layer));
    for (std::int32_t index = 0; index < map.StandaloneTableCount(); ++index) {
      const auto table = Cast<DocumentTable>(map.StandaloneTable(index));
      json entry = {{"name", table->Name()}};
      WriteSource(table->Source(), entry);
      table->others.AddTo(entry);
      result["tables"].push_back(entry);
    }
    WriteView(map, result);
    return result;
  }

  void WriteView(const DocumentView& view, json& result) const {
    const Envelope extent = view.Extent();
    if (!extent.IsEmpty()) result["extent"] = {extent.XMin(), extent.YMin(), extent.XMax(), extent.YMax()};
    result["graphics"] = json::array();
    for (const auto& element : view.Elements()) result["graphics"].push_back(WriteElement(*element));
    view.others.AddTo(result);
  }

  void WriteSource(const LayerSource& source, json& result) const {
    const fs::path relative = fs::path(source.path).lexically_relative(folder_);
    const bool below = !relative.empty() && *relative.begin() != "..";
    const bool same = !source.written.empty() && SeenFrom(folder_, source.written) == source.path;
    result["source"] = same ? source.written : below ? relative.string() : source.path;
    if (!source.layer.empty()) result["layer"] = source.layer;
  }

  json WriteLayer(const std::shared_ptr<ILayer>& layer) const {
    json result = {{"name", layer->Name()}};
    if (const auto group = Cast<DocumentGroupLayer>(layer)) {
      result["visible"] = group->Visible();
      result["members"] = json::array();
      for (const auto& member : group->members) result["members"].push_back(WriteLayer(member));
      group->others.AddTo(result);
    } else if (const auto features = Cast<DocumentFeatureLayer>(layer)) {
      WriteFeatures(*features, result);
    }
    if (layer == document_.SelectedLayer()) result["chosen"] = true;
    return result;
  }

  void WriteFeatures(const DocumentFeatureLayer& layer, json& result) const {
    result["visible"] = layer.Visible();
    WriteSource(layer.Source(), result);
    for (const auto& [field, info] : layer.FieldInfos()) {
      json& entry = result["fields"][field] = {{"alias", info.Alias}, {"visible", info.Visible}};
      const auto others = layer.field_others.find(field);
      if (others != layer.field_others.end()) others->second.AddTo(entry);
    }
    if (const auto renderer = Cast<DocumentRenderer>(layer.Renderer())) {
      const auto symbol = Cast<DocumentSymbol>(renderer->Symbol());
      if (symbol) result["symbol"] = symbol->definition;
    }
    const std::vector<std::int64_t> selected = layer.SelectedOids();
    if (!selected.empty()) result["selection"] = selected;
    layer.others.AddTo(result);
  }

  static json WriteElement(const GraphicElement& element) {
    json result = {{"kind", element.Kind()}};
    if (!element.Name().empty()) result["name"] = element.Name();
    if (element.selected) result["selected"] = true;
    if (!element.content.empty()) result["content"] = element.content;
    const auto symbol = Cast<DocumentSymbol>(element.drawn_with);
    if (symbol) result["symbol"] = symbol->definition;
    if (element.shape) {
      result["shape"] = GeometryToJson(*element.shape);
      element.shape_others.AddTo(result["shape"]);
    }
    element.others.AddTo(result);
    if (const auto* group = dynamic_cast<const GroupElement*>(&element)) {
      result["members"] = json::array();
      for (const auto& member : group->members) result["members"].push_back(WriteElement(*member));
    }
    return result;
  }

  const MapDocument& document_;
  std::string folder_;
};

std::string FolderOf(const std::string& native_path) {
  return fs::absolute(native_path).parent_path().lexically_normal().string();
}

// The file behind a name that may be a link, so that the link stays one.
fs::path FileBehind(const std::string& native_path) {
  std::error_code error;
  const fs::path file = fs::canonical(native_path, error);
  return error ? fs::path(native_path) : file;
}

// Makes a file that wasn't there, named after the target; empty when none can be made.
fs::path NewFileBeside(const fs::path& target) {
  constexpr int kMostTries = 1000;
  constexpr mode_t kForAllBy = 0666;  // the user's mask takes off what it must
  for (int number = 1; number <= kMostTries; ++number) {
    fs::path draft = target.string() + ".part" + (number == 1 ? "" : std::to_string(number));
    const int file = open(draft.c_str(), O_WRONLY | O_CREAT | O_EXCL, kForAllBy);
    if (file >= 0) {
      close(file);
      return draft;
    }
    if (errno != EEXIST) break;
  }
  return {};
}

// Replaces the file as a whole; who may read and write it stays. False when that can't be done.
bool ReplaceFile(const fs::path& target, const std::string& text) {
  std::error_code error;
  const fs::file_status before = fs::status(target, error);
  if (fs::exists(before) && access(target.c_str(), W_OK) != 0) return false;
  const fs::path draft = NewFileBeside(target);
  if (draft.empty()) return false;
  std::ofstream file(draft, std::ios::binary | std::ios::trunc);
  if (fs::exists(before)) fs::permissions(draft, before.permissions(), error);
  file << text;
  file.close();
  if (file) fs::rename(draft, target, error);
  if (file && !error) return true;
  fs::remove(draft, error);
  return false;
}

}  // namespace

std::shared_ptr<MapDocument> ReadDocumentText(std::string_view text, const std::string& folder) {
  json root;
  try {
    root = json::parse(text);
  } catch (const json::parse_error& error) {
    Raise(kInvalidCall, "It is no JSON: byte " + std::to_string(error.byte) + " can't be read.");
  } catch (const json::out_of_range&) {
    Raise(kInvalidCall, "It is no JSON that can be used: a number in it is too large.");
  }
  auto document = std::make_shared<MapDocument>();
  DocumentReader(*document, folder).Read(JsonPlace(root, ""));
  return document;
}

std::shared_ptr<MapDocument> ReadDocumentFile(const std::string& native_path) {
  std::ifstream file(native_path, std::ios::binary);
  if (!file) Raise(kPathNotFound, "The map document '" + native_path + "' can't be opened: check its name.");
  std::ostringstream text;
  text << file.rdbuf();
  try {
    auto document = ReadDocumentText(text.str(), FolderOf(native_path));
    document->path = native_path;
    return document;
  } catch (const Fault& fault) {
    Raise(fault.Number(), "The map document '" + native_path + "' can't be read. " + fault.Description());
  }
}

std::string WriteDocumentText(const MapDocument& document, const std::string& folder) {
  try {
    return DocumentWriter(document, folder).Write().dump(2) + "\n";
  } catch (const json::type_error&) {
    Raise(kInvalidCall, "The map document can't be written: a name or path in it is no UTF-8 text.");
  }
}

void WriteDocumentFile(const MapDocument& document) {
  const std::string text = WriteDocumentText(document, FolderOf(document.path));
  if (ReplaceFile(FileBehind(document.path), text)) return;
  Raise(kPathNotFound, "The map document '" + document.path +
                           "' can't be written: check that its folder exists, that both are writable, and that there "
                           "is room.");
}

}  // namespace tessarine
