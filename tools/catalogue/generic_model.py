"""The generic attribute entries of the catalogue: for each class and verb, the ids its entry
takes with the accessor each one reaches, the ids it refuses by name, and the counts these are
known to have.

Used by generate_generic.py; reads the rows that generate.py reads and checks, the accessors
that accessor_model.py builds, and the list of refusals (src/catalogue/generic_refusals.tsv).
"""
from collections import Counter
from dataclasses import dataclass

import accessor_model as model
import generate as catalogue

# The entries, in the order of their prototypes.
CLASSES = ("Buffer", "Chan", "ExportedSignal", "Read", "RealTime", "SwitchScan", "Task",
           "Timing", catalogue.TIMING_EX, "Trig", "Watchdog", "Write")
# The list argument that comes before `attribute`, by class.
LIST_PARAMS = {"Chan": "channel", "Watchdog": "lines", catalogue.TIMING_EX: "deviceNames"}
# The C names of the entries: VorexGetTimingAttributeEx for the class TimingEx.
ENTRY_NAMES = {catalogue.TIMING_EX: ("Timing", "Ex")}
# The exports of each verb: (the export named by the class, its FromParmInfo twin). The export
# is "variadic" (an ellipsis, walked and passed on to the twin), "fixed" (no variable part) or
# absent; the twin takes the "slots" of a ParmInfo, only the "fixed" arguments, or is absent.
VERB_FORMS = {
    "Buffer": {"Get": ("fixed", "fixed"), "Set": ("variadic", "slots"), "Reset": ("fixed", None)},
    "SwitchScan": {"Get": (None, "fixed"), "Set": (None, "slots"), "Reset": ("fixed", None)},
    "Task": {"Get": ("variadic", "slots")},
}
DEFAULT_FORMS = {"Get": ("variadic", "slots"), "Set": ("variadic", "slots"), "Reset": ("fixed", None)}
VERBS = ("Get", "Set", "Reset")

# Ids refused by name, per class: (Set, Reset).
REFUSED = {"Buffer": (1, 1), "Chan": (35, 36), "ExportedSignal": (2, 2), "Read": (21, 21),
           "SwitchScan": (1, 1), "Timing": (2, 2), catalogue.TIMING_EX: (1, 1), "Watchdog": (1, 1),
           "Write": (15, 15)}
# Get-only attributes that no list names: their Set and Reset give -200233.
UNREFUSED = {"Read": 19, "Timing": 6, "Trig": 8, "Write": 7}
REFUSAL_COLUMNS = ["class", "name", "verbs"]

# How an entry reads the value of an id from the ParmInfo, by catalogue type and verb. The
# shapes are those of src/platform/variadic_shape.h.
SCALAR_READERS = {"I32": "slotI32", "U32": "slotU32", "U32Size": "slotU32", "U64": "slotU64",
                  "F64": "slotF64", "Bool": "slotU32"}
ARRAY_TYPES = {"F64Array": "float64", "I32Array": "int32"}


class ModelError(Exception):
    pass


@dataclass
class Target:
    """One id of an entry and the accessor it reaches."""
    id: str
    name: str           # the catalogue's name
    function: str       # the accessor, qualified when it has no export
    type: str
    takes_list: bool    # the accessor takes the entry's list argument


@dataclass
class Entry:
    klass: str
    verb: str
    form: tuple         # (export, twin) of VERB_FORMS
    targets: list
    refused: list       # catalogue names


def entry_name(klass, verb, twin=False):
    base, suffix = ENTRY_NAMES.get(klass, (klass, ""))
    name = f"Vorex{verb}{base}Attribute{suffix}"
    return f"__{name}FromParmInfo" if twin else name


def read_refusals(path):
    rows = []
    with open(path, encoding="utf-8") as f:
        header_seen = False
        for number, line in enumerate(f, 1):
            line = line.rstrip("\n")
            if not line or line.startswith("#"):
                continue
            cells = line.split("\t")
            if not header_seen:
                if cells != REFUSAL_COLUMNS:
                    raise ModelError(f"{path}:{number}: header must be {' '.join(REFUSAL_COLUMNS)}")
                header_seen = True
                continue
            if len(cells) != 3 or cells[0] not in CLASSES or cells[2] not in ("SR", "R"):
                raise ModelError(f"{path}:{number}: expected a class, a name and SR or R")
            rows.append(dict(zip(REFUSAL_COLUMNS, cells)))
    return rows


def members(rows, klass):
    """The catalogue rows whose ids the entries of a class take: those with a row in the
    id-to-name table, without the calendar dates, whose value has no slot form."""
    if klass == catalogue.TIMING_EX:
        found = [r for r in rows if r["timing_ex"] == "yes"]
    else:
        found = [r for r in rows if r["class"] == klass]
    return [r for r in found if r["table_row"] == "yes" and r["type"] != "Date"]


def target(row, klass, verb):
    letters = [v for v in row["verbs"] if v.upper() == verb[0]]
    if not letters:
        return None
    ex = klass == catalogue.TIMING_EX
    function = f"Vorex{verb}{row['accessor']}{'Ex' if ex else ''}"
    if letters[0].islower():
        function = "nZQCAI100::" + function
    return Target(row["id"], row["name"], function, row["type"], bool(model.channel_param(row, ex)))


def build(rows, accessors, refusals):
    """Every entry with its targets and refusals, after checking them against the catalogue."""
    entries = []
    for klass in CLASSES:
        forms = VERB_FORMS.get(klass, DEFAULT_FORMS)
        for verb in VERBS:
            if verb not in forms:
                continue
            targets = [t for t in (target(r, klass, verb) for r in members(rows, klass)) if t]
            refused = [r["name"] for r in refusals if r["class"] == klass and verb[0] in r["verbs"]]
            entries.append(Entry(klass, verb, forms[verb], targets, refused))
    check(rows, accessors, entries)
    return entries


def expect(errors, what, found, wanted):
    if found != wanted:
        errors.append(f"{what}: {found}, expected {wanted}")


def check(rows, accessors, entries):
    errors = []
    generated = {a.name for a in accessors}
    hand = {f"Vorex{verb}{r['accessor']}" for r in rows
            if r["class"] != catalogue.NO_ACCESSOR and model.hand_written(r) for verb in VERBS}
    for e in entries:
        where = f"{entry_name(e.klass, e.verb)}"
        wanted = catalogue.GENERIC[e.klass][VERBS.index(e.verb)]
        expect(errors, f"ids taken by {where}", len(e.targets), wanted)
        missing = sorted(t.function for t in e.targets
                         if t.function.split("::")[-1] not in generated | hand)
        expect(errors, f"accessors of {where} that nothing defines", missing, [])
        check_refusals(errors, rows, e, where)
    if errors:
        raise ModelError("the generic entries do not have their known counts:\n  " + "\n  ".join(errors))


def check_refusals(errors, rows, entry, where):
    if entry.verb == "Get":
        expect(errors, f"ids refused by {where}", entry.refused, [])
        return
    names = {r["name"]: r for r in members(rows, entry.klass)}
    wanted = REFUSED.get(entry.klass, (0, 0))[entry.verb == "Reset"]
    expect(errors, f"ids refused by {where}", len(entry.refused), wanted)
    expect(errors, f"refusals of {where} outside its class", sorted(set(entry.refused) - set(names)), [])
    taken = {t.name for t in entry.targets}
    expect(errors, f"refusals of {where} that it takes", sorted(set(entry.refused) & taken), [])
    expect(errors, f"refusals of {where} named twice",
           sorted(n for n, c in Counter(entry.refused).items() if c > 1), [])
    # The Get-only attributes that no list names answer -200233; their count is known.
    get_only = {n for n, r in names.items() if "S" not in r["verbs"].upper()}
    expect(errors, f"Get-only ids that {where} answers as not valid",
           len(get_only - set(entry.refused)), UNREFUSED.get(entry.klass, 0))


def value_expression(t, verb):
    """The value arguments of the accessor call, read from `value` and the slots."""
    if verb == "Reset":
        return []
    if verb == "Get":
        if t.type in SCALAR_READERS or t.type == "Time":
            return [f"static_cast<{value_type(t.type)}*>(value)"]
        return [f"static_cast<{value_type(t.type)}*>(value)", "zqgeneric::slotU32(slots, 0)"]
    if t.type in SCALAR_READERS:
        return [f"zqgeneric::{SCALAR_READERS[t.type]}(slots, 0)"]
    if t.type in ("String", "StringList"):
        return ["zqgeneric::slotPointer<char>(slots, 0)"]
    if t.type in ARRAY_TYPES:
        return [f"zqgeneric::slotPointer<{ARRAY_TYPES[t.type]}>(slots, 0)", "zqgeneric::slotU32(slots, 1)"]
    raise ModelError(f"no slot form for a Set of {t.type}")


def value_type(type_name):
    if type_name == "Time":
        return "VorexAbsoluteTime"
    if type_name in ("String", "StringList"):
        return "char"
    if type_name in ARRAY_TYPES:
        return ARRAY_TYPES[type_name]
    return model.TYPES[type_name][2]


def slot_shape(t, verb):
    """What the variable part holds for this id: the shape the Linux variadic entry reads."""
    if verb == "Get":
        return "kNone" if t.type in SCALAR_READERS or t.type == "Time" else "kInt32"
    return {"I32": "kInt32", "U32": "kInt32", "U32Size": "kInt32", "Bool": "kInt32", "U64": "kInt64",
            "F64": "kDouble", "String": "kPointer", "StringList": "kPointer", "Time": "kTime",
            "F64Array": "kPointerAndCount", "I32Array": "kPointerAndCount"}[t.type]
