# SPDX-License-Identifier: GPL-2.0-or-later
"""What scenarios do in the program: click menus, answer dialogs, look at layers.

Dialogs block the click that opened them. So their answers are planned before the click: `expect(name, answer)` waits
for the modal window of that name and hands it over.
"""
import os
import pathlib
import runpy
import time
import traceback

from qgis.core import QgsFeature, QgsGeometry, QgsProject, QgsVectorFileWriter, QgsVectorLayer
from qgis.PyQt.QtCore import QCoreApplication, QPoint, Qt, QTimer
from qgis.PyQt.QtTest import QTest
from qgis.PyQt.QtWidgets import (QAction, QApplication, QCheckBox, QComboBox, QLineEdit, QListWidget, QMenu,
                                 QPushButton, QTextEdit, QWidget)
from qgis.utils import iface

WORK = pathlib.Path(os.environ["TESSARINE_WORK"])
DATA = pathlib.Path(os.environ["TESSARINE_TEST_DATA"])
WINDOW = iface.mainWindow()
LONGEST_WAIT = 20.0

_failures = []
_steps = []  # the program's timers don't keep what they call alive


class Skipped(Exception):
    """What a scenario needs isn't there."""


def run_scenario(path):
    try:
        iface.newProject()
        runpy.run_path(path)["scenario"]()
        assert not _failures, "\n".join(_failures)
        assert all(step.done for step in _steps), [step.name for step in _steps if not step.done]
        told = "passed\n"
    except Skipped as reason:
        told = "skipped: %s\n" % reason
    except BaseException:
        told = "failed\n" + "\n".join(_failures + [traceback.format_exc()])
    (WORK / "result.txt").write_text(told)
    # The program takes an end with layers badly, unless its own Exit has closed the project before.
    QgsProject.instance().setDirty(False)
    iface.newProject()
    QTimer.singleShot(0, lambda: QCoreApplication.exit(1 if told.startswith("failed") else 0))


def fail_open_dialogs(text):
    print(text, flush=True)
    _failures.append(text)
    while QApplication.activeModalWidget() is not None:
        widget = QApplication.activeModalWidget()
        widget.close()
        if QApplication.activeModalWidget() is widget:
            widget.hide()
            widget.done(0)
            break


class Step:
    def __init__(self, name, answer):
        self.done = False
        self.name, self.answer, self.until = name, answer, time.monotonic() + LONGEST_WAIT
        QTimer.singleShot(20, self.look)

    def look(self):
        widget = QApplication.activeModalWidget()
        if widget is None or widget.objectName() != self.name or not widget.isVisible():
            if time.monotonic() > self.until:
                found = widget.objectName() if widget is not None else "no dialog"
                fail_open_dialogs("%s didn't open; there is %s %s" % (self.name, found, texts_of(widget)))
            else:
                QTimer.singleShot(20, self.look)
            return
        try:
            self.done = True
            self.answer(widget)
        except BaseException:
            fail_open_dialogs(traceback.format_exc())


def expect(name, answer):
    _steps.append(Step(name, answer))
    return _steps[-1]


def texts_of(widget):
    if widget is None:
        return ""
    from qgis.PyQt.QtWidgets import QLabel, QPlainTextEdit
    labels = [label.text() for label in widget.findChildren(QLabel)]
    boxes = [box.toPlainText() for kind in (QTextEdit, QPlainTextEdit) for box in widget.findChildren(kind)]
    return " | ".join(labels + boxes)[:2000]


def child(widget, name, kind=QWidget):
    found = widget.findChild(kind, name)
    assert found is not None, "%s has no %s" % (widget.objectName(), name)
    return found


def press(widget, name):
    button = child(widget, name)
    assert button.isEnabled(), name + " is disabled: " + texts_of(widget)
    # A box that is wider than its text takes clicks on mark and text only.
    QTest.mouseClick(button, Qt.LeftButton, Qt.NoModifier, QPoint(min(10, button.width() // 2), button.height() // 2))


def type_into(widget, name, text):
    box = child(widget, name)
    box.setFocus()
    box.selectAll()
    QTest.keyClicks(box, text)


def choose_line(widget, name, text):
    box = child(widget, name)
    lines = lines_of(box)
    assert text in lines, "%s has %s" % (name, lines)
    index = box.model().index(lines.index(text), 0)
    box.scrollTo(index)
    QTest.mouseClick(box.viewport(), Qt.LeftButton, Qt.NoModifier, box.visualRect(index).center())


def lines_of(box):
    return [box.model().index(row, 0).data() for row in range(box.model().rowCount())]


def click_menu(*captions):
    """Clicks through the menus by their captions, mnemonics left out."""
    bar = WINDOW.menuBar()
    action = action_of(bar, captions[0])
    QTest.mouseClick(bar, Qt.LeftButton, Qt.NoModifier, bar.actionGeometry(action).center())
    menu = action.menu()
    for caption in captions[1:]:
        wait_until(menu.isVisible, "the menu above '%s' isn't open" % caption)
        action = action_of(menu, caption)
        assert action.isEnabled(), caption + " is disabled"
        QTest.mouseClick(menu, Qt.LeftButton, Qt.NoModifier, menu.actionGeometry(action).center())
        menu = action.menu()


def wait_until(condition, complaint, seconds=LONGEST_WAIT):
    until = time.monotonic() + seconds
    while not condition():
        assert time.monotonic() < until, complaint
        QTest.qWait(10)


def action_of(holder, caption):
    for action in holder.actions():
        if action.text().replace("&", "") == caption:
            return action
    raise AssertionError("no '%s' among %s" % (caption, [action.text() for action in holder.actions()]))


def command(name):
    return child(WINDOW, name, QAction)


def read_report(expected, keep=None):
    """An answer for the report window: looks for the texts and closes it."""
    def answer(widget):
        text = child(widget, "txtReport", QTextEdit).toPlainText()
        if keep is not None:
            keep.append(text)
        for piece in expected:
            assert piece in text, "no '%s' in the report:\n%s" % (piece, text)
        press(widget, "cmdOK")
    return expect("frmReport_modal", answer)


def make_layer(kind, wkts, path=None, name="layer", reference="EPSG:4326"):
    """A layer of the project with one feature for each text: in memory, or a file of any format by its ending."""
    memory = QgsVectorLayer("%s?crs=%s&field=label:string(20)&field=size:integer" % (kind, reference), name, "memory")
    rows = []
    for number, wkt in enumerate(wkts):
        row = QgsFeature(memory.fields())
        row.setGeometry(QgsGeometry.fromWkt(wkt))
        row.setAttributes(["row %d" % number, number])
        rows.append(row)
    assert memory.dataProvider().addFeatures(rows)[0]
    memory.updateExtents()
    layer = memory
    if path is not None:
        options = QgsVectorFileWriter.SaveVectorOptions()
        options.driverName = QgsVectorFileWriter.driverForExtension(pathlib.Path(path).suffix)
        options.layerName = name
        error = QgsVectorFileWriter.writeAsVectorFormatV3(memory, str(path), QgsProject.instance().transformContext(),
                                                          options)
        assert error[0] == QgsVectorFileWriter.NoError, error
        layer = QgsVectorLayer(str(path), name, "ogr")
    assert layer.isValid()
    QgsProject.instance().addMapLayer(layer)
    return layer
