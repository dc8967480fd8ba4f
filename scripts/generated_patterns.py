"""Patterns of every readable format, the same ones for the same number: made by formulas and a generator with a fixed seed."""
import math
import pathlib
import random
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "tests" / "e2e"))
import pattern_file  # noqa: E402

SHAPES = {
    "cardioid": lambda bearing: 0.5 + 0.5 * math.cos(bearing),
    "dipole": lambda bearing: abs(math.cos(math.pi / 2 * math.sin(bearing)) / (math.cos(bearing) or 1e-9)),
    "clover": lambda bearing: abs(math.cos(2 * bearing)),
    "narrow": lambda bearing: math.exp(-(bearing / 0.2) ** 2) + 0.02 * (1 + math.cos(9 * bearing)),
    "flat top": lambda bearing: min(0.7, 0.5 + 0.5 * math.cos(bearing)),
    "omni": lambda bearing: 1.0,
    "ramp": lambda bearing: 0.05 + (bearing + math.pi) / 7,
}
COUNTS = (360, 359, 361, 300, 180, 181, 120, 72, 61, 60, 59, 36, 12, 3, 1)


def turned(bearing):
    """Held to half a turn to either side."""
    return (bearing + math.pi) % (2 * math.pi) - math.pi


def levels(dice, count):
    """Levels up to full scale, some with noise, spikes, gaps or a strange size; `count` of them."""
    shape = SHAPES[dice.choice(list(SHAPES))]
    beam_at, peak = dice.uniform(-math.pi, math.pi), dice.choice((1000, 900, 1023.5, 312.25, 2, 0.4, 40000))
    values = [peak * abs(shape(turned(math.tau * index / count - beam_at))) for index in range(count)]
    noise = dice.choice((0, 0, 0.02, 0.2))
    values = [value * (1 + dice.gauss(0, noise)) for value in values]
    for _ in range(dice.choice((0, 0, 3, 9))):
        values[dice.randrange(count)] += dice.choice((60, 200, -200))
    if dice.random() < 0.15:
        start = dice.randrange(count)
        values[start:start + 20] = [0] * len(values[start:start + 20])
    return [max(0.0, value) for value in values]


def down_db(values):
    top = max(values) or 1
    return [20 * math.log10(max(value, top * 1e-5) / top) if top else 0 for value in values]


def angles(dice, count):
    first = dice.choice((0, 0, 0, 90, -180, 12.5))
    return [first + 360 * index / count for index in range(count)]


def comma(text, wanted):
    return text.replace(".", ",") if wanted else text


def write_lbg(path, dice, values):
    values = values[:360]
    pattern_file.write(path, values, description=f"{path.stem}, roof", elements=dice.choice(("  1", "  3", "  > 8!", "")))
    lines = path.read_bytes().split(b"\r\n")
    after = len(values) + 1  # the fields behind the readings
    lines[after:after + 4] = [b"%d" % field for field in (
        len(values), dice.choice((0, 0, 7, 30)), dice.choice((0, 0, 90, 271)), dice.choice((0, 0, 3)))]
    lines[after + 5] = b"%d" % dice.choice((0, 0, 11))
    lines[after + 7] = b"%d" % dice.choice((35, 20, 50, 60, 0))
    if dice.random() < 0.3:
        lines[after + 12], lines[after + 13] = b'"Vertical"', b'"180 plot"'
    if dice.random() < 0.1:
        lines = lines[:dice.randrange(len(lines))]
    path.write_bytes(dice.choice((b"\r\n", b"\n", b"\r\n")).join(lines))


def write_csv(path, dice, values):
    separator = dice.choice(("\n", "\r\n", ",", " , "))
    words = [f"{value:.{dice.choice((0, 3, 6))}f}" for value in values]
    if dice.random() < 0.3:
        words.insert(0, "Level")
    path.write_text(separator.join(words) + "\n", newline="")


def write_msi(path, dice, values):
    unit, commas = dice.choice((" dBi", " dBd", "")), dice.random() < 0.3
    rows = [f"{angle % 360:g} {-level * dice.choice((1, 1, -1)):.2f}" for angle, level in zip(angles(dice, len(values)), down_db(values))]
    lines = [f"NAME {path.stem}", "MAKE none", "FREQUENCY 145.5", f"GAIN 8.25{unit}", f"HORIZONTAL {len(rows)}", *rows,
             "VERTICAL 4", "0 0", "90 3", "180 10", "270 3"]
    path.write_text(comma("\r\n".join(lines), commas) + "\r\n", newline="")


def write_az(path, dice, values):
    top = max(values) or 1
    rows = [f"{angle % 360:g}\t{value / top:.6f}" for angle, value in zip(angles(dice, len(values)), values)]
    path.write_text("\n".join([f"{dice.choice((0, 10, 350.5))} ; turned", *rows]) + "\n")


def write_ant(path, dice, values):
    commas = dice.random() < 0.3
    whole = [values[index * len(values) // 360] for index in range(360)]
    rows = [comma(f"{level:.2f}", commas) for level in down_db(whole)] + ["0.0"] * dice.choice((0, 181))
    path.write_text("\r\n".join(rows) + "\r\n", newline="")


def write_adf(path, dice, values):
    rows = sorted((turned(math.radians(angle)) * 180 / math.pi, level)
                  for angle, level in zip(angles(dice, len(values)), down_db(values)))
    lines = ["REVNUM:,NSMA WG16.99.050", "ANTMAN:,none", f"MODNUM:,{path.stem}", "MDGAIN:,11.5,DBI", "GUNITS:,DBI/DBR", "NUMCUT:,1",
             "PATCUT:,AZ", "POLARI:,H/H", f"NUPOIN:,{len(rows) + dice.choice((0, 0, 5))}", "FSTLST:,-180,180",
             *(f"{angle:.3f},{level:.3f}," for angle, level in rows), "ENDFIL:,EOF"]
    path.write_text("\n".join(lines) + "\n")


def write_nec(path, dice, values):
    """The table of a modelling program: an azimuth cut, or an elevation cut of the upper half."""
    azimuth, rows = dice.random() < 0.7, []
    for index, level in enumerate(down_db(values)):
        theta, phi = (70, 360 * index / len(values)) if azimuth else (-90 + 180 * index / len(values), 0)
        rows.append(f"{theta:8.2f} {phi:8.2f} -999.99 {level:8.2f} {level + 6.5:8.2f} 0.0000 -90.00 LINEAR 0.0E+00 0.0 0.0E+00 0.0")
    head = ["FREQUENCY : 1.4100E+01 MHz", "", "---------- RADIATION PATTERNS -----------", "",
            "THETA PHI VERTC HORIZ TOTAL", "DEGREES DEGREES DB DB DB"]
    path.write_text("\n".join([*head, *rows, "", ""]))


def write_far_field(path, dice, values):
    rows = [f"{360 * index / len(values):8.2f} -999.99 {level:8.2f} {level:8.2f}" for index, level in enumerate(down_db(values))]
    title = "Azimuth Pattern   Elevation angle = 25.0 deg."
    path.write_text("\r\n".join([title, "", " Deg   V dB   H dB   Tot dB", *rows, ""]), newline="")


def write_table(path, dice, values):
    separator = dice.choice((",", ";", "\t", " "))
    commas = separator in ";\t" and dice.random() < 0.5
    in_db = dice.random() < 0.5
    shown = down_db(values) if in_db else values
    rows = [comma(f"{angle:.2f}{separator}{value:.4f}", commas) for angle, value in zip(angles(dice, len(values)), shown)]
    head = [f"angle{separator}{'dB' if in_db else 'level'}"] if dice.random() < 0.6 else []
    path.write_text("\n".join([*head, *rows]) + "\n")


# How the name ends, and who writes it. A table is told from levels one a line by an option of the program, not by its name.
WRITERS = ((".lbg", write_lbg), (".csv", write_csv), (".msi", write_msi), (".az", write_az), (".ant", write_ant), (".adf", write_adf),
           (".nec", write_nec), (".out", write_nec), (".txt", write_far_field), (".table.csv", write_table))


def write_all(folder, number):
    """The names of `number` patterns written into the folder; each format gets its share."""
    dice, names = random.Random(20261201), []
    pathlib.Path(folder).mkdir(parents=True)
    for index in range(number):
        ending, write = WRITERS[index % len(WRITERS)]
        name = f"p{index:03}{ending}"
        count = 360 if index < 4 * len(WRITERS) else dice.choice(COUNTS)
        write(pathlib.Path(folder, name), dice, levels(dice, count))
        names.append(name)
    return names
