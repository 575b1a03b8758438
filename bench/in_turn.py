#!/usr/bin/env python3
# SPDX-License-Identifier: GPL-2.0-or-later
"""Times commands in alternation and prints their medians, peak memories and ratios to the first.

in_turn.py [--runs N] NAME=COMMAND NAME=COMMAND ...   Each command goes to a shell. What stands before " ;; " in it is
run first and isn't timed. The processor time is that of the command's own processes, without servers.
"""
import argparse
import os
import statistics
import subprocess
import sys
import time


def run_once(command):
    setup, separator, rest = command.partition(" ;; ")
    if separator:
        subprocess.run(["sh", "-c", setup], stdout=subprocess.DEVNULL, check=True)
        command = rest
    start = time.monotonic()
    process = subprocess.Popen(["sh", "-c", command], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
    errors = process.stderr.read()
    _, status, usage = os.wait4(process.pid, 0)
    seconds = time.monotonic() - start
    if status != 0:
        sys.exit(f"'{command}' failed: {errors.decode(errors='replace')[-500:]}")
    return seconds, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("commands", nargs="+")
    arguments = parser.parse_args()
    commands = dict(entry.split("=", 1) for entry in arguments.commands)
    seconds = {name: [] for name in commands}
    processor = {name: [] for name in commands}
    memory = dict.fromkeys(commands, 0.0)
    for _ in range(arguments.runs):
        for name, command in commands.items():
            elapsed, busy, peak = run_once(command)
            seconds[name].append(elapsed)
            processor[name].append(busy)
            memory[name] = max(memory[name], peak)
    first = statistics.median(next(iter(seconds.values())))
    print(f"{'':24} {'median s':>9} {'min':>7} {'max':>7} {'cpu s':>7} {'MB':>7} {'first/this':>11}")
    for name, values in seconds.items():
        median = statistics.median(values)
        busy = statistics.median(processor[name])
        print(
            f"{name:24} {median:9.2f} {min(values):7.2f} {max(values):7.2f} {busy:7.2f} {memory[name]:7.0f} "
            f"{first / median:11.2f}"
        )


if __name__ == "__main__":
    main()
