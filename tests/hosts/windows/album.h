// SPDX-License-Identifier: GPL-2.0-or-later
// A folder of pictures of windows, and the programs that draw it.
#pragma once

#include <QPixmap>
#include <QSize>
#include <QTimer>
#include <QWidget>
#include <filesystem>
#include <functional>
#include <string>

#include "helpers/temporary_folder.h"
#include "hosts/windows/sample_forms.h"

namespace tessarine::testing {

class Album {
 public:
  /// Pictures show /home/ann/maps where windows show the folder of the data.
  Album(std::filesystem::path folder, std::string data);

  void Add(const std::string& name, QWidget& window);
  void Add(const std::string& name, const QPixmap& picture);
  /// A dialog of the host: its picture is taken when it waits, then it is closed.
  template <class Show>
  void AddDialog(const std::string& name, Show&& show) {
    QTimer::singleShot(0, qApp, [this, name] {
      QWidget* dialog = QApplication::activeModalWidget();
      Add(name, *dialog);
      dialog->close();
    });
    show();
  }
  [[nodiscard]] int Written() const { return written_; }

 private:
  std::filesystem::path folder_;
  std::string data_;
  int written_ = 0;
};

struct Studio {
  Album& album;
  SampleHost& host;
  const TemporaryFolder& data;
  QSize room;  ///< of windows on the screen; empty where there is enough
};

/// A program that draws pictures into the folder that its command line names, in the language, theme, size and scale
/// that its options say. Answers its exit status.
int DrawPictures(int count, char** arguments, const std::function<void(Studio&)>& draw);

}  // namespace tessarine::testing
