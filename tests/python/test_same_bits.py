"""An element of an array has the bits that the terminal program finds for the same case, whatever
stands beside it."""

import functools
import json
import os
import subprocess
from concurrent.futures import ThreadPoolExecutor

import numpy as np
import pytest

import zel

# More with ZEL_RANDOM_CASES=10000.
CASES = int(os.environ.get("ZEL_RANDOM_CASES", "100"))

# Fields and where their numbers lie; some lie outside what is allowed or can be rated.
RANGES = {
    "Windgeschwindigkeit_db": (-0.5, 12),
    "Winkel_W_S_db": (0, 359),
    "Winkel_S_S_db": (0, 360),
    "Umgebungstemperatur_db": (-40, 60),
    "Globalstrahlung_db": (0, 1400),
    "Hoehe_ueber_NN_db": (0, 3000),
    "geogr_Breite_db": (-60, 60),
    "geo_laeng_db": (-20, 20),
    "Monat_db": (1, 12),
    "Stunden_db": (0, 23),
    "Emissionsverhaeltnis_db": (0.1, 1),
    "Absorptionsverhaeltnis_db": (0.1, 1.02),
}
MODES = {
    "temperature": ("Leitertemp_db", (30, 120)),
    "current": ("Stromstaerke_db", (0, 1500)),
}
METHODS = {"line": ["TB601", "TB207", "Webs", "Kirn"], "tube": ["TBB", "Webs", "Kirn"]}
FLAGS = {"TB601": "cigre601", "TB207": "cigre207", "TBB": "TBB", "Webs": "webs", "Kirn": "kirn"}


def drawn(mode, count, seed=7):
    random = np.random.default_rng(seed)
    field, limits = MODES[mode]
    columns = {name: np.round(random.uniform(*between, count), 3)
               for name, between in {**RANGES, field: limits}.items()}
    return {**columns, **{name: np.round(columns[name]) for name in ("Monat_db", "Stunden_db")}}


def steady(program, case):
    """What the terminal says, by method; empty where it refuses the case."""
    run = subprocess.run([program, "steady", "-", "--json"], input=json.dumps(case),
                         capture_output=True, text=True, check=False)
    document = json.loads(run.stdout)
    return {each["method"]: (each, document["angle_deg"]) for each in document.get("methods", [])}


@pytest.mark.parametrize("mode", MODES)
@pytest.mark.parametrize("kind", METHODS)
def test_arrays_equal_the_terminal(program, request, kind, mode):
    base = request.getfixturevalue(kind)
    columns = drawn(mode, max(1, CASES // 4))
    sought = mode == "temperature"
    base = {**base, "Leitertemp_Merker_db": sought, "Stromstaerke_Merker_db": not sought}
    # One method at a time: a case that one refuses is none for the others either.
    for method in METHODS[kind]:
        flags = {f"rechnung_{flag}_merker_db": int(name == method) for name, flag in FLAGS.items()}
        cases = [{**base, **flags, **{name: float(column[i]) for name, column in columns.items()}}
                 for i in range(len(columns["Monat_db"]))]
        with ThreadPoolExecutor(2) as pool:
            told = list(pool.map(lambda case: steady(program, case), cases))
        rating = zel.rate(base, methods=method, **columns)
        for i, document in enumerate(told):
            if method not in document:
                assert rating.code[i] > 0, cases[i]
                continue
            found, angle = document[method]
            # The page shows where the search of Webs and Kirn has ended, found or not.
            missed = method in ("Webs", "Kirn") and not sought and \
                abs(found["current_A"] - cases[i]["Stromstaerke_db"]) > 10
            assert (found["status"] != "" or missed) == (rating.code[i] > 0), (found, rating.code[i])
            if rating.code[i] <= 0:
                assert found["current_A"] == rating.conductor_current[i], cases[i]
                assert found["temperature_C"] == rating.temperature[i], cases[i]
                assert angle == rating.wind_angle[i]


def test_neither_order_nor_threads_nor_neighbours_change_a_bit(line):
    count = 600
    columns = drawn("temperature", count)
    columns["Windgeschwindigkeit_db"][::3] = np.nan
    methods = METHODS["line"]
    rate = functools.partial(zel.rate, line, methods=methods, radiation="conductor")
    usual = rate(threads=1, **columns)
    order = np.random.default_rng(3).permutation(count)
    mixed = {name: column[order] for name, column in columns.items()}
    shuffled = rate(threads=3, **mixed)
    part = rate(**{k: v[100:107] for k, v in columns.items()})
    cut = rate(**{k: v.reshape(20, 30).T for k, v in columns.items()})
    for method in methods:
        rated = usual[method].current
        assert 0 < np.isnan(rated).sum() < count
        assert np.array_equal(usual[method].code > 0, np.isnan(rated))
        assert np.array_equal(shuffled[method].current, rated[order], equal_nan=True)
        assert np.array_equal(part[method].current, rated[100:107], equal_nan=True)
        assert np.array_equal(cut[method].current, rated.reshape(20, 30).T, equal_nan=True)
