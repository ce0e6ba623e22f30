"""Kinds of inputs, and what becomes of them."""

import datetime
import pickle
import signal
import subprocess
import sys

import numpy as np
import pandas as pd
import pytest
import xarray as xr

import zel

WINDS = [0.6, 1.0, 2.0]
HOURS = pd.date_range("2026-01-15 06:00", periods=3, freq="h")


def currents(line, **inputs):
    return zel.rate(line, methods="Webs", **inputs).current


@pytest.fixture(scope="module")
def expected(line):
    return [currents(line, wind_speed=wind) for wind in WINDS]


def test_scalars_give_scalars(expected, line):
    assert all(type(current) is float for current in expected)
    assert expected == sorted(expected)
    assert type(zel.rate(line, methods="Webs").code) is int
    assert currents(line, wind_speed=np.float32(2)) == expected[2]


@pytest.mark.parametrize("kind", [
    list, tuple, np.array, lambda v: np.repeat(v, 2)[::2], lambda v: np.array(v[::-1])[::-1],
    lambda v: np.array(v, dtype=">f8"), lambda v: np.ma.array(v),
    lambda v: np.array([(0, w) for w in v], dtype=[("a", "i1"), ("w", "f8")])["w"],
    lambda v: np.array(v, dtype=object),
])  # fmt: skip
def test_any_memory_is_an_array(line, expected, kind):
    found = currents(line, wind_speed=kind(WINDS))
    assert type(found) is np.ndarray
    assert found.tolist() == expected


def test_lengths_0_and_1(line, expected):
    assert currents(line, wind_speed=[]).shape == (0,)
    assert currents(line, wind_speed=[WINDS[0]]).tolist() == expected[:1]
    assert currents(line, wind_speed=np.empty((0, 4))).shape == (0, 4)


def test_shapes_are_broadcast(line):
    air = np.array([0.0, 20, 40])
    table = currents(line, wind_speed=np.array(WINDS)[:, None, None], air_temperature=air)
    assert table.shape == (3, 1, 3)
    for i, wind in enumerate(WINDS):
        for k, t in enumerate(air):
            assert table[i, 0, k] == currents(line, wind_speed=wind, air_temperature=t)
    with pytest.raises(zel.InputError, match="do not fit: wind_speed .3,., air_temperature .2,."):
        currents(line, wind_speed=WINDS, air_temperature=air[:2])


def test_masked_and_missing_are_missing_inputs(line):
    winds = np.ma.array([0.6, 1, 2], mask=[False, True, False])
    for missing in (winds, [0.6, None, 2], pd.Series([0.6, None, 2], dtype="Float64"), [0.6, np.nan, 2]):
        rating = zel.rate(line, methods="Webs", wind_speed=missing)
        assert np.asarray(rating.code).tolist() == [0, 1, 0]
        assert np.isnan(rating.current[1]) and np.isnan(rating.temperature[1])
    infinite = zel.rate(line, methods="Webs", wind_speed=np.inf)
    assert infinite.codes.keys() == {"outside_limits"} and np.isnan(infinite.current)


@pytest.mark.parametrize("times", [
    np.ma.array(HOURS.to_numpy(), mask=[0, 1, 0]), [HOURS[0], None, HOURS[2]],
    pd.Series([HOURS[0].to_pydatetime(), None, HOURS[2].to_pydatetime()], dtype=object),
    [HOURS[0].timestamp(), None, HOURS[2].timestamp()],
])  # fmt: skip
def test_masked_and_missing_times_are_missing_inputs(line, times):
    assert zel.rate(line, methods="Webs", time=times, longitude=10).code.tolist() == [0, 1, 0]


def test_marks_of_missing_values_and_currents_out_of_reach_are_never_rated(line):
    for inputs in ({"air_temperature": -999}, {"ground_temperature": -99.9}, {"ghi": -999}):
        assert zel.rate(line, methods="Kirn", **inputs).code == 2
    for current, name in ((9e4, "temperature_too_high"), (-500, "outside_limits")):
        for method in ("Webs", "Kirn"):
            rated = zel.rate(line, methods=method, conductor_current=[500, current])
            assert list(rated.codes) == ["ok", name]
            assert np.isnan(rated.temperature[1])


def test_radiation_on_level_ground_needs_place_and_time(line):
    def rating(**inputs):
        return zel.rate(line, methods="TB207", ghi=[0, 96], radiation="horizontal", **inputs)

    here = {"latitude": 51, "longitude": 10}
    dark, low = rating(time="2026-01-15T08:30Z", **here).current
    meets = zel.rate(line, methods="TB207", ghi=96 / np.sin(np.radians(10)), **here).current
    assert dark > low == pytest.approx(meets, rel=1e-9)
    nowhere = {**line, "geogr_Breite_db": None}
    with pytest.raises(zel.RatingError, match="it needs latitude, longitude and time"):
        zel.rate(nowhere, methods="TB207", ghi=96, radiation="horizontal", errors="raise")
    assert rating(**here, time=[0, 1e9]).codes["ok"].count == 2


def test_pandas_comes_back_with_its_index(line, expected):
    found = currents(line, wind_speed=pd.Series(WINDS, HOURS))
    assert found.index.equals(HOURS) and found.tolist() == expected
    table = zel.rate(line, wind_speed=pd.Series(WINDS, HOURS)).to_pandas()
    assert table["Webs", "current"].tolist() == expected
    assert currents(line, time=HOURS).index.equals(HOURS)
    with pytest.raises(zel.InputError, match="index"):
        currents(line, wind_speed=pd.Series(WINDS, HOURS), air_temperature=pd.Series([1, 2, 3]))
    with pytest.raises(zel.InputError, match="along their index"):
        currents(line, wind_speed=pd.Series(WINDS), air_temperature=np.zeros((2, 3)))
    with pytest.raises(zel.InputError, match="DataFrame"):
        currents(line, wind_speed=pd.DataFrame({"wind": WINDS}))


def test_xarray_comes_back_with_dimensions_and_coordinates(line, expected):
    wind = xr.DataArray(WINDS, dims="time", coords={"time": HOURS})
    azimuth = xr.DataArray([0.0, 45.0], dims="line", coords={"line": ["a", "b"]})
    found = currents(line, wind_speed=wind, line_azimuth=azimuth)
    assert found.dims == ("time", "line") and found.sel(line="a").values.tolist() == expected
    assert found.time.equals(wind.time)
    other = wind.assign_coords(time=HOURS + pd.Timedelta("1h"))
    with pytest.raises(zel.InputError, match="coordinates"):
        currents(line, wind_speed=wind, air_temperature=other)
    with pytest.raises(zel.InputError, match="do not go together"):
        currents(line, wind_speed=wind, air_temperature=pd.Series([1, 2, 3]))


@pytest.mark.parametrize("moment", [
    "2026-06-21T12:20", "2026-06-21T14:20+02:00", datetime.datetime(2026, 6, 21, 12, 20),
    np.datetime64("2026-06-21T12:20"), pd.Timestamp("2026-06-21 14:20", tz="Europe/Berlin"),
    1782044400,
])  # fmt: skip
def test_times_without_a_zone_are_utc(line, moment):
    found = zel.rate(line, methods="Webs", time=moment, longitude=10)
    fields = zel.rate(line, methods="Webs", day=21, month=6, hour=12, minute=20,
                      zone_longitude_west=0, summer_time=2)
    assert found.current == fields.current
    twice = zel.rate(line, methods="Webs", time=[moment, moment], longitude=10)
    assert found.current == twice.current[1]


def test_series_of_times_with_a_zone(line):
    berlin = HOURS.tz_localize("UTC").tz_convert("Europe/Berlin")
    noon = currents(line, time=HOURS)
    assert np.array_equal(currents(line, time=pd.Series(berlin, HOURS)), noon)
    assert np.array_equal(currents(line, time=berlin), noon)
    nothing = np.array(["NaT"], dtype="M8[s]")
    assert zel.rate(line, methods="Webs", time=nothing).code.tolist() == [1]


def test_east_is_positive_and_fields_keep_their_sign(line):
    morning = "2026-01-15T10:00"
    east = currents(line, time=morning, longitude=10)
    assert east == currents(line, time=morning, geo_laeng_db=-10)
    assert east < currents(line, time=morning, longitude=-10)  # where the sun is lower


def test_turned_and_mirrored_wind_changes_nothing(line):
    def rated(**wind):
        return zel.rate(line, methods=["TB207", "Kirn"], line_azimuth=30, **wind)

    directions = np.linspace(-180, 180, 73)
    rating = rated(wind_from_direction=directions)
    angles = rating["TB207"].wind_angle
    assert 0 <= angles.min() and angles.max() <= 90
    for other in (rated(wind_from_direction=directions + 180), rated(wind_angle=angles),
                  rated(wind_from_direction=60 - directions)):  # fmt: skip
        legal = other["TB207"].code == 0  # directions beyond a whole turn are refused
        assert legal.sum() > 50
        for method in rating:
            assert np.array_equal(other[method].current[legal], rating[method].current[legal])


def test_folded_angles_of_cases_are_marked(line):
    for method in ("TB601", "Webs"):
        across = zel.rate(line, methods=method, line_azimuth=0, wind_angle=90).current
        folded = zel.rate(line, methods=method, line_azimuth=0, wind_angle_to_north=[90, 180, 45])
        assert list(folded.codes) == ["wind_folded", "ok"] and folded.code[1] == -5
        assert folded.current[1] == across
        true = zel.rate(line, methods=method, line_azimuth=0, wind_from_direction=[90, 180])
        assert true.code.tolist() == [0, 0] and true.current[1] < across


def test_wind_by_its_parts(line):
    # from the west, the north-east, and calm
    found = zel.rate(line, methods="TB207", line_azimuth=0, wind_u=[2, -1, 0], wind_v=[0, -1, 0])
    assert found.wind_angle[:2].tolist() == [90, 45]
    speeds = zel.rate(line, methods="TB207", line_azimuth=0, wind_speed=[2, np.hypot(1, 1), 0],
                      wind_from_direction=[270, 45, 0])
    assert np.array_equal(found.current, speeds.current)
    with pytest.raises(zel.InputError, match="go together"):
        zel.rate(line, wind_u=1)
    with pytest.raises(zel.InputError, match="already"):
        zel.rate(line, wind_u=1, wind_v=1, wind_speed=1)


@pytest.mark.parametrize("inputs, told", [
    ({"windspeed": 1}, "is it wind_speed"), ({"wind_speed": "calm"}, "takes numbers"),
    ({"wind_speed": 1, "Windgeschwindigkeit_db": 2}, "another column"),
    ({"wind_speed": [True]}, "takes numbers"), ({"designation": 3}, "takes a text"),
    ({"methods": "TB600"}, "'TB600' is none of 'TB601'"), ({"methods": []}, "names none"),
    ({"conductor": "no such"}, "no such"), ({"threads": 0}, "threads"),
    ({"errors": "no"}, "errors"), ({"threads": 2.5}, "threads"), ({"methods": 5}, "takes names"),
    ({"duration": 3}, "no effect"), ({"Z1_TEMP_db": 3}, "no effect"),
    ({"ghi": 1, "global_radiation": 2}, "same input"), ({"wind_speed": [10**400]}, "takes numbers"),
    ({"wind_speed": pd.Series(["1", "2"])}, "takes numbers"), ({"conductor": 5}, "takes a name"),
    ({"time": "noon"}, "ISO 8601"), ({"time": True}, "takes numbers"),
    ({"conductor_temperature": 80, "conductor_current": 600}, "given= says"),
    ({"methods": ["TB601", "Webs"], "ghi": 5}, "says what it is"),
    ({"ghi": 5, "radiation": "flat"}, "radiation: 'flat' is none of"),
])  # fmt: skip
def test_wrong_inputs_are_told(line, inputs, told):
    with pytest.raises(zel.InputError, match=told):
        zel.rate(line, **inputs)
    with pytest.raises(ValueError):
        zel.rate(line, **inputs)


def test_a_case_is_a_file_or_its_content(root, line):
    path = root / "examples/380kV-twin-264-34.json"
    assert zel.rate(path)["TB601"] == zel.rate(str(path))["TB601"] == zel.rate(line)["TB601"]
    assert zel.rate({**line, "Leitertemp_db": None})["Webs"].code == 1
    with pytest.raises(zel.InputError, match="the same input"):
        zel.rate({**line, "wind_speed": np.nan})
    with pytest.raises(zel.InputError, match="no field"):
        zel.rate({**line, "x": 1})
    with pytest.raises(zel.InputError, match="keywords"):
        zel.rate({"wind_speed": [1, 2]})
    with pytest.raises(zel.InputError, match="/no/file"):
        zel.rate("/no/file")


def test_what_is_given_follows_the_keywords(line):
    bundle = zel.rate(line, methods="TB207", bundle_current=1200)
    single = zel.rate(line, methods="TB207", conductor_current=600)
    assert bundle.temperature == single.temperature and bundle.current == 1200
    back = zel.rate(line, methods="TB207", conductor_temperature=bundle.temperature)
    assert back.current == pytest.approx(1200, abs=0.5)


def test_failed_elements_are_told_by_code_or_raised(line):
    inputs = {"methods": ["TB601", "Webs"], "wind_speed": [[0.6, -1], [np.nan, -1]]}
    counts = zel.rate(line, **inputs)["Webs"].codes
    assert {name: (c.count, c.first) for name, c in counts.items()} == {
        "ok": (1, (0, 0)), "missing_input": (1, (1, 0)), "outside_limits": (2, (0, 1))}
    with pytest.raises(zel.RatingError) as raised:
        zel.rate(line, errors="raise", **inputs)
    assert "TB601: 2 of 4 outside_limits, first at (0, 1)" in str(raised.value)
    assert "wind_speed: an input is missing" in str(raised.value)
    assert raised.value.codes["Webs"] == counts
    copied = pickle.loads(pickle.dumps(raised.value))
    assert str(copied) == str(raised.value) and copied.codes == raised.value.codes
    assert zel.rate(line, errors="raise", methods="Webs").code == 0


def test_names():
    known = {each.name: each for each in zel.inputs()}
    assert (known["wind_speed"].field, known["wind_speed"].high) == ("Windgeschwindigkeit_db", 80)
    assert "wind_speed: m/s, 0 to 80: Wind speed" in zel.rate.__doc__
    assert {each.kind for each in known.values()} >= {"number", "whole_number", "text", "derived"}
    assert all(each.about and each.about_german for each in known.values() if each.unit)
    assert {each.name for each in zel.codes()} > {"ok", "missing_input", "not_converged"}
    assert len(zel.inputs("short_circuit")) > 30 and len(zel.conductors()) > 90


LONG = """
import threading
import numpy as np, zel
threading.Timer(1, lambda: print("at work", flush=True)).start()
zel.rate("examples/380kV-twin-264-34.json", methods="TB601", wind_speed=np.ones(20_000_000))
"""


def test_other_threads_go_on_and_ctrl_c_stops_a_long_series(root):
    run = subprocess.Popen([sys.executable, "-c", LONG], cwd=root, text=True,
                           stdout=subprocess.PIPE, stderr=subprocess.PIPE)  # fmt: skip
    assert run.stdout.readline() == "at work\n"
    run.send_signal(signal.SIGINT)
    assert "KeyboardInterrupt" in run.communicate(timeout=60)[1]
    assert run.returncode == -signal.SIGINT
