// SPDX-License-Identifier: GPL-2.0-or-later
// What the dialogs of the planetary tools share: the layers in degrees, the ranges of longitude, the shift and the
// output.
#pragma once

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "planetary/planetary_lists.h"
#include "platform/application.h"
#include "platform/form.h"
#include "session/clsExtension.h"
#include "support/output_form.h"

namespace tessarine {

/// Takes over a path that was typed. A folder that ends as a geodatabase is one; the dataset that was browsed to stays
/// while the folder still names it.
void FollowTypedOutput(const std::string& text, OutputPlace& place);

class LongitudeForm : public OutputForm {
 public:
  Label lblLayer{*this, "lblLayer"};
  ListBox lbxLayers{*this, "lbxLayers"};
  TextBox txtMessage{*this, "txtMessage"};
  OptionButton optWrap180{*this, "optWrap180"};
  OptionButton optWrap360{*this, "optWrap360"};
  Label lblLongShift{*this, "lblLongShift"};
  TextBox txtLongShift{*this, "txtLongShift"};
  Label lblDegrees{*this, "lblDegrees"};

 protected:
  explicit LongitudeForm(const std::string& name);

  void Form_Load() override;
  void Form_Unload() override;
  virtual void lbxLayers_Click();

  /// Shift, output and buttons in their rows from this height on; sets the form's size.
  void PlaceLowerRows(double top);
  /// Controls of the upper half that keep their place above the lower edge.
  void KeepAboveLowerEdge(std::initializer_list<Control*> controls);
  [[nodiscard]] AnchorObjectList& Anchors() { return anchors_; }

  /// The form begins: no go-ahead yet, the layers listed with the preferred one selected, or else the one that is
  /// chosen in the map, or else the first.
  void Begin(const std::shared_ptr<IApplication>& application, const std::shared_ptr<clsExtension>& extension,
             const std::string& preferred_layer);
  void ShowShift(double shift);
  void ShowOutput(const OutputPlace& place) { output_.Show(place); }

  [[nodiscard]] const std::shared_ptr<IApplication>& Application() const { return application_; }
  [[nodiscard]] const std::shared_ptr<clsExtension>& Extension() const { return extension_; }
  /// Nothing while no line is selected.
  [[nodiscard]] std::shared_ptr<IFeatureLayer> CurrentLayer() const;
  [[nodiscard]] double Shift() const { return shift_; }
  /// The first of OK's tests: the place of the output exists, or the user is told and sent to its box.
  [[nodiscard]] bool OutputPlaceExists() { return output_.PlaceExists(); }
  /// What OK leaves for the creation of the output; the extension remembers its place.
  [[nodiscard]] std::shared_ptr<VarArray> DescribeOutput(const IFeatureLayer& layer);
  /// The go-ahead.
  void Finish();

 private:
  void FillLayers(const std::string& preferred);
  void txtLongShift_Change();

  std::vector<std::shared_ptr<IFeatureLayer>> layers_;
  double shift_ = 0.0;
};

/// A number as the boxes show it: up to 13 decimals, without trailing zeros or a trailing point.
[[nodiscard]] std::string BoxNumber(double value);
/// The number in a box; empty for a text that is none.
[[nodiscard]] std::optional<double> NumberIn(const std::string& text);

}  // namespace tessarine
