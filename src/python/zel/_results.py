"""What the functions of the package return."""

from __future__ import annotations

import dataclasses
from typing import Any, Callable, Iterator, Mapping, NamedTuple

import numpy as np

from ._errors import RatingError
from ._names import codes


class CodeCount(NamedTuple):
    """How often a code occurs among the elements, and where first: an index of the result."""

    code: int
    name: str
    text: str
    count: int
    first: int | tuple[int, ...]


def counts(code: Any) -> dict[str, CodeCount]:
    """Of each code that occurs."""
    array = np.asarray(code)
    flat = array.ravel()
    lowest = min(each.code for each in codes())
    how_often = np.bincount(flat - lowest) if flat.size else np.zeros(0, dtype=int)
    found = {}
    for each in codes():
        place = each.code - lowest
        if place >= len(how_often) or not how_often[place]:
            continue
        at = int(np.argmax(flat == each.code))
        index = tuple(int(i) for i in np.unravel_index(at, array.shape)) if array.ndim else ()
        first = at if array.ndim == 1 else index
        found[each.name] = CodeCount(
            each.code, each.name, each.text, int(how_often[place]), first
        )
    return found


def _series(value: Any) -> Any:
    """A result as a Series of pandas, whatever its kind."""
    import pandas

    if isinstance(value, pandas.Series):
        return value
    if hasattr(value, "dims"):
        return value.to_series() if value.ndim else pandas.Series([value.item()])
    array = np.asarray(value)
    if array.ndim < 2:
        return pandas.Series(array.ravel())
    return pandas.Series(
        array.ravel(), pandas.MultiIndex.from_product([range(n) for n in array.shape])
    )


class Result:
    """Numbers and their codes, by name."""

    def to_pandas(self) -> Any:
        """A DataFrame with a column for each number and code, and the index of the inputs."""
        import pandas

        return pandas.DataFrame({name: _series(value) for name, value in self._arrays()})

    def _arrays(self) -> Iterator[tuple[str, Any]]:
        for field in dataclasses.fields(self):  # type: ignore[arg-type]
            if field.metadata.get("array", True):
                yield field.name, getattr(self, field.name)


@dataclasses.dataclass(frozen=True)
class Rating(Result):
    """Steady states by one method. Each is a number, an array, a Series or a DataArray, as the
    inputs are."""

    method: str = dataclasses.field(metadata={"array": False})
    current: Any  # A, of the bundle
    conductor_current: Any  # A, of one sub-conductor
    temperature: Any  # degC
    wind_angle: Any  # degrees, between wind and line, that the rating is for
    code: Any

    @property
    def codes(self) -> dict[str, CodeCount]:
        """What occurs among the codes, by name."""
        return counts(self.code)


class Ratings(Mapping[str, Rating]):
    """Steady states by method: `ratings["TB601"].current`; with one method, `ratings.current`."""

    def __init__(self, by_method: dict[str, Rating]) -> None:
        self._by_method = by_method

    def __getitem__(self, method: str) -> Rating:
        return self._by_method[method]

    def __iter__(self) -> Iterator[str]:
        return iter(self._by_method)

    def __len__(self) -> int:
        return len(self._by_method)

    def __repr__(self) -> str:
        return "Ratings({})".format(", ".join(map(repr, self._by_method.values())))

    def _only(self) -> Rating:
        if len(self) == 1:
            return next(iter(self._by_method.values()))
        several = ", ".join(self)
        raise AttributeError(f"there are several methods ({several}): name one, ratings['TB601']")

    current = property(lambda self: self._only().current)
    conductor_current = property(lambda self: self._only().conductor_current)
    temperature = property(lambda self: self._only().temperature)
    wind_angle = property(lambda self: self._only().wind_angle)
    code = property(lambda self: self._only().code)
    codes = property(lambda self: self._only().codes)

    def to_pandas(self) -> Any:
        """A DataFrame with the columns of each method below its name."""
        import pandas

        tables = {method: rating.to_pandas() for method, rating in self.items()}
        return pandas.concat(tables, axis="columns")


def raise_failed(parts: Mapping[str, Any], explain: Callable[[str, int], str]) -> None:
    """Raises `RatingError` where an element of a part has no value. `explain` tells why an element
    of a part has none, by its index in the order of C; it may know nothing."""
    told = []
    for part, code in parts.items():
        array = np.asarray(code)
        for each in counts(code).values():
            if each.code <= 0:
                continue
            at = int(np.argmax(array.ravel() == each.code))
            why = explain(part, at) or each.text
            where = f", first at {each.first}" if array.ndim else ""
            told.append(f"{part}: {each.count} of {array.size} {each.name}{where}: {why}")
    if told:
        raise RatingError(
            "elements without a value: " + "; ".join(told),
            codes={part: counts(code) for part, code in parts.items()},
        )
