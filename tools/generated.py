"""Files that a program of this folder makes: writes them below a folder, or compares the folder with them."""

import argparse
import pathlib
import sys


def run(description, files):
    """Runs the command line of such a program. `files` gives (relative path, bytes); the result is the exit status."""
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("directory", type=pathlib.Path)
    parser.add_argument("--check", action="store_true", help="write nothing; fail if a file differs")
    options = parser.parse_args()
    bad = 0
    for name, data in files:
        path = options.directory / name
        if not options.check:
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(data)
        elif not path.is_file() or path.read_bytes() != data:
            print(f"differs: {path}", file=sys.stderr)
            bad = 1
    return bad
