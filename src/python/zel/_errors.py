"""What the functions of the package raise."""

from __future__ import annotations


class Error(Exception):
    """A file cannot be read, or memory is too little. `german` tells it in German."""

    def __init__(self, english: str, german: str = "") -> None:
        super().__init__(english, german)

    def __str__(self) -> str:
        return str(self.args[0])

    @property
    def german(self) -> str:
        return str(self.args[1] or self.args[0])


class InputError(Error, ValueError):
    """An input is wrong, or a name is unknown. Nothing was calculated."""


class RatingError(Error):
    """Elements have no value, and `errors="raise"` was asked for.

    `codes` tells of each method, or part of a result, what occurred: name of the code to a
    `CodeCount`.
    """

    def __init__(self, english: str, german: str = "", codes: object = None) -> None:
        super().__init__(english, german)
        self.args = (english, german, codes)

    @property
    def codes(self) -> object:
        return self.args[2]
