# SPDX-License-Identifier: GPL-2.0-or-later
"""Tools that keep the records change shapes in place, in the edit buffer of the layer; what can't be changed stays."""
import os
import subprocess

from osgeo import ogr, osr
from program_steps import WINDOW, WORK, QgsVectorLayer, child, iface, make_layer
from qgis.core import QgsApplication, QgsFeature, QgsGeometry, QgsProject
from qgis.PyQt.QtCore import QTimer
from qgis.PyQt.QtWidgets import QTableWidget
from qgis.gui import QgsProcessingToolboxModel, QgsProcessingToolboxProxyModel
from toolbox import Log, context, rows_of

from processing.gui.AlgorithmExecutor import execute_in_place, execute_in_place_run

CROSSING = "MULTIPOLYGON(((170 0, 170 10, 190 10, 190 0, 170 0)))"
WITHIN = "MULTIPOLYGON(((0 0, 0 10, 10 10, 10 0, 0 0)))"
FAR_NORTH = "MULTIPOLYGON(((0 70, 0 80, 10 80, 10 70, 0 70)))"
IN_TWO = "MULTIPOLYGON(((170 0, 170 10, 180 10, 180 0, 170 0)), ((-180 0, -180 10, -170 10, -170 0, -180 0)))"


def algorithm(name):
    return QgsApplication.processingRegistry().createAlgorithmById("tessarine:" + name)


def in_place(name, layer, **parameters):
    log = Log()
    parameters["INPUT"] = layer
    ok, results = execute_in_place_run(algorithm(name), parameters, context(), log, raise_exceptions=True)
    assert ok, (results, log.errors)
    return log


def shapes(layer):
    return {row.id(): row.geometry().asWkt(9) for row in layer.getFeatures()}


def same(found, wkt):
    return QgsGeometry.fromWkt(found).equals(QgsGeometry.fromWkt(wkt)) or \
        QgsGeometry.fromWkt(found).symDifference(QgsGeometry.fromWkt(wkt)).area() < 1e-12


def what_is_offered(areas):
    for layer, names in ((areas, {"tessarine:wrap", "tessarine:to-centric", "tessarine:to-graphic"}),
                         (QgsVectorLayer("NoGeometry", "table", "memory"), set()),
                         # Heights and measures would be lost.
                         (QgsVectorLayer("LineStringZ?crs=EPSG:4326", "heights", "memory"), set()),
                         (QgsVectorLayer("PointM?crs=EPSG:4326", "measures", "memory"), set())):
        model = QgsProcessingToolboxProxyModel()
        model.setFilters(QgsProcessingToolboxProxyModel.FilterInPlace)
        model.setInPlaceLayer(layer)
        found, groups = set(), [model.index(row, 0) for row in range(model.rowCount())]
        while groups:
            group = groups.pop()
            found.add(model.data(group, QgsProcessingToolboxModel.RoleAlgorithmId))
            groups += [model.index(row, 0, group) for row in range(model.rowCount(group))]
        assert {name for name in found if name and name.startswith("tessarine:")} == names, found


def as_the_terminal(areas):
    out = WORK / "terminal.gpkg"
    subprocess.run([os.environ["TESSARINE_PROGRAM"], "wrap", str(WORK / "areas.gpkg"), "--range", "180", "-o", str(out)],
                   check=True, capture_output=True)
    expected = rows_of(QgsVectorLayer(str(out), "terminal", "ogr"))[1]
    before = rows_of(areas)[1]
    assert areas.startEditing()
    log = in_place("wrap", areas, RANGE="180")
    assert not log.errors and areas.undoStack().count() == 1, log.errors
    assert rows_of(areas)[1] == expected and same(expected[0][1], IN_TWO), rows_of(areas)
    report = next(text for text in log.infos if "Output:" in text)
    assert "Edited in Place:  the layer 'areas'\n  ** 3 features have new shapes\n---" in report, report
    assert "/tmp" not in report and "Workspace" not in report and "working_copy" not in report, report
    areas.undoStack().undo()
    assert rows_of(areas)[1] == before
    # What isn't selected stays as it is; a feature that isn't saved yet takes part.
    added = QgsFeature(areas.fields())
    added.setGeometry(QgsGeometry.fromWkt(CROSSING))
    added["label"] = "new"
    assert areas.addFeature(added)
    new = next(row.id() for row in areas.getFeatures() if row["label"] == "new")
    areas.selectByIds([new])
    in_place("wrap", areas, RANGE="180")
    assert same(shapes(areas)[new], IN_TWO) and same(shapes(areas)[1], CROSSING), shapes(areas)
    assert areas.getFeature(new)["label"] == "new" and areas.featureCount() == 4
    assert areas.commitChanges(), areas.commitErrors()
    areas.removeSelection()
    # Latitudes there and back.
    assert areas.startEditing()
    before = shapes(areas)
    in_place("to-centric", areas, RADII="3396190,3376200")
    centric = shapes(areas)
    north = min(areas.getFeature(3).geometry().vertices(), key=lambda vertex: vertex.y())
    assert abs(north.y() - 69.7822) < 1e-3, north.y()  # atan((b / a)^2 tan 70)
    assert centric.keys() == before.keys() and centric[1] != before[1]
    in_place("to-graphic", areas, RADII="3396190,3376200")
    for row in areas.getFeatures():
        assert row.geometry().symDifference(QgsGeometry.fromWkt(before[row.id()])).area() < 1e-6, row.id()
    assert areas.rollBack()


def last_run():
    box = child(child(WINDOW, "TessarineReports"), "tblRuns", QTableWidget)
    return [box.item(0, column).text() for column in range(1, box.columnCount())]


def what_stays():
    """Nothing would be left, several parts in a layer of single ones, and runs that are refused."""
    single = make_layer("Polygon", ["POLYGON((170 0, 170 10, 190 10, 190 0, 170 0))",
                                    "POLYGON((350 0, 350 5, 355 5, 350 0))"], WORK / "single.gpkg", "single")
    before = shapes(single)
    log = in_place("wrap", single, RANGE="180")
    assert any("1 of the features" in text and "several parts" in text and "identifiers 1" in text
               for text in log.errors), log.errors
    after = shapes(single)
    assert after[1] == before[1] and same(after[2], "POLYGON((-10 0, -10 5, -5 5, -10 0))"), after
    assert single.rollBack()
    odd = make_layer("Polygon", [WITHIN, "POLYGON((0 0, 5 0, 10 0, 0 0))", "POLYGON((0 0, 0 1, 1e300 1, 0 0))"],
                     WORK / "odd.shp", "odd")
    before = shapes(odd)
    log = in_place("wrap", odd, RANGE="180", SHIFT=1.0)
    assert any("nothing would be left" in text and "(identifiers 1)" in text for text in log.errors), log.errors
    assert any("met a fault" in text and "(identifiers 2)" in text for text in log.errors), log.errors
    tool, output, told = last_run()
    assert output == "odd", output
    assert any("1 feature has a new shape\n  ** 2 features keep their shapes" in text for text in log.infos), log.infos
    assert told == "1 record met a fault; 1 record written; 2 features keep their shapes", told
    after = shapes(odd)
    assert after[1] == before[1] and after[2] == before[2], after
    assert same(after[0], "MULTIPOLYGON(((1 0, 1 10, 11 10, 11 0, 1 0)))"), after
    assert odd.rollBack()
    # A shape of several parts in a layer of single ones: the program itself would divide its feature.
    data = ogr.GetDriverByName("GPKG").CreateDataSource(str(WORK / "parts.gpkg"))
    reference = osr.SpatialReference()
    reference.ImportFromEPSG(4326)
    rows = data.CreateLayer("parts", reference, ogr.wkbPolygon)
    for wkt in ("MULTIPOLYGON(((350 0,350 1,351 1,350 0)),((340 0,340 1,341 1,340 0)))",
                "POLYGON((350 0,350 1,351 1,350 0))"):
        row = ogr.Feature(rows.GetLayerDefn())
        row.SetGeometry(ogr.CreateGeometryFromWkt(wkt))
        rows.CreateFeature(row)
    row = rows = data = None
    parts = QgsVectorLayer(str(WORK / "parts.gpkg"), "parts", "ogr")
    QgsProject.instance().addMapLayer(parts)
    before = shapes(parts)
    log = in_place("wrap", parts, RANGE="180")
    assert any("(identifiers 1)" in text for text in log.errors), log.errors
    after = shapes(parts)
    assert after.keys() == before.keys() and after[1] == before[1], after
    assert same(after[2], "POLYGON((-10 0,-10 1,-9 1,-10 0))"), after
    assert parts.rollBack()
    # What the user edited before isn't lost with a run that can't begin.
    metres = make_layer("Polygon", [WITHIN], WORK / "metres.gpkg", "metres", "EPSG:3857")
    assert metres.startEditing()
    assert metres.changeAttributeValue(1, metres.fields().indexOf("size"), 55)
    log = in_place("wrap", metres, RANGE="180")
    assert any("All features stay as they are" in text for text in log.errors), log.errors
    assert metres.getFeature(1)["size"] == 55
    log = in_place("wrap", metres)
    assert any("'Range' 180" in text for text in log.errors), log.errors
    assert metres.getFeature(1)["size"] == 55
    assert last_run()[2].startswith("Failed: ") and "'Range' 180" in last_run()[2], last_run()
    assert metres.rollBack()


def windows_live_on():
    """However many features there are, windows are drawn meanwhile."""
    count, beats = 8000, []
    many = make_layer("MultiPolygon", ["MULTIPOLYGON(((%f 0, %f 5, %f 5, %f 0)))" % (w, w, w + 25, w)
                                       for w in (170 + n * 1e-3 for n in range(count))], WORK / "many.gpkg", "many")
    heart = QTimer()
    heart.timeout.connect(lambda: beats.append(1))
    heart.start(50)
    in_place("wrap", many, RANGE="180")
    # Without turns there would be none.
    assert len(beats) >= 3, len(beats)
    heart.stop()
    assert many.rollBack()


def scenario():
    areas = make_layer("MultiPolygon", [CROSSING, WITHIN, FAR_NORTH], WORK / "areas.gpkg", "areas")
    what_is_offered(areas)
    as_the_terminal(areas)
    what_stays()
    windows_live_on()
    # The layer that the user works in, without naming it.
    lines = make_layer("MultiLineString", ["MULTILINESTRING((175 0, 185 5))"], WORK / "lines.shp", "lines")
    iface.setActiveLayer(lines)
    ok, _ = execute_in_place(algorithm("wrap"), {"RANGE": "180"}, context(), Log())
    assert ok and lines.isEditable() and lines.getFeature(0).geometry().constGet().numGeometries() == 2, shapes(lines)
    assert lines.rollBack()
