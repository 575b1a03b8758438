# SPDX-License-Identifier: GPL-2.0-or-later
"""While a layout's window is at work, its items are the graphic elements."""
from program_steps import (QApplication, QCheckBox, QgsProject, QTest, child, command, expect, iface, press, type_into,
                           wait_until)
from qgis.core import (QgsAnnotationLineItem, QgsLayoutItemLabel, QgsLayoutItemShape, QgsLayoutPoint, QgsLayoutSize,
                       QgsLineString, QgsPoint, QgsPrintLayout)
from qgis.PyQt.QtCore import QRectF


def add_shape(layout, kind, x):
    shape = QgsLayoutItemShape(layout)
    shape.setShapeType(kind)
    layout.addLayoutItem(shape)
    shape.attemptMove(QgsLayoutPoint(x, 20))
    shape.attemptResize(QgsLayoutSize(30, 10))
    return shape


def scenario():
    project = QgsProject.instance()
    layout = QgsPrintLayout(project)
    layout.initializeDefaults()
    layout.setName("page")
    project.layoutManager().addLayout(layout)
    ellipse = add_shape(layout, QgsLayoutItemShape.Ellipse, 10)
    rectangle = add_shape(layout, QgsLayoutItemShape.Rectangle, 60)
    label = QgsLayoutItemLabel(layout)
    layout.addLayoutItem(label)
    label.setId("heading")

    seen = []

    def look(form):
        seen.append({box.text() for box in form.findChildren(QCheckBox)})
        press(form, "cmdClose")

    expect("frmSelectGraphics", look)
    command("Tessarine_SelectGraphics").trigger()
    assert "Ellipses [0]" in shortened(seen[-1]), seen

    designer = iface.openLayoutDesigner(layout)
    window = designer.window()
    menus = [action.text().replace("&", "") for action in window.menuBar().actions()]
    assert "Tessarine Tools" in menus, menus
    window.activateWindow()
    wait_until(lambda: QApplication.activeWindow() is window, "the layout's window doesn't become active")

    def by_type(form):
        seen.append({box.text() for box in form.findChildren(QCheckBox)})
        press(form, "chkEllipses")
        type_into(form, "txtName", "head*")
        press(form, "cmdOK")

    expect("frmSelectGraphics", by_type)
    command("Tessarine_SelectGraphics").trigger()
    assert ellipse.isSelected() and label.isSelected() and not rectangle.isSelected(), seen

    # The zoom command moves the view at work to the bounds of the map's selected elements, here in millimetres of the
    # page from its lower left corner.
    project.mainAnnotationLayer().addItem(QgsAnnotationLineItem(QgsLineString([QgsPoint(50, 100), QgsPoint(80, 120)])))
    window.activateWindow()
    wait_until(lambda: QApplication.activeWindow() is window, "the layout's window doesn't become active again")
    command("Tessarine_SelectAllGraphics").trigger()
    command("Tessarine_ZoomSelGraphics").trigger()
    view = designer.view()
    seen_part = view.mapToScene(view.viewport().rect()).boundingRect()
    height = layout.pageCollection().page(0).rect().height()
    assert seen_part.contains(QRectF(50, height - 120, 30, 20)) and seen_part.width() < 150, seen_part
    window.close()
    QTest.qWait(50)


def shortened(texts):
    return {" ".join(text.replace("&", "").split()) for text in texts}
