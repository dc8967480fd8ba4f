"""Measures every promise of speed beside its floor or peer in the same run and writes docs/performance.md, whose section on
the companion program (measured by benchmarks/cli/compare.py) it keeps.

usage: dbus-run-session -- /usr/bin/python3 scripts/performance.py PROGRAMS   (a release build; about five minutes)
"""
import json
import os
import pathlib
import platform
import re
import statistics
import subprocess
import sys
import time

import outside

ROOT = pathlib.Path(__file__).resolve().parent.parent


def medians_of(program):
    """Medians of a program's benchmarks, by name, in microseconds."""
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen")
    done = subprocess.run(
        [program, "--benchmark_format=json",
         "--benchmark_report_aggregates_only=true"], env=environment, capture_output=True, text=True, check=True)
    scale = {"ns": 1e-3, "us": 1.0, "ms": 1e3}
    return {row["run_name"]: row["real_time"] * scale[row["time_unit"]]
            for row in json.loads(done.stdout)["benchmarks"] if row["aggregate_name"] == "median"}


def timing(programs):
    """Lateness of readings: name, p50, p99, max in milliseconds."""
    done = subprocess.run([programs / "lobegraph_turn_timing"], capture_output=True, text=True, check=True)
    return [re.split(r"\s{2,}", line.strip()) for line in done.stdout.splitlines()[1:]]


def share_of_core(pid, seconds):
    """What a process takes of one core from now on."""
    before, start = outside.processor_seconds(pid), time.monotonic()
    time.sleep(seconds)
    return (outside.processor_seconds(pid) - before) / (time.monotonic() - start)


def resident_megabytes(pid):
    status = pathlib.Path(f"/proc/{pid}/status").read_text()
    return int(re.search(r"VmRSS:\s+(\d+)", status).group(1)) / 1024


def collecting(stage, programs):
    """Share of a core and resident memory of the real program in the middle of a real turn."""
    stage.start(programs / "lobegraph-bench", "--antenna", "beam", "--seconds", 36, "--sink", "rx")
    program = outside.Program(stage.start(programs / "lobegraph"))
    program.slide("Rotation time in seconds", 36)
    program.press("Collect Data")
    time.sleep(5)
    share = share_of_core(program.process.pid, 20)
    memory = resident_megabytes(program.process.pid)
    outside.stop(program.process)
    return share, memory


def waiting(stage, programs):
    """Share of a core of the real program while it waits 10 seconds for a pulse on a COM port's line."""
    far_end, port = os.openpty()
    stage.settings.write_text(
        "[Settings]\nUsername=N0CALL\nInputDeviceIsdBMeter=True\nGaugeBridge=True\nCommtrigger=5\nTrigger=1\nStartupDelay=0\n"
        f"[Ports]\nCOM5={os.ttyname(port)}\n")
    bench = stage.start(programs / "lobegraph-bench", "--as", "program", "--antenna", "omni")
    published = stage.settings.parent / "GaugeBridge.conf"
    outside.wait_for("a published value", 10, lambda: published.exists() and "Active=Y" in published.read_text())
    program = outside.Program(stage.start(programs / "lobegraph"))
    program.press("Collect Data")
    time.sleep(2)
    share = share_of_core(program.process.pid, 10)
    for process in (program.process, bench):
        outside.stop(process)
    os.close(port)
    os.close(far_end)
    return share


def first_window(stage, programs):
    """Seconds from the start of the process until its window shows the plot, median of 10 warm starts."""
    seconds = []
    for _ in range(11):
        start = time.monotonic()
        process = stage.start(programs / "lobegraph")
        stage.output("xdotool", "search", "--sync", "--onlyvisible", "--name", "Lobegraph V")
        seconds.append(outside.wait_for("the plot", 20, lambda: plot_shown_at(stage), 0.01) - start)
        outside.stop(process)
    return statistics.median(seconds[1:])


def plot_shown_at(stage):
    """When a picture of the window was taken that shows the ring of 0 dB; None when it does not yet."""
    tree = stage.output("xwininfo", "-root", "-tree")
    window = re.search(r'(0x[0-9a-f]+) "Lobegraph V', tree)
    if not window:
        return None
    corner = stage.folder / "corner.xwd"
    stage.output("xwd", "-silent", "-id", window.group(1), "-out", corner)
    taken = time.monotonic()
    colours = stage.output("convert", corner, "-crop", "60x60+220+30", "-format", "%k", "info:").strip()
    return taken if colours.isdigit() and int(colours) > 2 else None


def table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    return "\n".join(lines + ["| " + " | ".join(row) + " |" for row in rows]) + "\n"


DRAWN = [("Redraw, 501 x 560", "FillPicture", "ReDraw", 501), ("Redraw, 758 x 560", "FillPicture", "ReDraw", 758),
         ("One live reading with its repaint", "RepaintRectangle", "LivePoint", 501)]


def drawing_rows(medians):
    """A row for each promise: floor and measured at scale 1, floor and measured at scale 2."""
    def median(name, width, percent):
        label = f"{name}/width:{width}/scale%:{percent}/repeats:5"
        return f"{medians[label] / 1000:.3f} ms"
    return [(what, *(median(name, width, percent) for percent in (100, 200) for name in (floor, measured)))
            for what, floor, measured, width in DRAWN]


KEPT = [("the bytes of half a turn's pattern alone", "BytesAlone"), ("that pattern alone, its text made anew", "PatternAlone"),
        ("a reading stored: pattern and log, over a whole turn", "StoredReading")]


def keeping_rows(medians):
    return [(what, next(f"{median / 1000:.3f} ms" for name, median in medians.items() if name.startswith(benchmark)))
            for what, benchmark in KEPT]


def machine():
    model = re.search(r"model name\s*:\s*(.*)", pathlib.Path("/proc/cpuinfo").read_text())
    return f"{os.cpu_count()} cores, {model.group(1) if model else platform.machine()}"


def main():
    programs = pathlib.Path(sys.argv[1]).resolve()
    medians = medians_of(programs / "lobegraph_benchmarks")
    kept = medians_of(programs / "lobegraph_turn_benchmarks")
    late = timing(programs)
    with outside.Stage() as stage:
        stage.settings.parent.mkdir(parents=True)
        stage.settings.write_text("[Settings]\nUsername=N0CALL\n")
        stage.virtual_display()
        stage.private_sound()
        share, memory = collecting(stage, programs)
        start = first_window(stage, programs)
        wait = waiting(stage, programs)
    text = f"""# Performance

Each promise beside its floor or its peer, measured in one run by `scripts/performance.py` (see its head for the call) on
{machine()}. Figures of another machine differ; their ratios hardly do.

## Drawing

`lobegraph_benchmarks`, medians of five repetitions. The floor of a redraw is each pixel of the same picture written once, that of
a live reading the repaint of its rectangle. Promise at scale 1: at most 3 ms for 360 readings on the logarithmic circle with
labels, and 0.1 ms for one live reading, which repaints only its own rectangle.

{table(("What", "Floor, scale 1", "Measured, scale 1", "Floor, scale 2", "Measured, scale 2"), drawing_rows(medians))}
## Punctuality of a free-running turn

End of each reading against its absolute deadline, five turns of 9 seconds (25 ms a reading) in alternation with a bare
`clock_nanosleep` loop to the same deadlines. Promise: the 99th percentile at most 1 ms above the loop's, idle and with the
other core busy.

{table(("Case", "p50", "p99", "max (ms)"), late)}
## Keeping a turn

What a reading costs on disk while a turn runs: `lobegraph_turn_benchmarks`, medians of five repetitions. The floor is the same
bytes into the same file. Promise: below 0.1 ms.

{table(("What", "Measured"), keeping_rows(kept))}
## The program as a whole

| What | Measured | Promise |
|---|---|---|
| Processor time while collecting from the sound card | {share * 100:.1f} % of one core | below 10 % |
| Processor time while waiting 10 s for a trigger pulse on a COM port | {wait * 100:.1f} % of one core | below 20 % |
| Resident memory while collecting | {memory:.0f} MB | below 90 MB |
| Start of the process to the plot on the screen (warm, median of 10) | {start:.2f} s | below 0.6 s |
"""
    page = ROOT / "docs" / "performance.md"
    companion = page.read_text().partition("## `lobegraph-cli`")
    page.write_text(text + "\n" + companion[1] + companion[2])
    print(text)


if __name__ == "__main__":
    main()
