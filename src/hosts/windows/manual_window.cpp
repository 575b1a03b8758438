// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/manual_window.h"

#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QVBoxLayout>
#include <utility>

#include "hosts/windows/dialog_units.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/readable_window.h"
#include "hosts/windows/translation.h"

namespace tessarine {
namespace {

struct FormChapter {
  const char* form;
  const char* file;
  const char* heading;
};

constexpr const char* kConversions = "frmLayerFields";
constexpr FormChapter kChapters[] = {
    {"frmGeometry", "measuring.md", ""},
    {kConversions, "conversions.md", ""},
    {"frmBuildParams", "build-polygons.md", ""},
    {"frmBoundaryWrap", "planetary.md", "Wrap to a boundary"},
    {"frmGeoCentric", "planetary.md", "Planetographic and planetocentric latitudes"},
    {"frmSpheroidOptions", "spheroids.md", ""},
    {"frmSpheroidOptionsExt", "spheroids.md", ""},
    {"frmGraphicsShapefile", "graphics.md", "Graphic elements to shapes"},
    {"frmSelectGraphics", "graphics.md", "Select graphic elements"},
    {"frmNameElements", "graphics.md", "Name graphic elements"},
    {"frmMessageBox", "runs.md", "Questions"},
    {"frmReport_modal", "runs.md", "The report"},
    {"frmOrlProgressPercent", "runs.md", "The progress window"},
    {"frmOrlProgressMeter", "runs.md", "The progress window"},
};

}  // namespace

Chapter ChapterOf(const std::string& form_name, const std::string& form_caption) {
  for (const FormChapter& chapter : kChapters) {
    if (form_name != chapter.form) continue;
    // The conversions share a form, whose caption is the heading.
    QString heading = QString::fromUtf8(chapter.heading);
    if (form_name == kConversions) heading = ToQt(form_caption).trimmed().remove(QLatin1Char(':'));
    return {QString::fromUtf8(chapter.file), heading};
  }
  return {QStringLiteral("index.md"), QString()};
}

ManualWindow::ManualWindow(QString folder, QWidget* parent)
    : QDialog(parent), folder_(std::move(folder)), text_(new QTextBrowser(this)) {
  setObjectName(QStringLiteral("ManualWindow"));
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(Translated("Manual"));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  text_->setObjectName(QStringLiteral("txtManual"));
  text_->setOpenLinks(false);
  auto* buttons = new QDialogButtonBox(this);
  QPushButton* close = buttons->addButton(Translated("C&lose"), QDialogButtonBox::RejectRole);
  close->setObjectName(QStringLiteral("cmdClose"));
  connect(close, &QPushButton::clicked, this, [this] { this->close(); });
  connect(text_, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
    const bool chapter = link.scheme().isEmpty() && link.path().endsWith(QLatin1String(".md"));
    if (chapter) {
      Show({link.path(), link.fragment().replace(QLatin1Char('-'), QLatin1Char(' '))});
    } else {
      QDesktopServices::openUrl(link);
    }
  });
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(text_);
  layout->addWidget(buttons);
  resize(DialogUnits(font()).Size(330, 280));
  KeepReadable(*this);
}

void ManualWindow::Show(const Chapter& chapter) {
  QFile file(QDir(folder_).filePath(chapter.file));
  if (!file.open(QIODevice::ReadOnly)) {
    text_->setPlainText(Translated("The manual isn't installed. It should lie here:") + QLatin1Char('\n') +
                        file.fileName());
    return;
  }
  text_->setMarkdown(QString::fromUtf8(file.readAll()));
  GoTo(chapter.heading);
}

void ManualWindow::GoTo(const QString& heading) {
  text_->moveCursor(QTextCursor::Start);
  if (heading.isEmpty()) return;
  for (QTextBlock block = text_->document()->begin(); block.isValid(); block = block.next()) {
    const bool found =
        block.blockFormat().headingLevel() > 0 && QString::compare(block.text(), heading, Qt::CaseInsensitive) == 0;
    if (!found) continue;
    // From the end back, so that the heading comes to the upper edge.
    text_->moveCursor(QTextCursor::End);
    text_->setTextCursor(QTextCursor(block));
    text_->verticalScrollBar()->setValue(text_->verticalScrollBar()->value() + text_->cursorRect().top());
    return;
  }
}

QString ManualWindow::FirstLine() const { return text_->cursorForPosition(QPoint(4, 4)).block().text(); }

void ShowManual(const QString& folder, const Chapter& chapter, QWidget& over) {
  ManualWindow* window = nullptr;
  // Qt knows no classes without a meta object: it would take any dialog for one of these.
  for (QObject* child : over.children()) {
    if (auto* open = dynamic_cast<ManualWindow*>(child)) window = open;
  }
  if (window == nullptr) window = new ManualWindow(folder, &over);  // goes when it is closed
  window->show();
  window->Show(chapter);
  window->raise();
  window->activateWindow();
}

}  // namespace tessarine
