# SPDX-License-Identifier: GPL-2.0-or-later
"""Layers that can only be read are refused with a reason, and stay as they are."""
import os

from program_steps import (WORK, QgsProject, QgsVectorLayer, choose_line, command, expect, make_layer, press,
                           read_report)

LINE = "LINESTRING(0 0, 10 0)"


def refused(layer, words):
    def answer(form):
        choose_line(form, "lbxLayers", layer.name())
        press(form, "chk1")
        press(form, "cmdOK")

    expect("frmGeometry", answer)
    read_report([words])
    command("Tessarine_CalcGeometry").trigger()
    assert layer.fields().indexOf("Sph_Len") < 0


def scenario():
    make_layer("LineString", [LINE], WORK / "locked.shp", "written")
    for file in WORK.glob("locked.*"):
        os.chmod(file, 0o444)
    locked = QgsVectorLayer(str(WORK / "locked.shp"), "locked", "ogr")
    locked.setReadOnly(True)
    QgsProject.instance().addMapLayer(locked)
    refused(locked, "This layer cannot be edited outside of an edit session")
