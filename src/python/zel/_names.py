"""Names of inputs, codes and conductors."""

from __future__ import annotations

import difflib
import functools
import math
from typing import Iterable, NamedTuple, Sequence

from . import _zel
from ._errors import InputError

AREAS = {"line": 0, "short_circuit": 1}
METHODS = {"TB601": 0, "TB207": 1, "TBB": 2, "Webs": 3, "Kirn": 4}
GIVEN = {None: 0, "temperature": 1, "current": 2, "bundle_current": 3}
# What tables call so.
ALIASES = {"ghi": "global_radiation", "u": "wind_u", "v": "wind_v"}
RADIATIONS = {None: 0, "horizontal": 1, "conductor": 2}
KINDS = ("number", "whole_number", "text", "flag", "derived")


class Input(NamedTuple):
    """What a keyword takes: a number in `unit` from `low` to `high`, a text or a flag."""

    name: str
    field: str  # as in case files; empty where the input stands for several
    unit: str
    low: float
    high: float
    kind: str  # one of KINDS
    about: str
    about_german: str


class Code(NamedTuple):
    """What stands beside each number. Below 0 the number stands and something is to be said of
    it, 0 is a sound number, above 0 there is none."""

    code: int
    name: str
    text: str
    text_german: str


# How the inputs of changes of state begin.
CHANGES_OF_STATE = ("change_", *(f"Z{row}_" for row in range(1, 7)))

# Wind as weather models give it; they become speed and direction here.
_WIND_VECTOR = (
    Input("wind_u", "", "m/s", -math.inf, math.inf, "derived",
          "wind towards the east, beside wind_v", "Wind nach Osten, neben wind_v"),
    Input("wind_v", "", "m/s", -math.inf, math.inf, "derived",
          "wind towards the north, beside wind_u", "Wind nach Norden, neben wind_u"),
)  # fmt: skip


def choice(what: str, value: object, among: dict[str, int] | dict[str | None, int]) -> int:
    """The number of `value`, which has to be one of `among`."""
    for name, number in among.items():
        if name == value:
            return number
    names = ", ".join(repr(name) for name in among if name)
    raise InputError(f"{what}: {value!r} is none of {names}")


@functools.lru_cache(maxsize=None)
def inputs(area: str = "line") -> tuple[Input, ...]:
    """The inputs of a rating (`area="line"`) or of a short circuit (`area="short_circuit"`)."""
    rows = _zel.inputs(choice("area", area, AREAS))
    own = tuple(Input(*row[:5], KINDS[row[5]], *row[6:]) for row in rows)
    return own + _WIND_VECTOR if area == "line" else own


@functools.lru_cache(maxsize=None)
def codes() -> tuple[Code, ...]:
    """All codes. Their numbers and names never change."""
    return tuple(Code(*row) for row in _zel.codes())


def conductors() -> tuple[str, ...]:
    """The conductors and tubes of the library and the user's own; `conductor=` takes each by one of
    its designations, or by both."""
    return tuple(_zel.conductors())


def unit_and_range(row: Input) -> str:
    """`m/s, 0 to 80: `, as far as there is one."""
    low = "" if math.isinf(row.low) else f"{row.low:g}"
    high = "" if math.isinf(row.high) else f"{row.high:g}"
    span = f"{low} to {high}" if low and high else f"at least {low}" * bool(low)
    parts = [part for part in (row.unit, span or f"at most {high}" * bool(high)) if part]
    return ", ".join(parts) + ": " if parts else ""


def keywords_of_a_rating() -> list[Input]:
    """Those with a name in plain English; changes of state and durations have functions."""
    elsewhere = ("change_", "duration", "preload_percent")
    return [
        row for row in inputs() if row.name != row.field and not row.name.startswith(elsewhere)
    ]


def refuse_idle(given: Iterable[str], beginnings: tuple[str, ...], function: str) -> None:
    """Inputs that would have no effect."""
    for name in given:
        if name.startswith(beginnings):
            raise InputError(f"{name} has no effect in {function}")


def described(text: str, rows: Sequence[Input]) -> str:
    """A docstring with the table of its keywords."""
    lines = [f"    {row.name}: {unit_and_range(row)}{row.about}" for row in rows]
    return f"{text.rstrip()}\n\n    Inputs:\n" + "\n".join("    " + line for line in lines)


@functools.lru_cache(maxsize=None)
def _by_name(area: str) -> dict[str, Input]:
    return {name: each for each in inputs(area) for name in (each.field, each.name) if name}


def field_of(area: str, name: str) -> str:
    """The field that an input sets, or the name itself."""
    known = _by_name(area).get(name)
    return known.field or name if known else name


def find(area: str, name: str) -> Input | None:
    """The input by its name or its field; None for a cell of a change of state (`Z1_TEMP_db`)."""
    known = _by_name(area)
    if name in known:
        return known[name]
    if area == "line" and name[:1] == "Z" and name[1:2].isdigit():
        return None
    near = difflib.get_close_matches(name, known, n=1)
    hint = f"; is it {near[0]}?" if near else "; zel.inputs() tells all"
    raise InputError(f"no input is called {name}{hint}", f"keine Eingabe heißt {name}")
