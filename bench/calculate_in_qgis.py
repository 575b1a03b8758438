#!/usr/bin/python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Calculate Geometry in the map program beside what the program has itself, in one run of it for each format.

    calculate_in_qgis.py BUILD WORK [--before FOLDER] [--polygons N] [--formats gpkg,shp]

Area, centroid and perimeter of N polygons of 40 vertices by the dialog; area and perimeter by the program's field
calculator, twice with saving, and by its algorithm that adds geometry attributes, which writes a new file. The map
doesn't draw meanwhile. The values are compared with those of `tessarine calculate`. With --before, the plug-in of
another build takes a turn, too. It needs the program, Xvfb and an `ogr2ogr`; the suite's files come from BUILD.
"""
import argparse
import json
import math
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import types

from osgeo import ogr, osr

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent / "tests/hosts/qgis"))
sys.dont_write_bytecode = True

import drive_program  # noqa: E402

DRIVERS = {"gpkg": "GPKG", "shp": "ESRI Shapefile", "gdb": "OpenFileGDB"}
MEASURES = ["Sph. Area", "Sph. Centroid", "Perimeter Length"]
VERTICES = 40
LIMIT_SECONDS = 1800

ogr.UseExceptions()


def make_polygons(path, driver, count):
    numbers = random.Random(20260314)
    reference = osr.SpatialReference()
    reference.ImportFromEPSG(4326)
    reference.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
    dataset = ogr.GetDriverByName(driver).CreateDataSource(str(path))
    layer = dataset.CreateLayer("polygons", reference, ogr.wkbPolygon)
    layer.CreateField(ogr.FieldDefn("number", ogr.OFTInteger))
    layer.StartTransaction()
    for index in range(count):
        x, y = numbers.uniform(-170, 170), numbers.uniform(-75, 75)
        ring = ogr.Geometry(ogr.wkbLinearRing)
        for vertex in range(VERTICES - 1):
            angle, reach = -2 * math.pi * vertex / (VERTICES - 1), numbers.uniform(0.05, 0.2)
            ring.AddPoint_2D(x + reach * math.cos(angle), y + reach * math.sin(angle))
        ring.CloseRings()
        polygon = ogr.Geometry(ogr.wkbPolygon)
        polygon.AddGeometry(ring)
        feature = ogr.Feature(layer.GetLayerDefn())
        feature.SetField(0, index)
        feature.SetGeometryDirectly(polygon)
        layer.CreateFeature(feature)
    layer.CommitTransaction()


def copy(source, target):
    """A file, the files of a shapefile, or a folder."""
    if source.is_dir():
        shutil.copytree(source, target)
        return
    for file in source.parent.glob(source.stem + ".*"):
        if source.suffix == ".shp" or file == source:
            shutil.copy2(file, target.with_suffix(file.suffix))


def measured(path):
    dataset = ogr.Open(str(path))
    layer = dataset.GetLayer(0)
    names = [field.GetName() for field in layer.schema]
    return names, [[row.GetField(name) for name in names] for row in layer]


def in_program(build, data, peers):
    """What the scenario told: seconds by name, and the file that the dialog has changed."""
    folder = pathlib.Path(tempfile.mkdtemp(prefix="tessarine-bench-"))
    os.environ.update(BENCH_DATA=str(data), BENCH_PEERS="1" if peers else "", BENCH_MEASURES=json.dumps(MEASURES))
    options = types.SimpleNamespace(build=str(build), program="qgis", limit=LIMIT_SECONDS)
    try:
        if not drive_program.run(options, str(HERE / "calculate_in_qgis_steps"), folder):
            sys.exit(1)
        return json.loads((folder / "work/seconds.json").read_text())
    finally:
        shutil.rmtree(folder)


def load():
    return "load %.1f" % os.getloadavg()[0]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("work", type=pathlib.Path)
    parser.add_argument("--before", type=pathlib.Path)
    parser.add_argument("--polygons", type=int, default=300_000)
    parser.add_argument("--formats", default="gpkg,shp")
    options = parser.parse_args()
    work = options.work.resolve()
    work.mkdir(parents=True, exist_ok=True)
    for ending in options.formats.split(","):
        original, changed = work / ("polygons_%d.%s" % (options.polygons, ending)), work / ("changed." + ending)
        if not original.exists():
            make_polygons(original, DRIVERS[ending], options.polygons)

        def fresh():
            shutil.rmtree(changed, ignore_errors=True)
            for file in work.glob("changed.*"):
                if file.is_file():
                    file.unlink()
            copy(original, changed)

        seconds, loads = {}, [load()]
        if options.before:
            fresh()
            told = in_program(options.before.resolve(), changed, peers=False)
            seconds["Calculate Geometry before"] = told["Calculate Geometry"]
            loads.append(load())
        fresh()
        seconds.update(in_program(options.build.resolve(), changed, peers=True))
        loads.append(load())
        by_dialog = measured(changed)
        fresh()
        command = [options.build / "bin/tessarine", "calculate", changed, "--yes", "-q"]
        subprocess.run(command + [word for name in MEASURES for word in ("-m", name)], check=True)
        print("\n%d polygons, %s (%s)" % (options.polygons, ending, ", ".join(loads)))
        ours = seconds["Calculate Geometry"]
        for name, value in seconds.items():
            print("    %-30s %8.2f s %8.2f" % (name, value, value / ours))
        print("    values of the terminal: " + ("the same" if measured(changed) == by_dialog else "DIFFERENT"))


if __name__ == "__main__":
    main()
