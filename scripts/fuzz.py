#!/usr/bin/python3
"""Runs every fuzzer and prints a table: inputs tried, seconds, inputs a second, what was found.

usage: scripts/fuzz.py [--runs N] [--seconds S] [--only NAME...]

Builds them first (preset "fuzz") and runs one on each processor. What a fuzzer finds on its way is kept in
build/fuzz/found/<name>; the corpus in fuzz/corpus stays as it is. Ends with 1 when there was a finding; its input then lies
in build/fuzz/findings/<name>.
"""
import argparse
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "fuzz"
# In bytes: room for every kind of line; tables and sound need more.
LONGEST_INPUT = {"SoundBlocks": 1280, "SoundReadings": 4096} | dict.fromkeys(("ModelTable", "Nsma", "Planet", "RadioMobile", "Splat"), 1024)
LONG_ENOUGH = 256
# Short call chains beside each block and the usual stack: three times as many inputs a second, every finding still stops the run.
SANITIZER = "malloc_context_size=2:detect_stack_use_after_return=0"


def build():
    if not (BUILD / "build.ninja").exists():
        subprocess.run(["cmake", "--preset", "fuzz"], cwd=ROOT, check=True, stdout=subprocess.DEVNULL)
    subprocess.run(["cmake", "--build", "--preset", "fuzz"], cwd=ROOT, check=True, stdout=subprocess.DEVNULL)


def run(name, runs, seconds):
    """@return inputs tried, seconds, the path of a finding or None"""
    found, findings = BUILD / "found" / name, BUILD / "findings" / name
    found.mkdir(parents=True, exist_ok=True)
    findings.mkdir(parents=True, exist_ok=True)
    before = set(findings.iterdir())
    start = time.monotonic()
    limit = [f"-max_total_time={seconds}"] if seconds else []
    log = BUILD / f"{name}.log"
    with log.open("w") as output:
        done = subprocess.run(
            [BUILD / "bin" / f"fuzz_{name}", found, ROOT / "fuzz" / "corpus" / name, f"-runs={runs}",
             f"-max_len={LONGEST_INPUT.get(name, LONG_ENOUGH)}", f"-artifact_prefix={findings}/", "-print_final_stats=1",
             "-timeout=10", *limit],
            env=os.environ | {"ASAN_OPTIONS": SANITIZER}, stdout=output, stderr=subprocess.STDOUT, check=False)
    took = time.monotonic() - start
    tried = re.search(r"number_of_executed_units: (\d+)", log.read_text(errors="replace"))
    new = sorted(set(findings.iterdir()) - before)
    if done.returncode != 0 and not new:
        raise RuntimeError(f"fuzz_{name} ended with {done.returncode}; see {log}")
    return int(tried.group(1)) if tried else 0, took, new[0] if new else None


def main():
    options = argparse.ArgumentParser()
    options.add_argument("--runs", type=int, default=10_000_000)
    options.add_argument("--seconds", type=int, default=0, help="an end for each target, however few inputs were tried")
    options.add_argument("--only", nargs="+", help="names of targets")
    arguments = options.parse_args()
    build()
    names = [f.name for f in sorted((ROOT / "fuzz" / "corpus").iterdir()) if not arguments.only or f.name in arguments.only]
    failed = False
    print(f"{'target':16}{'inputs':>12}{'seconds':>10}{'a second':>10}  finding", flush=True)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        results = pool.map(lambda name: run(name, arguments.runs, arguments.seconds), names)
        for name, (tried, took, finding) in zip(names, results):
            failed = failed or finding is not None
            print(f"{name:16}{tried:12}{took:10.0f}{tried / took:10.0f}  {finding or 'none'}", flush=True)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
