// SPDX-License-Identifier: GPL-2.0-or-later
// What a German user reads: every window in each of its states, and a run from its beginning to its end. Names,
// numbers and dates come out as his language has them.
#include <QLabel>
#include <QTextEdit>

#include "helpers/fake_application.h"
#include "helpers/temporary_folder.h"
#include "hosts/windows/translation.h"
#include "support/frmOrlProgressMeter.h"
#include "support/run_progress.h"
#include "tests/hosts/windows/english_words.h"
#include "tests/hosts/windows/windows_fixture.h"

namespace tessarine {
namespace {

using ::testing::IsEmpty;

class GermanWindows : public ::testing::Test {
 protected:
  GermanWindows() {
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    host.clock_stands = true;
  }
  ~GermanWindows() override { QLocale::setDefault(QLocale::c()); }

  // Boxes and lists of names: of layers, fields, spheroids and graphics.
  template <class List>
  static void LeaveNamesOut(const Control& control, QStringList& texts) {
    const auto* list = dynamic_cast<const List*>(&control);
    if (list == nullptr || control.Name() == "lbxGraphics" || control.Name() == "cboPole") return;
    for (std::int32_t line = 0; line < list->ListCount(); ++line) {
      if (!list->List(line).starts_with("<--")) texts.removeAll(ToQt(list->List(line)));
    }
    if (const auto* combo = dynamic_cast<const ComboBox*>(list)) texts.removeAll(ToQt(combo->Text()));
  }

  void LookAt(FormWindow& window) {
    window.Flush();
    QStringList texts = testing::ShownTextsOf(window);
    for (const Control* control : window.ShownForm().Controls()) {
      const auto* captioned = dynamic_cast<const Captioned*>(control);
      if (captioned != nullptr && captioned->Visible()) texts << window.CaptionOf(*captioned);
      LeaveNamesOut<ListBox>(*control, texts);
      LeaveNamesOut<ComboBox>(*control, texts);
    }
    // Reports stay in English.
    const auto* report = window.findChild<QTextEdit*>(QStringLiteral("txtReport"));
    if (report != nullptr && window.ShownForm().Caption() == " Report") texts.removeAll(report->toPlainText());
    seen += texts.size();
    for (const QString& text : english.In(texts)) {
      found.insert(window.ShownForm().Name() + ": " + text.toStdString());
    }
  }

  // Each layer of the first list with each choice of the others.
  void LookAtStates(FormWindow& window) {
    LookAt(window);
    auto* layers = window.ShownForm().FindAs<ListBox>("lbxLayers");
    for (std::int32_t line = 0; layers != nullptr && line < layers->ListCount(); ++line) {
      layers->SetListIndex(line);
      LookAt(window);
      for (Control* control : window.ShownForm().Controls()) {
        if (!control->Visible() || !control->Enabled()) continue;
        if (auto* option = dynamic_cast<OptionButton*>(control)) option->SetValue(true);
        if (auto* box = dynamic_cast<CheckBox*>(control)) box->SetValue(CheckBox::kChecked);
      }
      LookAt(window);
    }
  }

  testing::QtSession qt{{.german = true}};
  testing::SampleHost host;
  const testing::EnglishWords english;
  std::set<std::string> found;
  int seen = 0;
};

TEST_F(GermanWindows, EnglishWordsAreToldFromGermanOnesAndFromNames) {
  EXPECT_GT(english.Count(), 700);
  EXPECT_THAT(english.In({"Feld 'the field' von /tmp/the/field fehlt.", "Name", "Polygon"}), IsEmpty());
  EXPECT_EQ(english.In({"Ein Feld", "Zwei fields", "W&ith a hole"}),
            QStringList({"Zwei fields <- fields", "W&ith a hole <- with"}));
}

TEST_F(GermanWindows, HoldNothingInEnglish) {
  const testing::TemporaryFolder folder;
  VisitForms(host, folder.Native(), [&](const std::string&, FormWindow& window) { LookAtStates(window); });
  EXPECT_GT(seen, 500);
  EXPECT_THAT(found, IsEmpty());
}

std::string TextOf(const FormWindow& window, const char* name) {
  if (const auto* log = qobject_cast<QTextEdit*>(window.WidgetOf(name))) return log->toPlainText().toStdString();
  return qobject_cast<QLabel*>(window.WidgetOf(name))->text().toStdString();
}

struct ProgressText {
  const char *control, *text;
};

TEST_F(GermanWindows, TellTheProgressOfARun) {
  const auto application = std::make_shared<testing::FakeApplication>();
  const auto form = std::make_shared<frmOrlProgressMeter>();
  RunContext context = HostContext();
  RunProgressWords words;
  words.action_text = "Extracting Vertices...";
  words.repeated_action = "Extracting Vertices...";
  RunProgress progress(context, words, application, 12345, form);
  host.clock.now = AddSeconds(host.clock.now, 7.0);
  EXPECT_TRUE(progress.Step(4321));
  const FormWindow& window = *host.FormWindows().WindowOf(*form);
  const ProgressText texts[] = {{"lblBeginTime", "Beginn: 09:26:53,  14.03.2026"},
                                {"lblIndex", "St\xC3\xBCtzpunkte werden gelesen ..."},
                                {"lblRecordNumber", "Berechnung ... 4.321 von 12.345 ..."},
                                {"lblPercentDone", "(35%)"}};
  for (const auto& [control, text] : texts) EXPECT_EQ(TextOf(window, control), text);
  host.clock.now = AddSeconds(host.clock.now, 61.0);
  progress.Finish();
  form->Refresh();
  EXPECT_EQ(TextOf(window, "txtDetails"),
            "Beginn: \n"
            "St\xC3\xBCtzpunkte werden gelesen ... 09:26:53,  14.03.2026\n"
            "-------------------------------------------\n"
            "Objekt 4321 von 12345 ... --> \n"
            "          [09:27:00,  14.03.2026]\n"
            "Berechnung beendet --> \n"
            "          [09:28:01,  14.03.2026]\n"
            "Beginn: Samstag, 14. M\xC3\xA4rz 2026;  09:26:53\n"
            "Ende: Samstag, 14. M\xC3\xA4rz 2026;  09:28:01\n"
            "Dauer: 1 Minute, 8 Sekunden");
  EXPECT_THAT(english.In(testing::ShownTextsOf(window)), IsEmpty());
  form->Unload();
}

struct MadeText {
  const char *text, *translation;
};

// Moments and numbers as the locale data of Unicode have them.
const MadeText kLocalTexts[] = {
    {"9:05:07 PM", "21:05:07"},
    {"12:00:01 AM,  3/4/2026", "00:00:01,  04.03.2026"},
    {"Estimated completion time: 9:29:49 AM, 3/15/2026", "Ende etwa: 09:29:49, 15.03.2026"},
    {"Analysis Began: Saturday, March 14, 2026;  9:26:53 AM", "Beginn: Samstag, 14. M\xC3\xA4rz 2026;  09:26:53"},
    {"Time Elapsed: 1 day, 2 hours, 1 minute, 30 seconds...", "Dauer: 1 Tag, 2 Stunden, 1 Minute, 30 Sekunden"},
    {"(35.12%)", "(35,12%)"},
    {"Spheroid: WGS 84,  Maj.Rad. = 6378137m,  Min.Rad. = 6356752.31424518m",
     "Sph\xC3\xA4roid: WGS 84,  gr. Halbachse = 6378137 m,  kl. Halbachse = 6356752,31424518 m"},
    {"  --> Option 'Sph. Area',  Field Name = 1.5a  (> 10 characters)\r\n  --> Option 'Perimeter Length',  Field Name "
     "= b",
     "--> Ma\xC3\x9F 'Sph\xC3\xA4r. Fl\xC3\xA4"
     "che', Feldname = 1.5a  (mehr als 10 Zeichen)\n  --> Ma\xC3\x9F 'Umfang', Feldname = b"},
    // Names, versions and what is no moment.
    {"1.5", "1.5"},
    {"25:00:00 PM", "25:00:00 PM"},
    {"9:05:07 PM rivers", "9:05:07 PM rivers"},
};

TEST_F(GermanWindows, HaveNumbersAndMomentsOfTheirLocale) {
  for (const auto& [text, translation] : kLocalTexts)
    EXPECT_EQ(Translated(LinesToQt(text)).toStdString(), translation) << text;
}

}  // namespace
}  // namespace tessarine
