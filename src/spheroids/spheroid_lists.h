// SPDX-License-Identifier: GPL-2.0-or-later
// The lists that carry spheroids between the catalogue, the dialogs and their callers, each with a view that gives
// its positions their names.
#pragma once

#include <memory>
#include <string>

#include "platform/application.h"
#include "platform/arrays.h"
#include "platform/spatial_reference.h"
#include "session/clsExtension.h"
#include "spheroids/keyed_collection.h"

namespace tessarine {

/// One row of a list: name, semi-major axis, semi-minor axis in metres, a text, and for spheroids of the platform a
/// clone of the spheroid.
class SpheroidRow {
 public:
  explicit SpheroidRow(std::shared_ptr<VarArray> row) : row_(std::move(row)) {}

  /// Without a spheroid the row has four entries, the text being the remark of the custom file; with one it has five,
  /// the text being the constant's name.
  [[nodiscard]] static std::shared_ptr<VarArray> Make(const std::string& name, double semi_major_axis,
                                                      double semi_minor_axis, const std::string& text,
                                                      const std::shared_ptr<tessarine::Spheroid>& spheroid);

  [[nodiscard]] std::string Name() const { return row_->Element(kName).AsText(); }
  [[nodiscard]] double SemiMajorAxis() const { return row_->Element(kSemiMajorAxis).AsDouble(); }
  [[nodiscard]] double SemiMinorAxis() const { return row_->Element(kSemiMinorAxis).AsDouble(); }
  [[nodiscard]] std::string Text() const { return row_->Element(kText).AsText(); }
  /// Null for a custom spheroid.
  [[nodiscard]] std::shared_ptr<tessarine::Spheroid> Spheroid() const {
    return row_->Count() > kSpheroid ? row_->Element(kSpheroid).AsObject<tessarine::Spheroid>() : nullptr;
  }

 private:
  enum Position : std::int32_t { kName, kSemiMajorAxis, kSemiMinorAxis, kText, kSpheroid };
  std::shared_ptr<VarArray> row_;
};

/// One of the three lists: its rows under their names, and the names in order. Both are null for the custom list
/// without its file.
struct SpheroidNames {
  std::shared_ptr<KeyedCollection> rows;
  std::shared_ptr<StrArray> names;

  /// Fault 5 for an unknown name, 91 for a list that is missing.
  [[nodiscard]] SpheroidRow Row(const std::string& name) const {
    return SpheroidRow(Require(Require(rows, "spheroid list")->Item(name).AsObject<VarArray>(), "spheroid row"));
  }
};

/// The result of `GetSpheroids`: a collection and its names for custom, planetary and Earth spheroids.
class SpheroidLists {
 public:
  explicit SpheroidLists(std::shared_ptr<VarArray> lists) : lists_(std::move(lists)) {}

  [[nodiscard]] static std::shared_ptr<VarArray> Make(const SpheroidNames& custom, const SpheroidNames& planets,
                                                      const SpheroidNames& earth);

  [[nodiscard]] SpheroidNames Custom() const { return At(0); }
  [[nodiscard]] SpheroidNames Planets() const { return At(2); }
  [[nodiscard]] SpheroidNames Earth() const { return At(4); }

 private:
  [[nodiscard]] SpheroidNames At(std::int32_t position) const {
    return {lists_->Element(position).AsObject<KeyedCollection>(), lists_->Element(position + 1).AsObject<StrArray>()};
  }
  std::shared_ptr<VarArray> lists_;
};

/// What the caller of a spheroid dialog hands over: the application, the extension, and the spheroid now in use.
class SpheroidDialogInput {
 public:
  explicit SpheroidDialogInput(std::shared_ptr<VarArray> input) : input_(std::move(input)) {}

  [[nodiscard]] static std::shared_ptr<VarArray> Make(const std::shared_ptr<IApplication>& application,
                                                      const std::shared_ptr<clsExtension>& extension,
                                                      const std::string& name, double semi_major_axis,
                                                      double semi_minor_axis);

  [[nodiscard]] std::shared_ptr<IApplication> Application() const { return At(0).AsObject<IApplication>(); }
  [[nodiscard]] std::shared_ptr<clsExtension> Extension() const { return At(1).AsObject<clsExtension>(); }
  [[nodiscard]] std::string Name() const { return At(2).AsText(); }
  [[nodiscard]] double SemiMajorAxis() const { return At(3).AsDouble(); }
  [[nodiscard]] double SemiMinorAxis() const { return At(4).AsDouble(); }

 private:
  [[nodiscard]] const Variant& At(std::int32_t position) const { return input_->Element(position); }
  std::shared_ptr<VarArray> input_;
};

}  // namespace tessarine
