# SPDX-License-Identifier: GPL-2.0-or-later
"""Starts the scenario inside the program, once its event loop runs, and ends the program with the result."""
import os
import sys

from qgis.PyQt.QtCore import QTimer

sys.path.insert(0, os.environ["TESSARINE_HELPERS"])
sys.dont_write_bytecode = True

import program_steps  # noqa: E402

QTimer.singleShot(0, lambda: program_steps.run_scenario(os.environ["TESSARINE_SCENARIO"]))
