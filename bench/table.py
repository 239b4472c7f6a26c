#!/usr/bin/env python3
"""Prints the figures that bench/run collected in a folder as one table, each beside what it must not exceed."""
import json
import sys


def load(name):
    with open(f"{sys.argv[1]}/{name}.json", encoding="utf-8") as file:
        return json.load(file)


rows = []


def row(what, value, limit, unit, beside=""):
    verdict = "" if limit is None else ("ok" if value <= limit else "TOO MUCH")
    rows.append((what, f"{value:.2f} {unit}", "" if limit is None else f"{limit:.2f} {unit}", verdict, beside))


for display in ("offscreen", "xvfb"):
    start = load(f"start-{display}")
    for column, (what, unit) in enumerate((("start to first paint", "ms"), ("peak memory at first paint", "MiB"))):
        bare = start["start_bare"][column]
        row(f"{what}, {display}", start["start_tarvik"][column], 1.5 * bare, unit, f"bare window {bare:.1f} {unit}")
    editor = load(f"editor-{display}")
    row(f"open the editor on 1024 rows, {display}", editor["open"], 80, "ms")
    row(f"Page Down to finished repaint, {display}", editor["pageDown"], 4, "ms",
        f"slowest {editor['slowestPageDown']:.2f} ms")

    fileList = load(f"fileList-{display}")
    row(f"10,000 files in the list on the screen, {display}", fileList["show"], 200, "ms",
        f"all of them selected {fileList['selectAll']:.2f} ms")

    screen = load(f"screen-{display}")
    row(f"open a PNG of 1280 x 720 to its painted window, {display}", screen["open"], 1.5 * screen["bareDecode"], "ms",
        f"bare decode by the library {screen['bareDecode']:.2f} ms, by own code {screen['ownDecode']:.2f} ms; beside 99 windows {screen['openHundredth']:.2f} ms")
    row(f"redraw of that window, {display}", max(screen["redraw"], screen["redrawGrey"]), 6, "ms",
        f"in colour {screen['redraw']:.2f} ms, black and white {screen['redrawGrey']:.2f} ms")
    row(f"arrange 100 such windows, {display}", screen["arrange"], 300, "ms")

def best(name):
    """The shortest of the repeated runs of each benchmark, in ms."""
    figures = {}
    for bench in load(name)["benchmarks"]:
        if bench["run_type"] == "iteration":
            figures.setdefault(bench["run_name"].split("/")[0], []).append(bench["real_time"] / 1000)
    return {run: min(times) for run, times in figures.items()}


lists = best("lists")
store = best("store")
python = {name: us / 1000 for name, us in load("yardstick").items()}
row("read CSV of 1024 rows", lists["ReadCsv"], 2, "ms", f"Python csv {python['PythonReadCsv']:.2f} ms")
row("write CSV of 1024 rows", lists["WriteCsv"], 2, "ms", f"Python csv {python['PythonWriteCsv']:.2f} ms")
row("read binary of 1024 rows into the table", lists["ReadBinary"], 0.5, "ms", f"store alone {store['Load']:.2f} ms")
row("write binary of 1024 rows to disk", store["Save"], 1.5 * store["BareReplaceToLast"], "ms",
    f"bare write, flush, rename {store['BareReplace']:.2f} ms, folder flushed too {store['BareReplaceToLast']:.2f} ms")

grey = best("grey")
row("conversion of 1280 x 720 to black and white", grey["GreyConvert"], 4 * grey["GreyCopy"], "ms",
    f"a copy of the bytes {grey['GreyCopy']:.3f} ms")

link = load("link")
for way, bare in (("download", "bareDownload"), ("upload", "bareUpload")):
    row(f"{way} of 64 MiB", link[way], link[bare] / 0.8, "ms", f"bare file to socket to file {link[bare]:.1f} ms")
    row(f"{way} of 64 MiB, simulated receiver", link["instrument" + way.title()], None, "ms")
row("growth of peak memory by these transfers", link["growth"], 4, "MiB")
row("find of a file", link["find"], 2 * link["bareLine"], "us", f"bare line there and back {link['bareLine']:.1f} us")
row("find of a file, simulated receiver", link["instrumentFind"], None, "us")
row("walk of 10,000 files, simulated receiver", link["instrumentListing"], 300, "ms",
    f"catalogue at hand {link['listing']:.1f} ms")

MOGRIFY_SHARE = {"bmp to png": 0.25, "pcx to png": 0.25, "png to pcx": 0.8}
for way, figures in load("pictures").items():
    times, sizes = figures["ms"], figures["bytes"]
    row(f"twenty screens, {way}", times["tarvikctl"], min(MOGRIFY_SHARE[way] * times["mogrify"], 1.3 * times["bare"]),
        "ms", f"mogrify {times['mogrify']:.1f} ms, bare decode and encode {times['bare']:.1f} ms")
    if way.endswith("png"):
        row(f"size of them, {way}", sizes["tarvikctl"] / 2**20, 1.05 * sizes["mogrify"] / 2**20, "MiB",
            f"mogrify {sizes['mogrify'] / 2**20:.2f} MiB")

print("| what | figure | at most | | beside |")
print("|---|---|---|---|---|")
for cells in rows:
    print("| " + " | ".join(cells) + " |")
sys.exit(any(cells[3] == "TOO MUCH" for cells in rows))
