// SPDX-License-Identifier: GPL-2.0-or-later
// Whether texts of windows can be read on what is behind them, in the themes of the map program, too.
#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTextEdit>
#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tessarine::testing {

inline constexpr double kReadableContrast = 4.5;

/// The folders of the themes; none where the map program isn't installed.
inline std::vector<QDir> ThemesOfProgram() {
  const QDir themes(QStringLiteral("/usr/share/qgis/resources/themes"));
  std::vector<QDir> folders;
  for (const QString& name : themes.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
    folders.emplace_back(themes.filePath(name));
  return folders;
}

/// A theme of the map program as it applies it: a style sheet whose colours have names. Empty where there is none.
inline QString StyleSheetOf(const QDir& theme) {
  const auto read = [&](const char* name) {
    QFile file(theme.filePath(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
  };
  QString style = read("style.qss");
  // From the greatest name on, so that none is taken for the beginning of a longer one.
  std::map<QString, QString, std::greater<>> colors = {{QStringLiteral("@theme_path"), theme.path()}};
  for (const QString& line : read("variables.qss").split(QLatin1Char('\n'))) {
    const int colon = line.indexOf(QLatin1Char(':'));
    if (line.startsWith(QLatin1Char('@')) && colon > 0) {
      colors[line.left(colon).trimmed()] = line.mid(colon + 1).remove(QLatin1Char(';')).trimmed();
    }
  }
  for (const auto& [name, color] : colors) style.replace(name, color);
  return style;
}

/// The relative luminance of the web's accessibility guidelines.
inline double Luminance(QRgb pixel) {
  const auto linear = [](int value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(qRed(pixel)) + 0.7152 * linear(qGreen(pixel)) + 0.0722 * linear(qBlue(pixel));
}

/// The contrast between the colour that fills a picture and the pixel that stands out most: that of its text.
inline double TextContrast(const QImage& picture) {
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

inline QString TextOf(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
  return {};
}

inline bool ShowsText(const QWidget& widget) {
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) return !line->text().isEmpty();
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return !combo->currentText().isEmpty();
  if (const auto* plain = qobject_cast<const QPlainTextEdit*>(&widget)) return !plain->toPlainText().isEmpty();
  if (const auto* rich = qobject_cast<const QTextEdit*>(&widget)) return !rich->toPlainText().isEmpty();
  if (const auto* head = qobject_cast<const QHeaderView*>(&widget)) return head->count() > 0;
  const auto* list = qobject_cast<const QAbstractItemView*>(&widget);
  if (list != nullptr && list->model() != nullptr) return list->model()->rowCount() > 0;
  return !TextOf(widget).isEmpty();
}

/// The room that a widget has for its text.
inline QRect RoomOf(const QWidget& widget) {
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

/// Where nothing but the text and its background is seen.
inline QRect TextRoom(const QWidget& widget) {
  if (!TextOf(widget).isEmpty()) return RoomOf(widget);
  constexpr int kArrow = 24;
  return widget.rect().adjusted(3, 3, qobject_cast<const QComboBox*>(&widget) != nullptr ? -kArrow : -3, -3);
}

/// The texts of a window of the host that can't be read, each with its contrast.
inline std::vector<std::string> PaleTextsOf(QWidget& window) {
  std::vector<std::string> pale;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    const bool is_seen = widget->isVisibleTo(&window) && widget->isEnabled() && ShowsText(*widget);
    // A box that can be typed into is its line and its arrow; pictures are no texts.
    const auto* box = qobject_cast<const QComboBox*>(widget);
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (!is_seen || (box != nullptr && box->isEditable()) ||
        (label != nullptr && label->pixmap(Qt::ReturnByValue).width() > 0)) {
      continue;
    }
    const QRect room = TextRoom(*widget);
    if (room.isEmpty()) continue;
    // Taken from the window, whose colour shows through labels.
    const double contrast = TextContrast(window.grab(room.translated(widget->mapTo(&window, QPoint(0, 0)))).toImage());
    if (contrast >= kReadableContrast) continue;
    const QString name =
        widget->objectName().isEmpty() ? QLatin1String(widget->metaObject()->className()) : widget->objectName();
    pale.push_back(name.toStdString() + " '" + TextOf(*widget).toStdString() + "' " + std::to_string(contrast));
  }
  return pale;
}

}  // namespace tessarine::testing
