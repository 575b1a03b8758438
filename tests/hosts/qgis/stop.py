# SPDX-License-Identifier: GPL-2.0-or-later
"""Stop ends a large run at once, with what was written until then, a report, and a program that goes on."""
from program_steps import (WORK, QApplication, QgsVectorLayer, QPushButton, Qt, QTest, QTimer, choose_line, command,
                           expect, make_layer, press, read_report)

COUNT = 40000


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

