// Every form of the suite, drawn at three sizes: nothing is cut, nothing lies on anything else.
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSizeGrip>
#include <QStyle>
#include <QStyleOptionButton>

#include "helpers/temporary_folder.h"
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

// The eyes of this test: a caption that is too long, a control beyond the edge, one upon another.
TEST(LayoutEyes, SeeWhatIsWrong) {
  const testing::QtSession qt;
  const testing::SampleHost host;
  testing::LogForm form;
  form.chkAll.SetCaption("All of the fields of the layer");
  form.cmdCancel.Move(160, 100, 50, 14);
  form.txtNumber.Move(40, 5, 60, 13);
  FormWindow window(form, nullptr, {2000, 1000});
  window.Open();
  EXPECT_THAT(Problems(window),
              ::testing::UnorderedElementsAre("LogForm.chkAll cuts 'All of the fields of the layer'",
                                              "LogForm.cmdCancel reaches out", "LogForm.txtNumber lies on lblNumber"));
}

struct Drawing {
  const char* name;
  double scale;
  int points;
};

class LayoutTest : public ::testing::TestWithParam<Drawing> {};

TEST_P(LayoutTest, ShowsAllTextsWithoutOverlap) {
  const testing::QtSession qt(GetParam().scale, GetParam().points);
  const testing::TemporaryFolder folder;
  testing::SampleHost host;
  std::vector<std::string> seen;
  VisitForms(host, folder.Native(), [&](const std::string& name, FormWindow& window) {
    seen.push_back(name);
    QCoreApplication::processEvents();
    EXPECT_THAT(Problems(window), ::testing::IsEmpty());
    EXPECT_DOUBLE_EQ(window.grab().devicePixelRatio(), GetParam().scale);
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
                         ::testing::Values(Drawing{"Normal", 1.0, 9}, Drawing{"Scale200", 2.0, 9},
                                           Drawing{"LargeFont", 1.0, 17}),
                         [](const auto& drawing) { return std::string(drawing.param.name); });

}  // namespace
}  // namespace tessarine
