#!/usr/bin/env python3
"""Pulls the plug-in operation list and the task's virtual operation list out of a Markdown
design document, into the two plain reference lists that the generator checks its table
against.

  extract_names.py DOCUMENT.md OPERATION_LIST TASK_LIST

The operation list is the run of bullets "- Family name (N): `a`, `b`, ..." under the heading
"The operation list"; the task list is the paragraph of backticked names that follows the
sentence ending in "destructor first:". Both are written one name a line, the operation list
with a "## Family (N)" line before each family.
"""
import re
import sys

BULLET = re.compile(r"^- (?P<family>[^(]+?) \((?P<size>\d+)\): (?P<names>.*)$")
NAME = re.compile(r"`([^`]+)`")


def operation_families(lines):
    start = next(i for i, line in enumerate(lines) if line.strip() == "**The operation list**")
    families = []
    for line in lines[start + 1:]:
        if line.startswith("**"):
            break
        match = BULLET.match(line)
        if match:
            families.append((match["family"], int(match["size"]), NAME.findall(match["names"])))
    return families


def task_entries(lines):
    for i, line in enumerate(lines):
        if line.rstrip().endswith("destructor first:"):
            paragraph = next(l for l in lines[i + 1:] if l.strip())
            return NAME.findall(paragraph)
    raise SystemExit("no task operation list found")


def main():
    if len(sys.argv) != 4:
        raise SystemExit(__doc__)
    with open(sys.argv[1], encoding="utf-8") as f:
        lines = f.read().splitlines()
    families = operation_families(lines)
    with open(sys.argv[2], "w", encoding="utf-8") as out:
        out.write("# The plug-in operations in table order: a family line with its size, then its names.\n")
        for family, size, names in families:
            out.write(f"## {family} ({size})\n")
            out.writelines(name + "\n" for name in names)
    entries = task_entries(lines)
    with open(sys.argv[3], "w", encoding="utf-8") as out:
        out.write("# The task interface's virtual operations in table order, destructor first.\n")
        out.writelines(entry + "\n" for entry in entries)
    total = sum(len(names) for _, _, names in families)
    print(f"{len(families)} families, {total} operations; {len(entries)} task entries")


if __name__ == "__main__":
    main()
