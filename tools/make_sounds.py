#!/usr/bin/env python3
"""Synthesizes the program's wave files into DIR, or with --check compares DIR with what would be written."""

import array
import io
import math
import random
import sys
import wave

sys.dont_write_bytecode = True  # keeps the tree clean when the check runs from it

import generated  # noqa: E402

RATE = 44100
PEAK = 10 ** (-4 / 20)


def decaying(frequency, decay, duration, phase=0.0):
    """A sine that falls to 1/e every `decay` seconds."""
    count = int(duration * RATE)
    step = 2 * math.pi * frequency / RATE
    return [math.sin(phase + step * i) * math.exp(-i / (decay * RATE)) for i in range(count)]


def noise(decay, duration, smooth, seed):
    """Decaying low-passed noise; `smooth` in 0..1, higher is duller."""
    source = random.Random(seed)
    level, out = 0.0, []
    for i in range(int(duration * RATE)):
        level += (1 - smooth) * (source.uniform(-1, 1) - level)
        out.append(level * math.exp(-i / (decay * RATE)))
    return out


def mix(duration, *layers):
    """Adds (start in seconds, gain, samples) layers into one buffer of the given length."""
    out = [0.0] * int(duration * RATE)
    for start, gain, samples in layers:
        first = int(start * RATE)
        for i, value in enumerate(samples[: len(out) - first]):
            out[first + i] += gain * value
    return out


def knock(pitch, seed, duration=0.12):
    """A wooden piece set down: a few short body modes and the contact noise."""
    modes = ((1.0, 1.0, 0.022), (2.31, 0.5, 0.012), (3.87, 0.28, 0.007), (0.52, 0.55, 0.026))
    layers = [(0, gain, decaying(pitch * ratio, decay, duration)) for ratio, gain, decay in modes]
    return mix(duration, *layers, (0, 0.9, noise(0.005, duration, 0.55, seed)))


def move():
    return knock(330, 11)


def capture():
    return mix(0.18, (0, 0.75, knock(460, 21)), (0.045, 1.0, knock(250, 22, 0.135)))


def castle():
    return mix(0.30, (0, 0.9, knock(310, 31)), (0.15, 1.0, knock(360, 32)))


def fitebell():
    """A ring-side bell: inharmonic partials, the high ones dying first, each a slightly beating pair."""
    partials = ((1.0, 0.7, 0.34), (1.51, 0.5, 0.28), (2.03, 1.0, 0.24), (2.74, 0.6, 0.17))
    partials += ((3.92, 0.45, 0.11), (5.61, 0.3, 0.06))
    layers = []
    for ratio, gain, decay in partials:
        layers.append((0, gain, decaying(640 * ratio, decay, 0.9)))
        layers.append((0, 0.4 * gain, decaying(640 * ratio + 3.1, decay, 0.9, 0.7)))
    return mix(0.9, *layers, (0, 0.8, noise(0.004, 0.05, 0.3, 41)))


def glide(start, end, duration, breath, seed):
    """A soft whistled tone from one pitch to another with a little breath in it."""
    count, phase, out = int(duration * RATE), 0.0, []
    air = noise(10.0, duration, 0.6, seed)
    for i in range(count):
        part = i / count
        phase += 2 * math.pi * (start + (end - start) * part) / RATE
        swell = math.sin(math.pi * part) ** 0.6
        out.append(swell * (math.sin(phase) + 0.08 * math.sin(2 * phase) + breath * air[i]))
    return out


def whistle():
    return mix(0.35, (0, 0.8, glide(1180, 1260, 0.17, 0.12, 51)), (0.16, 1.0, glide(1560, 1600, 0.19, 0.12, 52)))


def send():
    return mix(0.15, (0, 1.0, glide(620, 880, 0.15, 0.0, 61)))


SOUNDS = {
    "fitebell.wav": fitebell,
    "capture.wav": capture,
    "castle.wav": castle,
    "move.wav": move,
    "whistle.wav": whistle,
    "send.wav": send,
}


def finished(samples):
    """Removes slow drift, fades the ends to silence, takes the offset out and scales to the common peak."""
    drift = previous = 0.0
    out = []
    for value in samples:
        drift = 0.995 * (drift + value - previous)
        previous = value
        out.append(drift)
    count, rise, fall = len(out), int(0.0015 * RATE), len(samples) // 6
    window = [min(1.0, i / rise, (count - 1 - i) / fall) for i in range(count)]
    window = [0.5 - 0.5 * math.cos(math.pi * value) for value in window]
    out = [value * gain for value, gain in zip(out, window)]
    offset = sum(out) / sum(window)
    out = [value - offset * gain for value, gain in zip(out, window)]
    top = max(abs(value) for value in out)
    return [round(32767 * PEAK * value / top) for value in out]


def encoded(samples):
    """The bytes of a mono 16-bit wave file."""
    data = array.array("h", samples)
    if sys.byteorder == "big":
        data.byteswap()
    target = io.BytesIO()
    with wave.open(target, "wb") as sound:
        sound.setnchannels(1)
        sound.setsampwidth(2)
        sound.setframerate(RATE)
        sound.writeframes(data.tobytes())
    return target.getvalue()


def sounds():
    """Yields (file name, bytes) for every sound."""
    for name, voice in SOUNDS.items():
        yield name, encoded(finished(voice()))


if __name__ == "__main__":
    sys.exit(generated.run(__doc__, sounds()))
