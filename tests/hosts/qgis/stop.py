# SPDX-License-Identifier: GPL-2.0-or-later
"""Stop ends a large run at once, with what was written until then, a report, and a program that goes on. The window of a
run that is over closes, and doesn't stay beneath the next one's."""
from program_steps import (WORK, QApplication, QgsVectorLayer, QPushButton, Qt, QTest, QTimer, choose_line, command,
                           expect, make_layer, press, read_report, type_into)

COUNT = 40000


def progress_windows():
    return [(window.objectName(), window.findChild(QPushButton, "cmdStop").text().replace("&", ""))
            for window in QApplication.topLevelWidgets()
            if window.isVisible() and window.objectName().startswith("frmOrlProgress")]


def convert(name):
    def answer(form):
        choose_line(form, "lbxLayers", "some")
        type_into(form, "txtOutput", str(WORK / name))
        press(form, "cmdOK")

    expect("frmLayerFields", answer)
    read_report(["some"])
    command("Tessarine_ShapesToVertices").trigger()


def windows_of_runs():
    """The window of a run that ended by itself, by Stop, and the one of the next run."""
    assert progress_windows() == [("frmOrlProgressMeter", "Close")], progress_windows()
    make_layer("LineString", ["LINESTRING(%d 0, %d 1)" % (n, n) for n in range(600)], WORK / "some.shp", "some")
    for name in ("points.shp", "more.shp"):
        convert(name)
        assert progress_windows() == [("frmOrlProgressPercent", "Close")], progress_windows()
    window = next(one for one in QApplication.topLevelWidgets() if one.objectName() == "frmOrlProgressPercent")
    QTest.keyClick(window, Qt.Key_Escape)
    assert progress_windows() == [], progress_windows()


def scenario():
    lines = ["LINESTRING(%f %f, %f %f)" % (n % 300 - 150, n % 80, n % 300 - 149, n % 80 + 0.5) for n in range(COUNT)]
    layer = make_layer("LineString", lines, WORK / "many.shp", "many")
    stopped = []

    def stop():
        for window in QApplication.topLevelWidgets():
            button = window.findChild(QPushButton, "cmdStop")
            if button is not None and button.isVisible():
                stopped.append(window.objectName())
                QTest.mouseClick(button, Qt.LeftButton)
                return
        QTimer.singleShot(20, stop)

    def answer(form):
        choose_line(form, "lbxLayers", "many")
        for box in ("chk1", "chk3", "chk5", "chk6"):
            press(form, box)
        QTimer.singleShot(20, stop)
        press(form, "cmdOK")

    expect("frmGeometry", answer)
    report = read_report(["many"])
    command("Tessarine_CalcGeometry").trigger()
    assert report.done and stopped, stopped
    done = sum(1 for row in QgsVectorLayer(str(WORK / "many.shp"), "again", "ogr").getFeatures() if row["Sph_Len"])
    assert 0 < done < COUNT, done
    assert command("Tessarine_CalcGeometry").isEnabled()
    windows_of_runs()

