#!/usr/bin/env python3
"""Writes the piece drawings below DIR, or with --check compares DIR with what would be written."""

import sys

sys.dont_write_bytecode = True  # keeps the tree clean when the check runs from it

import generated  # noqa: E402
from pieces import bookup, gnu, quorl  # noqa: E402
from pieces.svg import KINDS, SIDES  # noqa: E402

FAMILIES = {"bookup": bookup, "quorl": quorl, "gnu": gnu}


def drawings():
    """Yields (relative path, bytes of the SVG text) for every piece of every family."""
    for name, family in FAMILIES.items():
        for side in SIDES:
            for kind in KINDS:
                yield f"{name}/{side}{kind}.svg", family.draw(side, kind).encode()


if __name__ == "__main__":
    sys.exit(generated.run(__doc__, drawings()))
