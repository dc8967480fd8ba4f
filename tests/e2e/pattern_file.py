"""Pattern files as another program would read and write them."""
import csv


def write(path, readings, description="Bench", elements="  3", peak=None):
    strongest = max(range(len(readings)), key=lambda index: readings[index])
    lines = [len(readings) - 1, *(f"{level:.6g}" for level in readings), len(readings), 0, 0, 0,
             strongest if peak is None else peak, 0, f'"{description}"', 35, '"V1.0.0"', '"K1AB"', '"12:00 1/2/2020"',
             f'"{elements}"', '"Horizontal"', '"Not 180 plot"']
    path.write_bytes("".join(f"{line}\r\n" for line in lines).encode("cp1252"))


def read(path):
    """The fields by name; the whole file must stand."""
    fields = [row[0] for row in csv.reader(path.read_text(encoding="cp1252").splitlines())]
    count = int(fields[0]) + 1
    rest = fields[1 + count:]
    if len(rest) != 14:
        raise ValueError(f"{len(rest)} fields after the readings")
    names = ("ReadingsPlotted", "TrimEnd", "Rotate", "PeakLevelDb", "PeakIndex", "TrimFront", "Description",
             "ScaleSetting", "WriterVersion", "CollectedBy", "CollectedDate", "Elements", "Polarization", "Plot180")
    return {"Readings": [float(text) for text in fields[1:1 + count]], **dict(zip(names, rest))}
