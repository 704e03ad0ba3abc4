"""The C functions this package calls, with their argument and result types."""
import ctypes

from . import _library

TaskHandle = ctypes.c_void_p
int32 = ctypes.c_int32
uint32 = ctypes.c_uint32
uint64 = ctypes.c_uint64
float64 = ctypes.c_double
bool32 = ctypes.c_uint32

EveryNSamplesCallback = ctypes.CFUNCTYPE(int32, TaskHandle, int32, uint32, ctypes.c_void_p)
DoneCallback = ctypes.CFUNCTYPE(int32, TaskHandle, int32, ctypes.c_void_p)
SignalCallback = ctypes.CFUNCTYPE(int32, TaskHandle, int32, ctypes.c_void_p)

_c_char_p = ctypes.c_char_p
_double_p = ctypes.POINTER(ctypes.c_double)
_int32_p = ctypes.POINTER(int32)

# name: (result, argument types); every function returns the status code.
_SIGNATURES = {
    "VorexCreateTask": [_c_char_p, ctypes.POINTER(TaskHandle)],
    "VorexLoadTask": [_c_char_p, ctypes.POINTER(TaskHandle)],
    "VorexClearTask": [TaskHandle],
    "VorexStartTask": [TaskHandle],
    "VorexStopTask": [TaskHandle],
    "VorexTaskControl": [TaskHandle, int32],
    "VorexWaitUntilTaskDone": [TaskHandle, float64],
    "VorexIsTaskDone": [TaskHandle, ctypes.POINTER(bool32)],
    "VorexAddGlobalChansToTask": [TaskHandle, _c_char_p],
    "VorexGetNthTaskChannel": [TaskHandle, uint32, _c_char_p, int32],
    "VorexGetNthTaskDevice": [TaskHandle, uint32, _c_char_p, int32],
    "VorexGetTaskNumChans": [TaskHandle, ctypes.POINTER(uint32)],
    "VorexGetErrorString": [int32, _c_char_p, uint32],
    "VorexGetExtendedErrorInfo": [_c_char_p, uint32],
    "VorexReadAnalogF64": [TaskHandle, int32, float64, int32, _double_p, uint32, _int32_p, ctypes.c_void_p],
    "VorexWriteAnalogF64": [TaskHandle, int32, int32, float64, int32, _double_p, _int32_p, ctypes.c_void_p],
    "VorexRegisterEveryNSamplesEvent": [TaskHandle, int32, uint32, uint32, EveryNSamplesCallback, ctypes.c_void_p],
    "VorexRegisterDoneEvent": [TaskHandle, uint32, DoneCallback, ctypes.c_void_p],
    "VorexRegisterSignalEvent": [TaskHandle, int32, uint32, SignalCallback, ctypes.c_void_p],
    "VorexCreateAIVoltageChan": [TaskHandle, _c_char_p, _c_char_p, int32, float64, float64, int32, _c_char_p],
    "VorexCreateAOVoltageChan": [TaskHandle, _c_char_p, _c_char_p, float64, float64, int32, _c_char_p],
    "VorexCreateDIChan": [TaskHandle, _c_char_p, _c_char_p, int32],
    "VorexCreateDOChan": [TaskHandle, _c_char_p, _c_char_p, int32],
    "VorexCreateCICountEdgesChan": [TaskHandle, _c_char_p, _c_char_p, int32, uint32, int32],
    "VorexCreateCOPulseChanFreq": [TaskHandle, _c_char_p, _c_char_p, int32, int32, float64, float64, float64],
    "VorexSetCICountEdgesTerm": [TaskHandle, _c_char_p, _c_char_p],
    "VorexCfgSampClkTiming": [TaskHandle, _c_char_p, float64, int32, int32, uint64],
    "VorexCfgImplicitTiming": [TaskHandle, int32, uint64],
    "VorexCfgDigEdgeStartTrig": [TaskHandle, _c_char_p, int32],
    "VorexCfgAnlgEdgeStartTrig": [TaskHandle, _c_char_p, int32, float64],
    "VorexCfgAnlgEdgeRefTrig": [TaskHandle, _c_char_p, int32, float64, uint32],
    "VorexReadDigitalScalarU32": [TaskHandle, float64, ctypes.POINTER(uint32), ctypes.c_void_p],
    "VorexWriteDigitalScalarU32": [TaskHandle, int32, float64, uint32, ctypes.c_void_p],
    "VorexReadCounterScalarU32": [TaskHandle, float64, ctypes.POINTER(uint32), ctypes.c_void_p],
    "VorexSaveTask": [TaskHandle, _c_char_p, _c_char_p, uint32],
}


class _Functions:
    """The library's functions, typed on first use; a function the library lacks raises
    AttributeError when it is first called for."""

    def __init__(self, library):
        self._library = library

    def __getattr__(self, name):
        function = getattr(self._library, name)
        function.restype = int32
        if name in _SIGNATURES:
            function.argtypes = _SIGNATURES[name]
        setattr(self, name, function)
        return function


_functions = None


def functions():
    """The typed functions of the loaded library; loads it on first use."""
    global _functions
    if _functions is None:
        _functions = _Functions(_library.load())
    return _functions
