"""lobegraph-cli beside its floors and its peers, in one run on one core: prints a table for docs/performance.md.

Usage: compare.py FOLDER-OF-PROGRAMS    (needs gnuplot and Debian's python3-matplotlib)
"""
import math
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import time

REPORTS = 10_000
PICTURES = 300
ROUNDS = 3

MATPLOTLIB = """
import sys
import matplotlib
matplotlib.use("Agg")
import matplotlib.pyplot as plt
import math
for path in sys.argv[1:]:
    levels = [float(x) for x in open(path).read().split()[1:361]]
    peak = max(levels)
    radii = [10 ** (20 * math.log10(level / peak) / 35) for level in levels]
    figure = plt.figure(figsize=(5.01, 5.6), dpi=100)
    axes = figure.add_subplot(projection="polar")
    axes.plot([math.radians(i) for i in range(361)], radii + radii[:1])
    figure.savefig(path[:-4] + ".mpl.png")
    plt.close(figure)
"""


def pattern(rng):
    at, lobes = rng.uniform(0, 360), rng.choice([2, 3, 4])
    levels = []
    for i in range(360):
        angle = math.radians(i - at)
        levels.append(5 + 900 * abs(math.cos(angle / 2) * math.cos(lobes * angle / 2)) + rng.random() * 3)
    words = ['"beam"', "35", '"V1"', '"me"', '"now"', '"3"', '"Horizontal"', '"Not 180 plot"']
    return "\r\n".join(["359", *(f"{level:.7g}" for level in levels), "360", "0", "0", "0", "0", "0", *words]) + "\r\n"


def gnuplot_script(paths):
    lines = ["set terminal pngcairo size 501,560", "set polar", "set grid polar", "unset key", "set size square"]
    for path in paths:
        lines.append(f'set output "{path}.gp.png"')
        lines.append(f"plot '{path}' every ::1::360 using ($0*pi/180):(10**(20*log10($1/905.)/35)) with lines")
    return "\n".join(lines) + "\n"


def one_core(*command):
    """Seconds of the best of some runs, start of the program included."""
    best = math.inf
    for _ in range(ROUNDS):
        start = time.perf_counter()
        subprocess.run(["taskset", "-c", "0", *command], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        best = min(best, time.perf_counter() - start)
    return best


def floor(program, what, paths):
    runs = (subprocess.run(["taskset", "-c", "0", program, what, *paths], check=True, capture_output=True, text=True)
            for _ in range(ROUNDS))
    return min(float(run.stdout) for run in runs)


def main(programs):
    cli, floors = f"{programs}/lobegraph-cli", f"{programs}/lobegraph_cli_floor"
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        rng = random.Random(1)
        paths = []
        for number in range(REPORTS):
            path = folder / f"{number:05}.lbg"
            path.write_text(pattern(rng), newline="")
            paths.append(str(path))
        some = paths[:PICTURES]
        script = folder / "all.gp"
        script.write_text(gnuplot_script(some))
        known = subprocess.run([cli, "render", "--help"], check=True, capture_output=True, text=True).stdout
        force = ["--force"] if "--force" in known else []  # the pictures of the round before
        rows = [("report --json", REPORTS, one_core(cli, "report", "--json", "-j1", *paths)),
                ("floor: reading the same bytes", REPORTS, floor(floors, "read", paths)),
                ("render to PNG", PICTURES, one_core(cli, "render", *some, "-o", str(folder / "{}.png"), *force)),
                ("floor: compressing the same pixels", PICTURES, floor(floors, "encode", some)),
                ("gnuplot, one process", PICTURES, one_core("gnuplot", str(script))),
                ("matplotlib, one process", PICTURES, one_core("/usr/bin/python3", "-c", MATPLOTLIB, *some))]
    print(f"load {os.getloadavg()[0]:.1f}\n\n| One core | Files | ms a file | Files a second |\n|---|---|---|---|")
    for what, count, seconds in rows:
        print(f"| {what} | {count} | {1000 * seconds / count:.3f} | {count / seconds:,.0f} |")


main(sys.argv[1])
