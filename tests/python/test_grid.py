"""The example of a cluster."""

import importlib.util
import subprocess
import sys

import numpy as np
import pytest

COMMAND = ["--lines", "30", "--hours", "12", "--method", "TB207"]


@pytest.fixture(scope="module")
def alone(root):
    """The same grid without a cluster."""
    where = importlib.util.spec_from_file_location("grid_dask", root / "examples/grid_dask.py")
    script = importlib.util.module_from_spec(where)
    where.loader.exec_module(script)
    return script.rate_block(0, 30, 12, "TB207")


@pytest.mark.parametrize("options", [[], ["--kill-one"]])
def test_a_cluster_finds_the_same_bits(root, tmp_path, alone, options):
    run = subprocess.run(
        [sys.executable, root / "examples/grid_dask.py", *COMMAND, *options,
         "-o", tmp_path / "g.npz"],
        text=True, capture_output=True, check=True)  # fmt: skip
    assert ("killed worker" in run.stderr) == bool(options)
    assert "30 lines x 12 hours" in run.stdout
    found = np.load(tmp_path / "g.npz")
    assert np.array_equal(found["current"], alone[0]) and not found["code"].any()
