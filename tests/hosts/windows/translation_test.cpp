// SPDX-License-Identifier: GPL-2.0-or-later
// The suite in German: no text of a form, a menu or the toolbox is left out, and forms hold the texts.
#include "hosts/windows/translation.h"

#include <QTextEdit>
#include <algorithm>
#include <set>

#include "calculator/measure_catalogue.h"
#include "frame/commands/command_table.h"
#include "helpers/temporary_folder.h"
#include "hosts/document/component_loader.h"
#include "platform/measure_catalog.h"
#include "platform/rich_text.h"
#include "support/frmOrlProgressMeter.h"
#include "tests/hosts/windows/windows_fixture.h"
#include "tools/tool.h"

namespace tessarine {
namespace {

using ::testing::IsEmpty;

const QLocale kGerman(QLocale::German);

/// Texts that have no translation, each once.
class Missing {
 public:
  void Look(std::string_view text) {
    if (!HasTranslation(LinesToQt(text))) texts_.emplace(text);
  }
  [[nodiscard]] const std::set<std::string>& Texts() const { return texts_; }

 private:
  std::set<std::string> texts_;
};

// Names of references and times of day stand in the captions of these.
bool ShowsData(const Control& control) { return control.Name() == "lblSpRef" || control.Name() == "lblCurrentTime"; }

void LookAt(const Form& form, Missing& missing) {
  missing.Look(form.Caption());
  for (const Control* control : form.Controls()) {
    missing.Look(control->ToolTipText());
    if (const auto* captioned = dynamic_cast<const Captioned*>(control); captioned != nullptr && !ShowsData(*control)) {
      missing.Look(captioned->Caption());
    }
    if (const auto* poles = control->Name() == "cboPole" ? dynamic_cast<const ComboBox*>(control) : nullptr) {
      for (std::int32_t line = 0; line < poles->ListCount(); ++line) missing.Look(poles->List(line));
    }
    const auto* box = dynamic_cast<const TextBox*>(control);
    if (box != nullptr && box->Locked) missing.Look(box->Text());
    const auto* rich = dynamic_cast<const RichTextBox*>(control);
    const bool is_report = control->Name() == "txtReport" && form.Caption() == " Report";
    if (rich == nullptr || is_report || rich->Name() == "txtDetails") continue;
    for (const RichParagraph& paragraph : ReadRtf(rich->TextRTF())) {
      for (const RichRun& run : paragraph.runs) missing.Look(run.text);
    }
  }
}

class TranslationTest : public ::testing::Test {
 protected:
  TranslationTest() {
    EXPECT_TRUE(UseLanguage(kGerman));
    QLocale::setDefault(kGerman);
  }
  ~TranslationTest() override {
    UseLanguage(QLocale::c());
    QLocale::setDefault(QLocale::c());
  }

  testing::QtSession qt;
  Missing missing;
};

TEST_F(TranslationTest, TextsAreTakenWholeOrByTheirPattern) {
  EXPECT_EQ(Translated("Cancel"), "Abbrechen");
  EXPECT_EQ(Translated(" Current Status:"), "Stand:");
  EXPECT_EQ(Translated("Load 'Mars & Moons' Parameters"), "Werte von 'Mars & Moons' laden");
  EXPECT_EQ(Translated("Polygon Feature Class:  Geographic Coordinate System"), "Polygone, geographische Koordinaten");
  EXPECT_EQ(Translated("rivers_2024"), "rivers_2024");
  EXPECT_EQ(Translated("--- 12 ---"), "--- 12 ---");
  EXPECT_FALSE(HasTranslation("rivers_2024"));
  EXPECT_FALSE(UseLanguage(QLocale(QLocale::Swahili)));
  EXPECT_EQ(Translated("Cancel"), "Cancel");
}

struct MadeText {
  const char *name, *text, *translation;
};

// As faults are made: of a sentence, names, what a library says and advice.
const MadeText kMadeTexts[] = {
    {"a name in quotes", "'Points' has no layer 'Length'. It has: Area.",
     "'Points' hat keinen Layer 'Length'. Es gibt: Area."},
    {"a name at the end", "Generating Centroids from Length", "Schwerpunkte aus Length"},
    {"what looks like a place in a name", "'%2' has no field '%1'. It has: %3.",
     "'%2' hat kein Feld '%1'. Es gibt: %3."},
    {"words of a library, and advice",
     "'/a b.gpkg' can't be made (GDAL says: Area. (5)): there is no room left on its disk.",
     "'/a b.gpkg' kann nicht angelegt werden (GDAL meldet: Area. (5)): auf dem Datenträger ist kein Platz mehr."},
    {"what no pattern begins with",
     "No copy can be made of '/a.gdb' (Permission denied): it may not be written to; check its permissions.",
     "Keine Kopie möglich von '/a.gdb' (Permission denied): es darf nicht geschrieben werden; bitte die Zugriffsrechte "
     "prüfen."},
    {"two sentences, one of them unknown", "Something went. There is no folder '/x'.",
     "Something went. Es gibt keinen Ordner '/x'."},
    {"lines that are names", "Confirm Action:\nLength\nThere is no file 'a'.",
     "Bitte bestätigen:\nLength\nEs gibt keine Datei 'a'."},
    {"lines behind a text that ends in a name", "Generating Centroids from Area\nThere is no file 'a'.",
     "Schwerpunkte aus Area\nEs gibt keine Datei 'a'."},
    {"a text for a place", "Failed: The run was stopped.", "Fehlgeschlagen: Der Lauf wurde angehalten."},
    {"a piece ahead", "Attributes can't be written to the layer 'Area', which is being edited.",
     "Attribute können nicht geschrieben werden: Layer 'Area', der gerade bearbeitet wird."},
    {"a piece in the midst", "The field 'Name' can't be added under this name to the layer 'Area'.",
     "Das Feld 'Name' kann unter diesem Namen nicht angelegt werden: Layer 'Area'."},
    {"none of it known", "Area 51. Somewhere (there): no more.", "Area 51. Somewhere (there): no more."},
};

TEST_F(TranslationTest, FaultsAreTranslatedAndNamesStay) {
  for (const auto& [name, text, translation] : kMadeTexts) {
    EXPECT_EQ(Translated(text).toStdString(), translation) << name;
  }
}

TEST_F(TranslationTest, NoFormHasATextWithoutOne) {
  const testing::TemporaryFolder folder;
  testing::SampleHost host;
  std::set<std::string> outside;
  VisitForms(host, folder.Native(), [&](const std::string& name, FormWindow& window) {
    if (name != "frmMessageBox") LookAt(window.ShownForm(), missing);
    EXPECT_NE(window.Title().toStdString(), window.ShownForm().Caption()) << name;
  });
  EXPECT_THAT(missing.Texts(), IsEmpty());
}

TEST_F(TranslationTest, ALogIsShownLineByLine) {
  testing::SampleHost host;
  const auto form = std::make_shared<frmOrlProgressMeter>();
  form->Load();
  form->txtDetails.SetText("Extracting Vertices...9:25:07 PM,  3/14/2026\r\n");
  form->Frame()->SetVisible(true);
  form->ShowModeless();
  const FormWindow& window = *host.FormWindows().WindowOf(*form);
  const auto& log = *qobject_cast<QTextEdit*>(window.WidgetOf("txtDetails"));
  EXPECT_EQ(log.toPlainText(), "St\u00FCtzpunkte werden gelesen ... 21:25:07,  14.03.2026");
  form->AppendDetails("Working on Feature 1 of 2... --> \r\nrivers\r\n");
  form->Refresh();
  EXPECT_EQ(log.toPlainText().section('\n', 1).toStdString(), "Objekt 1 von 2 ... --> \nrivers");
  EXPECT_EQ(form->txtDetails.Text().substr(0, 10), "Extracting");
  EXPECT_EQ(qobject_cast<QAbstractButton*>(window.WidgetOf("cmdStop"))->text(), "Anhalten");
  form->Unload();
}

TEST_F(TranslationTest, NoMeasureCommandOrToolIsWithoutOne) {
  for (const std::string& caption :
       CreateComponentAs<IMeasureCatalog>("Tessarine.clsMeasureCatalog", "IMeasureCatalog")->Captions()) {
    missing.Look(caption);
  }
  for (const MeasureRow& row : AllMeasures()) {
    for (const std::string_view label : row.report_labels) missing.Look(label);
  }
  for (const char* unit : {"degrees", "metres", "square US survey feet", "units of chain"}) missing.Look(unit);
  for (const CommandRow& row : AllCommands()) {
    for (const char* text : {row.texts.caption, row.texts.tooltip, row.texts.message}) missing.Look(text);
  }
  missing.Look(CreateComponentAs<IToolBarDef>("Tessarine.clsToolBar", "IToolBarDef")->Caption());
  for (const char* id : {"clsMenu", "clsShapeSubMenu", "clsGeodesicSubMenu", "clsGraphicsSubMenu"}) {
    const auto menu = CreateComponentAs<IMenuDef>(std::string("Tessarine.") + id, "IMenuDef");
    missing.Look(menu->Caption());
  }
  for (const Tool* tool : AllTools()) {
    const ToolSpec& spec = tool->Spec();
    for (const std::string_view text : {spec.title, spec.text, spec.takes, spec.makes}) missing.Look(text);
    for (const ToolParameter& parameter : spec.parameters) {
      std::string label(parameter.name);
      std::ranges::replace(label, '-', ' ');
      label[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(label[0])));
      if (parameter.kind != ParameterKind::Output) missing.Look(label);
      if (parameter.kind != ParameterKind::Measures) missing.Look(parameter.text);
      for (const std::string_view text : {parameter.unit, parameter.otherwise}) missing.Look(text);
      for (const std::string_view choice : parameter.choices) missing.Look(choice);
    }
  }
  EXPECT_THAT(missing.Texts(), IsEmpty());
}

}  // namespace
}  // namespace tessarine
