"""What one call rates: its case, its columns, and the way back of the results."""

from __future__ import annotations

import math
import numbers
import os
from collections.abc import Mapping
from typing import Any

import numpy as np

from . import _arrays, _zel
from ._errors import InputError
from ._names import ALIASES, AREAS, GIVEN, RADIATIONS, choice, field_of, find

# By which keyword what is given; both names of a field count.
_GIVEN_BY = {
    "temperature": {"conductor_temperature", "Leitertemp_db"},
    "current": {"conductor_current", "Stromstaerke_db"},
    "bundle_current": {"bundle_current", "Stromstaerke_Buendel"},
}


_MOST_THREADS = 4096


def _put(case: _zel.Case, name: str, value: Any) -> None:
    """One value of a dict, as a case file holds it. None, NA and NaN are no input."""
    if _arrays.missing(value) or (isinstance(value, numbers.Real) and math.isnan(value)):
        return
    if isinstance(value, (bool, np.bool_)):
        case.set_flag(name, bool(value))
    elif isinstance(value, str):
        case.set_text(name, value)
    elif isinstance(value, numbers.Real):
        try:
            case.set_number(name, float(value))
        except OverflowError:
            raise InputError(f"{name} takes no number as large as {value!r:.60}") from None
    else:
        raise InputError(f"{name}: a case holds numbers, texts and flags; arrays are keywords")


def _case(area: str, case: Any, conductor: str | None) -> _zel.Case:
    made = _zel.Case(AREAS[area])
    if isinstance(case, (str, os.PathLike)):
        made.read_file(os.fspath(case))
    elif isinstance(case, Mapping):
        told: dict[str, str] = {}
        for name, value in case.items():
            field = field_of(area, name)
            if field in told:
                raise InputError(f"{told[field]} and {name} are the same input")
            told[field] = name
            _put(made, name, value)
    elif case is not None:
        raise InputError(f"case takes the path of a file or a dict, not {case!r:.60}")
    if conductor is not None:
        if not isinstance(conductor, (str, os.PathLike)):
            raise InputError(f"conductor takes a name or a path, not {conductor!r:.60}")
        made.set_conductor(os.fspath(conductor))
    return made


def _from_vector(arrays: dict[str, np.ndarray]) -> None:
    """Speed and direction of a wind that is told by its parts towards east and north."""
    u, v = arrays.pop("wind_u", None), arrays.pop("wind_v", None)
    if u is None and v is None:
        return
    if u is None or v is None:
        raise InputError("wind_u and wind_v go together")
    if not arrays.keys().isdisjoint({"wind_speed", "wind_from_direction", "wind_angle"}):
        raise InputError("wind_u and wind_v are speed and direction already")
    missing = np.isnan(u) | np.isnan(v)
    arrays["wind_speed"] = np.where(missing, math.nan, np.hypot(u, v))
    arrays["wind_from_direction"] = np.degrees(np.arctan2(-u, -v))


class Call:
    def __init__(
        self,
        area: str,
        case: Any,
        conductor: str | None,
        threads: int | None,
        errors: str,
        inputs: dict[str, Any],
        given: str | None = None,
        radiation: str | None = None,
        constant_heat_capacity: bool = False,
    ) -> None:
        self.raises = choice("errors", errors, {"codes": 0, "raise": 1}) == 1
        whole = isinstance(threads, numbers.Integral) and not isinstance(threads, bool)
        if threads is not None and not (whole and 1 <= threads <= _MOST_THREADS):
            raise InputError(f"threads: {threads!r:.60} is none of 1 to {_MOST_THREADS} threads")
        self.case = _case(area, case, conductor)
        arrays, kind = _arrays.common(self._columns(area, inputs))
        _from_vector(arrays)
        self.shape = kind.shape
        self.wrap = kind.wrap
        self.columns = {name: np.broadcast_to(a, self.shape) for name, a in arrays.items()}
        if not isinstance(constant_heat_capacity, (bool, np.bool_)):
            raise InputError("constant_heat_capacity takes True or False")
        self.radiation = radiation
        self.options = _zel.Options(
            choice("given", given or self._given(), GIVEN),
            threads or 0,  # 0: one for each processor
            choice("radiation", radiation, RADIATIONS),
            bool(constant_heat_capacity),
        )

    @property
    def has_radiation(self) -> bool:
        """Whether a keyword gives the global radiation."""
        return not {"global_radiation", "Globalstrahlung_db"}.isdisjoint(self.columns)

    def _columns(self, area: str, inputs: dict[str, Any]) -> dict[str, Any]:
        """Puts texts and flags into the case and leaves what may be an array."""
        columns: dict[str, Any] = {}
        for given, value in inputs.items():
            if value is None:
                continue
            name = ALIASES.get(given, given)
            if name in inputs and name != given:
                raise InputError(f"{given} and {name} are the same input")
            known = find(area, name)
            if known is not None and known.kind == "text":
                if not isinstance(value, str):
                    raise InputError(f"{name} takes a text, not {value!r:.60}")
                self.case.set_text(name, value)
            elif known is not None and known.kind == "flag":
                if not isinstance(value, (bool, np.bool_)):
                    raise InputError(f"{name} takes True or False, not {value!r:.60}")
                self.case.set_flag(name, bool(value))
            else:
                columns[name] = value
        return columns

    def _given(self) -> str | None:
        """What the keywords give; None where the case tells it."""
        given = [what for what, names in _GIVEN_BY.items() if not names.isdisjoint(self.columns)]
        if len(given) > 1:
            raise InputError(f"both {' and '.join(given)} are told; given= says which is given")
        return given[0] if given else None

    def why(self, method: int, index: int) -> str:
        """Which input or check refuses an element; empty where none does."""
        return _zel.explain(self.case, method, self.options, self.columns, index)
