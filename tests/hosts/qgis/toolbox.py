# SPDX-License-Identifier: GPL-2.0-or-later
"""The tools as algorithms of the toolbox: in the background, in models, on layers of any kind, stopped and failing."""
import threading
import time

from program_steps import (WINDOW, WORK, QApplication, QgsProject, QgsVectorLayer, child, make_layer, wait_until)
from qgis.core import (QgsApplication, QgsFeature, QgsField, QgsGeometry, QgsProcessing, QgsProcessingAlgRunnerTask,
                       QgsProcessingContext, QgsProcessingFeatureSourceDefinition, QgsProcessingFeedback,
                       QgsProcessingModelAlgorithm, QgsProcessingModelChildAlgorithm,
                       QgsProcessingModelChildParameterSource, QgsProcessingModelOutput,
                       QgsProcessingModelParameter, QgsProcessingOutputLayerDefinition,
                       QgsProcessingParameterFeatureSource)
from qgis.PyQt.QtCore import QVariant
from qgis.PyQt.QtWidgets import QTableWidget

SQUARE = "POLYGON((0 0, 0 10, 10 10, 10 0, 0 0))"
TRIANGLE = "POLYGON((20 0, 25 8, 30 0, 20 0))"
MANY = 5000


class Log(QgsProcessingFeedback):
    """Keeps what a run tells, and on which thread it ran; stops it once it is past a per cent."""

    def __init__(self, stop_at=None):
        super().__init__(False)
        self.errors, self.warnings, self.infos, self.commands, self.progress = [], [], [], [], []
        self.threads, self.stop_at = set(), stop_at
        self.progressChanged.connect(self.moved, type=1)  # at once, on the run's thread

    def moved(self, percent):
        self.progress.append(percent)
        self.threads.add(threading.get_ident())
        if self.stop_at is not None and percent >= self.stop_at and not self.isCanceled():
            self.cancel()
            time.sleep(1.2)  # runs look once a second

    def reportError(self, error, fatal=False):
        self.errors.append(error)

    def pushWarning(self, warning):
        self.warnings.append(warning)

    def pushInfo(self, info):
        self.infos.append(info)

    def pushCommandInfo(self, info):
        self.commands.append(info)


def algorithm(name):
    found = QgsApplication.processingRegistry().algorithmById("tessarine:" + name)
    assert found is not None, name
    return found


def context():
    made = QgsProcessingContext()
    made.setProject(QgsProject.instance())
    return made


def run(name, log=None, where=None, **parameters):
    """On this thread."""
    log = log or Log()
    where = where or context()
    ok, message = algorithm(name).checkParameterValues(parameters, where)
    assert ok, message
    results, ok = algorithm(name).run(parameters, where, log)
    assert ok, log.errors
    return where.takeResultLayer(results["OUTPUT"]) or QgsVectorLayer(results["OUTPUT"], "again", "ogr"), results, log


def run_in_background(name, log, **parameters):
    where, told = context(), []
    task = QgsProcessingAlgRunnerTask(algorithm(name), parameters, where, log)
    task.executed.connect(lambda ok, results: told.append((ok, results)))
    QgsApplication.taskManager().addTask(task)
    wait_until(lambda: told, name + " didn't end")
    return told[0], where


def rows_of(layer):
    assert layer.isValid(), layer.source()
    kept = [at for at, field in enumerate(layer.fields()) if field.name() != "fid"]
    fields = [(layer.fields()[at].name(), layer.fields()[at].type()) for at in kept]
    return fields, [([row[at] for at in kept], row.geometry().asWkt(12)) for row in layer.getFeatures()]


def what_is_there():
    provider = QgsApplication.processingRegistry().providerById("tessarine")
    names = {one.name() for one in provider.algorithms()}
    assert {"vertices", "wrap", "to-centric", "build-polygons", "calculate"} <= names, names
    assert not any("graphics" in name for name in names), "tools for documents of the suite are none of the program's"
    for one in provider.algorithms():
        outputs = [parameter.name() for parameter in one.destinationParameterDefinitions()]
        assert outputs == ["OUTPUT"] and one.parameterDefinition("INPUT") is not None, one.name()
        assert not one.icon().isNull() and one.shortHelpString(), one.name()
    polygons = algorithm("build-polygons")
    assert polygons.parameterDefinition("INPUT").dataTypes() == [QgsProcessing.TypeVectorLine]
    assert polygons.parameterDefinition("LABELS").dataTypes() == [QgsProcessing.TypeVectorPoint]
    assert polygons.parameterDefinition("LABEL_FIELDS").parentLayerParameterName() == "LABELS"
    assert polygons.parameterDefinition("CLUSTER_TOLERANCE").minimum() == 0.0
    spheroids = algorithm("to-centric").parameterDefinition("SPHEROID").options()
    assert spheroids[0] == "As the data" and "Mars 2000" in spheroids, spheroids[:3]


def outputs_of_all_kinds(areas):
    file, results, log = run("vertices", INPUT=areas, FIELDS=["label"], OUTPUT=str(WORK / "corners.gpkg"))
    assert (results["READ"], results["WRITTEN"], results["FAILED"]) == (2, 9, 0), results
    assert log.progress[-1] == 100 and any("Contains 9 vertex points" in text for text in log.infos), log.infos
    fields, rows = rows_of(file)
    assert [name for name, _ in fields] == ["Uniq_ID", "X_Coord", "Y_Coord", "label"], fields
    assert rows[0] == ([1, 0.0, 0.0, "row 0"], "Point (0 0)"), rows[0]
    memory, _, log = run("vertices", INPUT=areas, FIELDS=["label"], OUTPUT=QgsProcessing.TEMPORARY_OUTPUT)
    assert memory.providerType() == "memory" and rows_of(memory) == (fields, rows), rows_of(memory)
    assert not any("QGIS3" in text or "/tmp" in text for text in log.infos), log.infos
    # A second layer of a file that holds one already; and a layer that stands is replaced, which the log tells.
    second = "ogr:dbname='%s' table=\"second\" (geom)" % (WORK / "corners.gpkg")
    run("vertices", INPUT=areas, OUTPUT=second)
    assert {at.split("!!::!!")[1] for at in file.dataProvider().subLayers()} | {"second"} >= {"corners", "second"}
    again, _, log = run("vertices", INPUT=areas, OUTPUT=str(WORK / "corners.gpkg"))
    assert len(again.fields()) == 4 and any("already exists" in text for text in log.warnings), log.warnings
    # What somebody wants to see is shown, under the name that it has become.
    where = context()
    goal = QgsProcessingOutputLayerDefinition(str(WORK / "shown.shp"), QgsProject.instance())
    _, results, _ = run("vertices", where=where, INPUT=areas, OUTPUT=goal)
    assert list(where.layersToLoadOnCompletion()) == [results["OUTPUT"]], where.layersToLoadOnCompletion()


def layers_of_all_kinds(areas):
    expected = rows_of(run("vertices", INPUT=areas, ALL_FIELDS=True, OUTPUT="TEMPORARY_OUTPUT")[0])[1]
    memory = make_layer("Polygon", [SQUARE, TRIANGLE], name="in memory")
    assert rows_of(run("vertices", INPUT=memory, ALL_FIELDS=True, OUTPUT="TEMPORARY_OUTPUT")[0])[1] == expected
    # What the user sees, edits included; and what is selected.
    areas.startEditing()
    added = QgsFeature(areas.fields())
    added.setGeometry(QgsGeometry.fromWkt("POLYGON((40 0, 40 1, 41 0, 40 0))"))
    assert areas.addFeature(added)
    assert run("vertices", INPUT=areas, OUTPUT="TEMPORARY_OUTPUT")[1]["WRITTEN"] == 13
    areas.rollBack()
    areas.selectByIds([2])
    chosen = QgsProcessingFeatureSourceDefinition(areas.id(), selectedFeaturesOnly=True)
    few, results, _ = run("vertices", INPUT=chosen, ALL_FIELDS=True, OUTPUT="TEMPORARY_OUTPUT")
    assert [row[1] for row in rows_of(few)[1]] == [row[1] for row in expected[5:]] and results["READ"] == 1
    measured, _, _ = run("calculate", INPUT=chosen, MEASURE=["Number of Vertices"], OUTPUT="TEMPORARY_OUTPUT")
    assert [row[0] for row in rows_of(measured)[1]] == [["row 1", 1, 4]], rows_of(measured)
    measured, _, _ = run("calculate", INPUT=chosen, MEASURE=["Number of Vertices"], OUTPUT=str(WORK / "measured.gpkg"))
    assert [field.name() for field in measured.fields()] == ["fid", "label", "size", "Vertices"], measured.fields().names()
    areas.removeSelection()
    chosen = QgsProcessingFeatureSourceDefinition(areas.id(), selectedFeaturesOnly=True)
    assert run("to-polylines", INPUT=chosen, OUTPUT="TEMPORARY_OUTPUT")[0].featureCount() == 0
    assert areas.isValid() and [field.name() for field in areas.fields()] == ["fid", "label", "size"]


def names_that_differ_in_case():
    """A layer in memory takes them; outputs get the others under names of their own, and the report says so."""
    odd = QgsVectorLayer("Polygon?crs=EPSG:4326&field=Name:string&field=name:string&field=NAME:integer", "odd", "memory")
    row = QgsFeature(odd.fields())
    row.setAttributes(["first", "second", 3])
    row.setGeometry(QgsGeometry.fromWkt(SQUARE))
    assert odd.dataProvider().addFeatures([row])[0]
    QgsProject.instance().addMapLayer(odd)
    kept = ["first", "second", 3]
    for ending, own in ((".gpkg", ["fid"]), (".geojson", [])):
        made, _, log = run("calculate", INPUT=odd, MEASURE=["Number of Vertices"], OUTPUT=str(WORK / ("case" + ending)))
        assert made.fields().names() == own + ["Name", "name_2", "NAME_3", "Vertices"], made.fields().names()
        assert next(made.getFeatures()).attributes()[len(own):] == kept + [5]
        assert any("'name' is written as 'name_2'" in text for text in log.infos), log.infos
    made, _, _ = run("vertices", INPUT=odd, FIELDS=["name"], OUTPUT=str(WORK / "case_corners.gpkg"))
    assert {row["name"] for row in made.getFeatures()} == {"second"}, rows_of(made)
    made, _, log = run("wrap", INPUT=odd, RANGE="180", OUTPUT=str(WORK / "case_wrapped.gpkg"))
    assert next(made.getFeatures()).attributes()[1:] == kept, rows_of(made)


def lists():
    """A list becomes a text that tells its values apart, and the log says so."""
    listed = QgsVectorLayer("Polygon?crs=EPSG:4326", "listed", "memory")
    assert listed.dataProvider().addAttributes([QgsField("tags", QVariant.StringList, subType=QVariant.String)])
    listed.updateFields()
    row = QgsFeature(listed.fields())
    row.setAttributes([["a", "b,c"]])
    row.setGeometry(QgsGeometry.fromWkt(SQUARE))
    assert listed.dataProvider().addFeatures([row])[0]
    QgsProject.instance().addMapLayer(listed)
    made, _, log = run("vertices", INPUT=listed, FIELDS=["tags"], OUTPUT=str(WORK / "lists.gpkg"))
    assert {row["tags"] for row in made.getFeatures()} == {'["a","b,c"]'}, rows_of(made)
    assert any("The lists in the field 'tags' of 'listed' are written as texts of JSON" in text for text in log.warnings), log.warnings


def outputs_without_an_ending(areas):
    """They are GeoPackages: log and panel name what is there, which stays, and what is read isn't written to."""
    named = WORK / "plain"
    _, results, log = run("to-polylines", INPUT=areas, OUTPUT=str(named))
    there = str(named) + ".gpkg"
    assert results["OUTPUT"].startswith(there) and (WORK / "plain.gpkg").exists() and not named.exists(), results
    report = next(text for text in log.infos if "Successful" in text)
    assert there in report and "working_copy" not in report, report
    assert any("--output=" + there in text for text in log.commands), log.commands
    runs = child(child(WINDOW, "TessarineReports"), "tblRuns", QTableWidget)
    shown = [runs.item(0, column).text() for column in range(runs.columnCount())]
    assert there + "/plain" in shown, shown
    read = QgsVectorLayer(there, "read", "ogr")
    QgsProject.instance().addMapLayer(read)
    log = Log()
    ok = algorithm("vertices").run({"INPUT": read, "OUTPUT": str(named)}, context(), log)[1]
    assert not ok and any("would replace the data of 'read'" in error for error in log.errors), log.errors
    _, results, _ = run("vertices", INPUT=areas, OUTPUT=str(WORK / "plain.other"))
    assert results["OUTPUT"].startswith(there), results
    QgsProject.instance().removeMapLayer(read.id())
    _, _, log = run("to-polylines", INPUT=areas, OUTPUT="TEMPORARY_OUTPUT")
    assert not any("working_copy" in text for text in log.infos), log.infos


def refusals(areas):
    def refused(name, piece, **parameters):
        ok, message = algorithm(name).checkParameterValues(parameters, context())
        assert not ok and piece in message, message
        log = Log()
        results, ok = algorithm(name).run(parameters, context(), log)
        assert not ok and any(piece in error for error in log.errors), (log.errors, log.infos)

    out = str(WORK / "refused.gpkg")
    # No document of this face remembers a box.
    refused("wrap", "'Range' 180, 'Range' 360 or 'Bounds' W,S,E,N.", INPUT=areas, OUTPUT=out)
    for tool in QgsApplication.processingRegistry().providerById("tessarine").algorithms():
        assert "in degrees, in degrees" not in tool.shortHelpString() and "document" not in tool.shortHelpString(), (
            tool.name(), tool.shortHelpString())
    refused("wrap", "can't be given beside 'Range'", INPUT=areas, RANGE="180", BOUNDS="0,0,1,1", OUTPUT=out)
    refused("wrap", "'Bounds' takes four numbers", INPUT=areas, BOUNDS="0,0,1", OUTPUT=out)
    refused("build-polygons", "takes polylines", INPUT=areas, OUTPUT=out)
    refused("calculate", "Nothing to calculate", INPUT=areas, OUTPUT=out)
    refused("to-centric", "both above 0", INPUT=areas, RADII="1,-1", OUTPUT=out)
    assert not (WORK / "refused.gpkg").exists()
    log = Log()
    shape = make_layer("Polygon", [SQUARE], WORK / "own.shp", "own")
    _, ok = algorithm("to-polylines").run({"INPUT": shape, "OUTPUT": str(WORK / "own.shp")}, context(), log)
    assert not ok and any("would replace the data of 'own'" in error for error in log.errors), log.errors
    assert QgsVectorLayer(str(WORK / "own.shp"), "own", "ogr").featureCount() == 1
    # A run that began is among the others in the panel, with what stood against it.
    runs = child(child(WINDOW, "TessarineReports"), "tblRuns", QTableWidget)
    assert any("would replace the data of 'own'" in (runs.item(0, column).text() + runs.item(0, column).toolTip())
               for column in range(runs.columnCount())), [runs.item(0, at).text() for at in range(runs.columnCount())]


def faults_on_a_thread():
    lines = make_layer("LineString", ["LINESTRING(0 0, 1 1)", "LINESTRING(0 0, 1e-300 0)", "LINESTRING(0 0, 2 1)"],
                       WORK / "lines.gpkg", "lines")
    log = Log()
    windows = len(QApplication.topLevelWidgets())
    (ok, results), where = run_in_background("calculate", log, INPUT=lines.id(), ALL_MEASURES=True,
                                             OUTPUT=str(WORK / "measured.gpkg"))
    assert ok and results["FAILED"] == 1 and results["WRITTEN"] == 3, (results, log.errors)
    assert any("Division by zero" in error and "OID 2" in error for error in log.errors), log.errors
    assert len(QApplication.topLevelWidgets()) == windows and QApplication.activeModalWidget() is None
    assert log.threads and threading.get_ident() not in log.threads


def stop(many):
    log = Log(stop_at=10)
    (ok, results), _ = run_in_background("vertices", log, INPUT=many.id(), OUTPUT="TEMPORARY_OUTPUT")
    assert not results and any("stopped" in text for text in log.warnings), (results, log.warnings)
    log = Log(stop_at=10)
    (ok, results), _ = run_in_background("vertices", log, INPUT=many.id(), OUTPUT=str(WORK / "part.gpkg"))
    part = QgsVectorLayer(str(WORK / "part.gpkg"), "part", "ogr")
    assert not results and 0 < part.featureCount() < 2 * MANY, (part.featureCount(), log.warnings)
    assert any("part.gpkg" in text and "until then" in text for text in log.warnings), log.warnings


def model_of_two(areas):
    model = QgsProcessingModelAlgorithm("corners of lines", "test")
    model.addModelParameter(QgsProcessingParameterFeatureSource("areas"), QgsProcessingModelParameter("areas"))
    for name, tool, source in (
            ("lines", "to-polylines", QgsProcessingModelChildParameterSource.fromModelParameter("areas")),
            ("corners", "vertices", QgsProcessingModelChildParameterSource.fromChildOutput("lines", "OUTPUT"))):
        child = QgsProcessingModelChildAlgorithm("tessarine:" + tool)
        child.setChildId(name)
        child.addParameterSources("INPUT", [source])
        model.addChildAlgorithm(child)
    output = QgsProcessingModelOutput("made")
    output.setChildOutputName("OUTPUT")
    output.setChildId("corners")
    child = model.childAlgorithm("corners")
    child.setModelOutputs({"made": output})
    model.setChildAlgorithm(child)
    model.updateDestinationParameters()
    goal = [one.name() for one in model.destinationParameterDefinitions()][0]
    where, log = context(), Log()
    results, ok = model.run({"areas": areas, goal: str(WORK / "model.gpkg")}, where, log)
    assert ok, log.errors
    made = QgsVectorLayer(results[goal], "made", "ogr")
    expected = rows_of(run("vertices", INPUT=areas, OUTPUT="TEMPORARY_OUTPUT")[0])
    assert rows_of(made)[1] == expected[1], rows_of(made)


def scenario():
    areas = make_layer("Polygon", [SQUARE, TRIANGLE], WORK / "areas.gpkg", "areas")
    what_is_there()
    outputs_of_all_kinds(areas)
    layers_of_all_kinds(areas)
    names_that_differ_in_case()
    lists()
    outputs_without_an_ending(areas)
    refusals(areas)
    faults_on_a_thread()
    many = make_layer("LineString", ["LINESTRING(%f 0, %f 1)" % (n % 179, n % 179 + 1) for n in range(MANY)],
                      WORK / "many.gpkg", "many")
    stop(many)
    model_of_two(areas)
