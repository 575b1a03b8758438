# SPDX-License-Identifier: GPL-2.0-or-later
"""What comes of a run beside its output: looks, labels, aliases and metadata of layers, the message at its end, the panel
of reports, and the line for the terminal, which makes the same output."""
import os
import pathlib
import shutil
import subprocess

import processing
from osgeo import ogr
from program_steps import (WINDOW, WORK, QApplication, QgsProject, QgsVectorLayer, QPushButton, Qt, QTest, child,
                           choose_line, command, expect, iface, make_layer, press, read_report, type_into, wait_until)
from qgis.core import QgsProcessingException
from qgis.PyQt.QtWidgets import QDockWidget, QLineEdit, QTableWidget, QTextBrowser

SQUARE = "POLYGON((0 0, 0 10, 10 10, 10 0, 0 0))"
TRIANGLE = "POLYGON((20 0, 25 8, 30 0, 20 0))"
EQUATOR = "LINESTRING(0 0, 4 0, 10 0)"
MERIDIAN = "LINESTRING(20 0, 20 90)"


def rows_of(path):
    data = ogr.Open(str(path))
    layer = data.GetLayer(0)
    count = layer.GetLayerDefn().GetFieldCount()
    return [layer.GetLayerDefn().GetFieldDefn(at).GetName() for at in range(count)], [
        (row.GetFID(), [row.GetField(at) for at in range(count)], row.GetGeometryRef().ExportToWkt()) for row in layer]


def in_15_digits(table):
    """So many of a double the program itself writes into a GeoPackage, as of a layer with a filter."""
    def shorter(value):
        return float("%.15g" % value) if isinstance(value, float) else value
    return table[0], [(oid, [shorter(value) for value in values], shape) for oid, values, shape in table[1]]


def at_terminal(line):
    folder = str(pathlib.Path(os.environ["TESSARINE_PROGRAM"]).parent)
    done = subprocess.run(line, shell=True, cwd=WORK, env=dict(os.environ, PATH=folder + ":" + os.environ["PATH"]),
                          capture_output=True, text=True, stdin=subprocess.DEVNULL, timeout=60)
    assert done.returncode == 0, (line, done.stdout + done.stderr)


def dock():
    return child(WINDOW, "TessarineReports", QDockWidget)


def copied_command():
    assert dock().isVisible()
    QApplication.clipboard().clear()
    press(dock(), "cmdCopyCommand")
    line = QApplication.clipboard().text()
    assert line == child(dock(), "txtCommand", QLineEdit).text() and line.startswith("tessarine "), line
    return line


def press_message_button():
    buttons = [one for one in iface.messageBar().findChildren(QPushButton, "cmdShowReport") if one.isVisible()]
    assert len(buttons) == 1, buttons
    QTest.mouseClick(buttons[0], Qt.LeftButton)
    iface.messageBar().clearWidgets()


def table():
    box = child(dock(), "tblRuns", QTableWidget)
    return [[box.item(row, column).text() for column in range(1, box.columnCount())] for row in range(box.rowCount())]


def centroids_by_dialog():
    areas = make_layer("Polygon", [SQUARE, TRIANGLE, "POLYGON((40 0, 41 1, 42 0, 40 0))"], WORK / "areas.gpkg", "my areas")
    areas.selectByIds([1, 3])
    told = []

    def answer(form):
        choose_line(form, "lbxLayers", "my areas")
        press(form, "optSel")
        choose_line(form, "lbxFields", "label")
        type_into(form, "txtOutput", str(WORK / "centres.shp"))
        press(form, "cmdOK")

    assert not dock().isVisible()
    expect("frmLayerFields", answer)
    read_report(["my areas"], told)
    command("Tessarine_PolygonToCentroid").trigger()
    layer = QgsProject.instance().layerTreeRoot().children()[0].layer()
    symbol = layer.renderer().symbol()
    assert symbol.color().getRgb()[:3] == (176, 110, 72) and symbol.size() == 2.4, symbol.dump()
    assert layer.labelsEnabled() and layer.labeling().settings().fieldName == "label"
    metadata = layer.metadata()
    assert metadata.title() == "centres" and "one for each feature" in metadata.abstract(), metadata.abstract()
    assert metadata.crs().authid() == "EPSG:4326"

    press_message_button()
    assert "Contains 2" in told[0] and child(dock(), "txtReport", QTextBrowser).toPlainText() == told[0]
    assert table() == [["Shapes to Centroids", str(WORK / "centres.shp"), "2 records written"]], table()
    line = copied_command()
    assert "TESSARINE_COMMAND=" + line in metadata.history(), metadata.history()
    expected = rows_of(WORK / "centres.shp")
    assert len(expected[1]) == 2 and "label" in expected[0]
    QgsProject.instance().removeMapLayer(layer)
    for file in WORK.glob("centres.*"):
        file.unlink()
    at_terminal(line)
    assert rows_of(WORK / "centres.shp") == expected, line


def calculate(layer, boxes):
    def answer(form):
        choose_line(form, "lbxLayers", layer.name())
        for box in boxes:
            press(form, box)
        press(form, "cmdOK")

    expect("frmGeometry", answer)
    read_report([layer.name()])
    command("Tessarine_CalcGeometry").trigger()
    press_message_button()


def measures_by_dialog():
    for name in ("lines.gpkg", "lines.shp"):
        layer = make_layer("LineString", [EQUATOR, MERIDIAN, EQUATOR], WORK / name, name)
        if name.endswith("gpkg"):
            assert layer.setSubsetString("size < 2")
        (WORK / "before").mkdir(exist_ok=True)
        for file in WORK.glob("lines.*"):
            shutil.copy(file, WORK / "before")
        layer.setFieldAlias(layer.fields().indexOf("label"), "mine")
        calculate(layer, ["chk1", "chk8"])
        aliases = {field.name(): layer.attributeAlias(at) for at, field in enumerate(layer.fields())}
        assert aliases["Sph_Len"] == "Spheroidal Length (metres, WGS 84)", aliases
        assert aliases["Vertices"] == "Number of Vertices" and aliases["label"] == "mine", aliases
        # The data don't have it, and what somebody calls the field stays.
        again = QgsVectorLayer(str(WORK / name), "again", "ogr")
        assert again.fields()[again.fields().indexOf("Sph_Len")].alias() == ""
        layer.setFieldAlias(layer.fields().indexOf("Sph_Len"), "my length")
        line = copied_command()
        assert any(text.startswith("TESSARINE_SPHEROID=WGS 84") for text in layer.metadata().history())
        expected = rows_of(WORK / name)
        filled = [row[1][expected[0].index("Sph_Len")] for row in expected[1]]
        assert (filled[2] or 0) == 0 if name.endswith("gpkg") else filled[2] > 1e6, filled
        QgsProject.instance().removeMapLayer(layer)
        for file in (WORK / "before").glob("lines.*"):
            shutil.copy(file, WORK)
        at_terminal(line)
        assert in_15_digits(rows_of(WORK / name)) == in_15_digits(expected), (line, rows_of(WORK / name), expected)


def what_has_no_line():
    layer = make_layer("LineString", [EQUATOR], None, "in memory")
    calculate(layer, ["chk1"])
    box = child(dock(), "txtCommand", QLineEdit)
    assert box.text() == "" and "lie in no file" in box.placeholderText(), box.placeholderText()
    assert not child(dock(), "cmdCopyCommand").isEnabled()
    assert layer.attributeAlias(layer.fields().indexOf("Sph_Len")).startswith("Spheroidal Length (metres")


def said_of_temporary(name):
    """The panel names what the user finds, not the working copy."""
    child(dock(), "tblRuns", QTableWidget).setCurrentCell(0, 0)
    report = child(dock(), "txtReport", QTextBrowser).toPlainText()
    assert table()[0][1:] == [name, "9 records written"], table()[0]
    assert "** %s\n" % name in report and "output.gpkg" not in report, report


def output_that_does_not_arrive(areas):
    """Not done before the program's sink has the rows; without the password of its place."""
    place = "spatialite:dbname='%s' user='u' password='secret' table=\"t\" (geom)" % (WORK / "none" / "none.sqlite")
    try:
        processing.run("tessarine:vertices", {"INPUT": areas, "OUTPUT": place})
        raise AssertionError("a database that isn't there took the output")
    except QgsProcessingException as error:
        assert "secret" not in str(error), error
    tool, output, told = table()[0]
    assert told.startswith("Failed: ") and "none.sqlite" in output and "secret" not in output + told, table()[0]


def from_the_toolbox():
    areas = make_layer("Polygon", [SQUARE, TRIANGLE], WORK / "more.gpkg", "more")
    before = len(table())
    results = processing.runAndLoadResults("tessarine:vertices", {"INPUT": areas, "OUTPUT": "TEMPORARY_OUTPUT"})
    layer = QgsProject.instance().mapLayer(results["OUTPUT"])
    assert layer.renderer().symbol().symbolLayer(0).strokeColor().getRgb()[:3] == (84, 110, 135)
    assert not layer.labelsEnabled() and any("TESSARINE_VERSION" in text for text in layer.metadata().history())
    wait_until(lambda: len(table()) == before + 1, "the run isn't in the panel")
    said_of_temporary("Temporary layer '%s'" % layer.name())
    processing.runAndLoadResults(
        "tessarine:calculate", {"INPUT": areas, "MEASURE": ["Sph. Area"], "SPHEROID": "Mars 2000",
                                "OUTPUT": str(WORK / "mars.gpkg")})
    layer = next(one for one in QgsProject.instance().mapLayers().values() if "mars.gpkg" in one.source())
    alias = layer.attributeAlias(layer.fields().indexOf("Sph_Area"))
    assert alias == "Spherical Area (square metres, Mars 2000)", alias
    output_that_does_not_arrive(areas)


def clear():
    expect("frmReport_modal", lambda form: press(form, "cmdOK"))
    press(dock(), "cmdOpenReport")
    press(dock(), "cmdClear")
    assert table() == [] and not child(dock(), "cmdClear").isEnabled()
    assert child(dock(), "txtReport", QTextBrowser).toPlainText() == ""


def scenario():
    centroids_by_dialog()
    measures_by_dialog()
    what_has_no_line()
    from_the_toolbox()
    clear()
