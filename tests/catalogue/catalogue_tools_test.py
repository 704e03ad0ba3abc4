#!/usr/bin/env python3
"""The catalogue's generator refuses a table that lost, gained or changed rows."""
import os
import subprocess
import sys
import tempfile
import unittest

REPO = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
TOOLS = os.path.join(REPO, "tools", "catalogue")
TABLE = os.path.join(REPO, "src", "catalogue", "attributes.tsv")



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
