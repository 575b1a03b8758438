# SPDX-License-Identifier: GPL-2.0-or-later
"""The plug-in as the map program switches it on: a shell around the suite's library, which lies beside it."""
import ctypes
import pathlib


class TessarinePlugin:
    def __init__(self, program):
        self.program = program  # None where only the toolbox is wanted
        self.library = ctypes.CDLL(str(pathlib.Path(__file__).resolve().parent / "libtessarine_qgis.so"))

    def initProcessing(self):
        self.library.tessarine_start_processing()

    def initGui(self):
        from qgis.PyQt import sip
        self.initProcessing()
        self.library.tessarine_start_menus(ctypes.c_void_p(sip.unwrapinstance(self.program)))

    def unload(self):
        self.library.tessarine_stop()


def classFactory(program):
    return TessarinePlugin(program)
