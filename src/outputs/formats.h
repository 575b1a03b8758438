// SPDX-License-Identifier: GPL-2.0-or-later
// The formats of outputs: one table of what is known of each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

/// What a format takes for a name. A name that it doesn't take is changed when the class or field is made.
struct NameRule {
  enum class Characters {
    Any,        ///< whatever a file or a text may hold
    Word,       ///< letters of any language, digits and "_"; no digit first
    Element,    ///< the same and points: the names of XML
    AsciiWord,  ///< A to Z in any case, digits and "_"; no digit first
  };
  std::size_t longest = 0;  ///< in bytes where `bytes`, else in characters
  bool bytes = false;
  Characters characters = Characters::Any;
  std::span<const std::string_view> reserved = {};  ///< lower case; such a name gets a "_" after it
  std::span<const std::string_view> prefixes = {};  ///< lower case; a name that begins so gets a "_" in front
  std::string_view replaced = {};                   ///< characters that give way to a "_" where the others are any
};

/// Whatever a file may hold.
inline constexpr NameRule kAnyName{.longest = 1000, .bytes = true};

/// The longest name of a column in a dBASE table: its description has eleven bytes for it, the last of them 0.
inline constexpr std::size_t kDbaseNameLength = 10;

/// Which values can be absent.
enum class Nulls : std::uint8_t {
  All,
  NotTexts,  ///< an absent text comes back as an empty one
  InDates,   ///< an absent number comes back as 0, too
  AsEmpty,   ///< all values are texts; an absent one comes back as an empty one
};

/// Where a layer tells what it is from.
enum class StampPlace : std::uint8_t {
  None,
  Metadata,       ///< items of its metadata
  Description,    ///< a text
  Documentation,  ///< a text of XML
};

/// Formats whose files the engine's own code changes, beside its library.
enum class FileStore : std::uint8_t { Other, Shapefile, FileGeodatabase, PersonalGeodatabase, GeoPackage };

/// Every format has a number, by which dialogs know it as long as they are open; these have names in the code.
enum OutputKind : std::int32_t {
  kUnknownOutput = 0,
  kShapefile = 1,
  kFileGeodatabase = 2,
  kPersonalGeodatabase = 4,
};

struct Format {
  std::string_view name = {};      ///< as documents remember it: "File Geodatabase"
  std::string_view category = {};  ///< of its classes in a catalog: "File Geodatabase Feature Class"
  std::string_view ending = {};    ///< ".gdb"
  std::string_view driver = {};    ///< of the engine's library
  std::int32_t kind = kUnknownOutput;
  FileStore store = FileStore::Other;
  bool container = false;  ///< one file or folder holds several classes, each under a name
  bool folder = false;     ///< a container that is a folder
  bool writable = false;
  bool updated_in_place = false;  ///< new classes are made in it at once, not by way of a GeoPackage
  bool rows_in_place = false;     ///< rows that stand in it are reached one by one
  bool feature_datasets = false;
  bool keeps_identifiers = false;   ///< a new row can be given its identifier
  bool reorders = false;            ///< rows don't come back in the order in which they were written
  bool needs_shapes = false;        ///< a row without a shape can't be kept
  bool uniform_shapes = false;      ///< all shapes of a class have heights, or none has; so with measures
  bool one_kind = false;            ///< a class of curves holds no plain lines beside them
  bool clean_texts = false;         ///< a text with a control character makes the whole file unreadable
  bool rewritten = false;           ///< the library changes it by writing the whole file anew, as it has read it
  bool narrow_integers = false;     ///< the library reads whole numbers beyond 64 bits as others
  bool finite_numbers = false;      ///< infinities and no-number can't be kept; such a value is null
  bool byte_widths = false;         ///< texts are as wide as their bytes: a column takes the greatest width there is
  bool multiple_shapes = false;     ///< a class is of single shapes or of multiple ones, never of both
  bool missing_measures = false;    ///< a vertex of a class with measures may have none
  bool clockwise = false;           ///< outer rings run clockwise, and inner ones against that
  bool triangles = false;           ///< a triangle is a shape of its own
  bool untold_heights = false;      ///< heights are kept, though the library's driver doesn't say so
  bool bounded = false;             ///< coordinates are counted in steps between bounds that a new class is given
  bool indexed_at_end = false;      ///< the places of shapes are best indexed once all are there
  bool degrees = false;             ///< all coordinates are longitudes and latitudes on WGS 84
  bool degrees_by_rule = false;     ///< other references can be named, but not all readers look for them
  bool epsg_degrees_alone = false;  ///< a geographic reference by another register's code isn't understood by readers
  bool reference_beside = false;    ///< the reference stands in a file of its own, ".prj"
  bool without_reference = false;   ///< nothing in the file tells what its coordinates refer to
  bool server = false;              ///< a container that is no file
  bool sqlite = false;              ///< a file of SQLite: who reads rows of it keeps others from writing
  bool small_letters = false;       ///< the library writes the names of columns that are added later in small letters
  bool curves = false;              ///< arcs are kept as arcs
  bool utc = false;                 ///< times that know their zone are kept in UTC
  bool stream = false;              ///< can be written to a pipe
  bool own_driver = false;          ///< the suite writes it; the library's driver of this name only reads
  std::size_t most_fields = 0;      ///< in a class, beside its own columns; 0 for no limit
  Nulls nulls = Nulls::All;
  StampPlace stamp = StampPlace::None;
  NameRule class_names = kAnyName, field_names = kAnyName;
  std::string_view identifier_column = {}, shape_column = {};  ///< usual names, where a new class can have others
  std::span<const std::string_view> other_endings = {};        ///< that name it, too
  std::span<const std::string_view> parts = {};                ///< endings of all its files, where it has several
  std::span<const std::string_view> layer_options = {};        ///< "NAME=VALUE", for the library that makes a class
  std::span<const std::string_view> file_options = {};         ///< the same, for a new file

  /// Each class is a file of its own, or two or three.
  [[nodiscard]] bool IsFile() const { return !container; }
  /// The engine has a workspace for it alone; all others share one.
  [[nodiscard]] bool HasOwnWorkspace() const { return kind != kUnknownOutput && kind <= kPersonalGeodatabase; }
};

/// The row of a kind, an ending (of a path, in any case), a driver, or a name of the row or its driver in any case;
/// null where there is none.
[[nodiscard]] const Format* FormatOfKind(std::int32_t kind);
[[nodiscard]] const Format* FormatOfPath(std::string_view path);
[[nodiscard]] const Format* FormatOfDriver(std::string_view driver);
[[nodiscard]] const Format* FormatOfName(std::string_view name);
/// What a catalog calls the classes of a driver. For one without a row, its own name stands in front.
[[nodiscard]] std::string CategoryOf(std::string_view driver);
/// The rows that are always there.
[[nodiscard]] std::span<const Format> AllFormats();

/// Adds a row for a format that the engine's library writes beyond those of the table, and gives it a kind. All that it
/// points to must live as long as the program. Rows are never moved.
const Format& AddFormat(Format format);

/// The name as the format will call it. An empty name stays empty.
[[nodiscard]] std::string LegalName(const NameRule& rule, const std::string& name);
/// The same, with a number where it is taken; the number stays within the longest name.
[[nodiscard]] std::string FreeLegalName(const NameRule& rule, const std::string& name,
                                        const std::function<bool(const std::string&)>& taken);

/// Names for all of them, each legal, and different from each other and from `standing`, whatever their case. Who bears
/// a legal name keeps it, wherever it stands in the list.
[[nodiscard]] std::vector<std::string> FreeLegalNames(const NameRule& rule, const std::vector<std::string>& names,
                                                      const std::vector<std::string>& standing = {});

}  // namespace tessarine
