// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/sample_forms.h"

#include <QPalette>
#include <QStyle>

#include "calculator/measure_choice.h"
#include "frame/commands/command_table.h"
#include "helpers/fake_application.h"
#include "hosts/document/document_application.h"
#include "hosts/document/document_file.h"
#include "hosts/document/document_layer.h"
#include "hosts/windows/translation.h"
#include "spheroids/frmSpheroidOptionsExt.h"
#include "spheroids/spheroid_entries.h"
#include "support/elapsed_time.h"
#include "support/frmMessageBox.h"
#include "support/frmOrlProgressMeter.h"
#include "support/frmOrlProgressPercent.h"
#include "support/frmReport_modal.h"

namespace tessarine::testing {

std::string SampleReport() {
  const Date begin = MakeDate(2026, 3, 14, 9, 26, 53);
  std::string report =
      "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fprq2\\fcharset0 Arial;}}\r\n"
      "\\viewkind4\\uc1\\pard\\qc\\b\\f0\\fs17 Convert Features to Spherical Centroids\\b0\\fs17\\par\r\n"
      "\\pard ------------------------------------------------------------------------\\par\r\n"
      "  ** Input Feature Layer: countries\\par\r\n  ** All records\\par\r\n  ** 177 Records\\par\r\n"
      "\\b Attribute Fields:\\b0\\par\r\n   name\\par\r\n   pop_est\\par\r\n"
      "\\b Shapefile saved to:\\b0\\par\r\n   /home/ann/maps/spherical_centroid.shp\\par\r\n";
  return report + MyGeneralOperations::ReturnTimeElapsedRTF(begin, AddSeconds(begin, 61), 8) + "}";
}

namespace {

// The colours that desktops use at night.
QPalette DarkPalette() {
  QPalette palette(QColor(0x31363B), QColor(0x2A2E32));
  palette.setColor(QPalette::Base, QColor(0x1B1E20));
  palette.setColor(QPalette::AlternateBase, QColor(0x232629));
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, QColor(0xFCFCFC));
    palette.setColor(QPalette::Disabled, role, QColor(0x7F8C8D));
  }
  palette.setColor(QPalette::Highlight, QColor(0x3DAEE9));
  palette.setColor(QPalette::HighlightedText, QColor(0xFCFCFC));
  return palette;
}

class FormTour {
 public:
  FormTour(SampleHost& host, const std::filesystem::path& folder, const FormVisitor& visit)
      : host_(host), folder_(folder), visit_(visit) {
    host_.FormWindows().on_opened = [this](FormWindow& window) { Opened(window); };
  }
  ~FormTour() { host_.FormWindows().on_opened = nullptr; }
  FormTour(const FormTour&) = delete;
  FormTour& operator=(const FormTour&) = delete;

  void Commands() {
    namespace fs = std::filesystem;
    for (const auto& entry : fs::directory_iterator(TESSARINE_TEST_DATA)) {
      fs::copy(entry.path(), folder_ / entry.path().filename(), fs::copy_options::overwrite_existing);
    }
    const auto document = ReadDocumentFile((folder_ / "graphics.json").string());
    document->SetSelectedLayer(document->Map().Layer(0));
    const auto application = std::make_shared<DocumentApplication>(document, std::make_shared<FakeStatusBar>());
    application->Start();
    for (const CommandRow& row : AllCommands()) {
      prefix_ = std::string(row.texts.class_name) + "_";
      const WindowHost::CommandScope scope(host_);
      (void)application->Click(std::string("Tessarine.") + row.texts.class_name);
    }
    prefix_.clear();
    application->Stop();
  }

  void Between() {
    frmReport_modal report;
    report.txtReport.SetTextRTF(SampleReport());
    report.ShowModal();
    frmMessageBox message;
    message.txtMessage.SetText(
        TakenNames({{"Sph. Area", "area"}, {"Perimeter Length", "length"}}, {"area", "length"})->text);
    message.ShowModal();
    ShowProgress(std::make_shared<frmOrlProgressPercent>());
    ShowProgress(std::make_shared<frmOrlProgressMeter>());
    for (const bool extended : {false, true}) ShowSpheroids(extended);
  }

 private:
  void Opened(FormWindow& window) {
    // Ticked measures show the boxes for their field names.
    for (const char* name : {"chk1", "chk2", "chk3"}) {
      auto* box = window.ShownForm().FindAs<CheckBox>(name);
      if (box != nullptr && box->Visible()) box->SetValue(CheckBox::kChecked);
    }
    window.Flush();
    visit_(prefix_ + window.ShownForm().Name(), window);
    window.close();
  }

  void ShowProgress(const std::shared_ptr<ProgressForm>& form) {
    form->SetSetExpanded(true);
    form->SetShouldContinue(true);
    form->SetProgBeginTime(AddSeconds(host_.Clock().Now(), -95.0));
    form->SetProgRecCount(12345);
    form->Load();
    std::int32_t record = 4321;
    form->Est_Time_Left(record, "Calculating Polygon Attributes...", "Performing Calculations...");
    form->txtDetails.SetText(
        "Calculating Geometry on Polygons...\r\nBegan Job: 9:25:18 AM,  3/14/2026\r\n"
        "-------------------------------------------\r\n");
    form->AppendDetails(
        "Working on Feature 4321 of 12345... --> \r\n          [time stamp 9:26:53 AM,  3/14/2026]\r\n");
    form->lblCurrentTime.SetCaption("9:26:53 AM");
    form->Frame()->SetVisible(true);
  }

  void ShowSpheroids(bool extended) {
    const auto extension = std::make_shared<clsExtension>();
    const auto input = SpheroidDialogInput::Make(std::make_shared<FakeApplication>(), extension, "WGS 1984", 6378137.0,
                                                 6356752.31424518);
    std::unique_ptr<frmSpheroidOptions> form;
    if (extended) {
      form = std::make_unique<frmSpheroidOptionsExt>();
    } else {
      form = std::make_unique<frmSpheroidOptions>();
    }
    form->SetArcApplication(input);
    form->ShowModal();
    if (!extended) return;
    prefix_ = "help_";
    form->FindAs<CommandButton>("cmdHelp")->Press();
    prefix_.clear();
  }

  SampleHost& host_;
  std::filesystem::path folder_;
  const FormVisitor& visit_;
  std::string prefix_;
};

}  // namespace

QtSession::QtSession(const Drawing& drawing) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_SCALE_FACTOR", QByteArray::number(drawing.scale));
  application_ = std::make_unique<QApplication>(count_, static_cast<char**>(arguments_));
  QApplication::setStyle(QStringLiteral("fusion"));
  if (drawing.dark) QApplication::setPalette(DarkPalette());
  QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), drawing.points));
  QApplication::setQuitOnLastWindowClosed(false);
  UseLanguage(drawing.german ? QLocale(QLocale::German) : QLocale::c());
}

// A palette and a language outlive their application.
QtSession::~QtSession() {
  QApplication::setPalette(QApplication::style()->standardPalette());
  UseLanguage(QLocale::c());
}

std::shared_ptr<IFeatureLayer> SampleHost::CreateFeatureLayer() { return std::make_shared<DocumentFeatureLayer>(); }

void VisitForms(SampleHost& host, const std::filesystem::path& folder, const FormVisitor& visit) {
  FormTour tour(host, folder, visit);
  tour.Between();
  tour.Commands();
}

}  // namespace tessarine::testing
