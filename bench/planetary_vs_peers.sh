#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Wrapping and latitude conversion beside a plain copy, and beside ogr2ogr's own wrapping at the date line.
# planetary_vs_peers.sh BUILD_FOLDER WORK_FOLDER [RUNS]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1 work=$2 runs=${3:-3}
[ -f "$work/jumping.shp" ] || "$build/bin/generate" "$work"
# A tenth of these cross 180 degrees.
[ -f "$work/crossing.shp" ] || ogr2ogr "$work/crossing.shp" "$work/polygons.shp" -dialect sqlite \
  -sql "SELECT CASE WHEN number % 10 = 0 THEN ST_Translate(geometry, 180 - ST_X(ST_Centroid(geometry)), 0, 0)
        ELSE geometry END, number, label, value FROM polygons"

plain="plain copy=rm -f '$work'/plain.* && '$build/bin/plain_copy' '$work/crossing.shp' '$work/plain.shp'"
echo "wrap to -180 to 180, 100,000 polygons, a tenth of them across the edge"
"$here/in_turn.py" --runs "$runs" \
  "tessarine=rm -f '$work'/ours.* && '$build/bin/tessarine' wrap '$work/crossing.shp' -o '$work/ours.shp' --range 180 -q" \
  "$plain" "ogr2ogr=rm -f '$work'/peer.* && ogr2ogr -wrapdateline '$work/peer.shp' '$work/crossing.shp'"
echo "wrap --short-steps, 100,000 polygons, a tenth of them jump from 180 to -180"
"$here/in_turn.py" --runs "$runs" \
  "tessarine=rm -f '$work'/ours.* && '$build/bin/tessarine' wrap '$work/jumping.shp' -o '$work/ours.shp' --range 180 --short-steps -q" \
  "ogr2ogr=rm -f '$work'/peer.* && ogr2ogr -wrapdateline -datelineoffset 10 '$work/peer.shp' '$work/jumping.shp'"
echo "areas that came out, in square degrees"
for file in ours peer; do
  printf '%s ' "$file"
  ogrinfo -q -dialect sqlite -sql "SELECT sum(ST_Area(geometry)) AS area FROM $file" "$work/$file.shp" | sed -n 's/.*area (Real) = //p'
done
echo "wrap of one polygon of 5,000 vertices into a box of a hundredth of a degree, 300,000 tiles around it"
[ -f "$work/round.shp" ] || ogr2ogr "$work/round.shp" "$work/polygons.shp" -dialect sqlite \
  -sql "SELECT ST_Buffer(MakePoint(0, 0, 4326), 3, 1250) AS geometry, number FROM polygons LIMIT 1"
"$here/in_turn.py" --runs "$runs" \
  "tessarine=rm -f '$work'/ours.* && '$build/bin/tessarine' wrap '$work/round.shp' -o '$work/ours.shp' --bounds 0,0,0.01,0.01 -q"
echo "to-centric, 100,000 polygons"
"$here/in_turn.py" --runs "$runs" \
  "tessarine=rm -f '$work'/ours.* && '$build/bin/tessarine' to-centric '$work/polygons.shp' -o '$work/ours.shp' -q" \
  "plain copy=rm -f '$work'/plain.* && '$build/bin/plain_copy' '$work/polygons.shp' '$work/plain.shp'"
