#!/usr/bin/env python3
"""Checks that every status code of one origin has an English explanation in its file.

  check_explanations.py CODES_TABLE FROM EXPLANATION_FILE LOWEST HIGHEST

CODES_TABLE is src/status/status_codes.tsv; FROM a value of its "from" column (device), and
LOWEST to HIGHEST the block of codes the file explains (-209599 -209500); the
explanation file is in the layout the translator reads: line 1 the xml line, line 2
<zqdocument>, entries <zqerror code="N"> ... </zqerror>. Fails, naming the codes, when one has
no entry or an empty one, or when the file holds an entry for a code the table lacks.
"""
import re
import sys


def table_codes(path, origin, lowest, highest):
    codes = set()
    with open(path, encoding="utf-8") as table:
        for line in table:
            cells = line.rstrip("\n").split("\t")
            if line.startswith("#") or len(cells) != 4 or cells[0] == "code":
                continue
            if cells[3] == origin and lowest <= int(cells[0]) <= highest:
                codes.add(int(cells[0]))
    return codes


def file_entries(path):
    with open(path, encoding="utf-8") as text:
        lines = text.read().splitlines()
    if len(lines) < 2 or not lines[0].startswith('<?xml version="1.0"') or lines[1] != "<zqdocument>":
        raise ValueError(f"{path}: the first two lines must be the xml line and <zqdocument>")
    entries, code, body = {}, None, []
    for line in lines[2:]:
        opened = re.match(r'<zqerror code="(-?\d+)">', line)
        if opened:
            code, body = int(opened.group(1)), []
        elif line.startswith("</zqerror>") and code is not None:
            entries[code] = "\n".join(body).strip()
            code = None
        elif code is not None:
            body.append(line)
    return entries


def main(argv):
    if len(argv) != 6:
        print(__doc__, file=sys.stderr)
        return 2
    codes = table_codes(argv[1], argv[2], int(argv[4]), int(argv[5]))
    try:
        entries = file_entries(argv[3])
    except ValueError as error:
        print(error, file=sys.stderr)
        return 1
    missing = sorted(c for c in codes if not entries.get(c))
    unknown = sorted(c for c in entries if c not in codes and int(argv[4]) <= c <= int(argv[5]))
    for c in missing:
        print(f"code {c} has no explanation in {argv[3]}", file=sys.stderr)
    for c in unknown:
        print(f"{argv[3]} explains {c}, which the table lacks", file=sys.stderr)
    return 1 if missing or unknown or not codes else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
