// SPDX-License-Identifier: GPL-2.0-or-later
// The host's own dialogs, its clipboard and its printer.
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QFontMetricsF>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMainWindow>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QWindow>
#include <atomic>
#include <cmath>
#include <fstream>
#include <sstream>
#include <thread>

#include "engine/data_source.h"
#include "engine/promised_geodatabases.h"
#include "helpers/published.h"
#include "helpers/temporary_folder.h"
#include "hosts/windows/browse_dialog.h"
#include "hosts/windows/printer.h"
#include "platform/work_aside.h"
#include "support/frmReport_modal.h"
#include "support/rtf_printing.h"
#include "tests/hosts/windows/windows_fixture.h"

namespace tessarine {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class HostDialogsTest : public testing::WindowsTest {
 protected:
  testing::TemporaryFolder folder;

  static void Double(QWidget& dialog, const char* name) {
    auto* list = dialog.findChild<QListWidget*>("lbxItems");
    const auto found = list->findItems(QLatin1String(name), Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1) << name;
    Q_EMIT list->itemActivated(found.first());
  }
  static std::vector<std::string> Lines(QWidget& dialog) {
    std::vector<std::string> lines;
    const auto* list = dialog.findChild<QListWidget*>("lbxItems");
    for (int row = 0; row < list->count(); ++row) lines.push_back(list->item(row)->text().toStdString());
    return lines;
  }
  static void Type(QWidget& dialog, const char* name, const std::string& text) {
    auto* box = dialog.findChild<QLineEdit*>(QLatin1String(name));
    box->clear();
    QTest::keyClicks(box, ToQt(text));
  }
  /// The place that a user chooses in a browse dialog for saving: category, path, name, and the dataset where there is
  /// one.
  template <class User>
  std::string Browsed(User user, const std::string& proposed) {
    const auto dialog = host.CreateGxDialog();
    dialog->AddFilter(GxFilter::FeatureClasses, true);
    dialog->SetStartingLocation(folder.Path());
    if (!proposed.empty()) dialog->SetName(proposed);
    WhenModal([user](QWidget& window) { user(window); });
    if (!dialog->DoModalSave(0)) return "cancelled";
    const auto place = dialog->FinalLocation();
    const auto dataset = Cast<IGxDataset>(place);
    return place->Category() + "|" + place->FullName() + "|" + dialog->Name() +
           (dataset ? "|" + dataset->Dataset()->Name() : "");
  }
  [[nodiscard]] std::unique_ptr<QPrinter> PdfPrinter() const {
    auto device = std::make_unique<QPrinter>(QPrinter::HighResolution);
    device->setOutputFormat(QPrinter::PdfFormat);
    device->setPageSize(QPageSize(QPageSize::Letter));
    device->setOutputFileName(ToQt(folder.Native("report.pdf")));
    return device;
  }
  [[nodiscard]] int PrintedPages() const {
    std::ifstream file(folder.Native("report.pdf"), std::ios::binary);
    std::stringstream bytes;
    bytes << file.rdbuf();
    const std::string pdf = bytes.str();
    int pages = 0;
    for (auto at = pdf.find("/Type /Page\n"); at != std::string::npos; at = pdf.find("/Type /Page\n", at + 1)) ++pages;
    return pages;
  }
  static std::string LongReport(int lines) {
    std::string rtf = "{\\rtf1\\ansi\\pard\\fs17 ";
    for (int line = 1; line <= lines; ++line) rtf += "line " + std::to_string(line) + "\\par ";
    return rtf + "}";
  }
  // A geodatabase with a class at its root and one in a dataset.
  void MakeGeodatabase() const {
    CreateFileGeodatabase(folder.Native("world.gdb"));
    FillGeodatabase(folder.Native("world.gdb"), *CreateFileGDBWorkspaceFactory());
  }
  static void FillGeodatabase(const std::string& gdb, IWorkspaceFactory& factory) {
    const KeptPromise promise =
        PromiseFeatureDataset(gdb, "places", SpatialReferenceEnvironment::CreateFromText("EPSG:4326"));
    const auto workspace = factory.OpenFromFile(FromNativePath(gdb), 0);
    const auto source = DataSource::Open(TESSARINE_TEST_DATA "/cities.shp")->OpenFeatureClass("");
    const auto fields = source->Fields();
    (void)testing::Published(
        workspace->CreateFeatureClass("towns", fields, nullptr, nullptr, esriFTSimple, "Shape", ""));
    (void)testing::Published(workspace->OpenFeatureDataset("places")->CreateFeatureClass(
        "cities", fields, nullptr, nullptr, esriFTSimple, "Shape", ""));
  }
};

TEST_F(HostDialogsTest, MessageBoxesAnswerAsTheUserDoes) {
  const auto answer = [&](MessageButtons buttons, Qt::Key key) {
    WhenModal([&, key](QWidget& box) {
      EXPECT_EQ(box.windowTitle(), "Invalid Value:");
      QTest::keyClick(&box, key);
    });
    return host.MessageBox().Show("One.\r\nTwo.", " Invalid Value:", buttons);
  };
  EXPECT_EQ(answer(MessageButtons::Ok, Qt::Key_Escape), MessageAnswer::Ok);
  EXPECT_EQ(answer(MessageButtons::OkCancel, Qt::Key_Return), MessageAnswer::Ok);
  EXPECT_EQ(answer(MessageButtons::OkCancel, Qt::Key_Escape), MessageAnswer::Cancel);
  EXPECT_EQ(answer(MessageButtons::YesNo, Qt::Key_Return), MessageAnswer::No);
  EXPECT_EQ(answer(MessageButtons::YesNo, Qt::Key_Escape), MessageAnswer::No);
}

TEST_F(HostDialogsTest, FaultReportsCollectUntilTheUserClosesTheirWindow) {
  const auto dialog = host.CreateErrorDialog();
  for (const char* text : {"first\r\n", "second"}) {
    dialog->AppendErrorText(text);
    dialog->SetVisible(true);
  }
  QWidget* window = QApplication::activeModalWidget();
  ASSERT_NE(window, nullptr);
  auto* text = window->findChild<QPlainTextEdit*>("txtError");
  EXPECT_EQ(text->toPlainText(), "first\n\nsecond");
  text->selectAll();
  EXPECT_TRUE(text->textCursor().hasSelection());
  EXPECT_TRUE(text->isReadOnly());
  window->close();
  dialog->AppendErrorText("third");
  dialog->SetVisible(true);
  EXPECT_EQ(QApplication::activeModalWidget()->findChild<QPlainTextEdit*>("txtError")->toPlainText(), "third");
}

TEST_F(HostDialogsTest, AFaultIsReportedAboveTheDialogThatTheUserHasBeforeHim) {
  const auto faults = host.CreateErrorDialog();
  const auto report = [&](const char* text) {
    faults->AppendErrorText(text);
    faults->SetVisible(true);
  };
  const auto shown = [] {
    QWidget* modal = QApplication::activeModalWidget();
    auto* text = modal != nullptr ? modal->findChild<QPlainTextEdit*>("txtError") : nullptr;
    return text != nullptr ? text->toPlainText().toStdString() : "no faults";
  };
  report("of the run");
  testing::LogForm form;
  Show(form, [&](FormWindow& window) {
    EXPECT_EQ(shown(), "no faults");
    report("of the form");
    EXPECT_EQ(shown(), "of the form") << "the first window can't be reached behind the form";
    const QWidget& above = *QApplication::activeModalWidget();
    EXPECT_EQ(above.windowHandle()->transientParent(), window.windowHandle()) << "a click on the form would cover it";
    report("again");
    EXPECT_EQ(shown(), "of the form\n\nagain");
  });
  EXPECT_EQ(shown(), "of the form\n\nagain") << "it stays where its form goes";
  QApplication::activeModalWidget()->close();
  EXPECT_EQ(shown(), "of the run");
  QApplication::activeModalWidget()->close();
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(HostDialogsTest, ADialogStandsOverTheWindowThatTheUserWorksIn) {
  QMainWindow main, layout;
  WindowForms forms(&main);
  main.show();
  layout.show();
  for (QMainWindow* window : {&layout, &main}) {
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    EXPECT_EQ(forms.DialogParent(), window);
  }
  QDialog beside;  // of the program's own, that may go at any time
  beside.show();
  beside.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&beside));
  EXPECT_EQ(forms.DialogParent(), &main);
}

TEST_F(HostDialogsTest, ANewPlacesNameBoxIsAsWideAsItsTitle) {
  (void)Browsed(
      [](QWidget& window) {
        QTimer::singleShot(0, qApp, [] {
          QWidget* box = QApplication::activeModalWidget();
          ASSERT_EQ(box->objectName(), "NameDialog");
          EXPECT_EQ(box->windowTitle(), "New Geodatabase");
          EXPECT_GT(box->width(), box->fontMetrics().horizontalAdvance(box->windowTitle()) + 100);
          box->close();
        });
        Click(window, "cmdNewGeodatabase");
        window.close();
      },
      "");
}

TEST_F(HostDialogsTest, AReportIsCopiedAsRtfHtmlAndPlainText) {
  frmReport_modal report;
  const std::string rtf = "{\\rtf1\\ansi\\pard\\b Area\\b0\\par 5 < 7 km\\u178?\\par}";
  report.txtReport.SetTextRTF(rtf);
  Show(report, [&](FormWindow& window) { Click(window, "cmdCopy"); });
  const QMimeData* data = QApplication::clipboard()->mimeData();
  EXPECT_EQ(data->data("text/rtf").toStdString(), rtf);
  EXPECT_EQ(data->text().trimmed(), ToQt("Area\n5 < 7 km²"));
  EXPECT_THAT(data->html().toStdString(), HasSubstr("5 &lt; 7 km²"));
}

TEST_F(HostDialogsTest, PrintingFillsPageAfterPage) {
  constexpr int kLines = 200;
  auto device = PdfPrinter();
  QFont font(QStringLiteral("Arial"));
  font.setPointSizeF(8.5);
  const double line_height = QFontMetricsF(font, device.get()).lineSpacing() / device->logicalDpiY();
  WindowPrinter printer(std::move(device));
  EXPECT_NEAR(printer.PageWidth(), 8.5 * 1440, 20);
  EXPECT_NEAR(printer.PageHeight(), 11 * 1440, 20);
  MyGeneralOperations::PrintRTF(LongReport(kLines), printer, 1440, 1440, 1440, 1440);
  // Nine inches of text on each page, and the empty paragraph at the end.
  EXPECT_EQ(PrintedPages(), static_cast<int>(std::ceil((kLines + 1) / std::floor(9.0 / line_height))));
}

TEST_F(HostDialogsTest, PrintingKeepsToThePagesThatWereAskedFor) {
  struct Row {
    int from, to, pages;
  };
  for (const Row& row : {Row{2, 3, 2}, Row{1, 1, 1}, Row{3, 99, 2}}) {
    auto device = PdfPrinter();
    device->setPrintRange(QPrinter::PageRange);
    device->setFromTo(row.from, row.to);
    WindowPrinter printer(std::move(device));
    // Sixty lines and a bit on each page.
    MyGeneralOperations::PrintRTF(LongReport(200), printer, 1440, 1440, 1440, 1440);
    EXPECT_EQ(PrintedPages(), row.pages) << row.from << " to " << row.to;
  }
}

TEST_F(HostDialogsTest, CancellingThePrinterDialogLeavesTheReportOpen) {
  frmReport_modal report;
  Show(report, [&](FormWindow& window) {
    WhenModal([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    Click(window, "cmdPrint");
    EXPECT_FALSE(window.Concealed());
  });
}

TEST_F(HostDialogsTest, BrowsingWalksFoldersAndGeodatabasesAndTakesTypedNames) {
  MakeGeodatabase();
  folder.Write("roads.shp");
  folder.Write("roads.dbf");
  folder.Write("notes.txt");
  std::filesystem::create_directory(folder.Native("sub"));
  const auto browse = [&](auto user) { return Browsed(user, folder.Path("Output.shp")); };
  EXPECT_EQ(browse([](QWidget& window) {
              EXPECT_THAT(Lines(window), ElementsAre("sub", "world.gdb", "roads.shp"));
              EXPECT_EQ(window.findChild<QLineEdit*>("txtName")->text(), "Output.shp");
              Type(window, "txtName", "lakes");
              QTest::keyClick(&window, Qt::Key_Return);
            }),
            "Folder|" + folder.Path() + "|lakes.shp");
  EXPECT_EQ(browse([](QWidget& window) {
              Double(window, "world.gdb");
              EXPECT_THAT(Lines(window), ElementsAre("places", "towns"));
              Double(window, "places");
              EXPECT_THAT(Lines(window), ElementsAre("cities"));
              Type(window, "txtName", "lakes");
              Click(window, "cmdEnter");
            }),
            "File Geodatabase Feature Dataset|" + folder.Path("world.gdb") + "\\places|lakes|places");
  EXPECT_EQ(browse([&](QWidget& window) {
              Type(window, "txtName", folder.Native("world.gdb") + "/rivers");
              Click(window, "cmdEnter");
            }),
            "File Geodatabase|" + folder.Path("world.gdb") + "|rivers");
  EXPECT_EQ(browse([](QWidget& window) {
              Double(window, "sub");
              Click(window, "cmdUp");
              Click(window, "cmdCancel");
            }),
            "cancelled");
}

TEST_F(HostDialogsTest, APersonalGeodatabaseIsMadeWalkedAndChosenFrom) {
  const auto browse = [&](auto user) { return Browsed(user, ""); };
  EXPECT_EQ(browse([](QWidget& window) {
              WhenModal([](QWidget& question) {
                QTest::keyClicks(question.findChild<QLineEdit*>(), "world.mdb");
                QTest::keyClick(&question, Qt::Key_Return);
              });
              Click(window, "cmdNewGeodatabase");
              EXPECT_THAT(Lines(window), ElementsAre());
              Type(window, "txtName", "roads");
              Click(window, "cmdEnter");
            }),
            "Personal Geodatabase|" + folder.Path("world.mdb") + "|roads");
  FillGeodatabase(folder.Native("world.mdb"), *CreateAccessWorkspaceFactory());
  EXPECT_EQ(browse([](QWidget& window) {
              EXPECT_THAT(Lines(window), ElementsAre("world.mdb"));
              Double(window, "world.mdb");
              EXPECT_THAT(Lines(window), ElementsAre("places", "towns"));
              Double(window, "places");
              EXPECT_THAT(Lines(window), ElementsAre("cities"));
              Type(window, "txtName", "lakes");
              Click(window, "cmdEnter");
            }),
            "Personal Geodatabase Feature Dataset|" + folder.Path("world.mdb") + "\\places|lakes|places");
  EXPECT_EQ(browse([&](QWidget& window) {
              Type(window, "txtName", folder.Native("world.mdb") + "/places/rivers");
              Click(window, "cmdEnter");
            }),
            "Personal Geodatabase Feature Dataset|" + folder.Path("world.mdb") + "\\places|rivers|places");
  const auto open = host.CreateGxDialog();
  open->AddFilter(GxFilter::FeatureClasses, true);
  open->SetStartingLocation(folder.Path("world.mdb"));
  WhenModal([](QWidget& window) {
    Type(window, "txtName", "Towns");
    Click(window, "cmdEnter");
  });
  std::vector<std::shared_ptr<IGxObject>> chosen;
  ASSERT_TRUE(open->DoModalOpen(0, chosen));
  ASSERT_EQ(chosen.size(), 1U);
  EXPECT_EQ(chosen.front()->Category(), "Personal Geodatabase Feature Class");
  EXPECT_EQ(Cast<IGxDataset>(chosen.front())->Dataset()->Name(), "towns");
}

TEST_F(HostDialogsTest, ReturnThatLeadsToAPlaceDoesNotConfirm) {
  std::filesystem::create_directories(folder.Native("sub/inner"));
  const auto dialog = host.CreateGxDialog();
  dialog->SetStartingLocation(folder.Path());
  dialog->SetName("Output.shp");
  WhenModal([&](QWidget& window) {
    auto* look_in = window.findChild<QComboBox*>("cbxLookIn");
    look_in->setFocus();
    look_in->lineEdit()->selectAll();
    QTest::keyClicks(look_in, ToQt(folder.Native("sub")));
    QTest::keyClick(look_in, Qt::Key_Return);
    EXPECT_TRUE(window.isVisible());
    ASSERT_THAT(Lines(window), ElementsAre("inner"));
    auto* list = window.findChild<QListWidget*>("lbxItems");
    list->setFocus();
    list->setCurrentRow(0);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_TRUE(window.isVisible());
    EXPECT_THAT(Lines(window), ElementsAre());
    auto* name = window.findChild<QLineEdit*>("txtName");
    name->setFocus();
    QTest::keyClick(name, Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
    window.close();
  });
  ASSERT_TRUE(dialog->DoModalSave(0));
  EXPECT_EQ(dialog->FinalLocation()->FullName(), folder.Path("sub") + "\\inner");
}

TEST_F(HostDialogsTest, OpeningGivesTheDataThatWasChosen) {
  MakeGeodatabase();
  const auto dialog = host.CreateGxDialog();
  dialog->AddFilter(GxFilter::Tables, false);
  dialog->AddFilter(GxFilter::FeatureClasses, true);
  dialog->SetAllowMultiSelect(true);
  dialog->SetStartingLocation(folder.Path("world.gdb"));
  WhenModal([](QWidget& window) {
    Double(window, "places");
    Type(window, "txtName", "Cities");
    Click(window, "cmdEnter");
  });
  std::vector<std::shared_ptr<IGxObject>> chosen;
  ASSERT_TRUE(dialog->DoModalOpen(0, chosen));
  ASSERT_EQ(chosen.size(), 1U);
  EXPECT_EQ(chosen.front()->Category(), "File Geodatabase Feature Class");
  EXPECT_EQ(Cast<IGxDataset>(chosen.front())->Dataset()->Name(), "cities");
}

TEST_F(HostDialogsTest, AReferenceIsFoundByWordsOrDefinedByItsText) {
  const auto dialog = host.CreateSpatialReferenceDialog();
  const auto choose = [&](const char* typed, int line) {
    WhenModal([typed, line](QWidget& window) {
      Type(window, "txtSearch", typed);
      auto* list = window.findChild<QListView*>("lbxReferences");
      if (line >= 0) list->setCurrentIndex(list->model()->index(line, 0));
      Click(window, window.findChild<QPushButton*>("cmdOK")->isEnabled() ? "cmdOK" : "cmdCancel");
    });
    return dialog->DoModalCreate(0);
  };
  const SpatialReferenceRef utm = choose("wgs utm 12N", 0);
  ASSERT_TRUE(utm);
  EXPECT_THAT(utm->Name(), ::testing::AllOf(HasSubstr("WGS"), HasSubstr("UTM zone 12N")));
  EXPECT_EQ(choose("EPSG:4326", -1)->FactoryCode(), 4326);
  EXPECT_EQ(choose("+proj=nonsense", -1), nullptr);
  dialog->SetInitial(utm);
  EXPECT_EQ(choose("", -1), utm);
}

TEST_F(HostDialogsTest, SystemInformationIsThereWithoutAProgramForIt) {
  const auto ask = [&] {
    return ToNativePath(host.Registry().QueryLocalMachine("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH"));
  };
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", folder.Native().c_str());
  QFile text(ToQt(ask()));
  ASSERT_TRUE(text.open(QIODevice::ReadOnly));
  const std::string words = text.readAll().toStdString();
  for (const char* word : {"System: ", "Memory: ", " kB", "Screen: "}) EXPECT_THAT(words, HasSubstr(word));
  // The distribution's own comes first.
  QFile tool(ToQt(folder.Native("hardinfo")));
  ASSERT_TRUE(tool.open(QIODevice::WriteOnly));
  tool.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
  EXPECT_EQ(ask(), tool.fileName().toStdString());
  qputenv("PATH", path);
}

TEST_F(HostDialogsTest, WorkThatAsksForAStopKeepsWindowsAlive) {
  std::atomic<bool> came = false;
  QTimer::singleShot(0, qApp, [&] { came = true; });
  EXPECT_FALSE(StopRequested());
  EXPECT_FALSE(came) << "outside of a run nobody waits";
  const WindowHost::CommandScope running(host);
  while (!came) EXPECT_FALSE(StopRequested());

  came = false;
  bool is_here = true;
  const auto here = std::this_thread::get_id();
  QTimer::singleShot(0, qApp, [&] { came = true; });
  WorkAside([&] {
    is_here = std::this_thread::get_id() == here;
    while (!came) std::this_thread::yield();
  });
  EXPECT_FALSE(is_here);
  EXPECT_THROW(WorkAside([] { Raise(kInvalidCall, "No."); }), Fault);
}

}  // namespace
}  // namespace tessarine
