#!/usr/bin/env bash
# `tessarine calculate` in place beside what a user would take instead, and beside a plain reading and rewriting.
# calculate_vs_peers.sh BUILD_FOLDER WORK_FOLDER [RUNS]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1 work=$2 runs=${3:-3}
[ -f "$work/streets.shp" ] || "$build/bin/generate" "$work"
[ -f "$work/streets.gpkg" ] || "$build/bin/generate" "$work" GPKG gpkg

# Every run gets a fresh copy; copying is not part of what is compared, so the peers pay for it too.
fresh() { echo "rm -f '$work'/run.* && for f in '$work/$1'.$2*; do cp \"\$f\" '$work/run.'\"\${f##*.}\"; done"; }
all() { echo "for f in '$work/$1'.shp '$work/$1'.shx '$work/$1'.dbf '$work/$1'.prj; do cp \"\$f\" '$work/run.'\"\${f##*.}\"; done"; }

for format in shp gpkg; do
  for kind in lines polygons; do
    if [ "$kind" = lines ]; then
      measures=(-m "Length" -m "Starting Azimuth" -m "Ending Azimuth")
      sql="UPDATE run SET value = ST_Length(geom, 1)"
    else
      measures=(-m "Sph. Area" -m "Sph. Centroid" -m "Perimeter Length")
      sql="UPDATE run SET value = ST_Area(geom, 1)"
    fi
    quoted=$(printf " %q" "${measures[@]}")
    if [ "$format" = shp ]; then copy="rm -f '$work'/run.* && $(all $kind)"; else copy=$(fresh $kind gpkg); fi
    name=$([ "$format" = gpkg ] && echo ":$kind" || true)
    peers=("plain rewrite=$copy && '$build/bin/plain_rewrite' '$work/run.$format'")
    if command -v qgis_process.bin >/dev/null; then
      peers+=("QGIS=$copy && PATH=/usr/bin:/bin QT_QPA_PLATFORM=offscreen qgis_process.bin run \
        qgis:exportaddgeometrycolumns --INPUT='$work/run.$format' --CALC_METHOD=2 --OUTPUT='$work/qgis.$format'" )
    fi
    if [ "$format" = gpkg ] && command -v spatialite >/dev/null; then
      peers+=("SpatiaLite=$copy && spatialite '$work/run.gpkg' \"SELECT EnableGpkgAmphibiousMode(); ${sql//run/$kind}\"")
    fi
    echo "$kind, $format: ${measures[*]}"
    "$here/in_turn.py" --runs "$runs" \
      "tessarine=$copy && '$build/bin/tessarine' calculate '$work/run.$format$name' $quoted --yes -q" "${peers[@]}"
  done
done
