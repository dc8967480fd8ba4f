"""The demo: the real program takes the pattern of a 3-element beam, operated through its own controls.

usage: dbus-run-session -- /usr/bin/python3 scripts/demo.py PROGRAMS FOLDER
Ends within 90 seconds, with 1 and the reason when something fails.
"""
import math
import os
import pathlib
import signal
import subprocess
import sys

import outside

TURN_SECONDS = 36  # 100 ms a reading, exactly
ANTENNA = "beam"
LONGEST_SECONDS = 80  # leaves time to stop what was started


class DemoError(Exception):
    """What went wrong, for the person who watches."""


def true_beamwidth(programs):
    listing = subprocess.run([programs / "lobegraph-bench", "--list", "--plain"], capture_output=True, text=True, check=True)
    return float(dict(line.split("\t")[:2] for line in listing.stdout.splitlines())[ANTENNA])


def gain_from_beamwidth(degrees):
    """Three elements, horizontal: second plane 1.5 times as wide, plus 2.15."""
    return 10 * math.log10(27000 / (degrees * degrees * 1.5)) + 2.15


def turn_antenna(stage, programs, folder):
    bench = stage.start(programs / "lobegraph-bench", "--antenna", ANTENNA, "--seconds", TURN_SECONDS, "--sink", "rx",
                        log=folder / "lobegraph-bench.log")
    outside.wait_for("the antenna to turn", 15, lambda: bench.poll() is not None or
                     stage.output("pactl", "list", "short", "sink-inputs").strip())
    if bench.poll() is not None:
        raise DemoError("lobegraph-bench has ended: " + (folder / "lobegraph-bench.log").read_text())


def collect(program):
    print(f"Collecting one turn of {TURN_SECONDS} seconds ...", flush=True)
    program.press("Collect Data")
    # A message instead of a turn leaves both buttons as they were.
    outside.wait_for("the turn to begin", 20, lambda: program.enabled("Halt Collection") or program.messages())
    outside.wait_for("the end of the turn", TURN_SECONDS + 20, lambda: program.enabled("Collect Data"), 0.2)
    if program.number("Number of readings") != 360:
        raise DemoError(f"{program.text('Number of readings') or 'no'} readings were taken instead of 360")


def figures_and_file(stage, program, folder):
    program.press("Rescale")
    outside.wait_for("the figures", 10, lambda: program.number("Beamwidth in degrees") > 0)
    program.press("Save File")
    program.answer_file("Save File", folder / "demo.lbg")
    outside.wait_for("the file's name in the window", 10, lambda: program.text("File name") == "demo.lbg")
    stage.picture(folder / "demo.png")
    return program.text("Beamwidth in degrees"), program.text("Estimated gain")


def take_pattern(stage, programs, folder):
    process = stage.start(programs / "lobegraph", log=folder / "lobegraph.log", cwd=folder)
    program = None
    try:
        program = outside.Program(process)
        program.answer_input(" ", "N0CALL")
        program.slide("Rotation time in seconds", TURN_SECONDS)
        program.type("Description of the pattern", "Demo: 3-element beam")
        turn_antenna(stage, programs, folder)
        collect(program)
        figures = figures_and_file(stage, program, folder)
        program.press("Exit")
        process.wait(10)
        return figures
    except (TimeoutError, outside.GLib.Error, subprocess.TimeoutExpired, DemoError) as error:
        raise DemoError(story(process, program, folder, error)) from error


def story(process, program, folder, error):
    """What failed, and what the program itself has said."""
    lines = [str(error)]
    if process.poll() is not None:
        lines.append(f"Lobegraph has ended with {process.returncode}.")
    elif program is not None:
        lines += [f"Lobegraph says: {words}" for words in program.messages()]
    return "\n".join(lines + [(folder / "lobegraph.log").read_text(errors="replace")]).rstrip()


def report(programs, beamwidth, gain):
    true = true_beamwidth(programs)
    return (f"               measured      true\n"
            f"Beamwidth    {beamwidth:>10} {true:>9.2f}  degrees\n"
            f"Gain         {gain.removesuffix(' dBi'):>10} {gain_from_beamwidth(true):>9.2f}  "
            f"dBi (estimate from the beamwidth)\n")


def show(programs, folder):
    folder.mkdir(parents=True, exist_ok=True)
    for old in ("demo.lbg", "demo.png", "figures.txt", "lobegraph.log", "lobegraph-bench.log"):
        (folder / old).unlink(missing_ok=True)
    with outside.Stage() as stage:
        if not os.environ.get("DISPLAY"):
            stage.virtual_display()
        stage.private_sound()
        figures = take_pattern(stage, programs, folder)
    text = report(programs, *figures)
    (folder / "figures.txt").write_text(text)
    print(text, end="")
    print(f"Left in {folder.name}/: demo.lbg, demo.png, figures.txt")


def out_of_time(*_):
    raise TimeoutError(f"nothing came of it within {LONGEST_SECONDS} seconds")


def main():
    signal.signal(signal.SIGALRM, out_of_time)
    signal.alarm(LONGEST_SECONDS)
    try:
        show(*(pathlib.Path(argument).resolve() for argument in sys.argv[1:3]))
    except (DemoError, OSError, subprocess.SubprocessError, outside.GLib.Error) as error:  # TimeoutError is an OSError
        sys.exit(f"The demo has failed: {error}")


if __name__ == "__main__":
    main()
