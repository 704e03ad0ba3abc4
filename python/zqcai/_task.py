"""A task of the driver as a Python object: made and cleared with a ``with`` block, run, read
into NumPy arrays that the driver fills in place, and told of its events by callbacks."""
import ctypes
import traceback

import numpy

from . import _api
from ._configure import Configuration
from ._errors import check

GROUP_BY_CHANNEL = 0
ACQUIRED_INTO_BUFFER = 1
TRANSFERRED_FROM_BUFFER = 2
SYNCHRONOUS = 1  # callbacks on behalf of the registering thread, one at a time and in order
WAIT_INFINITELY = -1.0


def _call(name, *args):
    api = _api.functions()
    return check(api, getattr(api, name)(*args))


def _text(name, *args):
    api = _api.functions()
    function = getattr(api, name)
    size = function(*args, None, 0)  # a size, not a warning, when positive
    check(api, min(size, 0))
    buffer = ctypes.create_string_buffer(max(size, 1))
    check(api, function(*args, buffer, size))
    return buffer.value.decode("utf-8")


def _guarded(callback):
    """A callback's exception is printed, not thrown back into the driver."""
    def run(*args):
        try:
            callback(*args)
        except Exception:  # noqa: BLE001 - nothing may cross back into C
            traceback.print_exc()
        return 0
    return run


class Task(Configuration):
    """A task of the driver. ``with Task("Name") as task:`` clears it at the end of the block."""

    def __init__(self, name="", load=False):
        self._handle = _api.TaskHandle()
        self._callbacks = []  # kept alive for as long as the driver may call them
        _call("VorexLoadTask" if load else "VorexCreateTask", name.encode("utf-8"), ctypes.byref(self._handle))

    @classmethod
    def load(cls, name):
        """A task saved in storage, under its saved name."""
        return cls(name, load=True)

    def __enter__(self):
        return self

    def __exit__(self, *exception):
        self.clear()

    def __del__(self):
        if getattr(self, "_handle", None) and self._handle.value:
            try:
                self.clear()
            except Exception:  # noqa: BLE001 - a finalizer must not raise
                pass

    @property
    def handle(self):
        return self._handle

    def _call(self, name, *args):
        return _call(name, self._handle, *args)

    def save(self, name, author="", overwrite=True):
        """Saves the task in storage under ``name``, to be made again with ``Task.load(name)``."""
        self._call("VorexSaveTask", name.encode("utf-8"), author.encode("utf-8"), 1 if overwrite else 0)

    def clear(self):
        """Stops the task if it runs and ends it; the object is unusable afterwards."""
        if self._handle.value:
            handle, self._handle = self._handle, _api.TaskHandle()
            _call("VorexClearTask", handle)
        self._callbacks.clear()

    def start(self):
        _call("VorexStartTask", self._handle)

    def stop(self):
        _call("VorexStopTask", self._handle)

    def abort(self):
        _call("VorexTaskControl", self._handle, 6)

    def wait(self, timeout=WAIT_INFINITELY):
        _call("VorexWaitUntilTaskDone", self._handle, timeout)

    @property
    def done(self):
        value = _api.bool32()
        _call("VorexIsTaskDone", self._handle, ctypes.byref(value))
        return bool(value.value)

    def add_global_channels(self, names):
        _call("VorexAddGlobalChansToTask", self._handle, ",".join(names).encode("utf-8"))

    @property
    def num_channels(self):
        value = _api.uint32()
        _call("VorexGetTaskNumChans", self._handle, ctypes.byref(value))
        return value.value

    @property
    def channels(self):
        return [_text("VorexGetNthTaskChannel", self._handle, i) for i in range(1, self.num_channels + 1)]

    def read(self, samples_per_channel, timeout=10.0, out=None):
        """Reads into a (channels, samples) array of float64 that the driver fills in place: the
        given ``out``, or a new one. Gives the part of it that was read."""
        if out is None:
            out = numpy.empty((self.num_channels, samples_per_channel), dtype=numpy.float64)
        if out.dtype != numpy.float64 or not out.flags.c_contiguous:
            raise ValueError("out must be a C-contiguous float64 array")
        read = _api.int32()
        pointer = out.ctypes.data_as(ctypes.POINTER(ctypes.c_double))
        _call("VorexReadAnalogF64", self._handle, samples_per_channel, timeout, GROUP_BY_CHANNEL, pointer,
              out.size, ctypes.byref(read), None)
        return out[:, :read.value] if out.ndim == 2 else out[:read.value]

    def read_digital(self, timeout=10.0):
        """One sample of a digital input channel, as the lines' bits."""
        value = _api.uint32()
        self._call("VorexReadDigitalScalarU32", timeout, ctypes.byref(value), None)
        return value.value

    def write_digital(self, value, auto_start=True, timeout=10.0):
        """One sample to a digital output channel, the lines' bits."""
        self._call("VorexWriteDigitalScalarU32", int(auto_start), timeout, value, None)

    def read_count(self, timeout=10.0):
        """The count of a counter input channel now."""
        value = _api.uint32()
        self._call("VorexReadCounterScalarU32", timeout, ctypes.byref(value), None)
        return value.value

    def write(self, data, auto_start=False, timeout=10.0):
        """Writes a (channels, samples) array of float64; gives the samples per channel written."""
        data = numpy.ascontiguousarray(data, dtype=numpy.float64)
        samples = data.shape[-1]
        written = _api.int32()
        pointer = data.ctypes.data_as(ctypes.POINTER(ctypes.c_double))
        _call("VorexWriteAnalogF64", self._handle, samples, int(auto_start), timeout, GROUP_BY_CHANNEL, pointer,
              ctypes.byref(written), None)
        return written.value

    def on_every_n_samples(self, n, callback, synchronous=True, kind=ACQUIRED_INTO_BUFFER):
        """``callback(task, n)`` every ``n`` samples; ``None`` takes the registration back."""
        function = None
        if callback is not None:
            function = _api.EveryNSamplesCallback(_guarded(lambda handle, kind_, count, data: callback(self, count)))
            self._callbacks.append(function)
        _call("VorexRegisterEveryNSamplesEvent", self._handle, kind, n, SYNCHRONOUS if synchronous else 0,
              function or _api.EveryNSamplesCallback(), None)

    def on_done(self, callback, synchronous=True):
        """``callback(task, status)`` once the task is done; ``None`` takes the registration back."""
        function = None
        if callback is not None:
            function = _api.DoneCallback(_guarded(lambda handle, status, data: callback(self, status)))
            self._callbacks.append(function)
        _call("VorexRegisterDoneEvent", self._handle, SYNCHRONOUS if synchronous else 0,
              function or _api.DoneCallback(), None)

    def on_signal(self, signal, callback, synchronous=True):
        """``callback(task, signal)`` at each occurrence of the hardware signal."""
        function = None
        if callback is not None:
            function = _api.SignalCallback(_guarded(lambda handle, signal_, data: callback(self, signal_)))
            self._callbacks.append(function)
        _call("VorexRegisterSignalEvent", self._handle, signal, SYNCHRONOUS if synchronous else 0,
              function or _api.SignalCallback(), None)
