#!/usr/bin/env python3
"""pictures.py BIN FOLDER: converts twenty screens in a batch alternately with tarvikctl, ImageMagick's mogrify
and the bare libraries in one process. Prints the shortest time of each (ms) and the size of the files (bytes) as one
JSON object. FOLDER should be on a RAM disk."""
import glob
import json
import os
import shutil
import subprocess
import sys
import time

RUNS = 7
# The distribution's program, whatever else is in the path.
MOGRIFY = "/usr/bin/mogrify" if os.path.exists("/usr/bin/mogrify") else shutil.which("mogrify")


def run(command):
    began = time.monotonic_ns()
    subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
    return (time.monotonic_ns() - began) / 1e6


def fresh(name):
    path = os.path.join(folder, name)
    shutil.rmtree(path, ignore_errors=True)
    os.mkdir(path)
    return path


def commands(target):
    return {
        "mogrify": [MOGRIFY, "-format", target, "-path"],
        "tarvikctl": [f"{bin}/tarvikctl", "picture", "--yes", "--to", target, "--into"],
        "bare": [f"{bin}/bench_pictures", "bare", target],
    }


def measure(source, target):
    files = sorted(glob.glob(f"{folder}/{source}/*.{source}"))
    times, sizes = {}, {}
    for _ in range(RUNS):
        for name, command in commands(target).items():
            into = fresh("out")
            times.setdefault(name, []).append(run(command + [into] + files))
            written = glob.glob(f"{into}/*.{target}")
            if len(written) != len(files):
                raise RuntimeError(f"{name} wrote {len(written)} of {len(files)} files")
            sizes[name] = sum(map(os.path.getsize, written))
    return {"ms": {name: min(runs) for name, runs in times.items()}, "bytes": sizes}


bin, folder = sys.argv[1:]
run([f"{bin}/bench_pictures", "make", fresh("bmp")])
for form in ("pcx", "png"):
    run([MOGRIFY, "-format", form, "-path", fresh(form)] + glob.glob(f"{folder}/bmp/*"))
json.dump({f"{source} to {target}": measure(source, target)
           for source, target in (("bmp", "png"), ("pcx", "png"), ("png", "pcx"))}, sys.stdout)
