# SPDX-License-Identifier: GPL-2.0-or-later
"""While a layer is edited, Calculate Geometry joins the user's edits of it as one command, and changes other layers as
ever."""
import math

from program_steps import (WORK, QgsVectorLayer, choose_line, command, expect, make_layer, press, read_report)
from qgis.core import QgsGeometry

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
