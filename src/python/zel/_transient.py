"""Ratings for a time, and changes of state."""

from __future__ import annotations

import dataclasses
from typing import Any, Iterator, Mapping, Sequence

from . import _zel
from ._call import Call
from ._errors import InputError
from ._names import CHANGES_OF_STATE, METHODS, choice, refuse_idle
from ._results import CodeCount, Result, counts, raise_failed


@dataclasses.dataclass(frozen=True)
class Tatl(Result):
    """Permanent and temporary ratings by TB601."""

    patl: Any  # A, of the bundle
    tatl: Any  # A, of the bundle
    wind_angle: Any  # degrees
    patl_code: Any
    tatl_code: Any

    @property
    def codes(self) -> dict[str, CodeCount]:
        """What occurs among the codes of the temporary ratings, by name."""
        return counts(self.tatl_code)


def tatl(
    case: Any = None,
    *,
    conductor: str | None = None,
    radiation: str | None = None,
    constant_heat_capacity: bool = False,
    threads: int | None = None,
    errors: str = "codes",
    **inputs: Any,
) -> Tatl:
    """Permanent ratings, and those for `duration` seconds (900) that end at the
    conductor_temperature after a preload of `preload_percent` (100) of the permanent one, by Cigre
    TB 601 (2014). All other inputs are those of rate().

    constant_heat_capacity: that at 20 degC at every temperature, instead of one that rises with it.

    Results: patl and tatl (A, of the bundle), patl_code and tatl_code, wind_angle (degrees). A tatl
    below its patl keeps its value and has the code tatl_below_patl. Elements are not compared: that
    one is above that of a shorter time (tatl_rises) is marked in the tables of `zel rate` alone.
    """
    refuse_idle(inputs, CHANGES_OF_STATE, "tatl()")
    call = Call("line", case, conductor, threads, errors, inputs, "temperature", radiation,
                constant_heat_capacity)  # fmt: skip
    arrays = _zel.rate_tatl(call.case, call.options, call.columns, call.shape)
    found = Tatl(*map(call.wrap, arrays))
    if call.raises:
        parts = {"patl": found.patl_code, "tatl": found.tatl_code}
        raise_failed(parts, lambda part, index: call.why(METHODS["TB601"], index))
    return found


@dataclasses.dataclass(frozen=True)
class StateChange(Result):
    """One change of state: two of the three were given, `sought` was found."""

    sought: str = dataclasses.field(metadata={"array": False})
    current: Any  # A, of the bundle
    temperature: Any  # degC, at the end
    duration: Any  # s
    code: Any

    @property
    def codes(self) -> dict[str, CodeCount]:
        """What occurs among the codes, by name."""
        return counts(self.code)


_QUANTITIES = ("current", "temperature", "duration")  # the kinds 1 to 3 of a change seek one each
_MOST_CHANGES = 6


def _columns(changes: Sequence[Mapping[str, Any]]) -> Iterator[tuple[str, Any, str]]:
    """Name and value of each input of the changes, and what its change seeks."""
    if isinstance(changes, Mapping):
        raise InputError("changes: a list of dicts, not one")
    if not 1 <= len(changes) <= _MOST_CHANGES:
        raise InputError(f"changes: there are 1 to {_MOST_CHANGES}, not {len(changes)}")
    for number, change in enumerate(changes, start=1):
        if not isinstance(change, Mapping):
            raise InputError(f"changes: a list of dicts, and {change!r:.60} is none")
        sought = [name for name in _QUANTITIES if name not in change]
        if len(sought) != 1 or len(change) != 2:
            given = ", ".join(change) or "nothing"
            raise InputError(f"change {number}: two of {', '.join(_QUANTITIES)}, not {given}")
        for name, value in change.items():
            yield f"change_{number}_{name}", value, sought[0]


def transient(
    case: Any = None,
    *,
    method: str = "TB601",
    changes: Sequence[Mapping[str, Any]],
    conductor: str | None = None,
    given: str | None = None,
    radiation: str | None = None,
    constant_heat_capacity: bool = False,
    threads: int | None = None,
    errors: str = "codes",
    **inputs: Any,
) -> list[StateChange]:
    """Up to six changes of state, one after the other, from the steady state of the case: by TB601,
    TB207 or TBB. All other inputs are those of rate().

    changes: each a dict of two of current (A, of the bundle), temperature (degC at its end) and
        duration (s, whole, at most 3659); the third is sought.
        So {"current": 1600, "duration": 900} seeks the temperature at its end,
        {"current": 1600, "temperature": 80} the time until 80 degC, and
        {"temperature": 80, "duration": 900} the current that may flow so long. Numbers and arrays
        alike.

    Results: of each change current, temperature, duration and code.
    """
    seeks = {}
    for name, value, sought in _columns(changes):
        seeks[name.split("_")[1]] = sought
        inputs[name] = value
    call = Call("line", case, conductor, threads, errors, inputs, given, radiation,
                constant_heat_capacity)  # fmt: skip
    for number in range(1, _MOST_CHANGES + 1):  # those of the case that are not told end here
        sought = seeks.get(str(number))
        kind = _QUANTITIES.index(sought) + 1 if sought else 0
        call.case.set_number(f"Z{number}_merker_db", kind)
    number = choice("method", method, METHODS)
    arrays = _zel.rate_transient(call.case, number, call.options, call.columns, call.shape)
    found = [
        StateChange(sought, *map(call.wrap, row)) for sought, row in zip(seeks.values(), arrays)
    ]
    if call.raises:
        parts = {f"change {i}": change.code for i, change in enumerate(found, start=1)}
        raise_failed(parts, lambda part, index: call.why(number, index))
    return found
