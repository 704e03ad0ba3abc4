"""What a task measures or generates, and when: channels, sample timing and triggers. Mixed into
Task; every method raises DriverError as the driver refuses."""
from ._values import Val


def _text(value):
    return (value or "").encode("utf-8")


class Configuration:
    """Channel, timing and trigger methods of a Task (``self._call(name, *args)`` runs a function
    on the task's handle)."""

    def add_ai_voltage(self, channels, min_val=-10.0, max_val=10.0, terminal=Val.Cfg_Default, name=""):
        """Analog input voltage channels, e.g. ``"SimDev1/ai0:3"``."""
        self._call("VorexCreateAIVoltageChan", _text(channels), _text(name), terminal, min_val, max_val, Val.Volts,
                   None)

    def add_ao_voltage(self, channels, min_val=-10.0, max_val=10.0, name=""):
        """Analog output voltage channels, e.g. ``"SimDev1/ao0"``."""
        self._call("VorexCreateAOVoltageChan", _text(channels), _text(name), min_val, max_val, Val.Volts, None)

    def add_di(self, lines, name="", one_channel_for_all=True):
        """Digital input lines, e.g. ``"SimDev1/port0/line0:7"``."""
        grouping = Val.ChanForAllLines if one_channel_for_all else Val.ChanPerLine
        self._call("VorexCreateDIChan", _text(lines), _text(name), grouping)

    def add_do(self, lines, name="", one_channel_for_all=True):
        """Digital output lines, e.g. ``"SimDev1/port0/line0:7"``."""
        grouping = Val.ChanForAllLines if one_channel_for_all else Val.ChanPerLine
        self._call("VorexCreateDOChan", _text(lines), _text(name), grouping)

    def add_ci_count_edges(self, counter, terminal=None, edge=Val.Rising, initial=0, up=True, name=""):
        """A counter input counting edges, of ``terminal`` when given."""
        self._call("VorexCreateCICountEdgesChan", _text(counter), _text(name), edge, initial,
                   Val.CountUp if up else Val.CountDown)
        if terminal:
            self._call("VorexSetCICountEdgesTerm", b"", _text(terminal))

    def add_co_pulse(self, counter, frequency, duty_cycle=0.5, idle=Val.Low, delay=0.0, name=""):
        """A counter output generating pulses at ``frequency`` Hz."""
        self._call("VorexCreateCOPulseChanFreq", _text(counter), _text(name), Val.Hz, idle, delay, frequency,
                   duty_cycle)

    def timing(self, rate, samples, continuous=False, source="", edge=Val.Rising):
        """The sample clock: ``samples`` per channel (the buffer's size when continuous)."""
        mode = Val.ContSamps if continuous else Val.FiniteSamps
        self._call("VorexCfgSampClkTiming", _text(source), rate, edge, mode, samples)

    def implicit_timing(self, samples, continuous=True):
        """Timing by the channel itself, as a counter output's pulses."""
        self._call("VorexCfgImplicitTiming", Val.ContSamps if continuous else Val.FiniteSamps, samples)

    def start_on_digital_edge(self, source, edge=Val.Rising):
        self._call("VorexCfgDigEdgeStartTrig", _text(source), edge)

    def start_on_analog_edge(self, source, level, slope=Val.Rising):
        self._call("VorexCfgAnlgEdgeStartTrig", _text(source), slope, level)

    def reference_on_analog_edge(self, source, level, pretrigger_samples, slope=Val.Rising):
        """A reference trigger: the finite acquisition keeps ``pretrigger_samples`` before it."""
        self._call("VorexCfgAnlgEdgeRefTrig", _text(source), slope, level, pretrigger_samples)
