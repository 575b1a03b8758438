#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Compiles each header of src alone, with the flags of a source file of its folder.

    tests/house/headers.py BUILD_FOLDER

Ends with status 1 and the compiler's words where a header leans on what its users include before it.
"""
import concurrent.futures
import json
import os
import pathlib
import shlex
import subprocess
import sys
import tempfile


def flags_by_folder(build):
    flags = {}
    for entry in json.loads((build / "compile_commands.json").read_text()):
        source = pathlib.Path(entry["directory"], entry["file"]).resolve()
        words = shlex.split(entry["command"])
        # A launcher may stand in front of the compiler.
        begin = next(index for index, word in enumerate(words) if word.startswith("-")) - 1
        kept, skip = [words[begin]], False
        for word in words[begin + 1:]:
            if skip or word in ("-o", "-c", "-MD", "-MT", "-MF"):
                skip = not skip and word in ("-o", "-c", "-MT", "-MF")
                continue
            kept.append(word)
        flags.setdefault(source.parent, (entry["directory"], kept))
    return flags


def complaint(header, flags):
    folder = header.parent
    while folder not in flags and folder != folder.parent:
        folder = folder.parent
    if folder not in flags:
        return None
    directory, command = flags[folder]
    with tempfile.NamedTemporaryFile("w", suffix=".cpp") as source:
        source.write('#include "%s"\n' % header)
        source.flush()
        run = subprocess.run(command + ["-fsyntax-only", source.name], cwd=directory, capture_output=True, text=True)
    return run.stderr if run.returncode != 0 else ""


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    headers = sorted((pathlib.Path(__file__).resolve().parents[2] / "src").rglob("*.h"))
    flags = flags_by_folder(build)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        answers = list(pool.map(lambda header: complaint(header, flags), headers))
    compiled = sum(answer is not None for answer in answers)
    failed = [(header, answer) for header, answer in zip(headers, answers) if answer]
    for header, answer in failed:
        print("%s doesn't compile alone:\n%s" % (header, answer))
    print("%d headers compiled alone, %d not" % (compiled - len(failed), len(failed)))
    sys.exit(1 if failed or compiled < 200 else 0)


if __name__ == "__main__":
    main()
