#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Runs one scenario inside the map program, on a screen and with a profile of its own.

    drive_program.py --build FOLDER --program /usr/bin/qgis SCENARIO...

The plug-in is installed by its own tool into the fresh profile. The exit status is that of the scenario; a scenario
that ends no run within the limit counts as failed.
"""
import argparse
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent.parent
LIMIT_SECONDS = 60
QUIET = """[core]
NewsFeed\\httpsfeedqgisorg\\disabled=true

[qgis]
checkVersion=false
enableMacros=Never
"""
# The program's language where it isn't English.
LANGUAGES = {"german": "de"}


def start_screen(folder):
    reader, writer = os.pipe()
    screen = subprocess.Popen(
        ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x900x24", "-nolisten", "tcp"],
        pass_fds=[writer], stdout=subprocess.DEVNULL, stderr=open(folder / "screen.log", "w"))
    os.close(writer)
    # The number may come in pieces, its line end last.
    with os.fdopen(reader) as told:
        number = told.readline().strip()
    if not number:
        sys.exit("the screen didn't start: " + (folder / "screen.log").read_text())
    return screen, ":" + number


def install(options, profiles, environment, tool):
    subprocess.run([ROOT / "tools" / tool, "--build", options.build, "--profiles-path", profiles],
                   env=environment, check=True, stdout=subprocess.DEVNULL)


def run(options, scenario, folder):
    profiles = folder / "profiles"
    settings = profiles / "profiles/default/QGIS/QGIS3.ini"
    settings.parent.mkdir(parents=True)
    language = LANGUAGES.get(scenario)
    locale = "[locale]\noverrideFlag=true\nuserLocale={0}\nglobalLocale={0}\nshowGroupSeparator=true\n"
    settings.write_text(QUIET + (locale.format(language) if language else ""))
    environment = {name: value for name, value in os.environ.items() if not name.startswith(("XDG_", "QGIS_", "QT_"))}
    environment.update(
        HOME=str(folder), XDG_RUNTIME_DIR=str(folder), XDG_DATA_HOME=str(folder / "data"), LC_ALL="C.UTF-8",
        TESSARINE_SCENARIO=str(HERE / (scenario + ".py")), TESSARINE_HELPERS=str(HERE),
        TESSARINE_TEST_DATA=str(ROOT / "tests/data"),
        TESSARINE_PROGRAM=str(pathlib.Path(options.build).resolve() / "bin/tessarine"), TESSARINE_WORK=str(folder / "work"),
        PGEO_DRIVER_TEMPLATE="DRIVER=libmdbodbc.so;DBQ=%s")
    (folder / "work").mkdir()
    install(options, profiles, environment, "install-plugin")
    screen, environment["DISPLAY"] = start_screen(folder)
    try:
        program = subprocess.Popen(
            [options.program, "--nologo", "--noversioncheck", "--profiles-path", str(profiles), "--code",
             str(HERE / "in_program.py")],
            env=environment, start_new_session=True, stdout=open(folder / "out.log", "w"), stderr=subprocess.STDOUT)
        try:
            status = program.wait(options.limit)
        except subprocess.TimeoutExpired:
            os.killpg(program.pid, signal.SIGKILL)
            program.wait()
            status = "no end within %d s" % options.limit
    finally:
        screen.terminate()
        screen.wait()
    install(options, profiles, environment, "uninstall-plugin")
    assert not (profiles / "profiles/default/python/plugins/tessarine").exists()
    assert "tessarine=" not in settings.read_text(), settings.read_text()
    result = folder / "work/result.txt"
    told = result.read_text() if result.exists() else "the scenario told nothing\n"
    print("%s: %s" % (scenario, told), end="")
    if status == 0 and told.startswith(("passed", "skipped")):
        return True
    print("status %s; the program's output:\n%s" % (status, (folder / "out.log").read_text()[-4000:]))
    return False


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", required=True)
    parser.add_argument("--program", default="qgis")
    parser.add_argument("--limit", type=float, default=LIMIT_SECONDS, help="seconds that one scenario may take")
    parser.add_argument("--keep", type=pathlib.Path, help="a folder for what the run leaves")
    parser.add_argument("scenarios", nargs="+")
    options = parser.parse_args()
    failed = False
    for scenario in options.scenarios:
        folder = pathlib.Path(tempfile.mkdtemp(prefix="tessarine-"))
        try:
            failed = not run(options, scenario, folder) or failed
            if options.keep:
                shutil.copytree(folder, options.keep / scenario, dirs_exist_ok=True)
        finally:
            shutil.rmtree(folder, ignore_errors=True)
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
