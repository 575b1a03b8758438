// SPDX-License-Identifier: GPL-2.0-or-later
// The browse dialog: a container to look in, a list of what it holds, and a name.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "hosts/windows/catalog.h"
#include "hosts/windows/window_forms.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace tessarine {

class KindBox;

/// What a browse dialog is asked for, and what it returns.
struct BrowseRequest {
  bool save = true;
  bool multi_select = false;
  std::vector<GxFilter> filters;
  std::size_t default_filter = 0;
  std::string title, button;
  std::string start;           ///< a native path
  std::string project_folder;  ///< the same, empty where there is none
  std::string name;
};

/// Its widgets are "cbxLookIn", "cmdUp", "cmdNewFolder", "cmdNewGeodatabase", "cmdNewGeoPackage", "lbxPlaces",
/// "lbxItems", "lblName", "txtName", "cbxKind", "cbxFilter", "cmdEnter" and "cmdCancel".
class BrowseDialog final : public QDialog {
 public:
  BrowseDialog(BrowseRequest request, QWidget* parent);

  /// The container that was open at the end, or what stands for layers in memory, and the name typed there.
  [[nodiscard]] CatalogItem Location() const;
  [[nodiscard]] std::string Name() const;
  /// The chosen data, when it was asked for.
  [[nodiscard]] const std::vector<CatalogItem>& Chosen() const { return chosen_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Build();
  void NameWidgets();
  void SetUpButtons();
  void SetUpBoxes();
  [[nodiscard]] QLabel* LabelOf(const char* caption, QWidget* widget);
  void LayOut();
  void Connect();
  void LookIn(const CatalogItem& container);
  void FillList();
  void ShowAncestors();
  void GoUp();
  void GoTo(const QString& path);
  void Activate(int row);
  void TakeSelection();
  void Confirm();
  bool FollowTypedPath();
  bool TakeNamedData();
  [[nodiscard]] QString AskName(const char* title);
  void MakeFolder();
  void MakeGeodatabase();
  void MakeGeoPackage();
  void FillPlaces();
  void ShowKinds();
  void PickKind();
  void FollowName();
  [[nodiscard]] bool NamesInFolder() const;
  void Refuse(const QString& text);
  [[nodiscard]] GxFilter Filter() const;

  BrowseRequest request_;
  CatalogItem location_;
  std::vector<CatalogItem> items_;
  std::vector<CatalogItem> chosen_;
  QComboBox* look_in_;
  QPushButton* up_;
  QPushButton* new_folder_;
  QPushButton* new_geodatabase_;
  QPushButton* new_geopackage_;
  QListWidget* places_;
  QListWidget* list_;
  QLabel* name_label_;
  QLineEdit* name_;
  QLabel* kind_label_;
  KindBox* kind_;
  QComboBox* filter_;
  QPushButton* enter_;
  QPushButton* cancel_;
};

/// The dialog as the suite asks for it.
class WindowGxDialog final : public IGxDialog {
 public:
  /// The folder of the project, a native path, is offered at the side.
  WindowGxDialog(WindowForms& forms, const std::string& project_folder) : forms_(forms) {
    request_.project_folder = project_folder;
  }
  void AddFilter(GxFilter filter, bool is_default) override;
  void SetAllowMultiSelect(bool allow) override { request_.multi_select = allow; }
  void SetTitle(const std::string& title) override { request_.title = title; }
  void SetButtonCaption(const std::string& caption) override { request_.button = caption; }
  void SetStartingLocation(const std::string& path) override;
  [[nodiscard]] std::string Name() const override { return request_.name; }
  void SetName(const std::string& name) override { request_.name = name; }
  /// The folder, geodatabase or feature dataset that was open when the user confirmed.
  [[nodiscard]] std::shared_ptr<IGxObject> FinalLocation() const override { return location_; }
  bool DoModalSave(std::int32_t parent) override;
  bool DoModalOpen(std::int32_t parent, std::vector<std::shared_ptr<IGxObject>>& selection) override;

 private:
  bool Run(bool save, std::vector<CatalogItem>& chosen);

  WindowForms& forms_;
  BrowseRequest request_;
  std::shared_ptr<IGxObject> location_;
};

}  // namespace tessarine
