#!/usr/bin/env python3
"""Checks the English explanation files against the status code table, then copies them.

  check_explanations.py CODES_TABLE ENGLISH_DIR OUT_DIR

CODES_TABLE is src/status/status_codes.tsv, ENGLISH_DIR companions/errors/English, which holds
one file per group of the table's "from" column (library.txt, storage.txt, ...). The files are
read with the rules of the library's reader: the two header lines, comments, entries whose
number is read as "%i", "</zqdocument>" ending the content. The check fails when

  - a code of the table has no text, or its text is empty;
  - a text names a code that the table lacks;
  - a code has two texts, in one file or in two (which one the library finds would then depend
    on the order in which the system lists the files);
  - a file is not named for a group, or holds a code none of whose rows is of that group;
  - a file is damaged the way the reader refuses (an entry without its end, a line that starts
    with a zero byte, a number that does not read), has a line of 1024 bytes or more (the
    reader would split it and could see a tag in its middle), or holds a byte that is not ASCII.

On success the files are copied to OUT_DIR, where the build keeps them in the layout of an
installation's shared folder (<shared folder>/errors/English).
"""
import os
import re
import shutil
import sys

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from generate import FROM, TableError, read_codes  # noqa: E402

MAX_LINE = 1023
NUMBER = re.compile(r"\s*([+-]?)(0[xX][0-9a-fA-F]+|0[0-7]*|[1-9][0-9]*)")


class ExplanationError(Exception):
    pass


def starts(line, tag):
    return line[:len(tag)].lower() == tag.lower()


def read_number(text):
    """The number as "%i" reads it, taken as a signed 32-bit value; None when none reads."""
    m = NUMBER.match(text)
    if not m:
        return None
    digits = m.group(2)
    value = int(digits, 16) if digits[:2].lower() == "0x" else int(digits, 8) if digits.startswith("0") else int(digits)
    value = -value if m.group(1) == "-" else value
    value &= 0xFFFFFFFF
    return value - 2**32 if value >= 2**31 else value


def entries(path):
    """(code, text, line number) of every entry the reader can see in one file."""
    with open(path, "rb") as f:
        raw = f.read()
    for number, line in enumerate(raw.split(b"\n"), 1):
        if len(line) > MAX_LINE:
            raise ExplanationError(f"{path}:{number}: line of {len(line)} bytes, at most {MAX_LINE}")
        if any(b >= 0x80 for b in line):
            raise ExplanationError(f"{path}:{number}: English texts are plain ASCII")
    lines = [l.rstrip("\r") for l in raw.decode("ascii").split("\n")]
    if len(lines) < 2 or not starts(lines[0], '<?xml version="1.0"') or not starts(lines[1], "<zqdocument>"):
        raise ExplanationError(f"{path}: the first two lines must be the xml header and <zqdocument>")
    i = 2
    while i < len(lines):
        line = lines[i]
        if starts(line, "</zqdocument>"):
            return
        if starts(line, '<zqerror code="'):
            code = read_number(line[len('<zqerror code="'):])
            if code is None:
                raise ExplanationError(f"{path}:{i + 1}: the code does not read as a number")
            start = i + 1
            i = start
            while i < len(lines) and not starts(lines[i], "</zqerror>"):
                i += 1
            if i == len(lines):
                raise ExplanationError(f"{path}:{start}: entry {code} has no </zqerror>")
            yield code, "\n".join(lines[start:i]).strip(), start
        elif starts(line, "<zqcomment>"):
            while i < len(lines) and not starts(lines[i], "</zqcomment>"):
                i += 1
        elif line.startswith("\0"):
            raise ExplanationError(f"{path}:{i + 1}: a line starts with a zero byte")
        i += 1
    raise ExplanationError(f"{path}: no </zqdocument>")


def check(codes, folder):
    groups_of = {}
    for entry in codes:
        groups_of.setdefault(entry["code"], set()).add(entry["from"])
    found = {}
    files = sorted(name for name in os.listdir(folder) if name.endswith(".txt"))
    for name in files:
        group = name[:-len(".txt")]
        if group not in FROM:
            raise ExplanationError(f"{name}: not named for a group of the status table ({sorted(FROM)})")
        for code, text, line in entries(os.path.join(folder, name)):
            where = f"{name}:{line}"
            if code not in groups_of:
                raise ExplanationError(f"{where}: code {code} is not in the status code table")
            if code in found:
                raise ExplanationError(f"{where}: code {code} already has a text at {found[code]}")
            if group not in groups_of[code]:
                raise ExplanationError(f"{where}: code {code} belongs to {sorted(groups_of[code])}, not {group}")
            if not text:
                raise ExplanationError(f"{where}: code {code} has an empty text")
            found[code] = where
    missing = sorted(set(groups_of) - set(found))
    if missing:
        raise ExplanationError("codes without an English text: " + ", ".join(str(c) for c in missing))
    return files, len(found)


def main(argv):
    if len(argv) != 4:
        print(__doc__, file=sys.stderr)
        return 2
    try:
        codes, _ = read_codes(argv[1])
        files, count = check(codes, argv[2])
    except (TableError, ExplanationError, UnicodeDecodeError) as error:
        print(f"explanation files: {error}", file=sys.stderr)
        return 1
    os.makedirs(argv[3], exist_ok=True)
    for name in files:
        shutil.copyfile(os.path.join(argv[2], name), os.path.join(argv[3], name))
    print(f"explanation files: {count} codes described in {len(files)} files")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
