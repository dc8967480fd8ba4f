#!/usr/bin/python3
"""Turn after turn by the real program from a real sound server, at the shortest rotation time.

    dbus-run-session -- /usr/bin/python3 scripts/endurance.py PROGRAMS [--seconds 3600]

After each turn it looks at the program's memory, threads, open files and processor time per reading; at the end the last
quarter of the turns is held against the first. Exits with 1 when something has grown.
"""
import argparse
import pathlib
import statistics
import sys
import time

import outside

SHORTEST_SECONDS = 1
READINGS = 360
# What may differ between the two quarters: the allocator's and the toolkit's caches, a busy machine's noise.
MORE_KILOBYTES = 2048
MORE_PROCESSOR = 1.25


def look(process, turns):
    """Memory in kB, threads, open files, processor seconds so far."""
    folder = pathlib.Path(f"/proc/{process.pid}")
    status = dict(line.split(":", 1) for line in (folder / "status").read_text().splitlines())
    return {"turn": turns, "memory": int(status["VmRSS"].split()[0]), "threads": int(status["Threads"]),
            "files": len(list((folder / "fd").iterdir())), "processor": outside.processor_seconds(process.pid)}


def turn(program, copies):
    """Begun when its safety copy is there: the turn may be over before the window is asked."""
    before = set(copies.glob("*.lbg"))
    program.press("Collect Data")
    outside.wait_for("the turn to begin", 30, lambda: set(copies.glob("*.lbg")) - before)
    time.sleep(SHORTEST_SECONDS)
    outside.wait_for("the end of the turn", 30, lambda: program.enabled("Collect Data"), 0.1)
    readings = program.number("Number of readings")
    if readings != READINGS:
        raise SystemExit(f"{readings:.0f} readings instead of {READINGS}")


def take_turns(program, copies, seconds):
    """What was seen after each turn."""
    end, seen = time.monotonic() + seconds, []
    while time.monotonic() < end:
        before = look(program.process, len(seen))["processor"]
        turn(program, copies)
        now = look(program.process, len(seen) + 1)
        now["per reading"] = 1000 * (now["processor"] - before) / READINGS
        seen.append(now)
        if len(seen) % 200 == 1:
            print(describe(now), flush=True)
    return seen


def describe(seen):
    return (f"turn {seen['turn']}: {seen['memory']} kB, {seen['threads']} threads, {seen['files']} open files, "
            f"{seen['per reading']:.2f} ms of processor time a reading")


def growth(seen):
    """What has grown from the first quarter to the last, as texts."""
    quarter = max(1, len(seen) // 4)

    def median(what, rows):
        return statistics.median(row[what] for row in rows)

    grown = []
    for what, most in (("memory", lambda old: old + MORE_KILOBYTES), ("threads", lambda old: old), ("files", lambda old: old),
                       ("per reading", lambda old: old * MORE_PROCESSOR)):
        # The first turns of all load what is needed later on.
        old, new = median(what, seen[min(2, len(seen) - 1):][:quarter]), median(what, seen[-quarter:])
        print(f"{what}: {old:.2f} in the first quarter, {new:.2f} in the last")
        if new > most(old):
            grown.append(what)
    return grown


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("programs", type=lambda text: pathlib.Path(text).resolve())
    parser.add_argument("--seconds", type=float, default=3600)
    arguments = parser.parse_args()
    with outside.Stage() as stage:
        stage.virtual_display()
        stage.private_sound()
        stage.settings.parent.mkdir(parents=True)
        stage.settings.write_text(f"[Settings]\nUsername=N0CALL\nRotateTime={SHORTEST_SECONDS}\nStartupDelay=0\n")
        process = stage.start(arguments.programs / "lobegraph", cwd=stage.home)
        program = outside.Program(process)
        program.find("Collect Data")
        program.learn()
        stage.start(arguments.programs / "lobegraph-bench", "--sink", "rx", "--seconds", SHORTEST_SECONDS)
        begun = time.monotonic()
        seen = take_turns(program, stage.turns, arguments.seconds)
        print(f"{len(seen)} turns, {len(seen) * READINGS} readings in {time.monotonic() - begun:.0f} s")
        print(describe(seen[-1]))
        grown = growth(seen)
        program.press("Exit")
        ended = process.wait(20)
    if grown or ended != 0:
        print(f"Grown: {', '.join(grown) or 'nothing'}; ended with {ended}")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
