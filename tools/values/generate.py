#!/usr/bin/env python3
"""Generates the public header of the enumerated values callers pass.

  generate.py TABLE OUT_HEADER

TABLE is src/catalogue/values.tsv: name, value, what takes it. Writes OUT_HEADER only when its
text changed. A malformed line, a name given twice or a name that is not an identifier exits with
code 1, which fails the build.
"""
import os
import re
import sys

IDENT = re.compile(r"^[A-Za-z0-9][A-Za-z0-9_]*$")


def read_table(path):
    rows, seen = [], set()
    with open(path, encoding="ascii") as table:
        for number, line in enumerate(table, 1):
            line = line.rstrip("\n")
            if not line or line.startswith("#"):
                continue
            fields = line.split("\t")
            if len(fields) != 3 or not IDENT.match(fields[0]) or not re.match(r"^-?\d+$", fields[1]):
                sys.exit(f"{path}:{number}: expected name, integer value, use: {line!r}")
            if fields[0] in seen:
                sys.exit(f"{path}:{number}: {fields[0]} is given twice")
            seen.add(fields[0])
            rows.append(fields)
    return rows


def header_text(rows):
    lines = ["/* Generated from src/catalogue/values.tsv: do not edit. */",
             "/* The enumerated values callers pass to the configuration, read and write functions",
             " * and to attribute setters. */",
             "#ifndef ZQCAI_RD_MBCS_VALUES_H",
             "#define ZQCAI_RD_MBCS_VALUES_H", ""]
    for name, value, use in rows:
        number = f"({value})" if value.startswith("-") else value
        lines.append(f"#define Vorex_Val_{name} {number} /* {use} */")
    lines += ["", "#endif", ""]
    return "\n".join(lines)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    text = header_text(read_table(sys.argv[1]))
    out = sys.argv[2]
    if os.path.exists(out) and open(out, encoding="ascii").read() == text:
        return
    os.makedirs(os.path.dirname(out), exist_ok=True)
    with open(out, "w", encoding="ascii") as header:
        header.write(text)


if __name__ == "__main__":
    main()
