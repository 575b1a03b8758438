// SPDX-License-Identifier: GPL-2.0-or-later
// How frmBuildParams looks and what its controls are wired to.
#include "conversion/frmBuildParams.h"
#include "conversion/layer_choices.h"
#include "platform/trap.h"

namespace tessarine {

frmBuildParams::frmBuildParams() : OutputForm("frmBuildParams", MyGeneralOperations::FollowTypedPath) {
  SetTexts();
  LayOut();
  SetEvents();
}

void frmBuildParams::SetTexts() {
  SetCaption(" Build Polygons:");
  lblLayer.SetCaption("Select Polyline &Layer to Convert:");
  optAll.SetCaption("Use All Polylines");
  optSel.SetCaption("Selected Polylines");
  lblTolerance.SetCaption("Cluster &Tolerance:");
  lblUnits.SetCaption("Units:");
  chkUseLabelPoints.SetCaption("Transfer Label Point Attributes");
  lblLabelPoints.SetCaption("Label &Point Attributes:");
  cbxPointLayers.SetToolTipText("Select Label Point Layer");
  cbxPointLayers.DropDownList = true;
  optAllLabelPoints.SetCaption("Consider All Label Points");
  optSelLabelPoints.SetCaption("Only Selected Points");
  lblChooseLabelPoint.SetCaption("If multiple label points in polygon, choose: ");
  optFirstLabelPoint.SetCaption("First Label Point");
  optCentroidLabelPoint.SetCaption("Point Closest to Polygon Centroid");
  lblFields.SetCaption("Layer and Attribute &Fields to Include:");
  lbxFields.SetToolTipText("Select Label Point Attribute Fields");
  lbxFields.MultiSelect = true;
  cmdSelFields.SetCaption(SelectFieldsCaption(false));
  txtMessage.Locked = true;
  txtMessage.MultiLine = true;
  txtMessage.SetText(
      "This function will build a polygon shapefile from a set of polylines by identifying the regions "
      "formed by intersecting polylines.  Attribute fields for the polygons will include a unique ID field and an area "
      "field.  No attributes from the polylines themselves will be transferred to the polygons.  Optionally, "
      "attributes "
      "from a point feature class may be transferred to the polygons.");
  lblOutputName.SetCaption("Output Polygon Feature &Class:");
}

void frmBuildParams::SetEvents() {
  lbxLayers.Click = [this] { lbxLayers_Click(); };
  cbxPointLayers.Click = [this] { cbxPointLayers_Click(); };
  chkUseLabelPoints.Click = [this] { chkUseLabelPoints_Click(); };
  lbxFields.Click = [this] { CheckOK(); };
  txtCluster.Change = [this] { CheckOK(); };
  txtCluster.Numeric = true;
  txtCluster.KeyPress = [this](std::int32_t& key) { txtCluster_KeyPress(key); };
  cmdSelFields.Click = [this] { cmdSelFields_Click(); };
  optAll.Click = [this] { optAll_Click(); };
}

void frmBuildParams::LayOut() {
  // On the left the lines.
  lblLayer.Move(7, 7, 155, 9);
  lbxLayers.Move(7, 18, 155, 58);
  framePolylines.Move(7, 80, 155, 38);
  optAll.SetContainer(framePolylines);
  optAll.Move(6, 8, 143, 11);
  optSel.SetContainer(framePolylines);
  optSel.Move(6, 22, 143, 11);
  lblTolerance.Move(7, 125, 62, 9);
  txtCluster.Move(70, 123, 92, 13);
  lblUnits.Move(7, 140, 155, 9);
  txtMessage.Move(7, 155, 155, 98);
  // On the right the points.
  chkUseLabelPoints.Move(172, 7, 191, 11);
  lblLabelPoints.Move(172, 22, 191, 9);
  cbxPointLayers.Move(172, 33, 191, 13);
  frameLabelPoints.Move(172, 50, 191, 38);
  optAllLabelPoints.SetContainer(frameLabelPoints);
  optAllLabelPoints.Move(6, 8, 179, 11);
  optSelLabelPoints.SetContainer(frameLabelPoints);
  optSelLabelPoints.Move(6, 22, 179, 11);
  frameWhichPoint.Move(172, 92, 191, 48);
  lblChooseLabelPoint.SetContainer(frameWhichPoint);
  lblChooseLabelPoint.Move(6, 7, 179, 9);
  optFirstLabelPoint.SetContainer(frameWhichPoint);
  optFirstLabelPoint.Move(6, 19, 179, 11);
  optCentroidLabelPoint.SetContainer(frameWhichPoint);
  optCentroidLabelPoint.Move(6, 32, 179, 11);
  lblFields.Move(172, 145, 191, 9);
  lbxFields.Move(172, 156, 191, 79);
  cmdSelFields.Move(172, 239, 191, 14);
  // Below, the output.
  PlaceOutputRow({.top = 260, .width = 370, .least_width = 300, .least_height = 280});

  Control* const windows[] = {&lbxLayers, &txtCluster, &cbxPointLayers, &lbxFields};
  for (Control* control : windows) control->SetBackColor(kWindowBackground);
  txtMessage.SetBackColor(kButtonFace);
  SetTabOrder({&lblLayer, &lbxLayers, &optAll, &optSel, &lblTolerance, &txtCluster, &chkUseLabelPoints, &lblLabelPoints,
               &cbxPointLayers, &optAllLabelPoints, &optSelLabelPoints, &optFirstLabelPoint, &optCentroidLabelPoint,
               &lblFields, &lbxFields, &cmdSelFields, &txtMessage});
}

void frmBuildParams::Form_Load() {
  OutputForm::Form_Load();
  Trap("Form_Load", [this] {
    // The left column keeps its width; lists and texts take the height, the right column the width.
    anchors_.Hold({
        {lblLayer, enumStartSize, enumStartSize},
        {lbxLayers, enumStartSize, enumStartSize},
        {framePolylines, enumStartSize, enumStartSize},
        {lblTolerance, enumStartSize, enumStartSize},
        {txtCluster, enumStartSize, enumStartSize},
        {lblUnits, enumStartSize, enumStartSize},
        {txtMessage, enumStartSize, enumStartEnd},
        {chkUseLabelPoints, enumStartEnd, enumStartSize},
        {lblLabelPoints, enumStartEnd, enumStartSize},
        {cbxPointLayers, enumStartEnd, enumStartSize},
        {frameLabelPoints, enumStartEnd, enumStartSize},
        {frameWhichPoint, enumStartEnd, enumStartSize},
        {lblFields, enumStartEnd, enumStartSize},
        {lbxFields, enumStartEnd, enumStartEnd},
        {cmdSelFields, enumStartEnd, enumSizeEnd},
        {lblOutputName, enumStartEnd, enumSizeEnd},
    });
  });
}

}  // namespace tessarine
