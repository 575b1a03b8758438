#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""The toolbox without windows: what `qgis_process` makes is what the terminal program makes.

    headless_toolbox.py --build FOLDER --program /usr/bin/qgis_process.bin
"""
import argparse
import json
import os
import pathlib
import subprocess
import tempfile

from osgeo import gdal, ogr

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent.parent
DATA = ROOT / "tests/data"
# As GeoPackages: numbers of a dBASE table are texts, which are read with another last bit in the map program's process.
FOLDER = tempfile.TemporaryDirectory(prefix="tessarine-")
COUNTRIES, CITIES = ("%s/%s.gpkg" % (FOLDER.name, name) for name in ("countries", "cities"))

# Algorithm, its values, and the same for the terminal.
RUNS = [
    ("calculate", {"INPUT": COUNTRIES, "MEASURE": "Sph. Area,Perimeter Length", "SPHEROID": "Mars 2000"},
     [COUNTRIES, "-m", "Sph. Area", "-m", "Perimeter Length", "--spheroid", "Mars 2000"]),
    ("vertices", {"INPUT": COUNTRIES, "FIELDS": "name;pop_est"}, [COUNTRIES, "--fields", "name,pop_est"]),
    ("wrap", {"INPUT": COUNTRIES, "BOUNDS": "-90,-90,270,90"}, [COUNTRIES, "--bounds", "-90,-90,270,90"]),
    ("to-centric", {"INPUT": CITIES, "RADII": "3396190.0000001,3376200", "SHIFT": "0.1"},
     [CITIES, "--radii", "3396190.0000001,3376200", "--shift", "0.1"]),
]
LABELLED = ("build-polygons", {"LABELS": CITIES, "LABEL_FIELDS": "name", "LABEL_CHOICE": "nearest"},
            ["--labels", CITIES, "--label-fields", "name", "--label-choice", "nearest"])


def rows_of(path):
    data = ogr.Open(str(path))
    layer = data.GetLayer(0)
    definition = layer.GetLayerDefn()
    fields = [(definition.GetFieldDefn(at).GetName(), definition.GetFieldDefn(at).GetType(),
               definition.GetFieldDefn(at).GetSubType(), definition.GetFieldDefn(at).GetWidth())
              for at in range(definition.GetFieldCount())]
    rows = [(row.GetFID(), [row.GetField(at) for at in range(len(fields))],
             bytes(row.GetGeometryRef().ExportToWkb()) if row.GetGeometryRef() else None) for row in layer]
    return fields, layer.GetSpatialRef().ExportToWkt(), rows


class Toolbox:
    def __init__(self, options, folder):
        self.options, self.folder = options, folder
        self.environment = {name: value for name, value in os.environ.items()
                            if not name.startswith(("XDG_", "QGIS_", "QT_"))}
        self.environment.update(HOME=str(folder), XDG_RUNTIME_DIR=str(folder), XDG_DATA_HOME=str(folder / "data"),
                                LC_ALL="C.UTF-8", QT_QPA_PLATFORM="offscreen")

    def install(self):
        subprocess.run([ROOT / "tools/install-plugin", "--build", self.options.build], env=self.environment,
                       check=True, stdout=subprocess.DEVNULL)

    def call(self, *arguments):
        done = subprocess.run([self.options.program, *arguments], env=self.environment, capture_output=True, text=True,
                              timeout=60)
        return done.returncode, done.stdout + done.stderr

    def run(self, name, values):
        return self.call("run", "tessarine:" + name, "--", *("%s=%s" % pair for pair in values.items()))

    def terminal(self, *arguments):
        done = subprocess.run([pathlib.Path(self.options.build) / "bin/tessarine", *map(str, arguments)],
                              capture_output=True, text=True, timeout=60)
        assert done.returncode == 0, done.stdout + done.stderr


def what_is_there(toolbox):
    status, told = toolbox.call("list", "--json")
    assert status == 0, told
    algorithms = json.loads(told[told.index("{"):told.rindex("}") + 1])["providers"]["tessarine"]["algorithms"]
    listed = subprocess.run([pathlib.Path(toolbox.options.build) / "bin/tessarine", "tools", "--json"],
                            capture_output=True, text=True, check=True).stdout
    assert {name.split(":")[1] for name in algorithms} == {
        tool["name"] for tool in json.loads(listed) if tool["works_on"] == "layers"}, algorithms
    status, told = toolbox.call("help", "tessarine:wrap")
    assert status == 0 and "BOUNDS: Bounds (west,south,east,north)" in told and "Add this to every longitude" in told


def equal_to_terminal(toolbox, name, values, words):
    made, expected = toolbox.folder / (name + ".gpkg"), toolbox.folder / "terminal" / (name + ".gpkg")
    status, told = toolbox.run(name, dict(values, OUTPUT=made))
    assert status == 0 and "WRITTEN" in told, told
    check_line(toolbox, told, made)
    toolbox.terminal(name, *words, "-o", expected, "--yes")
    assert rows_of(made)[0] == rows_of(expected)[0], (name, rows_of(made)[0], rows_of(expected)[0])
    assert rows_of(made) == rows_of(expected), name
    assert len(rows_of(made)[2]) > 100, name


def check_line(toolbox, told, made):
    """The log tells a line for the terminal; a shell that runs it makes the same output."""
    lines = [line for line in told.splitlines() if line.startswith("tessarine ")]
    assert len(lines) == 1, told
    first = rows_of(made)
    made.unlink()
    path = "%s/bin:%s" % (pathlib.Path(toolbox.options.build).resolve(), os.environ["PATH"])
    done = subprocess.run(lines[0], shell=True, env=dict(os.environ, PATH=path), capture_output=True, text=True,
                          stdin=subprocess.DEVNULL, timeout=60)
    assert done.returncode == 0, (lines[0], done.stdout + done.stderr)
    assert rows_of(made) == first, lines[0]


def values_of(path, field):
    dataset = ogr.Open(str(path))
    return [row.GetField(field) for row in dataset.GetLayer(0)]


# Projected polygons: the map program's own field calculator writes what the suite's calculator writes.
def functions_equal_to_terminal(toolbox):
    mercator = toolbox.folder / "mercator.gpkg"
    gdal.VectorTranslate(str(mercator), COUNTRIES, format="GPKG", dstSRS="EPSG:3857", reproject=True,
                         where="name <> 'Antarctica'", layerName="mercator")
    made = toolbox.folder / "by_function.gpkg"
    status, told = toolbox.call("run", "native:fieldcalculator", "--", "INPUT=%s" % mercator, "FIELD_NAME=by_function",
                                "FIELD_TYPE=0", "FIELD_LENGTH=0", "FIELD_PRECISION=0",
                                "FORMULA=tessarine_area($geometry)", "OUTPUT=%s" % made)
    assert status == 0, told
    expected = toolbox.folder / "terminal/by_function.gpkg"
    toolbox.terminal("calculate", mercator, "-m", "Spheroidal Area", "-o", expected, "--yes")
    ours, theirs = values_of(made, "by_function"), values_of(expected, "Spd_Area")
    assert ours == theirs and len(ours) > 100, [pair for pair in zip(ours, theirs) if pair[0] != pair[1]][:5]


def refused(toolbox):
    status, told = toolbox.run("wrap", {"INPUT": COUNTRIES, "OUTPUT": toolbox.folder / "refused.gpkg"})
    assert status != 0 and "'Range' 180" in told, told
    assert not (toolbox.folder / "refused.gpkg").exists()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", required=True)
    parser.add_argument("--program", default="qgis_process.bin")
    with FOLDER:
        toolbox = Toolbox(parser.parse_args(), pathlib.Path(FOLDER.name))
        gdal.VectorTranslate(COUNTRIES, str(DATA / "countries.shp"), geometryType="MULTIPOLYGON")
        gdal.VectorTranslate(CITIES, str(DATA / "cities.shp"))
        (toolbox.folder / "terminal").mkdir()
        toolbox.install()
        what_is_there(toolbox)
        for run in RUNS:
            equal_to_terminal(toolbox, *run)
        borders = toolbox.folder / "borders.shp"
        toolbox.terminal("to-polylines", COUNTRIES, "-o", borders)
        name, values, words = LABELLED
        equal_to_terminal(toolbox, name, dict(values, INPUT=borders), [borders, *words])
        functions_equal_to_terminal(toolbox)
        refused(toolbox)


if __name__ == "__main__":
    main()
