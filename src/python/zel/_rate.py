"""Steady states."""

from __future__ import annotations

from typing import Any, Iterable

from . import _zel
from ._call import Call
from ._errors import InputError
from ._names import CHANGES_OF_STATE, METHODS, choice, described, keywords_of_a_rating, refuse_idle
from ._results import Rating, Ratings, raise_failed


_WITH_SUN = ("Webs", "Kirn")  # they apply the height of the sun to the radiation


def _chosen(methods: str | Iterable[str] | None, call: Call) -> list[str]:
    if methods is None:
        chosen = [name for name, number in METHODS.items() if call.case.selects(number)]
    else:
        try:
            chosen = [methods] if isinstance(methods, str) else list(methods)
        except TypeError:
            raise InputError(f"methods takes names, not {methods!r:.60}") from None
    if not chosen:
        raise InputError("methods= names none, and the case selects none")
    return chosen


def rate(
    case: Any = None,
    *,
    methods: str | Iterable[str] | None = None,
    conductor: str | None = None,
    given: str | None = None,
    radiation: str | None = None,
    threads: int | None = None,
    errors: str = "codes",
    **inputs: Any,
) -> Ratings:
    """Steady states: the current where the temperature is given, the temperature where the current
    is. By Cigre TB 601 (2014), Cigre TB 207 (2002), Webs (1963), Kirn (1987), and for tubular
    busbars the method of RWTH Aachen / Puffer (2018).

    case: path of a case file, or a dict of what such a file holds; inputs go before it.
    methods: one or several of "TB601", "TB207", "TBB", "Webs", "Kirn"; those of the case if None.
    conductor: of the library by its name, or the exchange record in that file.
    given: "temperature", "current" (of one sub-conductor) or "bundle_current". If None, it is the
        one of conductor_temperature, conductor_current and bundle_current that is an input, or
        what the case says.
    radiation: what global_radiation is, "horizontal" (on level ground, as weather services give it)
        or "conductor" (as it meets the conductor). Webs and Kirn apply the height of the sun to it,
        the other methods take it as it meets the conductor; horizontal, it is divided for these by
        the sine of the sun's height (10 degrees at least), up to 1400 W/m2, which needs latitude,
        longitude and time. Needed where both kinds of methods rate a global_radiation that is an
        input.
    threads: all processors if None. The results are the same for every number.
    errors: "codes" puts a code beside each number; "raise" raises RatingError where an element has
        no value.

    A numeric input is a number or an array: sequence, NumPy (any strides; masked elements are
    missing), pandas Series or Index, xarray DataArray. Their shapes are broadcast, those of xarray
    by the names of their dimensions, and the results are of the same kind: numbers for numbers,
    Series with the index, DataArrays with the coordinates. Times are datetime64, datetime, times of
    pandas, ISO 8601 texts or seconds since 1970; those without a zone are in UTC.

    Results, by method: current (A, of the bundle), conductor_current (A), temperature (degC),
    wind_angle (degrees), code (see codes()). Above 0 a code says why there is no value, which is
    NaN then; a missing or masked input gives missing_input, an infinite one outside_limits.

    Raises InputError where an input is unknown or of a wrong kind.
    """
    refuse_idle(inputs, ("duration", "preload_percent", *CHANGES_OF_STATE), "rate()")
    call = Call("line", case, conductor, threads, errors, inputs, given, radiation)
    found = {}
    chosen = {method: choice("methods", method, METHODS) for method in _chosen(methods, call)}
    kinds = {method in _WITH_SUN for method in chosen}
    if radiation is None and call.has_radiation and len(kinds) > 1:
        raise InputError(
            "Webs and Kirn apply the height of the sun to global_radiation, the other methods take"
            ' it as it meets the conductor: radiation="horizontal" or "conductor" says what it is'
        )
    for method, number in chosen.items():
        arrays = _zel.rate_steady(call.case, number, call.options, call.columns, call.shape)
        found[method] = Rating(method, *map(call.wrap, arrays))
    if call.raises:
        codes = {method: rating.code for method, rating in found.items()}
        raise_failed(codes, lambda method, index: call.why(METHODS[method], index))
    return Ratings(found)


rate.__doc__ = described(rate.__doc__ or "", keywords_of_a_rating())
