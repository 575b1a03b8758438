// SPDX-License-Identifier: GPL-2.0-or-later
// Every form of the suite, drawn at three sizes and in two themes: nothing is cut, nothing lies on anything else, and
// every text can be read on what is behind it.
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSizeGrip>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTextEdit>
#include <cmath>
#include <functional>
#include <map>

#include "helpers/temporary_folder.h"
#include "hosts/windows/colors.h"
#include "tests/hosts/windows/windows_fixture.h"

namespace tessarine {
namespace {

std::string TextOf(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text().toStdString();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text().toStdString();
  return "";
}

// The room that a widget has for its text.
QRect RoomOf(const QWidget& widget) {
  QStyleOptionButton option;
  option.initFrom(&widget);
  if (qobject_cast<const QCheckBox*>(&widget) != nullptr) {
    return widget.style()->subElementRect(QStyle::SE_CheckBoxContents, &option, &widget);
  }
  if (qobject_cast<const QRadioButton*>(&widget) != nullptr) {
    return widget.style()->subElementRect(QStyle::SE_RadioButtonContents, &option, &widget);
  }
  return qobject_cast<const QPushButton*>(&widget) != nullptr ? widget.rect().adjusted(3, 3, -3, -3) : widget.rect();
}

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
    const std::string text = TextOf(*widget);
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

// The relative luminance of the web's accessibility guidelines.
double Luminance(QRgb pixel) {
  const auto linear = [](int value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(pixel)) + 0.7152 * linear(qGreen(pixel)) + 0.0722 * linear(qBlue(pixel));
}

// The contrast between the colour that fills a picture and the pixel that stands out most: that of its text.
double TextContrast(const QImage& picture) {
  std::map<QRgb, int> pixels;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) ++pixels[picture.pixel(x, y)];
  }
  const auto most = std::ranges::max_element(pixels, {}, [](const auto& entry) { return entry.second; });
  double strongest = 1.0;
  for (const auto& [pixel, count] : pixels) {
    const double one = Luminance(pixel) + 0.05, other = Luminance(most->first) + 0.05;
    strongest = std::max(strongest, std::max(one, other) / std::min(one, other));
  }
  return strongest;
}

bool ShowsText(const QWidget& widget) {
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) return !line->text().isEmpty();
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return !combo->currentText().isEmpty();
  if (const auto* plain = qobject_cast<const QPlainTextEdit*>(&widget)) return !plain->toPlainText().isEmpty();
  if (const auto* rich = qobject_cast<const QTextEdit*>(&widget)) return !rich->toPlainText().isEmpty();
  if (const auto* list = qobject_cast<const QListView*>(&widget)) return list->model()->rowCount() > 0;
  return !TextOf(widget).empty();
}

// Where nothing but the text and its background is seen.
QRect TextRoom(const QWidget& widget) {
  if (!TextOf(widget).empty()) return RoomOf(widget);
  constexpr int kArrow = 24;
  return widget.rect().adjusted(3, 3, qobject_cast<const QComboBox*>(&widget) != nullptr ? -kArrow : -3, -3);
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
  constexpr double kReadable = 4.5, kVisible = 3.0;
  std::vector<std::string> pale;
  for (const Control* control : window.ShownForm().Controls()) {
    QWidget* widget = window.WidgetOf(control->Name());
    if (widget == nullptr || !widget->isVisible() || !widget->isEnabled() || !ShowsText(*widget)) continue;
    // Taken from the window, whose colour shows through labels.
    const QPoint corner = widget->mapTo(&window, QPoint(0, 0));
    const double contrast = TextContrast(window.grab(TextRoom(*widget).translated(corner)).toImage());
    if (contrast < kReadable) pale.push_back(control->Name() + " " + std::to_string(contrast));
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
  window.Open();
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

TEST(ThemeTest, TextsCanBeReadInTheThemesOfTheMapProgram) {
  const QDir themes(QStringLiteral("/usr/share/qgis/resources/themes"));
  const QStringList names = themes.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
  if (names.isEmpty()) GTEST_SKIP() << "The map program isn't installed.";
  for (const QString& theme : names) {
    const testing::QtSession qt;
    const QString style = testing::StyleSheetOf(QDir(themes.filePath(theme)));
    ASSERT_FALSE(style.isEmpty());
    qApp->setStyleSheet(style);
    const testing::TemporaryFolder folder;
    testing::SampleHost host;
    VisitForms(host, folder.Native(), [&](const std::string& name, FormWindow& window) {
      QCoreApplication::processEvents();
      // A theme tells a checked mark by the colour of all of it.
      std::vector<std::string> pale = PaleTexts(window);
      std::erase_if(pale, [](const std::string& what) { return what.ends_with("hides its mark"); });
      EXPECT_THAT(pale, ::testing::IsEmpty()) << theme.toStdString() << ", " << name;
    });
    qApp->setStyleSheet(QString());  // it would outlive the application
  }
}

}  // namespace
}  // namespace tessarine
