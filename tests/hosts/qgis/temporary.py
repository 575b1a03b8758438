# SPDX-License-Identifier: GPL-2.0-or-later
"""Temporary layers are a kind of output: equal to a GeoPackage's layers, in no file, and none is left by a stop."""
from program_steps import (WORK, QApplication, QComboBox, QgsProject, QgsVectorLayer, QPushButton, Qt, QTest, QTimer,
                           choose_line, command, expect, make_layer, press, read_report, type_into)

SHAPES = ["POLYGON((0 0, 0 10, 10 10, 10 0, 0 0))", "MULTIPOLYGON(((20 0, 25 8, 30 0, 20 0)),((40 0, 45 8, 50 0, 40 0)))"]
MANY = 40000


def pick_temporary(name):
    def answer(dialog):
        type_into(dialog, "txtName", str(WORK))
        press(dialog, "cmdEnter")
        box = dialog.findChild(QComboBox, "cbxKind")
        box.setFocus()
        QTest.keyClick(box, Qt.Key_End)
        assert box.currentText() == "Temporary layer", box.currentText()
        type_into(dialog, "txtName", name)
        press(dialog, "cmdEnter")
    return expect("BrowseDialog", answer)


def convert(tool, source, place, then=None, expected=None, form="frmLayerFields"):
    def answer(form):
        choose_line(form, "lbxLayers", source)
        if form.objectName() == "frmLayerFields":
            press(form, "cmdSelFields")
        place(form)
        if then is not None:
            then()
        press(form, "cmdOK")

    expect(form, answer)
    told = []
    read_report([expected or source], told)
    command(tool).trigger()
    return told[0]


def typed(path):
    return lambda form: type_into(form, "txtOutput", path)


def browsed(name):
    def place(form):
        pick_temporary(name)
        press(form, "cmdGetWorkspace")
    return place


def top_layer():
    return QgsProject.instance().layerTreeRoot().children()[0].layer()


def rows_of(layer):
    """Names and types of the fields, and the rows, without the identifiers of a GeoPackage."""
    kept = [at for at, field in enumerate(layer.fields()) if field.name() != "fid"]
    fields = [(layer.fields()[at].name(), layer.fields()[at].type(), layer.fields()[at].length()) for at in kept]
    return fields, [([row[at] for at in kept], row.geometry().asWkt(12)) for row in layer.getFeatures()]


def in_memory():
    return [layer for layer in QgsProject.instance().mapLayers().values() if layer.providerType() == "memory"]


def stop_soon():
    for window in QApplication.topLevelWidgets():
        button = window.findChild(QPushButton, "cmdStop")
        if button is not None and button.isVisible():
            QTest.mouseClick(button, Qt.LeftButton)
            return
    QTimer.singleShot(5, stop_soon)


def scenario():
    make_layer("MultiPolygon", SHAPES, WORK / "areas.gpkg", "areas")
    for tool in ("Tessarine_ShapesToVertices", "Tessarine_PolygonToPolyline"):
        convert(tool, "areas", typed(str(WORK / "store.gpkg") + "/" + tool))
        kept = top_layer()
        assert kept.storageType() == "GPKG" and kept.name() == tool, (kept.name(), kept.source())
        report = convert(tool, "areas", browsed("in memory"))
        layer = top_layer()
        assert layer.providerType() == "memory" and layer.name() == "in memory", layer.source()
        assert "Temporary layer" in report, report
        assert layer.featureCount() > 0 and layer.wkbType() == kept.wkbType() and layer.crs() == kept.crs()
        assert rows_of(layer) == rows_of(kept), (rows_of(layer), rows_of(kept))
    # The box knows the kind by its name, and the next dialog proposes the place of the last.
    convert("Tessarine_ShapesToVertices", "areas", lambda form: None)
    assert top_layer().providerType() == "memory" and len(in_memory()) == 3
    for tool, form in (("Tessarine_WrapBoundary", "frmBoundaryWrap"), ("Tessarine_OGraphic_OCentric", "frmGeoCentric")):
        convert(tool, "areas", typed(str(WORK / "store.gpkg") + "/" + tool), form=form)
        kept = rows_of(top_layer())
        convert(tool, "areas", typed("Temporary layer/" + tool), form=form)
        assert top_layer().providerType() == "memory" and top_layer().name() == tool, top_layer().source()
        assert rows_of(top_layer()) == kept, tool
    # A result is a layer like any other: it serves as input.
    convert("Tessarine_ShapesToVertices", "in memory", typed(str(WORK / "again.geojson")))
    assert top_layer().storageType() == "GeoJSON", top_layer().storageType()

    lines = ["LINESTRING(%f %f, %f %f)" % (n % 300 - 150, n % 80, n % 300 - 149, n % 80 + 0.5) for n in range(MANY)]
    make_layer("LineString", lines, WORK / "many.gpkg", "many")
    layers = len(QgsProject.instance().mapLayers())
    convert("Tessarine_ShapesToVertices", "many", typed("Temporary layer\\stopped"),
            lambda: QTimer.singleShot(5, stop_soon), "The run was stopped, and no temporary layer 'stopped' is left of it.")
    assert len(QgsProject.instance().mapLayers()) == layers and len(in_memory()) == 5
