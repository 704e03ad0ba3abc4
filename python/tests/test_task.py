"""The Python package against the simulated device SimDev1: channels, timing, reads into NumPy
arrays the driver fills in place, callbacks, digital and counter I/O, saved tasks and errors."""
import threading

import numpy
import pytest

import zqcai
from zqcai import Val


def test_a_finite_read_gives_each_channel_its_signal():
    with zqcai.Task() as task:
        task.add_ai_voltage("SimDev1/ai0:3")
        task.timing(rate=1000, samples=500)
        task.start()
        data = task.read(500)
        assert task.channels == ["SimDev1/ai0", "SimDev1/ai1", "SimDev1/ai2", "SimDev1/ai3"]
    assert data.shape == (4, 500)
    # The inputs carry sines of rising amplitude: 1 V on ai0, 0.5 V more on each next input.
    peaks = numpy.abs(data).max(axis=1)
    assert peaks == pytest.approx([1.0, 1.5, 2.0, 2.5], abs=0.05)


def test_a_read_fills_the_callers_array_without_a_copy():
    out = numpy.full((2, 300), numpy.nan)
    with zqcai.Task() as task:
        task.add_ai_voltage("SimDev1/ai0:1")
        task.timing(rate=1000, samples=300)
        task.start()
        data = task.read(300, out=out)
    assert numpy.shares_memory(data, out)
    assert not numpy.isnan(out).any()


def test_a_read_of_fewer_samples_than_the_array_holds_gives_what_was_read():
    out = numpy.zeros((1, 100))
    with zqcai.Task() as task:
        task.add_ai_voltage("SimDev1/ai0")
        task.timing(rate=1000, samples=40)
        task.start()
        assert task.read(40, out=out).shape == (1, 40)


def test_every_n_samples_and_done_callbacks_come_in_order():
    seen, done = [], threading.Event()
    with zqcai.Task() as task:
        task.add_ai_voltage("SimDev1/ai0")
        task.timing(rate=1000, samples=400)
        task.on_every_n_samples(100, lambda t, n: seen.append(t.read(n).shape[1]))
        task.on_done(lambda t, status: done.set())
        task.start()
        assert done.wait(60), "the done callback never came"
    assert seen == [100, 100, 100, 100]


def test_digital_lines_written_are_read_back():
    with zqcai.Task() as output, zqcai.Task() as input_:
        output.add_do("SimDev1/port0/line0:7")
        input_.add_di("SimDev1/port0/line0:7")
        output.write_digital(0x5A)
        assert input_.read_digital() == 0x5A


def test_a_counter_counts_the_pulses_of_another():
    with zqcai.Task() as pulses, zqcai.Task() as counter:
        counter.add_ci_count_edges("SimDev1/ctr0", terminal="/SimDev1/Ctr1InternalOutput")
        pulses.add_co_pulse("SimDev1/ctr1", frequency=1000)
        pulses.implicit_timing(1000)
        counter.start()
        pulses.start()
        first = counter.read_count()
        later = first
        for _ in range(2000):
            later = counter.read_count()
            if later > first:
                break
    assert later > first


def test_a_saved_task_loads_with_its_channels():
    with zqcai.Task() as task:
        task.add_ai_voltage("SimDev1/ai2:3")
        task.save("PythonSavedTask")
    with zqcai.Task.load("PythonSavedTask") as loaded:
        assert loaded.channels == ["SimDev1/ai2", "SimDev1/ai3"]


def test_a_failure_carries_its_code_and_the_drivers_text():
    with zqcai.Task() as task:
        with pytest.raises(zqcai.DriverError) as failure:
            task.add_ai_voltage("SimDev1/ai99")
    assert failure.value.code < 0
    assert "SimDev1/ai99" in failure.value.message
    assert zqcai.error_text(failure.value.code)


def test_a_read_that_times_out_raises():
    with zqcai.Task() as task:
        task.add_ai_voltage("SimDev1/ai0")
        task.timing(rate=10, samples=1000, continuous=True)
        task.start()
        with pytest.raises(zqcai.DriverError) as failure:
            task.read(1000, timeout=0.01)
    assert failure.value.code < 0


def test_values_are_those_of_the_header():
    assert (Val.Volts, Val.Rising, Val.ContSamps, Val.Cfg_Default) == (10348, 10280, 10123, -1)


def test_a_library_that_cannot_be_found_names_every_place_looked_at(tmp_path):
    places = [str(tmp_path / "nothing.so"), str(tmp_path / "neither.so")]
    with pytest.raises(zqcai.LibraryNotFoundError) as failure:
        zqcai._library.load(places)
    for place in places:
        assert place in str(failure.value)
