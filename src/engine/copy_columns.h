// SPDX-License-Identifier: GPL-2.0-or-later
// The columns of a copy: what becomes of each attribute of the source in another format.
#pragma once

#include <ogrsf_frmts.h>

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "engine/ogr_feature.h"
#include "outputs/formats.h"

namespace tessarine::engine {

struct CopyColumn {
  enum class Way : std::uint8_t {
    Raw,      ///< as OGR has it: the column is of the same type
    Value,    ///< fitted into what the column holds
    Moment,   ///< a date and time, in UTC where it has a zone
    Text,     ///< in the words of OGR
    List,     ///< as a text of JSON
    Clock,    ///< a text of a time of day as such a time
    LeftOut,  ///< the format has nothing for it
  };
  FieldRef field;  ///< of the source
  int source = 0;  ///< OGR index
  int target = -1;
  Way way = Way::Value;
  bool is_clock = false;                     ///< a text that stands for a time of day
  std::unique_ptr<OGRFieldDefn> definition;  ///< with a name that the format takes
};

class CopyColumns {
 public:
  /// `same_format` keeps the rules of the source's columns, as that they are never null.
  CopyColumns(const RowTraits& traits, const OGRFeatureDefn& source, GDALDriver& driver, const Format& format,
              bool same_format);

  /// Takes the texts of these fields for times of day, which the source has no kind for.
  void TakeForClocks(std::span<const std::string> names, GDALDriver& driver);

  /// Adds the columns to a new layer. A column that the layer doesn't take is left out. Fault where it takes none,
  /// which names `shown`.
  void AddTo(OGRLayer& layer, const std::string& shown);

  /// Puts an attribute of a row into the row of the copy. Returns what became of it.
  ValueChange Copy(const CopyColumn& column, const OgrRow& from, OgrRow& to) const;

  [[nodiscard]] const std::vector<CopyColumn>& All() const { return columns_; }
  /// The name in the copy, as the format made it; empty for what was left out.
  [[nodiscard]] std::string MadeName(const CopyColumn& column, const OGRFeatureDefn& made) const;
  /// What is lost for all rows alike, sentence by sentence; `made` are the columns of the new layer.
  [[nodiscard]] std::vector<std::string> Foretold(const OGRFeatureDefn& made) const;

 private:
  std::int32_t first_attribute_;  // of the source's fields
  std::vector<CopyColumn> columns_;
};

}  // namespace tessarine::engine
