// SPDX-License-Identifier: GPL-2.0-or-later
// The manual, opened beside a dialog at the chapter that tells about it.
#pragma once

#include <QDialog>
#include <QString>
#include <string>

class QTextBrowser;

namespace tessarine {

/// A file of the manual, and the heading in it to begin at; an empty heading is the beginning of the file.
struct Chapter {
  QString file, heading;
};

/// Where the manual tells about a form. Forms of several tools are told apart by their captions.
[[nodiscard]] Chapter ChapterOf(const std::string& form_name, const std::string& form_caption);

/// The window that shows chapters. Links between them are followed, others are opened by the desktop.
class ManualWindow final : public QDialog {
 public:
  ManualWindow(QString folder, QWidget* parent);
  /// Shows the chapter from its heading on, or says that it isn't installed.
  void Show(const Chapter& chapter);
  /// The text of the first line in view.
  [[nodiscard]] QString FirstLine() const;

 private:
  void GoTo(const QString& heading);

  QString folder_;
  QTextBrowser* text_;
};

/// Opens the manual over a window, or brings the one that stands over it to the chapter.
void ShowManual(const QString& folder, const Chapter& chapter, QWidget& over);

}  // namespace tessarine
