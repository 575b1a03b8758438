#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Personal geodatabases beside file geodatabases, and beside GDAL's own reader of them over mdbtools and ODBC
# (odbc-mdbtools). personal_geodatabase_vs_peers.sh BUILD_FOLDER WORK_FOLDER [RUNS]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1 work=$2 runs=${3:-5}
bench=$build/bin/personal_geodatabase
[ -f "$work/lines.shp" ] || "$build/bin/generate" "$work"
[ -f "$work/some_lines.shp" ] || ogr2ogr "$work/some_lines.shp" "$work/lines.shp" -limit 5000

printf 'load of the machine at the beginning: '
cut -d' ' -f1-3 /proc/loadavg
echo "writing 100,000 points with three attributes, by the engine alone"
"$here/in_turn.py" --runs "$runs" \
  "personal geodatabase=rm -rf '$work'/ours.mdb ;; '$bench' write '$work/ours.mdb' 100000" \
  "file geodatabase=rm -rf '$work'/peer.gdb ;; '$bench' write '$work/peer.gdb' 100000"
echo "vertices of 5,000 lines, 100,000 points, by the program"
"$here/in_turn.py" --runs "$runs" \
  "personal geodatabase=rm -rf '$work'/made.mdb ;; '$build/bin/tessarine' vertices '$work/some_lines.shp' -o '$work/made.mdb/points' -q" \
  "file geodatabase=rm -rf '$work'/made.gdb ;; '$build/bin/tessarine' vertices '$work/some_lines.shp' -o '$work/made.gdb/points' -q"
echo "reading 100,000 points with three attributes"
"$here/in_turn.py" --runs "$runs" \
  "tessarine='$bench' read '$work/ours.mdb' points" \
  "GDAL over mdbtools='$bench' read-by-gdal '$work/ours.mdb' points"
echo "reading 100,000 polygons"
[ -f "$work/polygons.mdb" ] ||
  "$build/bin/tessarine" calculate "$work/polygons.shp" -m "Perimeter Length" --yes -q -o "$work/polygons.mdb/polygons"
"$here/in_turn.py" --runs "$runs" \
  "tessarine='$bench' read '$work/polygons.mdb' polygons" \
  "GDAL over mdbtools='$bench' read-by-gdal '$work/polygons.mdb' polygons"
