"""The named accessors of the attribute catalogue: which functions exist, with what shape, which
task operation and frame template each one calls, and the counts they are known to have.

Used by generate_accessors.py; reads the rows that generate.py reads and checks.
"""
from collections import Counter
from dataclasses import dataclass, field

# Rows whose accessors are written by hand: the absolute times, the calibration dates, and
# the few attributes whose frame differs from the generated one.
HAND_WRITTEN_TYPES = {"Time", "Date"}
HAND_WRITTEN = {"TaskName", "ReadChannelsToRead", "ChanIsGlobal", "SigmodCalEnable"}
HAND_WRITTEN_ROWS = 14
HAND_WRITTEN_ACCESSORS = 27

# The offset and size accessors that fall back to the wide operation on -89000: the narrow
# and the wide operation suffix of each.
FALLBACK = {"ReadOffset": ("I32", "Offset"), "WriteOffset": ("I32", "Offset"),
            "LoggingFileWriteSize": ("U32", "Size"), "ReadAvailSampPerChan": ("U32", "Size"),
            "WriteSpaceAvail": ("U32", "Size")}
FALLBACK_ACCESSORS = 11

# Watchdog attributes whose accessors take the lines they apply to.
WATCHDOG_LINES = {"WatchdogDOExpirState", "WatchdogAOOutputType", "WatchdogAOExpirState",
                  "WatchdogCOExpirState"}

TERMINALS = 70
PLAIN_SETTABLE_STRINGS = 22

# Generated functions per verb: exported with the frame, exported forwarders, hidden.
EXPORTED = {"Get": 944, "Set": 826, "Reset": 828}
FORWARDERS = 37
HIDDEN = {"Get": 4, "Set": 3}

VERBS = (("G", "Get"), ("S", "Set"), ("R", "Reset"))

# Type column: (operation suffix, shape, C value type, frame class).
TYPES = {
    "I32": ("I32", "scalar", "int32", "ClassI32"),
    "U32": ("U32", "scalar", "uInt32", "ClassU32"),
    "U32Size": ("Size", "scalar", "uInt32", "ClassU32Size"),
    "U64": ("U64", "scalar", "uInt64", "ClassU64"),
    "F64": ("F64", "scalar", "float64", "ClassF64"),
    "Bool": ("Bool", "scalar", "bool32", "ClassBool"),
    "String": ("String", "string", "char", None),
    "StringList": ("StringVtr", "string", "char", None),
    "F64Array": ("F64Vtr", "array", "float64", None),
    "I32Array": ("I32Vtr", "array", "int32", None),
}


class ModelError(Exception):
    pass


@dataclass
class Accessor:
    name: str            # the function's name, also its trace name
    verb: str            # Get, Set, Reset
    row: dict
    exported: bool
    channel_param: str   # "channel", "deviceNames", "lines" or "" for none
    target: str = ""     # forwarders: the Ex accessor they call
    terminal: bool = False
    ops: list = field(default_factory=list)  # task operations, narrow first for a fallback

    @property
    def shape(self):
        return TYPES[self.row["type"]][1]

    @property
    def forwarder(self):
        return bool(self.target)


def op_name(verb, op, suffix):
    return f"{verb.lower()}{op}Attribute{suffix}"


def hand_written(row):
    return row["type"] in HAND_WRITTEN_TYPES or row["accessor"] in HAND_WRITTEN


def channel_param(row, ex):
    if ex:
        return "deviceNames"
    if row["accessor"] in WATCHDOG_LINES:
        return "lines"
    return "channel" if row["op"] == "Channel" else ""


def operations(row, verb):
    if row["accessor"] in FALLBACK:
        return [op_name(verb, row["op"], s) for s in FALLBACK[row["accessor"]]]
    return [op_name(verb, row["op"], TYPES[row["type"]][0])]


def accessors_of(row, terminals):
    """The generated functions of one catalogue row, in the order Get, Set, Reset, each
    Ex accessor right after the forwarder that calls it."""
    out = []
    for letter, verb in VERBS:
        present = [v for v in row["verbs"] if v.upper() == letter]
        if not present:
            continue
        exported = present[0] == letter
        terminal = verb == "Set" and row["accessor"] in terminals
        base = f"Vorex{verb}{row['accessor']}"
        ops = operations(row, verb)
        if row["timing_ex"] == "yes":
            out.append(Accessor(base, verb, row, exported, "", target=base + "Ex"))
            out.append(Accessor(base + "Ex", verb, row, exported, channel_param(row, True),
                                terminal=terminal, ops=ops))
        else:
            out.append(Accessor(base, verb, row, exported, channel_param(row, False),
                                terminal=terminal, ops=ops))
    return out


def build(rows, terminals, task_operations):
    """Every generated accessor in catalogue order, after checking the model's counts."""
    accessor_rows = [r for r in rows if r["class"] != "NoAccessor"]
    generated = [r for r in accessor_rows if not hand_written(r)]
    accessors = [a for r in generated for a in accessors_of(r, terminals)]
    check(accessor_rows, generated, accessors, terminals, task_operations)
    return accessors


def expect(errors, what, found, wanted):
    if found != wanted:
        errors.append(f"{what}: {found}, expected {wanted}")


def check(accessor_rows, generated, accessors, terminals, task_operations):
    errors = []
    by_base = {r["accessor"]: r for r in accessor_rows}
    hand = [r for r in accessor_rows if hand_written(r)]
    expect(errors, "hand-written attributes not in the catalogue",
           sorted(HAND_WRITTEN - set(by_base)), [])
    expect(errors, "hand-written attributes", len(hand), HAND_WRITTEN_ROWS)
    expect(errors, "hand-written accessors",
           sum(len(r["verbs"]) for r in hand), HAND_WRITTEN_ACCESSORS)
    check_terminals(errors, generated, by_base, terminals)
    check_special(errors, by_base)
    frames = [a for a in accessors if not a.forwarder]
    for verb, wanted in EXPORTED.items():
        expect(errors, f"exported {verb} accessors",
               sum(a.exported and a.verb == verb for a in accessors), wanted)
    for verb in ("Get", "Set", "Reset"):
        expect(errors, f"hidden {verb} accessors",
               sum(not a.exported and a.verb == verb for a in accessors), HIDDEN.get(verb, 0))
    expect(errors, "forwarders", sum(a.forwarder for a in accessors), FORWARDERS)
    expect(errors, "fallback accessors", sum(len(a.ops) == 2 for a in frames), FALLBACK_ACCESSORS)
    names = Counter(a.name for a in accessors)
    expect(errors, "accessor names made twice", sorted(n for n, c in names.items() if c > 1), [])
    missing = sorted({op for a in frames for op in a.ops} - set(task_operations))
    expect(errors, "operations the task interface lacks", missing, [])
    if errors:
        raise ModelError("the accessors do not have their known counts:\n  " + "\n  ".join(errors))


def check_terminals(errors, generated, by_base, terminals):
    expect(errors, "terminal attributes", len(terminals), TERMINALS)
    expect(errors, "terminal attributes not in the catalogue", sorted(terminals - set(by_base)), [])
    odd = sorted(t for t in terminals if t in by_base and (
        by_base[t]["type"] != "String" or "S" not in by_base[t]["verbs"]
        or not ("Src" in t or "Term" in t)))
    expect(errors, "terminal attributes that are no settable String named Src or Term", odd, [])
    plain = [r for r in generated
             if r["type"] == "String" and "S" in r["verbs"] and r["accessor"] not in terminals]
    expect(errors, "settable String attributes passed as plain text", len(plain),
           PLAIN_SETTABLE_STRINGS)


def check_special(errors, by_base):
    for base in FALLBACK:
        row = by_base.get(base)
        if not row or TYPES[row["type"]][0] != FALLBACK[base][0] or row["op"] not in ("Read", "Write"):
            errors.append(f"fallback accessor {base}: not a {FALLBACK[base][0]} Read or Write row")
    for base in WATCHDOG_LINES:
        row = by_base.get(base)
        if not row or row["class"] != "Watchdog" or row["op"] != "Device":
            errors.append(f"watchdog lines accessor {base}: not a Watchdog Device row")
