// SPDX-License-Identifier: GPL-2.0-or-later
// The box of the measuring tool for the spheroid.
#pragma once

#include <QComboBox>
#include <optional>
#include <vector>

#include "platform/spheroid_catalog.h"

namespace tessarine::qgis {

/// The spheroids of the catalogue, below that of the project. Who types gets those whose names or codes hold the text;
/// Return takes the one that is called so, or else the first of them. Text that means none goes when the box is left.
class SpheroidBox final : public QComboBox {
 public:
  explicit SpheroidBox(QWidget* parent);

  /// None for that of the project.
  [[nodiscard]] std::optional<NamedSpheroid> Chosen() const;
  /// Chooses by name; that of the project where there is none of this name.
  void Choose(const QString& name);
  /// What "as the project" means now.
  void NameFirst(const QString& name);

 protected:
  /// Return in the list of those found, where none of them is marked; Escape there; and the end of typing.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Leave(Qt::FocusReason reason);
  void Take(int row);
  void TakeTyped();

  std::vector<NamedSpheroid> spheroids_;
};

}  // namespace tessarine::qgis
