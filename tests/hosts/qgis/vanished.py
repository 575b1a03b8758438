# SPDX-License-Identifier: GPL-2.0-or-later
"""Data that go away while the program shows them: each tool says so, writes nothing, and the program goes on."""
import shutil

from program_steps import (WORK, QApplication, QTimer, child, choose_line, command, expect, lines_of, make_layer, press,
                           read_report, texts_of, type_into)

KINDS = {
    "Polygon": ["POLYGON((0 0, 0 10, 10 10, 10 0, 0 0))"],
    "LineString": ["LINESTRING(0 0, 10 0, 10 10, 0 0)"],
}
# The tool, its form, the kind of features it takes.
TOOLS = [
    ("Tessarine_CalcGeometry", "frmGeometry", "Polygon"),
    ("Tessarine_ShapesToVertices", "frmLayerFields", "Polygon"),
    ("Tessarine_PolygonToCentroid", "frmLayerFields", "Polygon"),
    ("Tessarine_PolylineToPolygon", "frmLayerFields", "LineString"),
    ("Tessarine_JoinFeatures", "frmLayerFields", "Polygon"),
    ("Tessarine_BuildPolygon", "frmBuildParams", "LineString"),
    ("Tessarine_WrapBoundary", "frmBoundaryWrap", "Polygon"),
    ("Tessarine_OGraphic_OCentric", "frmGeoCentric", "Polygon"),
]


class Closer:
    """Closes what opens above the form, keeps its texts, and cancels a form that stays."""

    def __init__(self, form):
        self.form, self.texts, self.looks, self.ended = form, [], 0, False
        self.timer = QTimer()
        self.timer.timeout.connect(self.look)
        self.timer.start(100)

    def look(self):
        window = QApplication.activeModalWidget()
        self.looks += 1
        if window is None:
            return
        if window.objectName() != self.form:
            self.texts.append(texts_of(window))
            window.close()
        elif self.looks > 5:
            press(window, "cmdCancel")


def remove(name):
    for file in WORK.glob(name + ".*"):
        shutil.rmtree(file) if file.is_dir() else file.unlink()


def vanish_in(name, form_name, layer, output):
    """What the program tells when the data go while the form is open."""
    closers = []

    def answer(form):
        choose_line(form, "lbxLayers", layer.name())
        if form_name == "frmGeometry":
            press(form, "chk1")
        else:
            type_into(form, "txtOutput", str(output))
        remove(layer.name())
        closers.append(Closer(form_name))
        press(form, "cmdOK")

    expect(form_name, answer)
    command(name).trigger()
    closers[0].timer.stop()
    return " ".join(closers[0].texts)


def scenario():
    kept = {kind: make_layer(kind, KINDS[kind], None, "kept " + kind) for kind in KINDS}
    for number, (name, form, kind) in enumerate(TOOLS):
        ending = ("shp", "gpkg")[number % 2]
        layer = make_layer(kind, KINDS[kind], WORK / ("gone_%d.%s" % (number, ending)), "gone_%d" % number)
        output = WORK / ("out_%d.shp" % number)
        told = vanish_in(name, form, layer, output)
        assert "The data of the layer 'gone_%d' can't be read: they have gone" % number in told, (name, told)
        assert not output.exists(), name
        assert command(name).isEnabled(), name

    # The forms don't offer what has gone; the rest works.
    def calculate(form):
        lines = lines_of(child(form, "lbxLayers"))
        assert sorted(lines) == sorted(layer.name() for layer in kept.values()), lines
        choose_line(form, "lbxLayers", "kept Polygon")
        press(form, "chk1")
        press(form, "cmdOK")

    expect("frmGeometry", calculate)
    read_report(["Geometry Calculation Successful"])
    command("Tessarine_CalcGeometry").trigger()
    assert next(kept["Polygon"].getFeatures())["Sph_Area"] > 1e12
