# SPDX-License-Identifier: GPL-2.0-or-later
"""Dialogs by the keyboard alone: F1 opens the manual at their chapter, Enter and Escape do nothing that loses data."""
from program_steps import (WORK, QPushButton, QTest, Qt, QTextEdit, QWidget, child, choose_line, command, expect,
                           make_layer, press, read_report, wait_until)
from qgis.core import QgsVectorLayer

SQUARE = "POLYGON((0 0, 0 10, 10 10, 10 0, 0 0))"
# Each with the heading of its chapter.
CHAPTERS = [("Tessarine_CalcGeometry", "frmGeometry", "Calculate Geometry"),
            ("Tessarine_ShapesToVertices", "frmLayerFields", "Shapes to Vertices"),
            ("Tessarine_WrapBoundary", "frmBoundaryWrap", "Wrap to a boundary")]


def help_and_escape(form_name, chapter):
    def answer(form):
        QTest.keyClick(form, Qt.Key_F1)
        wait_until(lambda: form.findChild(QWidget, "ManualWindow") is not None, "no manual opened")
        manual = form.findChild(QWidget, "ManualWindow")
        text = child(manual, "txtManual", QTextEdit)
        place = text.document().find(chapter)
        assert place.blockFormat().headingLevel() > 0, chapter
        wait_until(lambda: 0 <= text.cursorRect(place).top() < text.viewport().height() // 2,
                   "the chapter isn't in view: %d of %d" % (text.cursorRect(place).top(), text.viewport().height()))
        QTest.keyClick(manual, Qt.Key_Escape)
        wait_until(lambda: form.findChild(QWidget, "ManualWindow") is None, "the manual stays")
        assert form.isVisible()
        QTest.keyClick(form, Qt.Key_Escape)
        assert not form.isVisible(), form_name + " stays after Escape"

    return expect(form_name, answer)


def spheroid_by_enter(layer):
    """Enter right after the dialog has opened means its OK."""
    def spheroid(form):
        radius = child(form, "txtMajor").text()
        QTest.keyClick(form.focusWidget() or form, Qt.Key_Return)
        assert not form.isVisible(), "the spheroid dialog stays"
        assert radius == "6378137", radius

    def answer(form):
        choose_line(form, "lbxLayers", layer.name())
        inner = expect("frmSpheroidOptionsExt", spheroid)
        press(form, "cmdAdvanced")
        assert inner.done and form.isVisible()
        press(form, "cmdCancel")

    expect("frmGeometry", answer)
    command("Tessarine_CalcGeometry").trigger()


def overwriting_by_enter(layer):
    """Enter at the question whether values are to be overwritten means No."""
    def first(form):
        choose_line(form, "lbxLayers", layer.name())
        press(form, "chk1")
        press(form, "cmdOK")

    expect("frmGeometry", first)
    read_report([layer.name()])
    command("Tessarine_CalcGeometry").trigger()
    name = QgsVectorLayer(layer.source(), "again", "ogr").fields()[-1].name()
    with_mark = layer.dataProvider()
    column = layer.fields().indexOf(name)
    assert with_mark.changeAttributeValues({row.id(): {column: -1.0} for row in layer.getFeatures()})
    asked = []

    def question(box):
        assert child(box, "cmdNo", QPushButton).isDefault()
        asked.append(child(box, "txtMessage").toPlainText())
        QTest.keyClick(box.focusWidget() or box, Qt.Key_Return)

    def second(form):
        choose_line(form, "lbxLayers", layer.name())
        press(form, "chk1")
        expect("frmMessageBox", question)
        press(form, "cmdOK")
        assert asked and name in asked[0], asked
        assert form.isVisible(), "the dialog went, although the answer was No"
        press(form, "cmdCancel")

    expect("frmGeometry", second)
    command("Tessarine_CalcGeometry").trigger()
    assert [row[name] for row in layer.getFeatures()] == [-1.0]


def scenario():
    layer = make_layer("Polygon", [SQUARE], WORK / "areas.gpkg", "areas")
    for name, form_name, chapter in CHAPTERS:
        step = help_and_escape(form_name, chapter)
        command(name).trigger()
        assert step.done, name
    spheroid_by_enter(layer)
    overwriting_by_enter(layer)
