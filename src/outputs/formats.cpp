// SPDX-License-Identifier: GPL-2.0-or-later
#include "outputs/formats.h"

#include <algorithm>
#include <array>
#include <deque>
#include <mutex>
#include <vector>

#include "outputs/temporary_layers.h"
#include "platform/free_name.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

using Words = std::string_view;

// What the library that writes file geodatabases doesn't take as the name of a class, and of a field.
constexpr std::array kGeodatabaseWords = {
    Words("add"),   Words("alter"),  Words("and"),    Words("as"),    Words("asc"),    Words("between"),
    Words("by"),    Words("column"), Words("create"), Words("date"),  Words("delete"), Words("desc"),
    Words("drop"),  Words("exists"), Words("for"),    Words("from"),  Words("in"),     Words("insert"),
    Words("into"),  Words("is"),     Words("like"),   Words("not"),   Words("null"),   Words("or"),
    Words("order"), Words("select"), Words("set"),    Words("table"), Words("update"), Words("values"),
    Words("where")};
constexpr auto kGeodatabaseFieldWords = [] {
  std::array<std::string_view, kGeodatabaseWords.size() + 1> words{};
  std::ranges::copy(kGeodatabaseWords, words.begin());
  words.back() = "objectid";
  return words;
}();
constexpr std::array kGeodatabasePrefixes = {Words("sde_"), Words("gdb_"), Words("delta_")};

constexpr NameRule kFileName{200, true, NameRule::Characters::Any, {}, {}};
constexpr NameRule kDbaseField{kDbaseNameLength, true, NameRule::Characters::Any, {}, {}};
constexpr NameRule kGeodatabaseClass{160, false, NameRule::Characters::Word, kGeodatabaseWords, kGeodatabasePrefixes};
// A table beside the class bears its name and twelve letters more, and 64 is the most.
// The last two are of the database's own tables, which other programs hide.
constexpr std::array kPersonalPrefixes = {Words("sde_"), Words("gdb_"), Words("delta_"), Words("msys"), Words("usys")};
constexpr NameRule kPersonalClass{52, false, NameRule::Characters::AsciiWord, kGeodatabaseWords, kPersonalPrefixes};
constexpr NameRule kGeodatabaseField{64, false, NameRule::Characters::Word, kGeodatabaseFieldWords, {}};
// Such columns are read as shapes.
constexpr std::array kShapeColumns = {Words("wkt")};
constexpr std::array kShapeColumnPrefixes = {Words("_wkt")};
// The library writes quotes and line ends of a heading as they are.
constexpr NameRule kTextTableField{1000,    true, NameRule::Characters::Any, kShapeColumns, kShapeColumnPrefixes,
                                   "\"\n\r"};
// What the library calls its own elements.
constexpr std::array kElementWords = {Words("gml_id"), Words("fid"), Words("geometryproperty"), Words("boundedby")};
constexpr NameRule kElementField{1000, true, NameRule::Characters::Element, kElementWords, {}};
// Names stand in attributes of XML, which the library doesn't escape.
constexpr NameRule kAttributeField{1000, true, NameRule::Characters::Any, {}, {}, "\"<>&\n\r\t"};
// Tables of a SQLite database that are its own.
constexpr std::array kPackagePrefixes = {Words("gpkg"), Words("sqlite_"), Words("rtree_")};
constexpr NameRule kPackageClass{1000, true, NameRule::Characters::Any, {}, kPackagePrefixes};
constexpr std::array kDatabasePrefixes = {Words("sqlite_"), Words("idx_")};
constexpr NameRule kDatabaseClass{1000, true, NameRule::Characters::Any, {}, kDatabasePrefixes};
// Whatever bears this name is taken for the identifier when a SQLite database is read.
constexpr std::array kIdentifierWords = {Words("ogc_fid"), Words("rowid")};
constexpr NameRule kDatabaseField{1000, true, NameRule::Characters::Any, kIdentifierWords, {}};
// The library writes its names in small letters, and the server cuts what is longer.
constexpr NameRule kServerName{63, true, NameRule::Characters::Any, {}, {}};
constexpr NameRule kTableField{31, true, NameRule::Characters::AsciiWord, {}, {}};

// What a shapefile may consist of, as the programs of the field write it.
constexpr std::array kShapefileParts = {Words(".shp"), Words(".shx"), Words(".dbf"),    Words(".prj"), Words(".cpg"),
                                        Words(".sbn"), Words(".sbx"), Words(".qix"),    Words(".qpj"), Words(".qmd"),
                                        Words(".fbn"), Words(".fbx"), Words(".ain"),    Words(".aih"), Words(".atx"),
                                        Words(".ixs"), Words(".mxs"), Words(".shp.xml")};
constexpr std::array kTableParts = {Words(".tab"), Words(".dat"), Words(".map"), Words(".id"), Words(".ind")};
constexpr std::array kInterchangeParts = {Words(".mif"), Words(".mid")};
constexpr std::array kGmlParts = {Words(".gml"), Words(".xsd"), Words(".gfs")};

constexpr std::array kUnicodeTable = {Words("ENCODING=UTF-8")};
constexpr std::array kShapesAsText = {Words("GEOMETRY=AS_WKT")};
constexpr std::array kSpatialite = {Words("SPATIALITE=YES")};
constexpr std::array kNamesAsGiven = {Words("LAUNDER=NO")};
// The library's own rule is seven decimals, which is a centimetre.
constexpr std::array kAllDecimals = {Words("COORDINATE_PRECISION=15")};
constexpr std::array kLineEndings = {Words(".geojsons"), Words(".ndjson"), Words(".jsonl")};
constexpr std::array kJsonEndings = {Words(".json")};
constexpr std::array kSqliteEndings = {Words(".db"), Words(".sqlite3")};

constexpr std::array kFormats = {
    Format{.name = "Shapefile",
           .category = "Shapefile Feature Class",
           .ending = ".shp",
           .driver = "ESRI Shapefile",
           .kind = kShapefile,
           .store = FileStore::Shapefile,
           .writable = true,
           .updated_in_place = true,
           .rows_in_place = true,
           .uniform_shapes = true,
           .clockwise = true,
           .reference_beside = true,
           .nulls = Nulls::NotTexts,
           .class_names = kFileName,
           .field_names = kDbaseField,
           .parts = kShapefileParts,
           .layer_options = kUnicodeTable},
    Format{.name = "File Geodatabase",
           .category = "File Geodatabase Feature Class",
           .ending = ".gdb",
           .driver = "OpenFileGDB",
           .kind = kFileGeodatabase,
           .store = FileStore::FileGeodatabase,
           .container = true,
           .folder = true,
           .writable = true,
           .updated_in_place = true,
           .rows_in_place = true,
           .feature_datasets = true,
           .keeps_identifiers = true,
           .multiple_shapes = true,
           .curves = true,
           .utc = true,
           .stamp = StampPlace::Documentation,
           .class_names = kGeodatabaseClass,
           .field_names = kGeodatabaseField,
           .identifier_column = "OBJECTID",
           .shape_column = "Shape"},
    Format{.name = "Personal Geodatabase",
           .category = "Personal Geodatabase Feature Class",
           .ending = ".mdb",
           .driver = "PGeo",
           .kind = kPersonalGeodatabase,
           .store = FileStore::PersonalGeodatabase,
           .container = true,
           .writable = true,
           .updated_in_place = true,
           .rows_in_place = true,
           .feature_datasets = true,
           .keeps_identifiers = true,
           .uniform_shapes = true,
           .multiple_shapes = true,
           .missing_measures = true,
           .clockwise = true,
           .own_driver = true,
           .most_fields = 253,
           .class_names = kPersonalClass,
           .field_names = kGeodatabaseField,
           .identifier_column = "OBJECTID",
           .shape_column = "SHAPE"},
    Format{.name = "GeoPackage",
           .category = "GPKG Feature Class",
           .ending = ".gpkg",
           .driver = "GPKG",
           .kind = 16,
           .store = FileStore::GeoPackage,
           .container = true,
           .writable = true,
           .updated_in_place = true,
           .rows_in_place = true,
           .keeps_identifiers = true,
           .multiple_shapes = true,
           .triangles = true,
           .indexed_at_end = true,
           .sqlite = true,
           .curves = true,
           .utc = true,
           .stamp = StampPlace::Metadata,
           .class_names = kPackageClass,
           .field_names = kAnyName,
           .identifier_column = "fid",
           .shape_column = "geom"},
    Format{.name = "GeoJSON",
           .category = "GeoJSON Feature Class",
           .ending = ".geojson",
           .driver = "GeoJSON",
           .kind = 17,
           .writable = true,
           .keeps_identifiers = true,
           .rewritten = true,
           .narrow_integers = true,
           .finite_numbers = true,
           .untold_heights = true,
           .degrees_by_rule = true,
           .stamp = StampPlace::Description,
           .class_names = kFileName,
           .field_names = kAnyName,
           .other_endings = kJsonEndings},
    Format{.name = "FlatGeobuf",
           .category = "FlatGeobuf Feature Class",
           .ending = ".fgb",
           .driver = "FlatGeobuf",
           .kind = 18,
           .writable = true,
           .reorders = true,
           .needs_shapes = true,
           .uniform_shapes = true,
           .one_kind = true,
           .multiple_shapes = true,
           .class_names = kFileName,
           .field_names = kAnyName},
    Format{.name = "MapInfo Table",
           .category = "MapInfo File Feature Class",
           .ending = ".tab",
           .driver = "MapInfo File",
           .kind = 19,
           .writable = true,
           .byte_widths = true,
           .bounded = true,
           .nulls = Nulls::InDates,
           .class_names = kFileName,
           .field_names = kTableField,
           .parts = kTableParts,
           .layer_options = kUnicodeTable},
    Format{.name = "MapInfo Interchange",
           .category = "MapInfo File Feature Class",
           .ending = ".mif",
           .driver = "MapInfo File",
           .kind = 20,
           .writable = true,
           .byte_widths = true,
           .bounded = true,
           .nulls = Nulls::InDates,
           .class_names = kFileName,
           .field_names = kTableField,
           .parts = kInterchangeParts,
           .layer_options = kUnicodeTable},
    Format{.name = "Comma Separated Values",
           .category = "CSV Feature Class",
           .ending = ".csv",
           .driver = "CSV",
           .kind = 21,
           .writable = true,
           .rewritten = true,
           .without_reference = true,
           .nulls = Nulls::AsEmpty,
           .class_names = kFileName,
           .field_names = kTextTableField,
           .layer_options = kShapesAsText},
    Format{.name = "Geography Markup Language",
           .category = "GML Feature Class",
           .ending = ".gml",
           .driver = "GML",
           .kind = 22,
           .writable = true,
           .uniform_shapes = true,
           .epsg_degrees_alone = true,
           .class_names = kFileName,
           .field_names = kElementField,
           .parts = kGmlParts},
    Format{.name = "GeoJSON Lines",
           .category = "GeoJSONSeq Feature Class",
           .ending = ".geojsonl",
           .driver = "GeoJSONSeq",
           .kind = 23,
           .writable = true,
           .keeps_identifiers = true,
           .finite_numbers = true,
           .untold_heights = true,
           .degrees = true,
           .stream = true,
           .class_names = kFileName,
           .field_names = kAnyName,
           .other_endings = kLineEndings,
           .layer_options = kAllDecimals},
    Format{.name = "Keyhole Markup Language",
           .category = "LIBKML Feature Class",
           .ending = ".kml",
           .driver = "LIBKML",
           .kind = 24,
           .writable = true,
           .clean_texts = true,
           .rewritten = true,
           .degrees = true,
           .stamp = StampPlace::Description,
           .class_names = kFileName,
           .field_names = kAttributeField},
    Format{.name = "SpatiaLite",
           .category = "SQLite Feature Class",
           .ending = ".sqlite",
           .driver = "SQLite",
           .kind = 25,
           .container = true,
           .writable = true,
           .rows_in_place = true,
           .keeps_identifiers = true,
           .uniform_shapes = true,
           .multiple_shapes = true,
           .sqlite = true,
           .small_letters = true,
           .class_names = kDatabaseClass,
           .field_names = kDatabaseField,
           .identifier_column = "ogc_fid",
           .shape_column = "GEOMETRY",
           .other_endings = kSqliteEndings,
           .layer_options = kNamesAsGiven,
           .file_options = kSpatialite},
    Format{.name = "PostgreSQL",
           .category = "PostgreSQL Feature Class",
           .ending = "PG:",
           .driver = "PostgreSQL",
           .kind = 26,
           .container = true,
           .writable = true,
           .rows_in_place = true,
           .keeps_identifiers = true,
           .multiple_shapes = true,
           .server = true,
           .small_letters = true,
           .stamp = StampPlace::Description,
           .class_names = kServerName,
           .field_names = kServerName,
           .identifier_column = "ogc_fid",
           .shape_column = "wkb_geometry",
           .layer_options = kNamesAsGiven},
};

constexpr std::int32_t kFirstAddedKind = 1000;

// Below it are the kinds of the table, and that of temporary layers.
constexpr bool KindsAreDistinct() {
  for (const Format& format : kFormats) {
    if (format.kind <= 0 || format.kind >= kFirstAddedKind) return false;
    if (std::ranges::count(kFormats, format.kind, &Format::kind) != 1) return false;
  }
  return true;
}
// Each format has a number of its own in `kind`, from 1 to 999.
static_assert(KindsAreDistinct());

// Those that a driver brings, in the order in which they were asked for; none moves or goes. Any thread may look.
class AddedFormats {
 public:
  template <class Test>
  [[nodiscard]] const Format* Find(Test&& test) {
    const std::lock_guard lock(guard_);
    const auto found = std::ranges::find_if(formats_, test);
    return found == formats_.end() ? nullptr : &*found;
  }
  const Format& Add(Format format) {
    const std::lock_guard lock(guard_);
    format.kind = kFirstAddedKind + static_cast<std::int32_t>(formats_.size());
    return formats_.emplace_back(format);
  }

 private:
  std::mutex guard_;
  std::deque<Format> formats_;
};

AddedFormats& Added() {
  static AddedFormats added;
  return added;
}

template <class Test>
const Format* Find(Test&& test) {
  const auto found = std::ranges::find_if(kFormats, test);
  if (found != kFormats.end()) return &*found;
  if (const Format* temporary = TemporaryLayers(); temporary != nullptr && test(*temporary)) return temporary;
  return Added().Find(test);
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsAscii(char c) { return (static_cast<unsigned char>(c) & 0x80U) == 0; }
bool BeginsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }
// Letters beyond ASCII are letters.
bool IsWordByte(char c) {
  return IsLetter(c) || IsDigit(c) || c == '_' || (static_cast<unsigned char>(c) & 0x80U) != 0;
}

// The first characters that fit; none is torn.
std::string Cut(const NameRule& rule, const std::string& name, std::size_t room) {
  std::size_t end = 0, count = 0;
  while (end < name.size()) {
    std::size_t next = end + 1;
    while (next < name.size() && !BeginsCharacter(name[next])) ++next;
    count += rule.bytes ? next - end : 1;
    if (count > room) break;
    end = next;
  }
  return name.substr(0, end);
}

}  // namespace

const Format* FormatOfKind(std::int32_t kind) {
  return kind == 0 ? nullptr : Find([&](const Format& format) { return format.kind == kind; });
}

const Format* FormatOfPath(std::string_view path) {
  return Find([&](const Format& format) {
    const auto ends = [&](std::string_view ending) { return EndsWithIgnoringCase(path, ending); };
    return format.server ? path.starts_with(format.ending)
                         : ends(format.ending) || std::ranges::any_of(format.other_endings, ends);
  });
}

const Format* FormatOfName(std::string_view name) {
  const auto called = [&](const Format& format) {
    return EqualsIgnoringCase(format.name, name) || EqualsIgnoringCase(format.driver, name) ||
           EqualsIgnoringCase(format.ending.substr(1), name);
  };
  return Find(called);
}

const Format& AddFormat(Format format) { return Added().Add(format); }

const Format* FormatOfDriver(std::string_view driver) {
  return Find([&](const Format& format) { return format.driver == driver; });
}

std::string CategoryOf(std::string_view driver) {
  const Format* format = FormatOfDriver(driver);
  return format != nullptr ? std::string(format->category) : std::string(driver) + " Feature Class";
}

std::span<const Format> AllFormats() { return kFormats; }

std::string LegalName(const NameRule& rule, const std::string& name) {
  if (name.empty()) return name;
  std::string legal = name;
  if (rule.characters != NameRule::Characters::Any) {
    const bool ascii = rule.characters == NameRule::Characters::AsciiWord;
    const bool points = rule.characters == NameRule::Characters::Element;
    // One sign for each character, whatever its bytes.
    if (ascii) std::erase_if(legal, [](char c) { return !BeginsCharacter(c); });
    const auto is_kept = [&](char c) { return (IsWordByte(c) && (!ascii || IsAscii(c))) || (points && c == '.'); };
    std::ranges::replace_if(legal, std::not_fn(is_kept), '_');
    if (IsDigit(legal.front()) || legal.front() == '.') legal.insert(0, 1, '_');
  }
  std::ranges::replace_if(
      legal, [&](char c) { return rule.replaced.find(c) != std::string_view::npos; }, '_');
  const std::string lower = LowerCase(legal);
  if (std::ranges::any_of(rule.prefixes, [&](std::string_view prefix) { return lower.starts_with(prefix); })) {
    legal.insert(0, 1, '_');
  }
  if (std::ranges::find(rule.reserved, lower) != rule.reserved.end()) legal += '_';
  return Cut(rule, legal, rule.longest);
}

std::string FreeLegalName(const NameRule& rule, const std::string& name,
                          const std::function<bool(const std::string&)>& taken) {
  const std::string legal = LegalName(rule, name);
  const auto numbered = [&](int number) {
    const std::string digits = "_" + std::to_string(number);
    return Cut(rule, legal, rule.longest - digits.size()) + digits;
  };
  return FirstFree(legal, numbered, taken);
}

std::vector<std::string> FreeLegalNames(const NameRule& rule, const std::vector<std::string>& names,
                                        const std::vector<std::string>& standing) {
  std::vector<std::string> given = standing;
  const auto taken = [&](const std::string& name) {
    return std::ranges::any_of(given, [&](const std::string& other) { return EqualsIgnoringCase(other, name); });
  };
  std::vector<std::string> legal(names.size());
  for (std::size_t index = 0; index < names.size(); ++index) {
    if (LegalName(rule, names[index]) != names[index] || taken(names[index])) continue;
    given.push_back(legal[index] = names[index]);
  }
  for (std::size_t index = 0; index < names.size(); ++index) {
    if (legal[index].empty()) given.push_back(legal[index] = FreeLegalName(rule, names[index], taken));
  }
  return legal;
}

}  // namespace tessarine
