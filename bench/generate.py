#!/usr/bin/env python3
"""Writes the benchmark's numeric data files, each only when it is missing.

Every file holds a first line of 8 variable names and then rows of 8 doubles
as a data logger writes them: a time column, slowly varying channels and
noisy signed channels whose magnitudes range from about 1e-8 to 1e5, some columns
in %.6f and some in %.6e. The values come from a fixed seed, so a file of a
given size and kind is the same on every machine and every run.

    generate.py [--dir DIR] [--sizes 100M,1G]

writes, each of at least <size> bytes (M = MiB, G = GiB), and prints the
paths of the files:
- DIR/instrument-<size>.txt: columns right-aligned in 15 characters,
  separated by blanks, in %.6f and %.6e;
- DIR/instrument-<size>.csv: the same values, comma-separated;
- DIR/instrument-<size>-mixed.txt: values of mixed widths separated by one
  blank, in %.10e and %.6f.
"""

import argparse
import math
import os
import random
import sys

NAMES = ("time", "pressure", "temperature", "flow",
         "voltage", "current", "strain", "acceleration")
# Per column: 'f' for %.6f, 'e' for %.6e (%.10e in the mixed shape).
KINDS = "fefefeef"
MIXED_KINDS = "feefeefe"
# The file shapes: name suffix, and whether values are comma-separated,
# right-aligned in FIELD_WIDTH, or of mixed widths.
SHAPES = ((".txt", "aligned"), (".csv", "comma"), ("-mixed.txt", "mixed"))
FIELD_WIDTH = 15
SEED = 20240611
ROWS_PER_CHUNK = 20000


def parse_size(text):
    """Returns the byte count of a size such as 100M or 1G (binary units)."""
    units = {"K": 1 << 10, "M": 1 << 20, "G": 1 << 30}
    text = text.strip().upper()
    if text and text[-1] in units:
        return int(float(text[:-1]) * units[text[-1]])
    return int(text)


def row_format(shape):
    """Returns the %-format of one data line of a shape."""
    if shape == "comma":
        return ",".join("%.6" + k for k in KINDS) + "\n"
    if shape == "mixed":
        return " ".join("%.10e" if k == "e" else "%.6f" for k in MIXED_KINDS) + "\n"
    return "".join("%" + str(FIELD_WIDTH) + ".6" + k for k in KINDS) + "\n"


def header(shape):
    """Returns the line of variable names that opens a file."""
    if shape == "comma":
        return ",".join(NAMES) + "\n"
    if shape == "mixed":
        return " ".join(NAMES) + "\n"
    return "".join(n.rjust(FIELD_WIDTH) for n in NAMES) + "\n"


def rows(rng):
    """Yields the rows of 8 values forever, the same ones for a given seed."""
    rnd = rng.random
    gauss = rng.gauss
    temperature = 21.5
    for i in range(1 << 62):
        t = i * 0.002
        temperature += (rnd() - 0.5) * 0.01
        yield (
            t,
            101325.0 + 250.0 * math.sin(t * 0.01) + gauss(0.0, 3.0),
            temperature + gauss(0.0, 0.05),
            gauss(0.0, 3e-4),
            9.5 * math.sin(t * 6.283) + gauss(0.0, 0.02),
            gauss(0.0, 2e-3) * 10.0 ** (-3.0 * rnd()),
            (rnd() - 0.5) * 10.0 ** (-7.0 + 3.0 * rnd()),
            gauss(0.0, 15.0),
        )


def write_file(path, size, shape):
    """Writes rows to path until it holds at least size bytes.

    The file is written under a temporary name and renamed at the end, so an
    interrupted run never leaves a truncated file that looks finished."""
    fmt = row_format(shape)
    source = rows(random.Random(SEED))
    tmp = path + ".part"
    written = 0
    with open(tmp, "w", encoding="ascii", newline="\n") as out:
        text = header(shape)
        out.write(text)
        written += len(text)
        while written < size:
            chunk = "".join(fmt % next(source) for _ in range(ROWS_PER_CHUNK))
            if written + len(chunk) > size:
                # Last chunk: stop at the first row that reaches the size.
                end = 0
                while written + end < size:
                    end = chunk.index("\n", end) + 1
                chunk = chunk[:end]
            out.write(chunk)
            written += len(chunk)
    os.replace(tmp, path)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--dir", default=os.path.join(os.path.dirname(os.path.abspath(__file__)), "data"))
    parser.add_argument("--sizes", default="100M,1G")
    args = parser.parse_args()
    os.makedirs(args.dir, exist_ok=True)
    for label in [s.strip() for s in args.sizes.split(",") if s.strip()]:
        size = parse_size(label)
        for suffix, shape in SHAPES:
            path = os.path.join(args.dir, "instrument-" + label + suffix)
            if not os.path.exists(path):
                print("generating " + path, file=sys.stderr)
                write_file(path, size, shape)
            print(path)


if __name__ == "__main__":
    main()
