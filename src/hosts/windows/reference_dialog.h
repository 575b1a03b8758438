// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog for choosing a reference: from the list of the authorities, or by its text.
#pragma once

#include <QDialog>
#include <QStringListModel>
#include <string>
#include <vector>

#include "hosts/windows/window_forms.h"
#include "platform/spatial_reference.h"

class QLabel;
class QLineEdit;
class QListView;
class QPushButton;

namespace tessarine {

/// A predefined reference.
struct NamedReference {
  std::string name;
  std::string code;  ///< "EPSG:32612"
};

/// All geographic and projected references that the projection engine knows, read once, geographic ones first.
[[nodiscard]] const std::vector<NamedReference>& PredefinedReferences();

/// Its widgets are "txtSearch", "lbxReferences", "lblDetails", "cmdOK" and "cmdCancel". Words in the search box narrow
/// the list; a code ("EPSG:4326"), well-known text or a PROJ string there is a choice by itself.
class ReferenceDialog final : public QDialog {
 public:
  ReferenceDialog(const SpatialReferenceRef& initial, QWidget* parent);
  [[nodiscard]] const SpatialReferenceRef& Chosen() const { return chosen_; }

 private:
  void Build();
  void MarkInitial(const SpatialReferenceRef& initial);
  void Search(const QString& words);
  void Choose(const std::string& text);
  void ShowChosen();

  std::vector<const NamedReference*> found_;
  SpatialReferenceRef chosen_;
  QStringListModel lines_;
  QLineEdit* search_;
  QListView* list_;
  QLabel* details_;
  QPushButton* ok_;
};

class WindowReferenceDialog final : public ISpatialReferenceDialog2 {
 public:
  explicit WindowReferenceDialog(WindowForms& forms) : forms_(forms) {}
  void SetInitial(const SpatialReferenceRef& reference) override { initial_ = reference; }
  [[nodiscard]] SpatialReferenceRef DoModalCreate(std::int32_t parent) override;

 private:
  WindowForms& forms_;
  SpatialReferenceRef initial_;
};

}  // namespace tessarine
