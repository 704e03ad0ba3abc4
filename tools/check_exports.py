#!/usr/bin/env python3
"""Checks that a shared library exports exactly the expected names: nothing more, nothing less.

usage: check_exports.py LIBRARY EXPECTED_LIST... [--objdump TOOL]
ELF libraries are read with `nm -D --defined-only`, PE (DLL) files with `objdump -p`.
Each EXPECTED_LIST holds one name per line; blank lines and lines starting with '#' are ignored.
The expected set is the union of the lists: the hand-written exports and the generated ones.
"""
import argparse
import re
import subprocess
import sys


def elf_exports(path):
    out = subprocess.run(["nm", "-D", "--defined-only", path], check=True, capture_output=True, text=True).stdout
    names = set()
    for line in out.splitlines():
        parts = line.split()
        if len(parts) >= 3 and parts[1] in "TtWwDdBbRrVvi":
            names.add(parts[2].split("@")[0])
    return names


def pe_exports(path, objdump):
    out = subprocess.run([objdump, "-p", path], check=True, capture_output=True, text=True).stdout
    names, in_table = set(), False
    for line in out.splitlines():
        if line.startswith("[Ordinal/Name Pointer] Table"):
            in_table = True
            continue
        if in_table:
            m = re.match(r"\s*\[\s*\d+\]\s+(\S+)", line)
            if not m:
                break
            names.add(m.group(1))
    return names


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("library")
    parser.add_argument("expected", nargs="+")
    parser.add_argument("--objdump", default="x86_64-w64-mingw32-objdump")
    args = parser.parse_args()
    expected = set()
    for path in args.expected:
        with open(path, encoding="utf-8") as f:
            expected |= {l.strip() for l in f if l.strip() and not l.startswith("#")}
    with open(args.library, "rb") as f:
        magic = f.read(4)
    actual = elf_exports(args.library) if magic == b"\x7fELF" else pe_exports(args.library, args.objdump)
    # The ELF loader's own markers are not functions of ours.
    actual -= {"_init", "_fini", "__bss_start", "_edata", "_end"}
    extra, missing = sorted(actual - expected), sorted(expected - actual)
    for name in extra:
        print(f"unexpected export: {name}")
    for name in missing:
        print(f"missing export: {name}")
    print(f"{len(actual)} exports, {len(expected)} expected, {len(extra)} unexpected, {len(missing)} missing")
    return 1 if extra or missing else 0


if __name__ == "__main__":
    sys.exit(main())
