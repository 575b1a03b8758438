# SPDX-License-Identifier: GPL-2.0-or-later
"""While a layer is edited, Calculate Geometry joins the user's edits of it as one command, and changes other layers as
ever."""
import math

from program_steps import (WORK, QgsVectorLayer, choose_line, command, expect, make_layer, press, read_report)
from qgis.core import QgsFeature, QgsField, QgsGeometry, QgsProject
from qgis.PyQt.QtCore import QVariant
from vanished import Closer

LINES = ["LINESTRING(0 0, 10 0)", "LINESTRING(0 0, 20 0)"]
DEGREE = 6378137.0 * math.radians(1.0)


def calculate(layer, *told):
    def answer(form):
        choose_line(form, "lbxLayers", layer.name())
        press(form, "chk1")
        press(form, "cmdOK")

    steps = [expect("frmGeometry", answer), read_report(told or ["Geometry Calculation Successful"])]
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
    told = closers[0].texts
    assert any(text in one for one in told), told
    assert not any("Error Number" in one for one in told), "a refusal is no error of the program: %s" % told


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
    values_in_full()
    numbers_that_a_rewrite_would_change()


def values_in_full():
    """A value is the same by each way into the data: the file, the edit buffer, and the program behind a filter."""
    crooked = ["LINESTRING(0 0, 1.2345678901234567 0.1)"]
    found = {}
    for way in ("file", "buffer", "filter"):
        layer = make_layer("LineString", crooked, WORK / (way + ".gpkg"), way)
        if way == "buffer":
            assert layer.startEditing()
        if way == "filter":
            assert layer.setSubsetString("size >= 0")
        calculate(layer)
        assert way != "buffer" or layer.commitChanges(), layer.commitErrors()
        found[way] = next(layer.getFeatures())["Sph_Len"]
    assert len(set(found.values())) == 1 and round(found["file"], 9) != found["file"], found
    # What stands in a field that has no room for the value stays there.
    for ending in ("shp", "gpkg"):
        layer = make_layer("LineString", LINES, WORK / ("narrow." + ending), "narrow " + ending)
        assert layer.dataProvider().addAttributes([QgsField("Sph_Len", QVariant.String, len=4)])
        layer.updateFields()
        at = layer.fields().indexOf("Sph_Len")
        assert layer.dataProvider().changeAttributeValues({row.id(): {at: "keep"} for row in layer.getFeatures()})
        for edited in (False, True):
            assert not edited or layer.startEditing()
            calculate(layer, "Geometry Calculation Finished with Problems", "has no room for the value")
            assert [row["Sph_Len"] for row in layer.getFeatures()] == ["keep", "keep"]
        assert layer.rollBack()


def numbers_that_a_rewrite_would_change():
    path = WORK / "wide.geojson"
    row = ('{"type":"Feature","properties":{"label":"row %d","text":"99999999999999999999 \\"","big":%s},'
           '"geometry":{"type":"LineString","coordinates":[[0,0],[%d,0]]}}')
    for big, kept in (("12345678901234567890", False), ("-9223372036854775808", True), ("1.5e30", True)):
        text = '{"type":"FeatureCollection","features":[%s]}' % ",".join(row % (n, big, 10 * n + 10) for n in (0, 1))
        path.write_text(text)
        layer = QgsVectorLayer(str(path), "wide json", "ogr")
        QgsProject.instance().addMapLayer(layer)
        layer.selectByIds([1])
        refused(layer, "can only be written anew as a whole")
        assert path.read_text() == text and layer.startEditing()
        if kept:
            calculate(layer)
            assert layer.selectedFeatureIds() == [1]
            assert layer.commitChanges(), layer.commitErrors()
            found = {row["label"]: row["Sph_Len"] for row in layer.getFeatures()}
            assert round(found["row 1"] / DEGREE, 6) == 20 and not found["row 0"], found
        else:
            refused(layer, "whole numbers of more than 64 bits")
            assert layer.selectedFeatureIds() == [1]
            assert layer.rollBack() and path.read_text() == text
        QgsProject.instance().removeMapLayer(layer.id())


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
        if ending == "geojson":
            refused(first, "can only be written anew as a whole")
            continue
        calculate(first)
        assert degrees(second) == [10, 20], "it shows what is new"
        assert second.startEditing()
        row = next(row for row in second.getFeatures() if row["label"] == "row 0")
        assert second.changeAttributeValue(row.id(), second.fields().indexOf("size"), 77) and second.commitChanges()
        again = QgsVectorLayer(str(path), "again", "ogr")
        assert stored(path) == [10, 20] and [row["size"] for row in again.getFeatures() if row["label"] == "row 0"] == [77]
