#!/usr/bin/env python3
"""Writes the generic entry test's case tables straight from the catalogue and the refusals.

  make_generic_cases.py TABLE REFUSALS OUT_FILE

It reads the tables itself, apart from the library's generator, so that a generator that sends
an id to the wrong accessor, or reads its value the wrong way, meets a test that expects what
the catalogue says. Every case carries three calls: the named accessor, the variadic entry with
a typed argument, and the FromParmInfo twin with slots laid out by parm_slots.h.
"""
import sys

# The entries' classes: (C name base, suffix, list parameter or None).
CLASSES = {"Buffer": ("Buffer", "", None), "Chan": ("Chan", "", "channel"),
           "ExportedSignal": ("ExportedSignal", "", None), "Read": ("Read", "", None),
           "RealTime": ("RealTime", "", None), "SwitchScan": ("SwitchScan", "", None),
           "Task": ("Task", "", None), "Timing": ("Timing", "", None),
           "TimingEx": ("Timing", "Ex", "deviceNames"), "Trig": ("Trig", "", None),
           "Watchdog": ("Watchdog", "", "lines"), "Write": ("Write", "", None)}
# Exports per class and verb: "variadic", "fixed" (no variable part) or "twin" (only the
# FromParmInfo function); absent verbs have no entry.
FORMS = {"Buffer": {"Get": "fixed", "Set": "variadic", "Reset": "fixed"},
         "SwitchScan": {"Get": "twin", "Set": "twin", "Reset": "fixed"},
         "Task": {"Get": "variadic"}}
DEFAULT = {"Get": "variadic", "Set": "variadic", "Reset": "fixed"}
WATCHDOG_LINES = {"WatchdogDOExpirState", "WatchdogAOOutputType", "WatchdogAOExpirState",
                  "WatchdogCOExpirState"}
# Type: (ValueType, Get out-argument, extra Get argument, Set arguments).
TYPES = {
    "I32": ("kI32", "&out.i32", None, "in.i32"), "U32": ("kU32", "&out.u32", None, "in.u32"),
    "U32Size": ("kU32Size", "&out.u32", None, "in.u32"), "U64": ("kU64", "&out.u64", None, "in.u64"),
    "F64": ("kF64", "&out.f64", None, "in.f64"), "Bool": ("kBool", "&out.u32", None, "in.u32"),
    "String": ("kString", "out.text", "kTextSize", "in.text"),
    "StringList": ("kStringList", "out.text", "kTextSize", "in.list"),
    "F64Array": ("kF64Array", "out.f64s", "kArraySize", "in.f64s, in.count"),
    "I32Array": ("kI32Array", "out.i32s", "kArraySize", "in.i32s, in.count"),
    "Time": ("kTime", "&out.time", None, "in.time"),
}
VERBS = ("Get", "Set", "Reset")


def read_rows(path):
    rows, columns = [], None
    with open(path, encoding="utf-8") as f:
        for line in f:
            line = line.rstrip("\n")
            if not line or line.startswith("#"):
                continue
            cells = line.split("\t")
            if columns is None:
                columns = cells
            else:
                rows.append(dict(zip(columns, cells)))
    return rows


def members(rows, klass):
    if klass == "TimingEx":
        found = [r for r in rows if r["timing_ex"] == "yes"]
    else:
        found = [r for r in rows if r["class"] == klass]
    return [r for r in found if r["table_row"] == "yes" and r["type"] != "Date"]


def entry_name(klass, verb, twin=False):
    base, suffix, _ = CLASSES[klass]
    name = f"Vorex{verb}{base}Attribute{suffix}"
    return f"__{name}FromParmInfo" if twin else name


def accessor_list(row, klass):
    if klass == "TimingEx":
        return True
    return row["op"] == "Channel" or row["accessor"] in WATCHDOG_LINES


def named_call(row, klass, verb, letter):
    function = f"Vorex{verb}{row['accessor']}{'Ex' if klass == 'TimingEx' else ''}"
    if letter.islower():
        function = "nZQCAI100::" + function
    args = ["task"] + (["list"] if accessor_list(row, klass) else [])
    _, out, extra, set_args = TYPES[row["type"]]
    if verb == "Get":
        args += [out] + ([extra] if extra else [])
    elif verb == "Set":
        args.append(set_args)
    return f"[](TaskHandle task, const char* list, const Inputs& in, Outputs& out) -> int32 {{ " \
           f"(void)list; (void)in; (void)out; return {function}({', '.join(args)}); }}"


def fixed_args(klass):
    return ["task"] + (["list"] if CLASSES[klass][2] else []) + ["id"]


def generic_call(klass, verb, type_name, how):
    """A call of the entry: `how` is "variadic", "twin" or "bare" (nothing in the variable part)."""
    form = FORMS.get(klass, DEFAULT)[verb]
    twin = how == "twin" or form == "twin"
    if verb == "Reset":
        twin = False
    name = entry_name(klass, verb, twin)
    args = fixed_args(klass)
    prelude = ""
    if verb == "Get":
        if how == "bare":
            args.append("&out")
        else:
            _, out, extra, _ = TYPES[type_name]
            args.append(out)
            if extra and not twin and form != "fixed":
                args.append(extra)
    elif verb == "Set" and how != "bare" and not twin:
        args.append(TYPES[type_name][3])
    if twin and (verb == "Set" or form != "fixed" and form != "twin"):
        if how == "bare":
            args.append("nullptr")
        else:
            kind = TYPES[type_name][0]
            slots = f"getSlots(ValueType::{kind})" if verb == "Get" else f"setSlots(ValueType::{kind}, in)"
            prelude = f"const Slots slots = {slots}; "
            args.append("slots.data()")
    return f"[](TaskHandle task, const char* list, int32 id, const Inputs& in, Outputs& out) -> int32 {{ " \
           f"(void)list; (void)in; (void)out; {prelude}return {name}({', '.join(args)}); }}"


def cases(rows, refusals):
    out, refused, bare = [], [], []
    for klass in CLASSES:
        forms = FORMS.get(klass, DEFAULT)
        takes_list = "true" if CLASSES[klass][2] else "false"
        by_name = {r["name"]: r for r in members(rows, klass)}
        for verb in VERBS:
            if verb not in forms:
                continue
            shown = entry_name(klass, verb, forms[verb] == "twin")
            bare.append(f'    {{"{shown}", GenericVerb::k{verb}, {takes_list}, {generic_call(klass, verb, None, "bare")}}},\n')
            for r in members(rows, klass):
                letters = [v for v in r["verbs"] if v.upper() == verb[0]]
                if not letters:
                    continue
                out.append(f'    {{"{shown}", GenericVerb::k{verb}, {r["id"]}, "{r["name"]}", '
                           f'ValueType::{TYPES[r["type"]][0]}, {takes_list},\n'
                           f'     {named_call(r, klass, verb, letters[0])},\n'
                           f'     {generic_call(klass, verb, r["type"], "variadic")},\n'
                           f'     {generic_call(klass, verb, r["type"], "twin")}}},\n')
            for x in refusals:
                if x["class"] == klass and verb[0] in x["verbs"]:
                    r = by_name[x["name"]]
                    refused.append(f'    {{"{shown}", GenericVerb::k{verb}, {r["id"]}, "{r["name"]}", '
                                   f'{generic_call(klass, verb, r["type"], "variadic")}}},\n')
    return out, refused, bare


def main(argv):
    if len(argv) != 4:
        print(__doc__, file=sys.stderr)
        return 2
    rows = read_rows(argv[1])
    refusals = read_rows(argv[2])
    out, refused, bare = cases(rows, refusals)
    ids = sorted({int(r["id"], 16) for r in rows})
    text = ("// Generated by tests/generic/make_generic_cases.py from src/catalogue/attributes.tsv and\n"
            "// generic_refusals.tsv.\n"
            '#include "generic_cases.h"\n\n#include "accessors/hidden_accessors.h"\n#include "parm_slots.h"\n\n'
            "namespace zqtest {\nnamespace {\n\n"
            f"const GenericCase kCases[] = {{\n{''.join(out)}}};\n\n"
            f"const RefusedCase kRefused[] = {{\n{''.join(refused)}}};\n\n"
            f"const BareEntry kBare[] = {{\n{''.join(bare)}}};\n\n"
            f"const int32 kIds[] = {{{', '.join(f'0x{i:04X}' for i in ids)}}};\n\n"
            "}  // namespace\n\n"
            "std::span<const GenericCase> genericCases() { return kCases; }\n"
            "std::span<const RefusedCase> refusedCases() { return kRefused; }\n"
            "std::span<const BareEntry> bareEntries() { return kBare; }\n"
            "std::span<const int32> catalogueIds() { return kIds; }\n\n"
            "}  // namespace zqtest\n")
    try:
        with open(argv[3], encoding="utf-8") as f:
            if f.read() == text:
                return 0
    except FileNotFoundError:
        pass
    with open(argv[3], "w", encoding="utf-8", newline="\n") as f:
        f.write(text)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
