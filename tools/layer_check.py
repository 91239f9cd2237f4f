#!/usr/bin/env python3
"""Checks the architecture of src/: floors, the wall between core and windows, circles, file sizes, words.

The table ALLOWED is the architecture: a folder may include what its row names, and itself.
Exit status 0 when the tree is sound, 1 with one line a finding when it is not.
"""
import argparse
import os
import re
import sys

# The floors, lowest first. Folders that stand on one floor do not see each other.
FLOORS = [
    ["common"],
    ["platform"],
    ["settings", "view"],
    ["records", "seek", "panels"],
    ["board"],
    ["session"],
    ["main.cpp"],
]

# Allowed arrows: everything on the floors below, nothing beside, nothing above.
ALLOWED = {
    folder: {below for lower in FLOORS[:number] for below in lower}
    for number, floor in enumerate(FLOORS)
    for folder in floor
}

MAX_LINES = 600
CODE_FOLDERS = ["src", "practice", "tests", "fuzz", "bench"]
CORE_TARGET = "brightrank_core"

# Words that may not stand in the tree. A reader must be able to follow every reference from the tree alone,
# and no text may tie it to one machine. Written with classes so that this file does not find itself.
WORDS = {
    r"\b[P]art \d+\.\d+": "a reference to a paper that is not in the tree",
    r"\b[Tt]he [s]pec\b|\b[Ss]pecificatio[n]\b": "a reference to a paper that is not in the tree",
    r"(?<![\w./}])/(?:[w]ork|[h]ome|[r]oot)/\w": "a path of one machine",
    r"(?<![\w./}])/[t]mp/(?:wt|brief)\b": "a path of one machine",
    r"^(?:<{7}|>{7}) ": "the mark of an unfinished merge",
    r"\b(?:[T]ODO|[F]IXME|[X]XX)\b": "a note to oneself; finish it or say it in the docs",
}
TEXT_ENDINGS = (".cpp", ".h", ".py", ".sh", ".md", ".txt", ".cmake", ".json", ".in", ".xml", ".desktop", ".1", ".yml")
TEXT_NAMES = ("play", "check", "run", ".clang-tidy", ".clang-format", "LICENSE")
SKIPPED_FOLDERS = {".git", "build", "data", "corpus", "__pycache__"}  # recorded text is not ours to word

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
QT_HEADER = re.compile(r"^(?:Q\w+(?:/.*)?|q[a-z0-9_]+\.h|private/q\w+\.h)$")
GENERATED = re.compile(r"^(?:\w+\.moc|moc_\w+\.cpp|ui_\w+\.h)$")
SOURCES = re.compile(r"\b(?:target_sources|add_executable|add_library)\s*\(\s*(\w[\w-]*)([^)]*)\)")


def readLines(path):
    """The lines of a file as Latin-1, so that no byte stops the check."""
    with open(path, encoding="latin-1") as file:
        return file.read().splitlines()


def folderOf(file):
    """The row of the table a file of src belongs to: its folder, or its own name at the root of src."""
    return file.split("/", 1)[0]


def sourceFiles(src):
    """Every .cpp and .h below src, relative to it, in order."""
    found = []
    for folder, _, names in os.walk(src):
        for name in names:
            if name.endswith((".cpp", ".h")):
                found.append(os.path.relpath(os.path.join(folder, name), src))
    return sorted(found)


def listedFiles(src, findings):
    """What the CMakeLists of src sort: file relative to src -> the target that lists it."""
    listed = {}
    for folder, _, names in os.walk(src):
        if "CMakeLists.txt" not in names:
            continue
        text = re.sub(r"#[^\n]*", "", "\n".join(readLines(os.path.join(folder, "CMakeLists.txt"))))
        for target, rest in SOURCES.findall(text):
            for word in rest.replace("${CMAKE_CURRENT_SOURCE_DIR}/", "").split():
                if not word.endswith((".cpp", ".h")):
                    continue
                file = os.path.relpath(os.path.join(folder, word), src)
                if file in listed:
                    findings.append(f"src/{file}: listed twice, in {listed[file]} and in {target}")
                listed[file] = target
    return listed


def includesOf(path):
    """(line number, name, quoted?) of each include of a file."""
    for number, line in enumerate(readLines(path), 1):
        match = INCLUDE.match(line)
        if match:
            yield number, match.group(1) or match.group(2), match.group(1) is not None


def checkListing(src, files, listed, findings):
    """Every file is listed in its folder, and every folder has a floor."""
    for file in files:
        if folderOf(file) not in ALLOWED:
            findings.append(f"src/{file}: {folderOf(file)} has no floor in tools/layer_check.py")
        if file not in listed:
            findings.append(f"src/{file}: not listed in the CMakeLists.txt of its folder")
    rootList = os.path.join(src, "CMakeLists.txt")
    rootText = "\n".join(readLines(rootList)) if os.path.exists(rootList) else ""
    for folder in sorted({folderOf(file) for file in files if "/" in file}):
        if not re.search(rf"\b{re.escape(folder)}\b", rootText):
            findings.append(f"src/{folder}: not built, src/CMakeLists.txt does not name it")


def checkArrow(where, file, target, listed, findings):
    """One include of a file of ours by another: the floors and the wall."""
    source, aim = folderOf(file), folderOf(target)
    if source != aim and aim not in ALLOWED.get(source, set()):
        findings.append(f"{where}: {source} may not include {aim}/ (arrows only run down)")
    if listed.get(file) == CORE_TARGET and listed.get(target, CORE_TARGET) != CORE_TARGET:
        findings.append(f"{where}: a core file includes {target} of the windows library")


def checkIncludes(src, files, listed, findings):
    """Checks each include; gives the arrows between our own files for the search for circles."""
    arrows = {file: [] for file in files}
    known = set(files)
    for file in files:
        for number, name, quoted in includesOf(os.path.join(src, file)):
            where = f"src/{file}:{number}"
            if listed.get(file) == CORE_TARGET and QT_HEADER.match(name):
                findings.append(f"{where}: Qt header {name} in {CORE_TARGET}")
            elif name in known:
                if not quoted:
                    findings.append(f'{where}: {name} is ours and belongs in quotes')
                arrows[file].append(name)
                checkArrow(where, file, name, listed, findings)
            elif quoted and not QT_HEADER.match(name) and not GENERATED.match(name):
                findings.append(f"{where}: {name} is not root-relative to src")
    return arrows


def checkCircles(arrows, findings):
    """Depth-first walk; a file met again on its own path closes a circle."""
    done = set()

    def walk(file, path):
        if file in path:
            circle = path[path.index(file):] + [file]
            findings.append("src/" + circle[0] + ": circle of includes " + " -> ".join(circle))
            return
        if file in done:
            return
        for target in arrows[file]:
            walk(target, path + [file])
        done.add(file)

    for file in arrows:
        walk(file, [])


def checkSizes(root, findings):
    """No file of code above the limit, and each begins with a comment that says its purpose."""
    for top in CODE_FOLDERS:
        for file in sourceFiles(os.path.join(root, top)):
            lines = readLines(os.path.join(root, top, file))
            if len(lines) > MAX_LINES:
                findings.append(f"{top}/{file}: {len(lines)} lines, the limit is {MAX_LINES}")
            if not lines or not lines[0].startswith("//"):
                findings.append(f"{top}/{file}: the first line does not say the purpose of the file")


def checkWords(root, findings):
    """The words that may not stand in any text of the tree."""
    patterns = [(re.compile(pattern), why) for pattern, why in WORDS.items()]
    for folder, folders, names in os.walk(root):
        folders[:] = [name for name in folders if name not in SKIPPED_FOLDERS]
        for name in names:
            if not (name.endswith(TEXT_ENDINGS) or name in TEXT_NAMES):
                continue
            path = os.path.join(folder, name)
            for number, line in enumerate(readLines(path), 1):
                for pattern, why in patterns:
                    match = pattern.search(line)
                    if match:
                        file = os.path.relpath(path, root)
                        findings.append(f'{file}:{number}: "{match.group(0).strip()}" is {why}')


def check(root):
    """All findings of the tree at root, one text each."""
    findings = []
    src = os.path.join(root, "src")
    files = sourceFiles(src)
    if not files:
        return [f"{src}: no source files here"]
    listed = listedFiles(src, findings)
    checkListing(src, files, listed, findings)
    checkCircles(checkIncludes(src, files, listed, findings), findings)
    checkSizes(root, findings)
    checkWords(root, findings)
    return findings


def main():
    parser = argparse.ArgumentParser(description="Checks the architecture of src/.")
    parser.add_argument("root", nargs="?", default=os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
    parser.add_argument("--list-core", action="store_true", help="print the .cpp files of the core library and end")
    arguments = parser.parse_args()
    if arguments.list_core:
        src = os.path.join(arguments.root, "src")
        core = [file for file, target in listedFiles(src, []).items() if target == CORE_TARGET]
        print("\n".join("src/" + file for file in sorted(core) if file.endswith(".cpp")))
        return 0
    findings = check(arguments.root)
    for finding in findings:
        print(finding, file=sys.stderr)
    print(f"layer check: {len(findings)} findings" if findings else "layer check: the tree is sound")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
