#!/usr/bin/env python3
"""Reads the attribute catalogue out of the design document and writes its data table.

  extract.py DOCUMENT [TABLE]            write TABLE
  extract.py --check DOCUMENT [TABLE]    exit 1 if TABLE is not what DOCUMENT gives

DOCUMENT is the markdown text whose section "Attribute catalogue" holds one table per attribute
class and the paragraph of ids without accessors. TABLE defaults to
src/catalogue/attributes.tsv of this repository; the build reads only TABLE.

Everything is read mechanically and strictly: a row or heading of an unknown form, a table
whose row count differs from its heading, a list whose length differs from the number its text
states, or a duplicate id or name stops the script with exit code 2 and writes nothing.

Besides the catalogue section, the text that names the TimingEx members is read from the rest of
the document: the sentence listing the ids the TimingEx entries take, and the list of forwarder
bases. Both must name the same attributes, as many as the catalogue says, all in the class
under which the catalogue says they stand, and the forwarders must be as many as the exported
verbs of those attributes.
"""
import os
import re
import sys

TYPES = {"I32": "I32", "U32": "U32", "U64": "U64", "F64": "F64", "Bool": "Bool",
         "String": "String", "StringList": "StringList", "F64Array": "F64Array",
         "I32Array": "I32Array", "U32 (Size)": "U32Size", "Time": "Time", "Date": "Date"}
OPS = {"Channel", "Timing", "Device", "Read", "Write", "Buffer", "Task"}
TABLE_HEADER = "| Id | Name | Type | Op | Verbs |"
TABLE_RULE = "|---|---|---|---|---|"
NO_CLASS = "NoClass"
NO_ACCESSOR = "NoAccessor"
NONE = "-"
COLUMNS = ["class", "id", "name", "accessor", "type", "op", "verbs", "timing_ex", "table_row"]

SECTION = re.compile(r"^# [^#].*: Attribute catalogue\s*$")
CLASS_HEADING = re.compile(r"^Class `(\w+)` \(([^()]+)\), ([\d,]+) attributes?:$")
NO_CLASS_HEADING = re.compile(r"^No class: [^,]+, ([\d,]+) attributes?:$")
ID = re.compile(r"^0x[0-9A-F]{4,8}$")
# A name, optionally followed by the accessor base or the "no table row" note in parentheses.
NAME_CELL = re.compile(r"^`(\w+)`(?: \((?:`(\w+)`|(no table row))\))?$")
# Verbs in the order G, S, R; lower case g and s are accessors without an export.
VERBS = re.compile(r"^[Gg]?[Ss]?R?$")
TABLE_ROWS = re.compile(r"constant table of ([\d,]+) rows")
EX_HOST = re.compile(r"The (\d+) attributes of class `TimingEx` stand under `(\w+)` below")
NO_ACCESSOR_HEADING = "**Ids without accessors**"
NO_ACCESSOR_COUNT = re.compile(r"^These ([\d,]+) rows of the table name attributes")
NO_ACCESSOR_ITEM = re.compile(r"^`(\w+)` (0x[0-9A-F]{4,8})$")
EX_MEMBERS = re.compile(r"The `TimingEx` entries take (\d+) ids of their own: (.*?), each going")
FORWARDERS = re.compile(r"(\d+) exports are tail calls that add an empty list: .*?"
                        r"The bases are (.*?)\. They are not traced")
BACKTICKED = re.compile(r"`(\w+)`( \(Get only\))?")


class DocumentError(Exception):
    pass


def number(text):
    return int(text.replace(",", ""))


def catalogue_section(lines):
    starts = [i for i, line in enumerate(lines) if SECTION.match(line)]
    if len(starts) != 1:
        raise DocumentError(f"expected one 'Attribute catalogue' heading, found {len(starts)}")
    start = starts[0]
    end = next((i for i in range(start + 1, len(lines)) if lines[i].startswith("# ")), len(lines))
    return start, lines[start:end]


def parse_row(line, where):
    if not line.startswith("| ") or not line.endswith(" |"):
        raise DocumentError(f"{where}: not a table row: {line!r}")
    cells = [cell.strip() for cell in line[2:-2].split(" | ")]
    if len(cells) != 5:
        raise DocumentError(f"{where}: {len(cells)} cells, expected 5: {line!r}")
    ident, name_cell, type_cell, op, verbs = cells
    if not ID.match(ident):
        raise DocumentError(f"{where}: bad id {ident!r}")
    match = NAME_CELL.match(name_cell)
    if not match:
        raise DocumentError(f"{where}: bad name cell {name_cell!r}")
    name, base, no_row = match.groups()
    if type_cell not in TYPES:
        raise DocumentError(f"{where}: unknown type {type_cell!r}")
    if op not in OPS:
        raise DocumentError(f"{where}: unknown op {op!r}")
    if not verbs or not VERBS.match(verbs):
        raise DocumentError(f"{where}: bad verbs {verbs!r}")
    return {"id": ident, "name": name, "accessor": base or name, "type": TYPES[type_cell],
            "op": op, "verbs": verbs, "timing_ex": "no", "table_row": "no" if no_row else "yes"}


def read_tables(section, offset):
    """Returns [(class, stated count, rows)] in the order of the section."""
    tables = []
    i = 0
    while i < len(section):
        line = section[i]
        heading = CLASS_HEADING.match(line)
        no_class = NO_CLASS_HEADING.match(line)
        if heading or no_class:
            klass = heading.group(1) if heading else NO_CLASS
            stated = number(heading.group(3) if heading else no_class.group(1))
            if section[i + 1:i + 4] != ["", TABLE_HEADER, TABLE_RULE]:
                raise DocumentError(f"line {offset + i + 1}: heading not followed by a table")
            i += 4
            rows = []
            while i < len(section) and section[i].startswith("|"):
                row = parse_row(section[i], f"line {offset + i + 1}")
                row["class"] = klass
                rows.append(row)
                i += 1
            tables.append((klass, stated, rows))
            continue
        if line.startswith("|"):
            raise DocumentError(f"line {offset + i + 1}: table row outside a class table")
        if re.search(r"\d attributes?:$", line):
            raise DocumentError(f"line {offset + i + 1}: heading of unknown form: {line!r}")
        i += 1
    return tables


def read_no_accessor(section, offset):
    try:
        start = section.index(NO_ACCESSOR_HEADING)
    except ValueError:
        raise DocumentError(f"no '{NO_ACCESSOR_HEADING}' paragraph") from None
    paragraphs = [line for line in section[start + 1:start + 6] if line]
    count = NO_ACCESSOR_COUNT.match(paragraphs[0]) if paragraphs else None
    if not count or len(paragraphs) < 2:
        raise DocumentError(f"line {offset + start + 1}: ids without accessors: unknown form")
    text = paragraphs[1]
    if not text.endswith("."):
        raise DocumentError("ids without accessors: the list does not end with '.'")
    rows = []
    for item in text[:-1].split("; "):
        match = NO_ACCESSOR_ITEM.match(item)
        if not match:
            raise DocumentError(f"ids without accessors: bad item {item!r}")
        rows.append({"class": NO_ACCESSOR, "id": match.group(2), "name": match.group(1),
                     "accessor": NONE, "type": NONE, "op": NONE, "verbs": NONE,
                     "timing_ex": "no", "table_row": "yes"})
    return number(count.group(1)), rows


def one_match(pattern, text, what):
    matches = list(pattern.finditer(text))
    if len(matches) != 1:
        raise DocumentError(f"{what}: expected one passage, found {len(matches)}")
    return matches[0]


def mark_timing_ex(document, intro, rows):
    host = one_match(EX_HOST, intro, "TimingEx host class")
    stated, host_class = int(host.group(1)), host.group(2)
    members = one_match(EX_MEMBERS, document, "TimingEx members")
    member_names = [m.group(1) for m in BACKTICKED.finditer(members.group(2))]
    forwarders = one_match(FORWARDERS, document, "forwarders")
    bases = {m.group(1): bool(m.group(2)) for m in BACKTICKED.finditer(forwarders.group(2))}
    if len(member_names) != int(members.group(1)) or len(member_names) != stated:
        raise DocumentError(f"TimingEx: {len(member_names)} members listed, "
                            f"the text states {members.group(1)} and {stated}")
    if set(member_names) != set(bases) or len(set(member_names)) != len(member_names):
        raise DocumentError("TimingEx: the member list and the forwarder bases differ")
    by_name = {row["name"]: row for row in rows}
    exported = 0
    for name in member_names:
        row = by_name.get(name)
        if row is None or row["class"] != host_class:
            raise DocumentError(f"TimingEx: {name} is not an attribute of class {host_class}")
        if bases[name] != (row["verbs"] == "G"):
            raise DocumentError(f"TimingEx: {name}: 'Get only' does not match verbs {row['verbs']}")
        row["timing_ex"] = "yes"
        exported += sum(verb in "GSR" for verb in row["verbs"])
    if exported != int(forwarders.group(1)):
        raise DocumentError(f"TimingEx: {exported} exported verbs, "
                            f"the text states {forwarders.group(1)} forwarders")


def check_unique(rows):
    for key in ("id", "name"):
        seen = set()
        for row in rows:
            if row[key] in seen:
                raise DocumentError(f"duplicate {key} {row[key]}")
            seen.add(row[key])


def extract(document):
    lines = document.split("\n")
    offset, section = catalogue_section(lines)
    tables = read_tables(section, offset)
    if not tables:
        raise DocumentError("no class tables")
    rows = []
    for klass, stated, table_rows in tables:
        if len(table_rows) != stated:
            raise DocumentError(f"class {klass}: {len(table_rows)} rows, heading says {stated}")
        rows.extend(table_rows)
    stated_ids, no_accessor = read_no_accessor(section, offset)
    if len(no_accessor) != stated_ids:
        raise DocumentError(f"ids without accessors: {len(no_accessor)} listed, "
                            f"the text says {stated_ids}")
    intro = "\n".join(section[:section.index(TABLE_HEADER)])
    mark_timing_ex(document, intro, rows)
    rows.extend(no_accessor)
    check_unique(rows)
    stated_table = number(one_match(TABLE_ROWS, intro, "id-to-name table size").group(1))
    in_table = sum(row["table_row"] == "yes" for row in rows)
    if in_table != stated_table:
        raise DocumentError(f"{in_table} rows for the id-to-name table, "
                            f"the text says {stated_table}")
    return rows


PREAMBLE = """\
# The attribute catalogue: one row per attribute, in catalogue order (the order of the
# id-to-name table). Written by tools/catalogue/extract.py; change the source text and re-run
# it rather than editing this file. Columns, tab-separated, "-" for none:
#   class      the class whose generic entries take the id; NoClass for an attribute reached
#              only through its accessors, NoAccessor for an id known only by name
#   id         the attribute id, hexadecimal
#   name       the name in the id-to-name table
#   accessor   the accessor base: Vorex<Verb><accessor>
#   type       I32 U32 U64 F64 Bool String StringList F64Array I32Array U32Size Time Date
#   op         the middle word of the task operations the accessors call
#   verbs      G S R exported accessors; g s accessors without an export
#   timing_ex  yes: also a TimingEx attribute, with a second set of accessors <accessor>Ex
#              that take a device list
#   table_row  no: the id has no row in the id-to-name table
"""


def render(rows):
    out = [PREAMBLE, "\t".join(COLUMNS) + "\n"]
    out.extend("\t".join(row[column] for column in COLUMNS) + "\n" for row in rows)
    return "".join(out)


def main(argv):
    args = argv[1:]
    check = bool(args) and args[0] == "--check"
    if check:
        args = args[1:]
    if len(args) not in (1, 2):
        print(__doc__, file=sys.stderr)
        return 2
    repo = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
    table = args[1] if len(args) == 2 else os.path.join(repo, "src", "catalogue", "attributes.tsv")
    with open(args[0], encoding="utf-8") as f:
        document = f.read()
    try:
        text = render(extract(document))
    except DocumentError as error:
        print(f"extract.py: {error}", file=sys.stderr)
        return 2
    if check:
        try:
            with open(table, encoding="utf-8", newline="") as f:
                same = f.read() == text
        except FileNotFoundError:
            same = False
        print(f"{table}: {'up to date' if same else 'differs from the document'}")
        return 0 if same else 1
    with open(table, "w", encoding="utf-8", newline="\n") as f:
        f.write(text)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
