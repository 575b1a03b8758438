// SPDX-License-Identifier: GPL-2.0-or-later
// How frmGraphicsShapefile looks and what its controls are wired to.
#include "graphics/frmGraphicsShapefile.h"

namespace tessarine {

frmGraphicsShapefile::frmGraphicsShapefile() : Form("frmGraphicsShapefile") {
  SetTexts();
  LayOut();
  SetEvents();
}

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
  cmdGetWorkspace.SetToolTipText("Browse for Output Folder...");
  cmdGetWorkspace.PictureId = 201;
  cmdHelp.SetCaption("Manual");
  cmdOK.SetCaption("OK");
  cmdOK.Default = true;
  cmdCancel.SetCaption("Cancel");
  cmdCancel.Cancel = true;
}

void frmGraphicsShapefile::LayOut() {
  SetSize(300, 240);
  SetMinimumSize(290, 215);
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
  lblOutputName.Move(7, 186, 286, 9);
  txtOutput.Move(7, 197, 266, 13);
  cmdGetWorkspace.Move(277, 196, 16, 15);
  cmdHelp.Move(7, 219, 56, 14);
  cmdOK.Move(177, 219, 56, 14);
  cmdCancel.Move(237, 219, 56, 14);
  lbxGraphics.SetBackColor(kWindowBackground);
  txtOutput.SetBackColor(kWindowBackground);

  Control* const order[] = {&optNew,          &optPoint,    &optPolyline, &optPolygon,    &optConvert,
                            &lbxGraphics,     &chkSelected, &cmdSpRef,    &lblOutputName, &txtOutput,
                            &cmdGetWorkspace, &cmdHelp,     &cmdOK,       &cmdCancel};
  std::int32_t tab_index = 0;
  for (Control* control : order) control->SetTabIndex(tab_index++);
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
  txtOutput.Change = [this] { txtOutput_Change(); };
  cmdGetWorkspace.Click = [this] { cmdGetWorkspace_Click(); };
  cmdHelp.Click = [this] { cmdHelp_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
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
      {lblOutputName, enumStartEnd, enumSizeEnd},
      {txtOutput, enumStartEnd, enumSizeEnd},
      {cmdGetWorkspace, enumSizeEnd, enumSizeEnd},
      {cmdHelp, enumStartSize, enumSizeEnd},
      {cmdOK, enumSizeEnd, enumSizeEnd},
      {cmdCancel, enumSizeEnd, enumSizeEnd},
  });
  anchors_.SetForm(*this);
}

}  // namespace tessarine
