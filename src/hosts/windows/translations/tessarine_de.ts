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
        <translation>%1, %2 Koordinaten</translation>
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
        <translation>Sphäroid: %1,  gr. Halbachse = %2m,  kl. Halbachse = %3m</translation>
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
        <translation>Einheit: %1</translation>
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
        <translation>Sphäroid = %1</translation>
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
        <translation>Bezugssystem = %1</translation>
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
        <translation>Beginn: %1</translation>
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
        <translation>Ende etwa: %1</translation>
    </message>
    <message>
        <source>Performing Calculations...%1 of %2...</source>
        <translation>Berechnung ... %1 von %2 ...</translation>
    </message>
    <message>
        <source>Performing Calculations...</source>
        <translation>Berechnung ...</translation>
    </message>
    <message>
        <source>Calculating %1 Attributes...</source>
        <translation>Maße werden berechnet: %1 ...</translation>
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
        <translation>"Planeto" steht für "Geo", wo es ein anderer Körper als die Erde sein kann. Die meisten Daten der Erde sind planetographisch, die meisten anderer Körper planetozentrisch.</translation>
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
        <translation>&amp;Suchen in:</translation>
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
        <translation>Objekte zu &amp;Stützpunkten</translation>
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
        <translation>Grafiken nach der &amp;Art auswählen</translation>
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
        <translation>Auf gewählte Grafiken &amp;zoomen</translation>
    </message>
    <message>
        <source>Zoom to Selected Graphic Elements</source>
        <translation>Auf gewählte Grafiken zoomen</translation>
    </message>
    <message>
        <source>Zoom to Selected Graphic Elements...</source>
        <translation>Zeigt die gewählten Grafiken</translation>
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
        <translation>Wählt Grafiken mit einem Klick oder einem Rechteck aus; mit Umschalt zusätzlich zu den gewählten</translation>
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
        <translation>in %1</translation>
    </message>
    <message>
        <source>otherwise %1</source>
        <translation>sonst %1</translation>
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
        <source>A box of your own, in degrees</source>
        <translation>Ein eigenes Rechteck, in Grad</translation>
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
        <translation>Eine Auswahl von Grafiken, im Dokument selbst; was gewählt war, bleibt es.</translation>
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
        <translation>Nur die gewählten Grafiken benennen</translation>
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
        <translation>Nur die gewählten Grafiken nehmen</translation>
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
        <source>Failed: %1</source>
        <translation>Fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Stopped; %1</source>
        <translation>Angehalten; %1</translation>
    </message>
    <message>
        <source>Given up at a question; nothing was done</source>
        <translation>Bei einer Frage aufgegeben; nichts wurde getan</translation>
    </message>
    <message>
        <source>1 record met a fault; %1</source>
        <translation>Bei 1 Datensatz trat ein Fehler auf; %1</translation>
    </message>
    <message>
        <source>%1 records met a fault; %2</source>
        <translation>Bei %1 Datensätzen trat ein Fehler auf; %2</translation>
    </message>
    <message>
        <source>No line at the terminal does the same: %1.</source>
        <translation>Keine Zeile im Terminal tut dasselbe: %1.</translation>
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
        <translation>'%1' ist dort nicht zu nennen, denn %2</translation>
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
        <translation>%1, Azimut %2</translation>
    </message>
    <message>
        <source>%1, closed %2</source>
        <translation>%1, geschlossen %2</translation>
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
        <translation>Der Ordner '%1' kann nicht angelegt werden: %2.</translation>
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
        <translation>Argument %1 (%2): %3</translation>
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
%1 ist kein Ort dafür.</translation>
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
%1</translation>
    </message>
    <message>
        <source>The following field names already exist in your dataset, and therefore the existing data will be overwritten. Please click 'YES' to continue and use these field names, or 'NO' if you wish to exit and define new names:
%1</source>
        <translation>Die folgenden Felder gibt es schon; was darin steht, wird überschrieben. Mit 'Ja' werden diese Felder verwendet, mit 'Nein' sind andere zu wählen:
%1</translation>
    </message>
    <message>
        <source>System Information Is Unavailable At This Time</source>
        <translation>Angaben zum System gibt es zurzeit nicht</translation>
    </message>
    <message>
        <source>No Feature Class Created:
%1</source>
        <translation>Keine Ausgabe angelegt:
%1</translation>
    </message>
    <message>
        <source>Unable to Make %1 Feature Class:</source>
        <translation>Kein Layer von der Art %1:</translation>
    </message>
    <message>
        <source>No selected graphic %1 in map!  No new Feature Class will be made.
Do you wish to go back and 
make a different selection?</source>
        <translation>Die Karte hat keine ausgewählten Grafiken dieser Art (%1). Es wird kein Layer angelegt.
Etwas anderes wählen?</translation>
    </message>
    <message>
        <source>No graphic %1 in map!  No new Feature Class will be made.
Do you wish to go back and 
make a different selection?</source>
        <translation>Die Karte hat keine Grafiken dieser Art (%1). Es wird kein Layer angelegt.
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
        <translation>Quadrat von %1</translation>
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
        <translation>%1 der Objekte behalten ihre Geometrie, %2 (Nummern %3%4).</translation>
    </message>
    <message>
        <source>All features stay as they are.</source>
        <translation>Alle Objekte bleiben, wie sie sind.</translation>
    </message>
    <message>
        <source>Projected, unit: %1</source>
        <translation>Projiziert, Einheit: %1</translation>
    </message>
    <message>
        <source>Geographic, unit: %1</source>
        <translation>Geographisch, Einheit: %1</translation>
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
</context>
</TS>
