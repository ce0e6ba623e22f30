"""Temporary ratings, changes of state and short circuits."""

import json
import subprocess

import numpy as np
import pandas as pd
import pytest

import zel

TWIN = "examples/transient-twin-264-34.json"
KINDS = {"current": 1, "temperature": 2, "duration": 3}


def told(program, command, case):
    run = subprocess.run([program, command, "-", "--json"], input=json.dumps(case), text=True,
                         capture_output=True, check=True)
    return json.loads(run.stdout)


def test_changes_of_state_equal_the_terminal(program, root):
    case = json.loads((root / TWIN).read_text())
    rows = told(program, "transient", case)["rows"]
    changes = zel.transient(case, method="TB207", changes=[
        {"current": 1800, "duration": 600}, {"current": 600, "temperature": 65},
        {"temperature": 80, "duration": 1800}])  # fmt: skip
    assert [change.sought for change in changes] == ["temperature", "duration", "current"]
    for change, row in zip(changes, rows):
        assert (change.code, change.current) == (0, 2 * row["Strom_A"])
        assert change.temperature == row["Temp_C"]
        assert change.duration == 60 * row["Min"] + row["Sec"]


def test_arrays_of_changes(root):
    durations = pd.Series([300.0, 600, np.nan, 4000], index=list("abcd"))
    changes = zel.transient(root / TWIN, method="TB207",
                            changes=[{"temperature": 80, "duration": durations}])  # fmt: skip
    safe = changes[0]
    assert safe.code.tolist() == [0, 0, 1, 2] and list(safe.current.index) == list("abcd")
    assert safe.current["a"] > safe.current["b"] > 800 and np.isnan(safe.current["c"])
    single = zel.transient(root / TWIN, method="TB207",
                           changes=[{"temperature": 80, "duration": 600}])  # fmt: skip
    assert single[0].current == safe.current["b"]
    table = safe.to_pandas()
    assert list(table) == ["current", "temperature", "duration", "code"]
    with pytest.raises(zel.RatingError, match="change 1: 1 of 4 missing_input, first at 2"):
        zel.transient(root / TWIN, method="TB207", errors="raise",
                      changes=[{"temperature": 80, "duration": durations}])  # fmt: skip


@pytest.mark.parametrize("changes, told", [
    ([], "1 to 6"), ([{"current": 1}], "two of"), ([{"current": 1, "time": 1}], "two of"),
    ([{"current": 1, "duration": 1}] * 7, "1 to 6"), ([{"current": "x", "duration": 1}], "numbers"),
])  # fmt: skip
def test_wrong_changes_are_told(root, changes, told):
    with pytest.raises(zel.InputError, match=told):
        zel.transient(root / TWIN, changes=changes)


def test_temporary_ratings_fall_with_duration_and_preload(line):
    found = zel.tatl(line, duration=np.array([300, 900, np.nan])[:, None], preload_percent=[40, 80])
    assert found.tatl_code.tolist() == [[0, 0], [0, 0], [1, 1]]
    assert np.all(found.tatl[0] > found.tatl[1]) and np.all(found.tatl[:2, 0] > found.tatl[:2, 1])
    assert np.all(found.tatl[:2] > found.patl[:2])
    assert found.patl[0, 0] == zel.rate(line, methods="TB601").current
    assert set(found.codes) == {"ok", "missing_input"} and found.codes["ok"].first == (0, 0)
    with pytest.raises(zel.RatingError, match="tatl: 1 of 1 missing_input"):
        zel.tatl(line, duration=np.nan, errors="raise")


@pytest.mark.parametrize("name", ["short-circuit-264-34", "short-circuit-circuit-breaker"])
def test_short_circuits_equal_the_terminal(program, root, name):
    path = root / f"examples/{name}.json"
    expected = told(program, "short-circuit", json.loads(path.read_text()))
    found = zel.short_circuit(path)
    assert found.code == 0 and len(found) == 17
    for quantity, value in found.items():
        assert value == (expected[quantity] or 0), quantity


def test_arrays_of_short_circuits(root):
    path = root / "examples/short-circuit-264-34.json"
    found = zel.short_circuit(path, initial_current=[20, 31.5, np.nan])
    assert found["I_th"][1] == zel.short_circuit(path)["I_th"] > found["I_th"][0]
    assert found.code.tolist() == [0, 0, 1] and np.isnan(found["S_th"][2])
    assert list(found.to_pandas())[:2] == ["I_th", "T_k"]
    with pytest.raises(zel.RatingError, match="missing_input"):
        zel.short_circuit(path, IK2=np.nan, errors="raise")
