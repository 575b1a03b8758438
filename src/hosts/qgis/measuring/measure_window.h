// SPDX-License-Identifier: GPL-2.0-or-later
// The small window beside the map that shows what the measuring tool measures.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <functional>
#include <optional>

#include "hosts/qgis/measuring/path_measures.h"
#include "hosts/qgis/measuring/spheroid_box.h"

namespace tessarine::qgis {

/// Shows legs, total, area and azimuths, and lets choose spheroid and units, which it remembers. Backspace takes the
/// last place back, the keys for copying copy all of it, F1 opens the manual, and Escape closes, as Close does.
class MeasureWindow final : public QDialog {
 public:
  struct Callbacks {
    std::function<void()> start_anew, take_back, closed, spheroid_changed;
  };

  MeasureWindow(QWidget* parent, Callbacks callbacks);

  /// The spheroid of the catalogue that was chosen; none for that of the project.
  [[nodiscard]] std::optional<NamedSpheroid> ChosenSpheroid() const;
  /// What "as the project" means now.
  void NameProjectSpheroid(const QString& name);
  void Show(const PathMeasures& path);
  /// Nothing is measured; the text says what to do, or why nothing can be.
  void ShowNothing(const QString& text);
  /// Tells something beside what is shown.
  void Tell(const QString& text);
  /// What the line to the pointer would add; none where no path is open.
  void ShowPointer(const std::optional<MeasuredLeg>& leg);

  void reject() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void Build();
  void Remember() const;
  void Refresh();
  void AddLeg(int row);
  void Copy() const;
  void ShowHelp();
  [[nodiscard]] const MeasureUnit& LengthUnit() const;
  [[nodiscard]] const MeasureUnit& AreaUnit() const;
  [[nodiscard]] QString LengthText(double metres) const;

  Callbacks callbacks_;
  bool has_place_ = false;
  PathMeasures path_;
  QString hint_;
  std::optional<MeasuredLeg> to_pointer_;
  SpheroidBox* spheroid_;
  QComboBox *length_unit_, *area_unit_;
  QTableWidget* legs_;
  QLabel *pointer_, *total_, *area_, *note_;
  QPushButton *new_, *copy_, *help_, *close_;
};

}  // namespace tessarine::qgis
