# SPDX-License-Identifier: GPL-2.0-or-later
"""The suite's functions in the program: the numbers of Calculate Geometry, in labels, and gone with the plug-in."""
import qgis.utils
from program_steps import (WORK, QgsProject, QTest, choose_line, command, expect, iface, make_layer, press,
                           read_report)
from qgis.core import (QgsCoordinateReferenceSystem, QgsExpression, QgsExpressionContext, QgsExpressionContextUtils,
                       QgsPalLayerSettings, QgsVectorLayerSimpleLabeling)
from qgis.gui import QgsExpressionBuilderWidget

# In UTM: a polygon with a hole, and one of two parts.
PLACES = ["POLYGON((454000 3873000, 454000 3883000, 465000 3884000, 466000 3872000, 454000 3873000),"
          "(456000 3875000, 458000 3875000, 458000 3878000, 456000 3875000))",
          "MULTIPOLYGON(((470000 3873000, 470000 3874000, 471000 3874000, 470000 3873000)),"
          "((480000 3873000, 480000 3875000, 482000 3874000, 480000 3873000)))"]
NAMES = ["tessarine_area", "tessarine_azimuth", "tessarine_distance", "tessarine_length", "tessarine_midpoint"]


def calculated(layer, *boxes):
    def answer(form):
        choose_line(form, "lbxLayers", layer.name())
        for box in boxes:
            press(form, box)
        press(form, "cmdOK")

    steps = [expect("frmGeometry", answer), read_report([layer.name()])]
    command("Tessarine_CalcGeometry").trigger()
    assert all(step.done for step in steps)


def evaluate(text, layer, row):
    context = QgsExpressionContext(QgsExpressionContextUtils.globalProjectLayerScopes(layer))
    context.setFeature(row)
    expression = QgsExpression(text)
    assert not expression.hasParserError(), expression.parserErrorString()
    expression.prepare(context)
    value = expression.evaluate(context)
    assert not expression.hasEvalError(), expression.evalErrorString()
    return value


def equal_to_the_calculator():
    layer = make_layer("MultiPolygon", PLACES, WORK / "places.gpkg", "places", reference="EPSG:32612")
    calculated(layer, "chk6", "chk9")
    rows = list(layer.getFeatures())
    assert len(rows) == 2
    for row in rows:
        assert row["Spd_Area"] > 1e6
        for field, text in (("Spd_Area", "tessarine_area($geometry)"), ("Sph_Perim", "tessarine_length($geometry)"),
                            ("Spd_Area", "tessarine_area($geometry, 'wgs 1984')")):
            assert evaluate(text, layer, row) == row[field], (text, evaluate(text, layer, row), row[field])
    return layer


def in_the_builder():
    builder = QgsExpressionBuilderWidget(None)
    builder.loadRecent("scenario")
    model = builder.expressionTree().model() if hasattr(builder, "expressionTree") else builder.model()
    found = {}

    def walk(parent):
        for row in range(model.rowCount(parent)):
            index = model.index(row, 0, parent)
            if index.data() == "Tessarine":
                found["group"] = sorted(model.index(at, 0, index).data() for at in range(model.rowCount(index)))
            walk(index)

    from qgis.PyQt.QtCore import QModelIndex
    walk(QModelIndex())
    assert found.get("group") == NAMES, found
    builder.deleteLater()


# Labels are evaluated where the map is drawn, in the background; the plug-in goes while it is.
def in_labels_while_unloaded(layer):
    settings = QgsPalLayerSettings()
    settings.fieldName = "round(tessarine_area($geometry))"
    settings.isExpression = True
    layer.setLabeling(QgsVectorLayerSimpleLabeling(settings))
    layer.setLabelsEnabled(True)
    canvas = iface.mapCanvas()
    QgsProject.instance().setCrs(QgsCoordinateReferenceSystem("EPSG:32612"))
    canvas.setExtent(layer.extent())
    canvas.refresh()
    canvas.waitWhileRendering()
    assert canvas.labelingResults() is not None
    QTest.qWait(200)
    texts = {label.labelText for label in canvas.labelingResults().labelsWithinRect(canvas.extent())}
    assert texts == {str(round(row["Spd_Area"])) for row in layer.getFeatures()}, texts
    canvas.refresh()
    assert qgis.utils.unloadPlugin("tessarine")
    assert not any(QgsExpression.isFunctionName(name) for name in NAMES)
    canvas.waitWhileRendering()
    assert qgis.utils.loadPlugin("tessarine") and qgis.utils.startPlugin("tessarine")
    assert all(QgsExpression.isFunctionName(name) for name in NAMES)
    row = next(layer.getFeatures())
    assert evaluate("tessarine_area($geometry)", layer, row) == row["Spd_Area"]


def scenario():
    layer = equal_to_the_calculator()
    in_the_builder()
    in_labels_while_unloaded(layer)
