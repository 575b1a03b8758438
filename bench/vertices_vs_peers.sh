#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# `tessarine vertices` beside the same work: GDAL alone (the floor), and QGIS where it is installed.
# vertices_vs_peers.sh BUILD_FOLDER WORK_FOLDER [RUNS]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1 work=$2 runs=${3:-3}
[ -f "$work/lines.shp" ] || "$build/bin/generate" "$work"
for kind in lines polygons; do
  for format in shp gpkg gdb; do
    peers=("plain GDAL=rm -rf '$work'/plain.* && '$build/bin/plain_vertices' '$work/$kind.shp' '$work/plain.$format'")
    if [ $format = shp ] && command -v qgis_process.bin >/dev/null; then
      peers+=("QGIS=PATH=/usr/bin:/bin QT_QPA_PLATFORM=offscreen qgis_process.bin run native:extractvertices \
        --INPUT='$work/$kind.shp' --OUTPUT='$work/qgis.shp'")
    fi
    output="$work/ours.$format"
    if [ $format = gdb ]; then output+="/vertices"; fi
    echo "$kind, 4,000,000 vertices into $format"
    "$here/in_turn.py" --runs "$runs" \
      "tessarine=rm -rf '$work'/ours.* && '$build/bin/tessarine' vertices '$work/$kind.shp' -f number -o '$output' -q" \
      "${peers[@]}"
  done
done
