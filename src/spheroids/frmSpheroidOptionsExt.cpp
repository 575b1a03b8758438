// SPDX-License-Identifier: GPL-2.0-or-later
#include "spheroids/frmSpheroidOptionsExt.h"

#include "platform/report_heads.h"
#include "platform/trap.h"
#include "support/frmReport_modal.h"

namespace tessarine {
namespace {

constexpr const char* kHelp =
    "\\viewkind4\\uc1\\pard\\f0\\fs18 The terms \\i Planetocentric\\i0  and \\i Planetographic\\i0  tell by which "
    "method latitude is defined on the spheroid.\\par\r\n"
    "\\par \\b Planetographic:\\b0  The latitude of a point is the angle between the plane of the equator and the "
    "line that stands at right angles on the surface of the spheroid there (the normal). This method gives "
    "Geographic (or Geodetic) coordinates.\\par\r\n"
    "\\par \\b Planetocentric:\\b0  The latitude of a point is the angle between the plane of the equator and the "
    "line from the center of the spheroid to the point. This method gives Geocentric coordinates.\\par\r\n"
    "\\par The prefix \"Planeto\" stands in place of \"Geo\" where the body may be another than Earth. Most Earth "
    "datums are Planetographic, and most extra-terrestrial datums are Planetocentric.\\par\r\n"
    "\\par Longitudes are the same in both. Latitudes differ the more, the more the spheroid is flattened; on a true "
    "sphere there is no difference at all.\\par\r\n"
    "\\par Please refer to the manual for illustrations of these concepts.\\par\r\n"
    "}";

}  // namespace

frmSpheroidOptionsExt::frmSpheroidOptionsExt() : frmSpheroidOptions("frmSpheroidOptionsExt") {
  SetCaption(" Advanced Geometry Parameters:");
  lblCentricVsGraphic.SetCaption("Latitudes of the Data:");
  optGraphic.SetCaption("Data are in Planeto [Geo] &Graphic Coordinates");
  optCentric.SetCaption("Data are in Planeto [Geo] Ce&ntric Coordinates");
  cmdHelp.SetCaption("&Help");
  optGraphic.SetValue(true);
  cmdHelp.Click = [this] { cmdHelp_Click(); };

  lblCentricVsGraphic.Move(7, 175, 226, 9);
  optGraphic.Move(7, 187, 226, 11);
  optCentric.Move(7, 201, 226, 11);
  cmdHelp.Move(237, 198, 56, 14);
  PlaceButtons(224);

  // The new controls stand between the radii and the buttons.
  std::int32_t tab_index = cmdManual.TabIndex();
  Control* const tab_order[] = {&lblCentricVsGraphic, &optGraphic, &optCentric, &cmdHelp,
                                &cmdManual,           &cmdOK,      &cmdCancel};
  for (Control* control : tab_order) control->SetTabIndex(tab_index++);
}

void frmSpheroidOptionsExt::Form_Load() {
  frmSpheroidOptions::Form_Load();
  Trap("Form_Load", [this] {
    for (Control* control : {static_cast<Control*>(&lblCentricVsGraphic), static_cast<Control*>(&optGraphic),
                             static_cast<Control*>(&optCentric)}) {
      Anchors().Item(*control).SetAnchors(enumStartEnd, enumStartSize);
    }
    Anchors().Item(cmdHelp).SetAnchors(enumSizeEnd, enumStartSize);
  });
}

void frmSpheroidOptionsExt::LeaveAnswer(clsExtension& extension) const {
  frmSpheroidOptions::LeaveAnswer(extension);
  extension.CurrentSpheroidGeocentric = optCentric.Value();
}

void frmSpheroidOptionsExt::cmdHelp_Click() {
  Trap("cmdHelp_Click", [] {
    frmReport_modal help;
    help.SetCaption("Planetocentric vs. Planetographic:");
    help.txtReport.SetTextRTF(RtfHead() + kHelp);
    help.ShowModal();
  });
}

}  // namespace tessarine
