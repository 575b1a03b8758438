#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Shapes on which a careless algorithm takes the square of their number, beside GEOS alone or the nearest plain job.
# hard_shapes_vs_peers.sh BUILD_FOLDER WORK_FOLDER [RUNS]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1 work=$2 runs=${3:-3}
[ -f "$work/star.shp" ] || "$here/hard_shapes.py" "$work"

ours() { echo "$1=rm -f '$work'/ours.* ;; '$build/bin/tessarine' $2 -o '$work/ours.shp' -q --progress none"; }
# Lines that bound no region give no output, which is told by the exit status.
without_output() { echo "$1=rm -f '$work'/ours.* ;; '$build/bin/tessarine' $2 -o '$work/ours.shp' -q || true"; }
geos() { echo "GEOS alone=rm -f '$work'/plain.* ;; '$build/bin/plain_topology' $1 '$work/$2.shp' '$work/plain.shp'"; }

compare() {  # title, commands
  echo "$1"
  shift
  "$here/in_turn.py" --runs "$runs" "$@"
}

compare "combine, 10,000 overlapping buffers of 66 vertices" "$(ours tessarine "combine '$work/buffers.shp'")" \
  "$(ours "tessarine, one thread" "combine '$work/buffers.shp' -j 1")" "$(geos union buffers)"
compare "50,000 regions with and without labels" \
  "$(ours "regions alone" "build-polygons '$work/mosaic.shp' -t 0")" \
  "$(ours "labels of a shapefile" "build-polygons '$work/mosaic.shp' -t 0 --labels '$work/mosaic_labels.shp' --label-fields number --label-choice nearest")" \
  "$(ours "labels of GeoJSON" "build-polygons '$work/mosaic.shp' -t 0 --labels '$work/mosaic_labels.geojson' --label-fields number --label-choice nearest")" \
  "$(geos polygonize mosaic)"
compare "cluster tolerance beside a line of 30,000 vertices that leaves it slowly" \
  "$(without_output "all within" "build-polygons '$work/diverging.shp' -t 0.05")" \
  "$(without_output "a third within" "build-polygons '$work/diverging.shp' -t 0.01")"
compare "one feature of 90,000 parts" "$(ours to-polylines "to-polylines '$work/parts.shp'")" \
  "$(ours split "split '$work/parts.shp'")"
compare "one ring of 160,000 wide sides" "$(ours to-polylines "to-polylines '$work/comb.shp'")" \
  "$(ours split "split '$work/comb.shp'")" "$(geos union comb)"
# GEOS unites these in minutes, with 10 GB.
compare "16,000 lines from one place" "$(without_output build-polygons "build-polygons '$work/star.shp' -t 0")" \
  "$(ours combine "combine '$work/star.shp'")"
countries=$here/../tests/data/countries.shp
compare "Canada into boxes of one degree" \
  "$(ours "narrow and tall" "wrap '$countries' --where \"name = 'Canada'\" --bounds=-0.5,-90,0.5,90")" \
  "$(ours "one degree" "wrap '$countries' --where \"name = 'Canada'\" --bounds=-0.5,50,0.5,51")"
