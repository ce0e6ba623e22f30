"""Numbers, NumPy arrays, pandas and xarray objects as arrays of one shape, and back.

pandas and xarray are not needed: an object of theirs is told by what is loaded already.
"""

from __future__ import annotations

import datetime
import math
import numbers as numeric
import sys
from typing import Any, Callable

import numpy as np

from ._errors import InputError


def _loaded(module: str, name: str) -> Any:
    """A class of a module that somebody has imported; else one that nothing is an instance of."""
    return getattr(sys.modules.get(module), name, ())


def _is_pandas(value: Any) -> bool:
    return isinstance(value, (_loaded("pandas", "Series"), _loaded("pandas", "Index")))


def missing(value: Any) -> bool:
    """Whether `value` stands for one that is not known: None, or NA of pandas."""
    return value is None or value is _loaded("pandas", "NA")


def numbers(name: str, value: Any) -> np.ndarray:
    """`value` as doubles; what is masked or None becomes NaN."""
    if isinstance(value, _loaded("pandas", "DataFrame")):
        raise InputError(f"{name} takes one column of a DataFrame, or its values by to_numpy()")
    try:
        _refuse_texts(value)
        if _is_pandas(value) and value.dtype.kind in "iufO":
            array = value.to_numpy(dtype=np.float64, na_value=math.nan)
        elif isinstance(value, np.ma.MaskedArray):
            array = value.astype(np.float64).filled(math.nan)
        else:
            array = np.asarray(value)
            if array.dtype.kind == "O":
                known = [math.nan if missing(one) else one for one in array.ravel().tolist()]
                array = np.array(known, dtype=np.float64).reshape(array.shape)
    except (TypeError, ValueError, OverflowError):
        raise InputError(f"{name} takes numbers, not {value!r:.60}") from None
    if array.dtype.kind not in "iuf":
        raise InputError(f"{name} takes numbers, not {value!r:.60}")
    array = array.astype(np.float64, copy=False)
    return array if array.flags.aligned else array.copy()


def _refuse_texts(value: Any) -> None:
    """Texts that read as numbers are none."""
    if isinstance(value, (str, bytes)):
        raise TypeError
    each = np.asarray(value, dtype=object) if getattr(value, "dtype", None) == object else ()
    if any(isinstance(one, (str, bytes)) for one in np.ravel(each)):
        raise TypeError


def _second(name: str, value: Any) -> float:
    """Seconds since 1970 of one moment; one without a zone is in UTC, None is missing."""
    if missing(value):
        return math.nan
    if isinstance(value, numeric.Real) and not isinstance(value, bool):
        return float(value)
    if isinstance(value, str):
        try:
            value = datetime.datetime.fromisoformat(value)
        except ValueError:
            raise InputError(f"{name}: {value!r} is no time by ISO 8601") from None
    if isinstance(value, datetime.datetime):
        if value != value:  # pandas.NaT
            return math.nan
        zoned = value if value.tzinfo else value.replace(tzinfo=datetime.timezone.utc)
        return zoned.timestamp()
    raise InputError(f"{name} takes times, not {value!r:.60}")


def seconds(name: str, value: Any) -> np.ndarray:
    """Seconds since 1970 in UTC of times of any kind, or of numbers, which are such seconds."""
    if _is_pandas(value) and value.dtype.kind == "M":  # with a zone or without one
        index = sys.modules["pandas"].DatetimeIndex(value)
        value = (index if index.tz is None else index.tz_convert(None)).to_numpy()
    if isinstance(value, np.ma.MaskedArray):
        known = seconds(name, value.data)
        return np.where(np.ma.getmaskarray(value), math.nan, known)
    array = np.asarray(value)
    if array.dtype.kind == "M":
        micro = array.astype("datetime64[us]")
        return np.where(np.isnat(micro), math.nan, micro.astype(np.int64) / 1e6)
    if array.dtype.kind in "OU" and array.size:
        each = [_second(name, one) for one in array.ravel().tolist()]
        return np.array(each).reshape(array.shape)
    return numbers(name, value)


class Kind:
    """The shape that all inputs have together, and the kind of object that results are."""

    def __init__(self, shape: tuple[int, ...], wrap: Callable[[np.ndarray], Any]) -> None:
        self.shape = shape
        self.wrap = wrap


def _plain(shape: tuple[int, ...]) -> Kind:
    return Kind(shape, lambda array: array if shape else array.item())


def _pandas(values: list[Any], shape: tuple[int, ...]) -> Kind:
    """Of series, whose index is that of the results, or else of indexes."""
    pandas = sys.modules["pandas"]
    series = [value.index for value in values if isinstance(value, pandas.Series)]
    index = (series or values)[0]  # the times stand first
    if any(not index.equals(other) for other in series):
        raise InputError("the pandas inputs differ in their index")
    if shape != (len(index),):
        raise InputError("pandas inputs rate along their index alone; take NumPy or xarray")
    return Kind(shape, lambda array: pandas.Series(array, index=index))


def _as_xarray(values: dict[str, Any]) -> tuple[dict[str, Any], Any, dict[str, Any]]:
    """The values with every DataArray brought to the dimensions of all, one of these, and the
    coordinates of all."""
    xarray = sys.modules["xarray"]
    names = [name for name, value in values.items() if isinstance(value, xarray.DataArray)]
    try:
        aligned = xarray.align(*(values[name] for name in names), join="exact", copy=False)
    except ValueError as error:
        raise InputError(f"the xarray inputs differ in their coordinates: {error}") from None
    arrays = xarray.broadcast(*aligned)
    spread = {name: array.to_numpy() for name, array in zip(names, arrays)}
    coordinates: dict[str, Any] = {}
    for array in aligned:
        coordinates = {**array.coords, **coordinates}
    return {**values, **spread}, arrays[0], coordinates


def common(values: dict[str, Any], times: str = "time") -> tuple[dict[str, np.ndarray], Kind]:
    """The arrays of all values, as they stand, and the kind that they have together. The value
    of that name is a time."""
    labelled, coordinates = None, {}
    if any(isinstance(value, _loaded("xarray", "DataArray")) for value in values.values()):
        if any(_is_pandas(value) for value in values.values()):
            raise InputError("pandas and xarray inputs do not go together")
        values, labelled, coordinates = _as_xarray(values)
    arrays = {
        name: (seconds if name == times else numbers)(name, value)
        for name, value in values.items()
    }
    try:
        shape = np.broadcast_shapes(*(array.shape for array in arrays.values()))
    except ValueError:
        shapes = ", ".join(f"{name} {a.shape}" for name, a in arrays.items() if a.shape)
        raise InputError(f"the shapes of the inputs do not fit: {shapes}") from None
    first_times = sorted(values.items(), key=lambda item: item[0] != times)
    pandas = [value for _, value in first_times if _is_pandas(value)]
    if labelled is not None:
        if shape != labelled.shape:
            raise InputError(f"beside xarray inputs {labelled.dims} no other shape fits: {shape}")
        make = sys.modules["xarray"].DataArray
        back = Kind(shape, lambda a: make(a, coords=coordinates, dims=labelled.dims))
    else:
        back = _pandas(pandas, shape) if pandas else _plain(shape)
    return arrays, back
