# SPDX-License-Identifier: GPL-2.0-or-later
"""Calculate Geometry writes into the attribute tables of a shapefile, a GeoPackage and a layer in memory."""
import math

from program_steps import (WORK, QgsVectorLayer, Qt, choose_line, command, expect, iface, make_layer, press,
                           read_report, wait_until)
from qgis.PyQt.QtWidgets import QTableView

EQUATOR = "LINESTRING(0 0, 4 0, 10 0)"
MERIDIAN = "LINESTRING(20 0, 20 90)"
# Ten degrees of the equator of WGS 84, and its quarter meridian.
EXPECTED = [(6378137.0 * math.radians(10.0), 3), (10001965.7293, 2)]


def calculate(layer, selected_only=False):
    def answer(form):
        choose_line(form, "lbxLayers", layer.name())
        press(form, "chk1")
        press(form, "chk8")
        if selected_only:
            press(form, "optSel")
        press(form, "cmdOK")

    steps = [expect("frmGeometry", answer), read_report([layer.name()])]
    command("Tessarine_CalcGeometry").trigger()
    assert all(step.done for step in steps)


def check(layer, expected=EXPECTED):
    names = [field.name() for field in layer.fields()]
    assert "Sph_Len" in names and "Vertices" in names, names
    rows = sorted(layer.getFeatures(), key=lambda row: row["label"])
    for row, (length, vertices) in zip(rows, expected, strict=True):
        if length is None:
            assert not row["Sph_Len"], row["Sph_Len"]
            continue
        assert abs(row["Sph_Len"] - length) < 1e-3, (row["Sph_Len"], length)  # metres
        assert row["Vertices"] == vertices, row["Vertices"]


def check_open_table():
    """An open attribute table shows the new values."""
    layer = make_layer("LineString", [EQUATOR, MERIDIAN], WORK / "shown.gpkg", "shown")
    window = iface.showAttributeTable(layer)
    view = next(view for view in window.findChildren(QTableView) if view.inherits("QgsAttributeTableView"))
    model = view.model()
    wait_until(lambda: model.rowCount() == 2, "the table shows no rows")
    calculate(layer)
    heads = [model.headerData(column, Qt.Horizontal) for column in range(model.columnCount())]
    # Under the alias that tells its unit.
    head = layer.attributeDisplayName(layer.fields().indexOf("Sph_Len"))
    assert head in heads, heads
    shown = sorted(float(model.index(row, heads.index(head)).data().replace(",", "")) for row in range(2))
    for value, (length, _) in zip(shown, sorted(EXPECTED), strict=True):
        assert abs(value - length) < 1.0, shown
    window.close()


def scenario():
    for path in (WORK / "lines.shp", WORK / "lines.gpkg"):
        layer = make_layer("LineString", [EQUATOR, MERIDIAN], path, "lines in " + path.suffix[1:])
        calculate(layer)
        check(layer)
        check(QgsVectorLayer(str(path), "again", "ogr"))
    memory = make_layer("LineString", [EQUATOR, MERIDIAN], None, "memory lines")
    calculate(memory)
    check(memory)
    selected = make_layer("LineString", [EQUATOR, MERIDIAN], WORK / "chosen.shp", "chosen lines")
    selected.selectByExpression("label = 'row 1'")
    calculate(selected, selected_only=True)
    check(selected, [(None, 0), EXPECTED[1]])
    filtered = make_layer("LineString", [EQUATOR, MERIDIAN], WORK / "filtered.gpkg", "filtered lines")
    assert filtered.setSubsetString("label = 'row 0'")
    calculate(filtered)
    filtered.setSubsetString("")
    check(filtered, [EXPECTED[0], (None, 0)])
    check_open_table()
