<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: GPL-2.0-or-later -->
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Tessarine</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>Sch&amp;ließen</translation>
    </message>
    <message>
        <source>Manual</source>
        <translation>Handbuch</translation>
    </message>
    <message>
        <source>&amp;Manual</source>
        <translation>&amp;Handbuch</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>&amp;Exit</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Drucken</translation>
    </message>
    <message>
        <source>&amp;Copy to Clipboard</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Report</source>
        <translation>Bericht</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Meldung</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Select All Fields</source>
        <translation>Alle Felder wählen</translation>
    </message>
    <message>
        <source>Unselect All Fields</source>
        <translation>Kein Feld wählen</translation>
    </message>
    <message>
        <source>Browse for Output Folder...</source>
        <translation>Ordner für die Ausgabe suchen ...</translation>
    </message>
    <message>
        <source>Browse for Output Feature Class...</source>
        <translation>Ausgabe suchen ...</translation>
    </message>
    <message>
        <source>Unable to get selection...</source>
        <translation>Die Auswahl ist nicht zu lesen ...</translation>
    </message>
    <message>
        <source>Load</source>
        <translation>Laden</translation>
    </message>
    <message>
        <source>Meters</source>
        <translation>Meter</translation>
    </message>
    <message>
        <source>Input Parameters:</source>
        <translation>Eingabe:</translation>
    </message>
    <message>
        <source>Select &amp;Layer to Convert:</source>
        <translation>&amp;Layer wählen:</translation>
    </message>
    <message>
        <source>Select &amp;Fields to Include:</source>
        <translation>&amp;Felder wählen:</translation>
    </message>
    <message>
        <source>Output Feature &amp;Class:</source>
        <translation>&amp;Ausgabe:</translation>
    </message>
    <message>
        <source>Output &amp;Feature Class:</source>
        <translation>&amp;Ausgabe:</translation>
    </message>
    <message>
        <source>Convert All Records</source>
        <translation>Alle Datensätze</translation>
    </message>
    <message>
        <source>Convert Selected Records</source>
        <translation>Ausgewählte Datensätze</translation>
    </message>
    <message>
        <source>Convert All Records (n = %1)</source>
        <translation>Alle Datensätze (n = %1)</translation>
    </message>
    <message>
        <source>Convert Selected Records (n = %1)</source>
        <translation>Ausgewählte Datensätze (n = %1)</translation>
    </message>
    <message>
        <source>Combine All Records (n = %1)</source>
        <translation>Alle Datensätze (n = %1)</translation>
    </message>
    <message>
        <source>Combine Selected Records (n = %1)</source>
        <translation>Ausgewählte Datensätze (n = %1)</translation>
    </message>
    <message>
        <source>Combine All Records</source>
        <translation>Alle Datensätze</translation>
    </message>
    <message>
        <source>Combine Selected Records</source>
        <translation>Ausgewählte Datensätze</translation>
    </message>
    <message>
        <source>Calculate Geometry</source>
        <translation>Geometrie berechnen</translation>
    </message>
    <message>
        <source>Selected Feature Class and Characteristics</source>
        <translation>Gewählter Layer</translation>
    </message>
    <message>
        <source>Select &amp;Geometry:</source>
        <translation>&amp;Maße wählen:</translation>
    </message>
    <message>
        <source>Enter name for new &amp;field, or select existing field:</source>
        <translation>Name eines neuen &amp;Feldes oder vorhandenes Feld:</translation>
    </message>
    <message>
        <source>Spheroid Parameters:</source>
        <translation>Sphäroid:</translation>
    </message>
    <message>
        <source>Calculate All Records</source>
        <translation>Alle Datensätze</translation>
    </message>
    <message>
        <source>Only Selected Records</source>
        <translation>Nur ausgewählte Datensätze</translation>
    </message>
    <message>
        <source>Calculate All Records (n = %1)</source>
        <translation>Alle Datensätze (n = %1)</translation>
    </message>
    <message>
        <source>Selected Records (n = %1)</source>
        <translation>Ausgewählte Datensätze (n = %1)</translation>
    </message>
    <message>
        <source>&amp;Advanced</source>
        <translation>&amp;Erweitert</translation>
    </message>
    <message>
        <source>No Feature Layers</source>
        <translation>Keine Vektorlayer</translation>
    </message>
    <message>
        <source>%1 Feature Class:  %2 Coordinate System</source>
        <translation>%L1, %L2 Koordinaten</translation>
    </message>
    <message>
        <source>Geographic</source>
        <translation>geographische</translation>
    </message>
    <message>
        <source>Projected</source>
        <translation>projizierte</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>unbekannte</translation>
    </message>
    <message>
        <source>Spheroid: %1,  Maj.Rad. = %2m,  Min.Rad. = %3m</source>
        <translation>Sphäroid: %1,  gr. Halbachse = %L2 m,  kl. Halbachse = %L3 m</translation>
    </message>
    <message>
        <source>Spheroid Unknown</source>
        <translation>Sphäroid unbekannt</translation>
    </message>
    <message>
        <source>Advanced functions available only for Geographic Datasets:</source>
        <translation>Nur für geographische Daten:</translation>
    </message>
    <message>
        <source>Advanced functions irrelevant for Point feature classes:</source>
        <translation>Für Punkte ohne Bedeutung:</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>Fläche</translation>
    </message>
    <message>
        <source>Average Azimuth</source>
        <translation>Mittleres Azimut</translation>
    </message>
    <message>
        <source>Azimuth</source>
        <translation>Azimut</translation>
    </message>
    <message>
        <source>Centroid X-Coordinate</source>
        <translation>Schwerpunkt X</translation>
    </message>
    <message>
        <source>Centroid Y-Coordinate</source>
        <translation>Schwerpunkt Y</translation>
    </message>
    <message>
        <source>Centroid</source>
        <translation>Schwerpunkt</translation>
    </message>
    <message>
        <source>Coordinates</source>
        <translation>Koordinaten</translation>
    </message>
    <message>
        <source>Count of Sub-Polygons</source>
        <translation>Anzahl der Teilpolygone</translation>
    </message>
    <message>
        <source>Count of Sub-Polylines</source>
        <translation>Anzahl der Teillinien</translation>
    </message>
    <message>
        <source>End Azimuth</source>
        <translation>Azimut am Ende</translation>
    </message>
    <message>
        <source>End Point Latitude</source>
        <translation>Breite des Endpunkts</translation>
    </message>
    <message>
        <source>End Point Longitude</source>
        <translation>Länge des Endpunkts</translation>
    </message>
    <message>
        <source>End Point X-Coordinate</source>
        <translation>Endpunkt X</translation>
    </message>
    <message>
        <source>End Point Y-Coordinate</source>
        <translation>Endpunkt Y</translation>
    </message>
    <message>
        <source>Ending Point</source>
        <translation>Endpunkt</translation>
    </message>
    <message>
        <source>Latitude</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Longitude / Latitude</source>
        <translation>Länge / Breite</translation>
    </message>
    <message>
        <source>Longitude</source>
        <translation>Länge</translation>
    </message>
    <message>
        <source>Midpoint X-Coordinate</source>
        <translation>Mittelpunkt X</translation>
    </message>
    <message>
        <source>Midpoint Y-Coordinate</source>
        <translation>Mittelpunkt Y</translation>
    </message>
    <message>
        <source>Midpoint</source>
        <translation>Mittelpunkt</translation>
    </message>
    <message>
        <source>Multipoint</source>
        <translation>Multipunkte</translation>
    </message>
    <message>
        <source>Multipoints</source>
        <translation>Multipunkte</translation>
    </message>
    <message>
        <source>Number of Parts</source>
        <translation>Anzahl der Teile</translation>
    </message>
    <message>
        <source>Number of Points</source>
        <translation>Anzahl der Punkte</translation>
    </message>
    <message>
        <source>Number of Vertices</source>
        <translation>Anzahl der Stützpunkte</translation>
    </message>
    <message>
        <source>Parts</source>
        <translation>Teile</translation>
    </message>
    <message>
        <source>Perimeter Length</source>
        <translation>Umfang</translation>
    </message>
    <message>
        <source>Planimetric Area</source>
        <translation>Ebene Fläche</translation>
    </message>
    <message>
        <source>Planimetric Centroid X-Coordinate</source>
        <translation>Ebener Schwerpunkt X</translation>
    </message>
    <message>
        <source>Planimetric Centroid Y-Coordinate</source>
        <translation>Ebener Schwerpunkt Y</translation>
    </message>
    <message>
        <source>Planimetric Length</source>
        <translation>Ebene Länge</translation>
    </message>
    <message>
        <source>Point Count</source>
        <translation>Anzahl der Punkte</translation>
    </message>
    <message>
        <source>Plan. Area</source>
        <translation>Ebene Fläche</translation>
    </message>
    <message>
        <source>Plan. Centroid</source>
        <translation>Ebener Schwerpunkt</translation>
    </message>
    <message>
        <source>Plan. Length</source>
        <translation>Ebene Länge</translation>
    </message>
    <message>
        <source>Plan. Perimeter</source>
        <translation>Ebener Umfang</translation>
    </message>
    <message>
        <source>Sph. Area</source>
        <translation>Sphär. Fläche</translation>
    </message>
    <message>
        <source>Sph. Centroid</source>
        <translation>Sphär. Schwerpunkt</translation>
    </message>
    <message>
        <source>Sph. End Azimuth</source>
        <translation>Sphär. Azimut am Ende</translation>
    </message>
    <message>
        <source>Sph. Perimeter</source>
        <translation>Sphär. Umfang</translation>
    </message>
    <message>
        <source>Sph. Start Azimuth</source>
        <translation>Sphär. Azimut am Anfang</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation>Polygone</translation>
    </message>
    <message>
        <source>Polygons</source>
        <translation>Polygone</translation>
    </message>
    <message>
        <source>Polyline</source>
        <translation>Linien</translation>
    </message>
    <message>
        <source>Polylines</source>
        <translation>Linien</translation>
    </message>
    <message>
        <source>Projected Azimuth</source>
        <translation>Ebenes Azimut</translation>
    </message>
    <message>
        <source>Projected Midpoint X-Coordinate</source>
        <translation>Ebener Mittelpunkt X</translation>
    </message>
    <message>
        <source>Projected Midpoint Y-Coordinate</source>
        <translation>Ebener Mittelpunkt Y</translation>
    </message>
    <message>
        <source>Projected Perimeter Length</source>
        <translation>Ebener Umfang</translation>
    </message>
    <message>
        <source>Projected X-Coordinate</source>
        <translation>Projiziertes X</translation>
    </message>
    <message>
        <source>Projected Y-Coordinate</source>
        <translation>Projiziertes Y</translation>
    </message>
    <message>
        <source>Spherical Area</source>
        <translation>Sphärische Fläche</translation>
    </message>
    <message>
        <source>Spherical Centroid X-Coordinate</source>
        <translation>Sphärischer Schwerpunkt X</translation>
    </message>
    <message>
        <source>Spherical Centroid Y-Coordinate</source>
        <translation>Sphärischer Schwerpunkt Y</translation>
    </message>
    <message>
        <source>Spheroidal Area</source>
        <translation>Fläche auf dem Sphäroid</translation>
    </message>
    <message>
        <source>Spheroidal End Azimuth</source>
        <translation>Azimut am Ende (Sphäroid)</translation>
    </message>
    <message>
        <source>Spheroidal Length</source>
        <translation>Länge auf dem Sphäroid</translation>
    </message>
    <message>
        <source>Spheroidal Midpoint Latitude</source>
        <translation>Mittelpunkt: Breite (Sphäroid)</translation>
    </message>
    <message>
        <source>Spheroidal Midpoint Longitude</source>
        <translation>Mittelpunkt: Länge (Sphäroid)</translation>
    </message>
    <message>
        <source>Spheroidal Midpoint X-Coordinate</source>
        <translation>Mittelpunkt X (Sphäroid)</translation>
    </message>
    <message>
        <source>Spheroidal Midpoint Y-Coordinate</source>
        <translation>Mittelpunkt Y (Sphäroid)</translation>
    </message>
    <message>
        <source>Spheroidal Midpoint</source>
        <translation>Mittelpunkt (Sphäroid)</translation>
    </message>
    <message>
        <source>Spheroidal Perimeter Length</source>
        <translation>Umfang auf dem Sphäroid</translation>
    </message>
    <message>
        <source>Spheroidal Start Azimuth</source>
        <translation>Azimut am Anfang (Sphäroid)</translation>
    </message>
    <message>
        <source>Start Azimuth</source>
        <translation>Azimut am Anfang</translation>
    </message>
    <message>
        <source>Start Point Latitude</source>
        <translation>Breite des Anfangspunkts</translation>
    </message>
    <message>
        <source>Start Point Longitude</source>
        <translation>Länge des Anfangspunkts</translation>
    </message>
    <message>
        <source>Start Point X-Coordinate</source>
        <translation>Anfangspunkt X</translation>
    </message>
    <message>
        <source>Start Point Y-Coordinate</source>
        <translation>Anfangspunkt Y</translation>
    </message>
    <message>
        <source>Starting Point</source>
        <translation>Anfangspunkt</translation>
    </message>
    <message>
        <source>Vertices</source>
        <translation>Stützpunkte</translation>
    </message>
    <message>
        <source>X-Coordinate</source>
        <translation>X-Koordinate</translation>
    </message>
    <message>
        <source>Y-Coordinate</source>
        <translation>Y-Koordinate</translation>
    </message>
    <message>
        <source>This function will calculate a number of geometric attributes of points, multipoints, polygons and polylines and add them to your feature attribute table.  You may add the attributes to existing fields or create new fields.  Please refer to the manual for descriptions of the geometric measures.</source>
        <translation>Berechnet geometrische Eigenschaften von Punkten, Multipunkten, Polygonen und Linien und schreibt sie in die Attributtabelle, in vorhandene oder neue Felder. Das Handbuch beschreibt die Maße.</translation>
    </message>
    <message>
        <source>Important:</source>
        <translation>Wichtig:</translation>
    </message>
    <message>
        <source>This function will modify your feature class!  If you are concerned about this, please make a backup copy of your data before running this function.</source>
        <translation>Der Layer selbst wird geändert! Legen Sie vorher eine Kopie an, wenn das von Belang ist.</translation>
    </message>
    <message>
        <source>Build Polygons:</source>
        <translation>Polygone bilden:</translation>
    </message>
    <message>
        <source>Select Polyline &amp;Layer to Convert:</source>
        <translation>&amp;Linienlayer wählen:</translation>
    </message>
    <message>
        <source>Use All Polylines</source>
        <translation>Alle Linien</translation>
    </message>
    <message>
        <source>Selected Polylines</source>
        <translation>Ausgewählte Linien</translation>
    </message>
    <message>
        <source>Use All Polylines (n = %1)</source>
        <translation>Alle Linien (n = %1)</translation>
    </message>
    <message>
        <source>Selected Polylines (n = %1)</source>
        <translation>Ausgewählte Linien (n = %1)</translation>
    </message>
    <message>
        <source>Cluster &amp;Tolerance:</source>
        <translation>Fang&amp;toleranz:</translation>
    </message>
    <message>
        <source>Units:</source>
        <translation>Einheit:</translation>
    </message>
    <message>
        <source>Units: %1</source>
        <translation>Einheit: %L1</translation>
    </message>
    <message>
        <source>Units:  [No Polyline Layer Selected]</source>
        <translation>Einheit:  [kein Linienlayer gewählt]</translation>
    </message>
    <message>
        <source>Decimal Degrees</source>
        <translation>Dezimalgrad</translation>
    </message>
    <message>
        <source>Degrees</source>
        <translation>Grad</translation>
    </message>
    <message>
        <source>[Unknown]</source>
        <translation>[unbekannt]</translation>
    </message>
    <message>
        <source>Transfer Label Point Attributes</source>
        <translation>Attribute von Labelpunkten übernehmen</translation>
    </message>
    <message>
        <source>Label &amp;Point Attributes:</source>
        <translation>Layer der &amp;Punkte:</translation>
    </message>
    <message>
        <source>Select Label Point Layer</source>
        <translation>Layer der Labelpunkte wählen</translation>
    </message>
    <message>
        <source>Consider All Label Points</source>
        <translation>Alle Labelpunkte</translation>
    </message>
    <message>
        <source>Only Selected Points</source>
        <translation>Nur ausgewählte Punkte</translation>
    </message>
    <message>
        <source>Consider All Label Points (n = %1)</source>
        <translation>Alle Labelpunkte (n = %1)</translation>
    </message>
    <message>
        <source>Only Selected Points (n = %1)</source>
        <translation>Nur ausgewählte Punkte (n = %1)</translation>
    </message>
    <message>
        <source>All Label Points (n = %1)</source>
        <translation>Alle Labelpunkte (n = %1)</translation>
    </message>
    <message>
        <source>Selected Points (n = %1)</source>
        <translation>Ausgewählte Punkte (n = %1)</translation>
    </message>
    <message>
        <source>If multiple label points in polygon, choose:</source>
        <translation>Bei mehreren Punkten in einem Polygon gilt:</translation>
    </message>
    <message>
        <source>First Label Point</source>
        <translation>der erste Punkt</translation>
    </message>
    <message>
        <source>Point Closest to Polygon Centroid</source>
        <translation>der Punkt beim Schwerpunkt</translation>
    </message>
    <message>
        <source>Layer and Attribute &amp;Fields to Include:</source>
        <translation>&amp;Felder wählen:</translation>
    </message>
    <message>
        <source>Select Label Point Attribute Fields</source>
        <translation>Felder der Labelpunkte wählen</translation>
    </message>
    <message>
        <source>This function will build a polygon shapefile from a set of polylines by identifying the regions formed by intersecting polylines.  Attribute fields for the polygons will include a unique ID field and an area field.  No attributes from the polylines themselves will be transferred to the polygons.  Optionally, attributes from a point feature class may be transferred to the polygons.</source>
        <translation>Bildet Polygone aus den Gebieten, die Linien umschließen. Die Polygone bekommen eine Kennung und ihre Fläche; Attribute der Linien gehen nicht mit. Auf Wunsch werden Attribute von Punkten übernommen.</translation>
    </message>
    <message>
        <source>Output Polygon Feature &amp;Class:</source>
        <translation>&amp;Ausgabe:</translation>
    </message>
    <message>
        <source>Advanced Geometry Parameters:</source>
        <translation>Sphäroid und Breiten:</translation>
    </message>
    <message>
        <source>&amp;Custom Spheroids [from ..\install_dir\spheroid.dat:]</source>
        <translation>&amp;Eigene Sphäroide [aus ..\install_dir\spheroid.dat:]</translation>
    </message>
    <message>
        <source>ESRI &amp;Planetary Spheroids:</source>
        <translation>&amp;Planeten und Monde:</translation>
    </message>
    <message>
        <source>ESRI &amp;Earth Spheroids (Common):</source>
        <translation>E&amp;rde (gebräuchliche):</translation>
    </message>
    <message>
        <source>Semi-M&amp;ajor (Equatorial) Radius =</source>
        <translation>Gr&amp;oße Halbachse (Äquator) =</translation>
    </message>
    <message>
        <source>Semi-M&amp;inor (Polar) Radius =</source>
        <translation>Kle&amp;ine Halbachse (Pol) =</translation>
    </message>
    <message>
        <source>Load '%1' Parameters</source>
        <translation>Werte von '%1' laden</translation>
    </message>
    <message>
        <source>Current Spheroid = %1</source>
        <translation>Sphäroid = %L1</translation>
    </message>
    <message>
        <source>&lt;-- CUSTOM --&gt;</source>
        <translation>&lt;-- EIGENES --&gt;</translation>
    </message>
    <message>
        <source>Custom Spheroid</source>
        <translation>eigenes Sphäroid</translation>
    </message>
    <message>
        <source>Latitudes of the Data:</source>
        <translation>Breiten der Daten:</translation>
    </message>
    <message>
        <source>Data are in Planeto [Geo] &amp;Graphic Coordinates</source>
        <translation>Die Breiten sind planeto&amp;graphisch</translation>
    </message>
    <message>
        <source>Data are in Planeto [Geo] Ce&amp;ntric Coordinates</source>
        <translation>Die Breiten sind planeto&amp;zentrisch</translation>
    </message>
    <message>
        <source>Planetocentric vs. Planetographic:</source>
        <translation>Planetozentrisch und planetographisch:</translation>
    </message>
    <message>
        <source>Wrap to Boundary:</source>
        <translation>Auf eine Grenze umbrechen:</translation>
    </message>
    <message>
        <source>Planetographic to Planetocentric:</source>
        <translation>Planetographisch zu planetozentrisch:</translation>
    </message>
    <message>
        <source>Planetocentric to Planetographic:</source>
        <translation>Planetozentrisch zu planetographisch:</translation>
    </message>
    <message>
        <source>Wrap Longitude around -180° to 180° Range</source>
        <translation>Längen von -180° bis 180°</translation>
    </message>
    <message>
        <source>Wrap Longitude around 0° to 360° Range</source>
        <translation>Längen von 0° bis 360°</translation>
    </message>
    <message>
        <source>Longitudinal Shift =</source>
        <translation>Verschiebung =</translation>
    </message>
    <message>
        <source>Custom Boundary</source>
        <translation>Eigene Grenzen</translation>
    </message>
    <message>
        <source>Western Boundary</source>
        <translation>Westgrenze</translation>
    </message>
    <message>
        <source>Eastern Boundary</source>
        <translation>Ostgrenze</translation>
    </message>
    <message>
        <source>Northern Boundary</source>
        <translation>Nordgrenze</translation>
    </message>
    <message>
        <source>Southern Boundary</source>
        <translation>Südgrenze</translation>
    </message>
    <message>
        <source>Do not wrap Longitude values</source>
        <translation>Längen nicht umbrechen</translation>
    </message>
    <message>
        <source>Steps of more than 180° mean the short &amp;way over the edge</source>
        <translation>Schritte über 180° meinen den kurzen &amp;Weg über den Rand</translation>
    </message>
    <message>
        <source>Rings round the globe &amp;hold</source>
        <translation>Ringe um die Erde &amp;halten</translation>
    </message>
    <message>
        <source>Load Predefined Spheroid</source>
        <translation>Sphäroid laden</translation>
    </message>
    <message>
        <source>Select your feature layer to convert from the list below.  If any features extend past the selected boundary, this tool will clip that feature at the boundary and wrap the clipped portion to the other side. All clipped portions of a feature will be maintained in a single record.  NOTE: Only geographically-projected feature layers listed...</source>
        <translation>Wählen Sie den Layer aus der Liste. Was über die Grenze hinausragt, wird dort abgeschnitten und auf die andere Seite gebracht; alle Teile eines Objekts bleiben ein Datensatz. Nur Layer in Länge und Breite sind in der Liste.</translation>
    </message>
    <message>
        <source>Select your feature layer to convert from the list below.  If the default spheroid equatorial and polar radii are incorrect, you may enter the correct values or load predefined values.  You also have the option to apply a longitudinal shift to your output.  NOTE: Only geographically-projected feature layers listed...</source>
        <translation>Wählen Sie den Layer aus der Liste. Sind die Halbachsen nicht die richtigen, geben Sie andere ein oder laden Sie ein Sphäroid. Auf Wunsch werden die Längen verschoben. Nur Layer in Länge und Breite sind in der Liste.</translation>
    </message>
    <message>
        <source>Create Shapefile:</source>
        <translation>Shapefile anlegen:</translation>
    </message>
    <message>
        <source>Create empty shapefile</source>
        <translation>Leeres Shapefile anlegen</translation>
    </message>
    <message>
        <source>Point Shapefile</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>Polyline Shapefile</source>
        <translation>Linien</translation>
    </message>
    <message>
        <source>Polygon Shapefile</source>
        <translation>Polygone</translation>
    </message>
    <message>
        <source>Convert graphics to feature class:</source>
        <translation>Grafiken umwandeln:</translation>
    </message>
    <message>
        <source>Only convert selected graphics</source>
        <translation>Nur ausgewählte Grafiken</translation>
    </message>
    <message>
        <source>Set Spatial Reference</source>
        <translation>Bezugssystem wählen</translation>
    </message>
    <message>
        <source>Feature Class Spatial Reference =</source>
        <translation>Bezugssystem =</translation>
    </message>
    <message>
        <source>Spatial Reference = %1</source>
        <translation>Bezugssystem = %L1</translation>
    </message>
    <message>
        <source>&lt;-- No Spatial Reference Set --&gt;</source>
        <translation>&lt;-- keines gewählt --&gt;</translation>
    </message>
    <message>
        <source>&amp;Output Feature Class or Shapefile:</source>
        <translation>&amp;Ausgabe:</translation>
    </message>
    <message>
        <source>Name Graphic Elements:</source>
        <translation>Grafiken benennen:</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Name All Graphics</source>
        <translation>Alle Grafiken</translation>
    </message>
    <message>
        <source>Name Selected Graphics</source>
        <translation>Ausgewählte Grafiken</translation>
    </message>
    <message>
        <source>Name All Graphics (n = %1)</source>
        <translation>Alle Grafiken (n = %1)</translation>
    </message>
    <message>
        <source>Name Selected Graphics (n = %1)</source>
        <translation>Ausgewählte Grafiken (n = %1)</translation>
    </message>
    <message>
        <source>Select Graphic Elements:</source>
        <translation>Grafiken auswählen:</translation>
    </message>
    <message>
        <source>Select graphic elements by type:</source>
        <translation>Nach der Art auswählen:</translation>
    </message>
    <message>
        <source>Select graphic elements by name:</source>
        <translation>Nach dem Namen auswählen:</translation>
    </message>
    <message>
        <source>Select Name from &amp;List:</source>
        <translation>Namen aus der &amp;Liste:</translation>
    </message>
    <message>
        <source>Type &amp;Name:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>(can include wildcards * and &amp;&amp;)</source>
        <translation>(mit Platzhaltern * und &amp;&amp;)</translation>
    </message>
    <message>
        <source>Points [%1]</source>
        <translation>Punkte [%1]</translation>
    </message>
    <message>
        <source>Lines [%1]</source>
        <translation>Linien [%1]</translation>
    </message>
    <message>
        <source>Polygons [%1]</source>
        <translation>Polygone [%1]</translation>
    </message>
    <message>
        <source>Rectangles [%1]</source>
        <translation>Rechtecke [%1]</translation>
    </message>
    <message>
        <source>Ellipses [%1]</source>
        <translation>Ellipsen [%1]</translation>
    </message>
    <message>
        <source>Circles [%1]</source>
        <translation>Kreise [%1]</translation>
    </message>
    <message>
        <source>Text [%1]</source>
        <translation>Texte [%1]</translation>
    </message>
    <message>
        <source>Pictures [%1]</source>
        <translation>Bilder [%1]</translation>
    </message>
    <message>
        <source>Data Graphs [%1]</source>
        <translation>Diagramme [%1]</translation>
    </message>
    <message>
        <source>Group Elements [%1]</source>
        <translation>Gruppen [%1]</translation>
    </message>
    <message>
        <source>Frames [%1]</source>
        <translation>Rahmen [%1]</translation>
    </message>
    <message>
        <source>Current Status:</source>
        <translation>Stand:</translation>
    </message>
    <message>
        <source>Close When Finished...</source>
        <translation>Am Ende schließen</translation>
    </message>
    <message>
        <source>Show Details</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Began Job: %1</source>
        <translation>Beginn: %L1</translation>
    </message>
    <message>
        <source>Estimated time remaining: ---:---:---</source>
        <translation>Noch etwa: ---:---:---</translation>
    </message>
    <message>
        <source>Estimated time remaining:  %1</source>
        <translation>Noch etwa:  %1</translation>
    </message>
    <message>
        <source>Estimated completion time: -----------</source>
        <translation>Ende etwa: -----------</translation>
    </message>
    <message>
        <source>Estimated completion time: %1</source>
        <translation>Ende etwa: %L1</translation>
    </message>
    <message>
        <source>Performing Calculations...%1 of %2...</source>
        <translation>Berechnung ... %L1 von %L2 ...</translation>
    </message>
    <message>
        <source>Performing Calculations...</source>
        <translation>Berechnung ...</translation>
    </message>
    <message>
        <source>Calculating %1 Attributes...</source>
        <translation>Maße werden berechnet: %L1 ...</translation>
    </message>
    <message>
        <source>Calculating Centroids...</source>
        <translation>Schwerpunkte werden berechnet ...</translation>
    </message>
    <message>
        <source>Calculating Spherical Centroids...</source>
        <translation>Sphärische Schwerpunkte werden berechnet ...</translation>
    </message>
    <message>
        <source>Extracting Vertices...</source>
        <translation>Stützpunkte werden gelesen ...</translation>
    </message>
    <message>
        <source>Converting Polygons to Polylines...</source>
        <translation>Polygone werden zu Linien ...</translation>
    </message>
    <message>
        <source>Converting Polylines to Polygons...</source>
        <translation>Linien werden zu Polygonen ...</translation>
    </message>
    <message>
        <source>Splitting Multipart Features...</source>
        <translation>Objekte werden geteilt ...</translation>
    </message>
    <message>
        <source>About Tools for Tessarine Tools:</source>
        <translation>Über Tessarine Tools:</translation>
    </message>
    <message>
        <source>Version %1</source>
        <translation>Version %1</translation>
    </message>
    <message>
        <source>Halvorn</source>
        <translation>Halvorn</translation>
    </message>
    <message>
        <source>halvorn.example/tessarine</source>
        <translation>halvorn.example/tessarine</translation>
    </message>
    <message>
        <source>tools@halvorn.example</source>
        <translation>tools@halvorn.example</translation>
    </message>
    <message>
        <source>https://halvorn.example/tessarine</source>
        <translation>https://halvorn.example/tessarine</translation>
    </message>
    <message>
        <source>mailto:tools@halvorn.example</source>
        <translation>mailto:tools@halvorn.example</translation>
    </message>
    <message>
        <source>&amp;System Info...</source>
        <translation>&amp;Systeminfo ...</translation>
    </message>
    <message>
        <source>About Tools for Tessarine Tools</source>
        <translation>Über Tessarine Tools</translation>
    </message>
    <message>
        <source>This extension offers tools for the geometric attributes of vector features, and for selecting and naming graphic elements.</source>
        <translation>Diese Erweiterung bietet Werkzeuge für geometrische Eigenschaften von Vektordaten und zum Auswählen und Benennen von Grafiken.</translation>
    </message>
    <message>
        <source>It computes the true area and centroid of polygons on the sphere, which avoids the distortion of projections, and the true length of polylines on the spheroid by Vincenty's equations.</source>
        <translation>Sie berechnet die wahre Fläche und den Schwerpunkt von Polygonen auf der Kugel, ohne die Verzerrung von Projektionen, und die wahre Länge von Linien auf dem Sphäroid nach den Gleichungen von Vincenty.</translation>
    </message>
    <message>
        <source>It can also create a new shapefile, either empty or by converting graphics.</source>
        <translation>Sie legt auch neue Shapefiles an, leer oder aus Grafiken.</translation>
    </message>
    <message>
        <source>Enjoy!</source>
        <translation>Viel Freude damit!</translation>
    </message>
    <message>
        <source>The terms</source>
        <translation>Die Begriffe</translation>
    </message>
    <message>
        <source>Planetocentric</source>
        <translation>planetozentrisch</translation>
    </message>
    <message>
        <source>and</source>
        <translation>und</translation>
    </message>
    <message>
        <source>Planetographic</source>
        <translation>planetographisch</translation>
    </message>
    <message>
        <source>tell by which method latitude is defined on the spheroid.</source>
        <translation>sagen, wie die Breite auf dem Sphäroid gemeint ist.</translation>
    </message>
    <message>
        <source>Planetographic:</source>
        <translation>Planetographisch:</translation>
    </message>
    <message>
        <source>Planetocentric:</source>
        <translation>Planetozentrisch:</translation>
    </message>
    <message>
        <source>The latitude of a point is the angle between the plane of the equator and the line that stands at right angles on the surface of the spheroid there (the normal). This method gives Geographic (or Geodetic) coordinates.</source>
        <translation>Die Breite eines Punkts ist der Winkel zwischen der Ebene des Äquators und der Linie, die dort senkrecht auf dem Sphäroid steht (der Normalen). So entstehen geographische (geodätische) Koordinaten.</translation>
    </message>
    <message>
        <source>The latitude of a point is the angle between the plane of the equator and the line from the center of the spheroid to the point. This method gives Geocentric coordinates.</source>
        <translation>Die Breite eines Punkts ist der Winkel zwischen der Ebene des Äquators und der Linie vom Mittelpunkt des Sphäroids zum Punkt. So entstehen geozentrische Koordinaten.</translation>
    </message>
    <message>
        <source>The prefix "Planeto" stands in place of "Geo" where the body may be another than Earth. Most Earth datums are Planetographic, and most extra-terrestrial datums are Planetocentric.</source>
        <translation>"Planeto" steht für "Geo", wo es ein anderer Körper als die Erde sein kann. Die meisten Bezugssysteme der Erde sind planetographisch, die meisten anderer Himmelskörper planetozentrisch.</translation>
    </message>
    <message>
        <source>Longitudes are the same in both. Latitudes differ the more, the more the spheroid is flattened; on a true sphere there is no difference at all.</source>
        <translation>Die Längen sind in beiden gleich. Die Breiten unterscheiden sich um so mehr, je flacher das Sphäroid ist; auf einer Kugel gar nicht.</translation>
    </message>
    <message>
        <source>Please refer to the manual for illustrations of these concepts.</source>
        <translation>Das Handbuch erklärt es genauer.</translation>
    </message>
    <message>
        <source>New &amp;Folder</source>
        <translation>Neuer &amp;Ordner</translation>
    </message>
    <message>
        <source>New &amp;Geodatabase</source>
        <translation>Neue &amp;Geodatabase</translation>
    </message>
    <message>
        <source>New Geo&amp;Package</source>
        <translation>Neues Geo&amp;Package</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Neuer Ordner</translation>
    </message>
    <message>
        <source>New Geodatabase</source>
        <translation>Neue Geodatabase</translation>
    </message>
    <message>
        <source>New GeoPackage</source>
        <translation>Neues GeoPackage</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>&amp;Kind:</source>
        <translation>A&amp;rt:</translation>
    </message>
    <message>
        <source>&amp;Look in:</source>
        <translation>S&amp;uchen in:</translation>
    </message>
    <message>
        <source>Pl&amp;aces:</source>
        <translation>Ort&amp;e:</translation>
    </message>
    <message>
        <source>&amp;Contents:</source>
        <translation>&amp;Inhalt:</translation>
    </message>
    <message>
        <source>Show of &amp;type:</source>
        <translation>&amp;Zeigen:</translation>
    </message>
    <message>
        <source>Up one level</source>
        <translation>Eine Ebene höher</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>Ö&amp;ffnen</translation>
    </message>
    <message>
        <source>Enter</source>
        <translation>Übernehmen</translation>
    </message>
    <message>
        <source>Layer &amp;name:</source>
        <translation>&amp;Name des Layers:</translation>
    </message>
    <message>
        <source>Feature classes and shapefiles</source>
        <translation>Featureklassen und Shapefiles</translation>
    </message>
    <message>
        <source>Tables</source>
        <translation>Tabellen</translation>
    </message>
    <message>
        <source>Text files (*.txt, *.csv, *.dat)</source>
        <translation>Textdateien (*.txt, *.csv, *.dat)</translation>
    </message>
    <message>
        <source>Spatial Reference</source>
        <translation>Bezugssystem</translation>
    </message>
    <message>
        <source>&amp;Search by name or code, or enter a definition:</source>
        <translation>Name oder Code &amp;suchen, oder eine Definition eingeben:</translation>
    </message>
    <message>
        <source>&amp;References:</source>
        <translation>&amp;Bezugssysteme:</translation>
    </message>
    <message>
        <source>No reference is chosen.</source>
        <translation>Es ist kein Bezugssystem gewählt.</translation>
    </message>
    <message>
        <source>The manual isn't installed. It should lie here:</source>
        <translation>Das Handbuch ist nicht installiert. Es müsste hier liegen:</translation>
    </message>
    <message>
        <source>Tessarine Tools</source>
        <translation>Tessarine Tools</translation>
    </message>
    <message>
        <source>&amp;Tessarine Tools</source>
        <translation>&amp;Tessarine Tools</translation>
    </message>
    <message>
        <source>Tools for Features and Shapes</source>
        <translation>Werkzeuge für Objekte</translation>
    </message>
    <message>
        <source>OCentric/OGraphic Geodesic Tools</source>
        <translation>Werkzeuge für Länge und Breite</translation>
    </message>
    <message>
        <source>Tools for Graphics</source>
        <translation>Werkzeuge für Grafiken</translation>
    </message>
    <message>
        <source>C&amp;alculate Geometry</source>
        <translation>Geometrie be&amp;rechnen</translation>
    </message>
    <message>
        <source>Calculate geometric attributes of data, including spherical area and spheroidal length...</source>
        <translation>Berechnet Maße der Objekte, auch Flächen auf der Kugel und Längen auf dem Sphäroid</translation>
    </message>
    <message>
        <source>Convert Polygons to La&amp;bel Points</source>
        <translation>Polygone zu La&amp;belpunkten</translation>
    </message>
    <message>
        <source>Polygons to Label Points</source>
        <translation>Polygone zu Labelpunkten</translation>
    </message>
    <message>
        <source>Extract label points within polygons...</source>
        <translation>Ein Punkt in jedem Polygon</translation>
    </message>
    <message>
        <source>Convert Shapes to &amp;Centroids</source>
        <translation>Objekte zu S&amp;chwerpunkten</translation>
    </message>
    <message>
        <source>Shapes to Centroids</source>
        <translation>Objekte zu Schwerpunkten</translation>
    </message>
    <message>
        <source>Identify centroids of Polygons and Polylines...</source>
        <translation>Schwerpunkte von Polygonen und Linien</translation>
    </message>
    <message>
        <source>Convert Features to &amp;Spherical Centroids</source>
        <translation>Objekte zu &amp;sphärischen Schwerpunkten</translation>
    </message>
    <message>
        <source>Features to Spherical Centroids</source>
        <translation>Objekte zu sphärischen Schwerpunkten</translation>
    </message>
    <message>
        <source>Calculate centroid of feature draped over sphere...</source>
        <translation>Schwerpunkte auf der Kugel</translation>
    </message>
    <message>
        <source>Convert Shapes to &amp;Vertices</source>
        <translation>Objekte zu Stü&amp;tzpunkten</translation>
    </message>
    <message>
        <source>Shapes to Vertices</source>
        <translation>Objekte zu Stützpunkten</translation>
    </message>
    <message>
        <source>Convert Polylines and Polygons to Vertex Point shapefiles...</source>
        <translation>Ein Punkt für jeden Stützpunkt</translation>
    </message>
    <message>
        <source>Convert &amp;Polylines to Polygons</source>
        <translation>&amp;Linien zu Polygonen</translation>
    </message>
    <message>
        <source>Polylines to Polygons</source>
        <translation>Linien zu Polygonen</translation>
    </message>
    <message>
        <source>Convert Polylines to Polygons...</source>
        <translation>Linien zu Polygonen schließen</translation>
    </message>
    <message>
        <source>Convert Polygons to Poly&amp;lines</source>
        <translation>&amp;Polygone zu Linien</translation>
    </message>
    <message>
        <source>Polygons to Polylines</source>
        <translation>Polygone zu Linien</translation>
    </message>
    <message>
        <source>Convert Polygons to Polylines...</source>
        <translation>Grenzen von Polygonen als Linien</translation>
    </message>
    <message>
        <source>Buil&amp;d Polygons from Polylines</source>
        <translation>Polygone aus Linien bil&amp;den</translation>
    </message>
    <message>
        <source>Similar to ArcInfo Build</source>
        <translation>Gebiete zwischen Linien</translation>
    </message>
    <message>
        <source>Build polygons based on the regions bounded by polylines...</source>
        <translation>Polygone der Gebiete, die Linien umschließen</translation>
    </message>
    <message>
        <source>Split &amp;Multipart Features</source>
        <translation>&amp;Mehrteilige Objekte teilen</translation>
    </message>
    <message>
        <source>Split Multipart Features</source>
        <translation>Mehrteilige Objekte teilen</translation>
    </message>
    <message>
        <source>Split multipart features into single objects...</source>
        <translation>Ein Objekt für jeden Teil</translation>
    </message>
    <message>
        <source>Combine &amp;Features</source>
        <translation>Objekte &amp;vereinen</translation>
    </message>
    <message>
        <source>Combine Features</source>
        <translation>Objekte vereinen</translation>
    </message>
    <message>
        <source>Combine multiple features into a single multipart object...</source>
        <translation>Ein Objekt aus allen</translation>
    </message>
    <message>
        <source>O&amp;Graphic to OCentric</source>
        <translation>Planeto&amp;graphisch zu planetozentrisch</translation>
    </message>
    <message>
        <source>OGraphic to OCentric</source>
        <translation>Planetographisch zu planetozentrisch</translation>
    </message>
    <message>
        <source>Convert a Planetographic (Geographic) Feature Class to a Planetocentric (Geocentric) Feature Class...</source>
        <translation>Planetographische Breiten zu planetozentrischen</translation>
    </message>
    <message>
        <source>O&amp;Centric to OGraphic</source>
        <translation>Planeto&amp;zentrisch zu planetographisch</translation>
    </message>
    <message>
        <source>OCentric to OGraphic</source>
        <translation>Planetozentrisch zu planetographisch</translation>
    </message>
    <message>
        <source>Convert a Planetocentric (Geocentric) Feature Class to a Planetographic (Geographic) Feature Class...</source>
        <translation>Planetozentrische Breiten zu planetographischen</translation>
    </message>
    <message>
        <source>&amp;Wrap Boundary</source>
        <translation>Auf eine Grenze &amp;umbrechen</translation>
    </message>
    <message>
        <source>Wrap to Boundary</source>
        <translation>Auf eine Grenze umbrechen</translation>
    </message>
    <message>
        <source>Wrap Boundary</source>
        <translation>Auf eine Grenze umbrechen</translation>
    </message>
    <message>
        <source>Wrap a feature class around a particular range of longitude and latitude values...</source>
        <translation>Bringt Objekte in einen Bereich von Länge und Breite</translation>
    </message>
    <message>
        <source>&amp;Graphic Elements to Shapes</source>
        <translation>&amp;Grafiken zu Objekten</translation>
    </message>
    <message>
        <source>Create New Shapefile</source>
        <translation>Shapefile anlegen</translation>
    </message>
    <message>
        <source>Create new shapefile, either empty or by converting graphics...</source>
        <translation>Legt ein Shapefile an, leer oder aus Grafiken</translation>
    </message>
    <message>
        <source>Select Graphic Elements by &amp;Type</source>
        <translation>Grafiken nach der A&amp;rt auswählen</translation>
    </message>
    <message>
        <source>Select Graphic Elements by Type</source>
        <translation>Grafiken nach der Art auswählen</translation>
    </message>
    <message>
        <source>Select Graphics by Type or Name...</source>
        <translation>Wählt Grafiken nach Art oder Namen aus</translation>
    </message>
    <message>
        <source>Select All Graphic &amp;Elements</source>
        <translation>&amp;Alle Grafiken auswählen</translation>
    </message>
    <message>
        <source>Select All Graphic Elements</source>
        <translation>Alle Grafiken auswählen</translation>
    </message>
    <message>
        <source>Select All Graphic Elements...</source>
        <translation>Wählt alle Grafiken aus</translation>
    </message>
    <message>
        <source>&amp;Unselect All Graphic Elements</source>
        <translation>A&amp;uswahl der Grafiken aufheben</translation>
    </message>
    <message>
        <source>Unselect All Graphic Elements</source>
        <translation>Auswahl der Grafiken aufheben</translation>
    </message>
    <message>
        <source>Unselect All Graphic Elements...</source>
        <translation>Hebt die Auswahl der Grafiken auf</translation>
    </message>
    <message>
        <source>&amp;Flip Graphic Element Selection</source>
        <translation>Aus&amp;wahl der Grafiken umkehren</translation>
    </message>
    <message>
        <source>Flip Graphic Element Selection</source>
        <translation>Auswahl der Grafiken umkehren</translation>
    </message>
    <message>
        <source>Flip Graphic Element Selection...</source>
        <translation>Kehrt die Auswahl der Grafiken um</translation>
    </message>
    <message>
        <source>&amp;Zoom to Selected Graphic Elements</source>
        <translation>Auf ausgewählte Grafiken &amp;zoomen</translation>
    </message>
    <message>
        <source>Zoom to Selected Graphic Elements</source>
        <translation>Auf ausgewählte Grafiken zoomen</translation>
    </message>
    <message>
        <source>Zoom to Selected Graphic Elements...</source>
        <translation>Zeigt die ausgewählten Grafiken</translation>
    </message>
    <message>
        <source>&amp;Name Graphic Elements</source>
        <translation>Grafiken be&amp;nennen</translation>
    </message>
    <message>
        <source>Name Graphic Elements</source>
        <translation>Grafiken benennen</translation>
    </message>
    <message>
        <source>Name Graphic Elements...</source>
        <translation>Gibt Grafiken Namen</translation>
    </message>
    <message>
        <source>About Tools for Tessarine Tools, and Manual</source>
        <translation>Über Tessarine Tools, und das Handbuch</translation>
    </message>
    <message>
        <source>Select Annotation Items</source>
        <translation>Grafiken auswählen</translation>
    </message>
    <message>
        <source>Select annotation items with a click or a rectangle; with Shift, in addition to those that are selected</source>
        <translation>Wählt Grafiken mit einem Klick oder einem Rechteck aus; mit Umschalt zusätzlich zu den ausgewählten</translation>
    </message>
    <message>
        <source>A run from the toolbox is at work: wait for its end, or stop it.</source>
        <translation>Ein Lauf aus der Werkzeugkiste ist im Gang: warten Sie sein Ende ab oder halten Sie ihn an.</translation>
    </message>
    <message>
        <source>Shapes to Vertices:</source>
        <translation>Objekte zu Stützpunkten:</translation>
    </message>
    <message>
        <source>Shapes to Centroids:</source>
        <translation>Objekte zu Schwerpunkten:</translation>
    </message>
    <message>
        <source>Shapes to Spherical Centroids:</source>
        <translation>Objekte zu sphärischen Schwerpunkten:</translation>
    </message>
    <message>
        <source>Polygons to Label Points:</source>
        <translation>Polygone zu Labelpunkten:</translation>
    </message>
    <message>
        <source>Polylines to Polygons:</source>
        <translation>Linien zu Polygonen:</translation>
    </message>
    <message>
        <source>Polygons to Polylines:</source>
        <translation>Polygone zu Linien:</translation>
    </message>
    <message>
        <source>Split Multipart Features:</source>
        <translation>Mehrteilige Objekte teilen:</translation>
    </message>
    <message>
        <source>Combine Features:</source>
        <translation>Objekte vereinen:</translation>
    </message>
    <message>
        <source>This function will generate a shapefile of points that represent either the planimetric center of mass (centroid) of polygons or multipoints, or the midpoint of polylines.  The new point shapefile will contain fields for X- and Y-coordinates in the projection of the original feature class.  You may transfer any of the original feature attribute data to the centroid shapefile by selecting the respective attribute fields.</source>
        <translation>Erzeugt Punkte: den ebenen Schwerpunkt von Polygonen und Multipunkten oder die Mitte von Linien. Die Punkte bekommen Felder für X und Y im Bezugssystem des Layers. Gewählte Felder des Layers gehen mit.</translation>
    </message>
    <message>
        <source>This function will combine all specified features into a single geometry.  The new geometry will be of the same type as the original geometry, with the exception of Points which will be combined into a Multipoint object.  Overlapping features will be dissolved into each other. You may transfer the original feature attribute data of the first original feature into the new feature shapefile by selecting the respective attribute fields.</source>
        <translation>Vereint alle Objekte zu einem von derselben Art; Punkte werden zu einem Multipunkt. Was sich überdeckt, verschmilzt. Gewählte Felder des ersten Objekts gehen mit.</translation>
    </message>
    <message>
        <source>This function will generate a shapefile of points that represent the label points within each polygon. The new point shapefile will contain fields for X- and Y-coordinates in the projection of the original feature class.  You may transfer any of the original polygon attribute data to the label point shapefile by selecting the respective attribute fields.</source>
        <translation>Erzeugt in jedem Polygon einen Punkt. Die Punkte bekommen Felder für X und Y im Bezugssystem des Layers. Gewählte Felder des Layers gehen mit.</translation>
    </message>
    <message>
        <source>This function will generate a shapefile of points that represent the spherical center of mass (centroid) of polygons (assuming a sphere containing the same volume as the data spatial reference spheroid) or spheroidal centerpoint of polylines (see manual for details).  For polygons and multipoints, the new point shapefile will contain fields for latitude and longitude coordinates in the geographic datum of the original feature class projection (i.e. polygons projected into UTM NAD27 coordinates will produce geographic centroids based on the NAD27 datum, while polygons projected into UTM NAD83 coordinates will produce geographic centroids based on the NAD83 datum).  You may transfer any of the original feature attribute data to the centroid shapefile by selecting the respective attribute fields.</source>
        <translation>Erzeugt Punkte: den Schwerpunkt von Polygonen auf einer Kugel vom Volumen des Sphäroids oder die Mitte von Linien auf dem Sphäroid (siehe Handbuch). Die Punkte bekommen Felder für Länge und Breite im Datum des Layers: aus UTM NAD27 werden Schwerpunkte in NAD27, aus UTM NAD83 solche in NAD83. Gewählte Felder des Layers gehen mit.</translation>
    </message>
    <message>
        <source>This function will split any multipart features found in the selected feature class.The new shapefile will contain fields describing the geometry of the new feature (X- and Y-Coordinates if points, Length if polylines, or Area if polygons) in the projection of the original feature class.  You may transfer any of the original feature attribute data to the polygon shapefile by selecting the respective attribute fields.</source>
        <translation>Teilt mehrteilige Objekte des gewählten Layers. Die neuen bekommen Felder für ihre Geometrie (X und Y von Punkten, Länge von Linien, Fläche von Polygonen) im Bezugssystem des Layers. Gewählte Felder des Layers gehen mit.</translation>
    </message>
    <message>
        <source>This function will convert polyline features to a polygon shapefile by connecting the start and endpoints of the original polylines.  Multipart polylines will be maintained as multipart polygons. The new polygon shapefile will contain a field for the area of the polygon in the projection of the original polyline feature class.  You may transfer any of the original polyline attribute data to the polygon shapefile by selecting the respective attribute fields.</source>
        <translation>Macht Linien zu Polygonen, indem Anfang und Ende verbunden werden. Mehrteilige Linien werden mehrteilige Polygone. Die Polygone bekommen ein Feld für die Fläche im Bezugssystem des Layers. Gewählte Felder des Layers gehen mit.</translation>
    </message>
    <message>
        <source>This function will convert polygon features to a polyline shapefile, where the polylines represent the boundaries of the original polygon.  Multipart polygons will be maintained as multipart polylines. The new polyline shapefile will contain a field for the length of the polyline in the projection of the original polygon feature class.  You may transfer any of the original polygon attribute data to the polyline shapefile by selecting the respective attribute fields.</source>
        <translation>Macht die Grenzen von Polygonen zu Linien. Mehrteilige Polygone werden mehrteilige Linien. Die Linien bekommen ein Feld für die Länge im Bezugssystem des Layers. Gewählte Felder des Layers gehen mit.</translation>
    </message>
    <message>
        <source>This function will convert polyline, polygon and multipoint features to a point shapefile of the feature vertices.  The new point shapefile will contain fields for X- and Y-coordinates in the projection of the original feature class.  You may transfer any of the original feature attribute data to the point shapefile by selecting the respective attribute fields.</source>
        <translation>Macht aus den Stützpunkten von Linien, Polygonen und Multipunkten Punkte. Sie bekommen Felder für X und Y im Bezugssystem des Layers. Gewählte Felder des Layers gehen mit.</translation>
    </message>
    <message>
        <source>Build Polygons</source>
        <translation>Polygone bilden</translation>
    </message>
    <message>
        <source>Takes</source>
        <translation>Nimmt</translation>
    </message>
    <message>
        <source>Here that is a copy; the layer stays as it is.</source>
        <translation>Hier ist das eine Kopie; der Layer bleibt, wie er ist.</translation>
    </message>
    <message>
        <source>Records read</source>
        <translation>Gelesene Datensätze</translation>
    </message>
    <message>
        <source>Records written</source>
        <translation>Geschriebene Datensätze</translation>
    </message>
    <message>
        <source>Records that met a fault</source>
        <translation>Datensätze mit einem Fehler</translation>
    </message>
    <message>
        <source>in %1</source>
        <translation>in %L1</translation>
    </message>
    <message>
        <source>otherwise %1</source>
        <translation>sonst %L1</translation>
    </message>
    <message>
        <source>west,south,east,north</source>
        <translation>West,Süd,Ost,Nord</translation>
    </message>
    <message>
        <source>Radii of another spheroid (semi-major,semi-minor, metres)</source>
        <translation>Halbachsen eines anderen Sphäroids (große,kleine, Meter)</translation>
    </message>
    <message>
        <source>Compute on a spheroid of these radii in metres, as 3396190,3376200.</source>
        <translation>Auf einem Sphäroid mit diesen Halbachsen in Metern rechnen, etwa 3396190,3376200.</translation>
    </message>
    <message>
        <source>The measures to calculate; a layer has those of its shapes and its kind of reference.</source>
        <translation>Die Maße; ein Layer hat die seiner Art und seines Bezugssystems.</translation>
    </message>
    <message>
        <source>Polygons from the regions that lines bound together</source>
        <translation>Polygone der Gebiete, die Linien zusammen umschließen</translation>
    </message>
    <message>
        <source>polylines</source>
        <translation>Linien</translation>
    </message>
    <message>
        <source>polygons</source>
        <translation>Polygone</translation>
    </message>
    <message>
        <source>features</source>
        <translation>Objekte</translation>
    </message>
    <message>
        <source>polylines, polygons or multipoints</source>
        <translation>Linien, Polygone oder Multipunkte</translation>
    </message>
    <message>
        <source>points, multipoints, polylines and polygons</source>
        <translation>Punkte, Multipunkte, Linien und Polygone</translation>
    </message>
    <message>
        <source>A class of polygons, one for each region, with Uniq_ID, its Area and the chosen fields of a label point.</source>
        <translation>Ein Layer von Polygonen, eines für jedes Gebiet, mit Uniq_ID, der Fläche Area und den gewählten Feldern eines Labelpunkts.</translation>
    </message>
    <message>
        <source>Lines closer than this count as meeting</source>
        <translation>Linien, die näher beieinander liegen, treffen sich</translation>
    </message>
    <message>
        <source>the unit of the coordinates</source>
        <translation>der Einheit der Koordinaten</translation>
    </message>
    <message>
        <source>the tolerance of the data's reference</source>
        <translation>die Toleranz des Bezugssystems der Daten</translation>
    </message>
    <message>
        <source>Points whose attributes the polygons take</source>
        <translation>Punkte, deren Attribute die Polygone bekommen</translation>
    </message>
    <message>
        <source>The fields of the points to carry over</source>
        <translation>Die Felder der Punkte, die mitgehen</translation>
    </message>
    <message>
        <source>Of several points in a polygon take the first, or the one nearest to its centre</source>
        <translation>Von mehreren Punkten in einem Polygon gilt der erste oder der, der seiner Mitte am nächsten liegt</translation>
    </message>
    <message>
        <source>Write lengths, areas, centroids, azimuths and counts of features into their attribute table</source>
        <translation>Schreibt Längen, Flächen, Schwerpunkte, Azimute und Anzahlen in die Attributtabelle</translation>
    </message>
    <message>
        <source>A field or two for each measure, in the layer itself.</source>
        <translation>Ein oder zwei Felder für jedes Maß, im Layer selbst.</translation>
    </message>
    <message>
        <source>All measures of the layer</source>
        <translation>Alle Maße des Layers</translation>
    </message>
    <message>
        <source>Compute on this spheroid</source>
        <translation>Auf diesem Sphäroid rechnen</translation>
    </message>
    <message>
        <source>the data's own</source>
        <translation>das der Daten</translation>
    </message>
    <message>
        <source>The latitudes of the data are planetocentric</source>
        <translation>Die Breiten der Daten sind planetozentrisch</translation>
    </message>
    <message>
        <source>The centre of each polygon or multipoint and the middle of each line, on the plane</source>
        <translation>Der Schwerpunkt von Polygonen und Multipunkten und die Mitte von Linien, in der Ebene</translation>
    </message>
    <message>
        <source>A class of points with Uniq_ID, X_Coord and Y_Coord, one for each feature.</source>
        <translation>Ein Layer von Punkten mit Uniq_ID, X_Coord und Y_Coord, einer für jedes Objekt.</translation>
    </message>
    <message>
        <source>One feature for all: the union of lines or polygons</source>
        <translation>Ein Objekt für alle: die Vereinigung von Linien oder Polygonen</translation>
    </message>
    <message>
        <source>One feature with Uniq_ID and the Length or Area of all, and the attributes of the first.</source>
        <translation>Ein Objekt mit Uniq_ID, der Länge Length oder der Fläche Area von allen und den Attributen des ersten.</translation>
    </message>
    <message>
        <source>One point inside each polygon</source>
        <translation>Ein Punkt in jedem Polygon</translation>
    </message>
    <message>
        <source>A class of points with Uniq_ID, X_Coord and Y_Coord, one inside each polygon.</source>
        <translation>Ein Layer von Punkten mit Uniq_ID, X_Coord und Y_Coord, einer in jedem Polygon.</translation>
    </message>
    <message>
        <source>The same on the globe, as longitude and latitude</source>
        <translation>Dasselbe auf der Kugel, in Länge und Breite</translation>
    </message>
    <message>
        <source>A class of points in degrees with Uniq_ID and longitude and latitude in X_Coord and Y_Coord, one for each feature.</source>
        <translation>Ein Layer von Punkten in Grad mit Uniq_ID und Länge und Breite in X_Coord und Y_Coord, einer für jedes Objekt.</translation>
    </message>
    <message>
        <source>One feature for each part of multipart features</source>
        <translation>Ein Objekt für jeden Teil mehrteiliger Objekte</translation>
    </message>
    <message>
        <source>A class of the source's kind, or points of multipoints, with Uniq_ID and coordinates, Length or Area.</source>
        <translation>Ein Layer derselben Art, oder Punkte von Multipunkten, mit Uniq_ID und Koordinaten, Length oder Area.</translation>
    </message>
    <message>
        <source>Planetographic latitudes to planetocentric ones</source>
        <translation>Planetographische Breiten zu planetozentrischen</translation>
    </message>
    <message>
        <source>Planetocentric latitudes to planetographic ones</source>
        <translation>Planetozentrische Breiten zu planetographischen</translation>
    </message>
    <message>
        <source>A class of the source's kind with its attributes and its latitudes in the other system.</source>
        <translation>Ein Layer derselben Art mit seinen Attributen und den Breiten im anderen System.</translation>
    </message>
    <message>
        <source>Close the parts of lines to polygons</source>
        <translation>Schließt die Teile von Linien zu Polygonen</translation>
    </message>
    <message>
        <source>A class of polygons with Uniq_ID and their Area in the square unit of the coordinates.</source>
        <translation>Ein Layer von Polygonen mit Uniq_ID und der Fläche Area im Quadrat der Einheit der Koordinaten.</translation>
    </message>
    <message>
        <source>The boundaries of polygons as lines</source>
        <translation>Die Grenzen von Polygonen als Linien</translation>
    </message>
    <message>
        <source>A class of polylines with Uniq_ID and their Length in the unit of the coordinates.</source>
        <translation>Ein Layer von Linien mit Uniq_ID und der Länge Length in der Einheit der Koordinaten.</translation>
    </message>
    <message>
        <source>One point for each vertex of lines, polygons and multipoints</source>
        <translation>Ein Punkt für jeden Stützpunkt von Linien, Polygonen und Multipunkten</translation>
    </message>
    <message>
        <source>A class of points with the number and the coordinates of each vertex in Uniq_ID, X_Coord and Y_Coord.</source>
        <translation>Ein Layer von Punkten mit der Nummer und den Koordinaten jedes Stützpunkts in Uniq_ID, X_Coord und Y_Coord.</translation>
    </message>
    <message>
        <source>Cut features at the sides of a box and bring what lies outside in at the other side</source>
        <translation>Schneidet Objekte an den Seiten eines Rechtecks und bringt, was außen liegt, auf der anderen Seite hinein</translation>
    </message>
    <message>
        <source>A class of the source's kind with its attributes, all shapes within the box.</source>
        <translation>Ein Layer derselben Art mit seinen Attributen, alle Objekte im Rechteck.</translation>
    </message>
    <message>
        <source>Longitudes from -180 to 180 or from 0 to 360 degrees</source>
        <translation>Längen von -180 bis 180 oder von 0 bis 360 Grad</translation>
    </message>
    <message>
        <source>A box of your own</source>
        <translation>Ein eigenes Rechteck</translation>
    </message>
    <message>
        <source>degrees</source>
        <translation>Grad</translation>
    </message>
    <message>
        <source>Steps of more than 180 degrees mean the short way: from 170 to -170 are 20 degrees over the edge, not 340 across the map</source>
        <translation>Schritte von mehr als 180 Grad meinen den kurzen Weg: von 170 nach -170 sind es 20 Grad über den Rand, nicht 340 über die Karte</translation>
    </message>
    <message>
        <source>What rings round the globe hold: one ring the north or the south pole, two rings both or neither. Without it they hold the smaller part of the sphere</source>
        <translation>Was Ringe um die Kugel halten: ein Ring den Nord- oder den Südpol, zwei Ringe beide oder keinen. Sonst halten sie den kleineren Teil der Kugel</translation>
    </message>
    <message>
        <source>Wrap longitudes to -180 to 180 or to 0 to 360 degrees, after the shift</source>
        <translation>Längen nach der Verschiebung auf -180 bis 180 oder 0 bis 360 Grad umbrechen</translation>
    </message>
    <message>
        <source>Add this to every longitude first</source>
        <translation>Das zuvor zu jeder Länge addieren</translation>
    </message>
    <message>
        <source>The features to read</source>
        <translation>Die Objekte, die gelesen werden</translation>
    </message>
    <message>
        <source>The new class, or a folder for it</source>
        <translation>Die Ausgabe, oder ein Ordner für sie</translation>
    </message>
    <message>
        <source>The attribute fields to carry over</source>
        <translation>Die Attributfelder, die mitgehen</translation>
    </message>
    <message>
        <source>Carry all attribute fields over</source>
        <translation>Alle Attributfelder mitnehmen</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Fields</source>
        <translation>Felder</translation>
    </message>
    <message>
        <source>All fields</source>
        <translation>Alle Felder</translation>
    </message>
    <message>
        <source>Cluster tolerance</source>
        <translation>Fangtoleranz</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Labelpunkte</translation>
    </message>
    <message>
        <source>Label fields</source>
        <translation>Felder der Labelpunkte</translation>
    </message>
    <message>
        <source>Label choice</source>
        <translation>Wahl des Labelpunkts</translation>
    </message>
    <message>
        <source>Measure</source>
        <translation>Maße</translation>
    </message>
    <message>
        <source>All measures</source>
        <translation>Alle Maße</translation>
    </message>
    <message>
        <source>Spheroid</source>
        <translation>Sphäroid</translation>
    </message>
    <message>
        <source>Planetocentric latitudes</source>
        <translation>Planetozentrische Breiten</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Bereich</translation>
    </message>
    <message>
        <source>Bounds</source>
        <translation>Grenzen</translation>
    </message>
    <message>
        <source>Short steps</source>
        <translation>Kurze Schritte</translation>
    </message>
    <message>
        <source>Pole</source>
        <translation>Pol</translation>
    </message>
    <message>
        <source>Shift</source>
        <translation>Verschiebung</translation>
    </message>
    <message>
        <source>Wrap</source>
        <translation>Umbruch</translation>
    </message>
    <message>
        <source>Semi-Major (Equatorial) Radius =</source>
        <translation>Große Halbachse (Äquator) =</translation>
    </message>
    <message>
        <source>Semi-Minor (Polar) Radius =</source>
        <translation>Kleine Halbachse (Pol) =</translation>
    </message>
    <message>
        <source>Join Features</source>
        <translation>Objekte vereinen</translation>
    </message>
    <message>
        <source>Split Multipart Shapes</source>
        <translation>Mehrteilige Objekte teilen</translation>
    </message>
    <message>
        <source>layers in degrees of longitude and latitude</source>
        <translation>Layer in Grad von Länge und Breite</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>[No Point Layers Available]</source>
        <translation>[kein Punktlayer]</translation>
    </message>
    <message>
        <source>the smaller part</source>
        <translation>den kleineren Teil</translation>
    </message>
    <message>
        <source>the north pole</source>
        <translation>den Nordpol</translation>
    </message>
    <message>
        <source>the south pole</source>
        <translation>den Südpol</translation>
    </message>
    <message>
        <source>both poles</source>
        <translation>beide Pole</translation>
    </message>
    <message>
        <source>neither pole</source>
        <translation>keinen Pol</translation>
    </message>
    <message>
        <source>A class of points with their coordinates, of lines with their lengths or of polygons with their areas, with the names of the elements, and a layer of it in the map.</source>
        <translation>Ein Layer von Punkten mit Koordinaten, von Linien mit Längen oder von Polygonen mit Flächen, mit den Namen der Grafiken, und in der Karte.</translation>
    </message>
    <message>
        <source>A class without features, with the fields that graphics of its shape get, and a layer of it in the map.</source>
        <translation>Ein leerer Layer mit den Feldern, die Grafiken seiner Art bekommen, auch in der Karte.</translation>
    </message>
    <message>
        <source>A selection of graphic elements, in the document itself; what was selected stays so.</source>
        <translation>Eine Auswahl von Grafiken, im Dokument selbst; was ausgewählt war, bleibt es.</translation>
    </message>
    <message>
        <source>Add graphic elements of the active view to the selection, by type or name</source>
        <translation>Fügt Grafiken der aktiven Ansicht nach Art oder Namen zur Auswahl hinzu</translation>
    </message>
    <message>
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message>
        <source>Both</source>
        <translation>Beides</translation>
    </message>
    <message>
        <source>Circles</source>
        <translation>Kreise</translation>
    </message>
    <message>
        <source>Data graphs</source>
        <translation>Diagramme</translation>
    </message>
    <message>
        <source>Ellipses</source>
        <translation>Ellipsen</translation>
    </message>
    <message>
        <source>Empty Feature Class</source>
        <translation>Leerer Layer</translation>
    </message>
    <message>
        <source>Frames</source>
        <translation>Rahmen</translation>
    </message>
    <message>
        <source>Give graphic elements of the map a name</source>
        <translation>Gibt Grafiken der Karte einen Namen</translation>
    </message>
    <message>
        <source>Graphics to Features</source>
        <translation>Grafiken zu Objekten</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>Leave the source as it is and work on this copy of the layer</source>
        <translation>Die Quelle lassen, wie sie ist, und an dieser Kopie des Layers arbeiten</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Linien</translation>
    </message>
    <message>
        <source>Make a feature class of graphic elements</source>
        <translation>Macht aus Grafiken einen Layer</translation>
    </message>
    <message>
        <source>Make an empty feature class</source>
        <translation>Legt einen leeren Layer an</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Name Graphics</source>
        <translation>Grafiken benennen</translation>
    </message>
    <message>
        <source>Name all elements</source>
        <translation>Alle Grafiken benennen</translation>
    </message>
    <message>
        <source>Name the selected elements alone</source>
        <translation>Nur die ausgewählten Grafiken benennen</translation>
    </message>
    <message>
        <source>Names of graphic elements, in the document itself.</source>
        <translation>Namen von Grafiken, im Dokument selbst.</translation>
    </message>
    <message>
        <source>Pattern</source>
        <translation>Muster</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>Rectangles</source>
        <translation>Rechtecke</translation>
    </message>
    <message>
        <source>Reference</source>
        <translation>Bezugssystem</translation>
    </message>
    <message>
        <source>Select Graphics</source>
        <translation>Grafiken auswählen</translation>
    </message>
    <message>
        <source>Select the elements of this name; may be given several times</source>
        <translation>Grafiken dieses Namens wählen; mehrfach möglich</translation>
    </message>
    <message>
        <source>Select the elements whose names match: * is any run of characters, &amp; or ? any one</source>
        <translation>Grafiken wählen, deren Namen passen: * steht für beliebige Zeichen, &amp; oder ? für eines</translation>
    </message>
    <message>
        <source>Selected</source>
        <translation>Ausgewählte</translation>
    </message>
    <message>
        <source>Shapes</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Texts</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>points, polylines or polygons</source>
        <translation>Punkte, Linien oder Polygone</translation>
    </message>
    <message>
        <source>a map document</source>
        <translation>ein Kartendokument</translation>
    </message>
    <message>
        <source>Take lines and polygons alike, as polylines or as polygons</source>
        <translation>Linien und Polygone nehmen, als Linien oder als Polygone</translation>
    </message>
    <message>
        <source>Take all elements</source>
        <translation>Alle Grafiken nehmen</translation>
    </message>
    <message>
        <source>Take the selected elements alone</source>
        <translation>Nur die ausgewählten Grafiken nehmen</translation>
    </message>
    <message>
        <source>The name; none takes the names away, which --yes confirms</source>
        <translation>Der Name; ohne einen werden die Namen entfernt, was --yes bestätigt</translation>
    </message>
    <message>
        <source>The output's spatial reference, as EPSG:32612; the map's when left out</source>
        <translation>Das Bezugssystem der Ausgabe, etwa EPSG:32612; sonst das der Karte</translation>
    </message>
    <message>
        <source>graphic elements of a map document</source>
        <translation>Grafiken eines Kartendokuments</translation>
    </message>
    <message>
        <source>Select the points</source>
        <translation>Punkte wählen</translation>
    </message>
    <message>
        <source>Select the lines</source>
        <translation>Linien wählen</translation>
    </message>
    <message>
        <source>Select the polygons</source>
        <translation>Polygone wählen</translation>
    </message>
    <message>
        <source>Select the rectangles</source>
        <translation>Rechtecke wählen</translation>
    </message>
    <message>
        <source>Select the ellipses</source>
        <translation>Ellipsen wählen</translation>
    </message>
    <message>
        <source>Select the circles</source>
        <translation>Kreise wählen</translation>
    </message>
    <message>
        <source>Select the texts</source>
        <translation>Texte wählen</translation>
    </message>
    <message>
        <source>Select the text</source>
        <translation>Texte wählen</translation>
    </message>
    <message>
        <source>Select the pictures</source>
        <translation>Bilder wählen</translation>
    </message>
    <message>
        <source>Select the data graphs</source>
        <translation>Diagramme wählen</translation>
    </message>
    <message>
        <source>Select the groups</source>
        <translation>Gruppen wählen</translation>
    </message>
    <message>
        <source>Select the frames</source>
        <translation>Rahmen wählen</translation>
    </message>
    <message>
        <source>Tessarine Reports</source>
        <translation>Tessarine-Berichte</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Tool</source>
        <translation>Werkzeug</translation>
    </message>
    <message>
        <source>Output</source>
        <translation>Ausgabe</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Stand</translation>
    </message>
    <message>
        <source>Copy as &amp;Command</source>
        <translation>Als &amp;Befehl kopieren</translation>
    </message>
    <message>
        <source>Copy the line that does the same at the terminal</source>
        <translation>Die Zeile kopieren, die im Terminal dasselbe tut</translation>
    </message>
    <message>
        <source>&amp;Open Report</source>
        <translation>Bericht &amp;öffnen</translation>
    </message>
    <message>
        <source>Show the report in a window of its own, to copy or print it</source>
        <translation>Den Bericht in einem eigenen Fenster zeigen, zum Kopieren oder Drucken</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Leeren</translation>
    </message>
    <message>
        <source>Forget the runs</source>
        <translation>Die Läufe vergessen</translation>
    </message>
    <message>
        <source>The same at the &amp;terminal:</source>
        <translation>Dasselbe im &amp;Terminal:</translation>
    </message>
    <message>
        <source>The same at the terminal:</source>
        <translation>Dasselbe im Terminal:</translation>
    </message>
    <message>
        <source>1 record written</source>
        <translation>1 Datensatz geschrieben</translation>
    </message>
    <message>
        <source>%1 records written</source>
        <translation>%1 Datensätze geschrieben</translation>
    </message>
    <message>
        <source>1 feature keeps its shape</source>
        <translation>1 Objekt behält seine Form</translation>
    </message>
    <message>
        <source>%1 features keep their shapes</source>
        <translation>%1 Objekte behalten ihre Formen</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Fehlgeschlagen: %L1</translation>
    </message>
    <message>
        <source>Stopped; %1</source>
        <translation>Angehalten; %L1</translation>
    </message>
    <message>
        <source>Given up at a question; nothing was done</source>
        <translation>Bei einer Frage aufgegeben; nichts wurde getan</translation>
    </message>
    <message>
        <source>1 record met a fault; %1</source>
        <translation>Bei 1 Datensatz trat ein Fehler auf; %L1</translation>
    </message>
    <message>
        <source>%1 records met a fault; %2</source>
        <translation>Bei %1 Datensätzen trat ein Fehler auf; %L2</translation>
    </message>
    <message>
        <source>No line at the terminal does the same: %1.</source>
        <translation>Keine Zeile im Terminal tut dasselbe: %L1.</translation>
    </message>
    <message>
        <source>the graphics lie in the project alone</source>
        <translation>die Grafiken liegen nur im Projekt</translation>
    </message>
    <message>
        <source>the run made no output</source>
        <translation>der Lauf hat keine Ausgabe gemacht</translation>
    </message>
    <message>
        <source>a spatial reference is chosen in the dialog</source>
        <translation>im Dialog ist ein Bezugssystem gewählt</translation>
    </message>
    <message>
        <source>a comma in the name of the field '%1' parts it in two</source>
        <translation>ein Komma im Namen des Feldes '%1' teilt ihn in zwei</translation>
    </message>
    <message>
        <source>only the first records of '%1' are read</source>
        <translation>nur die ersten Datensätze von '%1' werden gelesen</translation>
    </message>
    <message>
        <source>'%1' can't be named there, because %2</source>
        <translation>'%1' ist dort nicht zu nennen, denn %L2</translation>
    </message>
    <message>
        <source>the filter of '%1' is a whole query</source>
        <translation>der Filter von '%1' ist eine ganze Abfrage</translation>
    </message>
    <message>
        <source>the selected records of '%1' are too many to be listed</source>
        <translation>von '%1' sind zu viele Datensätze ausgewählt, um sie aufzuzählen</translation>
    </message>
    <message>
        <source>its data lie in no file</source>
        <translation>seine Daten liegen in keiner Datei</translation>
    </message>
    <message>
        <source>it has edits that aren't saved</source>
        <translation>er hat Änderungen, die nicht gespeichert sind</translation>
    </message>
    <message>
        <source>its file tells another reference</source>
        <translation>seine Datei nennt ein anderes Bezugssystem</translation>
    </message>
    <message>
        <source>it has fields that aren't in its file</source>
        <translation>er hat Felder, die nicht in seiner Datei stehen</translation>
    </message>
    <message>
        <source>its file is opened in a way of its own</source>
        <translation>seine Datei ist auf eigene Weise geöffnet</translation>
    </message>
    <message>
        <source>the encoding of its texts is chosen by hand</source>
        <translation>die Kodierung seiner Texte ist von Hand gewählt</translation>
    </message>
    <message>
        <source>&amp;Measure on the Spheroid</source>
        <translation>Auf dem Sphäroid &amp;messen</translation>
    </message>
    <message>
        <source>Measure on the Spheroid</source>
        <translation>Auf dem Sphäroid messen</translation>
    </message>
    <message>
        <source>Distances, azimuths and areas of places that are clicked on the map</source>
        <translation>Entfernungen, Azimute und Flächen von Orten, die in der Karte angeklickt werden</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>&amp;Spheroid:</source>
        <translation>S&amp;phäroid:</translation>
    </message>
    <message>
        <source>&amp;Lengths in:</source>
        <translation>&amp;Längen in:</translation>
    </message>
    <message>
        <source>&amp;Areas in:</source>
        <translation>&amp;Flächen in:</translation>
    </message>
    <message>
        <source>To the pointer:</source>
        <translation>Zum Zeiger:</translation>
    </message>
    <message>
        <source>Total:</source>
        <translation>Zusammen:</translation>
    </message>
    <message>
        <source>Area:</source>
        <translation>Fläche:</translation>
    </message>
    <message>
        <source>Start longitude</source>
        <translation>Länge am Anfang</translation>
    </message>
    <message>
        <source>Start latitude</source>
        <translation>Breite am Anfang</translation>
    </message>
    <message>
        <source>End longitude</source>
        <translation>Länge am Ende</translation>
    </message>
    <message>
        <source>End latitude</source>
        <translation>Breite am Ende</translation>
    </message>
    <message>
        <source>Distance</source>
        <translation>Entfernung</translation>
    </message>
    <message>
        <source>Start azimuth</source>
        <translation>Azimut am Anfang</translation>
    </message>
    <message>
        <source>End azimuth</source>
        <translation>Azimut am Ende</translation>
    </message>
    <message>
        <source>As the project</source>
        <translation>Wie das Projekt</translation>
    </message>
    <message>
        <source>As the project: %1</source>
        <translation>Wie das Projekt: %1</translation>
    </message>
    <message>
        <source>%1, azimuth %2</source>
        <translation>%L1, Azimut %2</translation>
    </message>
    <message>
        <source>%1, closed %2</source>
        <translation>%L1, geschlossen %2</translation>
    </message>
    <message>
        <source>metres</source>
        <translation>Meter</translation>
    </message>
    <message>
        <source>kilometres</source>
        <translation>Kilometer</translation>
    </message>
    <message>
        <source>feet</source>
        <translation>Fuß</translation>
    </message>
    <message>
        <source>miles</source>
        <translation>Meilen</translation>
    </message>
    <message>
        <source>nautical miles</source>
        <translation>Seemeilen</translation>
    </message>
    <message>
        <source>square metres</source>
        <translation>Quadratmeter</translation>
    </message>
    <message>
        <source>hectares</source>
        <translation>Hektar</translation>
    </message>
    <message>
        <source>square kilometres</source>
        <translation>Quadratkilometer</translation>
    </message>
    <message>
        <source>acres</source>
        <translation>Acres</translation>
    </message>
    <message>
        <source>square miles</source>
        <translation>Quadratmeilen</translation>
    </message>
    <message>
        <source>Click two places or more on the map. A double click, a right click or Escape ends; Backspace takes the last place back.</source>
        <translation>Zwei oder mehr Orte in der Karte anklicken. Doppelklick, Rechtsklick oder Escape beendet; die Rücktaste nimmt den letzten Ort zurück.</translation>
    </message>
    <message>
        <source>The map shows no place of the globe there.</source>
        <translation>Dort zeigt die Karte keinen Ort der Kugel.</translation>
    </message>
    <message>
        <source>The project's reference is neither geographic nor projected, so that the map shows no places of a globe. Choose another one in the project's properties.</source>
        <translation>Das Bezugssystem des Projekts ist weder geographisch noch projiziert: die Karte zeigt keine Orte einer Kugel. In den Eigenschaften des Projekts ist ein anderes zu wählen.</translation>
    </message>
    <message>
        <source>The project tells no spheroid: choose one.</source>
        <translation>Das Projekt nennt kein Sphäroid: bitte eines wählen.</translation>
    </message>
    <message>
        <source>Waiting for another run of the suite</source>
        <translation>Wartet auf einen anderen Lauf der Werkzeuge</translation>
    </message>
    <message>
        <source>The run was stopped before its output was whole.</source>
        <translation>Der Lauf wurde angehalten, bevor die Ausgabe vollständig war.</translation>
    </message>
    <message>
        <source>The run was stopped; '%1' holds what was written until then.</source>
        <translation>Der Lauf wurde angehalten; '%1' enthält, was bis dahin geschrieben war.</translation>
    </message>
    <message>
        <source>The run made no output. Its log tells why.</source>
        <translation>Der Lauf hat keine Ausgabe gemacht. Das Protokoll sagt, warum.</translation>
    </message>
    <message>
        <source>Temporary layer</source>
        <translation>Temporärer Layer</translation>
    </message>
    <message>
        <source>The run was stopped.</source>
        <translation>Der Lauf wurde angehalten.</translation>
    </message>
    <message>
        <source>Yes.</source>
        <translation>Ja.</translation>
    </message>
    <message>
        <source>There is no folder or geodatabase '%1'.</source>
        <translation>Es gibt keinen Ordner und keine Geodatabase '%1'.</translation>
    </message>
    <message>
        <source>'%1' holds nothing of the name '%2'.</source>
        <translation>In '%1' gibt es nichts mit dem Namen '%2'.</translation>
    </message>
    <message>
        <source>The folder '%1' can't be made: %2.</source>
        <translation>Der Ordner '%1' kann nicht angelegt werden: %L2.</translation>
    </message>
    <message>
        <source>Unexpected Program Error</source>
        <translation>Unerwarteter Programmfehler</translation>
    </message>
    <message>
        <source>System: %1</source>
        <translation>System: %1</translation>
    </message>
    <message>
        <source>Kernel: %1</source>
        <translation>Kern: %1</translation>
    </message>
    <message>
        <source>Processor: %1, %2 at once</source>
        <translation>Prozessor: %1, %2 zugleich</translation>
    </message>
    <message>
        <source>Memory: %1, available %2</source>
        <translation>Speicher: %1, frei %2</translation>
    </message>
    <message>
        <source>Screen: %1 x %2</source>
        <translation>Bildschirm: %1 x %2</translation>
    </message>
    <message>
        <source>a point</source>
        <translation>ein Punkt</translation>
    </message>
    <message>
        <source>a line</source>
        <translation>eine Linie</translation>
    </message>
    <message>
        <source>a polygon</source>
        <translation>ein Polygon</translation>
    </message>
    <message>
        <source>or</source>
        <translation>oder</translation>
    </message>
    <message>
        <source>a geometry of the type %1</source>
        <translation>eine Geometrie der Art %1</translation>
    </message>
    <message>
        <source>argument %1 (%2): %3</source>
        <translation>Argument %1 (%2): %L3</translation>
    </message>
    <message>
        <source>it has to be a text, and is %1.</source>
        <translation>es muss ein Text sein und ist %1.</translation>
    </message>
    <message>
        <source>it has to be %1, and is %2.</source>
        <translation>es muss %1 sein und ist %2.</translation>
    </message>
    <message>
        <source>it has to be a point, and is %1.</source>
        <translation>es muss ein Punkt sein und ist %1.</translation>
    </message>
    <message>
        <source>it has to be 'start' or 'end', and is '%1'.</source>
        <translation>es muss 'start' oder 'end' sein und ist '%1'.</translation>
    </message>
    <message>
        <source>the layer has no reference, so it must be given here.</source>
        <translation>der Layer hat kein Bezugssystem; es ist hier anzugeben.</translation>
    </message>
    <message>
        <source>neither a layer nor the project tells one, so it must be given here.</source>
        <translation>weder ein Layer noch das Projekt nennt eines; es ist hier anzugeben.</translation>
    </message>
    <message>
        <source>'%1' is neither geographic nor projected, and tells no place on a spheroid.</source>
        <translation>'%1' ist weder geographisch noch projiziert und nennt keinen Ort auf einem Sphäroid.</translation>
    </message>
    <message>
        <source>there is no reference '%1'.</source>
        <translation>es gibt kein Bezugssystem '%1'.</translation>
    </message>
    <message>
        <source>the reference tells no spheroid, so it must be given here.</source>
        <translation>das Bezugssystem nennt kein Sphäroid; es ist hier anzugeben.</translation>
    </message>
    <message>
        <source>(More of these aren't told.)</source>
        <translation>(Weitere dieser Art werden nicht gemeldet.)</translation>
    </message>
    <message>
        <source>layer '%1'</source>
        <translation>Layer '%1'</translation>
    </message>
    <message>
        <source>feature %1</source>
        <translation>Objekt %1</translation>
    </message>
    <message>
        <source>The result is NULL.</source>
        <translation>Das Ergebnis ist NULL.</translation>
    </message>
    <message>
        <source>function %1</source>
        <translation>Funktion %1</translation>
    </message>
    <message>
        <source>Syntax</source>
        <translation>Syntax</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>Argumente</translation>
    </message>
    <message>
        <source>Examples</source>
        <translation>Beispiele</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Hinweise</translation>
    </message>
    <message>
        <source>[ ] marks optional components</source>
        <translation>[ ] steht um das, was fehlen darf</translation>
    </message>
    <message>
        <source>the spheroid: a name of the suite's catalogue (case, blanks and hyphens don't count), its code, as 'EPSG:7030' or 'ESRI:107905', or an ellipsoid of the program, as 'PARAMETER:3396190:3376200'. Otherwise the layer's own; without a layer that of the project's settings, or else of its reference</source>
        <translation>das Sphäroid: ein Name aus dem Katalog (Groß- und Kleinschreibung, Leerzeichen und Bindestriche zählen nicht), sein Code, etwa 'EPSG:7030' oder 'ESRI:107905', oder ein Ellipsoid des Programms, etwa 'PARAMETER:3396190:3376200'. Sonst das des Layers; ohne Layer das der Projekteinstellungen oder seines Bezugssystems</translation>
    </message>
    <message>
        <source>the reference of the geometry, as 'EPSG:32612', where it isn't that of the layer (&lt;code&gt;@layer_crs&lt;/code&gt;), or without a layer that of the project</source>
        <translation>das Bezugssystem der Geometrie, etwa 'EPSG:32612', wo es nicht das des Layers ist (&lt;code&gt;@layer_crs&lt;/code&gt;), oder ohne Layer das des Projekts</translation>
    </message>
    <message>
        <source>a line, or a polygon, whose perimeter is measured, holes included</source>
        <translation>eine Linie, oder ein Polygon, dessen Umfang gemessen wird, mit seinen Löchern</translation>
    </message>
    <message>
        <source>'start' for the azimuth at the first point, 'end' for that at the second one, in the direction of travel; otherwise 'start'</source>
        <translation>'start' für das Azimut am ersten Punkt, 'end' für das am zweiten, in Richtung des Weges; sonst 'start'</translation>
    </message>
    <message>
        <source>the length of the feature on the spheroid of its layer, in metres</source>
        <translation>die Länge des Objekts auf dem Sphäroid seines Layers, in Metern</translation>
    </message>
    <message>
        <source>the same on Mars</source>
        <translation>dasselbe auf dem Mars</translation>
    </message>
    <message>
        <source>the area of the feature in square kilometres</source>
        <translation>die Fläche des Objekts in Quadratkilometern</translation>
    </message>
    <message>
        <source>the azimuth at which the line sets out</source>
        <translation>das Azimut, mit dem die Linie beginnt</translation>
    </message>
    <message>
        <source>how far a feature in longitude and latitude is from the north pole</source>
        <translation>wie weit ein Objekt in Länge und Breite vom Nordpol entfernt ist</translation>
    </message>
    <message>
        <source>NULL for NULL and for an empty geometry.</source>
        <translation>NULL für NULL und für eine leere Geometrie.</translation>
    </message>
    <message>
        <source>The value is what Calculate Geometry writes as spheroidal length or perimeter. Steps of more than 180 degrees of longitude go the short way round. A line from pole to pole along any meridian has its full length; a step from one longitude to another at a pole has none.</source>
        <translation>Der Wert ist der, den Geometrie berechnen als Länge oder Umfang auf dem Sphäroid schreibt. Schritte von mehr als 180 Grad Länge gehen den kurzen Weg. Eine Linie von Pol zu Pol auf einem Meridian hat ihre ganze Länge; ein Schritt von einer Länge zur anderen am Pol hat keine.</translation>
    </message>
    <message>
        <source>The value is what Calculate Geometry writes as spheroidal area: the sides are geodesics. Rings over the 180 degree meridian and round a pole count as what they mean; a ring round the globe encloses the smaller part. Holes are left out, whichever way rings run.</source>
        <translation>Der Wert ist der, den Geometrie berechnen als Fläche auf dem Sphäroid schreibt: die Seiten sind geodätische Linien. Ringe über den Meridian von 180 Grad und um einen Pol zählen als das, was sie meinen; ein Ring um die Kugel umschließt den kleineren Teil. Löcher zählen nicht mit, wie herum die Ringe auch laufen.</translation>
    </message>
    <message>
        <source>Degrees clockwise from north, from 0 to 360. NULL where both points are one place. At a pole the azimuth is reckoned from the meridian of the longitude that the point was given with.</source>
        <translation>Grad im Uhrzeigersinn von Norden, von 0 bis 360. NULL, wo beide Punkte ein Ort sind. Am Pol zählt das Azimut vom Meridian der Länge, mit der der Punkt angegeben ist.</translation>
    </message>
    <message>
        <source>The shortest line, across the 180 degree meridian and over a pole, too; 0 between coincident points. Nearly antipodal points are solved by an exact method, as &lt;code&gt;tessarine inverse&lt;/code&gt; does.</source>
        <translation>Die kürzeste Linie, auch über den Meridian von 180 Grad und über einen Pol; 0 zwischen zwei gleichen Punkten. Punkte, die sich fast gegenüberliegen, löst ein genaues Verfahren, wie bei &lt;code&gt;tessarine inverse&lt;/code&gt;.</translation>
    </message>
    <message>
        <source>The position at half of the spheroidal length, in the reference of the line; it is what Calculate Geometry writes as spheroidal midpoint. A line without length has its first vertex. At a pole the longitude means nothing.</source>
        <translation>Der Ort auf der halben Länge auf dem Sphäroid, im Bezugssystem der Linie; es ist der, den Geometrie berechnen als Mittelpunkt auf dem Sphäroid schreibt. Eine Linie ohne Länge hat ihren ersten Stützpunkt. Am Pol bedeutet die Länge nichts.</translation>
    </message>
    <message>
        <source>What the report of Calculate Geometry would say of such a value, and why a geometry can't be measured, which gives NULL, stands in the program's log under "Tessarine".</source>
        <translation>Was der Bericht von Geometrie berechnen zu einem solchen Wert sagen würde, und warum eine Geometrie nicht zu messen ist, was NULL ergibt, steht im Protokoll des Programms unter "Tessarine".</translation>
    </message>
    <message>
        <source>Returns the length of a line or the perimeter of a polygon on the spheroid, in metres.</source>
        <translation>Gibt die Länge einer Linie oder den Umfang eines Polygons auf dem Sphäroid zurück, in Metern.</translation>
    </message>
    <message>
        <source>Returns the area of a polygon on the spheroid, in square metres.</source>
        <translation>Gibt die Fläche eines Polygons auf dem Sphäroid zurück, in Quadratmetern.</translation>
    </message>
    <message>
        <source>Returns the azimuth of the geodesic from one point to another on the spheroid, in degrees.</source>
        <translation>Gibt das Azimut der geodätischen Linie von einem Punkt zum anderen auf dem Sphäroid zurück, in Grad.</translation>
    </message>
    <message>
        <source>Returns the length of the geodesic between two points on the spheroid, in metres.</source>
        <translation>Gibt die Länge der geodätischen Linie zwischen zwei Punkten auf dem Sphäroid zurück, in Metern.</translation>
    </message>
    <message>
        <source>Returns the point in the middle of a line's length on the spheroid.</source>
        <translation>Gibt den Punkt auf der halben Länge einer Linie auf dem Sphäroid zurück.</translation>
    </message>
    <message>
        <source>Feature Class Already Exists:</source>
        <translation>Die Ausgabe gibt es schon:</translation>
    </message>
    <message>
        <source>The Feature Class '%1' already exists!  Do you wish to overwrite it?</source>
        <translation>'%1' gibt es schon. Soll es überschrieben werden?</translation>
    </message>
    <message>
        <source>Invalid Spheroid Parameter:</source>
        <translation>Ungültiges Sphäroid:</translation>
    </message>
    <message>
        <source>Semi-Major (Equatorial) Radius value must be &gt;= 0...</source>
        <translation>Die große Halbachse (Äquator) muss größer als 0 sein.</translation>
    </message>
    <message>
        <source>Semi-Minor (Polar) Radius value must be &gt;= 0...</source>
        <translation>Die kleine Halbachse (Pol) muss größer als 0 sein.</translation>
    </message>
    <message>
        <source>Invalid Boundary Value:</source>
        <translation>Ungültige Grenze:</translation>
    </message>
    <message>
        <source>Invalid Boundary Values:</source>
        <translation>Ungültige Grenzen:</translation>
    </message>
    <message>
        <source>Northern Boundary Value is invalid...</source>
        <translation>Die nördliche Grenze ist ungültig.</translation>
    </message>
    <message>
        <source>Eastern Boundary Value is invalid...</source>
        <translation>Die östliche Grenze ist ungültig.</translation>
    </message>
    <message>
        <source>Southern Boundary Value is invalid...</source>
        <translation>Die südliche Grenze ist ungültig.</translation>
    </message>
    <message>
        <source>Western Boundary Value is invalid...</source>
        <translation>Die westliche Grenze ist ungültig.</translation>
    </message>
    <message>
        <source>Western Boundary Value &gt;= Eastern Boundary Value...</source>
        <translation>Die westliche Grenze liegt nicht westlich der östlichen.</translation>
    </message>
    <message>
        <source>Southern Boundary Value &gt;= Northern Boundary Value...</source>
        <translation>Die südliche Grenze liegt nicht südlich der nördlichen.</translation>
    </message>
    <message>
        <source>Failed to Create Feature Class:</source>
        <translation>Die Ausgabe kann nicht angelegt werden:</translation>
    </message>
    <message>
        <source>Unable to create Feature Class:
%1 is not a valid workspace...</source>
        <translation>Die Ausgabe kann nicht angelegt werden:
%1 ist kein Ort für eine Ausgabe.</translation>
    </message>
    <message>
        <source>Invalid Output Type:</source>
        <translation>Ungültige Art der Ausgabe:</translation>
    </message>
    <message>
        <source>Invalid Feature Class Type:</source>
        <translation>Ungültige Art der Ausgabe:</translation>
    </message>
    <message>
        <source>Confirm Action:</source>
        <translation>Bitte bestätigen:</translation>
    </message>
    <message>
        <source>Confirm Field Names:</source>
        <translation>Feldnamen bestätigen:</translation>
    </message>
    <message>
        <source>Possible Problems with Field Names:</source>
        <translation>Mögliche Probleme mit Feldnamen:</translation>
    </message>
    <message>
        <source>The following field names might not be valid, either because they are too long or they contain invalid characters.  If they are invalid, they may corrupt your data.  Please click 'YES' to continue and use these field names, or 'NO' if you wish to exit and define new names:
%1</source>
        <translation>Die folgenden Feldnamen sind vielleicht ungültig: sie sind zu lang oder enthalten unerlaubte Zeichen. Ungültige Namen können die Daten beschädigen. Mit 'Ja' werden diese Namen verwendet, mit 'Nein' sind andere zu wählen:
%L1</translation>
    </message>
    <message>
        <source>The following field names already exist in your dataset, and therefore the existing data will be overwritten. Please click 'YES' to continue and use these field names, or 'NO' if you wish to exit and define new names:
%1</source>
        <translation>Die folgenden Felder gibt es schon; was darin steht, wird überschrieben. Mit 'Ja' werden diese Felder verwendet, mit 'Nein' sind andere zu wählen:
%L1</translation>
    </message>
    <message>
        <source>System Information Is Unavailable At This Time</source>
        <translation>Angaben zum System gibt es zurzeit nicht</translation>
    </message>
    <message>
        <source>No Feature Class Created:
%1</source>
        <translation>Keine Ausgabe angelegt:
%L1</translation>
    </message>
    <message>
        <source>Unable to Make %1 Feature Class:</source>
        <translation>Kein Layer von der Art %L1:</translation>
    </message>
    <message>
        <source>No selected graphic %1 in map!  No new Feature Class will be made.
Do you wish to go back and 
make a different selection?</source>
        <translation>Die Karte hat keine ausgewählten Grafiken dieser Art (%L1). Es wird kein Layer angelegt.
Etwas anderes wählen?</translation>
    </message>
    <message>
        <source>No graphic %1 in map!  No new Feature Class will be made.
Do you wish to go back and 
make a different selection?</source>
        <translation>Die Karte hat keine Grafiken dieser Art (%L1). Es wird kein Layer angelegt.
Etwas anderes wählen?</translation>
    </message>
    <message>
        <source>Missing File:</source>
        <translation>Datei fehlt:</translation>
    </message>
    <message>
        <source>Unable to find the following file:

%1

Bailing out...</source>
        <translation>Diese Datei ist nicht zu finden:

%1</translation>
    </message>
    <message>
        <source>The output '%1' would replace the data of '%2', which the run reads: name another output.</source>
        <translation>Die Ausgabe '%1' würde die Daten von '%2' ersetzen, die der Lauf liest: bitte eine andere nennen.</translation>
    </message>
    <message>
        <source>grads</source>
        <translation>Gon</translation>
    </message>
    <message>
        <source>radians</source>
        <translation>Radiant</translation>
    </message>
    <message>
        <source>US survey feet</source>
        <translation>US-Vermessungsfuß</translation>
    </message>
    <message>
        <source>map units</source>
        <translation>Karteneinheiten</translation>
    </message>
    <message>
        <source>units of %1</source>
        <translation>Einheiten von %1</translation>
    </message>
    <message>
        <source>square %1</source>
        <translation>Quadrat von %L1</translation>
    </message>
    <message>
        <source>Specify New Polyline Class Name:</source>
        <translation>Name der neuen Linien:</translation>
    </message>
    <message>
        <source>Specify New Polygon Feature Class Name:</source>
        <translation>Name der neuen Polygone:</translation>
    </message>
    <message>
        <source>Specify New Merged Feature Class Name:</source>
        <translation>Name der vereinten Objekte:</translation>
    </message>
    <message>
        <source>Specify New Feature Class Name:</source>
        <translation>Name der Ausgabe:</translation>
    </message>
    <message>
        <source>Specify New Label Point Feature Class Name:</source>
        <translation>Name der neuen Labelpunkte:</translation>
    </message>
    <message>
        <source>Specify New Vertex Feature Class Name:</source>
        <translation>Name der neuen Stützpunkte:</translation>
    </message>
    <message>
        <source>Specify New Spherical Centroid Feature Class Name:</source>
        <translation>Name der sphärischen Schwerpunkte:</translation>
    </message>
    <message>
        <source>Specify New Centroid Feature Class Name:</source>
        <translation>Name der Schwerpunkte:</translation>
    </message>
    <message>
        <source>Enter the name of your new Feature Class or Shapefile:</source>
        <translation>Name der Ausgabe eingeben:</translation>
    </message>
    <message>
        <source>Enter the name of your new Polygon Feature Class:</source>
        <translation>Name der neuen Polygone eingeben:</translation>
    </message>
    <message>
        <source>because the work on them met a fault</source>
        <translation>denn bei der Arbeit an ihnen trat ein Fehler auf</translation>
    </message>
    <message>
        <source>because nothing would be left of their shapes</source>
        <translation>denn von ihrer Geometrie bliebe nichts</translation>
    </message>
    <message>
        <source>because the layer takes no shapes of several parts, which theirs would become</source>
        <translation>denn der Layer nimmt keine mehrteiligen Geometrien, zu denen ihre würden</translation>
    </message>
    <message>
        <source>because the run made no shapes of them</source>
        <translation>denn der Lauf hat keine Geometrie von ihnen gemacht</translation>
    </message>
    <message>
        <source>%1 of the features keep the shapes that they have, %2 (identifiers %3%4).</source>
        <translation>%1 der Objekte behalten ihre Geometrie, %L2 (Nummern %3%4).</translation>
    </message>
    <message>
        <source>All features stay as they are.</source>
        <translation>Alle Objekte bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>Projected, unit: %1</source>
        <translation>Projiziert, Einheit: %L1</translation>
    </message>
    <message>
        <source>Geographic, unit: %1</source>
        <translation>Geographisch, Einheit: %L1</translation>
    </message>
    <message>
        <source>Spheroid: %1, semi-axes %2 m and %3 m</source>
        <translation>Sphäroid: %1, Halbachsen %2 m und %3 m</translation>
    </message>
    <message>
        <source>metre</source>
        <translation>Meter</translation>
    </message>
    <message>
        <source>degree</source>
        <translation>Grad</translation>
    </message>
    <message>
        <source>The layer has gone.</source>
        <translation>Der Layer ist nicht mehr da.</translation>
    </message>
    <message>
        <source>The range to sort lies outside the list.</source>
        <translation>Der zu sortierende Bereich liegt außerhalb der Liste.</translation>
    </message>
    <message>
        <source>There is no element %1 in a list of %2.</source>
        <translation>Eine Liste von %2 hat kein Element %1.</translation>
    </message>
    <message>
        <source>%1 fields can't be copied to %2.</source>
        <translation>%1 Felder können nicht auf %2 übertragen werden.</translation>
    </message>
    <message>
        <source>The output has %1 fields instead of %2.</source>
        <translation>Die Ausgabe hat %1 Felder statt %2.</translation>
    </message>
    <message>
        <source>Field '%1': binary values and lists can't be written.</source>
        <translation>Feld '%1': Binärwerte und Listen können nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>'%1' was published or given up already.</source>
        <translation>'%1' wurde schon veröffentlicht oder aufgegeben.</translation>
    </message>
    <message>
        <source>'%1' can't be published.</source>
        <translation>'%1' kann nicht veröffentlicht werden.</translation>
    </message>
    <message>
        <source>This command is disabled: the document's host is too old for it.</source>
        <translation>Dieser Befehl ist nicht verfügbar: das Programm ist zu alt dafür.</translation>
    </message>
    <message>
        <source>the layer '%1' is of the wrong kind: labels are points.</source>
        <translation>der Layer '%1' ist von der falschen Art: Labelpunkte sind Punkte.</translation>
    </message>
    <message>
        <source>a structure outgrows its place</source>
        <translation>eine Struktur wächst über ihren Platz hinaus</translation>
    </message>
    <message>
        <source>a structure reaches beyond its end</source>
        <translation>eine Struktur reicht über ihr Ende hinaus</translation>
    </message>
    <message>
        <source>A measure, with its fields where they shall have other names than the proposed ones; repeat it for more. 'tessarine measures' lists them</source>
        <translation>Ein Maß, mit seinen Feldern, wo sie andere Namen als die vorgeschlagenen haben sollen; mehrfach möglich. 'tessarine measures' zählt sie auf</translation>
    </message>
    <message>
        <source>Nothing to calculate: name measures with {measure}, or give {all-measures}. 'tessarine measures {source}' lists them.</source>
        <translation>Nichts zu berechnen: bitte mit {measure} Maße nennen oder {all-measures} angeben. 'tessarine measures {source}' zählt sie auf.</translation>
    </message>
    <message>
        <source>Nothing to calculate: name measures, or take all. 'tessarine measures' lists them.</source>
        <translation>Nichts zu berechnen: bitte Maße nennen oder alle nehmen. 'tessarine measures' zählt sie auf.</translation>
    </message>
    <message>
        <source>The layer '%1' is of the wrong kind: measures are for %2.</source>
        <translation>Der Layer '%1' ist von der falschen Art: Maße gibt es für %L2.</translation>
    </message>
    <message>
        <source>The records of '%1' can't be changed in place: their file may not be written, or its format is only written as a whole. Work on a copy: {output} COPY.</source>
        <translation>Die Datensätze von '%1' können nicht an Ort und Stelle geändert werden: ihre Datei ist schreibgeschützt, oder ihr Format wird nur als Ganzes geschrieben. Bitte an einer Kopie arbeiten: {output} KOPIE.</translation>
    </message>
    <message>
        <source>no record is selected. Add {where}, or select records in the document.</source>
        <translation>kein Datensatz ist ausgewählt. Bitte {where} angeben oder Datensätze im Dokument auswählen.</translation>
    </message>
    <message>
        <source>{spheroid}, {radii} and {planetocentric} can't be used on '%1'. %2</source>
        <translation>{spheroid}, {radii} und {planetocentric} sind auf '%1' nicht anzuwenden. %L2</translation>
    </message>
    <message>
        <source>%1 doesn't hold what the rows say</source>
        <translation>%L1 enthält nicht, was die Zeilen sagen</translation>
    </message>
    <message>
        <source>%1 has other pages than its map tells</source>
        <translation>%L1 hat andere Seiten, als seine Karte sagt</translation>
    </message>
    <message>
        <source>%1 isn't in order</source>
        <translation>%L1 ist nicht in Ordnung</translation>
    </message>
    <message>
        <source>%1 tells of %2 rows and has %3</source>
        <translation>%L1 nennt %2 Zeilen und hat %3</translation>
    </message>
    <message>
        <source>%1 tells of page %2, which isn't there</source>
        <translation>%L1 nennt die Seite %2, die es nicht gibt</translation>
    </message>
    <message>
        <source>%1: %2 are there, and rows lead to %3</source>
        <translation>%L1: %2 sind da, und Zeilen führen zu %3</translation>
    </message>
    <message>
        <source>a map at %1</source>
        <translation>eine Karte bei %L1</translation>
    </message>
    <message>
        <source>long values of %1</source>
        <translation>lange Werte von %1</translation>
    </message>
    <message>
        <source>long values of %1, column %2</source>
        <translation>lange Werte von %1, Spalte %2</translation>
    </message>
    <message>
        <source>moved rows of %1</source>
        <translation>verschobene Zeilen von %1</translation>
    </message>
    <message>
        <source>page %1 is used by %2 and %3</source>
        <translation>die Seite %1 wird von %L2 und %L3 benutzt</translation>
    </message>
    <message>
        <source>page %1 of %2 bears another owner</source>
        <translation>die Seite %1 von %L2 trägt einen anderen Eigentümer</translation>
    </message>
    <message>
        <source>page %1 of %2 is free</source>
        <translation>die Seite %1 von %L2 ist frei</translation>
    </message>
    <message>
        <source>page %1 of %2 tells another room</source>
        <translation>die Seite %1 von %L2 nennt anderen freien Platz</translation>
    </message>
    <message>
        <source>page %1 with room isn't one of %2</source>
        <translation>die Seite %1 mit freiem Platz gehört nicht zu %L2</translation>
    </message>
    <message>
        <source>rows of %1</source>
        <translation>Zeilen von %1</translation>
    </message>
    <message>
        <source>the definition of %1</source>
        <translation>die Definition von %1</translation>
    </message>
    <message>
        <source>the header</source>
        <translation>der Kopf</translation>
    </message>
    <message>
        <source>the index '%1' of '%2'</source>
        <translation>der Index '%1' von '%2'</translation>
    </message>
    <message>
        <source>the map of free pages</source>
        <translation>die Karte der freien Seiten</translation>
    </message>
    <message>
        <source>two maps are in one place of page %1</source>
        <translation>zwei Karten liegen an derselben Stelle der Seite %1</translation>
    </message>
    <message>
        <source>two rows of %1 share a long value on page %2</source>
        <translation>zwei Zeilen von %1 teilen sich einen langen Wert auf der Seite %2</translation>
    </message>
    <message>
        <source>two rows of '%1' lead to one place</source>
        <translation>zwei Zeilen von '%1' führen an dieselbe Stelle</translation>
    </message>
    <message>
        <source>Division by zero</source>
        <translation>Division durch null</translation>
    </message>
    <message>
        <source>Invalid procedure call or argument</source>
        <translation>Ungültiger Aufruf oder ungültiges Argument</translation>
    </message>
    <message>
        <source>No folder can be made for the work on the layer '%1': %2.</source>
        <translation>Für die Arbeit am Layer '%1' kann kein Ordner angelegt werden: %L2.</translation>
    </message>
    <message>
        <source>Of the %1 features of the layer '%2' only %3 could be copied.</source>
        <translation>Von den %1 Objekten des Layers '%2' konnten nur %3 kopiert werden.</translation>
    </message>
    <message>
        <source>The features of the layer '%1' can't be copied: %2</source>
        <translation>Die Objekte des Layers '%1' können nicht kopiert werden: %L2</translation>
    </message>
    <message>
        <source>The layer '%1' has no shapes of one type: points, lines or polygons.</source>
        <translation>Der Layer '%1' hat keine Geometrien einer einzigen Art: Punkte, Linien oder Polygone.</translation>
    </message>
    <message>
        <source>The layer for '%1' can't be read: there is none of this name, or its data have gone.</source>
        <translation>Der Layer für '%1' kann nicht gelesen werden: es gibt keinen dieses Namens, oder seine Daten sind nicht mehr da.</translation>
    </message>
    <message>
        <source>A latitude lies beyond a pole.</source>
        <translation>Eine Breite liegt jenseits eines Pols.</translation>
    </message>
    <message>
        <source>A shape of this type has no such measure.</source>
        <translation>Eine Geometrie dieser Art hat kein solches Maß.</translation>
    </message>
    <message>
        <source>The shape has no reference that is geographic or projected.</source>
        <translation>Das Bezugssystem der Geometrie ist weder geographisch noch projiziert.</translation>
    </message>
    <message>
        <source>dates become texts.</source>
        <translation>aus Datumsangaben werden Texte.</translation>
    </message>
    <message>
        <source>texts longer than %1 bytes are cut.</source>
        <translation>Texte von mehr als %1 Bytes werden gekürzt.</translation>
    </message>
    <message>
        <source>times of day are left out, the format keeps days only.</source>
        <translation>Uhrzeiten gehen nicht mit, das Format kennt nur Tage.</translation>
    </message>
    <message>
        <source>times of day become texts.</source>
        <translation>aus Uhrzeiten werden Texte.</translation>
    </message>
    <message>
        <source>whole numbers beyond 9,007,199,254,740,992 that no double holds exactly become null.</source>
        <translation>aus ganzen Zahlen jenseits von 9.007.199.254.740.992, die keine Gleitkommazahl genau darstellt, wird null.</translation>
    </message>
    <message>
        <source>The field '%1' can't be written: binary values and lists can't.</source>
        <translation>Das Feld '%1' kann nicht geschrieben werden: Binärwerte und Listen sind nicht zu schreiben.</translation>
    </message>
    <message>
        <source>The layer has no field %1.</source>
        <translation>Der Layer hat kein Feld %1.</translation>
    </message>
    <message>
        <source>The layer's format has no type for the field '%1'.</source>
        <translation>Das Format des Layers hat keinen Typ für das Feld '%1'.</translation>
    </message>
    <message>
        <source>The class '%1' has no interface %2.</source>
        <translation>Die Klasse '%1' hat keine Schnittstelle %2.</translation>
    </message>
    <message>
        <source>The suite has no class '%1'.</source>
        <translation>Es gibt hier keine Klasse '%1'.</translation>
    </message>
    <message>
        <source>Polygons are built from polylines only.</source>
        <translation>Polygone werden nur aus Linien gebildet.</translation>
    </message>
    <message>
        <source>The cluster tolerance must be 0 or a positive number.</source>
        <translation>Die Fangtoleranz muss 0 oder eine positive Zahl sein.</translation>
    </message>
    <message>
        <source>The list '%1' has no line %2.</source>
        <translation>Die Liste '%1' hat keine Zeile %2.</translation>
    </message>
    <message>
        <source>Features of this kind have no parts to split: choose a layer of multipoints, polylines or polygons.</source>
        <translation>Objekte dieser Art haben keine Teile: bitte einen Layer von Multipunkten, Linien oder Polygonen wählen.</translation>
    </message>
    <message>
        <source>Points can't be combined: what they make is a multipoint, which the new class of points can't hold.</source>
        <translation>Punkte können nicht vereint werden: es entsteht ein Multipunkt, den die neuen Punkte nicht aufnehmen.</translation>
    </message>
    <message>
        <source>'%1' holds points. %2</source>
        <translation>'%1' enthält Punkte. %L2</translation>
    </message>
    <message>
        <source>'%1' can't be read again when it is written%2</source>
        <translation>'%1' kann, einmal geschrieben, nicht wieder gelesen werden%L2</translation>
    </message>
    <message>
        <source>'%1' reads back without the layer '%2'.</source>
        <translation>'%1' hat beim Wiederlesen keinen Layer '%2'.</translation>
    </message>
    <message>
        <source>Numbers are rounded to %1 digits: the format writes no more of them.</source>
        <translation>Zahlen werden auf %1 Stellen gerundet: mehr schreibt das Format nicht.</translation>
    </message>
    <message>
        <source>Fields can't be added to the layer '%1': they take %2 bytes, and its disk has room for %3. Free some room first; the data are as they were.</source>
        <translation>Dem Layer '%1' können keine Felder hinzugefügt werden: sie brauchen %2 Byte, und auf dem Datenträger ist Platz für %3. Schaffen Sie zuerst Platz; die Daten sind unverändert.</translation>
    </message>
    <message>
        <source>The data of the layer '%1' are gone: choose another layer.</source>
        <translation>Die Daten des Layers '%1' sind nicht mehr da: wählen Sie einen anderen Layer.</translation>
    </message>
    <message>
        <source>Null is written as 0 or as an empty text: the format knows none but in dates.</source>
        <translation>Null wird als 0 oder als leerer Text geschrieben: das Format kennt null nur in Datumsangaben.</translation>
    </message>
    <message>
        <source>The shape lies a little beside the source's: the format keeps coordinates with fewer digits.</source>
        <translation>Die Geometrie liegt ein wenig neben der der Quelle: das Format speichert Koordinaten mit weniger Stellen.</translation>
    </message>
    <message>
        <source>The shape lies elsewhere than the source's, because the format can't keep where it is: write it to another format.</source>
        <translation>Die Geometrie liegt anderswo als die der Quelle, weil das Format ihre Lage nicht speichern kann: bitte ein anderes Format nehmen.</translation>
    </message>
    <message>
        <source>'%1' reads back with %2 rows where %3 were written: the format doesn't keep these records as they are. Name another format. Nothing of the copy is kept.</source>
        <translation>'%1' hat beim Wiederlesen %2 Zeilen, geschrieben wurden %3: das Format speichert diese Datensätze nicht so, wie sie sind. Bitte ein anderes Format nennen. Von der Kopie bleibt nichts.</translation>
    </message>
    <message>
        <source>Only %1 of the %2 rows that were written are in '%3': check the room on the disk. Nothing of the copy is kept.</source>
        <translation>Nur %1 der %2 geschriebenen Zeilen sind in '%3': bitte den Platz auf dem Datenträger prüfen. Von der Kopie bleibt nichts.</translation>
    </message>
    <message>
        <source>'%1' is only planned.</source>
        <translation>'%1' ist nur geplant.</translation>
    </message>
    <message>
        <source>'%1' can't be written: its format keeps no fields of a user's own. Name another format.</source>
        <translation>'%1' kann nicht geschrieben werden: sein Format kennt keine eigenen Felder. Bitte ein anderes Format nennen.</translation>
    </message>
    <message>
        <source>In the field '%1', %2</source>
        <translation>Im Feld '%1': %L2</translation>
    </message>
    <message>
        <source>The field '%1' is left out: the format keeps nothing of its kind.</source>
        <translation>Das Feld '%1' geht nicht mit: das Format kennt nichts von seiner Art.</translation>
    </message>
    <message>
        <source>The field '%1' is written as '%2'.</source>
        <translation>Das Feld '%1' wird als '%2' geschrieben.</translation>
    </message>
    <message>
        <source>lists become texts.</source>
        <translation>aus Listen werden Texte.</translation>
    </message>
    <message>
        <source>Arcs are written as lines of many short segments: the format keeps no curves.</source>
        <translation>Bögen werden als Linien aus vielen kurzen Strecken geschrieben: das Format kennt keine Kurven.</translation>
    </message>
    <message>
        <source>Heights (Z) of vertices are left out: the format keeps none.</source>
        <translation>Höhen (Z) der Stützpunkte gehen nicht mit: das Format kennt keine.</translation>
    </message>
    <message>
        <source>Measures (M) of vertices are left out: the format keeps none.</source>
        <translation>Messwerte (M) der Stützpunkte gehen nicht mit: das Format kennt keine.</translation>
    </message>
    <message>
        <source>The heights (Z) of the shape aren't kept by the format.</source>
        <translation>Das Format speichert die Höhen (Z) der Geometrie nicht.</translation>
    </message>
    <message>
        <source>The measures (M) of the shape aren't kept by the format.</source>
        <translation>Das Format speichert die Messwerte (M) der Geometrie nicht.</translation>
    </message>
    <message>
        <source>The shape has no heights (Z) and got the height 0: the format keeps them for all shapes of a layer or for none.</source>
        <translation>Die Geometrie hat keine Höhen (Z) und bekam die Höhe 0: das Format speichert sie für alle Geometrien eines Layers oder für keine.</translation>
    </message>
    <message>
        <source>The shape has no measures (M) and got the measure 0: the format keeps them for all shapes of a layer or for none.</source>
        <translation>Die Geometrie hat keine Messwerte (M) und bekam den Messwert 0: das Format speichert sie für alle Geometrien eines Layers oder für keine.</translation>
    </message>
    <message>
        <source>'%1' can't be made%2%3</source>
        <translation>'%1' kann nicht angelegt werden%L2%L3</translation>
    </message>
    <message>
        <source>'%1' can't be written in one step%2.</source>
        <translation>'%1' kann nicht in einem Schritt geschrieben werden%L2.</translation>
    </message>
    <message>
        <source>'%1' can't be written: its format keeps no shapes. Name another format.</source>
        <translation>'%1' kann nicht geschrieben werden: sein Format kennt keine Geometrien. Bitte ein anderes Format nennen.</translation>
    </message>
    <message>
        <source>The layer '%1' can't be made in '%2'%3%4</source>
        <translation>Der Layer '%1' kann in '%2' nicht angelegt werden%L3%L4</translation>
    </message>
    <message>
        <source>The layer '%1' can't be replaced%2.</source>
        <translation>Der Layer '%1' kann nicht ersetzt werden%L2.</translation>
    </message>
    <message>
        <source>The table '%1' can't be replaced, because these depend on it and would be dropped: %2. Drop them first, or name another table.</source>
        <translation>Die Tabelle '%1' kann nicht ersetzt werden, weil diese von ihr abhängen und verloren gingen: %2. Bitte erst sie löschen oder eine andere Tabelle nennen.</translation>
    </message>
    <message>
        <source>This machine's GDAL doesn't write %1: name another format.</source>
        <translation>GDAL schreibt auf diesem Rechner kein %1: bitte ein anderes Format nennen.</translation>
    </message>
    <message>
        <source>date and time</source>
        <translation>Datum und Uhrzeit</translation>
    </message>
    <message>
        <source>text of %1</source>
        <translation>Text von %1</translation>
    </message>
    <message>
        <source>whole number</source>
        <translation>ganze Zahl</translation>
    </message>
    <message>
        <source>a page has no room for a row</source>
        <translation>eine Seite hat keinen Platz für eine Zeile</translation>
    </message>
    <message>
        <source>a page of rows has more slots than room</source>
        <translation>eine Seite mit Zeilen hat mehr Plätze als Raum</translation>
    </message>
    <message>
        <source>a page of rows was expected, and one of another kind is there</source>
        <translation>statt einer Seite mit Zeilen liegt dort eine andere</translation>
    </message>
    <message>
        <source>a row is told of in a slot that isn't there</source>
        <translation>eine Zeile soll an einem Platz stehen, den es nicht gibt</translation>
    </message>
    <message>
        <source>a row reaches beyond its page</source>
        <translation>eine Zeile reicht über ihre Seite hinaus</translation>
    </message>
    <message>
        <source>'%1' has no layer '%2'. It has: %3.</source>
        <translation>'%1' hat keinen Layer '%2'. Es gibt: %3.</translation>
    </message>
    <message>
        <source>'%1' holds no layer with shapes.</source>
        <translation>'%1' enthält keinen Layer mit Geometrien.</translation>
    </message>
    <message>
        <source>'%1' holds several layers; name one of: %2.</source>
        <translation>'%1' enthält mehrere Layer; bitte einen nennen: %2.</translation>
    </message>
    <message>
        <source>'%1' in '%2' is a table without shapes.</source>
        <translation>'%1' in '%2' ist eine Tabelle ohne Geometrien.</translation>
    </message>
    <message>
        <source>'%1' can't be the name of a table: it must be 1 to 64 characters long</source>
        <translation>'%1' kann keine Tabelle heißen: der Name muss 1 bis 64 Zeichen lang sein</translation>
    </message>
    <message>
        <source>'%1' has no table '%2'</source>
        <translation>'%1' hat keine Tabelle '%2'</translation>
    </message>
    <message>
        <source>'%1' is a table of the database itself</source>
        <translation>'%1' ist eine Tabelle der Datenbank selbst</translation>
    </message>
    <message>
        <source>the database doesn't tell its owner (MSysDb)</source>
        <translation>die Datenbank nennt ihren Eigentümer nicht (MSysDb)</translation>
    </message>
    <message>
        <source>the database has no table yet, and who may do what with a new one isn't known</source>
        <translation>die Datenbank hat noch keine Tabelle, und wer was mit einer neuen tun darf, ist nicht bekannt</translation>
    </message>
    <message>
        <source>the definition of the table '%1' holds what isn't known here, so that it can get no column</source>
        <translation>die Definition der Tabelle '%1' enthält Unbekanntes, so dass keine Spalte hinzukommen kann</translation>
    </message>
    <message>
        <source>the table '%1' of '%2' can't be opened: %3</source>
        <translation>die Tabelle '%1' von '%2' kann nicht geöffnet werden: %L3</translation>
    </message>
    <message>
        <source>there is a table '%1' already</source>
        <translation>eine Tabelle '%1' gibt es schon</translation>
    </message>
    <message>
        <source>Only values of at least 1 have such digits.</source>
        <translation>Nur Werte von mindestens 1 haben solche Ziffern.</translation>
    </message>
    <message>
        <source>file geodatabase</source>
        <translation>File-Geodatabase</translation>
    </message>
    <message>
        <source>Field '%1': the value %2 doesn't fit its width of %3.</source>
        <translation>Feld '%1': der Wert %2 passt nicht in seine Breite von %3.</translation>
    </message>
    <message>
        <source>'%1' can't be read to its end%2.</source>
        <translation>'%1' kann nicht bis zum Ende gelesen werden%L2.</translation>
    </message>
    <message>
        <source>'%1' has no field '%2'.</source>
        <translation>'%1' hat kein Feld '%2'.</translation>
    </message>
    <message>
        <source>'%1' has no layer%2. It has: %3.</source>
        <translation>'%1' hat keinen Layer%L2. Es gibt: %3.</translation>
    </message>
    <message>
        <source>%1 of %2 named '%3'.</source>
        <translation>%1 von %L2 mit dem Namen '%3'.</translation>
    </message>
    <message>
        <source>no graphic element is selected.</source>
        <translation>keine Grafik ist ausgewählt.</translation>
    </message>
    <message>
        <source>%1 of %2 selected.</source>
        <translation>%1 von %L2 ausgewählt.</translation>
    </message>
    <message>
        <source>No graphic element of the view has a name.</source>
        <translation>Keine Grafik der Ansicht hat einen Namen.</translation>
    </message>
    <message>
        <source>no graphic element is named '%1'. There are: %2.</source>
        <translation>keine Grafik heißt '%1'. Es gibt: %2.</translation>
    </message>
    <message>
        <source>the view has none.</source>
        <translation>die Ansicht hat keine.</translation>
    </message>
    <message>
        <source>Tell what to select: a type, as {circles}, a {name}, or a {pattern}.</source>
        <translation>Bitte angeben, was auszuwählen ist: eine Art, etwa {circles}, einen Namen mit {name} oder ein Muster mit {pattern}.</translation>
    </message>
    <message>
        <source>The group has no such element.</source>
        <translation>Die Gruppe hat kein solches Element.</translation>
    </message>
    <message>
        <source>(GDAL says: %1)</source>
        <translation>(GDAL meldet: %1)</translation>
    </message>
    <message>
        <source>A position has a coordinate that is no finite number.</source>
        <translation>Ein Ort hat eine Koordinate, die keine endliche Zahl ist.</translation>
    </message>
    <message>
        <source>The semi-axes of the spheroid must be finite and above 0.</source>
        <translation>Die Halbachsen des Sphäroids müssen endlich und größer als 0 sein.</translation>
    </message>
    <message>
        <source>'%1' can't be changed: check its permissions.</source>
        <translation>'%1' kann nicht geändert werden: bitte die Zugriffsrechte prüfen.</translation>
    </message>
    <message>
        <source>Object variable not set: %1</source>
        <translation>Ein Objekt fehlt: %L1</translation>
    </message>
    <message>
        <source>(left out)</source>
        <translation>(ausgelassen)</translation>
    </message>
    <message>
        <source>A feature that had a shape came out with an empty one.</source>
        <translation>Ein Objekt mit Geometrie kam mit einer leeren heraus.</translation>
    </message>
    <message>
        <source>Converting Features...</source>
        <translation>Objekte werden umgewandelt ...</translation>
    </message>
    <message>
        <source>No feature class was created: %1</source>
        <translation>Es wurde keine Ausgabe angelegt: %L1</translation>
    </message>
    <message>
        <source>The output holds another area, length or number of places than the input.</source>
        <translation>Die Ausgabe hat eine andere Fläche, Länge oder Anzahl von Orten als die Eingabe.</translation>
    </message>
    <message>
        <source>A grid level can't be negative.</source>
        <translation>Die Stufe eines Rasters kann nicht negativ sein.</translation>
    </message>
    <message>
        <source>There is no field %1 in a list of %2.</source>
        <translation>Eine Liste von %2 hat kein Feld %1.</translation>
    </message>
    <message>
        <source>'%1' has no field '%2'. It has: %3.</source>
        <translation>'%1' hat kein Feld '%2'. Es gibt: %3.</translation>
    </message>
    <message>
        <source>'%1' may be one of several fields of '%2'. Give the name of one, or another alias: %3.</source>
        <translation>'%1' kann eines von mehreren Feldern von '%2' sein. Bitte den Namen oder einen anderen Alias angeben: %3.</translation>
    </message>
    <message>
        <source>none that can be carried over</source>
        <translation>keine, die mitgehen können</translation>
    </message>
    <message>
        <source>%1  (Begins with invalid character '%2')</source>
        <translation>%1  (beginnt mit dem unerlaubten Zeichen '%2')</translation>
    </message>
    <message>
        <source>%1  (Contains invalid character '%2')</source>
        <translation>%1  (enthält das unerlaubte Zeichen '%2')</translation>
    </message>
    <message>
        <source>'%1' has no field '%2' any more.</source>
        <translation>'%1' hat kein Feld '%2' mehr.</translation>
    </message>
    <message>
        <source>%1 has no identifier</source>
        <translation>%L1 hat keine Kennung</translation>
    </message>
    <message>
        <source>%1 has the identifier of another</source>
        <translation>%L1 hat die Kennung eines anderen</translation>
    </message>
    <message>
        <source>'%1' has %2 rows in GDB_Items</source>
        <translation>'%1' hat %2 Zeilen in GDB_Items</translation>
    </message>
    <message>
        <source>GDB_ItemRelationships doesn't tell where '%1' lies</source>
        <translation>GDB_ItemRelationships sagt nicht, wo '%1' liegt</translation>
    </message>
    <message>
        <source>a file of '%1' (%2) is missing</source>
        <translation>eine Datei von '%1' (%2) fehlt</translation>
    </message>
    <message>
        <source>row %1 of GDB_ItemRelationships tells of an item that isn't there</source>
        <translation>die Zeile %1 von GDB_ItemRelationships nennt ein Element, das es nicht gibt</translation>
    </message>
    <message>
        <source>row %1 of GDB_Items</source>
        <translation>die Zeile %1 von GDB_Items</translation>
    </message>
    <message>
        <source>the catalogue can't be read</source>
        <translation>der Katalog kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>the catalogue has two tables '%1'</source>
        <translation>der Katalog hat zwei Tabellen '%1'</translation>
    </message>
    <message>
        <source>the definition of '%1' in GDB_Items can't be read</source>
        <translation>die Definition von '%1' in GDB_Items kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>the definition of '%1' lacks its column '%2'</source>
        <translation>der Definition von '%1' fehlt die Spalte '%2'</translation>
    </message>
    <message>
        <source>the definition of '%1' names a column '%2' that the table lacks</source>
        <translation>die Definition von '%1' nennt eine Spalte '%2', die der Tabelle fehlt</translation>
    </message>
    <message>
        <source>%1 and %2 overlap</source>
        <translation>%L1 und %L2 überschneiden sich</translation>
    </message>
    <message>
        <source>a free place</source>
        <translation>ein freier Platz</translation>
    </message>
    <message>
        <source>a free place ends behind the file</source>
        <translation>ein freier Platz endet hinter der Datei</translation>
    </message>
    <message>
        <source>row %1 isn't as long as its values</source>
        <translation>die Zeile %1 ist nicht so lang wie ihre Werte</translation>
    </message>
    <message>
        <source>row %1 isn't where the offsets say</source>
        <translation>die Zeile %1 steht nicht, wo das Verzeichnis sagt</translation>
    </message>
    <message>
        <source>the description of the columns</source>
        <translation>die Beschreibung der Spalten</translation>
    </message>
    <message>
        <source>the header tells of %1 bytes, the file has %2</source>
        <translation>der Kopf nennt %1 Bytes, die Datei hat %2</translation>
    </message>
    <message>
        <source>the header tells of %1 rows, there are %2</source>
        <translation>der Kopf nennt %1 Zeilen, es sind %2</translation>
    </message>
    <message>
        <source>the header tells of rows up to %1 bytes, one has %2</source>
        <translation>der Kopf nennt Zeilen bis zu %1 Bytes, eine hat %2</translation>
    </message>
    <message>
        <source>the index '%1' has %2 entries, its column %3 values</source>
        <translation>der Index '%1' hat %2 Einträge, seine Spalte %3 Werte</translation>
    </message>
    <message>
        <source>the index '%1' has no file</source>
        <translation>der Index '%1' hat keine Datei</translation>
    </message>
    <message>
        <source>the index '%1' is cut off</source>
        <translation>der Index '%1' ist abgeschnitten</translation>
    </message>
    <message>
        <source>the index '%1' is of a column '%2' that isn't there</source>
        <translation>der Index '%1' gehört zu einer Spalte '%2', die es nicht gibt</translation>
    </message>
    <message>
        <source>the list of free places has a length that it can't have</source>
        <translation>die Liste der freien Plätze hat eine unmögliche Länge</translation>
    </message>
    <message>
        <source>the list of free places has a page %1 that it can't have</source>
        <translation>die Liste der freien Plätze hat eine unmögliche Seite %1</translation>
    </message>
    <message>
        <source>the table '%1' (%2) can't be read</source>
        <translation>die Tabelle '%1' (%2) kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>the table '%1' can't be read: %2</source>
        <translation>die Tabelle '%1' kann nicht gelesen werden: %L2</translation>
    </message>
    <message>
        <source>The changes of '%1' were given up, because they would have damaged it: %2. It is as it was before. Work on a copy of the class, or on another format.</source>
        <translation>Die Änderungen an '%1' wurden aufgegeben, weil sie es beschädigt hätten: %2. Es ist so wie zuvor. Bitte an einer Kopie der Featureklasse oder in einem anderen Format arbeiten.</translation>
    </message>
    <message>
        <source>Coordinate out of range: the shape reaches from x %1, y %2 to x %3, y %4, but '%5' keeps none below x %6, y %7 and none that isn't a number.</source>
        <translation>Koordinate außerhalb des Bereichs: die Geometrie reicht von x %1, y %2 bis x %3, y %4, aber '%5' speichert keine unter x %6, y %7 und keine, die keine Zahl ist.</translation>
    </message>
    <message>
        <source>'%1' can't be written%2</source>
        <translation>'%1' kann nicht geschrieben werden%L2</translation>
    </message>
    <message>
        <source>The list of indexes ends too early.</source>
        <translation>Die Liste der Indizes endet zu früh.</translation>
    </message>
    <message>
        <source>The description of the columns ends too early.</source>
        <translation>Die Beschreibung der Spalten endet zu früh.</translation>
    </message>
    <message>
        <source>'%1' is written to outside of an edit.</source>
        <translation>'%1' wird außerhalb einer Bearbeitung geschrieben.</translation>
    </message>
    <message>
        <source>'%1.gdbtable' can't grow any more.</source>
        <translation>'%1.gdbtable' kann nicht weiter wachsen.</translation>
    </message>
    <message>
        <source>Field '%1': the value %2 doesn't fit 16 bits.</source>
        <translation>Feld '%1': der Wert %2 passt nicht in 16 Bits.</translation>
    </message>
    <message>
        <source>Row %1 of '%2.gdbtable' isn't stored as its table says. Copy the layer, and calculate on the copy.</source>
        <translation>Die Zeile %1 von '%2.gdbtable' ist nicht so gespeichert, wie ihre Tabelle sagt. Bitte den Layer kopieren und an der Kopie rechnen.</translation>
    </message>
    <message>
        <source>The field '%1' can't be null.</source>
        <translation>Das Feld '%1' kann nicht null sein.</translation>
    </message>
    <message>
        <source>'%1' is being changed by another run: wait for its end, then try again.</source>
        <translation>'%1' wird gerade von einem anderen Lauf geändert: bitte dessen Ende abwarten und es dann noch einmal versuchen.</translation>
    </message>
    <message>
        <source>'%1' was changed by another program while this run worked on it; it stays as that program left it, and nothing of this run is in it. Close the other program, then try again.</source>
        <translation>'%1' wurde während des Laufs von einem anderen Programm geändert; es bleibt so, wie dieses es hinterlassen hat, und enthält nichts von diesem Lauf. Bitte das andere Programm schließen und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>'%1' was made by another program meanwhile.</source>
        <translation>'%1' wurde inzwischen von einem anderen Programm angelegt.</translation>
    </message>
    <message>
        <source>The folder '%1' can't be written to, and '%2' is changed by a copy beside it: check the permissions, or copy the geodatabase elsewhere.</source>
        <translation>In den Ordner '%1' kann nicht geschrieben werden, und '%2' wird durch eine Kopie daneben geändert: bitte die Zugriffsrechte prüfen oder die Geodatabase an einen anderen Ort kopieren.</translation>
    </message>
    <message>
        <source>can't be copied</source>
        <translation>kann nicht kopiert werden</translation>
    </message>
    <message>
        <source>can't be made</source>
        <translation>kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>can't be opened</source>
        <translation>kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>can't be read</source>
        <translation>kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>The %1 of the shapes%2 are left out: the output is flat.</source>
        <translation>Die %L1 der Geometrien%2 gehen nicht mit: die Ausgabe ist flach.</translation>
    </message>
    <message>
        <source>The lists in the field '%1' of '%2' are written as texts of JSON.</source>
        <translation>Die Listen im Feld '%1' von '%2' werden als JSON-Texte geschrieben.</translation>
    </message>
    <message>
        <source>The lists in the field '%1'%2 are written as texts of JSON.</source>
        <translation>Die Listen im Feld '%1'%2 werden als JSON-Texte geschrieben.</translation>
    </message>
    <message>
        <source>The field '%1'%2 is left out: %3 are not carried over.</source>
        <translation>Das Feld '%1'%L2 geht nicht mit: %3 werden nicht übernommen.</translation>
    </message>
    <message>
        <source>binary values</source>
        <translation>Binärwerte</translation>
    </message>
    <message>
        <source>heights (Z) and measures (M)</source>
        <translation>Höhen (Z) und Messwerte (M)</translation>
    </message>
    <message>
        <source>identifiers and XML of a geodatabase</source>
        <translation>Kennungen und XML einer Geodatabase</translation>
    </message>
    <message>
        <source>Feature Class Already Exists: the run would ask whether to overwrite it.</source>
        <translation>Die Ausgabe gibt es schon: der Lauf würde fragen, ob er sie überschreiben soll.</translation>
    </message>
    <message>
        <source>The database can't be opened for writing%1: check the connection, the user and the rights.</source>
        <translation>Die Datenbank kann nicht zum Schreiben geöffnet werden%L1: bitte Verbindung, Benutzer und Rechte prüfen.</translation>
    </message>
    <message>
        <source>'%1' exists already.</source>
        <translation>'%1' gibt es schon.</translation>
    </message>
    <message>
        <source>'%1' exists already: name another GeoPackage.</source>
        <translation>'%1' gibt es schon: bitte ein anderes GeoPackage nennen.</translation>
    </message>
    <message>
        <source>'%1' has no feature dataset '%2'.</source>
        <translation>'%1' hat kein Feature-Dataset '%2'.</translation>
    </message>
    <message>
        <source>In the field '%1', times of day become texts.</source>
        <translation>Im Feld '%1' werden aus Uhrzeiten Texte.</translation>
    </message>
    <message>
        <source>There is no folder '%1'.</source>
        <translation>Es gibt keinen Ordner '%1'.</translation>
    </message>
    <message>
        <source>%1 All Records</source>
        <translation>%L1 (alle Datensätze)</translation>
    </message>
    <message>
        <source>&lt;-- No Names Found --&gt;!</source>
        <translation>&lt;-- keine Namen --&gt;!</translation>
    </message>
    <message>
        <source>&lt;-- Missing 'Spheroids.dat' file --&gt;</source>
        <translation>&lt;-- Die Datei 'Spheroids.dat' fehlt --&gt;</translation>
    </message>
    <message>
        <source>'%1' exists already: name another geodatabase.</source>
        <translation>'%1' gibt es schon: bitte eine andere Geodatabase nennen.</translation>
    </message>
    <message>
        <source>'%1' is no geodatabase of the kind %2.</source>
        <translation>'%1' ist keine Geodatabase der Art %2.</translation>
    </message>
    <message>
        <source>The class '%1' exists already in '%2'.</source>
        <translation>Die Featureklasse '%1' gibt es in '%2' schon.</translation>
    </message>
    <message>
        <source>The feature dataset '%1' can't be deleted from here.</source>
        <translation>Das Feature-Dataset '%1' kann von hier aus nicht gelöscht werden.</translation>
    </message>
    <message>
        <source>The file geodatabase '%1' can't be created%2.</source>
        <translation>Die File-Geodatabase '%1' kann nicht angelegt werden%L2.</translation>
    </message>
    <message>
        <source>There is no geodatabase '%1'.</source>
        <translation>Es gibt keine Geodatabase '%1'.</translation>
    </message>
    <message>
        <source>%1 has %2 elements instead of %3.</source>
        <translation>%L1 hat %2 Elemente statt %3.</translation>
    </message>
    <message>
        <source>Rows of '%1' in '%2' can't be written (SQLite says: %3)%4</source>
        <translation>Zeilen von '%1' in '%2' können nicht geschrieben werden (SQLite meldet: %3)%L4</translation>
    </message>
    <message>
        <source>Only points, multipoints, polylines and polygons can be compared or combined.</source>
        <translation>Nur Punkte, Multipunkte, Linien und Polygone können verglichen oder vereint werden.</translation>
    </message>
    <message>
        <source>The shape can't be worked on. (GEOS says: %1)</source>
        <translation>Die Geometrie kann nicht bearbeitet werden. (GEOS meldet: %1)</translation>
    </message>
    <message>
        <source>unknown error</source>
        <translation>unbekannter Fehler</translation>
    </message>
    <message>
        <source>Without {all} or {selected} it names the selected elements where there are any, else all.</source>
        <translation>Ohne {all} und {selected} werden die ausgewählten Grafiken benannt, wenn es welche gibt, sonst alle.</translation>
    </message>
    <message>
        <source>Empty classes are made of points, polylines or polygons.</source>
        <translation>Leere Layer gibt es für Punkte, Linien oder Polygone.</translation>
    </message>
    <message>
        <source>No conversion is selected.</source>
        <translation>Es ist nichts zum Umwandeln gewählt.</translation>
    </message>
    <message>
        <source>polylines or polygons</source>
        <translation>Linien oder Polygone</translation>
    </message>
    <message>
        <source>Without {all} or {selected} it takes the selected elements where there are any, else all.</source>
        <translation>Ohne {all} und {selected} werden die ausgewählten Grafiken genommen, wenn es welche gibt, sonst alle.</translation>
    </message>
    <message>
        <source>'%1' is no shape: give points, polylines or polygons. The output's reference is named by {reference}.</source>
        <translation>'%1' ist keine Art: bitte points, polylines oder polygons angeben. Das Bezugssystem der Ausgabe nennt {reference}.</translation>
    </message>
    <message>
        <source>Conversion Unavailable in Layout View...</source>
        <translation>In der Layoutansicht nicht verfügbar ...</translation>
    </message>
    <message>
        <source>The map has no spatial reference: name that of the output with {reference}.</source>
        <translation>Die Karte hat kein Bezugssystem: bitte das der Ausgabe mit {reference} nennen.</translation>
    </message>
    <message>
        <source>These elements, counted from 1, were left out.</source>
        <translation>Diese Grafiken, von 1 an gezählt, wurden ausgelassen.</translation>
    </message>
    <message>
        <source>graphics of the map</source>
        <translation>Grafiken der Karte</translation>
    </message>
    <message>
        <source>{both} takes lines and polygons: convert {to} polylines or {to} polygons with it.</source>
        <translation>{both} nimmt Linien und Polygone: bitte dazu mit {to} polylines oder {to} polygons angeben.</translation>
    </message>
    <message>
        <source>No graphics available...</source>
        <translation>Keine Grafiken vorhanden ...</translation>
    </message>
    <message>
        <source>No host serves this process.</source>
        <translation>Diesem Prozess dient kein Programm.</translation>
    </message>
    <message>
        <source>What was made doesn't tell which features it is of.</source>
        <translation>Dem Ergebnis ist nicht anzusehen, zu welchen Objekten es gehört.</translation>
    </message>
    <message>
        <source>the index on '%1' can't take '%2': its order of characters other than A to Z, digits, blank and underline isn't known</source>
        <translation>der Index auf '%1' kann '%2' nicht aufnehmen: seine Ordnung anderer Zeichen als A bis Z, Ziffern, Leerzeichen und Unterstrich ist nicht bekannt</translation>
    </message>
    <message>
        <source>the index on '%1' is on a type of column whose order isn't known</source>
        <translation>der Index auf '%1' gehört zu einem Spaltentyp, dessen Ordnung nicht bekannt ist</translation>
    </message>
    <message>
        <source>a key is too long for its index</source>
        <translation>ein Schlüssel ist zu lang für seinen Index</translation>
    </message>
    <message>
        <source>an entry of an index is too short</source>
        <translation>ein Eintrag eines Index ist zu kurz</translation>
    </message>
    <message>
        <source>an index is too large</source>
        <translation>ein Index ist zu groß</translation>
    </message>
    <message>
        <source>an index leads to a page that isn't its own</source>
        <translation>ein Index führt zu einer Seite, die nicht seine ist</translation>
    </message>
    <message>
        <source>the leaves of an index lead to a page of another kind</source>
        <translation>die Blätter eines Index führen zu einer Seite anderer Art</translation>
    </message>
    <message>
        <source>the leaves of an index run in a circle</source>
        <translation>die Blätter eines Index laufen im Kreis</translation>
    </message>
    <message>
        <source>the pages of an index run in a circle</source>
        <translation>die Seiten eines Index laufen im Kreis</translation>
    </message>
    <message>
        <source>isn't kept, the format has no words for it: readers take the file's for%1</source>
        <translation>bleibt nicht erhalten, das Format hat keine Worte dafür: Leser halten das der Datei für%L1</translation>
    </message>
    <message>
        <source>one without a name</source>
        <translation>eines ohne Namen</translation>
    </message>
    <message>
        <source>%1 is left out: the format has no words for it.</source>
        <translation>%L1 geht nicht mit: das Format hat keine Worte dafür.</translation>
    </message>
    <message>
        <source>%1%2, of another body or ellipsoid.</source>
        <translation>%L1%L2, von einem anderen Himmelskörper oder Ellipsoid.</translation>
    </message>
    <message>
        <source>%1%2, where the shapes lie elsewhere by up to %3 m.</source>
        <translation>%L1%L2, in dem die Geometrien bis zu %3 m anderswo liegen.</translation>
    </message>
    <message>
        <source>%1%2, where the shapes lie elsewhere.</source>
        <translation>%L1%L2, in dem die Geometrien anderswo liegen.</translation>
    </message>
    <message>
        <source>A file can't be tried out.</source>
        <translation>Eine Datei kann nicht erprobt werden.</translation>
    </message>
    <message>
        <source>The reference can't be written to '%1'.</source>
        <translation>Das Bezugssystem kann nicht nach '%1' geschrieben werden.</translation>
    </message>
    <message>
        <source>The spatial reference%1</source>
        <translation>Das Bezugssystem%L1</translation>
    </message>
    <message>
        <source>The spatial reference%1 is named in the file: programs that go by today's rule of the format (RFC 7946) take its coordinates for longitudes and latitudes on WGS 84.</source>
        <translation>Das Bezugssystem%L1 ist in der Datei genannt: Programme, die der heutigen Regel des Formats folgen (RFC 7946), halten die Koordinaten für Längen und Breiten auf WGS 84.</translation>
    </message>
    <message>
        <source>The collection has an item '%1' already.</source>
        <translation>Die Sammlung hat schon ein Element '%1'.</translation>
    </message>
    <message>
        <source>The collection has no item '%1'.</source>
        <translation>Die Sammlung hat kein Element '%1'.</translation>
    </message>
    <message>
        <source>A polygon without area has no label point.</source>
        <translation>Ein Polygon ohne Fläche hat keinen Labelpunkt.</translation>
    </message>
    <message>
        <source>Calculating Label Points...</source>
        <translation>Labelpunkte werden berechnet ...</translation>
    </message>
    <message>
        <source>the latitudes that '%1' makes are of a kind that no reference tells, so any transformation of them would be wrong.</source>
        <translation>die Breiten, die '%1' macht, sind von einer Art, die kein Bezugssystem nennt; jede Transformation wäre falsch.</translation>
    </message>
    <message>
        <source>(and %1 more like it)</source>
        <translation>(und %1 weitere dieser Art)</translation>
    </message>
    <message>
        <source>%1 the layer '%2'%3</source>
        <translation>%L1 Layer '%2'%L3</translation>
    </message>
    <message>
        <source>%1 the layer '%2', which is being edited.</source>
        <translation>%L1 Layer '%2', der gerade bearbeitet wird.</translation>
    </message>
    <message>
        <source>A row can't be deleted from</source>
        <translation>Ein Datensatz kann nicht gelöscht werden:</translation>
    </message>
    <message>
        <source>Attributes can't be changed in</source>
        <translation>Attribute können nicht geändert werden:</translation>
    </message>
    <message>
        <source>Attributes can't be written to</source>
        <translation>Attribute können nicht geschrieben werden:</translation>
    </message>
    <message>
        <source>Shapes can't be changed in</source>
        <translation>Geometrien können nicht geändert werden:</translation>
    </message>
    <message>
        <source>Shapes can't be written to</source>
        <translation>Geometrien können nicht geschrieben werden:</translation>
    </message>
    <message>
        <source>The data of the layer '%1' can't be deleted through the map.</source>
        <translation>Die Daten des Layers '%1' können nicht durch die Karte gelöscht werden.</translation>
    </message>
    <message>
        <source>The data of the layer '%1' can't be read: they have gone, or their program or server doesn't answer.</source>
        <translation>Die Daten des Layers '%1' können nicht gelesen werden: sie sind nicht mehr da, oder ihr Programm oder Server antwortet nicht.</translation>
    </message>
    <message>
        <source>The field '%1' can't be added %2to</source>
        <translation>Das Feld '%1' kann %L2nicht angelegt werden:</translation>
    </message>
    <message>
        <source>The layer '%1' can't be read: it is no longer in the project.</source>
        <translation>Der Layer '%1' kann nicht gelesen werden: er ist nicht mehr im Projekt.</translation>
    </message>
    <message>
        <source>The layer '%1' has a field '%2' already.</source>
        <translation>Der Layer '%1' hat schon ein Feld '%2'.</translation>
    </message>
    <message>
        <source>The layer '%1' has new features that aren't saved, whose values in new fields would be lost: save the edits of the layer first, or choose fields that it has.</source>
        <translation>Der Layer '%1' hat neue Objekte, die nicht gespeichert sind; ihre Werte in neuen Feldern gingen verloren: bitte erst die Änderungen des Layers speichern oder vorhandene Felder wählen.</translation>
    </message>
    <message>
        <source>The layer '%1' has no row %2.</source>
        <translation>Der Layer '%1' hat keinen Datensatz %2.</translation>
    </message>
    <message>
        <source>The layer '%1' holds more rows than can be counted.</source>
        <translation>Der Layer '%1' hat mehr Datensätze, als gezählt werden können.</translation>
    </message>
    <message>
        <source>under this name</source>
        <translation>unter diesem Namen</translation>
    </message>
    <message>
        <source>'%1' can't be made: it would have %2 fields, and a %3 keeps %4 in a class. Name another format.</source>
        <translation>'%1' kann nicht angelegt werden: es hätte %2 Felder, und ein %3 fasst %4 in einer Featureklasse. Bitte ein anderes Format nennen.</translation>
    </message>
    <message>
        <source>Arcs become lines of many short segments in the other reference.</source>
        <translation>Bögen werden im anderen Bezugssystem zu Linien aus vielen kurzen Strecken.</translation>
    </message>
    <message>
        <source>A row of another source can't be inserted into this layer.</source>
        <translation>Ein Datensatz einer anderen Quelle kann diesem Layer nicht hinzugefügt werden.</translation>
    </message>
    <message>
        <source>A row of another source can't be written to this layer.</source>
        <translation>Ein Datensatz einer anderen Quelle kann nicht in diesen Layer geschrieben werden.</translation>
    </message>
    <message>
        <source>Rows can't be added to the layer '%1': %2</source>
        <translation>Dem Layer '%1' können keine Datensätze hinzugefügt werden: %L2</translation>
    </message>
    <message>
        <source>The attributes of the layer '%1' can only be read.</source>
        <translation>Die Attribute des Layers '%1' sind nur zu lesen.</translation>
    </message>
    <message>
        <source>The condition '%1' can't be used for the layer '%2': %3</source>
        <translation>Die Bedingung '%1' ist auf den Layer '%2' nicht anzuwenden: %L3</translation>
    </message>
    <message>
        <source>The rows of the layer '%1' can't be read.</source>
        <translation>Die Datensätze des Layers '%1' können nicht gelesen werden.</translation>
    </message>
    <message>
        <source>This cursor can't insert rows.</source>
        <translation>Hier können keine Datensätze hinzugefügt werden.</translation>
    </message>
    <message>
        <source>This cursor only inserts rows.</source>
        <translation>Hier können Datensätze nur hinzugefügt werden.</translation>
    </message>
    <message>
        <source>This cursor only reads rows.</source>
        <translation>Hier können Datensätze nur gelesen werden.</translation>
    </message>
    <message>
        <source>there is no field '%1'</source>
        <translation>es gibt kein Feld '%1'</translation>
    </message>
    <message>
        <source>The file '%1' of the layer '%2' holds whole numbers of more than 64 bits, which would be written as others: export the layer to a GeoPackage, and work on that.</source>
        <translation>Die Datei '%1' des Layers '%2' enthält ganze Zahlen von mehr als 64 Bits, die als andere geschrieben würden: bitte den Layer in ein GeoPackage exportieren und daran arbeiten.</translation>
    </message>
    <message>
        <source>The file '%1' of the layer '%2' holds values of several kinds in '%3', as numbers beside texts, which would be written as values of one kind: export the layer to a GeoPackage, and work on that.</source>
        <translation>Die Datei '%1' des Layers '%2' enthält in '%3' Werte mehrerer Arten, etwa Zahlen neben Texten, die als Werte einer Art geschrieben würden: bitte den Layer in ein GeoPackage exportieren und daran arbeiten.</translation>
    </message>
    <message>
        <source>The layer '%1' shows the same file as '%2' and is being edited: save or give up its edits first.</source>
        <translation>Der Layer '%1' zeigt dieselbe Datei wie '%2' und wird gerade bearbeitet: bitte erst seine Änderungen speichern oder verwerfen.</translation>
    </message>
    <message>
        <source>The field '%1' is calculated or joined: it can't be written.</source>
        <translation>Das Feld '%1' ist berechnet oder verknüpft: es kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>The identifier of a row can't be changed.</source>
        <translation>Die Nummer eines Datensatzes kann nicht geändert werden.</translation>
    </message>
    <message>
        <source>%1The program reads personal geodatabases through ODBC only: install a driver for them (odbc-mdbtools), or name another output.</source>
        <translation>%L1Das Programm liest Personal-Geodatabases nur über ODBC: bitte einen Treiber dafür installieren (odbc-mdbtools) oder eine andere Ausgabe nennen.</translation>
    </message>
    <message>
        <source>'%1' was written, but can't be shown in the map: %2</source>
        <translation>'%1' wurde geschrieben, kann aber in der Karte nicht gezeigt werden: %L2</translation>
    </message>
    <message>
        <source>The temporary layer '%1' isn't made yet, or shown already.</source>
        <translation>Der temporäre Layer '%1' ist noch nicht fertig oder wird schon gezeigt.</translation>
    </message>
    <message>
        <source>No program could be started to open '%1': install xdg-utils or open it by hand.</source>
        <translation>Es konnte kein Programm gestartet werden, um '%1' zu öffnen: bitte xdg-utils installieren oder die Datei von Hand öffnen.</translation>
    </message>
    <message>
        <source>The file '%1' can't be read: check its permissions.</source>
        <translation>Die Datei '%1' kann nicht gelesen werden: bitte ihre Zugriffsrechte prüfen.</translation>
    </message>
    <message>
        <source>There is no file '%1'.</source>
        <translation>Es gibt keine Datei '%1'.</translation>
    </message>
    <message>
        <source>a long value has no end</source>
        <translation>ein langer Wert hat kein Ende</translation>
    </message>
    <message>
        <source>a long value is longer than its file</source>
        <translation>ein langer Wert ist länger als seine Datei</translation>
    </message>
    <message>
        <source>a long value is shorter than its row says</source>
        <translation>ein langer Wert ist kürzer, als seine Zeile sagt</translation>
    </message>
    <message>
        <source>a long value isn't where its row says</source>
        <translation>ein langer Wert steht nicht, wo seine Zeile sagt</translation>
    </message>
    <message>
        <source>a long value was deleted</source>
        <translation>ein langer Wert wurde gelöscht</translation>
    </message>
    <message>
        <source>a part of a long value is empty</source>
        <translation>ein Teil eines langen Werts ist leer</translation>
    </message>
    <message>
        <source>a value is longer than 1 GB</source>
        <translation>ein Wert ist länger als 1 GB</translation>
    </message>
    <message>
        <source>The layer '%1' can't be added to the project.</source>
        <translation>Der Layer '%1' kann dem Projekt nicht hinzugefügt werden.</translation>
    </message>
    <message>
        <source>The map has no %1 %2.</source>
        <translation>Die Karte hat kein %1 %2.</translation>
    </message>
    <message>
        <source>'%1' has no measure '%2'. It has: %3.</source>
        <translation>'%1' hat kein Maß '%2'. Es gibt: %3.</translation>
    </message>
    <message>
        <source>a field without a name can't be made. Name it, or leave the '=' out.</source>
        <translation>ein Feld ohne Namen kann nicht angelegt werden. Bitte einen Namen angeben oder das '=' weglassen.</translation>
    </message>
    <message>
        <source>it holds binary data</source>
        <translation>es enthält Binärdaten</translation>
    </message>
    <message>
        <source>it holds the shapes</source>
        <translation>es enthält die Geometrien</translation>
    </message>
    <message>
        <source>it identifies the records</source>
        <translation>es enthält die Nummern der Datensätze</translation>
    </message>
    <message>
        <source>one field</source>
        <translation>ein Feld</translation>
    </message>
    <message>
        <source>the data don't let it be changed</source>
        <translation>die Daten lassen keine Änderung zu</translation>
    </message>
    <message>
        <source>the field '%1' can't be written to: %2. Name another field.</source>
        <translation>das Feld '%1' kann nicht geschrieben werden: %2. Bitte ein anderes Feld nennen.</translation>
    </message>
    <message>
        <source>the fields of this measure were named before; a run writes it once.</source>
        <translation>die Felder dieses Maßes wurden schon genannt; ein Lauf schreibt es einmal.</translation>
    </message>
    <message>
        <source>this measure has %1, but %2 are named.</source>
        <translation>dieses Maß hat %L1, genannt sind aber %2.</translation>
    </message>
    <message>
        <source>A latitude lies beyond a pole: lengths, areas, centroids and azimuths are those of some other place.</source>
        <translation>Eine Breite liegt jenseits eines Pols: Längen, Flächen, Schwerpunkte und Azimute sind die eines anderen Orts.</translation>
    </message>
    <message>
        <source>A polygon has no spherical centroid, because its spherical area isn't above 0: -9999 stands in its place.</source>
        <translation>Ein Polygon hat keinen sphärischen Schwerpunkt, weil seine sphärische Fläche nicht größer als 0 ist: dafür steht -9999.</translation>
    </message>
    <message>
        <source>A ring crosses itself: its lobes count by the way they run, so that their planimetric areas may cancel each other out and their centroid may lie outside.</source>
        <translation>Ein Ring schneidet sich selbst: seine Schleifen zählen nach ihrer Richtung, so dass sich ihre ebenen Flächen aufheben können und ihr Schwerpunkt außerhalb liegen kann.</translation>
    </message>
    <message>
        <source>A ring crosses itself: its lobes count by the way they run, so that their spherical areas may cancel each other out.</source>
        <translation>Ein Ring schneidet sich selbst: seine Schleifen zählen nach ihrer Richtung, so dass sich ihre sphärischen Flächen aufheben können.</translation>
    </message>
    <message>
        <source>A ring crosses itself: its spheroidal perimeter is that of one of its lobes alone.</source>
        <translation>Ein Ring schneidet sich selbst: sein Umfang auf dem Sphäroid ist der einer seiner Schleifen allein.</translation>
    </message>
    <message>
        <source>A ring is more than 180 degrees of longitude wide: its spherical area and centroid may be wrong, because they take the short way round between any two places. Its spheroidal area isn't.</source>
        <translation>Ein Ring ist mehr als 180 Längengrade breit: seine sphärische Fläche und sein sphärischer Schwerpunkt können falsch sein, weil sie zwischen zwei Orten den kurzen Weg nehmen. Seine Fläche auf dem Sphäroid ist richtig.</translation>
    </message>
    <message>
        <source>A ring steps over more than 180 degrees of longitude at once: its spheroidal area and perimeter, and in a projection all that is measured on the globe, take such a step the short way, but for a ring that this would leave without width.</source>
        <translation>Ein Ring geht in einem Schritt über mehr als 180 Längengrade: seine Fläche und sein Umfang auf dem Sphäroid, und in einer Projektion alles, was auf der Kugel gemessen wird, nehmen den kurzen Weg, außer wenn der Ring dadurch keine Breite behielte.</translation>
    </message>
    <message>
        <source>A segment or a line between its ends joins nearly antipodal positions, where the iteration for geodesics didn't settle: lengths, midpoints and azimuths may be far off.</source>
        <translation>Eine Strecke oder die Linie zwischen ihren Enden verbindet Orte, die sich fast gegenüberliegen und für die das Verfahren der geodätischen Linien kein Ergebnis fand: Längen, Mittelpunkte und Azimute können weit daneben liegen.</translation>
    </message>
    <message>
        <source>A shape lies more than 30 degrees east or west of the area that the layer's reference is made for: so far from there some projections give another place, and all that is measured on the globe is that of this place.</source>
        <translation>Eine Geometrie liegt mehr als 30 Grad östlich oder westlich des Gebiets, für das das Bezugssystem des Layers gemacht ist: so weit davon ergeben manche Projektionen einen anderen Ort, und was auf der Kugel gemessen wird, gilt für diesen.</translation>
    </message>
    <message>
        <source>On a body of this shape the series for geodesics is off: lengths by up to 2e-6 of themselves at a flattening of 1/15, 2e-5 at 1/10, 1e-3 at 1/5 and percents beyond, and midpoints and azimuths as far. Where the polar axis is the longer one, a line to the other side of the body may not be the shortest.</source>
        <translation>Auf einem Körper dieser Form ist die Reihe für geodätische Linien ungenau: Längen bis zu 2e-6 ihrer selbst bei einer Abplattung von 1/15, 2e-5 bei 1/10, 1e-3 bei 1/5 und darüber Prozente, Mittelpunkte und Azimute ebenso. Ist die Polachse die längere, so ist eine Linie zur anderen Seite des Körpers vielleicht nicht die kürzeste.</translation>
    </message>
    <message>
        <source>The measure '%1' is not one of this layer.</source>
        <translation>Das Maß '%1' gehört nicht zu diesem Layer.</translation>
    </message>
    <message>
        <source>The shape has a coordinate that is no finite number, so nothing of it can be measured.</source>
        <translation>Die Geometrie hat eine Koordinate, die keine endliche Zahl ist; nichts davon ist zu messen.</translation>
    </message>
    <message>
        <source>The shape of the feature isn't of its layer's shape type.</source>
        <translation>Die Geometrie des Objekts ist nicht von der Art seines Layers.</translation>
    </message>
    <message>
        <source>The spherical area is that on a sphere of the same volume, which on a body as flattened as this one is off by several percent: the spheroidal area isn't.</source>
        <translation>Die sphärische Fläche ist die auf einer Kugel gleichen Volumens und liegt auf einem so abgeplatteten Körper um mehrere Prozent daneben; die Fläche auf dem Sphäroid nicht.</translation>
    </message>
    <message>
        <source>The spherical area of a polygon isn't above 0: on the sphere the sides of a ring run otherwise than on the map, past each other or past a pole.</source>
        <translation>Die sphärische Fläche eines Polygons ist nicht größer als 0: auf der Kugel laufen die Seiten eines Rings anders als in der Karte, aneinander vorbei oder an einem Pol.</translation>
    </message>
    <message>
        <source>There are no measures for shapes of this type.</source>
        <translation>Für Geometrien dieser Art gibt es keine Maße.</translation>
    </message>
    <message>
        <source>Row %1 of the copy can't be read any more.</source>
        <translation>Die Zeile %1 der Kopie kann nicht mehr gelesen werden.</translation>
    </message>
    <message>
        <source>It is written to '%1'.</source>
        <translation>Es steht in '%1'.</translation>
    </message>
    <message>
        <source>'%1' has no known coordinate system, and this run must know it: define the projection of the data.</source>
        <translation>'%1' hat kein bekanntes Koordinatensystem, das der Lauf aber braucht: bitte das Bezugssystem der Daten angeben.</translation>
    </message>
    <message>
        <source>A part or feature was written without a shape, because it bounds no area or has no length.</source>
        <translation>Ein Teil oder Objekt wurde ohne Geometrie geschrieben, weil es keine Fläche umschließt oder keine Länge hat.</translation>
    </message>
    <message>
        <source>Features with a coordinate beyond 1e100 can't be joined: mend or remove these coordinates.</source>
        <translation>Objekte mit einer Koordinate jenseits von 1e100 können nicht vereint werden: bitte diese Koordinaten berichtigen oder entfernen.</translation>
    </message>
    <message>
        <source>Features with a coordinate that is infinite or no number have no output: mend or remove these coordinates.</source>
        <translation>Objekte mit einer Koordinate, die unendlich oder keine Zahl ist, haben keine Ausgabe: bitte diese Koordinaten berichtigen oder entfernen.</translation>
    </message>
    <message>
        <source>A polygon is so small that the coordinates of the output leave nothing of it: it is there without a shape.</source>
        <translation>Ein Polygon ist so klein, dass die Koordinaten der Ausgabe nichts davon übrig lassen: es steht dort ohne Geometrie.</translation>
    </message>
    <message>
        <source>Lines with a coordinate that is infinite, no number or beyond 1e100 bound nothing: mend or remove these coordinates.</source>
        <translation>Linien mit einer Koordinate, die unendlich, keine Zahl oder jenseits von 1e100 ist, umschließen nichts: bitte diese Koordinaten berichtigen oder entfernen.</translation>
    </message>
    <message>
        <source>No polygons were created from '%1'!  Possibly no polylines intersected in such a way as to create a bounded region.  Function cancelled...</source>
        <translation>Aus '%1' entstanden keine Polygone. Vielleicht schneiden sich keine Linien so, dass sie ein Gebiet umschließen.</translation>
    </message>
    <message>
        <source>No polylines available in '%1'!  Function cancelled...</source>
        <translation>In '%1' gibt es keine Linien.</translation>
    </message>
    <message>
        <source>The centroid of the multipoint can't be computed.</source>
        <translation>Der Schwerpunkt des Multipunkts kann nicht berechnet werden.</translation>
    </message>
    <message>
        <source>'%1' can't be the name of a column: choose one without . ! ` [ ], and without a blank in front</source>
        <translation>'%1' kann keine Spalte heißen: bitte einen Namen ohne . ! ` [ ] und ohne Leerzeichen am Anfang wählen</translation>
    </message>
    <message>
        <source>'%1' can't be the name of a column: it must be 1 to 64 characters long</source>
        <translation>'%1' kann keine Spalte heißen: der Name muss 1 bis 64 Zeichen lang sein</translation>
    </message>
    <message>
        <source>a table can't have more than 255 columns</source>
        <translation>eine Tabelle kann nicht mehr als 255 Spalten haben</translation>
    </message>
    <message>
        <source>an index is on a column '%1' that isn't there</source>
        <translation>ein Index gehört zu einer Spalte '%1', die es nicht gibt</translation>
    </message>
    <message>
        <source>columns of decimal numbers aren't made</source>
        <translation>Spalten von Dezimalzahlen werden nicht angelegt</translation>
    </message>
    <message>
        <source>the binary column '%1' must be 1 to 510 bytes long</source>
        <translation>die Binärspalte '%1' muss 1 bis 510 Bytes lang sein</translation>
    </message>
    <message>
        <source>the text column '%1' must be 1 to 255 characters long</source>
        <translation>die Textspalte '%1' muss 1 bis 255 Zeichen lang sein</translation>
    </message>
    <message>
        <source>there are two columns '%1'</source>
        <translation>es gibt zwei Spalten '%1'</translation>
    </message>
    <message>
        <source>A shape with a coordinate that is no finite number, or beyond 1e100, can't be worked on.</source>
        <translation>Eine Geometrie mit einer Koordinate, die keine endliche Zahl oder jenseits von 1e100 ist, kann nicht bearbeitet werden.</translation>
    </message>
    <message>
        <source>Lines run so near to each other that the places where they meet can't be told apart.</source>
        <translation>Linien laufen so nah beieinander, dass die Orte, an denen sie sich treffen, nicht zu trennen sind.</translation>
    </message>
    <message>
        <source>'%1' can't be deleted from '%2'%3.</source>
        <translation>'%1' kann nicht aus '%2' gelöscht werden%L3.</translation>
    </message>
    <message>
        <source>'%1' has a field '%2' already: choose another name.</source>
        <translation>'%1' hat schon ein Feld '%2': bitte einen anderen Namen wählen.</translation>
    </message>
    <message>
        <source>'%1' has no row %2.</source>
        <translation>'%1' hat keinen Datensatz %2.</translation>
    </message>
    <message>
        <source>'%1' holds more rows than can be counted.</source>
        <translation>'%1' hat mehr Datensätze, als gezählt werden können.</translation>
    </message>
    <message>
        <source>A field without a name can't be added to '%1'.</source>
        <translation>Ein Feld ohne Namen kann in '%1' nicht angelegt werden.</translation>
    </message>
    <message>
        <source>Row %1 of '%2' can't be deleted%3.</source>
        <translation>Der Datensatz %1 von '%2' kann nicht gelöscht werden%L3.</translation>
    </message>
    <message>
        <source>Row %1 of '%2' can't be written%3.</source>
        <translation>Der Datensatz %1 von '%2' kann nicht geschrieben werden%L3.</translation>
    </message>
    <message>
        <source>The field '%1' can't be added to '%2'%3%4</source>
        <translation>Das Feld '%1' kann in '%2' nicht angelegt werden%L3%L4</translation>
    </message>
    <message>
        <source>The field '%1' can't be added to '%2': its name is %3 characters long, and the format keeps %4.</source>
        <translation>Das Feld '%1' kann in '%2' nicht angelegt werden: sein Name ist %3 Zeichen lang, und das Format fasst %4.</translation>
    </message>
    <message>
        <source>The field '%1' can't be added under this name to '%2': choose a shorter one.</source>
        <translation>Das Feld '%1' kann unter diesem Namen in '%2' nicht angelegt werden: bitte einen kürzeren wählen.</translation>
    </message>
    <message>
        <source>The rows of '%1' in '%2' can't be counted%3.</source>
        <translation>Die Datensätze von '%1' in '%2' können nicht gezählt werden%L3.</translation>
    </message>
    <message>
        <source>'%1' can't be read to its end%2: the file is damaged or was cut off.</source>
        <translation>'%1' kann nicht bis zum Ende gelesen werden%L2: die Datei ist beschädigt oder abgeschnitten.</translation>
    </message>
    <message>
        <source>A row can't be written to '%1'</source>
        <translation>Ein Datensatz kann nicht nach '%1' geschrieben werden</translation>
    </message>
    <message>
        <source>A shape can't be written to '%1': a coordinate of it is infinite or no number.</source>
        <translation>Eine Geometrie kann nicht nach '%1' geschrieben werden: eine ihrer Koordinaten ist unendlich oder keine Zahl.</translation>
    </message>
    <message>
        <source>Rows can't be written to '%1'%2%3</source>
        <translation>Datensätze können nicht nach '%1' geschrieben werden%L2%L3</translation>
    </message>
    <message>
        <source>The buffer was not made by this feature class.</source>
        <translation>Der Puffer gehört zu einer anderen Featureklasse.</translation>
    </message>
    <message>
        <source>The condition "%1" can't be used on '%2'%3. Check its field names and quotes.</source>
        <translation>Die Bedingung "%1" ist auf '%2' nicht anzuwenden%L3. Bitte Feldnamen und Anführungszeichen prüfen.</translation>
    </message>
    <message>
        <source>The fields of '%1' can't be restricted.</source>
        <translation>Die Felder von '%1' können nicht eingeschränkt werden.</translation>
    </message>
    <message>
        <source>The shape of a record of '%1' can't be read%2. Mend the file, or get a whole copy of it.</source>
        <translation>Die Geometrie eines Datensatzes von '%1' kann nicht gelesen werden%L2. Bitte die Datei reparieren oder eine vollständige Kopie besorgen.</translation>
    </message>
    <message>
        <source>This cursor can't %1.</source>
        <translation>Hier ist das nicht möglich: %L1.</translation>
    </message>
    <message>
        <source>insert rows</source>
        <translation>Datensätze hinzufügen</translation>
    </message>
    <message>
        <source>update rows</source>
        <translation>Datensätze ändern</translation>
    </message>
    <message>
        <source>A row has no field %1.</source>
        <translation>Ein Datensatz hat kein Feld %1.</translation>
    </message>
    <message>
        <source>The field %1 of a row can't be written.</source>
        <translation>Das Feld %1 eines Datensatzes kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>A geometry of the kind %1 can't be taken as a point, line or polygon: convert the data first.</source>
        <translation>Eine Geometrie der Art %1 ist kein Punkt, keine Linie und kein Polygon: bitte die Daten erst umwandeln.</translation>
    </message>
    <message>
        <source>Only points, multipoints, polylines and polygons can be stored.</source>
        <translation>Nur Punkte, Multipunkte, Linien und Polygone können gespeichert werden.</translation>
    </message>
    <message>
        <source>The shape of a row can't be replaced by the value '%1'.</source>
        <translation>Die Geometrie eines Datensatzes kann nicht durch den Wert '%1' ersetzt werden.</translation>
    </message>
    <message>
        <source>(the store says: %1)</source>
        <translation>(der Speicher meldet: %1)</translation>
    </message>
    <message>
        <source>'%1' can't be opened for writing: check its permissions, and that its format can be written%2.</source>
        <translation>'%1' kann nicht zum Schreiben geöffnet werden: bitte die Zugriffsrechte prüfen und ob sein Format geschrieben werden kann%L2.</translation>
    </message>
    <message>
        <source>'%1' can't be opened%2: check the address, the rights, and what stands there.</source>
        <translation>'%1' kann nicht geöffnet werden%L2: bitte die Adresse, die Rechte und die Daten dort prüfen.</translation>
    </message>
    <message>
        <source>'%1' can't be written to its end%2%3</source>
        <translation>'%1' kann nicht bis zum Ende geschrieben werden%L2%L3</translation>
    </message>
    <message>
        <source>'%1' has no layer '%2' any more.</source>
        <translation>'%1' hat keinen Layer '%2' mehr.</translation>
    </message>
    <message>
        <source>'%1' in '%2' can't be used: %3.</source>
        <translation>'%1' in '%2' ist nicht zu verwenden: %L3.</translation>
    </message>
    <message>
        <source>'%1' is no vector data that can be read%2. Give a shapefile, GeoPackage, file geodatabase, GeoJSON, KML or the like.</source>
        <translation>'%1' sind keine Vektordaten, die gelesen werden können%L2. Möglich sind Shapefile, GeoPackage, File-Geodatabase, GeoJSON, KML und andere.</translation>
    </message>
    <message>
        <source>'%1' was left in the midst of a change, and that can't be undone%2: make the file, its '-journal' beside it and their folder writable.</source>
        <translation>'%1' wurde mitten in einer Änderung verlassen, die nicht rückgängig gemacht werden kann%L2: bitte die Datei, ihr '-journal' daneben und ihren Ordner beschreibbar machen.</translation>
    </message>
    <message>
        <source>The personal geodatabase can't be %1: %2. Save it by the program that made it as .mdb of the years from 2000 on, unencrypted, or in another format.</source>
        <translation>Die Personal-Geodatabase kann nicht %L1 werden: %L2. Bitte mit dem Programm, das sie angelegt hat, als .mdb der Jahre ab 2000 unverschlüsselt oder in einem anderen Format speichern.</translation>
    </message>
    <message>
        <source>There is no file or folder '%1': check its name and folder.</source>
        <translation>Es gibt keine Datei und keinen Ordner '%1': bitte Namen und Ordner prüfen.</translation>
    </message>
    <message>
        <source>'%1' is a class of '%2' and no feature dataset: name another dataset, or none.</source>
        <translation>'%1' ist eine Featureklasse von '%2' und kein Feature-Dataset: bitte ein anderes Dataset oder keines nennen.</translation>
    </message>
    <message>
        <source>'%1' is a feature dataset of '%2': name another class.</source>
        <translation>'%1' ist ein Feature-Dataset von '%2': bitte eine andere Featureklasse nennen.</translation>
    </message>
    <message>
        <source>'%1' is read by this run: name another output.</source>
        <translation>'%1' wird von diesem Lauf gelesen: bitte eine andere Ausgabe nennen.</translation>
    </message>
    <message>
        <source>'%1' was made with too few fields.</source>
        <translation>'%1' wurde mit zu wenigen Feldern angelegt.</translation>
    </message>
    <message>
        <source>PROBLEM:  This function can only create shapefiles, file geodatabase feature classes, or 
personal geodatabase feature classes.  Bailing out...</source>
        <translation>Angelegt werden nur Shapefiles, File-Geodatabase-Featureklassen und 
Personal-Geodatabase-Featureklassen.</translation>
    </message>
    <message>
        <source>The feature dataset '%1' is in '%2', but the output in '%3': name another dataset, or none.</source>
        <translation>Das Feature-Dataset '%1' liegt in '%2', die Ausgabe aber in '%3': bitte ein anderes Dataset oder keines nennen.</translation>
    </message>
    <message>
        <source>The run was stopped, and no temporary layer '%1' is left of it.</source>
        <translation>Der Lauf wurde angehalten, und von ihm bleibt kein temporärer Layer '%1'.</translation>
    </message>
    <message>
        <source>No folder can be made for the work on the output: %1.</source>
        <translation>Für die Arbeit an der Ausgabe kann kein Ordner angelegt werden: %L1.</translation>
    </message>
    <message>
        <source>The output '%1' can't be made: the program has no way to write it.</source>
        <translation>Die Ausgabe '%1' kann nicht angelegt werden: das Programm kann sie nicht schreiben.</translation>
    </message>
    <message>
        <source>The output takes no more than %1 of the %2 features: %3</source>
        <translation>Die Ausgabe nimmt nicht mehr als %1 der %2 Objekte: %L3</translation>
    </message>
    <message>
        <source>What was written can't be read again: %1</source>
        <translation>Was geschrieben wurde, kann nicht wieder gelesen werden: %L1</translation>
    </message>
    <message>
        <source>%1'%2' holds a quotation mark or a blank at one of its ends. Choose another name, or rename the folder.</source>
        <translation>%L1'%2' enthält ein Anführungszeichen oder am Rand ein Leerzeichen. Bitte einen anderen Namen wählen oder den Ordner umbenennen.</translation>
    </message>
    <message>
        <source>%1it holds a backslash. Choose another name, or rename the folder.</source>
        <translation>%L1er enthält einen umgekehrten Schrägstrich. Bitte einen anderen Namen wählen oder den Ordner umbenennen.</translation>
    </message>
    <message>
        <source>%1it names no class. Put a name ahead of '%2'.</source>
        <translation>%L1er nennt keine Featureklasse. Bitte einen Namen vor '%2' setzen.</translation>
    </message>
    <message>
        <source>%1the name of a layer holds no slash. Choose another name.</source>
        <translation>%L1der Name eines Layers enthält keinen Schrägstrich. Bitte einen anderen Namen wählen.</translation>
    </message>
    <message>
        <source>The output '%1' can't be written under this name:</source>
        <translation>Die Ausgabe '%1' kann unter diesem Namen nicht geschrieben werden:</translation>
    </message>
    <message>
        <source>The index of '%1' has nodes of an unknown kind.</source>
        <translation>Der Index von '%1' hat Knoten unbekannter Art.</translation>
    </message>
    <message>
        <source>The layer '%1' can't be indexed (SQLite says: %2).</source>
        <translation>Für den Layer '%1' kann kein Index angelegt werden (SQLite meldet: %2).</translation>
    </message>
    <message>
        <source>The layer '%1' can't be indexed%2%3</source>
        <translation>Für den Layer '%1' kann kein Index angelegt werden%L2%L3</translation>
    </message>
    <message>
        <source>The layer '%1' isn't there to be indexed.</source>
        <translation>Den Layer '%1' gibt es nicht; ein Index ist nicht anzulegen.</translation>
    </message>
    <message>
        <source>'%1' can't be opened</source>
        <translation>'%1' kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>'%1' can't be read</source>
        <translation>'%1' kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>'%1' can't be written</source>
        <translation>'%1' kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>'%1' can't grow beyond 2 GB, the limit of its format</source>
        <translation>'%1' kann nicht über 2 GB hinaus wachsen, die Grenze des Formats</translation>
    </message>
    <message>
        <source>'%1' is a database of a newer format (.accdb); only the format of .mdb from 2000 on is read</source>
        <translation>'%1' ist eine Datenbank neueren Formats (.accdb); gelesen wird nur das Format .mdb ab 2000</translation>
    </message>
    <message>
        <source>'%1' is a database of the format from before 2000 (Jet 3); only the later one is read</source>
        <translation>'%1' ist eine Datenbank aus der Zeit vor 2000 (Jet 3); gelesen wird nur das spätere Format</translation>
    </message>
    <message>
        <source>'%1' is encrypted</source>
        <translation>'%1' ist verschlüsselt</translation>
    </message>
    <message>
        <source>'%1' is larger than the format's 2 GB</source>
        <translation>'%1' ist größer als die 2 GB des Formats</translation>
    </message>
    <message>
        <source>'%1' is no database of the format .mdb</source>
        <translation>'%1' ist keine Datenbank des Formats .mdb</translation>
    </message>
    <message>
        <source>'%1' is no file</source>
        <translation>'%1' ist keine Datei</translation>
    </message>
    <message>
        <source>'%1' is too short for a personal geodatabase</source>
        <translation>'%1' ist zu kurz für eine Personal-Geodatabase</translation>
    </message>
    <message>
        <source>'%1' points to page %2, and it has %3</source>
        <translation>'%1' verweist auf die Seite %2 und hat %3</translation>
    </message>
    <message>
        <source>'%1' sorts its texts by another order than the general one (1033), so that its indexes can't be written</source>
        <translation>'%1' ordnet Texte anders als die allgemeine Ordnung (1033), so dass die Indizes nicht zu schreiben sind</translation>
    </message>
    <message>
        <source>'%1' was opened for reading only</source>
        <translation>'%1' wurde nur zum Lesen geöffnet</translation>
    </message>
    <message>
        <source>page %1 of '%2' can't be read</source>
        <translation>die Seite %1 von '%2' kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>too many pages of '%1' are held at a time</source>
        <translation>zu viele Seiten von '%1' werden zugleich gehalten</translation>
    </message>
    <message>
        <source>a map of pages begins behind the end of the file</source>
        <translation>eine Karte von Seiten beginnt hinter dem Ende der Datei</translation>
    </message>
    <message>
        <source>a map of pages in '%1' is full</source>
        <translation>eine Karte von Seiten in '%1' ist voll</translation>
    </message>
    <message>
        <source>a map of pages is of an unknown form</source>
        <translation>eine Karte von Seiten hat eine unbekannte Form</translation>
    </message>
    <message>
        <source>a map of pages isn't where the database says</source>
        <translation>eine Karte von Seiten liegt nicht, wo die Datenbank sagt</translation>
    </message>
    <message>
        <source>a map of pages leads to a page of another kind</source>
        <translation>eine Karte von Seiten führt zu einer Seite anderer Art</translation>
    </message>
    <message>
        <source>the map of free pages doesn't begin at the first page</source>
        <translation>die Karte der freien Seiten beginnt nicht bei der ersten Seite</translation>
    </message>
    <message>
        <source>A polyline takes paths only.</source>
        <translation>Eine Linie besteht nur aus Pfaden.</translation>
    </message>
    <message>
        <source>An empty shape has no points along it.</source>
        <translation>Eine leere Geometrie hat keine Punkte auf ihrem Weg.</translation>
    </message>
    <message>
        <source>The shape has no %1 %2.</source>
        <translation>Die Geometrie hat kein Element %2 der Art %L1.</translation>
    </message>
    <message>
        <source>The path has no %1 %2; it has %3.</source>
        <translation>Der Pfad hat kein Element %2 der Art %L1; er hat %3.</translation>
    </message>
    <message>
        <source>Closing leg</source>
        <translation>Schließende Strecke</translation>
    </message>
    <message>
        <source>The path '%1' holds a backslash: rename the file or folder first.</source>
        <translation>Der Pfad '%1' enthält einen umgekehrten Schrägstrich: bitte erst die Datei oder den Ordner umbenennen.</translation>
    </message>
    <message>
        <source>'%1' can't be read: %2.</source>
        <translation>'%1' kann nicht gelesen werden: %L2.</translation>
    </message>
    <message>
        <source>'%1' can't be written to: %2.</source>
        <translation>'%1' kann nicht geschrieben werden: %L2.</translation>
    </message>
    <message>
        <source>'%1' belongs to other items of its geodatabase (a relationship class, topology or the like) and can't be deleted here</source>
        <translation>'%1' gehört zu anderen Elementen seiner Geodatabase (einer Beziehungsklasse, Topologie oder Ähnlichem) und kann hier nicht gelöscht werden</translation>
    </message>
    <message>
        <source>it has no table %1: it is no geodatabase of version 10, and only in such ones classes can be made or deleted</source>
        <translation>sie hat keine Tabelle %1: sie ist keine Geodatabase der Version 10, und nur in solchen können Featureklassen angelegt oder gelöscht werden</translation>
    </message>
    <message>
        <source>the geodatabase has no root folder (GDB_Items)</source>
        <translation>die Geodatabase hat keinen Wurzelordner (GDB_Items)</translation>
    </message>
    <message>
        <source>Row %1 of '%2' can't be written: %3.</source>
        <translation>Der Datensatz %1 von '%2' kann nicht geschrieben werden: %L3.</translation>
    </message>
    <message>
        <source>a personal geodatabase keeps no classes of the type %1</source>
        <translation>eine Personal-Geodatabase speichert keine Featureklassen der Art %1</translation>
    </message>
    <message>
        <source>the geodatabase is written to outside of an edit</source>
        <translation>die Geodatabase wird außerhalb einer Bearbeitung geschrieben</translation>
    </message>
    <message>
        <source>the new class can't be found</source>
        <translation>die neue Featureklasse ist nicht zu finden</translation>
    </message>
    <message>
        <source>'%1' can't be written to: %2%3</source>
        <translation>'%1' kann nicht geschrieben werden: %L2%L3</translation>
    </message>
    <message>
        <source>'%1' can't be written to: another program has it open ('%2'). Close it there; where no program has it open, delete that file.</source>
        <translation>'%1' kann nicht geschrieben werden: ein anderes Programm hat es geöffnet ('%2'). Bitte dort schließen; hat kein Programm es geöffnet, diese Datei löschen.</translation>
    </message>
    <message>
        <source>'%1' can't be written to: check its permissions.</source>
        <translation>'%1' kann nicht geschrieben werden: bitte die Zugriffsrechte prüfen.</translation>
    </message>
    <message>
        <source>'%1' can't be written to: its folder takes no files. Check its permissions.</source>
        <translation>'%1' kann nicht geschrieben werden: sein Ordner nimmt keine Dateien. Bitte dessen Zugriffsrechte prüfen.</translation>
    </message>
    <message>
        <source>'%1' has no column that numbers its rows</source>
        <translation>'%1' hat keine Spalte, die ihre Zeilen zählt</translation>
    </message>
    <message>
        <source>'%1' is written to outside of an edit</source>
        <translation>'%1' wird außerhalb einer Bearbeitung geschrieben</translation>
    </message>
    <message>
        <source>a row can't have the number %1</source>
        <translation>ein Datensatz kann nicht die Nummer %1 haben</translation>
    </message>
    <message>
        <source>a shape has coordinates that are no numbers</source>
        <translation>eine Geometrie hat Koordinaten, die keine Zahlen sind</translation>
    </message>
    <message>
        <source>there is no row %1</source>
        <translation>es gibt keinen Datensatz %1</translation>
    </message>
    <message>
        <source>a personal geodatabase keeps no %1</source>
        <translation>eine Personal-Geodatabase speichert keine %1</translation>
    </message>
    <message>
        <source>the shape of a row can't be read: its bytes are damaged or of an unknown type</source>
        <translation>die Geometrie eines Datensatzes kann nicht gelesen werden: ihre Bytes sind beschädigt oder von unbekannter Art</translation>
    </message>
    <message>
        <source>can't be written: decimal numbers are only read</source>
        <translation>kann nicht geschrieben werden: Dezimalzahlen werden nur gelesen</translation>
    </message>
    <message>
        <source>is too large for the column</source>
        <translation>ist zu groß für die Spalte</translation>
    </message>
    <message>
        <source>the field '%1' is of a type that a personal geodatabase doesn't have</source>
        <translation>das Feld '%1' hat einen Typ, den eine Personal-Geodatabase nicht kennt</translation>
    </message>
    <message>
        <source>the value of field '%1' %2</source>
        <translation>der Wert des Feldes '%1' %L2</translation>
    </message>
    <message>
        <source>%1, feature dataset %2</source>
        <translation>%1, Feature-Dataset %2</translation>
    </message>
    <message>
        <source>The areas between the lines can't be found: the lines meet elsewhere than at vertices.</source>
        <translation>Die Flächen zwischen den Linien sind nicht zu finden: die Linien treffen sich anderswo als an Stützpunkten.</translation>
    </message>
    <message>
        <source>The spatial reference is not a geographic one.</source>
        <translation>Das Bezugssystem ist kein geographisches.</translation>
    </message>
    <message>
        <source>Unexpected Geometry Type:
The function 'PlanetOCentricToPlanetOGraphic' only accepts points, polylines, polygons or multipoints.</source>
        <translation>Unerwartete Art der Geometrie:
Die Funktion 'PlanetOCentricToPlanetOGraphic' nimmt nur Punkte, Linien, Polygone und Multipunkte.</translation>
    </message>
    <message>
        <source>Unexpected Spatial Reference:
The function '%1' only accepts geometries with geographic projections.
This geometry has spatial reference '%2...</source>
        <translation>Unerwartetes Bezugssystem:
Die Funktion '%1' nimmt nur Geometrien mit geographischen Koordinaten.
Diese Geometrie hat das Bezugssystem '%2...</translation>
    </message>
    <message>
        <source>The layer '%1' has no spatial reference: '%2' takes %3. Declare the reference of the data first, as with a .prj file.</source>
        <translation>Der Layer '%1' hat kein Bezugssystem: '%2' nimmt %L3. Bitte erst das Bezugssystem der Daten angeben, etwa mit einer .prj-Datei.</translation>
    </message>
    <message>
        <source>Both Poles</source>
        <translation>Beide Pole</translation>
    </message>
    <message>
        <source>Neither Pole</source>
        <translation>Keinen Pol</translation>
    </message>
    <message>
        <source>North Pole</source>
        <translation>Nordpol</translation>
    </message>
    <message>
        <source>Smaller Part</source>
        <translation>Kleinerer Teil</translation>
    </message>
    <message>
        <source>South Pole</source>
        <translation>Südpol</translation>
    </message>
    <message>
        <source>&lt;-- Custom Spheroid --&gt;</source>
        <translation>&lt;-- Eigenes Sphäroid --&gt;</translation>
    </message>
    <message>
        <source>A multipoint takes points only.</source>
        <translation>Ein Multipunkt besteht nur aus Punkten.</translation>
    </message>
    <message>
        <source>There is no point %1 among %2.</source>
        <translation>Unter %2 gibt es keinen Punkt %1.</translation>
    </message>
    <message>
        <source>Polygons without area have neither a centre nor a place inside.</source>
        <translation>Polygone ohne Fläche haben weder eine Mitte noch einen Ort im Inneren.</translation>
    </message>
    <message>
        <source>A bag takes no empty reference.</source>
        <translation>Eine Sammlung nimmt keinen leeren Verweis.</translation>
    </message>
    <message>
        <source>A polygon takes rings only.</source>
        <translation>Ein Polygon besteht nur aus Ringen.</translation>
    </message>
    <message>
        <source>An empty polygon has no centre of gravity.</source>
        <translation>Ein leeres Polygon hat keinen Schwerpunkt.</translation>
    </message>
    <message>
        <source>The bag has no member %1.</source>
        <translation>Die Sammlung hat kein Element %1.</translation>
    </message>
    <message>
        <source>The midpoint of the polyline can't be computed.</source>
        <translation>Der Mittelpunkt der Linie kann nicht berechnet werden.</translation>
    </message>
    <message>
        <source>The point is empty and has no coordinates.</source>
        <translation>Der Punkt ist leer und hat keine Koordinaten.</translation>
    </message>
    <message>
        <source>Can't print to '%1'.</source>
        <translation>Auf '%1' kann nicht gedruckt werden.</translation>
    </message>
    <message>
        <source>The document has no such template.</source>
        <translation>Das Dokument hat keine solche Vorlage.</translation>
    </message>
    <message>
        <source>The coordinates (%1, %2) can't be projected to '%3'.</source>
        <translation>Die Koordinaten (%1, %2) können nicht nach '%3' projiziert werden.</translation>
    </message>
    <message>
        <source>There is no way from the reference '%1' to '%2'%3.</source>
        <translation>Vom Bezugssystem '%1' gibt es keinen Weg nach '%2'%L3.</translation>
    </message>
    <message>
        <source>'%1' can't be read or changed (%2)%3</source>
        <translation>'%1' kann nicht gelesen oder geändert werden (%2)%L3</translation>
    </message>
    <message>
        <source>'%1' can't be replaced (%2)%3</source>
        <translation>'%1' kann nicht ersetzt werden (%2)%L3</translation>
    </message>
    <message>
        <source>it ends too early</source>
        <translation>es endet zu früh</translation>
    </message>
    <message>
        <source>Values of '%1' were read otherwise than they are stored. GDAL says: %2</source>
        <translation>Werte von '%1' wurden anders gelesen, als sie gespeichert sind. GDAL meldet: %L2</translation>
    </message>
    <message>
        <source>is damaged and counts as null</source>
        <translation>ist beschädigt und zählt als null</translation>
    </message>
    <message>
        <source>A record without a shape belongs to no kind of a layer that mixes them: it was skipped.</source>
        <translation>Ein Datensatz ohne Geometrie gehört zu keiner Art eines Layers, der sie mischt: er wurde übergangen.</translation>
    </message>
    <message>
        <source>A shape of the kind %1 is no point, line or polygon: its record was skipped.</source>
        <translation>Eine Geometrie der Art %1 ist kein Punkt, keine Linie und kein Polygon: ihr Datensatz wurde übergangen.</translation>
    </message>
    <message>
        <source>None of the %1 records of '%2' can be read: its data are damaged or no longer there.</source>
        <translation>Keiner der %1 Datensätze von '%2' kann gelesen werden: die Daten sind beschädigt oder nicht mehr da.</translation>
    </message>
    <message>
        <source>No transformation between the two datums is known here: they are taken for the same, which may be wrong by hundreds of metres.</source>
        <translation>Zwischen dem einen und dem anderen geodätischen Datum ist hier keine Transformation bekannt: sie gelten als gleich, was um Hunderte von Metern falsch sein kann.</translation>
    </message>
    <message>
        <source>That transformation is made for another area than where the data lie: no known one is made for theirs.</source>
        <translation>Diese Transformation ist für ein anderes Gebiet gemacht als das der Daten: für deren ist keine bekannt.</translation>
    </message>
    <message>
        <source>, to about %1 m</source>
        <translation>, auf etwa %1 m</translation>
    </message>
    <message>
        <source>Data without a known spatial reference can't be brought to another one: declare theirs first, as with a .prj file.</source>
        <translation>Daten ohne bekanntes Bezugssystem können in kein anderes gebracht werden: bitte erst ihres angeben, etwa mit einer .prj-Datei.</translation>
    </message>
    <message>
        <source>Shapes are brought from %1 to %2%3; measured values are those in %4.%5</source>
        <translation>Geometrien werden von %1 nach %L2%L3 gebracht; gemessene Werte sind die in %4.%L5</translation>
    </message>
    <message>
        <source>The shape can't be projected to '%1'.</source>
        <translation>Die Geometrie kann nicht nach '%1' projiziert werden.</translation>
    </message>
    <message>
        <source>There is no way from '%1' to '%2'%3.</source>
        <translation>Von '%1' gibt es keinen Weg nach '%2'%L3.</translation>
    </message>
    <message>
        <source>a reference without a name</source>
        <translation>einem Bezugssystem ohne Namen</translation>
    </message>
    <message>
        <source>the first</source>
        <translation>das erste</translation>
    </message>
    <message>
        <source>A vertex of the shape has no place in '%1': the record has no shape in the output.</source>
        <translation>Ein Stützpunkt der Geometrie hat in '%1' keinen Ort: der Datensatz hat in der Ausgabe keine Geometrie.</translation>
    </message>
    <message>
        <source>An edge of the shape runs elsewhere in the output: it reaches over the edge of the map there, as over the 180th meridian or a pole, or is too long to stay straight. Cut the source there first, as 'tessarine wrap' does.</source>
        <translation>Eine Seite der Geometrie läuft in der Ausgabe anders: sie reicht dort über den Rand der Karte, etwa über den Meridian von 180 Grad oder einen Pol, oder ist zu lang, um gerade zu bleiben. Bitte die Quelle erst dort schneiden, wie 'tessarine wrap' es tut.</translation>
    </message>
    <message>
        <source>No ring of the polygon bounds an area.</source>
        <translation>Kein Ring des Polygons umschließt eine Fläche.</translation>
    </message>
    <message>
        <source>Type mismatch</source>
        <translation>Falscher Typ</translation>
    </message>
    <message>
        <source>Problem with Field Name '%1':</source>
        <translation>Problem mit dem Feldnamen '%1':</translation>
    </message>
    <message>
        <source>The field named '%1' was not editable!  Substituting the name '%2'...</source>
        <translation>Das Feld '%1' war nicht zu ändern. Stattdessen gilt der Name '%2' ...</translation>
    </message>
    <message>
        <source>The format of the data doesn't keep a field under this name.</source>
        <translation>Das Format der Daten speichert kein Feld unter diesem Namen.</translation>
    </message>
    <message>
        <source>The field '%1' has no room for the value and keeps what it held: give it more room, or name another field.</source>
        <translation>Das Feld '%1' hat keinen Platz für den Wert und behält, was es enthielt: bitte ein breiteres oder anderes Feld nennen.</translation>
    </message>
    <message>
        <source>The run has no field '%1'.</source>
        <translation>Der Lauf hat kein Feld '%1'.</translation>
    </message>
    <message>
        <source>A ring without area has no centre of gravity.</source>
        <translation>Ein Ring ohne Fläche hat keinen Schwerpunkt.</translation>
    </message>
    <message>
        <source>The ring is no exterior ring of this polygon.</source>
        <translation>Der Ring ist kein äußerer Ring dieses Polygons.</translation>
    </message>
    <message>
        <source>a column of an unknown type was read</source>
        <translation>eine Spalte unbekannten Typs wurde gelesen</translation>
    </message>
    <message>
        <source>a row is shorter than its mask of nulls</source>
        <translation>eine Zeile ist kürzer als ihre Maske der Nullwerte</translation>
    </message>
    <message>
        <source>a row tells of more columns than it holds</source>
        <translation>eine Zeile nennt mehr Spalten, als sie enthält</translation>
    </message>
    <message>
        <source>a value of a row ends before it begins</source>
        <translation>ein Wert einer Zeile endet, bevor er beginnt</translation>
    </message>
    <message>
        <source>is of another length than the column</source>
        <translation>hat eine andere Länge als die Spalte</translation>
    </message>
    <message>
        <source>is of another type than the column</source>
        <translation>ist von einem anderen Typ als die Spalte</translation>
    </message>
    <message>
        <source>is too long for the column</source>
        <translation>ist zu lang für die Spalte</translation>
    </message>
    <message>
        <source>the value of column '%1' %2</source>
        <translation>der Wert der Spalte '%1' %L2</translation>
    </message>
    <message>
        <source>a row of %1 bytes is too long</source>
        <translation>eine Zeile von %1 Bytes ist zu lang</translation>
    </message>
    <message>
        <source>page %1 belongs to something else than its rows</source>
        <translation>die Seite %1 gehört zu etwas anderem als ihren Zeilen</translation>
    </message>
    <message>
        <source>Only %1 of the %2 rows that were written are in '%3': it isn't whole.</source>
        <translation>Nur %1 der %2 geschriebenen Datensätze sind in '%3': es ist unvollständig.</translation>
    </message>
    <message>
        <source>The page is too small for the text.</source>
        <translation>Die Seite ist zu klein für den Text.</translation>
    </message>
    <message>
        <source>Object variable not set: the output feature class was not created</source>
        <translation>Ein Objekt fehlt: die Ausgabe wurde nicht angelegt</translation>
    </message>
    <message>
        <source>A run from the toolbox opens no windows.</source>
        <translation>Ein Lauf aus der Werkzeugkiste öffnet keine Fenster.</translation>
    </message>
    <message>
        <source>as it was</source>
        <translation>wie sie waren</translation>
    </message>
    <message>
        <source>brought to UTC, without a time zone of their own</source>
        <translation>nach UTC gebracht, ohne eigene Zeitzone</translation>
    </message>
    <message>
        <source>cut to the width of the field</source>
        <translation>auf die Breite des Feldes gekürzt</translation>
    </message>
    <message>
        <source>no finite number, written as null</source>
        <translation>keine endliche Zahl, als null geschrieben</translation>
    </message>
    <message>
        <source>rounded to the digits that the field keeps</source>
        <translation>auf die Stellen gerundet, die das Feld behält</translation>
    </message>
    <message>
        <source>that are no UTF-8, read as Latin-1</source>
        <translation>kein UTF-8, als Latin-1 gelesen</translation>
    </message>
    <message>
        <source>that can't be converted, written as null</source>
        <translation>nicht umzuwandeln, als null geschrieben</translation>
    </message>
    <message>
        <source>that had no day, stored with one</source>
        <translation>ohne Tag, mit einem gespeichert</translation>
    </message>
    <message>
        <source>that the format keeps with other characters</source>
        <translation>vom Format mit anderen Zeichen gespeichert</translation>
    </message>
    <message>
        <source>that were null, written as 0 or as an empty text</source>
        <translation>null, als 0 oder als leerer Text geschrieben</translation>
    </message>
    <message>
        <source>too large for the field, written as null</source>
        <translation>zu groß für das Feld, als null geschrieben</translation>
    </message>
    <message>
        <source>without the mark of byte order in front</source>
        <translation>ohne das Zeichen der Byte-Reihenfolge am Anfang</translation>
    </message>
    <message>
        <source>written without time of day</source>
        <translation>ohne Uhrzeit geschrieben</translation>
    </message>
    <message>
        <source>written without time zone</source>
        <translation>ohne Zeitzone geschrieben</translation>
    </message>
    <message>
        <source>Calculations Complete...</source>
        <translation>Berechnung beendet ...</translation>
    </message>
    <message>
        <source>Working on Feature %1 of %2...</source>
        <translation>Objekt %L1 von %L2 ...</translation>
    </message>
    <message>
        <source>%1 and %2 more of the same</source>
        <translation>%L1 und %2 weitere dieser Art</translation>
    </message>
    <message>
        <source>Another run of the suite is at work on this thread: wait for its end.</source>
        <translation>Ein anderer Lauf der Werkzeuge ist auf diesem Thread im Gang: bitte sein Ende abwarten.</translation>
    </message>
    <message>
        <source>No temporary folder can be made%1 (%2): name a folder with room in the variable TMPDIR of the environment.</source>
        <translation>Es kann kein temporärer Ordner angelegt werden%L1 (%L2): bitte in der Umgebungsvariablen TMPDIR einen Ordner mit Platz nennen.</translation>
    </message>
    <message>
        <source>The table '%1' can't be replaced, because its policies of rows would be lost: %2. Drop them first, or name another table.</source>
        <translation>Die Tabelle '%1' kann nicht ersetzt werden, weil ihre Regeln für Zeilen (policies) verloren gingen: %2. Bitte erst sie löschen oder eine andere Tabelle nennen.</translation>
    </message>
    <message>
        <source>The table '%1' had this, which the new one can't take%2: %3</source>
        <translation>Die Tabelle '%1' hatte dies, was die neue nicht übernehmen kann%L2: %L3</translation>
    </message>
    <message>
        <source>What the table '%1' has besides its rows can't be read%2.</source>
        <translation>Was die Tabelle '%1' außer ihren Zeilen hat, kann nicht gelesen werden%L2.</translation>
    </message>
    <message>
        <source>Only shapes of one kind can be united.</source>
        <translation>Nur Geometrien derselben Art können vereint werden.</translation>
    </message>
    <message>
        <source>The project's settings of Tessarine Tools can't be read.</source>
        <translation>Die Einstellungen von Tessarine Tools im Projekt können nicht gelesen werden.</translation>
    </message>
    <message>
        <source>'%1' is no dBASE table: it is shorter than its header. Get a whole copy of it.</source>
        <translation>'%1' ist keine dBASE-Tabelle: die Datei ist kürzer als ihr Kopf. Bitte eine vollständige Kopie besorgen.</translation>
    </message>
    <message>
        <source>'%1' is no shapefile part: it is shorter than its header. Get a whole copy of it.</source>
        <translation>'%1' ist kein Teil eines Shapefiles: die Datei ist kürzer als ihr Kopf. Bitte eine vollständige Kopie besorgen.</translation>
    </message>
    <message>
        <source>'%1' was cut off: its header tells of %2 bytes, but it has %3. Get a whole copy of it.</source>
        <translation>'%1' ist abgeschnitten: der Kopf nennt %2 Bytes, es sind aber %3. Bitte eine vollständige Kopie besorgen.</translation>
    </message>
    <message>
        <source>'%1' was cut off: its header tells of %2 rows, but it has %3. Get a whole copy of it.</source>
        <translation>'%1' ist abgeschnitten: der Kopf nennt %2 Zeilen, es sind aber %3. Bitte eine vollständige Kopie besorgen.</translation>
    </message>
    <message>
        <source>The parts of the shapefile '%1' don't belong together: it has %2 shapes, but '%3' has %4 rows. Copy all its parts together, or mend the table.</source>
        <translation>Die Teile des Shapefiles '%1' gehören nicht zusammen: es hat %2 Geometrien, '%3' aber %4 Zeilen. Bitte alle Teile zusammen kopieren oder die Tabelle reparieren.</translation>
    </message>
    <message>
        <source>The shapefile '%1' lacks its .dbf file: copy all its parts together.</source>
        <translation>Dem Shapefile '%1' fehlt die .dbf-Datei: bitte alle Teile zusammen kopieren.</translation>
    </message>
    <message>
        <source>The shapefile '%1' lacks its .shx file: copy all its parts together.</source>
        <translation>Dem Shapefile '%1' fehlt die .shx-Datei: bitte alle Teile zusammen kopieren.</translation>
    </message>
    <message>
        <source>A folder of shapefiles has no feature dataset '%1'.</source>
        <translation>Ein Ordner mit Shapefiles hat kein Feature-Dataset '%1'.</translation>
    </message>
    <message>
        <source>The shapefile '%1' exists already.</source>
        <translation>Das Shapefile '%1' gibt es schon.</translation>
    </message>
    <message>
        <source>The shapefile '%1.shp' can't be created%2.</source>
        <translation>Das Shapefile '%1.shp' kann nicht angelegt werden%L2.</translation>
    </message>
    <message>
        <source>There is no table '%1'.</source>
        <translation>Es gibt keine Tabelle '%1'.</translation>
    </message>
    <message>
        <source>A shape with curves has a step of more than 180 degrees.</source>
        <translation>Eine Geometrie mit Kurven hat einen Schritt von mehr als 180 Grad.</translation>
    </message>
    <message>
        <source>'%1' is no spatial reference: use AUTHORITY:CODE as in EPSG:4326, well-known text or a PROJ string.</source>
        <translation>'%1' ist kein Bezugssystem: möglich sind AUTORITÄT:CODE wie in EPSG:4326, Well-known Text oder ein PROJ-Text.</translation>
    </message>
    <message>
        <source>No geographic coordinate system has the code %1.</source>
        <translation>Kein geographisches Koordinatensystem hat den Code %1.</translation>
    </message>
    <message>
        <source>No spheroid has the code %1.</source>
        <translation>Kein Sphäroid hat den Code %1.</translation>
    </message>
    <message>
        <source>The spatial reference '%1' can't be read%2.</source>
        <translation>Das Bezugssystem '%1' kann nicht gelesen werden%L2.</translation>
    </message>
    <message>
        <source>A latitude lies beyond a pole: the point is that of some other place.</source>
        <translation>Eine Breite liegt jenseits eines Pols: der Punkt ist der eines anderen Orts.</translation>
    </message>
    <message>
        <source>A ring crosses itself: its lobes count by the way they run, so that the point may lie outside of them.</source>
        <translation>Ein Ring schneidet sich selbst: seine Schleifen zählen nach ihrer Richtung, so dass der Punkt außerhalb liegen kann.</translation>
    </message>
    <message>
        <source>Lines without length have no middle.</source>
        <translation>Linien ohne Länge haben keine Mitte.</translation>
    </message>
    <message>
        <source>Polygons whose spherical area comes out as 0 or less have no spherical centroid: their rings are more than 180 degrees of longitude wide, or run otherwise on the sphere than on the map.</source>
        <translation>Polygone, deren sphärische Fläche 0 oder weniger ergibt, haben keinen sphärischen Schwerpunkt: ihre Ringe sind mehr als 180 Längengrade breit oder laufen auf der Kugel anders als in der Karte.</translation>
    </message>
    <message>
        <source>The centre of the feature can't be computed.</source>
        <translation>Die Mitte des Objekts kann nicht berechnet werden.</translation>
    </message>
    <message>
        <source>there is no spheroid '%1'.%2</source>
        <translation>es gibt kein Sphäroid '%1'.%L2</translation>
    </message>
    <message>
        <source>The line '%1' tells no spheroid.</source>
        <translation>Die Zeile '%1' nennt kein Sphäroid.</translation>
    </message>
    <message>
        <source>The spheroid file '%1' tells no spheroid: write one on each line as name, semi-major axis, semi-minor axis and remark, parted by commas, or remove the file.</source>
        <translation>Die Sphäroid-Datei '%1' nennt kein Sphäroid: bitte in jede Zeile eines schreiben, als Name, große Halbachse, kleine Halbachse und Bemerkung, durch Kommas getrennt, oder die Datei entfernen.</translation>
    </message>
    <message>
        <source>Near are %1.</source>
        <translation>Ähnlich sind %1.</translation>
    </message>
    <message>
        <source>Nothing can be computed on the spheroid '%1': its axes are %2 and %3 metres, and both must be above 0.</source>
        <translation>Mit dem Sphäroid '%1' ist nichts zu berechnen: seine Halbachsen sind %2 und %3 Meter, und beide müssen größer als 0 sein.</translation>
    </message>
    <message>
        <source>A hole that lies in no exterior ring was written as a feature of its own.</source>
        <translation>Ein Loch, das in keinem äußeren Ring liegt, wurde als eigenes Objekt geschrieben.</translation>
    </message>
    <message>
        <source>'%1' came to be while this run worked; it is left as it is, and nothing of this run is in it. Name another output, or overwrite it.</source>
        <translation>'%1' entstand während des Laufs; es bleibt, wie es ist, und enthält nichts von diesem Lauf. Bitte eine andere Ausgabe nennen oder es überschreiben.</translation>
    </message>
    <message>
        <source>'%1' is a folder with something in it and isn't replaced by a file: name another output, or remove the folder.</source>
        <translation>'%1' ist ein Ordner, der nicht leer ist, und wird nicht durch eine Datei ersetzt: bitte eine andere Ausgabe nennen oder den Ordner entfernen.</translation>
    </message>
    <message>
        <source>'%1' is being written to by another program; it is left as it is.</source>
        <translation>'%1' wird gerade von einem anderen Programm geschrieben; es bleibt, wie es ist.</translation>
    </message>
    <message>
        <source>'%1' was changed by another program while this run worked on a copy of it; it is left as it is, and nothing of this run is in it. Run it again.</source>
        <translation>'%1' wurde von einem anderen Programm geändert, während der Lauf an einer Kopie davon arbeitete; es bleibt, wie es ist, und enthält nichts von diesem Lauf. Bitte noch einmal starten.</translation>
    </message>
    <message>
        <source>No copy can be made of</source>
        <translation>Keine Kopie möglich von</translation>
    </message>
    <message>
        <source>Nothing can be written to the folder</source>
        <translation>Nichts zu schreiben in den Ordner</translation>
    </message>
    <message>
        <source>The output '%1' was published already.</source>
        <translation>Die Ausgabe '%1' wurde schon veröffentlicht.</translation>
    </message>
    <message>
        <source>The output can't take the place of</source>
        <translation>Die Ausgabe kann nicht an diese Stelle treten:</translation>
    </message>
    <message>
        <source>%1, semi-major axis %2 m, semi-minor axis %3 m</source>
        <translation>%1, große Halbachse %2 m, kleine Halbachse %3 m</translation>
    </message>
    <message>
        <source>The layer '%1' doesn't take its stamp%2.</source>
        <translation>Der Layer '%1' nimmt seinen Stempel nicht an%L2.</translation>
    </message>
    <message>
        <source>a column of long values in '%1' has no maps</source>
        <translation>eine Spalte langer Werte in '%1' hat keine Karten</translation>
    </message>
    <message>
        <source>a row of '%1' has another number of values</source>
        <translation>eine Zeile von '%1' hat eine andere Anzahl von Werten</translation>
    </message>
    <message>
        <source>a row of '%1' takes %2 bytes, and the format keeps %3 besides memos and binary values</source>
        <translation>eine Zeile von '%1' braucht %2 Bytes, und das Format fasst %3 neben Memos und Binärwerten</translation>
    </message>
    <message>
        <source>page %1 isn't one of the table '%2'</source>
        <translation>die Seite %1 gehört nicht zur Tabelle '%2'</translation>
    </message>
    <message>
        <source>the index '%1' of the table '%2' isn't as it would be made here, so that writing could damage it</source>
        <translation>der Index '%1' der Tabelle '%2' ist nicht so, wie er hier angelegt würde; Schreiben könnte ihn beschädigen</translation>
    </message>
    <message>
        <source>the table '%1' has no column '%2'</source>
        <translation>die Tabelle '%1' hat keine Spalte '%2'</translation>
    </message>
    <message>
        <source>the table '%1' has no row in slot %2 of page %3</source>
        <translation>die Tabelle '%1' hat keine Zeile am Platz %2 der Seite %3</translation>
    </message>
    <message>
        <source>the value of column '%1' is of another type than the column</source>
        <translation>der Wert der Spalte '%1' ist von einem anderen Typ als die Spalte</translation>
    </message>
    <message>
        <source>two rows of '%1' have the same value in the unique index '%2'</source>
        <translation>zwei Zeilen von '%1' haben denselben Wert im eindeutigen Index '%2'</translation>
    </message>
    <message>
        <source>a column is of type %1, which isn't known</source>
        <translation>eine Spalte hat den unbekannten Typ %1</translation>
    </message>
    <message>
        <source>a definition of a table lost its pages</source>
        <translation>eine Definition einer Tabelle hat ihre Seiten verloren</translation>
    </message>
    <message>
        <source>a name in the definition of a table is no text</source>
        <translation>ein Name in der Definition einer Tabelle ist kein Text</translation>
    </message>
    <message>
        <source>an index tells of a column that isn't there</source>
        <translation>ein Index nennt eine Spalte, die es nicht gibt</translation>
    </message>
    <message>
        <source>page %1 is no definition of a table</source>
        <translation>die Seite %1 ist keine Definition einer Tabelle</translation>
    </message>
    <message>
        <source>the columns of a table are counted in contradiction</source>
        <translation>die Spalten einer Tabelle sind widersprüchlich gezählt</translation>
    </message>
    <message>
        <source>the columns of a table are numbered in contradiction</source>
        <translation>die Spalten einer Tabelle sind widersprüchlich nummeriert</translation>
    </message>
    <message>
        <source>the definition of a table has no end</source>
        <translation>die Definition einer Tabelle hat kein Ende</translation>
    </message>
    <message>
        <source>the definition of a table is damaged</source>
        <translation>die Definition einer Tabelle ist beschädigt</translation>
    </message>
    <message>
        <source>the definition of a table is shorter than it tells</source>
        <translation>die Definition einer Tabelle ist kürzer, als sie sagt</translation>
    </message>
    <message>
        <source>GDAL says: %1</source>
        <translation>GDAL meldet: %L1</translation>
    </message>
    <message>
        <source>Row %1 can't be written to '%2'%3%4</source>
        <translation>Der Datensatz %1 kann nicht nach '%2' geschrieben werden%L3%L4</translation>
    </message>
    <message>
        <source>The field '%1' can't be added to '%2'%3.</source>
        <translation>Das Feld '%1' kann in '%2' nicht angelegt werden%L3.</translation>
    </message>
    <message>
        <source>The format doesn't take the record with its shape: this one isn't in the copy.</source>
        <translation>Das Format nimmt den Datensatz mit seiner Geometrie nicht an: er ist nicht in der Kopie.</translation>
    </message>
    <message>
        <source>The table '%1' can't be made%2: check the schema and the rights.</source>
        <translation>Die Tabelle '%1' kann nicht angelegt werden%L2: bitte Schema und Rechte prüfen.</translation>
    </message>
    <message>
        <source>The format doesn't keep the shape.</source>
        <translation>Das Format speichert die Geometrie nicht.</translation>
    </message>
    <message>
        <source>The format keeps no record without a shape: this one isn't in the copy.</source>
        <translation>Das Format speichert keinen Datensatz ohne Geometrie: er ist nicht in der Kopie.</translation>
    </message>
    <message>
        <source>'%1' can't be written: its format keeps longitudes and latitudes alone. %2 Name another format.</source>
        <translation>'%1' kann nicht geschrieben werden: sein Format speichert nur Längen und Breiten. %2 Bitte ein anderes Format nennen.</translation>
    </message>
    <message>
        <source>Longitudes and latitudes are written as they are in %1, which the format has no place for: readers take them for WGS 84.</source>
        <translation>Längen und Breiten werden so geschrieben, wie sie in %1 sind, wofür das Format keinen Platz hat: Leser halten sie für WGS 84.</translation>
    </message>
    <message>
        <source>Shapes are brought from %1 to longitudes and latitudes on WGS 84%2: the format keeps nothing else.%3</source>
        <translation>Geometrien werden von %1 in Längen und Breiten auf WGS 84%L2 gebracht: das Format speichert nichts anderes.%L3</translation>
    </message>
    <message>
        <source>The spatial reference %1 is left out: the format keeps none.</source>
        <translation>Das Bezugssystem %1 geht nicht mit: das Format speichert keines.</translation>
    </message>
    <message>
        <source>No folder can be made for the work on the temporary layer '%1': %2.</source>
        <translation>Für die Arbeit am temporären Layer '%1' kann kein Ordner angelegt werden: %L2.</translation>
    </message>
    <message>
        <source>The rows of the temporary layer '%1' can't be read: %2</source>
        <translation>Die Datensätze des temporären Layers '%1' können nicht gelesen werden: %L2</translation>
    </message>
    <message>
        <source>The temporary layer '%1' can't be made.</source>
        <translation>Der temporäre Layer '%1' kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The temporary layer '%1' doesn't take its rows: %2</source>
        <translation>Der temporäre Layer '%1' nimmt seine Datensätze nicht an: %L2</translation>
    </message>
    <message>
        <source>The temporary layer '%1' holds %2 of %3 rows.</source>
        <translation>Der temporäre Layer '%1' enthält %2 von %3 Datensätzen.</translation>
    </message>
    <message>
        <source>There is no temporary layer '%1' to open.</source>
        <translation>Es gibt keinen temporären Layer '%1' zu öffnen.</translation>
    </message>
    <message>
        <source>No line at the terminal does the same: the graphics lie in the project alone.</source>
        <translation>Keine Zeile im Terminal tut dasselbe: die Grafiken liegen nur im Projekt.</translation>
    </message>
    <message>
        <source>No line at the terminal does the same: the run made no output.</source>
        <translation>Keine Zeile im Terminal tut dasselbe: der Lauf hat keine Ausgabe gemacht.</translation>
    </message>
    <message>
        <source>'%1' is not a number.</source>
        <translation>'%1' ist keine Zahl.</translation>
    </message>
    <message>
        <source>'%1' is too large a number.</source>
        <translation>'%1' ist eine zu große Zahl.</translation>
    </message>
    <message>
        <source>The argument '%1' is of another type.</source>
        <translation>Das Argument '%1' ist von einem anderen Typ.</translation>
    </message>
    <message>
        <source>Another run of the suite is at work: wait for its end.</source>
        <translation>Ein anderer Lauf der Werkzeuge ist im Gang: bitte sein Ende abwarten.</translation>
    </message>
    <message>
        <source>The layer has gone while the run was at work.</source>
        <translation>Der Layer verschwand während des Laufs.</translation>
    </message>
    <message>
        <source>Buil&amp;d Polygons (Disabled: Pre-ArcGIS 9.2)</source>
        <translation>Polygone aus Linien bil&amp;den (nicht verfügbar: vor ArcGIS 9.2)</translation>
    </message>
    <message>
        <source>Disabled:  This function requires ArcGIS 9.2 or newer...</source>
        <translation>Nicht verfügbar: diese Funktion braucht ArcGIS 9.2 oder neuer ...</translation>
    </message>
    <message>
        <source>%1 can't be given beside %2.</source>
        <translation>%L1 kann nicht neben %2 angegeben werden.</translation>
    </message>
    <message>
        <source>As the data</source>
        <translation>Wie die Daten</translation>
    </message>
    <message>
        <source>Both a spheroid and radii are given: choose '%1', or leave the radii out.</source>
        <translation>Es sind ein Sphäroid und Halbachsen angegeben: bitte '%1' wählen oder die Halbachsen weglassen.</translation>
    </message>
    <message>
        <source>The radii '%1' aren't understood: give the semi-major and the semi-minor axis in metres, both above 0, as in 6378137,6356752.314.</source>
        <translation>Die Halbachsen '%1' sind nicht zu verstehen: bitte die große und die kleine Halbachse in Metern angeben, beide größer als 0, etwa 6378137,6356752.314.</translation>
    </message>
    <message>
        <source>There is no spheroid '%1'.</source>
        <translation>Es gibt kein Sphäroid '%1'.</translation>
    </message>
    <message>
        <source>The layer '%1' is of the wrong kind: '%2' takes %3.</source>
        <translation>Der Layer '%1' ist von der falschen Art: '%2' nimmt %L3.</translation>
    </message>
    <message>
        <source>Unknown error.</source>
        <translation>Unbekannter Fehler.</translation>
    </message>
    <message>
        <source>The measures of one shape make and ask for nothing.</source>
        <translation>Die Maße einer Geometrie legen nichts an und fragen nichts.</translation>
    </message>
    <message>
        <source>'%1' has no row %2 any more.</source>
        <translation>'%1' hat keinen Datensatz %2 mehr.</translation>
    </message>
    <message>
        <source>Row %1 of '%2' can't be written</source>
        <translation>Der Datensatz %1 von '%2' kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Row %1 of '%2' can't be written%3%4</source>
        <translation>Der Datensatz %1 von '%2' kann nicht geschrieben werden%L3%L4</translation>
    </message>
    <message>
        <source>Row %1 of '%2' has numbers too large for their columns.</source>
        <translation>Der Datensatz %1 von '%2' hat Zahlen, die zu groß für ihre Spalten sind.</translation>
    </message>
    <message>
        <source>Rows of '%1' can't be written%2%3</source>
        <translation>Datensätze von '%1' können nicht geschrieben werden%L2%L3</translation>
    </message>
    <message>
        <source>'%1' is no identifier (GUID)</source>
        <translation>'%1' ist keine Kennung (GUID)</translation>
    </message>
    <message>
        <source>a text begins with U+FEFF</source>
        <translation>ein Text beginnt mit U+FEFF</translation>
    </message>
    <message>
        <source>Such fields can't be written.</source>
        <translation>Solche Felder können nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>A geometry of the layer can't be read.</source>
        <translation>Eine Geometrie des Layers kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Overflow: %1 doesn't fit a whole number of %2 bits.</source>
        <translation>Überlauf: %1 passt nicht in eine ganze Zahl von %2 Bits.</translation>
    </message>
    <message>
        <source>Type mismatch.</source>
        <translation>Falscher Typ.</translation>
    </message>
    <message>
        <source>No vertex was read before it was written.</source>
        <translation>Vor dem Schreiben wurde kein Stützpunkt gelesen.</translation>
    </message>
    <message>
        <source>The spatial reference is neither geographic nor projected.</source>
        <translation>Das Bezugssystem ist weder geographisch noch projiziert.</translation>
    </message>
    <message>
        <source>: a coordinate lies outside of the range that the output was made for.</source>
        <translation>: eine Koordinate liegt außerhalb des Bereichs, für den die Ausgabe angelegt ist.</translation>
    </message>
    <message>
        <source>: another program holds it; close it there.</source>
        <translation>: ein anderes Programm hält es; bitte dort schließen.</translation>
    </message>
    <message>
        <source>: files may not grow beyond %1 bytes here (ulimit -f).</source>
        <translation>: Dateien dürfen hier nicht größer als %1 Bytes werden (ulimit -f).</translation>
    </message>
    <message>
        <source>: it may not be written to; check its permissions.</source>
        <translation>: es darf nicht geschrieben werden; bitte die Zugriffsrechte prüfen.</translation>
    </message>
    <message>
        <source>: there is no room left on its disk.</source>
        <translation>: auf dem Datenträger ist kein Platz mehr.</translation>
    </message>
    <message>
        <source>Work on one record among others can't ask, show or make anything.</source>
        <translation>Die Arbeit an einem einzelnen Datensatz kann nichts fragen, zeigen oder anlegen.</translation>
    </message>
    <message>
        <source>'%1' can't be deleted: %2.</source>
        <translation>'%1' kann nicht gelöscht werden: %L2.</translation>
    </message>
    <message>
        <source>A feature class holds points, multipoints, polylines or polygons.</source>
        <translation>Eine Featureklasse enthält Punkte, Multipunkte, Linien oder Polygone.</translation>
    </message>
    <message>
        <source>The feature class '%1' can't be created%2: check that the place is writable and the name is legal.</source>
        <translation>Die Featureklasse '%1' kann nicht angelegt werden%L2: bitte prüfen, ob der Ort beschreibbar und der Name erlaubt ist.</translation>
    </message>
    <message>
        <source>The folder '%1' can't be written to: check its permissions, or name another.</source>
        <translation>In den Ordner '%1' kann nicht geschrieben werden: bitte die Zugriffsrechte prüfen oder einen anderen nennen.</translation>
    </message>
    <message>
        <source>The new class '%1' has no shape field.</source>
        <translation>Die neue Featureklasse '%1' hat kein Feld für die Geometrie.</translation>
    </message>
    <message>
        <source>There is no folder '%1': make it first, or name another.</source>
        <translation>Es gibt keinen Ordner '%1': bitte erst anlegen oder einen anderen nennen.</translation>
    </message>
    <message>
        <source>'wrap' needs a box: {range} 180, {range} 360 or {bounds} W,S,E,N.</source>
        <translation>'wrap' braucht ein Rechteck: {range} 180, {range} 360 oder {bounds} W,S,O,N.</translation>
    </message>
    <message>
        <source>numbers are rounded to whole ones.</source>
        <translation>Zahlen werden auf ganze gerundet.</translation>
    </message>
    <message>
        <source>numbers are rounded to about 7 digits.</source>
        <translation>Zahlen werden auf etwa 7 Ziffern gerundet.</translation>
    </message>
    <message>
        <source>numbers are rounded to 1 decimal.</source>
        <translation>Zahlen werden auf 1 Nachkommastelle gerundet.</translation>
    </message>
    <message>
        <source>numbers are rounded to %1 decimals.</source>
        <translation>Zahlen werden auf %1 Nachkommastellen gerundet.</translation>
    </message>
    <message>
        <source>Only points, multipoints, polylines and polygons can be wrapped.</source>
        <translation>Nur Punkte, Multipunkte, Linien und Polygone können umgebrochen werden.</translation>
    </message>
    <message>
        <source>Unexpected Geometry Type:
The function 'FeatureLongitudeShift' only accepts points, polylines, polygons or multipoints.</source>
        <translation>Unerwartete Art der Geometrie:
Die Funktion 'FeatureLongitudeShift' nimmt nur Punkte, Linien, Polygone und Multipunkte.</translation>
    </message>
    <message>
        <source>wrapped longitudes are a matter of the data's own degrees; a box from 0 to 360 or over the edge of the map would be lost in another reference.</source>
        <translation>umgebrochene Längen sind eine Sache der Grade der Daten selbst; ein Rechteck von 0 bis 360 oder über den Rand der Karte ginge in einem anderen Bezugssystem verloren.</translation>
    </message>
    <message>
        <source>{bounds} takes four numbers: west, south, east and north, as in {bounds} -90,-90,270,90.</source>
        <translation>{bounds} braucht vier Zahlen: West, Süd, Ost und Nord, wie in {bounds} -90,-90,270,90.</translation>
    </message>
    <message>
        <source>The boundary box has no width or no height.</source>
        <translation>Das Rechteck hat keine Breite oder keine Höhe.</translation>
    </message>
    <message>
        <source>The shape lies more than a million boxes away from the boundary box.</source>
        <translation>Die Geometrie liegt mehr als eine Million Rechtecke vom Rechteck entfernt.</translation>
    </message>
    <message>
        <source>%1 '%2' (%3)%4</source>
        <translation>%L1 '%2' (%3)%L4</translation>
    </message>
    <message>
        <source>'%1' %2 (%3)%4</source>
        <translation>'%1' %L2 (%3)%L4</translation>
    </message>
    <message>
        <source>Load '&lt;-- CUSTOM --&gt;' Parameters</source>
        <translation>Werte von '&lt;-- EIGENES --&gt;' laden</translation>
    </message>
    <message>
        <source>read</source>
        <translation>gelesen</translation>
    </message>
    <message>
        <source>written</source>
        <translation>geschrieben</translation>
    </message>
    <message>
        <source>Generating Centroids from %1</source>
        <translation>Schwerpunkte aus %1</translation>
    </message>
    <message>
        <source>Generating Spherical Centroids from %1</source>
        <translation>Sphärische Schwerpunkte aus %1</translation>
    </message>
    <message>
        <source>Generating Label Points from %1</source>
        <translation>Labelpunkte aus %1</translation>
    </message>
    <message>
        <source>Generating Vertices from %1</source>
        <translation>Stützpunkte aus %1</translation>
    </message>
    <message>
        <source>Generating Polygons from %1</source>
        <translation>Polygone aus %1</translation>
    </message>
    <message>
        <source>Generating Polylines from %1</source>
        <translation>Linien aus %1</translation>
    </message>
    <message>
        <source>Joining Features from %1</source>
        <translation>Objekte aus %1 werden vereint</translation>
    </message>
    <message>
        <source>Splitting Multipart Features from %1</source>
        <translation>Mehrteilige Objekte aus %1 werden geteilt</translation>
    </message>
    <message>
        <source>%1.....[record #%2 of %3  ---  %4%].....Est. Time Left = %5:%6:%7...</source>
        <translation>%L1 ... [Datensatz %L2 von %L3, %L4%] ... noch etwa %5:%6:%7</translation>
    </message>
    <message>
        <source>Calculating Geometry on %1</source>
        <translation>Geometrie von %1 wird berechnet</translation>
    </message>
    <message>
        <source>Calculating Geometry on %1...</source>
        <translation>Geometrie wird berechnet: %L1 ...</translation>
    </message>
    <message>
        <source>Unable to determine ArcGIS Version!</source>
        <translation>Die Version von ArcGIS ist nicht zu bestimmen.</translation>
    </message>
    <message>
        <source>Failed in %1: 
Error = %2
Line Number = %3</source>
        <translation>Fehler in %1:
Fehler = %2
Zeile = %3</translation>
    </message>
    <message>
        <source>Unexpected Feature Class Type (%1)!
This function will only create shapefiles or feature classes in %2File or Personal GeoDatabases.  Please click 'OK' to select a %3new Feature Class Name, or 'Cancel' to bail out.</source>
        <translation>Unerwartete Art der Ausgabe (%1).
Angelegt werden nur Shapefiles oder Featureklassen in %L2File- oder Personal-Geodatabases. Mit 'OK' einen %L3neuen Namen wählen, mit 'Abbrechen' aufgeben.</translation>
    </message>
    <message>
        <source>Unexpected Feature Class Type (%1)!  Need to write new code for this...</source>
        <translation>Unerwartete Art der Ausgabe (%1). Sie kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>%1 graphic element</source>
        <translation>%1 Grafik</translation>
    </message>
    <message>
        <source>%1 graphic elements</source>
        <translation>%1 Grafiken</translation>
    </message>
    <message>
        <source>heights (Z)</source>
        <translation>Höhen (Z)</translation>
    </message>
    <message>
        <source>measures (M)</source>
        <translation>Messwerte (M)</translation>
    </message>
    <message>
        <source>the file is damaged (%1)</source>
        <translation>die Datei ist beschädigt (%L1)</translation>
    </message>
    <message>
        <source>the value of field '%1' of record %2</source>
        <translation>der Wert des Feldes '%1' von Datensatz %2</translation>
    </message>
    <message>
        <source>label point</source>
        <translation>Labelpunkt</translation>
    </message>
    <message>
        <source>point layer</source>
        <translation>Punktlayer</translation>
    </message>
    <message>
        <source>object identifier</source>
        <translation>Nummer des Objekts</translation>
    </message>
    <message>
        <source>dialog input</source>
        <translation>Eingabe im Dialog</translation>
    </message>
    <message>
        <source>planetocentric point</source>
        <translation>planetozentrischer Punkt</translation>
    </message>
    <message>
        <source>planetographic shape</source>
        <translation>planetographische Geometrie</translation>
    </message>
    <message>
        <source>spheroid list</source>
        <translation>Liste der Sphäroide</translation>
    </message>
    <message>
        <source>spheroid row</source>
        <translation>Zeile eines Sphäroids</translation>
    </message>
    <message>
        <source>us survey foot</source>
        <translation>US-Vermessungsfuß</translation>
    </message>
    <message>
        <source>1) Point Shapefile: %1 Point</source>
        <translation>1) Punkte: %1</translation>
    </message>
    <message>
        <source>1) Point Shapefile: %1 Points</source>
        <translation>1) Punkte: %1</translation>
    </message>
    <message>
        <source>2) Polyline Shapefile: %1 Polyline</source>
        <translation>2) Linien: %1</translation>
    </message>
    <message>
        <source>2) Polyline Shapefile: %1 Polylines</source>
        <translation>2) Linien: %1</translation>
    </message>
    <message>
        <source>4) Polygon Shapefile: %1 Polygon</source>
        <translation>4) Polygone: %1</translation>
    </message>
    <message>
        <source>4) Polygon Shapefile: %1 Polygons</source>
        <translation>4) Polygone: %1</translation>
    </message>
    <message>
        <source>3) Polyline Shapefile: %1 Polyline + %2 Polygon</source>
        <translation>3) Linien, auch aus Polygonen: %1 + %2</translation>
    </message>
    <message>
        <source>3) Polyline Shapefile: %1 Polyline + %2 Polygons</source>
        <translation>3) Linien, auch aus Polygonen: %1 + %2</translation>
    </message>
    <message>
        <source>3) Polyline Shapefile: %1 Polylines + %2 Polygon</source>
        <translation>3) Linien, auch aus Polygonen: %1 + %2</translation>
    </message>
    <message>
        <source>3) Polyline Shapefile: %1 Polylines + %2 Polygons</source>
        <translation>3) Linien, auch aus Polygonen: %1 + %2</translation>
    </message>
    <message>
        <source>5) Polygon Shapefile: %1 Polyline + %2 Polygon</source>
        <translation>5) Polygone, auch aus Linien: %1 + %2</translation>
    </message>
    <message>
        <source>5) Polygon Shapefile: %1 Polyline + %2 Polygons</source>
        <translation>5) Polygone, auch aus Linien: %1 + %2</translation>
    </message>
    <message>
        <source>5) Polygon Shapefile: %1 Polylines + %2 Polygon</source>
        <translation>5) Polygone, auch aus Linien: %1 + %2</translation>
    </message>
    <message>
        <source>5) Polygon Shapefile: %1 Polylines + %2 Polygons</source>
        <translation>5) Polygone, auch aus Linien: %1 + %2</translation>
    </message>
    <message>
        <source>Shapefile Feature Class</source>
        <translation>Featureklasse (Shapefile)</translation>
    </message>
    <message>
        <source>GPKG Feature Class</source>
        <translation>Featureklasse (GeoPackage)</translation>
    </message>
    <message>
        <source>GeoJSON Feature Class</source>
        <translation>Featureklasse (GeoJSON)</translation>
    </message>
    <message>
        <source>GeoJSONSeq Feature Class</source>
        <translation>Featureklasse (GeoJSONSeq)</translation>
    </message>
    <message>
        <source>FlatGeobuf Feature Class</source>
        <translation>Featureklasse (FlatGeobuf)</translation>
    </message>
    <message>
        <source>CSV Feature Class</source>
        <translation>Featureklasse (CSV)</translation>
    </message>
    <message>
        <source>GML Feature Class</source>
        <translation>Featureklasse (GML)</translation>
    </message>
    <message>
        <source>LIBKML Feature Class</source>
        <translation>Featureklasse (KML)</translation>
    </message>
    <message>
        <source>SQLite Feature Class</source>
        <translation>Featureklasse (SQLite)</translation>
    </message>
    <message>
        <source>PostgreSQL Feature Class</source>
        <translation>Featureklasse (PostgreSQL)</translation>
    </message>
    <message>
        <source>MapInfo File Feature Class</source>
        <translation>Featureklasse (MapInfo)</translation>
    </message>
    <message>
        <source>File Geodatabase Feature Class</source>
        <translation>Featureklasse (File-Geodatabase)</translation>
    </message>
    <message>
        <source>Personal Geodatabase Feature Class</source>
        <translation>Featureklasse (Personal-Geodatabase)</translation>
    </message>
    <message>
        <source>Temporary layer Feature Class</source>
        <translation>Featureklasse (temporärer Layer)</translation>
    </message>
    <message>
        <source>Feature Class</source>
        <translation>Featureklasse</translation>
    </message>
    <message>
        <source>File Geodatabase</source>
        <translation>File-Geodatabase</translation>
    </message>
    <message>
        <source>File Geodatabase Feature Dataset</source>
        <translation>Feature-Dataset (File-Geodatabase)</translation>
    </message>
    <message>
        <source>File Geodatabase Table</source>
        <translation>Tabelle (File-Geodatabase)</translation>
    </message>
    <message>
        <source>Personal Geodatabase</source>
        <translation>Personal-Geodatabase</translation>
    </message>
    <message>
        <source>Personal Geodatabase Feature Dataset</source>
        <translation>Feature-Dataset (Personal-Geodatabase)</translation>
    </message>
    <message>
        <source>Personal Geodatabase Table</source>
        <translation>Tabelle (Personal-Geodatabase)</translation>
    </message>
    <message>
        <source>Feature Dataset</source>
        <translation>Feature-Dataset</translation>
    </message>
    <message>
        <source>dBASE Table</source>
        <translation>dBASE-Tabelle</translation>
    </message>
    <message>
        <source>Text File</source>
        <translation>Textdatei</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Table</source>
        <translation>Tabelle</translation>
    </message>
    <message>
        <source>%1  Bailing out...
%2</source>
        <translation>%L1
%L2</translation>
    </message>
    <message>
        <source>Bailing out...</source>
        <translation>Es geht nicht weiter.</translation>
    </message>
    <message>
        <source>Leg</source>
        <translation>Strecke</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>Zusammen</translation>
    </message>
    <message>
        <source>where</source>
        <translation>eine Bedingung</translation>
    </message>
    <message>
        <source>Your 'Name' value is an empty string, so your %1 selected graphic elements will
be assigned no name (i.e. they will be assigned the empty string for a name).
Any existing name will be removed.

Please click 'OK' to confirm this action, or 'Cancel' to exit without making changes...</source>
        <translation>Der Name ist leer: %1 ausgewählten Grafiken wird der Name genommen.

Mit 'OK' bestätigen, mit 'Abbrechen' nichts ändern.</translation>
    </message>
    <message>
        <source>Your 'Name' value is an empty string, so your %1 graphic elements will be
assigned no name (i.e. they will be assigned the empty string for a name).
Any existing name will be removed.

Please click 'OK' to confirm this action, or 'Cancel' to exit without making changes...</source>
        <translation>Der Name ist leer: %1 Grafiken wird der Name genommen.

Mit 'OK' bestätigen, mit 'Abbrechen' nichts ändern.</translation>
    </message>
    <message>
        <source>The row was not read by this cursor.</source>
        <translation>Der Datensatz wurde hier nicht gelesen.</translation>
    </message>
    <message>
        <source>numbers are rounded to %1 decimal.</source>
        <translation>Zahlen werden auf %1 Nachkommastelle gerundet.</translation>
    </message>
    <message>
        <source>%1 moments of the layer '%2' are worked with without the fractions of their seconds.</source>
        <translation>%1 Zeitpunkte des Layers '%2' werden ohne die Bruchteile ihrer Sekunden bearbeitet.</translation>
    </message>
    <message>
        <source>The field '%1' has no room for the value and keeps what it held, and so does '%2' with the other half of the measure: give it more room, or name another field.</source>
        <translation>Das Feld '%1' hat keinen Platz für den Wert und behält, was es enthielt, ebenso '%2' mit der anderen Hälfte des Maßes: bitte ein breiteres oder anderes Feld nennen.</translation>
    </message>
    <message>
        <source>numbers keep the decimals that %1 characters have room for.</source>
        <translation>Zahlen behalten so viele Nachkommastellen, wie in %1 Zeichen Platz haben.</translation>
    </message>
    <message>
        <source>The file '%1' of the layer '%2' can only be written anew as a whole, without what can't be read of it: export the layer to a GeoPackage, and work on that, or switch editing on and save the layer yourself.</source>
        <translation>Die Datei '%1' des Layers '%2' kann nur als Ganzes neu geschrieben werden, ohne das, was davon nicht lesbar ist: bitte den Layer in ein GeoPackage exportieren und daran arbeiten oder die Bearbeitung einschalten und den Layer selbst speichern.</translation>
    </message>
    <message>
        <source>Began Job:</source>
        <translation>Beginn:</translation>
    </message>
    <message>
        <source>[time stamp %1]</source>
        <translation>[%L1]</translation>
    </message>
    <message>
        <source>Calculations Complete... --&gt;</source>
        <translation>Berechnung beendet --&gt;</translation>
    </message>
    <message>
        <source>Operation cancelled prematurely at %1</source>
        <translation>Vorzeitig abgebrochen: %L1</translation>
    </message>
    <message>
        <source>Analysis Began: %1</source>
        <translation>Beginn: %L1</translation>
    </message>
    <message>
        <source>Analysis Complete: %1</source>
        <translation>Ende: %L1</translation>
    </message>
    <message>
        <source>Time Elapsed: %1</source>
        <translation>Dauer: %L1</translation>
    </message>
    <message>
        <source>%1 second...</source>
        <translation>%L1 Sekunde</translation>
    </message>
    <message>
        <source>%1 seconds...</source>
        <translation>%L1 Sekunden</translation>
    </message>
    <message>
        <source>%1 minute, %2</source>
        <translation>%L1 Minute, %L2</translation>
    </message>
    <message>
        <source>%1 minutes, %2</source>
        <translation>%L1 Minuten, %L2</translation>
    </message>
    <message>
        <source>%1 hour, %2</source>
        <translation>%L1 Stunde, %L2</translation>
    </message>
    <message>
        <source>%1 hours, %2</source>
        <translation>%L1 Stunden, %L2</translation>
    </message>
    <message>
        <source>%1 day, %2</source>
        <translation>%L1 Tag, %L2</translation>
    </message>
    <message>
        <source>%1 days, %2</source>
        <translation>%L1 Tage, %L2</translation>
    </message>
    <message>
        <source>Converting Polygons to Polylines...%1</source>
        <translation>Polygone werden zu Linien ... %L1</translation>
    </message>
    <message>
        <source>Converting Polylines to Polygons...%1</source>
        <translation>Linien werden zu Polygonen ... %L1</translation>
    </message>
    <message>
        <source>Splitting Multipart Features...%1</source>
        <translation>Mehrteilige Objekte werden geteilt ... %L1</translation>
    </message>
    <message>
        <source>Calculating Label Points...%1</source>
        <translation>Labelpunkte werden berechnet ... %L1</translation>
    </message>
    <message>
        <source>Extracting Vertices...%1</source>
        <translation>Stützpunkte werden gelesen ... %L1</translation>
    </message>
    <message>
        <source>Calculating Spherical Centroids...%1</source>
        <translation>Sphärische Schwerpunkte werden berechnet ... %L1</translation>
    </message>
    <message>
        <source>Calculating Centroids...%1</source>
        <translation>Schwerpunkte werden berechnet ... %L1</translation>
    </message>
    <message>
        <source>--&gt; Option '%1',  Field Name = %2  (&gt; %3 characters)</source>
        <translation>--&gt; Maß '%L1', Feldname = %2  (mehr als %3 Zeichen)</translation>
    </message>
    <message>
        <source>--&gt; Option '%1',  Field Name = %2  (Begins with invalid character '%3')</source>
        <translation>--&gt; Maß '%L1', Feldname = %2  (beginnt mit dem ungültigen Zeichen '%3')</translation>
    </message>
    <message>
        <source>--&gt; Option '%1',  Field Name = %2  (Contains invalid character '%3')</source>
        <translation>--&gt; Maß '%L1', Feldname = %2  (enthält das ungültige Zeichen '%3')</translation>
    </message>
    <message>
        <source>--&gt; Option '%1',  Field Name = %2</source>
        <translation>--&gt; Maß '%L1', Feldname = %2</translation>
    </message>
    <message>
        <source>Choose one or more</source>
        <translation>Eines oder mehrere wählen</translation>
    </message>
    <message>
        <source>A choice among words.</source>
        <translation>Eine Auswahl unter Wörtern.</translation>
    </message>
    <message>
        <source>Choice</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <source>A word of the list</source>
        <translation>Ein Wort der Liste</translation>
    </message>
    <message>
        <source>north</source>
        <translation>Nordpol</translation>
    </message>
    <message>
        <source>south</source>
        <translation>Südpol</translation>
    </message>
    <message>
        <source>both</source>
        <translation>beide</translation>
    </message>
    <message>
        <source>neither</source>
        <translation>keiner</translation>
    </message>
    <message>
        <source>points</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>first</source>
        <translation>der erste</translation>
    </message>
    <message>
        <source>nearest</source>
        <translation>der nächste</translation>
    </message>
</context>
</TS>
