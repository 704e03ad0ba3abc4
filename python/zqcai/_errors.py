"""Status codes as exceptions: every failure carries its code and the driver's own text."""
import ctypes
import warnings


class DriverError(Exception):
    """A call of the driver failed. ``code`` is the status code, ``message`` the extended text of
    the failure: what went wrong, with every detail the driver reported."""

    def __init__(self, code, message):
        super().__init__(f"{code}: {message}")
        self.code = code
        self.message = message


class DriverWarning(UserWarning):
    """A call of the driver succeeded with a warning."""


def _text(call, *args):
    size = call(*args, None, 0)
    if size <= 0:
        return ""
    buffer = ctypes.create_string_buffer(size)
    call(*args, buffer, size)
    return buffer.value.decode("utf-8", "replace")


def error_text(api, code):
    """The driver's description of a status code; `api` holds the library's typed functions."""
    return _text(api.VorexGetErrorString, code)


def last_error_text(api):
    """The extended text of the calling thread's last failure."""
    return _text(api.VorexGetExtendedErrorInfo)


def check(api, code):
    """Raises DriverError for a negative code, warns for a positive one, gives the code back."""
    if code < 0:
        raise DriverError(code, last_error_text(api) or error_text(api, code))
    if code > 0:
        warnings.warn(f"{code}: {error_text(api, code)}", DriverWarning, stacklevel=3)
    return code
