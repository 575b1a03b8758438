# SPDX-License-Identifier: GPL-2.0-or-later
"""Layers of a PostGIS database: values are written into the server's table, and its layers are converted.

Needs a server and a user who may create a schema and use PostGIS in it: TESSARINE_POSTGRES holds its connection, as
"host=127.0.0.1 dbname=test user=test password=test".
"""
import math
import os

from program_steps import (WORK, QgsProject, QgsVectorLayer, Skipped, choose_line, command, expect, press, read_report,
                           type_into)
from qgis.core import QgsProviderRegistry

SERVER = os.environ.get("TESSARINE_POSTGRES")
SCHEMA = "tessarine_test"
TABLES = """
drop schema if exists {0} cascade;
create schema {0};
create table {0}.roads (id serial primary key, label text, way geometry(LineString, 4326));
insert into {0}.roads (label, way) values
  ('equator', 'SRID=4326;LINESTRING(0 0, 4 0, 10 0)'), ('meridian', 'SRID=4326;LINESTRING(20 0, 20 90)'),
  ('nowhere', null);
create table {0}.areas (key bigint primary key, size numeric(10, 2), area geometry(MultiPolygon, 4326));
insert into {0}.areas values
  (5000000000, 1.5, 'SRID=4326;MULTIPOLYGON(((0 0, 0 10, 10 10, 10 0, 0 0)), ((20 0, 25 8, 30 0, 20 0)))');
""".format(SCHEMA)


def add_layer(table, key, shape):
    layer = QgsVectorLayer("%s key='%s' srid=4326 table=\"%s\".\"%s\" (%s)" % (SERVER, key, SCHEMA, table, shape),
                           table, "postgres")
    assert layer.isValid(), layer.error().message()
    return QgsProject.instance().addMapLayer(layer)


def calculate(layer, selected_only, again=False):
    def answer(form):
        choose_line(form, "lbxLayers", layer.name())
        press(form, "chk1")
        press(form, "chk8")
        if selected_only:
            press(form, "optSel")
        press(form, "cmdOK")

    expect("frmGeometry", answer)
    if again:
        expect("frmMessageBox", lambda box: press(box, "cmdYes"))
    read_report([layer.name()])
    command("Tessarine_CalcGeometry").trigger()


def convert(layer):
    def answer(form):
        choose_line(form, "lbxLayers", layer.name())
        type_into(form, "txtOutput", str(WORK / "corners.shp"))
        press(form, "cmdOK")

    expect("frmLayerFields", answer)
    read_report([layer.name()])
    command("Tessarine_ShapesToVertices").trigger()
    return QgsProject.instance().layerTreeRoot().children()[0].layer()


def scenario():
    if not SERVER:
        raise Skipped("TESSARINE_POSTGRES names no server")
    server = QgsProviderRegistry.instance().providerMetadata("postgres").createConnection(SERVER, {})
    server.executeSql(TABLES)
    try:
        roads = add_layer("roads", "id", "way")
        calculate(roads, selected_only=False)
        stored = server.executeSql('select label, "Sph_Len", "Vertices" from %s.roads order by id' % SCHEMA)
        # Ten degrees of the equator of WGS 84, and its quarter meridian.
        for row, expected in zip(stored, [(6378137.0 * math.radians(10.0), 3), (10001965.7293, 2)]):
            assert abs(float(row[1]) - expected[0]) < 1e-3 and row[2] == expected[1], stored
        assert float(stored[2][1]) == -9999.0, stored

        server.executeSql('update %s.roads set "Sph_Len" = 0' % SCHEMA)
        roads.selectByExpression("label = 'meridian'")
        calculate(roads, selected_only=True, again=True)
        stored = server.executeSql('select "Sph_Len" from %s.roads order by id' % SCHEMA)
        assert [float(row[0]) > 0.0 for row in stored] == [False, True, False], stored

        # Its identifiers have more than 32 bits.
        areas = add_layer("areas", "key", "area")
        assert convert(areas).featureCount() == 9
    finally:
        QgsProject.instance().removeAllMapLayers()
        server.executeSql("drop schema if exists %s cascade" % SCHEMA)
