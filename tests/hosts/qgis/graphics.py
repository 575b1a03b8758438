# SPDX-License-Identifier: GPL-2.0-or-later
"""Annotation items are the graphic elements of the map: selected several at once, named, zoomed to, converted."""
from program_steps import (WORK, QgsProject, child, choose_line, command, expect, iface, lines_of,
                           press, read_report, type_into)
from qgis.core import (QgsAnnotationLineItem, QgsAnnotationMarkerItem, QgsAnnotationPointTextItem,
                       QgsAnnotationPolygonItem, QgsCircularString, QgsCoordinateReferenceSystem, QgsCurvePolygon,
                       QgsFillSymbol, QgsLineString, QgsPoint, QgsPointXY, QgsPolygon, QgsRectangle)
from qgis.gui import QgsRubberBand

COLOR = "#1234ab"


def area(*corners):
    return QgsPolygon(QgsLineString([QgsPoint(x, y) for x, y in (*corners, corners[0])]))


def circle(x, y, radius):
    ring = QgsCircularString()
    ring.setPoints([QgsPoint(x - radius, y), QgsPoint(x, y + radius), QgsPoint(x + radius, y),
                    QgsPoint(x, y - radius), QgsPoint(x - radius, y)])
    polygon = QgsCurvePolygon()
    polygon.setExteriorRing(ring)
    return polygon


def add_items():
    items = QgsProject.instance().mainAnnotationLayer()
    items.setCrs(QgsCoordinateReferenceSystem("EPSG:4326"))
    first = QgsAnnotationPolygonItem(area((0, 0), (0, 10), (10, 10), (10, 0)))
    first.setSymbol(QgsFillSymbol.createSimple({"color": COLOR}))
    return [items.addItem(item) for item in (
        first, QgsAnnotationPolygonItem(circle(20, 5, 5)),
        QgsAnnotationPolygonItem(area((40, 0), (45, 10), (50, 3))),
        QgsAnnotationLineItem(QgsLineString([QgsPoint(0, 20), QgsPoint(30, 20)])),
        QgsAnnotationMarkerItem(QgsPoint(-30, -20)), QgsAnnotationPointTextItem("text", QgsPointXY(-10, -10)))]


def bands():
    return [item for item in iface.mapCanvas().scene().items() if isinstance(item, QgsRubberBand) and item.isVisible()
            and item.size()]


def scenario():
    project = QgsProject.instance()
    project.setCrs(QgsCoordinateReferenceSystem("EPSG:4326"))
    before = len(bands())
    ids = add_items()
    project.write(str(WORK / "drawn.qgz"))

    command("Tessarine_SelectAllGraphics").trigger()
    assert len(bands()) == before + len(ids), len(bands())
    command("Tessarine_UnselectAllGraphics").trigger()
    assert len(bands()) == before

    def by_type(form):
        press(form, "chkRectangles")
        press(form, "chkCircles")
        press(form, "cmdOK")

    expect("frmSelectGraphics", by_type)
    command("Tessarine_SelectGraphics").trigger()
    assert len(bands()) == before + 2, len(bands())

    # Their bounds are 0 to 25 by 0 to 10.
    command("Tessarine_ZoomSelGraphics").trigger()
    extent = iface.mapCanvas().extent()
    assert extent.contains(QgsRectangle(0, 0, 25, 10)) and extent.width() < 60, extent.toString()

    # Names are given to the selected ones and outlive the project file.
    def name_selected(form):
        press(form, "optSel")
        type_into(form, "txtName", "Basin")
        press(form, "cmdOK")

    expect("frmNameElements", name_selected)
    command("Tessarine_NameGraphics").trigger()
    assert project.isDirty()
    assert project.write()
    iface.newProject()
    assert len(bands()) == before
    project.read(str(WORK / "drawn.qgz"))
    names = []

    def by_name(form):
        names.extend(lines_of(child(form, "lbxNamesActive")))
        press(form, "cmdClose")

    expect("frmSelectGraphics", by_name)
    command("Tessarine_SelectGraphics").trigger()
    assert names == ["Basin [2]"], names

    command("Tessarine_FlipSelection").trigger()
    assert len(bands()) == before + len(ids)

    # All areas become one shapefile, shown as a layer with the symbol of the drawing.
    def convert(form):
        press(form, "optConvert")
        choose_start(form, "lbxGraphics", "4) Polygon Shapefile")
        type_into(form, "txtOutput", str(WORK / "drawn.shp"))
        press(form, "cmdOK")

    expect("frmGraphicsShapefile", convert)
    read_report(["3 Records", "Basin  (2 elements)", "3 polygon graphics"])
    command("Tessarine_MakeShapefile").trigger()
    layer = project.layerTreeRoot().children()[0].layer()
    assert layer.featureCount() == 3
    assert layer.renderer().symbol().color().name() == COLOR, layer.renderer().symbol().color().name()
    areas = sorted(row.geometry().area() for row in layer.getFeatures())
    # Half the cross product of two sides; 10 by 10; chords of a circle with radius 5 cover a little less than it.
    assert abs(areas[0] - 42.5) < 1e-9 and abs(areas[2] - 100.0) < 1e-9, areas
    assert 78.0 < areas[1] <= 78.5398164, areas


def choose_start(form, name, start):
    choose_line(form, name, next(line for line in lines_of(child(form, name)) if line.startswith(start)))
