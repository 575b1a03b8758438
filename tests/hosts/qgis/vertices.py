# SPDX-License-Identifier: GPL-2.0-or-later
"""Shapes to Vertices, from the click in the menu over the dialog and the report to the new layer in the map."""
from program_steps import (WORK, QgsProject, QgsVectorLayer, choose_line, click_menu, expect, make_layer, press,
                           read_report, type_into)

SQUARE = "POLYGON((0 0, 0 10, 10 10, 10 0, 0 0))"
TRIANGLE = "POLYGON((20 0, 25 8, 30 0, 20 0))"


def scenario():
    source = make_layer("Polygon", [SQUARE, TRIANGLE], WORK / "areas.shp", "areas")
    steps = []

    def answer(form):
        choose_line(form, "lbxLayers", "areas")
        type_into(form, "txtOutput", str(WORK / "corners.shp"))
        press(form, "cmdOK")

    steps.append(expect("frmLayerFields", answer))
    steps.append(read_report(["areas"]))
    click_menu("Tessarine Tools", "Tools for Features and Shapes", "Convert Shapes to Vertices")
    assert all(step.done for step in steps)

    root = QgsProject.instance().layerTreeRoot()
    top = root.children()[0].layer()
    assert top is not source and top.isValid(), top.name()
    points = sorted((row.geometry().asPoint().x(), row.geometry().asPoint().y()) for row in top.getFeatures())
    # Each ring ends where it begins; the last vertex is the first again.
    assert points == sorted([(0, 0), (0, 10), (10, 10), (10, 0), (0, 0), (20, 0), (25, 8), (30, 0), (20, 0)]), points
    assert top.crs().authid() == "EPSG:4326"
    assert QgsProject.instance().isDirty()
    assert QgsVectorLayer(str(WORK / "corners.shp"), "again", "ogr").featureCount() == len(points)
