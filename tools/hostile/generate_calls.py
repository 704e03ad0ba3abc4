#!/usr/bin/env python3
"""Writes the hostile-input calls: every exported function, called once per hostile value of each
of its parameters while the other parameters stay benign.

usage: generate_calls.py OUTPUT_DIR EXPORT_LIST... --headers HEADER...
The prototypes come from the public headers; every name of the export lists must have one, so a
new export without a prototype, or one the classification below does not know, stops the build.
OUTPUT_DIR receives hostile_calls_<n>.cpp (kChunks files, so that they compile in parallel).
"""
import argparse
import re
import sys

kChunks = 6

# Exports that are not called, each with its reason.
EXCEPTIONS = {
    "variadic": "the value's type follows from the attribute id, so a call reads arguments by that "
                "type: a hostile id makes it read arguments that were never passed; the FromParmInfo "
                "twin of each one takes the same inputs and is called instead",
}

# Values not passed, each with its reason: the sizes of the caller's arrays only get 0, since the
# library zero-fills an output array to its declared size and a write reads an input array to
# its count, so a size beyond the array the caller really has is the caller's error (the benign
# arrays are 256 kB).
ARRAY_SIZE_NAME = re.compile(r"^arraySize")
WRITE_COUNT_NAME = re.compile(r"^numSamps")

# Parameters named for a size or a count get 0, -1 and 0x7FFFFFFF.
SIZE_NAME = re.compile(r"(Size|Length|^size$|^bufferLength$)")
COUNT_NAME = re.compile(r"(^numSamps|^nSamples$|^sampsPerChan$|^pretriggerSamples$|^index$)")
# Text parameters that name channels or lines of Dev1 get one as their benign value.
CHANNEL_NAME = re.compile(r"(physicalChannel|^channel$|^lines$|^counter$|^channelNames$)")


def strip_comments(text):
    return re.sub(r"/\*.*?\*/", " ", text, flags=re.S)


def prototypes(headers):
    found = {}
    for path in headers:
        with open(path, encoding="utf-8") as f:
            text = strip_comments(f.read())
        for name, args in re.findall(r"\bint32\s+(\w+)\s*\(([^;{}]*?)\)\s*;", text):
            found[name] = [" ".join(a.split()) for a in args.split(",") if a.strip() and a.strip() != "void"]
    return found


def split_parameter(text):
    """(C type as a pointer type, name) of one parameter."""
    m = re.match(r"^(.*?)(\w+)\s*(\[\])?$", text)
    if not m:
        raise ValueError(f"unreadable parameter: {text}")
    ctype, name = m.group(1).strip(), m.group(2)
    if m.group(3):
        ctype += "*"
    return ctype.replace(" *", "*"), name


def classify(ctype, name, function):
    """The parameter's role: how its benign and hostile values are made."""
    if ctype == "TaskHandle":
        return "task"
    if ctype == "TaskHandle*":
        return "newTask"
    if ctype.endswith("CallbackPtr"):
        return "callback"
    if ctype == "const char*":
        return "text"
    if ctype.endswith("*"):
        return "pointer"
    if ctype in ("int32", "uInt32", "uInt64"):
        if ARRAY_SIZE_NAME.search(name):
            return "arraySize"
        if function.startswith("VorexWrite") and WRITE_COUNT_NAME.search(name):
            return "writeCount"
        if SIZE_NAME.search(name):
            return "size"
        if COUNT_NAME.search(name):
            return "count"
        return "plain"
    if ctype in ("float64", "bool32", "VorexAbsoluteTime"):
        return "plain"
    raise ValueError(f"unknown parameter type: {ctype} {name}")


def benign(role, ctype, name, index):
    if role == "task":
        return "c.task()"
    if role == "newTask":
        return "c.newTask()"
    if role == "callback":
        return f"zqhostile::benignCallback<{ctype}>()"
    if role == "text":
        return '"Dev1/ai0"' if CHANNEL_NAME.search(name) else '""'
    if role == "pointer" and name == "reserved":
        return "nullptr"
    if role == "pointer":
        return f"reinterpret_cast<{ctype}>(c.scratch({index}))"
    if role in ("size", "arraySize"):
        return "4096"
    if role == "writeCount":
        return "16"
    if role == "count":
        return "1" if name == "index" else "16"
    if ctype == "VorexAbsoluteTime":
        return "VorexAbsoluteTime{}"
    if name == "timeout":
        return "0.0"  # a wait that could block returns at once
    if ctype == "float64":
        return "1.0"
    return "0"


HOSTILE = {  # role: (table in hostile_values.h, how one of its entries becomes the argument)
    "task": ("kHandles", "c.handle(h)"),
    "newTask": ("kNulls", "static_cast<TaskHandle*>(nullptr)"),
    "callback": ("kNulls", "static_cast<{ctype}>(nullptr)"),
    "text": ("kTexts", "c.text(h)"),
    "pointer": ("kNulls", "static_cast<{ctype}>(nullptr)"),
    "size": ("kCounts", "static_cast<{ctype}>(h.value)"),
    "count": ("kCounts", "static_cast<{ctype}>(h.value)"),
    "arraySize": ("kArraySizes", "static_cast<{ctype}>(h.value)"),
    "writeCount": ("kWriteCounts", "static_cast<{ctype}>(h.value)"),
}


def function_body(name, params):
    parts = [split_parameter(p) for p in params]
    roles = [classify(t, n, name) for t, n in parts]
    lines = [f"void call_{name}(zqhostile::Caller& c) {{", "  (void)c;"]
    for i, ((ctype, pname), role) in enumerate(zip(parts, roles)):
        if role not in HOSTILE:
            continue
        table, expression = HOSTILE[role]
        args = [benign(r, t, n, j) if j != i else expression.format(ctype=ctype)
                for j, ((t, n), r) in enumerate(zip(parts, roles))]
        lines.append(f"  for (const auto& h : zqhostile::{table}) {{")
        lines.append(f'    c.begin("{name}", "{pname}", h.label);')
        lines.append(f"    c.end({name}({', '.join(args)}));")
        lines.append("  }")
    lines.append("}")
    return "\n".join(lines)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("output")
    parser.add_argument("exports", nargs="+")
    parser.add_argument("--headers", nargs="+", required=True)
    args = parser.parse_args()
    names = []
    for path in args.exports:
        with open(path, encoding="utf-8") as f:
            names += [l.strip() for l in f if l.strip() and not l.startswith("#")]
    protos = prototypes(args.headers)
    missing = [n for n in names if n not in protos]
    if missing:
        sys.exit("exports without a prototype in the headers: " + " ".join(missing))
    called, skipped = [], []
    for name in sorted(set(names)):
        if any(p == "..." for p in protos[name]):
            skipped.append((name, "variadic"))
        else:
            called.append(name)
    chunks = [called[i::kChunks] for i in range(kChunks)]
    for number, chunk in enumerate(chunks):
        out = [f"// Generated by tools/hostile/generate_calls.py from the public headers: do not edit.",
               '#include "hostile_caller.h"', "", "namespace {", ""]
        try:
            out += [function_body(name, protos[name]) + "\n" for name in chunk]
        except ValueError as error:
            sys.exit(f"{error}")
        out += ["}  // namespace", "", f"const zqhostile::Export zqhostile_chunk{number}[] = {{"]
        out += [f'    {{"{name}", &call_{name}}},' for name in chunk]
        out += ["    {nullptr, nullptr}};", ""]
        if number == 0:
            out += ["const zqhostile::Skipped zqhostile_skipped[] = {"]
            out += [f'    {{"{name}", "{EXCEPTIONS[why]}"}},' for name, why in skipped]
            out += ["    {nullptr, nullptr}};", ""]
        text = "\n".join(out)
        path = f"{args.output}/hostile_calls_{number}.cpp"
        try:
            with open(path, encoding="utf-8") as f:
                if f.read() == text:
                    continue
        except OSError:
            pass
        with open(path, "w", encoding="utf-8") as f:
            f.write(text)
    return 0


if __name__ == "__main__":
    sys.exit(main())
