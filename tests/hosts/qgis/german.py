# SPDX-License-Identifier: GPL-2.0-or-later
"""In German: menus, dialogs, the toolbox, panel, messages, measuring and functions, with their identifiers as they are."""
from program_steps import (DATA, WINDOW, WORK, QgsProject, QgsVectorLayer, QPushButton, QTest, Qt, QTextEdit, QWidget,
                           action_of, child, choose_line, click_menu, command, expect, iface, press, read_report,
                           type_into, wait_until)
from qgis.core import QgsApplication, QgsExpression
from qgis.PyQt.QtWidgets import QDockWidget, QLabel, QLineEdit, QTableWidget


def heads_of(table):
    return [table.horizontalHeaderItem(column).text() for column in range(table.columnCount())]


def end_of_a_run():
    def answer(form):
        choose_line(form, "lbxLayers", "countries")
        type_into(form, "txtOutput", str(WORK / "vertices.gpkg"))
        press(form, "cmdOK")

    expect("frmLayerFields", answer)
    read_report(["Contains"])
    command("Tessarine_ShapesToVertices").trigger()
    buttons = [one for one in iface.messageBar().findChildren(QPushButton, "cmdShowReport") if one.isVisible()]
    assert [button.text() for button in buttons] == ["Bericht"], buttons
    QTest.mouseClick(buttons[0], Qt.LeftButton)
    dock = child(WINDOW, "TessarineReports", QDockWidget)
    table = child(dock, "tblRuns", QTableWidget)
    assert dock.windowTitle() == "Tessarine-Berichte" and dock.isVisible()
    assert heads_of(table) == ["Zeit", "Werkzeug", "Ausgabe", "Stand"], heads_of(table)
    assert table.item(0, 1).text() == "Objekte zu St\u00fctzpunkten", table.item(0, 1).text()
    assert table.item(0, 3).text().endswith(" Datens\u00e4tze geschrieben"), table.item(0, 3).text()
    line = child(dock, "txtCommand", QLineEdit)
    assert line.placeholderText().startswith("Keine Zeile im Terminal tut dasselbe: "), line.placeholderText()
    assert " ist dort nicht zu nennen, denn " in line.placeholderText(), line.placeholderText()
    dock.close()


def measuring():
    command("TessarineMeasure").trigger()
    window = child(WINDOW, "TessarineMeasureWindow")
    assert window.windowTitle() == "Auf dem Sph\u00e4roid messen"
    assert heads_of(child(window, "tblLegs", QTableWidget))[4] == "Entfernung"
    assert "R\u00fccktaste" in child(window, "lblNote", QLabel).text()
    press(window, "cmdClose")


def functions():
    functions = QgsExpression.Functions()
    told = functions[QgsExpression.functionIndex("tessarine_length")].helpText()
    assert "Argumente" in told and "die L\u00e4nge des Objekts" in told, told
    expression = QgsExpression("tessarine_length(1)")
    expression.evaluate()
    assert expression.evalErrorString() == "tessarine_length: Argument 1 (geometry): es muss eine Linie oder ein Polygon " \
        "sein und ist '1'.", expression.evalErrorString()


def scenario():
    layer = QgsVectorLayer(str(DATA / "countries.shp"), "countries", "ogr")
    QgsProject.instance().addMapLayer(layer)
    seen = []

    def look(dialog):
        seen.append((dialog.windowTitle(), child(dialog, "cmdCancel", QPushButton).text(),
                     child(dialog, "lbxLayers").model().index(0, 0).data()))
        QTest.keyClick(dialog, Qt.Key_F1)
        wait_until(lambda: dialog.findChild(QWidget, "ManualWindow") is not None, "no manual opened")
        shown = child(dialog.findChild(QWidget, "ManualWindow"), "txtManual", QTextEdit).toPlainText()
        assert "Shapes to Vertices" in shown, shown[:200]
        press(dialog, "cmdCancel")

    expect("frmLayerFields", look)
    click_menu("Tessarine Tools", "Werkzeuge für Objekte", "Objekte zu Stützpunkten")
    assert seen == [("Objekte zu Stützpunkten:", "Abbrechen", "countries")], seen
    algorithm = QgsApplication.processingRegistry().algorithmById("tessarine:vertices")
    assert algorithm.displayName() == "Objekte zu Stützpunkten", algorithm.displayName()
    fields = algorithm.parameterDefinition("FIELDS")
    assert fields.description() == "Felder", fields.description()
    assert algorithm.name() == "vertices"
    assert action_of(WINDOW.menuBar(), "Tessarine Tools").menu().objectName() == "Tessarine.clsMenu"
    end_of_a_run()
    measuring()
    functions()
