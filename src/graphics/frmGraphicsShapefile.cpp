// SPDX-License-Identifier: GPL-2.0-or-later
#include "graphics/frmGraphicsShapefile.h"

#include <utility>

#include "graphics/graphics_run.h"
#include "outputs/formats.h"
#include "platform/host.h"
#include "platform/text_formats.h"
#include "platform/trap.h"
#include "support/aml_func_mod.h"
#include "support/frmReport_modal.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

constexpr std::int32_t kModeColor = 0xC2C2C2;

void ReadTypedPlace(const std::string& text, OutputPlace& place) {
  if (place.format != nullptr && !place.format->HasOwnWorkspace()) {
    if (text == place.Path()) return;
    // What the box names is the kind, until it names another.
    place.format = FormatOfKind(kShapefile);
  }
  if (!FollowNamedFormat(text, place)) place = PlaceAtPath(text, place.Kind(), place.dataset);
}

}  // namespace

frmGraphicsShapefile::frmGraphicsShapefile() : OutputForm("frmGraphicsShapefile", ReadTypedPlace, "cmdHelp") {
  SetTexts();
  LayOut();
  SetEvents();
}

void frmGraphicsShapefile::SetArcApplication(const std::shared_ptr<IApplication>& application) {
  Trap("ArcApplication", [&] {
    application_ = application;
    document_ = Cast<IMxDocument>(application_->Document());
    if (!extension_) extension_ = FindExtension(application_);
    Require(extension_, "clsExtension")->ShouldContinue = false;
    CheckEnable();
  });
}

void frmGraphicsShapefile::Form_Load() {
  OutputForm::Form_Load();
  Trap("Form_Load", [this] {
    const IFormHost& screen = Host().Forms();
    MoveTo(2 * screen.ScreenWidth() / 3 - 2 * Width() / 3, 2 * screen.ScreenHeight() / 3 - Height() / 3);
    SetAnchors();
    optNew.SetValue(true);
    optPolygon.SetValue(true);
    lbxGraphics.Clear();
    FillGraphicsArrays();
    if (graphics_.harvest) {
      OfferConversions();
    } else {
      OfferNoConversion(graphics_.why_none);
    }
    const SpatialReferenceRef map_reference = document_->FocusMap()->SpatialReference();
    reference_ = IsKnown(map_reference) ? map_reference : nullptr;
    ShowReference();
    output_.Show(ProposeOutput(*extension_, application_, kGraphicsOutput));
    optNew.SetBackColor(kModeColor);
    optConvert.SetBackColor(kModeColor);
    CheckEnable();
  });
}

void frmGraphicsShapefile::FillGraphicsArrays() {
  graphics_ = {std::nullopt, kNoGraphics};
  Trap("FillGraphicsArrays", [this] { graphics_ = GraphicsOf(*document_); });
}

void frmGraphicsShapefile::OfferConversions() {
  chkSelected.SetEnabled(true);
  optConvert.SetEnabled(true);
  const bool any_selected = graphics_.harvest->selected.Count() > 0;
  chkSelected.SetValue(any_selected ? CheckBox::kChecked : CheckBox::kUnchecked);
  (any_selected ? optConvert : optNew).SetValue(true);
  FillGraphicsListBox();
}

void frmGraphicsShapefile::OfferNoConversion(const char* line) {
  chkSelected.SetValue(CheckBox::kUnchecked);
  chkSelected.SetEnabled(false);
  optNew.SetValue(true);
  optConvert.SetEnabled(false);
  lbxGraphics.SetEnabled(false);
  lbxGraphics.Clear();
  lbxGraphics.AddItem(line);
}

void frmGraphicsShapefile::FillGraphicsListBox() {
  Trap("FillGraphicsListBox", [this] {
    // Without graphics the list says why there are none.
    if (!graphics_.harvest) return;
    lbxGraphics.Clear();
    const GraphicHarvest& harvest = *graphics_.harvest;
    const std::shared_ptr<StrArray> lines = (SelectedOnly() ? harvest.selected : harvest.all).ConversionLines();
    for (const std::string& line : *lines) lbxGraphics.AddItem(line);
  });
}

void frmGraphicsShapefile::CheckEnable() {
  Trap("CheckEnable", [this] {
    const bool any_shape = optPoint.Value() || optPolyline.Value() || optPolygon.Value();
    const bool ready =
        (optNew.Value() && any_shape) || (optConvert.Value() && graphics_.harvest && lbxGraphics.ListIndex() >= 0);
    Control* const shapes[] = {&frmNew, &optPoint, &optPolyline, &optPolygon};
    for (Control* control : shapes) control->SetEnabled(optNew.Value());
    lbxGraphics.SetEnabled(optConvert.Value());
    chkSelected.SetEnabled(optConvert.Value());
    cmdOK.SetEnabled(ready && IsKnown(reference_));
  });
}

void frmGraphicsShapefile::ShowReference() {
  lblSpRef.SetCaption("Spatial Reference = " +
                      (reference_ ? Replace(reference_->Name(), "&", "&&") : "<-- No Spatial Reference Set -->"));
}

void frmGraphicsShapefile::chkSelected_Click() {
  Trap("chkSelected_Click", [this] {
    FillGraphicsListBox();
    CheckEnable();
  });
}

void frmGraphicsShapefile::Mode_Click() {
  Trap(optConvert.Value() ? "optConvert_Click" : "optNew_Click", [this] {
    FillGraphicsListBox();
    CheckEnable();
  });
}

void frmGraphicsShapefile::Shape_Click() { CheckEnable(); }

void frmGraphicsShapefile::lbxGraphics_Click() { CheckEnable(); }

void frmGraphicsShapefile::cmdSpRef_Click() {
  Trap("cmdSpRef_Click", [this] {
    const std::shared_ptr<ISpatialReferenceDialog2> dialog = Host().CreateSpatialReferenceDialog();
    Require(dialog, "SpatialReferenceDialog")->SetInitial(reference_);
    if (const SpatialReferenceRef chosen = dialog->DoModalCreate(0)) {
      reference_ = chosen;
      ShowReference();
    }
    CheckEnable();
  });
}

void frmGraphicsShapefile::cmdGetWorkspace_Click() {
  OutputPlace place = output_.Place();
  if (!BrowseForOutput(txtOutput.Text(), place, kAnyGeodatabasePlace)) return;
  if (place.Kind() == kShapefile) place.name = WithShapefileEnding(place.name);
  output_.Show(std::move(place));
}

OutputPlace frmGraphicsShapefile::TypedPlace() const {
  OutputPlace place = output_.Place();
  ReadTypedPlace(txtOutput.Text(), place);
  return place;
}

Arguments frmGraphicsShapefile::Chosen() const {
  Arguments arguments;
  if (optConvert.Value()) {
    const std::int32_t line = lbxGraphics.ListIndex();
    const GraphicShape& shape = ShapeOfConversion(line);
    arguments.Set("to", std::string(shape.word));
    arguments.Set("both", line == shape.both_line);
    arguments.Set(SelectedOnly() ? "selected" : "all", true);
  } else {
    const GraphicShape& shape = ShapeOfConversion(optPoint.Value() ? 0 : optPolyline.Value() ? 1 : 3);
    arguments.Set("shapes", std::string(shape.word));
  }
  arguments.Set("reference", reference_);
  arguments.Set("output", ShownArgument(TypedPlace()));
  return arguments;
}

std::optional<Objection> frmGraphicsShapefile::ObjectionToChoice() const {
  if (!optConvert.Value()) return std::nullopt;
  return ObjectionToSet(ConversionAt(lbxGraphics.ListIndex()), *graphics_.harvest, SelectedOnly());
}

void frmGraphicsShapefile::cmdOK_Click() {
  const Arguments arguments = Chosen();
  RememberOutput(TypedPlace(), *extension_);
  if (const auto objection = ObjectionToChoice()) {
    const MessageAnswer answer = Host().MessageBox().Show(objection->text, objection->title, MessageButtons::OkCancel);
    if (answer != MessageAnswer::Ok) Unload();
    return;
  }
  RunContext context = HostContext();
  const GraphicsWork work = Host().PlanOnly() ? GraphicsWork::Plan : GraphicsWork::Run;
  const std::string text = optConvert.Value() ? ConvertGraphics(context, arguments, application_, work)
                                              : MakeEmptyClass(context, arguments, application_, work);
  if (!text.empty()) {
    Hide();
    frmReport_modal report;
    report.txtReport.SetTextRTF(text);
    report.ShowModal();
  }
  Unload();
}

void frmGraphicsShapefile::Form_Unload() {
  OutputForm::Form_Unload();
  document_ = nullptr;
  reference_ = nullptr;
  graphics_.harvest.reset();
}

}  // namespace tessarine
