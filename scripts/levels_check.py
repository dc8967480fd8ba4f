#!/usr/bin/python3
"""Levels, spread and noise of 1,000 recorded readings against the same computed here from their definitions with numpy, in
double precision: largest differences in dB, and 1 as the exit code when one is above 0.01.

usage: dbus-run-session -- /usr/bin/python3 scripts/levels_check.py PROGRAMS [--readings N]

A receiver with noise is played by lobegraph-bench into a private sound server and recorded from it, in real time (167 ms a
reading). PROGRAMS: a build's bin folder, with the benchmarks.
"""
import argparse
import pathlib
import subprocess
import sys

import numpy as np

import outside

RATE = 44100
FRAMES = 7364  # of one reading at 60 s a turn
LEVEL = 32.0   # sample steps a level
BAND = (300.0, 2700.0)


def record(programs, readings, folder):
    """Frames x 2 of what the sound server delivers."""
    path = pathlib.Path(folder) / "recorded"
    with outside.Stage() as stage:
        stage.private_sound()
        stage.start(programs / "lobegraph-bench", "--antenna", "array", "--seconds", 60, "--sink", "rx", "--tone", 812.3,
                    "--noise-band", "300-2700", "--snr", 30)
        frames = FRAMES * readings
        with open(path, "wb") as file:
            recorder = subprocess.Popen(["parec", "-d", "rx.monitor", "--raw", "--format=s16le", f"--rate={RATE}", "--channels=2"],
                                        env=stage.environment, stdout=file)
            stage.callback(outside.stop, recorder)
            outside.wait_for("the recording", 60 + readings * FRAMES / RATE * 1.5, lambda: path.stat().st_size >= 4 * frames, 0.5)
    return np.fromfile(path, dtype="<i2", count=2 * frames).reshape(frames, 2)


def measured(programs, method, sound):
    """Rows of first frame, level, spread, noise, clipped, tone as the program tells them."""
    done = subprocess.run([programs / "lobegraph_read_levels", method, str(FRAMES)], input=sound.tobytes(),
                          capture_output=True, check=True)
    return np.array([[float(word) for word in line.split()] for line in done.stdout.decode().splitlines()])


def hann(length):
    return 0.5 - 0.5 * np.cos(2 * np.pi * (np.arange(length) + 0.5) / length)


def starts_of(samples):
    length = int(np.floor(min(0.75 * samples, 0.2 * RATE) + 0.5))
    steps = int(np.ceil((samples - length) / (length / 3)))
    return length, [int(np.floor((samples - length) * k / steps + 0.5)) for k in range(steps + 1)]


def looks(window, starts):
    energy, total, count = np.sum(window ** 2), 1.0, len(starts)
    for apart in range(1, count):
        lag = starts[apart] - starts[0]
        if lag >= len(window):
            break
        total += 2 * (1 - apart / count) * (np.sum(window[lag:] * window[:len(window) - lag]) / energy) ** 2
    return count / total


class Spectrum:
    """Mean power over frequency of windows laid over a reading."""

    def __init__(self, samples):
        self.length, self.starts = starts_of(samples)
        self.window = hann(self.length)
        self.size = 1 << int(np.ceil(np.log2(np.ceil(4 / 3 * self.length))))
        self.hertz = np.arange(self.size // 2 + 1) * RATE / self.size
        self.lobe = 2 * RATE / self.length
        self.looks = looks(self.window, self.starts)

    def of(self, sound):
        power = sum(np.abs(np.fft.rfft(sound[start:start + self.length] * self.window, self.size)) ** 2 for start in self.starts)
        return power * 2 / (self.size * np.sum(self.window ** 2) * len(self.starts))


def level(mean_square):
    return np.sqrt(2 * mean_square) / LEVEL


def parts_spread(sound, tone):
    parts = int(np.clip(np.floor(len(sound) / RATE / 0.02 + 0.5), 2, 16))
    length = len(sound) // parts
    powers = []
    for part in range(parts):
        piece = sound[part * length:(part + 1) * length]
        window = hann(length)
        wave = np.exp(-2j * np.pi * tone * np.arange(length) / RATE)
        powers.append(2 * np.abs(np.sum(piece * window * wave)) ** 2 / np.sum(window) ** 2)
    return np.std(10 * np.log10(powers), ddof=1)


def computed(sound, tone, spectrum, method):
    """(level, spread, noise) of one reading from the definitions."""
    power = spectrum.of(sound)
    beside = np.abs(spectrum.hertz - tone)
    in_band = (spectrum.hertz >= BAND[0]) & (spectrum.hertz <= BAND[1]) & (beside > 2 * spectrum.lobe)
    lines = np.sort(power[in_band])
    median = lines[len(lines) // 2] / (1 - 1 / (9 * spectrum.looks)) ** 3
    density = median / (RATE / spectrum.size)
    noise = level(density * 2 * spectrum.lobe)
    if method == "all":
        own = level(np.mean((sound - np.mean(sound)) ** 2))
    else:
        tone_power = np.sum(power[beside <= spectrum.lobe]) / 0.99949
        own = level(tone_power) if method == "tone" else 1000 * 10 ** ((10 * np.log10(tone_power / density) - 80) / 20)
    return max(own, 1.0), parts_spread(sound, tone), noise


def largest_differences(programs, sound, method):
    rows = measured(programs, method, sound)
    spectrum = Spectrum(FRAMES)
    both = sound.mean(axis=1)
    worst = np.zeros(3)
    for row in rows:
        own = computed(both[int(row[0]):int(row[0]) + FRAMES], row[5], spectrum, method)
        worst = np.maximum(worst, [abs(20 * np.log10(row[1] / own[0])), abs(row[2] - own[1]), abs(20 * np.log10(row[3] / own[2]))])
    return len(rows), worst


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("programs", type=lambda text: pathlib.Path(text).resolve())
    parser.add_argument("--readings", type=int, default=1000)
    options = parser.parse_args()
    with outside.Stage() as stage:
        sound = record(options.programs, options.readings, stage.folder)
    wrong = False
    for method in ("all", "tone", "tone-over-noise"):
        count, worst = largest_differences(options.programs, sound, method)
        wrong |= count != options.readings or max(worst) > 0.01
        print(f"{method:16} {count} readings, largest difference in dB: level {worst[0]:.5f}, spread {worst[1]:.5f}, noise {worst[2]:.5f}")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
