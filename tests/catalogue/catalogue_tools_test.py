#!/usr/bin/env python3
"""The catalogue's extractor reads a document strictly, and its generator refuses a table that
lost, gained or changed rows."""
import os
import subprocess
import sys
import tempfile
import unittest

REPO = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
TOOLS = os.path.join(REPO, "tools", "catalogue")
TABLE = os.path.join(REPO, "src", "catalogue", "attributes.tsv")

sys.dont_write_bytecode = True  # leave no cache beside the tools in the source tree
sys.path.insert(0, TOOLS)
import extract  # noqa: E402

DOCUMENT = """\
# Section 4: Attribute catalogue

Id-to-name table. The library holds a constant table of 4 rows, each row an id and a name.

The 1 attributes of class `TimingEx` stand under `Timing` below; they have a second set.

Class `Timing` (Timing), 2 attributes:

| Id | Name | Type | Op | Verbs |
|---|---|---|---|---|
| 0x1848 | `AIConvRate` | F64 | Timing | GSR |
| 0x1445 | `RefTrigPreTrigSamples` (`RefTrigPretrigSamples`) | U32 (Size) | Timing | gsR |

No class: reached only through its accessors, 1 attribute:

| Id | Name | Type | Op | Verbs |
|---|---|---|---|---|
| 0x2EC8 | `QSeriesLegacyCompatibility` (no table row) | Bool | Channel | GSR |

**Ids without accessors**

These 2 rows of the table name attributes that this library has no accessor for. Each:

`ChanActiveChan` 0x0011; `ScaleType` 0x1929.

# Section 5: Generic entries

The `TimingEx` entries take 1 ids of their own: `AIConvRate`, each going to its accessor.

The forwarders. 3 exports are tail calls that add an empty list: `A(t)` is `AEx(t, "")`. \
The bases are `AIConvRate`. They are not traced by themselves.
"""


class Extractor(unittest.TestCase):
    def test_reads_every_column_and_marker(self):
        rows = extract.extract(DOCUMENT)
        got = [[row[c] for c in extract.COLUMNS] for row in rows]
        self.assertEqual(got, [
            ["Timing", "0x1848", "AIConvRate", "AIConvRate", "F64", "Timing", "GSR", "yes", "yes"],
            ["Timing", "0x1445", "RefTrigPreTrigSamples", "RefTrigPretrigSamples", "U32Size",
             "Timing", "gsR", "no", "yes"],
            ["NoClass", "0x2EC8", "QSeriesLegacyCompatibility", "QSeriesLegacyCompatibility",
             "Bool", "Channel", "GSR", "no", "no"],
            ["NoAccessor", "0x0011", "ChanActiveChan", "-", "-", "-", "-", "no", "yes"],
            ["NoAccessor", "0x1929", "ScaleType", "-", "-", "-", "-", "no", "yes"],
        ])

    def test_refuses_texts_that_differ_from_their_counts_or_forms(self):
        cases = [
            ("heading count", "Timing), 2 attributes", "Timing), 3 attributes"),
            ("no-accessor count", "These 2 rows", "These 3 rows"),
            ("table size", "constant table of 4 rows", "constant table of 5 rows"),
            ("unknown type", "| F64 | Timing | GSR |", "| F32 | Timing | GSR |"),
            ("unknown op", "| F64 | Timing | GSR |", "| F64 | Clock | GSR |"),
            ("bad verbs", "| F64 | Timing | GSR |", "| F64 | Timing | RSG |"),
            ("note in the name cell", "(`RefTrigPretrigSamples`)", "(see below)"),
            ("extra cell", "| Bool | Channel | GSR |", "| Bool | Channel | GSR | x |"),
            ("forwarder count", "3 exports are", "4 exports are"),
            ("member count", "take 1 ids", "take 2 ids"),
            ("member not in its class", "stand under `Timing`", "stand under `Trig`"),
            ("duplicate id", "`ScaleType` 0x1929", "`ScaleType` 0x0011"),
            ("bad list item", "`ScaleType` 0x1929", "`ScaleType` = 0x1929"),
            ("heading of unknown form", "No class: reached", "Unclassed: reached"),
        ]
        for what, old, new in cases:
            with self.subTest(what):
                self.assertIn(old, DOCUMENT)
                with self.assertRaises(extract.DocumentError):
                    extract.extract(DOCUMENT.replace(old, new, 1))

    def test_check_mode_compares_with_the_written_table(self):
        with tempfile.TemporaryDirectory() as tmp:
            document = os.path.join(tmp, "document.md")
            table = os.path.join(tmp, "attributes.tsv")
            with open(document, "w", encoding="utf-8") as f:
                f.write(DOCUMENT)
            self.assertEqual(extract.main(["extract.py", document, table]), 0)
            self.assertEqual(extract.main(["extract.py", "--check", document, table]), 0)
            with open(table, "a", encoding="utf-8") as f:
                f.write("NoAccessor\t0x0001\tExtra\t-\t-\t-\t-\tno\tyes\n")
            self.assertEqual(extract.main(["extract.py", "--check", document, table]), 1)


def run_generator(table_text, out):
    table = os.path.join(out, "attributes.tsv")
    with open(table, "w", encoding="utf-8") as f:
        f.write(table_text)
    return subprocess.run([sys.executable, os.path.join(TOOLS, "generate.py"), table,
                           os.path.join(out, "gen")], capture_output=True, text=True)


def replace_row(text, prefix, new_line):
    lines = text.split("\n")
    index = next(i for i, line in enumerate(lines) if line.startswith(prefix))
    if new_line is None:
        del lines[index]
    else:
        lines[index] = new_line
    return "\n".join(lines)


class Generator(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        with open(TABLE, encoding="utf-8") as f:
            cls.table = f.read()

    def test_accepts_the_repository_table(self):
        with tempfile.TemporaryDirectory() as tmp:
            result = run_generator(self.table, tmp)
            self.assertEqual(result.returncode, 0, result.stderr)
            with open(os.path.join(tmp, "gen", "include", "attribute_ids.h")) as f:
                self.assertEqual(f.read().count("#define Vorex_"), 949)

    def test_refuses_tables_without_their_known_counts(self):
        t = "\t"
        cases = [
            ("a Chan row lost", "Chan\t0x0062\t", None),
            ("a verb lost", "Trig\t0x1360\t",
             t.join(["Trig", "0x1360", "DigEdgeAdvTrigEdge", "DigEdgeAdvTrigEdge", "I32",
                     "Timing", "GS", "no", "yes"])),
            ("an export turned internal", "Chan\t0x0062\t",
             t.join(["Chan", "0x0062", "AIImpedance", "AIImpedance", "F64", "Channel", "gSR",
                     "no", "yes"])),
            ("a table row dropped", "Write\t0x190D\t",
             t.join(["Write", "0x190D", "WriteOffset", "WriteOffset", "I32", "Write", "GSR",
                     "no", "no"])),
            ("a TimingEx member unmarked", "Timing\t0x1848\t",
             t.join(["Timing", "0x1848", "AIConvRate", "AIConvRate", "F64", "Timing", "GSR",
                     "no", "yes"])),
            ("a TimingEx member that is Get only", "Timing\t0x1848\t",
             t.join(["Timing", "0x1848", "AIConvRate", "AIConvRate", "F64", "Timing", "G",
                     "yes", "yes"])),
            ("a duplicate id", "NoAccessor\t0x0011\t",
             t.join(["NoAccessor", "0x3062", "ChanActiveChan", "-", "-", "-", "-", "no",
                     "yes"])),
            ("a Date made F64", "Chan\t0x229A\t",
             t.join(["Chan", "0x229A", "AIChanCalCalDate", "AIChanCalCalDate", "F64",
                     "Channel", "GS", "no", "yes"])),
            ("an unknown type", "Chan\t0x0062\t",
             t.join(["Chan", "0x0062", "AIImpedance", "AIImpedance", "F32", "Channel", "GSR",
                     "no", "yes"])),
            ("a row of another class", "Buffer\t0x186D\t",
             t.join(["Chan", "0x186D", "BufOutputBufSize", "BufOutputBufSize", "U32Size",
                     "Buffer", "GSR", "no", "yes"])),
        ]
        for what, prefix, new_line in cases:
            with self.subTest(what), tempfile.TemporaryDirectory() as tmp:
                result = run_generator(replace_row(self.table, prefix, new_line), tmp)
                self.assertEqual(result.returncode, 1, result.stderr)
                self.assertFalse(os.path.exists(os.path.join(tmp, "gen")))


if __name__ == "__main__":
    unittest.main(verbosity=2)
