"""Ratings per second through arrays of the Python package, beside the same calls of the C interface
by hand: ./run python bench/python_series.py [--count N]

By one thread in processor time, so that other work on the machine does not count; at the end two
threads against one by the clock.
"""

import argparse
import ctypes
import json
import pathlib
import time

import numpy as np

import zel
from zel import _names

ROOT = pathlib.Path(__file__).resolve().parents[1]
LIBRARY = ctypes.CDLL(str(pathlib.Path(zel.__file__).resolve().parents[2] / "lib/libzel.so"))
for function in ("zel_case_new", "zel_options_new"):
    getattr(LIBRARY, function).restype = ctypes.c_void_p


class Strided(ctypes.Structure):
    _fields_ = [("first", ctypes.c_void_p), ("stride", ctypes.c_ssize_t)]


class Column(ctypes.Structure):
    _fields_ = [("name", ctypes.c_char_p), ("first", ctypes.c_void_p), ("stride", ctypes.c_ssize_t)]


def by_hand(case, method, columns, given):
    """A function that makes the same call of the C interface as zel.rate, into the same memory."""
    it = ctypes.c_void_p(LIBRARY.zel_case_new(0))
    LIBRARY.zel_case_read_json(it, json.dumps(case).encode())
    options = ctypes.c_void_p(LIBRARY.zel_options_new())
    LIBRARY.zel_options_threads(options, 1)
    LIBRARY.zel_options_given(options, _names.GIVEN[given])
    count = len(next(iter(columns.values())))
    taken = (Column * len(columns))(
        *(Column(name.encode(), a.ctypes.data, 8) for name, a in columns.items()))
    numbers = [np.empty(count) for _ in range(4)]
    code = np.empty(count, np.int32)
    out = (Strided * 5)(*(Strided(a.ctypes.data, a.itemsize) for a in (*numbers, code)))

    def call():
        status = LIBRARY.zel_rate_steady(it, options, _names.METHODS[method], taken,
                                         ctypes.c_size_t(len(columns)), ctypes.c_size_t(count), out)
        assert status == 0 and len(code) == count  # and the memory lives on
        return numbers[0]

    return call


def best(call, clock, rounds=7):
    times = []
    for _ in range(rounds):
        started = clock()
        call()
        times.append(clock() - started)
    return min(times)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--count", type=int, default=100_000)
    count = parser.parse_args().count
    random = np.random.default_rng(1)
    weather = {
        "wind_speed": random.uniform(0.5, 5.5, count),
        "wind_from_direction": random.uniform(0, 360, count),
        "air_temperature": random.uniform(-5, 35, count),
        "global_radiation": random.uniform(0, 900, count),
    }
    line = json.loads((ROOT / "examples/380kV-twin-264-34.json").read_text())
    tube = json.loads((ROOT / "examples/tube-120x8.json").read_text())
    table = {**line, "ACDC_R_Option_Merker_db": 2, "ACR_Frequenz_Remox_db": 50, "ACR1_db": 0.11,
             "TACR1_db": 20, "ACR2_db": 0.14, "TACR2_db": 90}  # fmt: skip
    three = {**line, "DrahtzahlLeiter_db": 54, "DrahtlagenzahlLeiter_db": 3}
    cases = [
        ("TB601", "skin effect", line), ("TB601", "AC table", table),
        ("TB207", "2 layers", line), ("TB207", "3 layers", three),
        ("TBB", "tube", tube), ("Webs", "", line), ("Kirn", "", line),
    ]  # fmt: skip
    print("method  conductor    sought        C interface/s   Python arrays/s   overhead")
    for method, kind, case in cases:
        for given, extra in (("temperature", {}), ("current", {"conductor_current": 600})):
            direct = by_hand({**case, **{"Stromstaerke_db": 600}}, method, weather, given)

            def through_python():
                rated = zel.rate(case, methods=method, given=given, threads=1, **weather, **extra)
                return rated.current

            assert np.array_equal(direct(), through_python(), equal_nan=True)
            c = best(direct, time.process_time)
            python = best(through_python, time.process_time)
            sought = "current" if given == "temperature" else "temperature"
            print(f"{method:7} {kind:12} {sought:12} {count / c:12.0f} {count / python:17.0f}"
                  f" {100 * (python / c - 1):10.1f} %", flush=True)  # fmt: skip
    one, two = (best(lambda: zel.rate(line, methods="TB601", threads=n, **weather), time.monotonic)
                for n in (1, 2))  # fmt: skip
    print(f"two threads against one: {one / two:.2f} times as fast")


if __name__ == "__main__":
    main()
