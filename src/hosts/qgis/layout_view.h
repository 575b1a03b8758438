// SPDX-License-Identifier: GPL-2.0-or-later
// A page layout of the project: its items as graphic elements.
#pragma once

#include <qgslayoutdesignerinterface.h>
#include <qgslayoutitem.h>
#include <qgsprintlayout.h>

#include <QPointer>
#include <memory>

#include "hosts/qgis/element_view.h"

namespace tessarine::qgis {

/// Shapes are in millimetres of the page, counted from its lower left corner. Without a layout the view is empty.
class LayoutView final : public ElementView, public IPageLayout {
 public:
  LayoutView(QgsLayout* layout, QgsLayoutDesignerInterface* designer) : layout_(layout), designer_(designer) {}

  [[nodiscard]] Envelope Extent() const override;
  void SetExtent(const Envelope& extent) override;
  void Refresh() override;
  void PartialRefresh(std::int32_t, const ObjectRef&, const Envelope*) override { Refresh(); }

  [[nodiscard]] std::string NameOf(const QString& id) const override;
  void SetNameOf(const QString& id, const std::string& name) override;

 protected:
  [[nodiscard]] std::vector<ElementRef> ReadElements() const override;
  [[nodiscard]] bool IsSelected(const QString& id) const override;
  void SetSelected(const QString& id, bool selected) override;

 private:
  [[nodiscard]] QgsLayoutItem* ItemOf(const QString& id) const;
  [[nodiscard]] ElementRef ElementOf(QgsLayoutItem& item) const;
  [[nodiscard]] double PageHeight() const;

  QPointer<QgsLayout> layout_;
  QPointer<QgsLayoutDesignerInterface> designer_;
};

}  // namespace tessarine::qgis
