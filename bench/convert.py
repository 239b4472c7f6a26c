#!/usr/bin/env python3
"""convert.py BIN FOLDER: converts screens of 1280 x 720 to each kind of picture by the program's command Convert Files,
alone and beside open windows, and by tarvikctl, alternately. Prints one JSON object by kind: the shortest time of 1,000
files in each way (ms), and by how much the program's peak memory grows over 10 and over 1,000 files (MiB). FOLDER should
be on a RAM disk with 8 GiB."""
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
WINDOWS = 20


def fresh(name):
    path = os.path.join(folder, name)
    shutil.rmtree(path, ignore_errors=True)
    os.mkdir(path)
    return path


def converted(command, kind, files):
    """Output and duration in ms of a command that converts files."""
    into = fresh("out")
    began = time.monotonic_ns()
    done = subprocess.run(command + [into] + files, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True)
    ms = (time.monotonic_ns() - began) / 1e6
    written = len(glob.glob(f"{into}/*.{kind}"))
    if written != len(files):
        raise RuntimeError(f"{command[0]} wrote {written} of {len(files)} files")
    return done.stdout, ms


def program(kind, windows, files):
    return json.loads(converted([f"{bin}/bench_convert", kind, str(windows)], kind, files)[0])


def measure(kind):
    alone, beside, times = [], [], []
    for _ in range(RUNS):
        alone.append(program(kind, 0, files))
        beside.append(program(kind, WINDOWS, files))
        times.append(converted([f"{bin}/tarvikctl", "picture", "--yes", "--to", kind, "--into"], kind, files)[1])
    return {"ms": min(run["ms"] for run in alone), "beside": min(run["ms"] for run in beside),
            "tarvikctl": min(times), "growth": max(run["growth"] for run in alone),
            "growthOfFew": program(kind, 0, files[:FEW])["growth"]}


bin, folder = sys.argv[1:]
subprocess.run([f"{bin}/bench_pictures", "make", fresh("bmp")], check=True)
screens = sorted(glob.glob(f"{folder}/bmp/*.bmp"))
sources = fresh("many")
files = []
for number in range(MANY):
    files.append(f"{sources}/{number:04}.bmp")
    os.link(screens[number % len(screens)], files[-1])
json.dump({kind: measure(kind) for kind in ("bmp", "wmf", "png", "pcx")}, sys.stdout)
