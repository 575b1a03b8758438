// SPDX-License-Identifier: GPL-2.0-or-later
// The open project as the suite's document.
#pragma once

#include <qgslayoutdesignerinterface.h>

#include <QPointer>
#include <memory>

#include "hosts/qgis/layout_view.h"
#include "hosts/qgis/map_view.h"
#include "hosts/qgis/program_window.h"
#include "platform/application.h"

namespace tessarine::qgis {

class ProjectDocument final : public IMxDocument, public IDocumentDirty {
 public:
  explicit ProjectDocument(IProgramWindow& program);

  // IMxDocument
  [[nodiscard]] std::shared_ptr<ICommandBars> CommandBars() const override;
  /// The layout while its own window is at work, else the map.
  [[nodiscard]] std::shared_ptr<IActiveView> ActiveView() const override;
  [[nodiscard]] std::shared_ptr<IMap> FocusMap() const override { return map_; }
  [[nodiscard]] std::shared_ptr<IPageLayout> PageLayout() const override { return CurrentLayout(); }
  [[nodiscard]] std::shared_ptr<ILayer> SelectedLayer() const override;
  void AddLayer(const std::shared_ptr<ILayer>& layer) override { map_->AddLayer(layer); }
  /// The program redraws its layer tree by itself.
  void UpdateContents() override {}
  void SetDirty() override;

  [[nodiscard]] MapView& Map() const { return *map_; }
  [[nodiscard]] GraphicsMemory& Memory() { return memory_; }
  /// Says which layout window the user works in; null for the map.
  void SetActiveDesigner(QgsLayoutDesignerInterface* designer) { designer_ = designer; }
  /// Forgets all that belonged to the project before.
  void Reset();

 private:
  [[nodiscard]] std::shared_ptr<LayoutView> CurrentLayout() const;

  IProgramWindow& program_;
  mutable LayerBook book_;
  GraphicsMemory memory_;
  std::shared_ptr<MapView> map_;
  QPointer<QgsLayoutDesignerInterface> designer_;
};

}  // namespace tessarine::qgis
