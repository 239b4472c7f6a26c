#!/usr/bin/env python3
"""Starts the program and the bare window alternately. Prints the medians of the time from process start to first paint
(ms) and of the peak memory (MiB) as one JSON object."""
import json
import statistics
import subprocess
import sys
import time

RUNS = 21


def start(program):
    began = time.monotonic_ns()
    run = subprocess.run([program], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, timeout=60, check=True)
    painted, kib = map(int, run.stdout.split())
    return (painted - began) / 1e6, kib / 1024


folder = sys.argv[1]
figures = {"start_tarvik": [], "start_bare": []}
for _ in range(RUNS):
    for name, runs in figures.items():
        runs.append(start(f"{folder}/{name}"))
json.dump({name: [statistics.median(column) for column in zip(*runs)] for name, runs in figures.items()}, sys.stdout)
