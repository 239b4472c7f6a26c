#!/usr/bin/env python3
"""Prints the figures that bench/run collected in a folder as one table, each with its limit and its counterpart."""
import json
import sys


def load(name):
    with open(f"{sys.argv[1]}/{name}.json", encoding="utf-8") as file:
        return json.load(file)


# What a row may take at most, in times of its bare counterpart; README.md says how each was chosen.
RATIO = {
    "start": 1.5,
    "open editor": 2.0,
    "open list": 3.0,
    "open correction set": 5.0,
    "page down": 2.5,
    "list": 5.0,
    "open picture": 1.2,
    "redraw": 1.8,
    "redraw grey": 1.5,
    "arrange": 1.8,
    "traces": 0.15,
    "view": 0.8,
    "sort table": 0.6,
    "save table": 0.5,
    "view table": 0.5,
    "sort correction set": 1.6,
    "save correction set": 3.0,
    "view correction set": 0.8,
    "duplicates": 12.0,
    "print page": 1.2,
    "print pages": 1.1,
    "turns": 1.1,
    "read csv": 0.9,
    "write csv": 0.5,
    "read binary": 8.0,
    "write binary": 1.5,
    "grey": 2.0,
    "transfer": 1.25,
    "growth": 4.0,
    "find": 1.8,
    "walk": 3.0,
}

# What a user is made to wait at most, in ms, whatever the machine.
AT_MOST = {"open": 80, "work": 100, "traces": 3, "duplicates": 2, "preview": 300, "preview redraw": 16}

rows = []


def row(what, value, limit, unit, counterpart=""):
    verdict = "" if limit is None else ("ok" if value <= limit else "TOO MUCH")
    rows.append((what, f"{value:.2f} {unit}", "" if limit is None else f"{limit:.2f} {unit}", verdict, counterpart))


def compared(what, value, kind, bare, unit, counterpart, more="", at_most=None):
    """A row whose limit is its counterpart's figure of the same run times the ratio of its kind, and `at_most`."""
    limit = RATIO[kind] * bare
    row(what, value, limit if at_most is None else min(limit, at_most), unit, f"{counterpart} {bare:.2f} {unit}{more}")


for display in ("offscreen", "xvfb"):
    start = load(f"start-{display}")
    for column, (what, unit) in enumerate((("start to first paint", "ms"), ("peak memory at first paint", "MiB"))):
        compared(f"{what}, {display}", start["start_tarvik"][column], "start", start["start_bare"][column], unit,
               "bare window")
    editor = load(f"editor-{display}")
    compared(f"open the editor on 1024 rows, {display}", editor["open"], "open editor", editor["bareOpen"], "ms",
           "as many bare widgets", at_most=AT_MOST["open"])
    compared(f"Page Down to finished repaint, {display}", editor["pageDown"], "page down", editor["barePage"], "ms",
           "as many bare line edits", f"; slowest {editor['slowestPageDown']:.2f} ms")

    fileList = load(f"fileList-{display}")
    compared(f"10,000 files in the list on the screen, {display}", fileList["show"], "list", fileList["bareShow"], "ms",
           "as many names in a bare view",
           f"; slowest {fileList['slowestShow']:.2f} ms, all of them selected {fileList['selectAll']:.2f} ms")

    screen = load(f"screen-{display}")
    compared(f"open a PNG of 1280 x 720 to its painted window, {display}", screen["open"], "open picture",
           screen["bareDecode"], "ms", "bare decode by the library",
           f"; by own code {screen['ownDecode']:.2f} ms; beside 99 windows {screen['openHundredth']:.2f} ms")
    compared(f"redraw of that window in colour, {display}", screen["redraw"], "redraw", screen["bareRedraw"], "ms",
           "bare widget with that picture")
    compared(f"redraw of that window in black and white, {display}", screen["redrawGrey"], "redraw grey",
           screen["bareRedrawGrey"], "ms", "bare widget with that picture in grey")
    compared(f"arrange 100 such windows, {display}", screen["arrange"], "arrange", screen["bareArrange"], "ms",
           "100 bare windows with such widgets")

    diagram = load(f"diagram-{display}")
    compared(f"three traces of 630 samples at 1600 x 1000, {display}", diagram["traces"], "traces",
           diagram["bareTraces"], "ms", "antialiased polylines",
           f"; noise over the whole height {diagram['noise']:.2f} ms",
           at_most=AT_MOST["traces"])
    compared(f"diagram of 1000 rows to its painted window, {display}", diagram["view"], "view", diagram["bareView"], "ms",
           "bare dialog with polylines and labels")

    tables = load(f"tables-{display}")
    for name, what, kind in (("antenna", "antenna lists on 99 rows", "open list"),
                             ("suppress", "suppress lists on 100 rows", "open list"),
                             ("kfactor", "K-factor tables on 1000 rows", "open list"),
                             ("correction", "correction sets on three tables of 1000 rows", "open correction set")):
        compared(f"open the editor of {what}, {display}", tables[f"{name}Open"], kind, tables[f"{name}BareOpen"], "ms",
                 "as many bare widgets", at_most=AT_MOST["open"])
    for name, what, kind in (("kfactor", "K-factor table of 1000 rows", "table"),
                             ("correction", "correction set of 1000 rows", "correction set")):
        for act in ("sort", "save"):
            figure = act.title()
            compared(f"{act} a {what} to finished repaint, {display}", tables[name + figure], f"{act} {kind}",
                     tables[f"{name}Bare{figure}"], "ms", "the texts read, sorted and shown, the file written to save",
                     at_most=AT_MOST["work"])
        compared(f"view a {what} to its painted diagram, {display}", tables[f"{name}View"], f"view {kind}",
                 tables[f"{name}BareView"], "ms", "the texts sorted, bare dialog with polylines and labels",
                 at_most=AT_MOST["work"])

    pages = load(f"print-{display}")
    compared(f"a page with a screen of 1280 x 720 to PDF, {display}", pages["page"], "print page", pages["barePage"],
             "ms", "bare lossless page")
    compared(f"100 such pages, {display}", pages["pages"], "print pages", pages["barePages"], "ms", "100 bare pages")
    row(f"growth of peak memory by them, {display}", pages["growth"], pages["growthOfFew"] + 2, "MiB",
        f"by ten of them {pages['growthOfFew']:.2f} MiB")
    row(f"open the preview on 100 windows, {display}", pages["open"], AT_MOST["preview"], "ms")
    row(f"redraw of the preview after a drag, {display}", pages["redraw"], AT_MOST["preview redraw"], "ms",
        f"slowest of 200 {pages['slowestRedraw']:.2f} ms")

turns = load("turns")
compared("a table opened, viewed and closed, the last 100 of 1,000 times", turns["lastTurns"], "turns",
         turns["firstTurns"], "ms", "the first 100")
row("growth of memory by the last 900 times", turns["growthOfOthers"], turns["growthOfFirst"] + 2, "MiB",
    f"by the first 100 {turns['growthOfFirst']:.2f} MiB")


def best(*names):
    """The shortest of the repeated runs of each benchmark, in ms."""
    figures = {}
    for bench in (bench for name in names for bench in load(name)["benchmarks"]):
        if bench["run_type"] == "iteration":
            figures.setdefault(bench["run_name"].split("/")[0], []).append(bench["real_time"] / 1000)
    return {run: min(times) for run, times in figures.items()}


# Python and the program cannot share a process, so they take turns: a slow spell of the machine meets both.
TURNS = (1, 2, 3)
lists = best(*(f"lists-{turn}" for turn in TURNS))
store = best("store")
yardsticks = [load(f"yardstick-{turn}") for turn in TURNS]
python = {name: min(yardstick[name] for yardstick in yardsticks) / 1000 for name in yardsticks[0]}
compared("read CSV of 1024 rows", lists["ReadCsv"], "read csv", python["PythonReadCsv"], "ms", "Python csv")
compared("write CSV of 1024 rows", lists["WriteCsv"], "write csv", python["PythonWriteCsv"], "ms", "Python csv")
compared("read binary of 1024 rows into the table", lists["ReadBinary"], "read binary", lists["BareRead"], "ms",
       "bare bytes, check sum and fields", f"; store alone {store['Load']:.2f} ms")
compared("write binary of 1024 rows to disk", store["Save"], "write binary", store["BareReplaceToLast"], "ms",
       "bare write, flush, rename, folder flushed too", f"; without the last {store['BareReplace']:.2f} ms")

for name, what in (("KfactorDuplicates", "K-factor table"), ("CorrectionDuplicates", "table of a correction set")):
    compared(f"duplicate check of a {what} of 1000 rows", lists[name], "duplicates", lists["BareDuplicates"], "ms",
             "bare sort of the frequencies", at_most=AT_MOST["duplicates"])

grey = best("grey")
compared("conversion of 1280 x 720 to black and white", grey["GreyConvert"], "grey", grey["GreyCopy"], "ms",
       "a copy of the bytes")

link = load("link")
for way, bare in (("download", "bareDownload"), ("upload", "bareUpload")):
    compared(f"{way} of 64 MiB", link[way], "transfer", link[bare], "ms", "bare file to socket to file")
    row(f"{way} of 64 MiB, simulated receiver", link["instrument" + way.title()], None, "ms")
compared("growth of peak memory by these transfers", link["growth"], "growth", link["bareGrowth"], "MiB",
       "bare file to socket to file")
compared("find of a file", link["find"], "find", link["bareLine"], "us", "bare line there and back")
row("find of a file, simulated receiver", link["instrumentFind"], None, "us")
compared("walk of 10,000 files, simulated receiver", link["instrumentListing"], "walk", link["bareWalk"], "ms",
       "bare walk, line and words", f"; catalogue at hand {link['listing']:.1f} ms")

MOGRIFY_SHARE = {"bmp to png": 0.25, "pcx to png": 0.25, "png to pcx": 0.8}
for way, figures in load("pictures").items():
    times, sizes = figures["ms"], figures["bytes"]
    row(f"twenty screens, {way}", times["tarvikctl"], min(MOGRIFY_SHARE[way] * times["mogrify"], 1.3 * times["bare"]),
        "ms", f"mogrify {times['mogrify']:.1f} ms, bare decode and encode {times['bare']:.1f} ms")
    if way.endswith("png"):
        row(f"size of them, {way}", sizes["tarvikctl"] / 2**20, 1.05 * sizes["mogrify"] / 2**20, "MiB",
            f"mogrify {sizes['mogrify'] / 2**20:.2f} MiB")

for kind, convert in load("convert").items():
    row(f"1,000 screens to {kind.upper()} by Convert Files", convert["ms"], 1.1 * convert["tarvikctl"], "ms",
        f"tarvikctl {convert['tarvikctl']:.2f} ms")
    row("the same beside twenty tiled windows", convert["beside"], 1.1 * convert["ms"], "ms",
        f"without windows {convert['ms']:.2f} ms")
    row("growth of peak memory by these conversions", convert["growth"], convert["growthOfFew"] + 20, "MiB",
        f"by ten of them {convert['growthOfFew']:.2f} MiB")

print("| what | figure | at most | | counterpart |")
print("|---|---|---|---|---|")
for cells in rows:
    print("| " + " | ".join(cells) + " |")
sys.exit(any(cells[3] == "TOO MUCH" for cells in rows))
