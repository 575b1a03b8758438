// SPDX-License-Identifier: GPL-2.0-or-later
// A document with graphic elements, and the dialogs over it.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ogrsf_frmts.h>

#include <memory>
#include <string>

#include "helpers/shapes.h"
#include "helpers/suite_fixture.h"
#include "platform/rich_text.h"

namespace tessarine::testing {

class GraphicsTest : public SuiteTest {
 protected:
  std::string report;

  void SetUp() override {
    extension->DirectoryPath = folder.Path();
    extension->DirectoryType = "Shapefile";
    Reference("EPSG:4326");
  }
  void TearDown() override { EXPECT_THAT(host.error_reports, ::testing::IsEmpty()); }

  void Reference(const std::string& text) {
    document->Map().SetSpatialReference(SpatialReferenceEnvironment::CreateFromText(text));
  }

  std::shared_ptr<GraphicElement> Add(DocumentView& view, const std::string& kind, const GeometryRef& shape,
                                      const std::string& name = "", bool selected = false) {
    const auto element = MakeElement(kind);
    element->shape = shape;
    element->SetName(name);
    element->selected = selected;
    element->drawn_with = std::make_shared<DocumentSymbol>(kind + std::to_string(view.Elements().size()));
    view.AddElement(element);
    return element;
  }
  std::shared_ptr<GraphicElement> Add(const std::string& kind, const GeometryRef& shape, const std::string& name = "",
                                      bool selected = false) {
    return Add(document->Map(), kind, shape, name, selected);
  }

  static GeometryRef At(double x, double y) { return std::make_shared<Point>(x, y); }
  static GeometryRef Along(const Segment& curve) {
    auto path = std::make_shared<Path>();
    path->AddSegment(curve);
    auto line = std::make_shared<Polyline>();
    line->AddGeometry(path);
    return line;
  }
  static GeometryRef Inside(const Segment& curve) {
    auto ring = std::make_shared<Ring>();
    ring->AddSegment(curve);
    auto polygon = std::make_shared<Polygon>();
    polygon->AddGeometry(ring);
    return polygon;
  }

  /// Shows a dialog; what it reports is kept as plain text.
  template <class Dialog>
  void Show(Dialog& dialog, const std::function<void(Dialog&)>& user) {
    host.forms.modal = [&](Form& form) {
      if (form.Name() == "frmReport_modal") {
        report = ToPlainText(ReadRtf(form.FindAs<RichTextBox>("txtReport")->TextRTF()));
      } else {
        user(dialog);
      }
    };
    dialog.SetArcApplication(application);
    dialog.ShowModal();
    host.forms.modal = nullptr;
  }

  using Visit = std::function<void(OGRFeature&)>;
  /// The number of features of a file, each visited in order; -1 for a file that can't be opened.
  int EachFeature(const std::string& file, const Visit& visit) const {
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(folder.Native(file).c_str(), GDAL_OF_VECTOR));
    if (!dataset) return -1;
    int count = 0;
    for (const auto& feature : *dataset->GetLayer(0)) {
      visit(*feature);
      ++count;
    }
    return count;
  }
};

}  // namespace tessarine::testing
