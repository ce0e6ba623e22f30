"""What the tests of the package share: whole cases to rate."""

import json
import os
import pathlib

import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]


@pytest.fixture(scope="session")
def root():
    return ROOT


@pytest.fixture(scope="session")
def program():
    """The terminal program of the same build."""
    return os.environ["ZEL_PROGRAM"]


@pytest.fixture(scope="session")
def line():
    return json.loads((ROOT / "examples/380kV-twin-264-34.json").read_text())


@pytest.fixture(scope="session")
def tube():
    return json.loads((ROOT / "examples/tube-120x8.json").read_text())
