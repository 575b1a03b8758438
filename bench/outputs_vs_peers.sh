#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# Outputs in GeoPackages and other formats beside ogr2ogr, which only copies.
# outputs_vs_peers.sh BUILD_FOLDER WORK_FOLDER [RUNS]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1 work=$2 runs=${3:-3}
[ -f "$work/polygons.shp" ] || "$build/bin/generate" "$work"
for ending in gpkg fgb geojson; do
  echo "to-centric, 100,000 polygons into .$ending"
  "$here/in_turn.py" --runs "$runs" \
    "tessarine=rm -f '$work'/ours.$ending ;; '$build/bin/tessarine' to-centric '$work/polygons.shp' -o '$work/ours.$ending' -q" \
    "ogr2ogr=rm -f '$work'/peer.$ending ;; ogr2ogr -nlt PROMOTE_TO_MULTI '$work/peer.$ending' '$work/polygons.shp'"
done
