#!/usr/bin/python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Writes shapes on which a careless algorithm takes the square of their number: hard_shapes.py FOLDER

    buffers.shp     10,000 buffers of 66 vertices, each over many others
    mosaic.shp      the sides of a mosaic of 50,000 regions, and mosaic_labels.shp a point in each
    mosaic_labels.geojson   the same points without an index
    diverging.shp   a line of 30,000 vertices that leaves a straight one slowly
    parts.shp       one polygon of 90,000 parts
    comb.shp        one ring of 160,000 wide sides
    star.shp        16,000 lines from one place
"""
import math
import random
import sys
from pathlib import Path

from osgeo import gdal, ogr, osr

ogr.UseExceptions()
gdal.UseExceptions()


def write(path, kind, shapes):
    reference = osr.SpatialReference()
    reference.ImportFromEPSG(32633)
    reference.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
    driver = ogr.GetDriverByName("GeoJSON" if path.suffix == ".geojson" else "ESRI Shapefile")
    if path.exists():
        driver.DeleteDataSource(str(path))
    source = driver.CreateDataSource(str(path))
    layer = source.CreateLayer(path.stem, reference, kind)
    layer.CreateField(ogr.FieldDefn("number", ogr.OFTInteger))
    for number, shape in enumerate(shapes):
        feature = ogr.Feature(layer.GetLayerDefn())
        feature.SetField(0, number)
        feature.SetGeometry(shape)
        layer.CreateFeature(feature)


def line(places):
    shape = ogr.Geometry(ogr.wkbLineString)
    for x, y in places:
        shape.AddPoint_2D(x, y)
    return shape


def polygon(places):
    ring = ogr.Geometry(ogr.wkbLinearRing)
    for x, y in places:
        ring.AddPoint_2D(x, y)
    ring.CloseRings()
    shape = ogr.Geometry(ogr.wkbPolygon)
    shape.AddGeometryDirectly(ring)
    return shape


def point(x, y):
    shape = ogr.Geometry(ogr.wkbPoint)
    shape.AddPoint_2D(x, y)
    return shape


def circle(x, y, radius):
    angles = (2.0 * math.pi * step / 66 for step in range(66))
    return polygon((x + radius * math.cos(angle), y + radius * math.sin(angle)) for angle in angles)


def buffers():
    draw = random.Random(5)
    for _ in range(10_000):
        yield circle(500_000 + draw.uniform(0, 10_000), 5_000_000 + draw.uniform(0, 10_000), 300)


COLUMNS, ROWS = 250, 200


def mosaic():
    for row in range(ROWS + 1):
        yield line((500_000 + 10 * column, 5_000_000 + 10 * row) for column in range(COLUMNS + 1))
    for column in range(COLUMNS + 1):
        yield line((500_000 + 10 * column, 5_000_000 + 10 * row) for row in range(ROWS + 1))


def labels():
    draw = random.Random(7)
    for row in range(ROWS):
        for column in range(COLUMNS):
            yield point(
                500_000 + 10 * column + draw.uniform(1, 9), 5_000_000 + 10 * row + draw.uniform(1, 9)
            )


def diverging():
    yield line(((500_000, 5_000_000), (530_000, 5_000_000)))
    yield line((500_000 + step, 5_000_000 + step * 1e-6) for step in range(30_000))


def parts():
    shape = ogr.Geometry(ogr.wkbMultiPolygon)
    for row in range(300):
        for column in range(300):
            x, y = 500_000 + 10 * column, 5_000_000 + 10 * row
            shape.AddGeometryDirectly(polygon(((x, y), (x, y + 5), (x + 5, y + 5), (x + 5, y))))
    yield shape


def comb():
    places = [(500_000, 5_000_000), (499_000, 5_000_000), (499_000, 5_080_000), (500_000, 5_080_000)]
    for tooth in range(39_999, 0, -1):
        y = 5_000_000 + 2 * tooth
        places += [(600_000, y + 0.7), (600_000, y + 0.3), (500_000, y), (500_000, y - 0.5)]
    yield polygon(places)


def star():
    for spoke in range(16_000):
        angle = 2.0 * math.pi * spoke / 16_000
        yield line(
            ((500_000, 5_000_000), (500_000 + 10_000 * math.cos(angle), 5_000_000 + 10_000 * math.sin(angle)))
        )


def main():
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    write(folder / "buffers.shp", ogr.wkbPolygon, buffers())
    write(folder / "mosaic.shp", ogr.wkbLineString, mosaic())
    write(folder / "mosaic_labels.shp", ogr.wkbPoint, labels())
    write(folder / "mosaic_labels.geojson", ogr.wkbPoint, labels())
    write(folder / "diverging.shp", ogr.wkbLineString, diverging())
    write(folder / "parts.shp", ogr.wkbPolygon, parts())
    write(folder / "comb.shp", ogr.wkbPolygon, comb())
    write(folder / "star.shp", ogr.wkbLineString, star())


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    main()
