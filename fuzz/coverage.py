#!/usr/bin/env python3
"""Tells what the kept inputs of the fuzz targets reach in the readers of outside bytes, and what they never reach.

    fuzz/coverage.py            # builds, runs fuzz/corpus through every target, reports
    fuzz/coverage.py --grown    # the inputs that fuzz/run.sh has found as well

A region is a stretch of code that runs as a whole, as clang counts them. One that no input reaches has a reason in
fuzz/unreached.txt, or this ends with 1.
"""
import argparse
import json
import os
import re
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
BUILD = os.path.join(ROOT, "build", "coverage")
REASONS = os.path.join(ROOT, "fuzz", "unreached.txt")

# What reads bytes of the server, of other players or of files.
READERS = """
board/GameReading board/GameRecords board/GameRouting board/GameWalk board/Holdings board/LastMoveMarks
board/PositionUpdate board/Style12Line common/Abbrev common/Numbers common/Text panels/FingerNotes panels/HelpCapture
panels/ServerVars platform/ArrivalCutter platform/TelnetFilter records/LineFile records/ListCapture
records/MoveDecoder records/MoveListCapture records/PgnGames records/PgnMoves seek/SeekGraph seek/SoughtCapture
session/BlockMode session/Captures session/ChatRouting session/ConsoleLines session/FullBatch session/LinePhrases
session/LineRouting session/LogOn session/ServerLines session/Suppression session/TellLine session/TextPipeline
settings/Coordinate settings/DefFile settings/IniText settings/Settings settings/WaveFile settings/WindowSettings
""".split()


def run(command, **more):
    done = subprocess.run(command, cwd=ROOT, capture_output=True, text=True, errors="replace", check=False, **more)
    if done.returncode != 0:
        sys.exit(f"{' '.join(command)}\n{done.stdout}{done.stderr}")
    return done.stdout


def targets():
    return sorted(os.listdir(os.path.join(ROOT, "fuzz", "corpus")))


def measure(grown):
    """Runs every target over its inputs; gives what llvm-cov knows of the regions of all files."""
    run(["cmake", "--preset", "coverage"])
    run(["cmake", "--build", "--preset", "coverage", "--target", *(f"corpus_{name}" for name in targets())])
    profiles = []
    for name in targets():
        folders = [f"fuzz/corpus/{name}"]
        more = f"build/fuzz/corpus-{name}"
        if grown and os.path.isdir(os.path.join(ROOT, more)):
            folders.append(more)
        profiles.append(os.path.join(BUILD, f"{name}.profraw"))
        run([os.path.join(BUILD, f"corpus_{name}"), *folders], env={**os.environ, "LLVM_PROFILE_FILE": profiles[-1]})
    merged = os.path.join(BUILD, "all.profdata")
    run(["llvm-profdata", "merge", "-o", merged, *profiles])
    objects = [part for name in targets() for part in ("-object", os.path.join(BUILD, f"corpus_{name}"))]
    return json.loads(run(["llvm-cov", "export", "-instr-profile", merged, *objects]))["data"][0]["files"]


def unreached(file):
    """The lines, numbered from 1, in which a region begins that nothing has reached."""
    numbers = set()
    for line, _, count, hasCount, entry, *gap in file["segments"]:
        if hasCount and count == 0 and entry and not any(gap):
            numbers.add(line)
    return sorted(numbers)


def reasons():
    """`file: line`, some of them, and below, indented, why no input reaches them."""
    known, keys = {}, []
    with open(REASONS, encoding="utf-8") as file:
        for line in file.read().splitlines():
            if line.startswith("    "):
                known.update((key, known.get(key, "") + line.strip()) for key in keys)
            elif line and not line.startswith("#"):
                keys = [line] if keys and known.get(keys[-1]) else [*keys, line]
    return {key for key, why in known.items() if why}


def main():
    parser = argparse.ArgumentParser(description="What the fuzz inputs reach in the readers.")
    parser.add_argument("--grown", action="store_true", help="the inputs of build/fuzz as well")
    known, used, new, gone = reasons(), set(), [], set(READERS)
    total = missed = 0
    for file in measure(parser.parse_args().grown):
        name = re.sub(r"^.*/src/", "", file["filename"])
        if os.path.splitext(name)[0] not in READERS or "/src/" not in file["filename"]:
            continue
        gone.discard(os.path.splitext(name)[0])
        regions = file["summary"]["regions"]
        total, missed = total + regions["count"], missed + regions["notcovered"]
        print(f"{regions['count'] - regions['notcovered']:5} of {regions['count']:5}  {name}")
        with open(file["filename"], encoding="utf-8") as source:
            lines = source.read().splitlines()
        for number in unreached(file):
            key = f"{name}: {lines[number - 1].strip()}"
            used.add(key)
            if key not in known:
                new.append(f"{name}:{number}: {lines[number - 1].strip()}")
    print(f"{total - missed} of {total} regions reached, {len(used & known)} lines with a reason")
    for line in new:
        print(f"never reached: {line}")
    for key in sorted(known - used):
        print(f"reached, or gone: {key}")
    for name in sorted(gone):
        print(f"no target has it: {name}")
    sys.exit(1 if new or known - used or gone else 0)


if __name__ == "__main__":
    main()
