#!/usr/bin/env python3
"""Checks the architecture: floors of src/ and practice/, walls against Qt, the arrows of fuzz/, circles, sizes, markup, words.

The trees' floors are the architecture: a folder may include what stands on the floors below its own, and itself.
Exit status 0 when the tree is sound, 1 with one line a finding when it is not.
"""
import argparse
import os
import re
import sys

# Floors, lowest first. Folders that stand on one floor do not see each other.
SRC_FLOORS = [
    ["common"],
    ["platform"],
    ["settings", "view"],
    ["records", "seek", "panels"],
    ["board"],
    ["session"],
    ["main.cpp"],
]
PRACTICE_FLOORS = [
    ["text"],
    ["wire", "chess"],
    ["people", "engine", "games"],
    ["hall"],
    ["play"],
    ["commands"],
    ["server"],
    ["main.cpp"],
]


class Tree:
    """A tree whose files stand on floors and are sorted by hand into a library without Qt and one around it."""

    def __init__(self, name, floors, prefix, qtFree, byUnits):
        self.name = name
        self.prefix = prefix  # what an include of a file of this tree begins with
        self.qtFree = qtFree  # the target that may neither include Qt nor files of other targets
        self.byUnits = byUnits  # a header and its .cpp count as one in the search for circles
        # Allowed arrows: everything on the floors below, nothing beside, nothing above.
        self.allowed = {
            folder: {below for lower in floors[:number] for below in lower}
            for number, floor in enumerate(floors)
            for folder in floor
        }


SRC = Tree("src", SRC_FLOORS, prefix="", qtFree="brightrank_core", byUnits=False)
PRACTICE = Tree("practice", PRACTICE_FLOORS, prefix="practice/", qtFree="brightrank_practice_lib", byUnits=True)

MAX_LINES = 600
CODE_FOLDERS = ["src", "practice", "tests", "fuzz", "bench"]

# Ways of the toolkit that take markup, which no text of others may reach. The help's pages are the program's own.
MARKUP = re.compile(
    r"\b(?:set|insert|append)(?:Html|Markdown)\b|\bset(?:WhatsThis|TextFormat)\b|\bQ(?:WhatsThis|TextEdit|ErrorMessage)\b"
    r"|\bsetWindowTitle\(shownText\b"
)
MARKUP_FILES = {"platform/HelpFile.cpp", "platform/PlainText.h"}

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
    """The row of the table a file belongs to: its folder, or its own name at the root of its tree."""
    return file.split("/", 1)[0]


def sourceFiles(top):
    """Every .cpp and .h below `top`, relative to it, in order."""
    found = []
    for folder, _, names in os.walk(top):
        for name in names:
            if name.endswith((".cpp", ".h")):
                found.append(os.path.relpath(os.path.join(folder, name), top))
    return sorted(found)


def listedFiles(root, tree, findings):
    """What the CMakeLists of a tree sort: file relative to the tree -> the target that lists it."""
    top = os.path.join(root, tree.name)
    listed = {}
    for folder, _, names in os.walk(top):
        if "CMakeLists.txt" not in names:
            continue
        text = re.sub(r"#[^\n]*", "", "\n".join(readLines(os.path.join(folder, "CMakeLists.txt"))))
        for target, rest in SOURCES.findall(text):
            for word in rest.replace("${CMAKE_CURRENT_SOURCE_DIR}/", "").split():
                if not word.endswith((".cpp", ".h")):
                    continue
                file = os.path.relpath(os.path.join(folder, word), top)
                if file in listed:
                    findings.append(f"{tree.name}/{file}: listed twice, in {listed[file]} and in {target}")
                listed[file] = target
    return listed


def includesOf(path):
    """(line number, name, quoted?) of each include of a file."""
    for number, line in enumerate(readLines(path), 1):
        match = INCLUDE.match(line)
        if match:
            yield number, match.group(1) or match.group(2), match.group(1) is not None


def checkListing(root, tree, files, listed, findings):
    """Every file is listed in its folder, and every folder has a floor."""
    for file in files:
        if folderOf(file) not in tree.allowed:
            findings.append(f"{tree.name}/{file}: {folderOf(file)} has no floor in tools/layer_check.py")
        if file not in listed:
            findings.append(f"{tree.name}/{file}: not listed in the CMakeLists.txt of its folder")
    rootList = os.path.join(root, tree.name, "CMakeLists.txt")
    rootText = "\n".join(readLines(rootList)) if os.path.exists(rootList) else ""
    for folder in sorted({folderOf(file) for file in files if "/" in file}):
        if not re.search(rf"\b{re.escape(folder)}\b", rootText):
            findings.append(f"{tree.name}/{folder}: not built, {tree.name}/CMakeLists.txt does not name it")


def checkArrow(tree, where, file, target, listed, findings):
    """One include of a file of ours by another: the floors and the wall."""
    source, aim = folderOf(file), folderOf(target)
    if source != aim and aim not in tree.allowed.get(source, set()):
        findings.append(f"{where}: {source} may not include {aim}/ (arrows only run down)")
    if listed.get(file) == tree.qtFree and listed.get(target, tree.qtFree) != tree.qtFree:
        findings.append(f"{where}: a file of {tree.qtFree} includes {target} of {listed[target]}")


def checkIncludes(root, tree, files, listed, findings):
    """Checks each include; gives the arrows between our own files for the search for circles."""
    arrows = {file: [] for file in files}
    known = {tree.prefix + file: file for file in files}
    for file in files:
        for number, name, quoted in includesOf(os.path.join(root, tree.name, file)):
            where = f"{tree.name}/{file}:{number}"
            if listed.get(file) == tree.qtFree and QT_HEADER.match(name):
                findings.append(f"{where}: Qt header {name} in {tree.qtFree}")
            elif name in known:
                if not quoted:
                    findings.append(f"{where}: {name} is ours and belongs in quotes")
                arrows[file].append(known[name])
                checkArrow(tree, where, file, known[name], listed, findings)
            elif quoted and not QT_HEADER.match(name) and not GENERATED.match(name):
                findings.append(f"{where}: {name} is not root-relative to {tree.name}")
    return arrows


def quietHeaders(root):
    """The tests' quiet surfaces, by their names below tests/: what fuzz/ shares with the tests."""
    return {file for file in sourceFiles(os.path.join(root, "tests")) if re.search(r"(?:^|/)Quiet\w+\.h$", file)}


def checkFuzzIncludes(root, files, core, findings):
    """fuzz/ is one flat folder: it includes its own files by their names, headers of the core and the tests' quiet
    surfaces; gives the arrows."""
    core = core | quietHeaders(root)
    arrows = {file: [] for file in files}
    for file in files:
        for number, name, quoted in includesOf(os.path.join(root, "fuzz", file)):
            where = f"fuzz/{file}:{number}"
            if not quoted and (name in arrows or name in core):
                findings.append(f"{where}: {name} is ours and belongs in quotes")
            if name in arrows:
                arrows[file].append(name)
            elif QT_HEADER.match(name) or (quoted and name not in core):
                findings.append(f"{where}: {name} is neither a file of fuzz/ nor of {SRC.qtFree}")
    return arrows


def unitsOf(arrows):
    """The arrows between units: a header and its .cpp are one, with the arrows of both but that from .cpp to header."""
    units = {}
    for file, targets in arrows.items():
        unit, ending = os.path.splitext(file)
        own = unit + ".h" if ending == ".cpp" else None
        aims = units.setdefault(unit, {})  # in order, each once
        aims.update({os.path.splitext(target)[0]: True for target in targets if target != own})
    return units


def checkCircles(tree, arrows, findings):
    """Depth-first walk; a file met again on its own path closes a circle."""
    done = set()

    def walk(file, path):
        if file in path:
            circle = path[path.index(file):] + [file]
            findings.append(f"{tree}/{circle[0]}: circle of includes " + " -> ".join(circle))
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


def checkMarkup(root, findings):
    """Windows hand texts only to what shows them as they are, and to titles no more of them than fits."""
    for file in sourceFiles(os.path.join(root, "src")):
        if file in MARKUP_FILES:
            continue
        for number, line in enumerate(readLines(os.path.join(root, "src", file)), 1):
            match = MARKUP.search(line)
            if match:
                findings.append(f'src/{file}:{number}: "{match.group(0)}" could show a text of others as markup, or without end')


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


def checkTree(root, tree, files, findings):
    """One tree with floors; gives the files that its CMakeLists sort."""
    listed = listedFiles(root, tree, findings)
    checkListing(root, tree, files, listed, findings)
    arrows = checkIncludes(root, tree, files, listed, findings)
    checkCircles(tree.name, unitsOf(arrows) if tree.byUnits else arrows, findings)
    return listed


def check(root):
    """All findings of the tree at root, one text each."""
    findings = []
    files = {name: sourceFiles(os.path.join(root, name)) for name in (SRC.name, PRACTICE.name, "fuzz")}
    for name, found in files.items():
        if not found:
            return [f"{os.path.join(root, name)}: no source files here"]
    listed = checkTree(root, SRC, files[SRC.name], findings)
    checkTree(root, PRACTICE, files[PRACTICE.name], findings)
    core = {file for file, target in listed.items() if target == SRC.qtFree}
    checkCircles("fuzz", unitsOf(checkFuzzIncludes(root, files["fuzz"], core, findings)), findings)
    checkSizes(root, findings)
    checkMarkup(root, findings)
    checkWords(root, findings)
    return findings


def main():
    parser = argparse.ArgumentParser(description="Checks the architecture of the tree.")
    parser.add_argument("root", nargs="?", default=os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
    parser.add_argument("--list-core", action="store_true", help="print the .cpp files of the core library and end")
    arguments = parser.parse_args()
    if arguments.list_core:
        core = [file for file, target in listedFiles(arguments.root, SRC, []).items() if target == SRC.qtFree]
        print("\n".join("src/" + file for file in sorted(core) if file.endswith(".cpp")))
        return 0
    findings = check(arguments.root)
    for finding in findings:
        print(finding, file=sys.stderr)
    print(f"layer check: {len(findings)} findings" if findings else "layer check: the tree is sound")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
