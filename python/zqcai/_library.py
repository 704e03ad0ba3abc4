"""Finding and loading the driver's shared library.

The library is looked for, in this order:

1. the file named by the environment variable ZQCAI_LIBRARY;
2. next to this package (``zqcai/lib/``), where a bundled copy lies;
3. the installation this package was installed with: the package lies in
   ``<prefix>/lib/python3/dist-packages``, the library in ``<prefix>/lib`` (``bin`` on Windows);
4. the build tree of a source checkout this package belongs to (``build/linux/bin``), then the
   system's loader search.

When none works, the error lists every place it tried.
"""
import ctypes
import ctypes.util
import os
import sys

_NAMES = {"win32": "zqcai_rd_mbcs.dll", "darwin": "libzqcai_rd_mbcs.dylib"}
LIBRARY_FILE = _NAMES.get(sys.platform, "libzqcai_rd_mbcs.so")


class LibraryNotFoundError(OSError):
    """The shared library could not be loaded from any of the places looked at."""


def _candidates():
    here = os.path.dirname(os.path.abspath(__file__))
    named = os.environ.get("ZQCAI_LIBRARY")
    if named:
        yield named
    yield os.path.join(here, "lib", LIBRARY_FILE)
    prefix = os.path.abspath(os.path.join(here, "..", "..", "..", ".."))
    yield os.path.join(prefix, "bin" if sys.platform == "win32" else "lib", LIBRARY_FILE)
    checkout = os.path.dirname(os.path.dirname(here))
    for kind in ("linux", "win64"):
        yield os.path.join(checkout, "build", kind, "bin", LIBRARY_FILE)
    system = ctypes.util.find_library("zqcai_rd_mbcs")
    if system:
        yield system


def load(candidates=None):
    """The loaded library, from the first of ``candidates`` (the places above when None) that
    loads; raises LibraryNotFoundError naming where it looked."""
    tried = []
    for path in _candidates() if candidates is None else candidates:
        if os.path.sep in path and not os.path.exists(path):
            tried.append(f"{path} (no such file)")
            continue
        try:
            return ctypes.CDLL(path)
        except OSError as error:
            tried.append(f"{path} ({error})")
    raise LibraryNotFoundError(
        "the driver library " + LIBRARY_FILE + " was not found; looked at:\n  " + "\n  ".join(tried) +
        "\nSet ZQCAI_LIBRARY to the library's path, or install the driver.")
