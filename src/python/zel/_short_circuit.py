"""Thermal short-circuit strength."""

from __future__ import annotations

from typing import Any, Iterator, Mapping

from . import _zel
from ._call import Call
from ._names import described, inputs as _inputs
from ._results import CodeCount, Result, counts, raise_failed


class ShortCircuit(Mapping[str, Any], Result):
    """Results by IEC 60865-1, by their names: `result["S_th"]`."""

    def __init__(self, values: dict[str, Any], code: Any) -> None:
        self._values = values
        self.code = code

    def __getitem__(self, name: str) -> Any:
        return self._values[name]

    def __iter__(self) -> Iterator[str]:
        return iter(self._values)

    def __len__(self) -> int:
        return len(self._values)

    def __repr__(self) -> str:
        return f"ShortCircuit({self._values!r}, code={self.code!r})"

    @property
    def codes(self) -> dict[str, CodeCount]:
        """What occurs among the codes, by name."""
        return counts(self.code)

    def _arrays(self) -> Iterator[tuple[str, Any]]:
        yield from self._values.items()
        yield "code", self.code


def short_circuit(
    case: Any = None,
    *,
    threads: int | None = None,
    errors: str = "codes",
    **inputs: Any,
) -> ShortCircuit:
    """Thermal short-circuit strength of a bare conductor or of equipment, by IEC 60865-1.

    case, threads and errors are those of rate(); inputs have names in plain English, and those of
    case files.

    Results: I_th (kA), T_k (s), m and n of each flow, K, S_thr, S_th, S_zul (A/mm2), the verdicts.
    """
    call = Call("short_circuit", case, None, threads, errors, inputs)
    values, code = _zel.rate_short_circuit(call.case, call.options, call.columns, call.shape)
    named = {name: call.wrap(array) for name, array in values.items()}
    found = ShortCircuit(named, call.wrap(code))
    if call.raises:
        raise_failed({"short circuit": found.code}, lambda part, index: call.why(0, index))
    return found


short_circuit.__doc__ = described(short_circuit.__doc__ or "", _inputs("short_circuit"))
