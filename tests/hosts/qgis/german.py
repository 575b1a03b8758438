# SPDX-License-Identifier: GPL-2.0-or-later
"""In German: menus, dialogs, the toolbox, panel, messages, measuring and functions, with their identifiers as they are."""
import re

from measuring import click, show_map
from program_steps import (DATA, WINDOW, WORK, QApplication, QgsProject, QgsVectorLayer, QPushButton, QTest, Qt, QTextEdit,
                           QWidget, action_of, child, choose_line, click_menu, command, expect, iface, press,
                           read_report, type_into, wait_until)
from qgis.core import QgsApplication, QgsExpression, QgsProcessingContext, QgsProcessingFeedback, QgsRectangle
from qgis.PyQt.QtCore import QLocale
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
    show_map("EPSG:4326", QgsRectangle(-180, -90, 180, 90))
    click(0, 0)
    click(90, 0)
    total = child(window, "lblTotal", QLabel).text()
    assert re.fullmatch(r"(9|10)\.\d{3}\.\d{3},\d{3} m", total), total
    press(window, "cmdCopy")
    lines = [line.split("\t") for line in QApplication.clipboard().text().splitlines()]
    assert lines[0][0] == "Strecke" and lines[0][5] == "Entfernung (m)", lines
    assert abs(QLocale().toDouble(lines[1][5])[0] - QLocale().toDouble(total.split()[0])[0]) < 1e-3, lines
    assert lines[3][3] == "6356752,31424518", lines
    press(window, "cmdClose")


def functions():
    functions = QgsExpression.Functions()
    told = functions[QgsExpression.functionIndex("tessarine_length")].helpText()
    assert "Argumente" in told and "die L\u00e4nge des Objekts" in told, told
    expression = QgsExpression("tessarine_length(1)")
    expression.evaluate()
    assert expression.evalErrorString() == "tessarine_length: Argument 1 (geometry): es muss eine Linie oder ein Polygon " \
        "sein und ist '1'.", expression.evalErrorString()


def refusal(tool, **values):
    algorithm = QgsApplication.processingRegistry().algorithmById("tessarine:" + tool)
    values = {"INPUT": "countries", "OUTPUT": "memory:", **values}
    context = QgsProcessingContext()
    context.setProject(QgsProject.instance())
    return algorithm.checkParameterValues(values, context)


def refusals():
    layer = QgsProject.instance().mapLayersByName("countries")[0].id()
    assert refusal("wrap", INPUT=layer) == (
        False, "'wrap' braucht ein Rechteck: 'Bereich' 180, 'Bereich' 360 oder 'Grenzen' W,S,O,N."), refusal(
            "wrap", INPUT=layer)
    assert refusal("wrap", INPUT=layer, BOUNDS="1,2,x,4")[1] == "Grenzen: Die \u00f6stliche Grenze ist ung\u00fcltig."
    why = refusal("wrap", INPUT=layer, BOUNDS="1,2,3")[1]
    assert why == "'Grenzen' braucht vier Zahlen: West, S\u00fcd, Ost und Nord, wie in 'Grenzen' -90,-90,270,90.", why
    spheroids = QgsApplication.processingRegistry().algorithmById("tessarine:calculate").parameterDefinition("SPHEROID")
    assert spheroids.options()[0] == spheroids.defaultValue() == "Wie die Daten", spheroids.options()[0]
    for given in ("As the data", "Wie die Daten", None, "Mars 2000"):
        told = refusal("calculate", INPUT=layer, MEASURE=["Sph. Area"], SPHEROID=given)
        assert told == (True, ""), (given, told)
    why = refusal("calculate", INPUT=layer, MEASURE=["Sph. Area"], SPHEROID="Mars 2000", RADII="2,1")[1]
    assert why.endswith("bitte 'Wie die Daten' w\u00e4hlen oder die Halbachsen weglassen."), why
    why = refusal("calculate", INPUT=layer, MEASURE=["Sph. Area"], RADII="2")[1]
    assert why.startswith("Die Halbachsen '2' sind nicht zu verstehen: "), why


def choices():
    """Dialogs of the toolbox show words in German, and hold those that scripts write."""
    import processing
    shown = {}
    for tool, box_name, given, chosen in (("calculate", "MEASURE", ["Sph. Area", "Number of Parts"], ["Sphär. Fläche"]),
                                          ("wrap", "POLE", "south", ["Nordpol", "Südpol", "beide", "keiner"])):
        dialog = processing.createAlgorithmDialog("tessarine:" + tool, {box_name: given})
        dialog.show()
        wrapper = dialog.mainWidget().wrappers[box_name]
        box = wrapper.wrappedWidget()
        shown[box_name] = [box.itemText(line) for line in range(box.count())]
        assert set(chosen) <= set(shown[box_name]), shown
        assert wrapper.parameterValue() == given, (given, wrapper.parameterValue())
        assert dialog.createProcessingParameters()[box_name] == given, dialog.createProcessingParameters()
        dialog.close()
    assert shown["POLE"][0] == "[keine]", shown


def log_of_the_toolbox():
    layer = QgsProject.instance().mapLayersByName("countries")[0]
    algorithm = QgsApplication.processingRegistry().algorithmById("tessarine:centroids")
    context, told = QgsProcessingContext(), QgsProcessingFeedback(False)
    context.setProject(QgsProject.instance())
    _, done = algorithm.run({"INPUT": layer.id(), "OUTPUT": str(WORK / "centroids.gpkg")}, context, told)
    log = told.textLog()
    assert done and "Contains 177 centroids" in log, "the report is as it is written: " + log
    assert "Dasselbe im Terminal:" in log or "Keine Zeile im Terminal tut dasselbe: " in log, log
    _, done = algorithm.run({"INPUT": layer.id(), "OUTPUT": str(WORK / "none" / "c.shp")}, context, told)
    assert not done and "Ausgabe: Die Ausgabe kann nicht angelegt werden:\n" + str(WORK / "none") in told.textLog()[len(log):]


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
    refusals()
    choices()
    log_of_the_toolbox()
    end_of_a_run()
    measuring()
    functions()
