"""Writes the type stubs of the package: make_stubs.py TEMPLATE STUBS.

The keywords come from the table of inputs that the package itself shows.
"""

import pathlib
import sys

sys.path.pop(0)  # the package beside this script has no module yet
from zel import _names  # noqa: E402

TYPES = {"text": "str", "flag": "bool"}


def type_of(row):
    return "Times" if row.name == "time" else TYPES.get(row.kind, "Numbers")


def keywords(rows):
    return "\n".join(
        f"    {row.name}: {type_of(row)} = ...,  # {_names.unit_and_range(row)}{row.about}"
        for row in rows
    )


def fields(rows):
    """The names of case files."""
    named = [row for row in rows if row.field not in ("", row.name)]
    return "".join(f"\n    {row.field}: {type_of(row)} = ...," for row in named)


template, stubs = map(pathlib.Path, sys.argv[1:])
text = template.read_text()
inputs = _names.keywords_of_a_rating()
aliases = "".join(f"\n    {name}: Numbers = ...,  # {of}" for name, of in _names.ALIASES.items())
text = text.replace("@RATING_INPUTS@", keywords(inputs) + aliases + fields(inputs))
inputs = _names.inputs("short_circuit")
text = text.replace("@SHORT_CIRCUIT_INPUTS@", keywords(inputs) + fields(inputs))
stubs.write_text(text)
(stubs.parent / "py.typed").touch()
