"""The enumerated values the driver's functions take, by name, from the same table the C header
``zqcai_rd_mbcs_values.h`` is made of: ``Val.Volts``, ``Val.Rising``, ``Val.ContSamps``...

An installed package carries the table beside itself; a package used from a source checkout reads
the checkout's."""
import os
import types

_HERE = os.path.dirname(os.path.abspath(__file__))
_PLACES = [os.path.join(_HERE, "values.tsv"),
           os.path.join(os.path.dirname(os.path.dirname(_HERE)), "src", "catalogue", "values.tsv")]


def _read(places):
    for path in places:
        if os.path.exists(path):
            with open(path, encoding="ascii") as table:
                rows = (line.rstrip("\n").split("\t") for line in table if line.strip() and line[0] != "#")
                return {name: int(value) for name, value, _ in rows}
    raise ImportError("the table of values was not found at " + " or ".join(places))


Val = types.SimpleNamespace(**_read(_PLACES))
