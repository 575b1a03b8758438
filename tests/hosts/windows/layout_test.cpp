// SPDX-License-Identifier: GPL-2.0-or-later
// Every form of the suite, drawn at three sizes and in two themes: nothing is cut, nothing lies on anything else, and
// every text can be read on what is behind it.
#include <QLabel>
#include <QSizeGrip>
#include <functional>
#include <map>

#include "helpers/temporary_folder.h"
#include "hosts/windows/colors.h"
#include "hosts/windows/error_window.h"
#include "hosts/windows/mnemonics.h"
#include "tests/hosts/windows/readable.h"
#include "tests/hosts/windows/windows_fixture.h"

namespace tessarine {
namespace {

using testing::kReadableContrast;
using testing::Luminance;
using testing::RoomOf;
using testing::ShowsText;
using testing::TextContrast;
using testing::TextOf;
using testing::TextRoom;

bool Fits(const QWidget& widget, const std::string& text) {
  const QRect room = RoomOf(widget);
  const QFontMetrics metrics = widget.fontMetrics();
  const bool wraps = qobject_cast<const QLabel*>(&widget) != nullptr && room.height() >= 2 * metrics.lineSpacing();
  const int flags = int{Qt::TextShowMnemonic} | (wraps ? int{Qt::TextWordWrap} : 0);
  const QSize needed =
      metrics.boundingRect(QRect(0, 0, wraps ? room.width() : 100000, 100000), flags, ToQt(text)).size();
  // Rounding an edge may take a pixel from a line's descent.
  return needed.width() <= room.width() && needed.height() <= room.height() + 1;
}

// The report stands on its white sheet on purpose.
bool StandsOn(const QWidget& upper, const QWidget& lower) {
  return lower.objectName() == "txtBackground" && lower.geometry().contains(upper.geometry());
}

std::vector<std::string> Problems(const FormWindow& window) {
  std::vector<std::string> problems;
  std::vector<QWidget*> placed;
  for (const Control* control : window.ShownForm().Controls()) {
    QWidget* widget = window.WidgetOf(control->Name());
    if (widget == nullptr || !widget->isVisible()) continue;
    const std::string name = window.objectName().toStdString() + "." + control->Name();
    const std::string text = TextOf(*widget).toStdString();
    if (!text.empty() && !Fits(*widget, text)) problems.push_back(name + " cuts '" + text + "'");
    if (!widget->parentWidget()->rect().contains(widget->geometry())) problems.push_back(name + " reaches out");
    for (const QWidget* other : placed) {
      const bool siblings = other->parentWidget() == widget->parentWidget();
      if (siblings && other->geometry().intersects(widget->geometry()) && !StandsOn(*widget, *other) &&
          !StandsOn(*other, *widget)) {
        problems.push_back(name + " lies on " + other->objectName().toStdString());
      }
    }
    placed.push_back(widget);
  }
  return problems;
}

// Where the mark of a box or an option is drawn.
QRect MarkRoom(const QAbstractButton& button) {
  QStyleOptionButton option;
  option.initFrom(&button);
  const bool box = qobject_cast<const QCheckBox*>(&button) != nullptr;
  const auto element = box ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator;
  return button.style()->subElementRect(element, &option, &button).adjusted(3, 3, -3, -3);
}

std::vector<std::string> PaleTexts(FormWindow& window) {
  constexpr double kVisible = 3.0;
  std::vector<std::string> pale;
  for (const Control* control : window.ShownForm().Controls()) {
    QWidget* widget = window.WidgetOf(control->Name());
    if (widget == nullptr || !widget->isVisible() || !widget->isEnabled() || !ShowsText(*widget)) continue;
    // Taken from the window, whose colour shows through labels.
    const QPoint corner = widget->mapTo(&window, QPoint(0, 0));
    const double contrast = TextContrast(window.grab(TextRoom(*widget).translated(corner)).toImage());
    if (contrast < kReadableContrast) pale.push_back(control->Name() + " " + std::to_string(contrast));
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    if (button == nullptr || !button->isChecked()) continue;
    if (TextContrast(window.grab(MarkRoom(*button).translated(corner)).toImage()) < kVisible) {
      pale.push_back(control->Name() + " hides its mark");
    }
  }
  return pale;
}

// The eyes of this test: a caption that is too long, a control beyond the edge, one upon another.
TEST(LayoutEyes, SeeWhatIsWrong) {
  const testing::QtSession qt;
  const testing::SampleHost host;
  testing::LogForm form;
  form.chkAll.SetCaption("All of the fields of the layer");
  form.cmdCancel.Move(160, 100, 50, 14);
  form.txtNumber.Move(40, 5, 60, 13);
  form.chkAll.SetForeColor(0xC0C0C0);
  FormWindow window(form, nullptr, {2000, 1000});
  window.Appear();
  EXPECT_THAT(PaleTexts(window), ::testing::ElementsAre(::testing::StartsWith("chkAll")));
  EXPECT_THAT(Problems(window),
              ::testing::UnorderedElementsAre("LogForm.chkAll cuts '&All of the fields of the layer'",
                                              "LogForm.cmdCancel reaches out", "LogForm.txtNumber lies on lblNumber"));
}

TEST(ThemeTest, AColorOfTheFormsOwnKeepsItsHueAndCanBeRead) {
  const testing::QtSession qt;
  constexpr std::int32_t kBlue = 0x0000C0;
  const QPalette palette;
  EXPECT_EQ(TextColorOn(Qt::white, kBlue, palette), QColor(kBlue));
  const QColor dark(0x2A2E32), text = TextColorOn(dark, kBlue, palette);
  EXPECT_GE((Luminance(text.rgb()) + 0.05) / (Luminance(dark.rgb()) + 0.05), 4.5);
  EXPECT_GT(text.blue(), text.red());
}

struct NamedDrawing {
  const char* name;
  testing::Drawing drawing;
};

class LayoutTest : public ::testing::TestWithParam<NamedDrawing> {};

TEST_P(LayoutTest, ShowsAllTextsWithoutOverlap) {
  const testing::QtSession qt(GetParam().drawing);
  const testing::TemporaryFolder folder;
  testing::SampleHost host;
  std::vector<std::string> seen;
  VisitForms(host, folder.Native(), [&](const std::string& name, FormWindow& window) {
    seen.push_back(name);
    QCoreApplication::processEvents();
    EXPECT_THAT(Problems(window), ::testing::IsEmpty());
    EXPECT_THAT(PaleTexts(window), ::testing::IsEmpty());
    EXPECT_DOUBLE_EQ(window.grab().devicePixelRatio(), GetParam().drawing.scale);
    if (window.minimumSize() == window.maximumSize()) return;
    window.resize(window.size() * 1.4);
    QCoreApplication::processEvents();
    EXPECT_THAT(Problems(window), ::testing::IsEmpty()) << "enlarged";
  });
  EXPECT_THAT(seen, ::testing::IsSupersetOf({"frmReport_modal", "frmMessageBox", "frmOrlProgressPercent",
                                             "frmSpheroidOptionsExt", "clsShapesToVertices_frmLayerFields",
                                             "clsBuildPolygon_frmBuildParams", "clsWrapBoundary_frmBoundaryWrap",
                                             "clsConvertGeometry_frmGeometry"}));
}

INSTANTIATE_TEST_SUITE_P(Sizes, LayoutTest,
                         ::testing::Values(NamedDrawing{"Normal", {}}, NamedDrawing{"Scale200", {.scale = 2.0}},
                                           NamedDrawing{"LargeFont", {.points = 17}},
                                           NamedDrawing{"Dark", {.dark = true}},
                                           NamedDrawing{"German", {.german = true}}),
                         [](const auto& drawing) { return std::string(drawing.param.name); });

// What each of the host's own dialogs shows, taken while it waits.
void VisitHostDialogs(testing::SampleHost& host, const testing::TemporaryFolder& folder,
                      const std::function<void(QWidget&)>& visit) {
  const auto while_open = [&](const std::function<void()>& show) {
    QTimer::singleShot(0, qApp, [&] {
      QWidget* dialog = QApplication::activeModalWidget();
      ASSERT_NE(dialog, nullptr);
      QCoreApplication::processEvents();
      visit(*dialog);
      dialog->close();
    });
    show();
  };
  while_open([&] {
    (void)host.MessageBox().Show("Do you want that?", "Question:", MessageButtons::YesNo, MessageIcon::Exclamation);
  });
  while_open([&] {
    const auto dialog = host.CreateGxDialog();
    dialog->AddFilter(GxFilter::FeatureClasses, true);
    dialog->SetTitle("Output:");
    dialog->SetStartingLocation(folder.Path());
    dialog->SetName(folder.Path("Polygons.shp"));
    (void)dialog->DoModalSave(0);
  });
  while_open([&] {
    const auto dialog = host.CreateSpatialReferenceDialog();
    dialog->SetInitial(SpatialReferenceEnvironment::CreateFromText("EPSG:32612"));
    (void)dialog->DoModalCreate(0);
  });
  ErrorWindow errors(nullptr);
  errors.Add(QStringLiteral("No layer."));
  errors.OpenAbove(nullptr);
  visit(errors);
}

// The letters that lead to buttons and labels with the Alt key, and where one leads to two.
std::vector<std::string> SharedLetters(const QWidget& dialog) {
  std::map<QChar, QString> taken;
  std::vector<std::string> shared;
  for (const QWidget* widget : dialog.findChildren<QWidget*>()) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    const auto* button = qobject_cast<const QAbstractButton*>(widget);
    if (!widget->isVisible() || (button == nullptr && (label == nullptr || label->buddy() == nullptr))) continue;
    const QString caption = label != nullptr ? label->text() : button->text();
    const QChar letter = MnemonicOf(caption);
    if (letter.isNull()) continue;
    const auto [other, is_first] = taken.emplace(letter.toLower(), caption);
    if (!is_first) shared.push_back(other->second.toStdString() + " and " + caption.toStdString());
  }
  EXPECT_FALSE(taken.empty() && dialog.objectName() == QStringLiteral("BrowseDialog"));
  return shared;
}

TEST(LettersTest, OfTheHostsDialogsLeadToOnePlace) {
  for (const bool german : {false, true}) {
    const testing::QtSession qt({.german = german});
    const testing::TemporaryFolder folder;
    testing::SampleHost host;
    VisitHostDialogs(host, folder, [&](QWidget& dialog) {
      EXPECT_THAT(SharedLetters(dialog), ::testing::IsEmpty()) << (german ? "German" : "English");
    });
  }
}

TEST(ThemeTest, TextsOfTheHostsDialogsCanBeReadInTheThemesOfTheMapProgram) {
  const std::vector<QDir> themes = testing::ThemesOfProgram();
  if (themes.empty()) GTEST_SKIP() << "The map program isn't installed.";
  for (const QDir& theme : themes) {
    const testing::QtSession qt;
    qApp->setStyleSheet(testing::StyleSheetOf(theme));
    const testing::TemporaryFolder folder;
    testing::SampleHost host;
    int seen = 0;
    VisitHostDialogs(host, folder, [&](QWidget& dialog) {
      ++seen;
      EXPECT_THAT(testing::PaleTextsOf(dialog), ::testing::IsEmpty())
          << theme.path().toStdString() << ", " << dialog.objectName().toStdString();
    });
    EXPECT_EQ(seen, 4);
    qApp->setStyleSheet(QString());  // it would outlive the application
  }
}

TEST(ThemeTest, TextsCanBeReadInTheThemesOfTheMapProgram) {
  const std::vector<QDir> themes = testing::ThemesOfProgram();
  if (themes.empty()) GTEST_SKIP() << "The map program isn't installed.";
  for (const QDir& theme : themes) {
    const testing::QtSession qt;
    const QString style = testing::StyleSheetOf(theme);
    ASSERT_FALSE(style.isEmpty());
    qApp->setStyleSheet(style);
    const testing::TemporaryFolder folder;
    testing::SampleHost host;
    VisitForms(host, folder.Native(), [&](const std::string& name, FormWindow& window) {
      QCoreApplication::processEvents();
      // A theme tells a checked mark by the colour of all of it.
      std::vector<std::string> pale = PaleTexts(window);
      std::erase_if(pale, [](const std::string& what) { return what.ends_with("hides its mark"); });
      EXPECT_THAT(pale, ::testing::IsEmpty()) << theme.path().toStdString() << ", " << name;
    });
    qApp->setStyleSheet(QString());  // it would outlive the application
  }
}

}  // namespace
}  // namespace tessarine
