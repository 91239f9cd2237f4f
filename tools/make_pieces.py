#!/usr/bin/env python3
"""Writes the piece drawings below DIR, or with --check compares DIR with what would be written."""

import argparse
import pathlib
import sys

sys.dont_write_bytecode = True  # keeps the tree clean when the check runs from it

from pieces import bookup, gnu, quorl  # noqa: E402
from pieces.svg import KINDS, SIDES  # noqa: E402

FAMILIES = {"bookup": bookup, "quorl": quorl, "gnu": gnu}


def drawings():
    """Yields (relative path, SVG text) for every piece of every family."""
    for name, family in FAMILIES.items():
        for side in SIDES:
            for kind in KINDS:
                yield f"{name}/{side}{kind}.svg", family.draw(side, kind)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("directory", type=pathlib.Path)
    parser.add_argument("--check", action="store_true", help="write nothing; fail if a file differs")
    options = parser.parse_args()
    bad = 0
    for name, text in drawings():
        path = options.directory / name
        if options.check:
            if not path.is_file() or path.read_text(encoding="utf-8") != text:
                print(f"differs: {path}", file=sys.stderr)
                bad = 1
        else:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_text(text, encoding="utf-8")
    return bad


if __name__ == "__main__":
    sys.exit(main())
