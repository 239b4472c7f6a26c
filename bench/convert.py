#!/usr/bin/env python3
"""convert.py BIN FOLDER: converts screens of 1280 x 720 to PNG by the program's command Convert Files and by tarvikctl,
alternately. Prints the shortest time of 1,000 files with each (ms), and by how much the program's peak memory grows over
10 and over 1,000 files (MiB), as one JSON object. FOLDER should be on a RAM disk."""
import glob
import json
import os
import shutil
import subprocess
import sys
import time

RUNS = 3
FEW = 10
MANY = 1000


def fresh(name):
    path = os.path.join(folder, name)
    shutil.rmtree(path, ignore_errors=True)
    os.mkdir(path)
    return path


def converted(command, files):
    """Output and duration in ms of a command that converts files."""
    into = fresh("out")
    began = time.monotonic_ns()
    done = subprocess.run(command + [into] + files, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True)
    ms = (time.monotonic_ns() - began) / 1e6
    written = len(glob.glob(f"{into}/*.png"))
    if written != len(files):
        raise RuntimeError(f"{command[0]} wrote {written} of {len(files)} files")
    return done.stdout, ms


def program(files):
    return json.loads(converted([f"{bin}/bench_convert"], files)[0])


bin, folder = sys.argv[1:]
subprocess.run([f"{bin}/bench_pictures", "make", fresh("bmp")], check=True)
screens = sorted(glob.glob(f"{folder}/bmp/*.bmp"))
sources = fresh("many")
files = []
for number in range(MANY):
    files.append(f"{sources}/{number:04}.bmp")
    os.link(screens[number % len(screens)], files[-1])
runs, times = [], []
for _ in range(RUNS):
    runs.append(program(files))
    times.append(converted([f"{bin}/tarvikctl", "picture", "--yes", "--to", "png", "--into"], files)[1])
json.dump({"ms": min(run["ms"] for run in runs), "tarvikctl": min(times),
           "growth": max(run["growth"] for run in runs), "growthOfFew": program(files[:FEW])["growth"]}, sys.stdout)
