"""zqcai: Python access to the data-acquisition driver's C library, through ctypes.

    import zqcai
    with zqcai.Task() as task:
        task.add_ai_voltage("SimDev1/ai0:3")
        task.timing(rate=1000, samples=1000)
        task.start()
        data = task.read(1000)      # a (4, 1000) float64 array the driver filled in place

Failures raise zqcai.DriverError with the status code and the driver's extended error text.
Enumerated values are in zqcai.Val (Val.Volts, Val.Rising, Val.ContSamps...).
"""
from ._errors import DriverError, DriverWarning
from ._library import LibraryNotFoundError
from ._task import ACQUIRED_INTO_BUFFER, TRANSFERRED_FROM_BUFFER, WAIT_INFINITELY, Task
from ._values import Val
from . import _api, _errors


def error_text(code):
    """The driver's description of a status code."""
    return _errors.error_text(_api.functions(), code)


__all__ = ["ACQUIRED_INTO_BUFFER", "DriverError", "DriverWarning", "LibraryNotFoundError", "TRANSFERRED_FROM_BUFFER",
           "Task", "Val", "WAIT_INFINITELY", "error_text"]
