#!/usr/bin/env python3
"""The build's check of the English explanation files refuses every way in which a status code
could be left without its text, or a text without its code, and copies nothing then; the
repository's own files pass."""
import os
import subprocess
import sys
import tempfile
import unittest

REPO = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
TOOL = os.path.join(REPO, "tools", "status", "check_explanations.py")
TABLE = os.path.join(REPO, "src", "status", "status_codes.tsv")
ENGLISH = os.path.join(REPO, "companions", "errors", "English")

CODES = ("code\tconstant\treport\tfrom\n"
         "-5\tkFive\t=\tlibrary\n"
         "-6\tkSix\t=\tlibrary\n"
         "-6\tkStorageSix\t=\tstorage\n"
         "7\tkSeven\t=\tsystem\n")


def document(*entries, head='<?xml version="1.0" encoding="windows-1252"?>\n<zqdocument>\n'):
    return head + "".join(entries) + "</zqdocument>\n"


def entry(code, text="What went wrong."):
    return f'<zqerror code="{code}">\n{text}\n</zqerror>\n'


GOOD = {"library.txt": document(entry(-5), entry(-6)), "system.txt": document(entry(7))}

# (name, files that differ from GOOD, text expected in the refusal)
REFUSED = [
    ("code_without_text", {"system.txt": document("<zqcomment>\n" + entry(7) + "</zqcomment>\n")}, "7"),
    ("text_for_unknown_code", {"system.txt": document(entry(7), entry(8))}, "code 8 is not in"),
    ("code_twice_in_one_file", {"system.txt": document(entry(7), entry("0x7"))}, "already has a text"),
    ("code_in_two_files", {"storage.txt": document(entry(-6))}, "already has a text"),
    ("code_in_a_file_not_of_its_group", {"library.txt": document(entry(-5)), "system.txt": document(entry(7), entry(-6))},
     "belongs to"),
    ("file_not_named_for_a_group", {"misc.txt": document()}, "not named for a group"),
    ("empty_text", {"system.txt": document('<zqerror code="7">\n</zqerror>\n')}, "empty text"),
    ("entry_without_end", {"system.txt": document('<zqerror code="7">\nText\n')}, "no </zqerror>"),
    ("number_that_does_not_read", {"system.txt": document('<zqerror code="seven">\nText\n</zqerror>\n', entry(7))},
     "does not read"),
    ("line_that_starts_with_zero", {"system.txt": document(entry(7), "\0\n")}, "zero byte"),
    ("line_too_long", {"system.txt": document(entry(7, "x" * 1024))}, "at most 1023"),
    ("text_not_ascii", {"system.txt": document(entry(7, "Caf\u00e9"))}, "plain ASCII"),
    ("wrong_header", {"system.txt": document(entry(7), head="<zqdocument>\n")}, "first two lines"),
]


def run(table, folder, out):
    return subprocess.run([sys.executable, TOOL, table, folder, out], capture_output=True, text=True)


class CheckExplanations(unittest.TestCase):
    def check(self, files):
        with tempfile.TemporaryDirectory() as tmp:
            table = os.path.join(tmp, "codes.tsv")
            with open(table, "w", encoding="utf-8") as f:
                f.write(CODES)
            folder = os.path.join(tmp, "English")
            os.mkdir(folder)
            for name, text in files.items():
                with open(os.path.join(folder, name), "w", encoding="utf-8", newline="") as f:
                    f.write(text)
            out = os.path.join(tmp, "out")
            result = run(table, folder, out)
            return result, sorted(os.listdir(out)) if os.path.isdir(out) else []

    def test_good_files_pass_and_are_copied(self):
        result, copied = self.check(GOOD)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(copied, ["library.txt", "system.txt"])

    def test_refusals(self):
        for name, changes, expected in REFUSED:
            with self.subTest(name):
                files = dict(GOOD)
                files.update(changes)
                result, copied = self.check(files)
                self.assertEqual(result.returncode, 1, name)
                self.assertIn(expected, result.stderr)
                self.assertEqual(copied, [])

    def test_repository_files_describe_every_code(self):
        with tempfile.TemporaryDirectory() as tmp:
            result = run(TABLE, ENGLISH, tmp)
            self.assertEqual(result.returncode, 0, result.stderr)


if __name__ == "__main__":
    unittest.main()
