# SPDX-License-Identifier: GPL-2.0-or-later
"""In German: menus, dialogs and the toolbox, with their identifiers as they are."""
from program_steps import (DATA, WINDOW, QgsProject, QgsVectorLayer, QPushButton, QTest, Qt, QTextEdit, QWidget, action_of,
                           child, click_menu, expect, press, wait_until)
from qgis.core import QgsApplication


def scenario():
    layer = QgsVectorLayer(str(DATA / "countries.shp"), "countries", "ogr")
    QgsProject.instance().addMapLayer(layer)
    seen = []

    def look(dialog):
        seen.append((dialog.windowTitle(), child(dialog, "cmdCancel", QPushButton).text(),
                     child(dialog, "lbxLayers").model().index(0, 0).data()))
        QTest.keyClick(dialog, Qt.Key_F1)
        wait_until(lambda: dialog.findChild(QWidget, "ManualWindow") is not None, "no manual opened")
        shown = child(dialog.findChild(QWidget, "ManualWindow"), "txtManual", QTextEdit).toPlainText()
        assert "Shapes to Vertices" in shown, shown[:200]
        press(dialog, "cmdCancel")

    expect("frmLayerFields", look)
    click_menu("Tessarine Tools", "Werkzeuge für Objekte", "Objekte zu Stützpunkten")
    assert seen == [("Objekte zu Stützpunkten:", "Abbrechen", "countries")], seen
    algorithm = QgsApplication.processingRegistry().algorithmById("tessarine:vertices")
    assert algorithm.displayName() == "Objekte zu Stützpunkten", algorithm.displayName()
    fields = algorithm.parameterDefinition("FIELDS")
    assert fields.description() == "Felder", fields.description()
    assert algorithm.name() == "vertices"
    assert action_of(WINDOW.menuBar(), "Tessarine Tools").menu().objectName() == "Tessarine.clsMenu"
