"""Completion and manual know every verb and option that the program's own help names."""
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
COMPLETION = ROOT / "packaging/completion/lobegraph-cli.bash"
MANUAL = ROOT / "packaging/man/lobegraph-cli.1"


def complete(*words):
    script = f'source "{COMPLETION}"; COMP_WORDS=({" ".join(repr(w) for w in words)}); COMP_CWORD={len(words) - 1}; ' \
             'compopt() { :; }; _lobegraph_cli; printf "%s\\n" "${COMPREPLY[@]}"'
    return subprocess.run(["bash", "-c", script], capture_output=True, text=True, check=True).stdout.split()


def main(program):
    manual = MANUAL.read_text().replace("\\-", "-")
    assert complete("lobegraph-cli", "re") == ["report", "render"]
    assert complete("lobegraph-cli", "report", "--scale", "d") == ["db50"]
    assert complete("lobegraph-cli", "report", "--apply", "smooth,or") == ["smooth,orient", "smooth,original"]
    assert complete("lobegraph-cli", "ports", "") == ["assign"]
    for verb in ("report", "render", "convert", "ports"):
        text = subprocess.run([program, verb, "--help"], capture_output=True, text=True, check=True).stdout
        options = set(re.findall(r"--[a-z][a-z0-9-]+", text.split("Examples:")[0]))
        assert "Examples:" in text and options, text
        offered = set(complete("lobegraph-cli", verb, "--"))
        assert options == offered, f"{verb}: {options ^ offered}"
        for option in options - {"--help"}:
            assert option in manual, f"{option} is not in the manual"


main(sys.argv[1])
