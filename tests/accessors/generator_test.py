#!/usr/bin/env python3
"""The accessor generator refuses a catalogue, terminal list or task interface that does not
give the accessors their known counts, and writes nothing then; from the repository's inputs it
writes the accessors, their prototypes and their export list."""
import os
import subprocess
import sys
import tempfile
import unittest

REPO = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
TOOL = os.path.join(REPO, "tools", "catalogue", "generate_accessors.py")
TABLE = os.path.join(REPO, "src", "catalogue", "attributes.tsv")
TERMINALS = os.path.join(REPO, "src", "catalogue", "terminal_attributes.txt")
OPERATIONS = os.path.join(REPO, "src", "plugin", "operations.tsv")


def read(path):
    with open(path, encoding="utf-8") as f:
        return f.read()


def replace_line(text, prefix, new_line):
    lines = text.split("\n")
    index = next(i for i, line in enumerate(lines) if line.startswith(prefix))
    if new_line is None:
        del lines[index]
    else:
        lines[index] = new_line
    return "\n".join(lines)


def row(*cells):
    return "\t".join(cells)


class AccessorGenerator(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.inputs = {"table": read(TABLE), "terminals": read(TERMINALS), "ops": read(OPERATIONS)}

    def run_tool(self, tmp, inputs):
        paths = []
        for name in ("table", "terminals", "ops"):
            path = os.path.join(tmp, name + ".txt")
            with open(path, "w", encoding="utf-8") as f:
                f.write(inputs[name])
            paths.append(path)
        out, include = os.path.join(tmp, "out"), os.path.join(tmp, "include")
        result = subprocess.run([sys.executable, TOOL, *paths, out, include],
                                capture_output=True, text=True)
        return result, out, include

    def test_writes_every_accessor_from_the_repository_inputs(self):
        with tempfile.TemporaryDirectory() as tmp:
            result, out, include = self.run_tool(tmp, self.inputs)
            self.assertEqual(result.returncode, 0, result.stderr)
            exports = read(os.path.join(out, "accessor_exports.txt")).split()
            self.assertEqual(len(exports), 2598)
            self.assertIn("VorexGetAIConvRate", exports)
            self.assertIn("VorexGetAIConvRateEx", exports)
            self.assertNotIn("VorexGetSwitchScanBreakMode", exports)  # reached by id only
            self.assertIn("VorexResetSwitchScanBreakMode", exports)
            self.assertNotIn("VorexGetTaskName", exports)  # written by hand
            header = read(os.path.join(include, "zqcai_rd_mbcs_accessors.h"))
            self.assertEqual(header.count(");\n"), 2598)
            self.assertIn("int32 VorexSetWatchdogAOExpirState(TaskHandle task, const char* lines, "
                          "float64 data);\n", header)
            self.assertIn("int32 VorexGetBufInputBufSize(TaskHandle task, uInt32* data);\n", header)

    def test_refuses_inputs_without_their_known_counts(self):
        cases = [
            ("a terminal dropped", "terminals", "DigEdgeWatchdogExpirTrigSrc", None),
            ("a terminal that is no Src or Term", "terminals", "SampClkSrc", "AICustomScaleName"),
            ("a terminal not in the catalogue", "terminals", "SampClkSrc", "SampClkSource"),
            ("a terminal added", "terminals", "SampClkSrc", "SampClkSrc\nAnlgEdgeStartTrigSrc"),
            ("an operation the task lacks", "ops", "getTimingAttributeU64", None),
            ("a watchdog line attribute on another op", "table", "Watchdog\t0x305E\t",
             row("Watchdog", "0x305E", "WatchdogAOOutputType", "WatchdogAOOutputType", "I32",
                 "Timing", "GSR", "no", "yes")),
            ("an offset attribute of another type", "table", "Read\t0x190B\t",
             row("Read", "0x190B", "ReadOffset", "ReadOffset", "U32", "Read", "GSR", "no",
                 "yes")),
            ("a hand-written attribute renamed", "table", "Chan\t0x2304\t",
             row("Chan", "0x2304", "ChanIsGlobal", "ChanGlobal", "Bool", "Channel", "G", "no",
                 "yes")),
        ]
        for what, which, prefix, new_line in cases:
            with self.subTest(what), tempfile.TemporaryDirectory() as tmp:
                inputs = dict(self.inputs)
                inputs[which] = replace_line(inputs[which], prefix, new_line)
                self.assertNotEqual(inputs[which], self.inputs[which])
                result, out, include = self.run_tool(tmp, inputs)
                self.assertEqual(result.returncode, 1, result.stderr)
                self.assertFalse(os.path.exists(out))
                self.assertFalse(os.path.exists(include))


if __name__ == "__main__":
    unittest.main(verbosity=2)
