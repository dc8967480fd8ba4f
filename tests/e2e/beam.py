"""The bench's 3-element beam and the rules of the figures, written down a second time to compare with."""
import cmath
import math

PEAK = 900.0
ELEMENTS = ((-0.2, 0.5, 150), (0, 1, 0), (0.2, 0.7, -120))  # wavelengths forward, current, its phase


def array_factor(bearing):
    return abs(sum(cmath.rect(current, math.radians(phase) + 2 * math.pi * place * math.cos(bearing))
                   for place, current, phase in ELEMENTS))


def level(bearing_deg):
    """What the bench plays when the beam looks that far off the source."""
    bearing = math.radians(bearing_deg)
    along = math.cos(bearing)
    dipole = abs(math.cos(math.pi / 2 * math.sin(bearing)) / along) if abs(along) > 1e-9 else 0
    return PEAK * dipole * array_factor(bearing) / array_factor(0)


def turn(start_deg, count=360):
    """The mean level over each step of a turn that begins at a bearing; never 0, which has no dB value."""
    parts = 4
    return [max(1.0, sum(level(start_deg + index + (part + 0.5) / parts) for part in range(parts)) / parts)
            for index in range(count)]


def down_db(reading):
    return 20 * math.log10(1000 / reading)


def half_power_index(readings, peak, step):
    """Walks from the peak to the reading that counts as 3 dB down."""
    top = down_db(readings[peak])
    candidate, candidate_index, rising, index, relative = 0.0, 0, False, peak, 0.0
    for _ in readings:
        index = (index + step) % len(readings)
        relative = down_db(readings[index]) - top
        if not 1 <= relative <= 4:
            continue
        if candidate == 0:
            candidate_index = index
            if relative < 2.9:
                candidate = relative
        elif relative > candidate:
            rising = True
        else:
            candidate = 0
        if rising:
            if relative >= 3:
                break
            candidate, candidate_index = relative, index
    return candidate_index if 3 - candidate < relative - 3 else index


def beamwidth(readings):
    peak = max(range(len(readings)), key=lambda index: readings[index])
    apart = abs(half_power_index(readings, peak, -1) - half_power_index(readings, peak, 1))
    width = 360 - apart * 360 / len(readings)
    return 360 - width if width > 180 else width


def gain(width_deg, ratio=1.5):
    """Three elements, horizontal: the second plane is 1.5 times as wide."""
    return 10 * math.log10(27000 / (width_deg ** 2 * ratio)) + 2.15
