#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-2.0-or-later
# `tessarine calculate` in place beside what a user would take instead, and beside two floors: a plain reading and
# rewriting of whole features, and a reading that measures by the geodesy core alone and adds the columns.
# calculate_vs_peers.sh BUILD_FOLDER WORK_FOLDER [RUNS]
#
# Every run gets a fresh copy of the data, made before the clock starts. SpatiaLite and PostGIS measure in their own
# tables, loaded and given their columns before. QGIS can't write its measures in place: it writes a new file. Each peer
# measures what it can of the same list.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1 work=$(realpath "$2") runs=${3:-3}
[ -f "$work/streets.shp" ] || "$build/bin/generate" "$work"
[ -f "$work/streets.gpkg" ] || "$build/bin/generate" "$work" GPKG gpkg

has() { command -v "$1" >/dev/null; }
has qgis_process.bin || echo "QGIS is absent: install qgis to compare with it."
has spatialite || echo "SpatiaLite is absent: install spatialite-bin to compare with it."

# --- A PostgreSQL server of our own, on a socket in a folder of our own -------------------------------------------
server=
as_postgres() { if [ "$(id -u)" = 0 ]; then runuser -u postgres -- "$@"; else "$@"; fi; }
stop_server() {
  [ -n "$server" ] || return 0
  as_postgres "$pg_bin/pg_ctl" -m fast -D "$server/data" stop >/dev/null || true
  rm -rf "$server"
}
pg_bin=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | tail -1)
if [ -n "$pg_bin" ] && ls /usr/share/postgresql/*/extension/postgis.control >/dev/null 2>&1; then
  server=$(mktemp -d -t calculate-bench.XXXXXX)
  trap stop_server EXIT
  if [ "$(id -u)" = 0 ]; then chown postgres "$server"; fi
  as_postgres "$pg_bin/initdb" -D "$server/data" -A trust -U postgres >/dev/null
  as_postgres "$pg_bin/pg_ctl" -w -D "$server/data" -l "$server/log" -o "-k $server -c listen_addresses=" start >/dev/null
  psql="psql -q -v ON_ERROR_STOP=1 -h $server -U postgres"
  $psql -c "CREATE EXTENSION postgis"
  for kind in lines polygons; do
    ogr2ogr -f PostgreSQL "PG:host=$server user=postgres" "$work/$kind.shp" -nln "$kind" -lco GEOMETRY_NAME=geom
  done
else
  echo "PostGIS is absent: install postgresql and its postgis package to compare with it."
fi
if has spatialite; then
  for kind in lines polygons; do
    [ -f "$work/$kind.sqlite" ] ||
      ogr2ogr -f SQLite -dsco SPATIALITE=YES "$work/$kind.sqlite" "$work/$kind.shp" -lco GEOMETRY_NAME=geom -nln "$kind"
  done
fi

# --- One table of results -------------------------------------------------------------------------------------------
# fresh KIND FORMAT: the shell command that makes the copy to work on.
fresh() {
  local parts=gpkg
  if [ "$2" = shp ]; then parts="shp shx dbf prj"; fi
  echo "rm -f '$work'/run.*; for e in $parts; do cp '$work/$1.'\$e '$work/run.'\$e; done"
}

# compare TITLE KIND ARITHMETIC QGIS_RUNS COLUMNS SPATIALITE_SET POSTGIS_SET -- MEASURES
compare() {
  local title=$1 kind=$2 arithmetic=$3 qgis=$4 columns=$5 spatialite_set=$6 postgis_set=$7 format name options column
  local -a commands
  shift 8
  options=$(printf " -m %q" "$@")
  for format in shp gpkg; do
    name="$work/run.$format"
    if [ "$format" = gpkg ]; then name+=":$kind"; fi
    commands=(
      "tessarine=$(fresh "$kind" $format) ;; '$build/bin/tessarine' calculate '$name' $options --yes -q"
      "read, add one column=$(fresh "$kind" $format) ;; '$build/bin/plain_attributes' '$work/run.$format' none"
      "read, measure, add=$(fresh "$kind" $format) ;; '$build/bin/plain_attributes' '$work/run.$format' $arithmetic"
      "rewrite whole features=$(fresh "$kind" $format) ;; '$build/bin/plain_rewrite' '$work/run.$format'"
    )
    if [ "$qgis" = yes ] && has qgis_process.bin; then
      commands+=("QGIS=rm -f '$work'/qgis.* ;; PATH=/usr/bin:/bin QT_QPA_PLATFORM=offscreen qgis_process.bin run \
        qgis:exportaddgeometrycolumns --INPUT='$work/$kind.$format' --CALC_METHOD=2 --OUTPUT='$work/qgis.$format'")
    fi
    if has spatialite; then
      local add=
      for column in $columns; do add+="ALTER TABLE $kind ADD COLUMN $column DOUBLE; "; done
      commands+=("SpatiaLite=cp '$work/$kind.sqlite' '$work/run.sqlite'; spatialite -silent '$work/run.sqlite' '$add' ;; \
        spatialite -silent '$work/run.sqlite' 'UPDATE $kind SET $spatialite_set'")
    fi
    if [ -n "$server" ]; then
      local create="DROP TABLE IF EXISTS run; CREATE TABLE run AS SELECT * FROM $kind; "
      for column in $columns; do create+="ALTER TABLE run ADD COLUMN $column double precision; "; done
      commands+=("PostGIS geography=$psql -c '$create' -c 'VACUUM ANALYZE run' ;; $psql -c 'UPDATE run SET $postgis_set'")
    fi
    echo
    echo "$title, $format: $*"
    "$here/in_turn.py" --runs "$runs" "${commands[@]}"
  done
}

compare "200,000 lines" lines lengths yes "a" \
  "a = ST_Length(geom, 1)" \
  "a = ST_Length(geom::geography)" -- "Spheroidal Length"
compare "200,000 lines" lines azimuths no "a b" \
  "a = ST_Azimuth(ST_StartPoint(geom), ST_EndPoint(geom)), b = ST_Azimuth(ST_EndPoint(geom), ST_StartPoint(geom))" \
  "a = ST_Azimuth(ST_StartPoint(geom)::geography, ST_EndPoint(geom)::geography), b = ST_Azimuth(ST_EndPoint(geom)::geography, ST_StartPoint(geom)::geography)" \
  -- "Start Azimuth" "End Azimuth"
compare "100,000 polygons" polygons polygons yes "a b c d" \
  "a = ST_Area(geom, 1), b = ST_X(ST_Centroid(geom)), c = ST_Y(ST_Centroid(geom)), d = ST_Perimeter(geom, 1)" \
  "a = ST_Area(geom::geography), b = ST_X(ST_Centroid(geom::geography)::geometry), c = ST_Y(ST_Centroid(geom::geography)::geometry), d = ST_Perimeter(geom::geography)" \
  -- "Sph. Area" "Sph. Centroid" "Perimeter Length"

# --- Memory at two numbers of records -------------------------------------------------------------------------------
echo
echo "Peak memory"
rm -f "$work"/few.*
ogr2ogr -limit 20000 "$work/few.shp" "$work/lines.shp"
ogr2ogr -limit 20000 "$work/few.gpkg" "$work/lines.gpkg" lines -nln lines
"$here/in_turn.py" --runs 1 \
  "20,000 lines, shp=$(fresh few shp) ;; '$build/bin/tessarine' calculate '$work/run.shp' -m 'Spheroidal Length' --yes -q" \
  "200,000 lines, shp=$(fresh lines shp) ;; '$build/bin/tessarine' calculate '$work/run.shp' -m 'Spheroidal Length' --yes -q" \
  "20,000 lines, gpkg=$(fresh few gpkg) ;; '$build/bin/tessarine' calculate '$work/run.gpkg:lines' -m 'Spheroidal Length' --yes -q" \
  "200,000 lines, gpkg=$(fresh lines gpkg) ;; '$build/bin/tessarine' calculate '$work/run.gpkg:lines' -m 'Spheroidal Length' --yes -q"
