# SPDX-License-Identifier: GPL-2.0-or-later
"""While a layer is edited, Calculate Geometry joins the user's edits of it as one command, and changes other layers as
ever."""
import math

from program_steps import (WORK, QgsVectorLayer, choose_line, command, expect, make_layer, press, read_report)
from qgis.core import QgsFeature, QgsGeometry, QgsProject
from vanished import Closer

LINES = ["LINESTRING(0 0, 10 0)", "LINESTRING(0 0, 20 0)"]
DEGREE = 6378137.0 * math.radians(1.0)


def calculate(layer):
    def answer(form):
        choose_line(form, "lbxLayers", layer.name())
        press(form, "chk1")
        press(form, "cmdOK")

    steps = [expect("frmGeometry", answer), read_report(["Geometry Calculation Successful"])]
    command("Tessarine_CalcGeometry").trigger()
    assert all(step.done for step in steps)


def refused(layer, text):
    closers = []

    def answer(form):
        choose_line(form, "lbxLayers", layer.name())
        press(form, "chk1")
        closers.append(Closer("frmGeometry"))
        press(form, "cmdOK")

    expect("frmGeometry", answer)
    command("Tessarine_CalcGeometry").trigger()
    closers[0].timer.stop()
    told = " ".join(closers[0].texts)
    assert text in told, told


def degrees(layer):
    if layer.fields().indexOf("Sph_Len") < 0:
        return None
    return [round(row["Sph_Len"] / DEGREE, 6) for row in sorted(layer.getFeatures(), key=lambda row: row["label"])]


def stored(path):
    return degrees(QgsVectorLayer(str(path), "again", "ogr"))


def scenario():
    for ending in ("gpkg", "shp"):
        path = WORK / ("edited." + ending)
        edited = make_layer("LineString", LINES, path, "edited " + ending)
        other = make_layer("LineString", LINES, WORK / ("other." + ending), "other " + ending)
        assert edited.startEditing()
        first = next(row for row in edited.getFeatures() if row["label"] == "row 0")
        assert edited.changeGeometry(first.id(), QgsGeometry.fromWkt("LINESTRING(0 0, 30 0)"))
        edited.selectByIds([first.id()])
        calculate(other)
        assert degrees(other) == [10, 20] and stored(WORK / ("other." + ending)) == [10, 20]

        commands = edited.undoStack().count()
        edited.removeSelection()
        calculate(edited)
        assert edited.isEditable() and edited.undoStack().count() == commands + 1
        assert degrees(edited) == [30, 20], "the user's own edit is measured"
        assert stored(path) is None
        edited.undoStack().undo()
        assert degrees(edited) is None and edited.isModified()
        edited.undoStack().redo()
        assert edited.commitChanges(), edited.commitErrors()
        assert stored(path) == [30, 20]
    values_that_would_be_lost()


def values_that_would_be_lost():
    # The program saves new features before it has new fields.
    added = make_layer("LineString", LINES, WORK / "added.gpkg", "added")
    assert added.startEditing()
    row = QgsFeature(added.fields())
    row.setGeometry(QgsGeometry.fromWkt("LINESTRING(0 0, 5 0)"))
    row["label"] = "row 2"
    assert added.addFeature(row)
    refused(added, "The layer 'added' has new features that aren't saved")
    assert degrees(added) is None and added.commitChanges()
    calculate(added)
    assert degrees(added) == [10, 20, 5]
    wide = make_layer("LineString", LINES, WORK / "wide.tab", "wide")
    calculate(wide)
    assert stored(WORK / "wide.tab") == [10, 20]
    # Who edits the same file elsewhere would write it without what is new.
    for ending in ("shp", "geojson"):
        path = WORK / ("twice." + ending)
        first = make_layer("LineString", LINES, path, "first " + ending)
        second = QgsVectorLayer(str(path), "second " + ending, "ogr")
        QgsProject.instance().addMapLayer(second)
        assert second.startEditing()
        refused(first, "The layer 'second %s' shows the same file as 'first %s' and is being edited" % (ending, ending))
        assert second.rollBack()
        calculate(first)
        assert degrees(second) == [10, 20], "it shows what is new"
        assert second.startEditing()
        row = next(row for row in second.getFeatures() if row["label"] == "row 0")
        assert second.changeAttributeValue(row.id(), second.fields().indexOf("size"), 77) and second.commitChanges()
        again = QgsVectorLayer(str(path), "again", "ogr")
        assert stored(path) == [10, 20] and [row["size"] for row in again.getFeatures() if row["label"] == "row 0"] == [77]
