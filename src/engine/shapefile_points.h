// SPDX-License-Identifier: GPL-2.0-or-later
// Points of a new shapefile, written with their table in blocks.
//
// GDAL seeks, reads and writes in three files for each row, which takes three quarters of the time of a run that makes
// millions of points.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "engine/box_tree.h"
#include "engine/dbase_layout.h"
#include "engine/ogr_source.h"
#include "engine/raw_file.h"

namespace tessarine::engine {

class ShapefilePoints {
 public:
  /// For rows of a new shapefile that is open for writing. Null where it is none of plain points, has no
  /// columns, stands in its place already or has rows: others may look at it then, and GDAL writes it.
  [[nodiscard]] static std::unique_ptr<ShapefilePoints> Open(const OgrSource& source, OGRLayer& layer);

  /// Appends a row as GDAL would, byte for byte, and gives it its identifier. False where the row has to be left to
  /// GDAL: one without a shape, one with a text that is wider than its column or has letters beyond ASCII, one with a
  /// date, and rows beyond 2 GB. Raises a fault that names the shapefile's place where the disk doesn't take the rows.
  [[nodiscard]] bool Append(OGRFeature& feature);
  /// Writes what is held back, and the headers. To be called when GDAL has closed the shapefile.
  void Finish();

 private:
  // A file that grows at its end.
  class Growing {
   public:
    Growing(const std::string& name, const std::string& path, std::int64_t size);
    [[nodiscard]] bool IsOpen() const { return file_.IsOpen(); }
    [[nodiscard]] std::int64_t Size() const { return written_ + static_cast<std::int64_t>(held_.size()); }
    [[nodiscard]] const RawFile& File() const { return file_; }
    // Room for the next bytes, with blanks in it.
    [[nodiscard]] std::span<char> Add(std::size_t size);
    void Flush();

   private:
    RawFile file_;
    std::int64_t written_;
    std::vector<char> held_;
  };

  ShapefilePoints(const OgrSource& source, const std::string& shapes, const std::string& index,
                  const std::string& table, DbaseLayout layout, std::vector<OGRFieldType> types);
  [[nodiscard]] bool PutRecord(const OGRFeature& feature);
  [[nodiscard]] bool PutValue(const OGRFeature& feature, int index, std::span<char> place) const;
  void AddPoint(XY place);
  void PutHeader(const Growing& file) const;

  Growing shapes_, index_, table_;
  DbaseLayout layout_;
  std::vector<OGRFieldType> types_;
  std::vector<char> record_;
  std::int64_t count_ = 0;
  Box bounds_;
};

}  // namespace tessarine::engine
