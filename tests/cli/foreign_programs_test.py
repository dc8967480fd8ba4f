"""A model's table from nec2c is read, and what was written is read by SPLAT!."""
import json
import pathlib
import re
import subprocess
import sys
import tempfile

# A half-wave dipole along Y in free space, 144 MHz: 78 degrees wide, 2.15 dBi, nulls at 90 and 270 degrees.
MODEL = """CM dipole
CE
GW 1 21 0 -0.5 0 0 0.5 0 0.002
GE 0
EX 0 1 11 0 1 0
FR 0 1 0 0 144 0
RP 0 1 360 1000 90 0 0 1
EN
"""
# A 3-element beam along X, 144 MHz, over the whole upper half of the sphere: a table of 4 MB.
BEAM = """CM beam
CE
GW 1 21 -0.4 -0.51 0 -0.4 0.51 0 0.002
GW 2 21 0 -0.49 0 0 0.49 0 0.002
GW 3 21 0.35 -0.45 0 0.35 0.45 0 0.002
GE 0
EX 0 2 11 0 1 0
FR 0 1 0 0 144 0
RP 0 {thetas} 360 1000 {first} 0 1 1
EN
"""
SITE = "{name}\n45.0\n{longitude}\n10 m\n"
GROUND = "15.000\n0.005\n301.000\n144.000\n5\n1\n0.50\n0.50\n100.0\n"


def run(*command, folder):
    done = subprocess.run(command, cwd=folder, capture_output=True, text=True, timeout=60)
    assert done.returncode == 0, f"{command}: {done.stdout}{done.stderr}"
    return done.stdout


def report(cli, name, folder):
    return json.loads(run(cli, "report", "--json", name, folder=folder))


def beam(cli, folder, name, thetas, first):
    """The figures of the beam's azimuth cut, from a table of so many angles of theta."""
    (folder / f"{name}.nec").write_text(BEAM.format(thetas=thetas, first=first))
    run("nec2c", "-i", f"{name}.nec", "-o", f"{name}.out", folder=folder)
    return report(cli, f"{name}.out", folder)["figures"]


def decibels_towards(folder, longitude):
    """What SPLAT! says of the antenna in the direction of a receiver (longitudes count to the west)."""
    (folder / "tx.qth").write_text(SITE.format(name="tx", longitude="10.0"))
    (folder / "rx.qth").write_text(SITE.format(name="rx", longitude=longitude))
    (folder / "tx.lrp").write_text(GROUND)
    run("splat", "-t", "tx.qth", "-r", "rx.qth", folder=folder)
    text = (folder / "tx-to-rx.txt").read_text(errors="replace")
    return float(re.search(r"tx antenna pattern towards rx: \S+ \((\S+) dB\)", text).group(1))


def main(cli):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "dipole.nec").write_text(MODEL)
        run("nec2c", "-i", "dipole.nec", "-o", "dipole.out", folder=folder)
        run(cli, "convert", "dipole.out", "dipole.lbg", folder=folder)
        figures = report(cli, "dipole.lbg", folder)["figures"]
        assert abs(figures["hpbw"] - 78) < 0.5, figures
        assert abs(figures["fnbw"] - 180) < 0.5, figures
        sphere, cut = beam(cli, folder, "sphere", 91, 0), beam(cli, folder, "cut", 1, 90)
        assert (folder / "sphere.out").stat().st_size > 3_500_000
        for figure in ("hpbw", "frontToBack"):
            assert abs(sphere[figure] - cut[figure]) < 0.05, f"the strongest cut lies at 90 degrees: {figure} {sphere} {cut}"
        run(cli, "convert", "dipole.lbg", "tx.az", folder=folder)
        assert decibels_towards(folder, "9.9") < -60, "east lies in the null"
        run(cli, "convert", "--table", "dipole.lbg", "table.csv", folder=folder)
        rows = (folder / "table.csv").read_text().splitlines()[1:]
        levels = {round(float(angle)): float(db) for _, angle, _, db in (row.split(",") for row in rows)}
        turned = [f"{(angle + 45) % 360},{db}" for angle, db in levels.items()]
        (folder / "turned.csv").write_text("angle,dB\n" + "\n".join(turned) + "\n")
        run(cli, "convert", "--table", "turned.csv", "tx.az", folder=folder)
        assert abs(decibels_towards(folder, "9.9") - levels[45]) < 0.1, "turned by 45 degrees"


main(sys.argv[1])
