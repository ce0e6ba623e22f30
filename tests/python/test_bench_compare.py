"""bench/compare.py against two builds whose benchmarks take known times."""

import json
import pathlib
import subprocess
import sys

import pytest

COMPARE = pathlib.Path(__file__).resolve().parents[2] / "bench/compare.py"
BENCH = """#!{python}
import json, re, sys
times = {times}
options = dict(word.split("=", 1) for word in sys.argv[1:])
chosen = re.compile(options.get("--benchmark_filter", ""))
names = [name for name in times if chosen.search(name)]
if "--benchmark_list_tests" in options:
    print("\\n".join(names))
else:
    print(json.dumps({{"benchmarks": [
        {{"name": name, "cpu_time": times[name], "real_time": 1, "time_unit": "us"}} for name in names]}}))
"""


def build(folder, name, times):
    path = folder / name
    path.write_text(BENCH.format(python=sys.executable, times=json.dumps(times)))
    path.chmod(0o755)
    return str(path)


@pytest.mark.parametrize(
    "former, new, status, told",
    [
        ({"a/1(x)": 100, "b": 10}, {"a/1(x)": 110, "b": 1}, 0, "2 benchmarks, 0 slower"),
        ({"a/1(x)": 100}, {"a/1(x)": 110.2}, 1, "1.10 to 1.10  slower"),
        ({"a": 100, "old": 1}, {"a": 100}, 0, "old: in the former build alone"),
        ({"a": 100}, {"b": 100}, 2, "no benchmark in common"),
    ],
)
def test_a_ratio_above_the_limit_is_told(tmp_path, former, new, status, told):
    run = subprocess.run(
        [sys.executable, COMPARE, build(tmp_path, "former", former), build(tmp_path, "new", new)],
        capture_output=True, text=True, check=False)  # fmt: skip
    assert run.returncode == status
    assert told in run.stdout + run.stderr
