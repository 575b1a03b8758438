# SPDX-License-Identifier: GPL-2.0-or-later
"""Results of every place come back as layers: overwritten shapefiles that the map shows, and geodatabases of both kinds."""
import shutil

from program_steps import (DATA, WORK, QgsProject, choose_line, command, expect, make_layer, press, read_report, type_into)
from osgeo import ogr

SQUARE = "POLYGON((0 0, 0 10, 10 10, 10 0, 0 0))"
TRIANGLE = "POLYGON((20 0, 25 8, 30 0, 20 0))"


def browse_to(folder, name):
    def answer(dialog):
        type_into(dialog, "txtName", str(folder))
        press(dialog, "cmdEnter")
        type_into(dialog, "txtName", name)
        press(dialog, "cmdEnter")

    return expect("BrowseDialog", answer)


def convert(source, output, overwrite=False):
    def answer(form):
        choose_line(form, "lbxLayers", source)
        if output.suffix == ".shp":
            type_into(form, "txtOutput", str(output))
        else:
            browse_to(output.parent, output.name)
            press(form, "cmdGetWorkspace")
        press(form, "cmdOK")

    expect("frmLayerFields", answer)
    if overwrite:
        expect("MessageBox", lambda box: press(box, "cmdYes"))
    read_report([source])
    command("Tessarine_ShapesToVertices").trigger()
    layer = QgsProject.instance().layerTreeRoot().children()[0].layer()
    assert layer.isValid(), layer.name()
    return layer


def scenario():
    make_layer("Polygon", [SQUARE], WORK / "square.gpkg", "square")
    make_layer("Polygon", [TRIANGLE, SQUARE], WORK / "both.gpkg", "both")
    first = convert("square", WORK / "corners.shp")
    few = first.featureCount()
    second = convert("both", WORK / "corners.shp", overwrite=True)
    assert second is not first and second.featureCount() > few
    # The layer that showed the old data shows the new.
    assert first.isValid() and len(list(first.getFeatures())) == second.featureCount()

    place = WORK / "store.gdb"
    assert ogr.GetDriverByName("OpenFileGDB").CreateDataSource(str(place)) is not None
    stored = convert("square", place / "corners")
    assert stored.featureCount() == few and stored.storageType() == "OpenFileGDB", stored.storageType()
    # A result is a layer like any other: it serves as input.
    again = convert("both", place / "more")
    assert again.featureCount() == second.featureCount()

    # The program itself reads these through ODBC.
    personal = WORK / "store.mdb"
    shutil.copy(DATA / "personal_geodatabase.mdb", personal)
    if ogr.Open(str(personal)) is None:
        return
    kept = convert("square", personal / "square_corners")
    assert kept.featureCount() == few and kept.storageType() == "PGeo", kept.storageType()
    assert len(list(kept.getFeatures())) == few
