"""The example of a cluster."""

import importlib.util
import os
import subprocess
import sys

import numpy as np
import pytest
from distributed import Client

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


@pytest.fixture
def mixed_cluster(tmp_path):
    """Two workers, one without the wide instructions of its processor."""
    started = []

    def start(part, *options, **environment):
        command = [sys.executable, "-m", f"distributed.cli.dask_{part}",
                   "--scheduler-file", tmp_path / "where.json", *options]  # fmt: skip
        started.append(subprocess.Popen(command, cwd=tmp_path, env=os.environ | environment,
                                        stderr=subprocess.DEVNULL))  # fmt: skip

    try:
        start("scheduler", "--port", "0", "--no-dashboard", "--host", "127.0.0.1")
        for tunables in ({}, {"GLIBC_TUNABLES": "glibc.cpu.hwcaps=-AVX2_Usable,-FMA_Usable"}):
            start("worker", "--nthreads", "1", "--no-nanny", "--no-dashboard", **tunables)
        with Client(scheduler_file=str(tmp_path / "where.json"), timeout=120) as client:
            client.wait_for_workers(2, timeout=120)
            yield client.scheduler.address
    finally:
        for process in started:
            process.kill()
            process.wait()


def test_workers_that_differ_are_refused_unless_told(root, mixed_cluster):
    runs = [
        subprocess.run(
            [sys.executable, root / "examples/grid_dask.py", *COMMAND,
             "--scheduler", mixed_cluster, *options],
            text=True, capture_output=True, check=False)
        for options in ([], ["--mixed"])
    ]  # fmt: skip
    assert [run.returncode for run in runs] == [1, 0]
    assert "workers differ" in runs[0].stderr and "-FMA_Usable" in runs[0].stderr
    assert "30 lines x 12 hours" in runs[1].stdout
