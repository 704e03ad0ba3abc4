"""Acquires a second from four analog inputs of SimDev1 and plots them to a PNG file.

    python3 plot_acquisition.py [acquisition.png]
"""
import sys

import matplotlib

matplotlib.use("Agg")  # a file, no window
import matplotlib.pyplot as plt  # noqa: E402
import numpy  # noqa: E402

import zqcai  # noqa: E402

RATE, SAMPLES = 1000.0, 1000


def main(path):
    with zqcai.Task() as task:
        task.add_ai_voltage("SimDev1/ai0:3")
        task.timing(rate=RATE, samples=SAMPLES)
        task.start()
        data = task.read(SAMPLES)
        names = task.channels
    time = numpy.arange(data.shape[1]) / RATE
    figure, axes = plt.subplots(figsize=(9, 4.5))
    for name, samples in zip(names, data):
        axes.plot(time, samples, label=name, linewidth=1)
    axes.set_xlabel("time (s)")
    axes.set_ylabel("voltage (V)")
    axes.set_title(f"{len(names)} channels of SimDev1 at {RATE:g} S/s")
    axes.legend(loc="upper right")
    axes.grid(alpha=0.3)
    figure.tight_layout()
    figure.savefig(path, dpi=100)
    print(f"wrote {path}: {data.shape[1]} samples of {len(names)} channels")


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else "acquisition.png")
