#!/usr/bin/env python3
"""Reads built programs for what cmake/Hardening.cmake asks of them.

    tools/hardening_check.py [--unfortified] build/release/brightrank...

Exit status 0 when all of it is in all of them, 1 with one line a finding when not. --unfortified is for a build of the
sanitizers, which check copies themselves. Reads 64-bit ELF, little-endian.
"""
import argparse
import struct
import sys

PT_LOAD, PT_DYNAMIC, PT_INTERP = 1, 2, 3
PT_GNU_STACK, PT_GNU_RELRO = 0x6474E551, 0x6474E552
EXECUTABLE, WRITABLE = 1, 2
ET_DYN, EM_X86_64 = 3, 62
DT_STRTAB, DT_STRSZ, DT_RPATH, DT_TEXTREL, DT_RUNPATH, DT_FLAGS, DT_FLAGS_1 = 5, 10, 15, 22, 29, 30, 0x6FFFFFFB
DF_TEXTREL, DF_BIND_NOW = 4, 8
DF_1_NOW, DF_1_PIE = 1, 0x08000000

ENDBR64 = b"\xf3\x0f\x1e\xfa"  # where an indirect jump may land
PROBE = b"\x48\x83\x0c\x24\x00"  # orq $0, (%rsp): a page of the stack is touched before the next is taken
# The code that the C library brings along has a handful of these, whatever a program was compiled with.
LEAST_LANDINGS = 20


class Program:
    """The segments, the dynamic section and the imported names of an ELF file."""

    def __init__(self, path):
        with open(path, "rb") as file:
            self.bytes = file.read()
        if self.bytes[:6] != b"\x7fELF\x02\x01":
            raise ValueError("no 64-bit little-endian ELF file")
        self.kind, self.machine = struct.unpack_from("<HH", self.bytes, 16)
        start, size, count = (*struct.unpack_from("<Q", self.bytes, 32), *struct.unpack_from("<HH", self.bytes, 54))
        # Each segment: type, flags, place in the file, address, (physical), size in the file, size in memory, alignment.
        self.segments = [struct.unpack_from("<IIQQQQQQ", self.bytes, start + size * number) for number in range(count)]
        self.dynamic = self.readDynamic()
        self.names = self.readNames()

    def of(self, kind):
        """The segments of a type."""
        return [segment for segment in self.segments if segment[0] == kind]

    def placeOf(self, address):
        """Where in the file the byte of an address stands."""
        for _, _, place, start, _, size, _, _ in self.of(PT_LOAD):
            if start <= address < start + size:
                return place + address - start
        raise ValueError(f"address {address:#x} is in no segment")

    def readDynamic(self):
        values = {}
        for _, _, place, _, _, size, _, _ in self.of(PT_DYNAMIC):
            values.update(struct.iter_unpack("<qq", self.bytes[place : place + size]))
        return values

    def readNames(self):
        """The names in the dynamic symbols' text."""
        if DT_STRTAB not in self.dynamic:
            return set()
        place = self.placeOf(self.dynamic[DT_STRTAB])
        return set(self.bytes[place : place + self.dynamic[DT_STRSZ]].decode("latin-1").split("\0"))

    def code(self):
        """What stands in executable segments."""
        return b"".join(self.bytes[s[2] : s[2] + s[5]] for s in self.of(PT_LOAD) if s[1] & EXECUTABLE)


def hasChecked(names):
    """Whether a checked copy of the C library is imported, such as __fprintf_chk."""
    return any(name.startswith("__") and name.endswith("_chk") for name in names)


def findings(program, fortified):
    """What is missing, one text each."""
    flags, flags1 = program.dynamic.get(DT_FLAGS, 0), program.dynamic.get(DT_FLAGS_1, 0)
    if program.kind != ET_DYN or not program.of(PT_INTERP) or not flags1 & DF_1_PIE:
        yield "is not position-independent"
    if not program.of(PT_GNU_RELRO):
        yield "has no read-only relocations"
    if not (flags & DF_BIND_NOW or flags1 & DF_1_NOW):
        yield "binds its names late, so that their table stays writable"
    if any(segment[1] & EXECUTABLE for segment in program.of(PT_GNU_STACK)) or not program.of(PT_GNU_STACK):
        yield "has a stack that may hold code"
    if any(segment[1] & EXECUTABLE and segment[1] & WRITABLE for segment in program.of(PT_LOAD)):
        yield "has a segment that is writable and executable"
    if flags & DF_TEXTREL or DT_TEXTREL in program.dynamic:
        yield "has relocations in its code"
    if DT_RPATH in program.dynamic or DT_RUNPATH in program.dynamic:
        yield "looks for libraries in a folder of its own"
    if "__stack_chk_fail" not in program.names:
        yield "has no guards on its stack"
    if fortified and not hasChecked(program.names):
        yield "does not use the checked functions of the C library"
    if not any("__glibcxx_assert_fail" in name for name in program.names):
        yield "does not check the containers of the C++ library"
    if program.machine == EM_X86_64:
        yield from codeFindings(program.code())


def codeFindings(code):
    """What the instructions of an x86-64 program lack."""
    if code.count(ENDBR64) < LEAST_LANDINGS:
        yield "lets indirect jumps land anywhere"
    if PROBE not in code:
        yield "takes large frames of the stack without touching their pages"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--unfortified", action="store_true", help="copies are checked by the sanitizers")
    parser.add_argument("programs", nargs="+")
    given = parser.parse_args()
    failed = False
    for path in given.programs:
        for finding in findings(Program(path), not given.unfortified):
            print(f"{path} {finding}", file=sys.stderr)
            failed = True
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
