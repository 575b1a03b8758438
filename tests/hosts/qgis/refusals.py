# SPDX-License-Identifier: GPL-2.0-or-later
"""Layers that can only be read are refused with a reason, and stay as they are; fields of other tables aren't written to.
"""
import os

from program_steps import (WORK, QComboBox, QgsFeature, QgsProject, QgsVectorLayer, child, choose_line,
                           command, expect, lines_of, make_layer, press, read_report)
from qgis.core import QgsVectorLayerJoinInfo

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


def joined_fields():
    """A joined field of the proposed name isn't offered: the result goes into a new one of the layer itself."""
    lengths = QgsVectorLayer("NoGeometry?field=key:string(20)&field=Sph_Len:double", "lengths", "memory")
    row = QgsFeature(lengths.fields())
    row.setAttributes(["row 0", 77.0])
    assert lengths.dataProvider().addFeatures([row])[0]
    QgsProject.instance().addMapLayer(lengths)
    lines = make_layer("LineString", [LINE], WORK / "joined.gpkg", "joined")
    join = QgsVectorLayerJoinInfo()
    join.setJoinLayer(lengths)
    join.setJoinFieldName("key")
    join.setTargetFieldName("label")
    join.setPrefix("")
    assert lines.addJoin(join) and next(lines.getFeatures())["Sph_Len"] == 77.0

    def answer(form):
        choose_line(form, "lbxLayers", "joined")
        press(form, "chk1")
        box = child(form, "cbx11", QComboBox)
        assert box.currentText() == "Sph_Len2" and "Sph_Len" not in lines_of(box), (box.currentText(), lines_of(box))
        press(form, "cmdOK")

    expect("frmGeometry", answer)
    read_report(["Geometry Calculation Successful", "Sph_Len2"])
    command("Tessarine_CalcGeometry").trigger()
    measured = next(lines.getFeatures())
    assert measured["Sph_Len"] == 77.0 and round(measured["Sph_Len2"] / 111319.49079327358, 6) == 10, measured.attributes()


def scenario():
    joined_fields()
    make_layer("LineString", [LINE], WORK / "locked.shp", "written")
    for file in WORK.glob("locked.*"):
        os.chmod(file, 0o444)
    locked = QgsVectorLayer(str(WORK / "locked.shp"), "locked", "ogr")
    locked.setReadOnly(True)
    QgsProject.instance().addMapLayer(locked)
    refused(locked, "This layer cannot be edited outside of an edit session")
