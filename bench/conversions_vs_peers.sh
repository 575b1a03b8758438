#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# The conversions beside QGIS's algorithms for the same job, beside plain copying, and beside GEOS alone.
# conversions_vs_peers.sh BUILD_FOLDER WORK_FOLDER [RUNS]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1 work=$2 runs=${3:-3}
[ -f "$work/streets.shp" ] || "$build/bin/generate" "$work"

qgis() {  # algorithm, input, more parameters
  command -v qgis_process.bin >/dev/null || return 0
  echo "QGIS=PATH=/usr/bin:/bin QT_QPA_PLATFORM=offscreen qgis_process.bin run $1 --INPUT='$work/$2.shp' $3 --OUTPUT='$work/qgis.shp'"
}
ours() { echo "tessarine=rm -f '$work'/ours.* && '$build/bin/tessarine' $1 '$work/$2.shp' -o '$work/ours.shp' -q"; }
plain_copy() { echo "plain copy=rm -f '$work'/plain.* && '$build/bin/plain_copy' '$work/$1.shp' '$work/plain.shp'"; }
geos() { echo "GEOS alone=rm -f '$work'/plain.* && '$build/bin/plain_topology' $1 '$work/$2.shp' '$work/plain.shp'"; }

compare() {  # title, commands
  echo "$1"
  shift
  local given=()
  for command in "$@"; do [ -z "$command" ] || given+=("$command"); done
  "$here/in_turn.py" --runs "$runs" "${given[@]}"
}

compare "label-points, 100,000 polygons" "$(ours label-points polygons)" "$(plain_copy polygons)" \
  "$(qgis native:pointonsurface polygons --ALL_PARTS=false)"
compare "centroids, 100,000 polygons" "$(ours centroids polygons)" "$(plain_copy polygons)" \
  "$(qgis native:centroids polygons --ALL_PARTS=false)"
compare "spherical-centroids, 100,000 polygons" "$(ours spherical-centroids polygons)" "$(plain_copy polygons)"
compare "to-polylines, 100,000 polygons" "$(ours to-polylines polygons)" "$(plain_copy polygons)" \
  "$(qgis native:polygonstolines polygons '')"
# Closed lines, and lines that cross themselves; only the suite mends what becomes of these.
[ -f "$work/boundaries.shp" ] || ogr2ogr "$work/boundaries.shp" "$work/polygons.shp" -dialect sqlite \
  -sql "SELECT ST_Boundary(geometry) AS geometry, number FROM polygons"
compare "to-polygons, 100,000 closed lines" "$(ours to-polygons boundaries)" "$(plain_copy boundaries)" \
  "$(qgis qgis:linestopolygons boundaries '')"
compare "to-polygons, 200,000 lines that cross themselves" "$(ours to-polygons lines)" "$(plain_copy lines)" \
  "$(qgis qgis:linestopolygons lines '')"
compare "split, 100,000 polygons" "$(ours split polygons)" "$(plain_copy polygons)" \
  "$(qgis native:multiparttosingleparts polygons '')"
compare "combine, 100,000 polygons" "$(ours combine polygons)" "$(geos union polygons)" \
  "$(qgis native:dissolve polygons '')"
compare "build-polygons, 100,000 crossing lines" "$(ours 'build-polygons --cluster-tolerance 0' streets)" \
  "$(geos polygonize streets)"
