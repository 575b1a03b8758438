#!/usr/bin/python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Cuts polygons that jump over the 180th meridian, by `tessarine wrap --short-steps` and by `ogr2ogr -wrapdateline`.

Usage: wrap_vs_ogr2ogr.py BUILD WORK

Prints the tables of docs/accuracy.md. Each shape is known before it is torn, so its area in square degrees is, too.
"""

import math
import random
import subprocess
import sys
from pathlib import Path

from osgeo import gdal, ogr, osr

ogr.UseExceptions()
gdal.PushErrorHandler("CPLQuietErrorHandler")
SAME = 1e-9


def degrees():
    reference = osr.SpatialReference()
    reference.ImportFromEPSG(4326)
    reference.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
    return reference


def torn(ring):
    return [((x + 180.0) % 360.0 - 180.0 if x > 180.0 else x, y) for x, y in ring]


def polygon(rings):
    shape = ogr.Geometry(ogr.wkbPolygon)
    for vertices in rings:
        ring = ogr.Geometry(ogr.wkbLinearRing)
        for x, y in vertices:
            ring.AddPoint_2D(x, y)
        ring.CloseRings()
        shape.AddGeometry(ring)
    return shape


def box(west, south, east, north):
    return [(west, south), (west, north), (east, north), (east, south)]


def round_the_globe(latitude, step=10, westward=False):
    ring = [(-175.0 + lon, latitude + 3.0 * math.sin(math.radians(3 * lon))) for lon in range(0, 360, step)]
    return ring[::-1] if westward else ring


def star(random_, x, y):
    corners = random_.randint(3, 40)
    angles = sorted(random_.uniform(0.0, 2.0 * math.pi) for _ in range(corners))
    reaches = [random_.uniform(1, 9) for _ in angles]
    return [(x + r * math.cos(-a), y + r * math.sin(-a)) for a, r in zip(angles, reaches)]


def area_of_cap(ring, pole):
    """Between a ring round the globe and a pole, in square degrees."""
    closed = ring + [ring[0]]
    area = 0.0
    for (x0, y0), (x1, y1) in zip(closed, closed[1:]):
        area += abs((x1 - x0 + 180.0) % 360.0 - 180.0) * abs(pole - (y0 + y1) / 2.0)
    return area


def cases():
    """Name, rings as they are stored, the area that is meant."""
    outer, hole = box(170, -5, 190, 5), box(178, -2, 183, 2)[::-1]
    yield "a box", [torn(outer)], 200.0
    yield "a box, the other way round", [torn(outer[::-1])], 200.0
    yield "a box with a vertex on the edge", [torn([(170, 0), (170, 5), (180, 5), (190, 5), (190, 0)])], 100.0
    yield "a hole over the edge", [torn(outer), torn(hole)], 180.0
    yield "a hole beyond the edge", [torn(outer), torn(box(185, -2, 188, 2)[::-1])], 188.0
    yield "a step of 200 degrees", [torn(box(100, 0, 260, 10))], 1600.0
    north, south = round_the_globe(70, westward=True), round_the_globe(-70)
    yield "round the north pole", [torn(north)], area_of_cap(north, 90.0)
    yield "round the south pole", [torn(south)], area_of_cap(south, -90.0)
    inner = round_the_globe(-80, westward=True)
    yield "a band round the south pole", [torn(south), torn(inner)], area_of_cap(south, -90) - area_of_cap(inner, -90)


def write(path, shapes):
    path.unlink(missing_ok=True)
    source = ogr.GetDriverByName("GPKG").CreateDataSource(str(path))
    layer = source.CreateLayer("shapes", degrees(), ogr.wkbPolygon)
    for shape in shapes:
        feature = ogr.Feature(layer.GetLayerDefn())
        feature.SetGeometry(shape)
        layer.CreateFeature(feature)


def read(path):
    source = ogr.Open(str(path))
    return [feature.GetGeometryRef().Clone() if feature.GetGeometryRef() else None for feature in source.GetLayer()]


def cut(build, work, shapes):
    """What both make of the shapes: ours, theirs."""
    source, ours, theirs = work / "shapes.gpkg", work / "ours.shp", work / "theirs.shp"
    write(source, shapes)
    subprocess.run([str(build / "bin" / "tessarine"), "wrap", str(source), "--range", "180", "--short-steps", "-o",
                    str(ours), "--overwrite", "-q"], check=True, stderr=subprocess.DEVNULL)
    subprocess.run(["ogr2ogr", "-wrapdateline", "-datelineoffset", "30", "-nlt", "MULTIPOLYGON", "-overwrite",
                    str(theirs), str(source)], check=True, stderr=subprocess.DEVNULL)
    return read(ours), read(theirs)


def within(shape):
    west, east, _, _ = shape.GetEnvelope()
    return west >= -180.0 - SAME and east <= 180.0 + SAME


def verdict(shape, area):
    if shape is None:
        return "no shape"
    valid = shape.IsValid()
    right = abs(shape.Area() / area - 1.0) <= SAME and within(shape)
    return f"{shape.Area():.6f}" + ("" if right else ", wrong") + ("" if valid else ", invalid")


def print_cases(build, work):
    listed = list(cases())
    ours, theirs = cut(build, work, [polygon(rings) for _, rings, _ in listed])
    print("| polygon | square degrees meant | tessarine | ogr2ogr |\n|---|---|---|---|")
    for (name, _, area), own, other in zip(listed, ours, theirs):
        print(f"| {name} | {area:.6f} | {verdict(own, area)} | {verdict(other, area)} |")


def print_stars(build, work, count=3000):
    random_ = random.Random(20260314)
    rings = []
    for number in range(count):
        x = random_.uniform(172, 188) if number % 10 == 0 else random_.uniform(-160, 160)
        rings.append(star(random_, x, random_.uniform(-70, 70)))
    whole = [polygon([ring]).Area() for ring in rings]
    valid = [polygon([ring]).IsValid() for ring in rings]
    ours, theirs = cut(build, work, [polygon([torn(ring)]) for ring in rings])
    jumps = [any(abs(a[0] - b[0]) > 180 for a, b in zip(torn(r), torn(r)[1:] + torn(r)[:1])) for r in rings]
    print("\n| stars of 3 to 40 corners | number | as large as before: tessarine | ogr2ogr |\n|---|---|---|---|")
    for name, wanted in (("that jump", True), ("that don't", False)):
        chosen = [n for n in range(count) if jumps[n] == wanted and valid[n]]
        same = [sum(s[n] is not None and abs(s[n].Area() / whole[n] - 1.0) <= 1e-6 for n in chosen)
                for s in (ours, theirs)]
        print(f"| {name} | {len(chosen)} | {same[0]} | {same[1]} |")


def main():
    build, work = Path(sys.argv[1]), Path(sys.argv[2])
    work.mkdir(parents=True, exist_ok=True)
    print_cases(build, work)
    print_stars(build, work)


if __name__ == "__main__":
    main()
