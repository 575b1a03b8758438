# SPDX-License-Identifier: GPL-2.0-or-later
"""The dialogs list the layers of the project: those in groups, of any provider, under their aliases; tables, rasters
and layers without data don't count as features."""
from program_steps import (WORK, QgsProject, QgsVectorLayer, child, choose_line, command, expect, iface, lines_of,
                           make_layer, press, read_report, type_into)

SQUARE = "POLYGON((0 0, 0 10, 10 10, 10 0, 0 0))"


def scenario():
    project = QgsProject.instance()
    group = project.layerTreeRoot().addGroup("inner")
    inside = make_layer("Polygon", [SQUARE], WORK / "inside.gpkg", "inside")
    node = project.layerTreeRoot().findLayer(inside.id())
    group.addChildNode(node.clone())
    project.layerTreeRoot().removeChildNode(node)
    arcs = make_layer("CurvePolygon", ["CURVEPOLYGON(CIRCULARSTRING(0 0, 5 5, 10 0, 5 -5, 0 0))"], None, "arcs")
    make_layer("Point", ["POINT(1 1)"], None, "points")
    gone = QgsVectorLayer(str(WORK / "gone.shp"), "gone", "ogr")
    project.addMapLayer(gone)
    table = QgsVectorLayer("None?field=a:integer", "table", "memory")
    project.addMapLayer(table)

    inside.setFieldAlias(inside.fields().indexOf("label"), "Label of the row")
    iface.setActiveLayer(inside)
    seen = {}

    def look(form):
        seen["layers"] = lines_of(child(form, "lbxLayers"))
        seen["current"] = child(form, "lbxLayers").currentIndex().data()
        seen["fields"] = lines_of(child(form, "lbxFields"))
        choose_line(form, "lbxLayers", "inside")
        choose_line(form, "lbxFields", "Label of the row")
        type_into(form, "txtOutput", str(WORK / "corners.shp"))
        press(form, "cmdOK")

    expect("frmLayerFields", look)
    read_report(["inside"])
    command("Tessarine_ShapesToVertices").trigger()
    assert set(seen["layers"]) == {"inside", "arcs"}, seen
    assert seen["current"] == "inside", seen
    # The identifier of a row is no attribute.
    assert seen["fields"] == ["Label of the row", "size"], seen
    corners = project.layerTreeRoot().children()[0].layer()
    assert {row["label"] for row in corners.getFeatures()} == {"row 0"}

    # Curves stay curves: the label point of the circle lies inside, its planar centre is (5, 0).
    def centre(form):
        choose_line(form, "lbxLayers", "arcs")
        type_into(form, "txtOutput", str(WORK / "centre.shp"))
        press(form, "cmdOK")

    expect("frmLayerFields", centre)
    read_report(["arcs"])
    command("Tessarine_PolygonToCentroid").trigger()
    point = next(project.layerTreeRoot().children()[0].layer().getFeatures()).geometry().asPoint()
    assert abs(point.x() - 5.0) < 1e-9 and abs(point.y()) < 1e-9, point
    assert arcs.featureCount() == 1
