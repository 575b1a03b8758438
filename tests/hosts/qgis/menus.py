# SPDX-License-Identifier: GPL-2.0-or-later
"""The menus are complete: what the suite defines, in its order, with separators, tips and pictures."""
from program_steps import WINDOW, QMenu, action_of, iface
from qgis.PyQt.QtWidgets import QToolButton
from qgis.gui import QgsGui

ITEMS = {
    "Tools for Features and Shapes": [
        "C&alculate Geometry", None, "Convert Polygons to La&bel Points", "Convert Shapes to &Centroids",
        "Convert Features to &Spherical Centroids", "Convert Shapes to &Vertices", "Convert &Polylines to Polygons",
        "Convert Polygons to Poly&lines", "Buil&d Polygons from Polylines", None, "Split &Multipart Features",
        "Combine &Features"],
    "OCentric/OGraphic Geodesic Tools": ["O&Graphic to OCentric", "O&Centric to OGraphic", None, "&Wrap Boundary"],
    "Tools for Graphics": [
        "&Graphic Elements to Shapes", None, "Select Graphic Elements by &Type", "Select All Graphic &Elements",
        "&Unselect All Graphic Elements", "&Flip Graphic Element Selection", "&Zoom to Selected Graphic Elements",
        "&Name Graphic Elements"],
}


def captions(menu):
    return [None if action.isSeparator() else action.text() for action in menu.actions()]


def scenario():
    root = action_of(WINDOW.menuBar(), "Tessarine Tools").menu()
    assert captions(root) == [*ITEMS, None, "About Tools for Tessarine Tools", None, "&Measure on the Spheroid"], \
        captions(root)
    beside = iface.viewMenu().findChild(QMenu, "mMenuMeasure")
    assert captions(beside)[-1] == "&Measure on the Spheroid", captions(beside)
    for caption, items in ITEMS.items():
        menu = action_of(root, caption).menu()
        assert captions(menu) == items, captions(menu)
        for action in menu.actions():
            assert action.isSeparator() or (not action.icon().isNull() and action.statusTip()), action.text()
    with_shortcuts = QgsGui.shortcutsManager().listActions()
    for caption in ITEMS:
        for action in action_of(root, caption).menu().actions():
            assert action.isSeparator() or action in with_shortcuts, action.text()
    shapes = action_of(root, "Tools for Features and Shapes").menu()
    assert action_of(shapes, "Calculate Geometry").toolTip() == "Calculate Geometry"
    names = [action.text().replace("&", "") for action in WINDOW.menuBar().actions()]
    assert names.index("Tessarine Tools") < names.index("Help"), names
    bar = WINDOW.findChild(QMenu, "Tessarine.clsMenu")
    assert bar is root
    toolbar = next(child for child in WINDOW.children() if child.objectName() == "Tessarine_ToolBar")
    assert toolbar.isVisible() and toolbar.windowTitle() == "Tessarine Tools"
    letters = [letter_of(action.text()) for action in WINDOW.menuBar().actions()]
    assert letters[names.index("Tessarine Tools")] is not None, letters
    assert letters.count(letters[names.index("Tessarine Tools")]) == 1, letters
    buttons = [button.text() for button in toolbar.findChildren(QToolButton) if button.menu() is root]
    assert buttons == ["Tessarine Tools"], buttons  # Alt and the letter are for the menu alone
    # An opened menu asks each command; without a selected graphic there is nothing that is disabled for good.
    root.aboutToShow.emit()
    assert command_states(shapes) == {True}
    assert not iface.activeLayer()


def letter_of(caption):
    at = caption.replace("&&", "  ").find("&")
    return caption[at + 1].lower() if at >= 0 else None


def command_states(menu):
    return {action.isEnabled() for action in menu.actions() if not action.isSeparator()}
