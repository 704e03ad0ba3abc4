#!/usr/bin/env python3
"""The case-folding generator accepts Unicode's data and refuses data of another shape.

usage: gen_casefold_check.py gen_casefold.py CaseFolding.txt
"""
import os
import subprocess
import sys
import tempfile


def run(generator, data_text, workdir, name):
    data = os.path.join(workdir, name + ".txt")
    out = os.path.join(workdir, name + ".cpp")
    with open(data, "w", encoding="utf-8") as f:
        f.write(data_text)
    result = subprocess.run([sys.executable, generator, data, out], capture_output=True, text=True)
    return result.returncode, out


def main():
    generator, source = sys.argv[1], sys.argv[2]
    with open(source, encoding="utf-8") as f:
        original = f.read()
    lines = original.splitlines(keepends=True)
    doctored = {
        # the first range would end one code point early
        "last_row_missing": "".join(l for l in lines if not l.startswith("0232;")),
        # a folding wider than its range's rows
        "wider_row": original.replace("0041; C; 0061;", "0041; F; 0061 0062 0063;"),
        # a telling row changed
        "telling_row": original.replace("00DF; F; 0073 0073;", "00DF; F; 0073 0074;"),
    }
    failures = []
    with tempfile.TemporaryDirectory() as workdir:
        code, out = run(generator, original, workdir, "original")
        if code != 0:
            failures.append("the real data was refused")
        else:
            with open(out, encoding="utf-8") as f:
                table = f.read()
            for rows in ("498 rows of 2", "156 rows of 2", "16 rows of 1", "26 rows of 1", "7 rows of 3"):
                if rows not in table:
                    failures.append(f"the table lacks '{rows}'")
        for name, text in doctored.items():
            if text == original:
                failures.append(f"{name}: the doctoring changed nothing")
                continue
            code, _ = run(generator, text, workdir, name)
            if code == 0:
                failures.append(f"{name}: accepted")
    for failure in failures:
        print("FAIL:", failure)
    checks = 1 + len(doctored)
    failed = min(len(failures), checks)
    print(f"{checks - failed} passed, {failed} failed")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
