# SPDX-License-Identifier: GPL-2.0-or-later
"""The measuring tool, by mouse and keyboard. Numbers were computed with GeographicLib by pyproj 3.4.1 (`Geod.inv`,
`Geod.polygon_area_perimeter`)."""
import qgis.utils
from program_steps import (WINDOW, QApplication, QComboBox, QgsProject, QTest, Qt, QWidget, child, click_menu, command,
                           iface, press)
from qgis.core import QgsCoordinateReferenceSystem, QgsPointXY, QgsRectangle
from qgis.gui import QgsRubberBand
from qgis.PyQt.QtCore import QEvent
from qgis.PyQt.QtGui import QMouseEvent
from qgis.PyQt.QtWidgets import QLabel, QTableWidget

EARTH, MARS = 2415318.0182577027, 1285042.4703113157  # from 170 10 to -170 20
BOX = 2396553402237.1167  # square metres, by 170 to -170 and 10 to 20


def bands():
    return [item for item in iface.mapCanvas().scene().items()
            if isinstance(item, QgsRubberBand) and item.isVisible() and item.size()]


def pixel(x, y):
    return iface.mapCanvas().getCoordinateTransform().transform(QgsPointXY(x, y)).toQPointF().toPoint()


def click(x, y, button=Qt.LeftButton):
    QTest.mouseClick(iface.mapCanvas().viewport(), button, Qt.NoModifier, pixel(x, y))


# The pointer itself may be over the window.
def point_at(x, y):
    move = QMouseEvent(QEvent.MouseMove, pixel(x, y), Qt.NoButton, Qt.NoButton, Qt.NoModifier)
    QApplication.sendEvent(iface.mapCanvas().viewport(), move)


def window():
    return child(WINDOW, "TessarineMeasureWindow")


def shown():
    table = child(window(), "tblLegs", QTableWidget)
    return [[table.item(row, column).text() for column in range(table.columnCount())]
            for row in range(table.rowCount())]


def text(name):
    return child(window(), name, QLabel).text()


def number(told):
    return float(told.split()[0].replace(",", ""))


def show_map(reference, extent):
    QgsProject.instance().setCrs(QgsCoordinateReferenceSystem(reference))
    iface.mapCanvas().setExtent(extent)
    QTest.qWait(100)


# A pixel is a part of a degree: clicks hit nearly what they mean.
def is_about(told, expected):
    return abs(number(told) / expected - 1) < 0.01


def two_places_over_the_edge():
    show_map("EPSG:4326", QgsRectangle(-180, -90, 180, 90))
    click_menu("Tessarine Tools", "Measure on the Spheroid")
    action = command("TessarineMeasure")
    assert action.isChecked() and window().isVisible()
    assert "Click two places" in text("lblNote") and not child(window(), "cmdCopy").isEnabled()
    click(170, 10)
    point_at(-170, 20)
    assert is_about(text("lblPointer"), EARTH), text("lblPointer")
    click(-170, 20)
    assert len(shown()) == 1 and is_about(text("lblTotal"), EARTH), text("lblTotal")
    assert 58 < float(shown()[0][5].rstrip("\u00b0")) < 63, shown()
    parts = max(bands(), key=lambda band: band.asGeometry().length()).asGeometry().asMultiPolyline()
    assert len(parts) == 2, "a line over the edge is drawn from both ends"
    click(0, 0, Qt.RightButton)


def an_area_by_double_click():
    click(170, 10)
    assert not shown(), "the click after the end begins anew"
    click(170, 20)
    click(-170, 20)
    canvas = iface.mapCanvas().viewport()
    QTest.mouseClick(canvas, Qt.LeftButton, Qt.NoModifier, pixel(-170, 10))
    QTest.mouseDClick(canvas, Qt.LeftButton, Qt.NoModifier, pixel(-170, 10))
    assert len(shown()) == 3 and is_about(text("lblArea"), BOX), text("lblArea")
    point_at(0, 0)
    assert not text("lblPointer"), "the path has ended"


def by_keyboard():
    canvas = iface.mapCanvas()
    canvas.setFocus()
    QTest.keyClick(canvas, Qt.Key_Backspace)
    assert len(shown()) == 2, shown()
    QTest.keyClick(window(), Qt.Key_Backspace)
    assert len(shown()) == 1
    press(window(), "cmdCopy")
    lines = [line.split("\t") for line in QApplication.clipboard().text().splitlines()]
    assert lines[0][5] == "Distance (m)" and lines[2][0] == "Total (m)" and lines[3][0] == "Spheroid", lines
    assert abs(float(lines[1][5]) - number(shown()[0][4])) < 1e-3
    QTest.keyClick(canvas, Qt.Key_Escape)
    assert len(shown()) == 1, "Escape ends the path"
    point_at(0, 0)
    assert not text("lblPointer"), "the path has ended"
    QTest.keyClick(canvas, Qt.Key_Escape)
    assert not shown() and not child(window(), "cmdCopy").isEnabled()


def choose(name, text):
    box = child(window(), name, QComboBox)
    at = box.findText(text, Qt.MatchStartsWith)
    assert at >= 0, [box.itemText(line) for line in range(box.count())]
    box.setCurrentIndex(at)


def search(words, key):
    """Types into the box for the spheroid; answers what it offers and what the key chooses."""
    box = child(window(), "cboSpheroid", QComboBox)
    box.setFocus()
    box.lineEdit().selectAll()
    QTest.keyClicks(box.lineEdit(), words)
    found = box.lineEdit().completer().popup()
    lines = [found.model().index(row, 0).data() for row in range(found.model().rowCount())] if found.isVisible() else []
    QTest.keyClick(found if found.isVisible() else box.lineEdit(), key)
    QTest.qWait(50)
    return lines, box.currentText()


def spheroids_are_searched():
    lines, chosen = search("mars 2", Qt.Key_Return)
    assert lines == ["Mars 2000 (ESRI:107905)"] and chosen == "Mars 2000", (lines, chosen)
    assert search("EPSG:7030", Qt.Key_Return)[1] == "WGS 1984"
    assert search("nothing such", Qt.Key_Return) == ([], "WGS 1984")
    assert search("mars 2", Qt.Key_Tab)[1] == "Mars 2000", "what the box says is what is measured on"
    assert search("venus", Qt.Key_Escape)[1] == "Mars 2000"
    choose("cboSpheroid", "As the project")


def on_mars_and_on_a_projection():
    click(170, 10)
    click(-170, 20)
    choose("cboSpheroid", "Mars 2000")
    assert is_about(text("lblTotal"), MARS), text("lblTotal")
    choose("cboLengthUnit", "kilo")
    assert is_about(text("lblTotal"), MARS / 1000) and "km" in text("lblTotal"), text("lblTotal")
    before = number(text("lblTotal"))
    show_map("EPSG:3857", QgsRectangle(-20e6, -10e6, 20e6, 10e6))
    assert abs(number(text("lblTotal")) - before) < 0.001, "places stay where they are on the globe"
    parts = max(bands(), key=lambda band: band.asGeometry().length()).asGeometry().asMultiPolyline()
    assert len(parts) == 2 and max(len(part) for part in parts) > 10


def closed_and_shown_again():
    action = command("TessarineMeasure")
    before = len(bands())
    assert before
    iface.actionPan().trigger()
    assert not action.isChecked() and not window().isVisible() and not bands()
    action.trigger()
    assert window().isVisible() and len(shown()) == 1 and len(bands()) == before
    QTest.keyClick(window(), Qt.Key_Escape)
    assert not window().isVisible() and not bands()
    click(0, 0)
    assert window().isVisible()
    press(window(), "cmdClose")
    assert not window().isVisible()


def without_a_reference():
    show_map("", QgsRectangle(0, 0, 10, 10))
    click(1, 1)
    assert "reference" in text("lblNote") and not shown(), text("lblNote")


def unloaded_and_back():
    assert qgis.utils.unloadPlugin("tessarine")
    assert WINDOW.findChild(QWidget, "TessarineMeasureWindow") is None
    assert qgis.utils.loadPlugin("tessarine") and qgis.utils.startPlugin("tessarine")
    show_map("EPSG:4326", QgsRectangle(-180, -90, 180, 90))
    command("TessarineMeasure").trigger()
    assert child(window(), "cboSpheroid", QComboBox).currentText() == "Mars 2000", "the choice is remembered"
    click(170, 10)
    click(-170, 20)
    assert is_about(text("lblTotal"), MARS / 1000), text("lblTotal")


def scenario():
    two_places_over_the_edge()
    an_area_by_double_click()
    by_keyboard()
    spheroids_are_searched()
    on_mars_and_on_a_projection()
    closed_and_shown_again()
    without_a_reference()
    unloaded_and_back()
