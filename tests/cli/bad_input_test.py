"""Ten thousand damaged files in one call: every good one done, every bad one named, memory bounded."""
import json
import os
import pathlib
import random
import stat
import sys
import tempfile

MOST_MEMORY_MB = 200
# Only a build under AddressSanitizer reads it: what it keeps of freed memory is not the program's.
SMALL_QUARANTINE = "quarantine_size_mb=16"
COUNT = 10_000
HUGE = 1 << 30


def pattern(seed):
    rng = random.Random(seed)
    lines = ["359"] + [f"{rng.uniform(1, 900):.7g}" for _ in range(360)]
    lines += ["360", "0", "0", "0", "0", "0", '"beam"', "35", '"V1"', '"me"', '"now"', '"3"', '"Horizontal"', '"Not 180 plot"']
    return ("\r\n".join(lines) + "\r\n").encode()


def damaged(whole, kind, rng):
    if kind == "cut":
        return whole[: rng.randrange(len(whole) - 60)]
    if kind == "flipped":
        changed = bytearray(whole)
        for _ in range(20):
            changed[rng.randrange(len(changed))] ^= 1 << rng.randrange(8)
        return bytes(changed)
    return rng.randbytes(rng.randrange(4000))


def make(folder):
    """Paths, and those that must be done and those that must be named; flipped ones may go either way."""
    rng = random.Random(7)
    paths, good, bad = [], set(), set()
    for number in range(COUNT):
        kind = ("good", "cut", "flipped", "garbage")[number % 4]
        path = folder / f"{number:05}-{kind}.lbg"
        whole = pattern(number)
        path.write_bytes(whole if kind == "good" else damaged(whole, kind, rng))
        paths.append(path)
        if kind == "good":
            good.add(str(path))
        elif kind != "flipped":
            bad.add(str(path))
    line = folder / "line.lbg"
    with line.open("wb") as file:
        file.truncate(HUGE)
    os.mkfifo(folder / "pipe.lbg")
    (folder / "folder.lbg").mkdir()
    (folder / "locked.lbg").symlink_to("nowhere")
    odd = [line, folder / "pipe.lbg", folder / "folder.lbg", folder / "locked.lbg", pathlib.Path("/dev/zero")]
    return paths + odd, good, bad | {str(path) for path in odd}


def run(program, arguments, folder):
    """Exit code, output, complaints and the most memory in MB."""
    out, err = folder / "out", folder / "err"
    child = os.fork()
    if child == 0:
        for number, path in ((1, out), (2, err)):
            os.dup2(os.open(path, os.O_WRONLY | os.O_CREAT, 0o600), number)
        os.execve(program, [program, *arguments], os.environ | {"ASAN_OPTIONS": SMALL_QUARANTINE})
    _, status, usage = os.wait4(child, 0)
    return os.waitstatus_to_exitcode(status), out.read_text(), err.read_text(errors="replace"), usage.ru_maxrss / 1024


def main(program):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        paths, good, bad = make(folder)
        code, output, complaints, memory = run(program, ["report", "--json", *map(str, paths)], folder)
        reports = [json.loads(line) for line in output.splitlines()]
        assert code == 1, f"exit code {code}"
        assert [r["file"] for r in reports] == [str(p) for p in paths], "one object for each file, in order"
        failed = {r["file"] for r in reports if r["error"]}
        assert not failed & good, f"good files failed: {sorted(failed & good)[:3]}"
        assert bad <= failed, f"bad files passed: {sorted(bad - failed)[:3]}"
        assert all(r["PlotDone"] for r in reports if r["file"] in good)
        named = [line.split(": ")[1] for line in complaints.splitlines()]
        assert set(named) == failed and len(named) == len(failed), "each bad file named once, nothing else"
        assert all(": Error " in line for line in complaints.splitlines())
        assert memory < MOST_MEMORY_MB, f"{memory:.0f} MB"
        print(f"{len(paths)} files, {len(failed)} bad, {memory:.0f} MB")


main(sys.argv[1])
