// SPDX-License-Identifier: GPL-2.0-or-later
// How frmGraphicsShapefile looks and what its controls are wired to.
#include "graphics/frmGraphicsShapefile.h"

namespace tessarine {

void frmGraphicsShapefile::SetTexts() {
  SetCaption(" Create Shapefile:");
  optNew.SetCaption("Create empty shapefile");
  optPoint.SetCaption("Point Shapefile");
  optPolyline.SetCaption("Polyline Shapefile");
  optPolygon.SetCaption("Polygon Shapefile");
  optConvert.SetCaption("Convert graphics to feature class:");
  chkSelected.SetCaption("Only convert selected graphics");
  cmdSpRef.SetCaption("Set Spatial Reference");
  lblSpRef.SetCaption("Feature Class Spatial Reference =");
  lblOutputName.SetCaption("&Output Feature Class or Shapefile:");
}

void frmGraphicsShapefile::LayOut() {
  optNew.Move(7, 7, 286, 11);
  frmNew.Move(7, 20, 286, 28);
  optPoint.SetContainer(frmNew);
  optPoint.Move(8, 9, 80, 11);
  optPolyline.SetContainer(frmNew);
  optPolyline.Move(96, 9, 90, 11);
  optPolygon.SetContainer(frmNew);
  optPolygon.Move(194, 9, 86, 11);
  optConvert.Move(7, 54, 286, 11);
  lbxGraphics.Move(7, 67, 286, 54);
  chkSelected.Move(7, 125, 150, 11);
  cmdSpRef.Move(7, 143, 100, 14);
  lblSpRef.Move(7, 161, 286, 18);
  lbxGraphics.SetBackColor(kWindowBackground);
  PlaceOutputRow({.top = 186, .width = 300, .least_width = 290, .least_height = 215, .to_buttons = 33});

  SetTabOrder({&optNew, &optPoint, &optPolyline, &optPolygon, &optConvert, &lbxGraphics, &chkSelected, &cmdSpRef});
}

void frmGraphicsShapefile::SetEvents() {
  optNew.Click = [this] { Mode_Click(); };
  optConvert.Click = [this] { Mode_Click(); };
  optPoint.Click = [this] { Shape_Click(); };
  optPolyline.Click = [this] { Shape_Click(); };
  optPolygon.Click = [this] { Shape_Click(); };
  lbxGraphics.Click = [this] { lbxGraphics_Click(); };
  chkSelected.Click = [this] { chkSelected_Click(); };
  cmdSpRef.Click = [this] { cmdSpRef_Click(); };
}

void frmGraphicsShapefile::SetAnchors() {
  anchors_.Hold({
      {optNew, enumStartEnd, enumStartSize},
      {frmNew, enumStartEnd, enumStartSize},
      {optConvert, enumStartEnd, enumStartSize},
      {lbxGraphics, enumStartEnd, enumStartEnd},
      {chkSelected, enumStartSize, enumSizeEnd},
      {cmdSpRef, enumStartSize, enumSizeEnd},
      {lblSpRef, enumStartEnd, enumSizeEnd},
  });
}

}  // namespace tessarine
