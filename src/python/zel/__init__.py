"""Thermal ratings of bare overhead conductors and tubular busbars, single and as arrays."""

from __future__ import annotations

from . import _zel
from ._errors import Error, InputError, RatingError
from ._names import Code, Input, codes, conductors, inputs
from ._rate import rate
from ._results import CodeCount, Rating, Ratings
from ._short_circuit import ShortCircuit, short_circuit
from ._transient import StateChange, Tatl, tatl, transient

__version__: str = _zel.version()

__all__ = [
    "Code",
    "CodeCount",
    "Error",
    "Input",
    "InputError",
    "Rating",
    "RatingError",
    "Ratings",
    "ShortCircuit",
    "StateChange",
    "Tatl",
    "codes",
    "conductors",
    "inputs",
    "rate",
    "short_circuit",
    "tatl",
    "transient",
]
