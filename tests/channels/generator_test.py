#!/usr/bin/env python3
"""The channel generator refuses a table that disagrees with itself, with the catalogue or with
the plug-in operation it ends in, and writes nothing then; from the repository's inputs it
writes every function and prototype."""
import os
import subprocess
import sys
import tempfile
import unittest

REPO = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
TOOL = os.path.join(REPO, "tools", "channels", "generate.py")
TABLE = os.path.join(REPO, "src", "channels", "channel_functions.tsv")
CATALOGUE = os.path.join(REPO, "src", "catalogue", "attributes.tsv")
OPERATIONS = os.path.join(REPO, "src", "plugin", "operations.tsv")


def read(path):
    with open(path, encoding="utf-8") as f:
        return f.read()


def edit_row(text, function, column, value):
    """The text with one cell of `function`'s row replaced."""
    lines = text.split("\n")
    header = next(line for line in lines if line.startswith("function\t")).split("\t")
    for i, line in enumerate(lines):
        if line.startswith(function + "\t"):
            cells = line.split("\t")
            cells[header.index(column)] = value
            lines[i] = "\t".join(cells)
            return "\n".join(lines)
    raise AssertionError(f"no row {function}")


class ChannelGenerator(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.inputs = {"table": read(TABLE), "catalogue": read(CATALOGUE), "operations": read(OPERATIONS)}

    def run_tool(self, **changed):
        inputs = dict(self.inputs, **changed)
        with tempfile.TemporaryDirectory() as tmp:
            paths = []
            for name in ("table", "catalogue", "operations"):
                path = os.path.join(tmp, name + ".tsv")
                with open(path, "w", encoding="utf-8") as f:
                    f.write(inputs[name])
                paths.append(path)
            out, public = os.path.join(tmp, "out"), os.path.join(tmp, "include")
            result = subprocess.run([sys.executable, TOOL, *paths, out, public], capture_output=True, text=True)
            written = os.path.exists(out) or os.path.exists(public)
            header = read(os.path.join(public, "zqcai_rd_mbcs_channels.h")) if result.returncode == 0 else ""
            return result, written, header

    def refused(self, message, **changed):
        result, written, _ = self.run_tool(**changed)
        self.assertNotEqual(result.returncode, 0)
        self.assertIn(message, result.stderr)
        self.assertFalse(written, "nothing is written after a refusal")

    def test_writes_every_function_from_the_repository_inputs(self):
        result, _, header = self.run_tool()
        self.assertEqual(result.returncode, 0, result.stderr)
        prototypes = [line for line in header.split("\n") if line.startswith("int32 Vorex")]
        self.assertEqual(len(prototypes), 78)
        self.assertIn("int32 VorexCreateAIForceBridgeTableChan(TaskHandle taskHandle, const char* physicalChannel, "
                      "const char* nameToAssignToChannel, float64 minVal, float64 maxVal, int32 units, int32 "
                      "bridgeConfig, int32 voltageExcitSource, float64 voltageExcitVal, float64 "
                      "nominalGageResistance, const float64 electricalValues[], uInt32 numElectricalValues, int32 "
                      "electricalUnits, const float64 physicalValues[], uInt32 numPhysicalValues, int32 "
                      "physicalUnits, const char* customScaleName);", prototypes)

    def test_an_attribute_missing_from_the_catalogue(self):
        table = edit_row(self.inputs["table"], "VorexCreateAIVoltageChan", "enumerations",
                         "terminalConfig=AITermCfg, units=AINoSuchUnits")
        self.refused("attribute 'AINoSuchUnits' is not in the catalogue", table=table)

    def test_an_enumeration_that_the_catalogue_does_not_store_as_one(self):
        table = edit_row(self.inputs["table"], "VorexCreateAIVoltageChan", "enumerations",
                         "terminalConfig=AITermCfg, units=AIImpedance")
        self.refused("attribute 'AIImpedance' is F64, not I32", table=table)

    def test_two_parameters_of_one_type_in_the_wrong_order(self):
        table = edit_row(self.inputs["table"], "VorexCreateAIVoltageChan", "parameters",
                         "const char* physicalChannel, const char* nameToAssignToChannel, int32 terminalConfig, "
                         "float64 maxVal, float64 minVal, int32 units, const char* customScaleName")
        self.refused("VorexCreateAIVoltageChan and createAIVoltageChannel disagree", table=table)

    def test_a_plugin_operation_that_changed_its_parameters(self):
        operations = self.inputs["operations"].replace(
            "int32_t thermocoupleType, int32_t cjcSource, double cjcVal", "int32_t thermocoupleType, double cjcVal", 1)
        self.refused("VorexCreateAIThrmcplChan and createAIThrmcplChannel disagree", operations=operations)

    def test_an_array_without_its_count(self):
        table = edit_row(self.inputs["table"], "VorexCreateAIForceBridgeTableChan", "arrays",
                         "electricalValues=numElectricalValues")
        self.refused("array 'physicalValues' is not followed by its uInt32 count", table=table)

    def test_a_trimmed_name_that_is_no_text(self):
        table = edit_row(self.inputs["table"], "VorexCreateAIVoltageChan", "trimmed", "minVal")
        self.refused("trimmed 'minVal' is not a text parameter", table=table)

    def test_a_function_twice(self):
        row = next(line for line in self.inputs["table"].split("\n") if line.startswith("VorexCreateDIChan\t"))
        self.refused("VorexCreateDIChan appears twice", table=self.inputs["table"] + row + "\n")


if __name__ == "__main__":
    unittest.main()
