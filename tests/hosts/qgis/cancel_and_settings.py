# SPDX-License-Identifier: GPL-2.0-or-later
"""Cancel leaves the project clean; what the dialogs remember is kept by the project file."""
from program_steps import (WORK, QgsProject, QTest, child, choose_line, command, expect, iface, make_layer, press,
                           read_report, type_into)

VERTICES = "Tessarine_ShapesToVertices"


def scenario():
    project = QgsProject.instance()
    make_layer("Polygon", ["POLYGON((0 0, 0 10, 10 10, 10 0, 0 0))"], WORK / "areas.shp", "areas")
    iface.mapCanvas().waitWhileRendering()
    QTest.qWait(200)
    assert project.write(str(WORK / "kept.qgz")) and not project.isDirty()

    for name, form in [(VERTICES, "frmLayerFields"), ("Tessarine_CalcGeometry", "frmGeometry")]:
        step = expect(form, lambda widget: press(widget, "cmdCancel"))
        command(name).trigger()
        assert step.done
        QTest.qWait(100)
        assert not project.isDirty(), name

    def convert(form):
        choose_line(form, "lbxLayers", "areas")
        type_into(form, "txtOutput", str(WORK / "elsewhere" / "first.shp"))
        press(form, "cmdOK")

    (WORK / "elsewhere").mkdir()
    expect("frmLayerFields", convert)
    read_report(["areas"])
    command(VERTICES).trigger()
    assert project.isDirty()
    assert project.write(), project.error()

    seen = []

    def look(form):
        seen.append(child(form, "txtOutput").text())
        press(form, "cmdCancel")

    # A new project knows nothing of it, the saved one all.
    for open_project, remembers in [(iface.newProject, False), (lambda: project.read(str(WORK / "kept.qgz")), True)]:
        open_project()
        if not remembers:
            make_layer("Polygon", ["POLYGON((0 0, 0 1, 1 1, 1 0, 0 0))"], None, "other")
        expect("frmLayerFields", look)
        command(VERTICES).trigger()
        assert (str(WORK / "elsewhere") in seen[-1]) == remembers, seen
        project.setDirty(False)
