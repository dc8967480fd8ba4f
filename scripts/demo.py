"""The demo: the real program takes the pattern of a 3-element beam, operated through its own controls.

usage: dbus-run-session -- /usr/bin/python3 scripts/demo.py PROGRAMS FOLDER
"""
import math
import os
import pathlib
import subprocess
import sys
import time

import outside

TURN_SECONDS = 36  # 100 ms a reading, exactly
ANTENNA = "beam"


def true_beamwidth(programs):
    listing = subprocess.run([programs / "lobegraph-bench", "--list", "--plain"], capture_output=True, text=True, check=True)
    return float(dict(line.split("\t")[:2] for line in listing.stdout.splitlines())[ANTENNA])


def gain_from_beamwidth(degrees):
    """Three elements, horizontal: second plane 1.5 times as wide, plus 2.15."""
    return 10 * math.log10(27000 / (degrees * degrees * 1.5)) + 2.15


def take_pattern(stage, programs, folder):
    program = outside.Program(stage.start(programs / "lobegraph", log=folder / "lobegraph.log", cwd=folder))
    program.answer_input(" ", "N0CALL")
    program.slide("Rotation time in seconds", TURN_SECONDS)
    program.type("Description of the pattern", "Demo: 3-element beam")
    bench = stage.start(programs / "lobegraph-bench", "--antenna", ANTENNA, "--seconds", TURN_SECONDS, "--sink", "rx")
    time.sleep(1)
    print(f"Collecting one turn of {TURN_SECONDS} seconds ...", flush=True)
    program.press("Collect Data")
    outside.wait_for("the turn to begin", 10, lambda: program.enabled("Halt Collection"))
    outside.wait_for("the end of the turn", TURN_SECONDS + 15, lambda: program.enabled("Collect Data"), 0.2)
    outside.stop(bench)
    program.press("Rescale")
    outside.wait_for("the figures", 5, lambda: program.text("Beamwidth in degrees") not in ("", "Angle", "0.00"))
    time.sleep(0.5)
    program.press("Save File")
    program.answer_file("Save File", folder / "demo.lbg")
    outside.wait_for("the file", 5, (folder / "demo.lbg").exists)
    outside.wait_for("the file's name in the window", 5, lambda: program.text("File name") == "demo.lbg")
    stage.picture(folder / "demo.png")
    figures = program.text("Beamwidth in degrees"), program.text("Estimated gain")
    program.press("Exit")
    program.process.wait(10)
    return figures


def main():
    programs = pathlib.Path(sys.argv[1]).resolve()
    folder = pathlib.Path(sys.argv[2]).resolve()
    folder.mkdir(parents=True, exist_ok=True)
    for old in ("demo.lbg", "demo.png", "figures.txt"):
        (folder / old).unlink(missing_ok=True)
    with outside.Stage() as stage:
        if not os.environ.get("DISPLAY"):
            stage.virtual_display()
        stage.private_sound()
        beamwidth, gain = take_pattern(stage, programs, folder)
    true = true_beamwidth(programs)
    report = (f"               measured      true\n"
              f"Beamwidth    {beamwidth:>10} {true:>9.2f}  degrees\n"
              f"Gain         {gain.removesuffix(' dBi'):>10} {gain_from_beamwidth(true):>9.2f}  dBi (estimate from the beamwidth)\n")
    (folder / "figures.txt").write_text(report)
    print(report, end="")
    print(f"Left in {folder.name}/: demo.lbg, demo.png, figures.txt")


if __name__ == "__main__":
    main()
