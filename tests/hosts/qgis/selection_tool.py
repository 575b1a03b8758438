# SPDX-License-Identifier: GPL-2.0-or-later
"""The toolbar's tool selects several annotation items, and the commands work on what it selected."""
from program_steps import (QgsProject, QTest, Qt, command, expect, iface, press, type_into)
from qgis.core import (QgsAnnotationLayer, QgsAnnotationLineItem, QgsAnnotationMarkerItem, QgsCoordinateReferenceSystem,
                       QgsLineString, QgsPoint, QgsPointXY, QgsRectangle)
from qgis.gui import QgsRubberBand


def bands():
    return [item for item in iface.mapCanvas().scene().items() if isinstance(item, QgsRubberBand) and item.isVisible()
            and item.size()]


def pixel(x, y):
    return iface.mapCanvas().getCoordinateTransform().transform(QgsPointXY(x, y)).toQPointF().toPoint()


def drag(first, second, modifiers=Qt.NoModifier):
    screen = iface.mapCanvas().viewport()
    QTest.mousePress(screen, Qt.LeftButton, modifiers, first)
    for step in range(1, 5):
        QTest.mouseMove(screen, first + (second - first) * step / 4)
        QTest.qWait(10)
    QTest.mouseRelease(screen, Qt.LeftButton, modifiers, second)


def scenario():
    project = QgsProject.instance()
    plane = QgsCoordinateReferenceSystem("EPSG:3857")
    project.setCrs(plane)
    drawings = QgsAnnotationLayer("drawings", QgsAnnotationLayer.LayerOptions(project.transformContext()))
    project.addMapLayer(drawings)
    main = project.mainAnnotationLayer()
    for layer in (drawings, main):
        layer.setCrs(plane)
    main.addItem(QgsAnnotationMarkerItem(QgsPoint(10, 10)))
    main.addItem(QgsAnnotationLineItem(QgsLineString([QgsPoint(20, 5), QgsPoint(35, 20)])))
    drawings.addItem(QgsAnnotationMarkerItem(QgsPoint(12, 12)))
    # The program shows the whole of the first layer, once its event loop turns.
    QTest.qWait(200)
    iface.mapCanvas().setExtent(QgsRectangle(0, 0, 40, 30))
    QTest.qWait(100)
    before = len(bands())

    action = command("TessarineSelectItems")
    action.trigger()
    assert action.isChecked() and iface.mapCanvas().mapTool().action() is action
    drag(pixel(5, 5), pixel(15, 15))
    assert len(bands()) == before + 2, len(bands())
    QTest.mouseClick(iface.mapCanvas().viewport(), Qt.LeftButton, Qt.ShiftModifier, pixel(27.5, 12.5))
    assert len(bands()) == before + 3, len(bands())
    QTest.mouseClick(iface.mapCanvas().viewport(), Qt.LeftButton, Qt.ShiftModifier, pixel(10, 10))
    assert len(bands()) == before + 2, len(bands())

    def name_selected(form):
        press(form, "optSel")
        type_into(form, "txtName", "Chosen")
        press(form, "cmdOK")

    expect("frmNameElements", name_selected)
    command("Tessarine_NameGraphics").trigger()
    command("Tessarine_FlipSelection").trigger()
    assert len(bands()) == before + 1, len(bands())

    command("Tessarine_UnselectAllGraphics").trigger()

    # A name selects what the tool had selected, in all layers.
    def by_name(form):
        type_into(form, "txtName", "Chosen")
        press(form, "cmdOK")

    expect("frmSelectGraphics", by_name)
    command("Tessarine_SelectGraphics").trigger()
    assert len(bands()) == before + 2, len(bands())

    iface.actionPan().trigger()
    assert not action.isChecked()
    assert len(bands()) == before + 2, "another tool leaves the selection alone"
