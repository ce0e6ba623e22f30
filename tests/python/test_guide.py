"""Every command of the guide runs, and prints what stands there."""

import contextlib
import io
import os
import re
import subprocess

BLOCK = re.compile(r"^```(\w+) ?(\S*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)


def in_this_build(command):
    """A command of the guide, whose set-up this build stands in for."""
    build = os.environ["ZEL_BUILD"]
    command = command.replace("./run python >", "./run python examples/first_ratings.py >")
    command = command.replace("./run python", "python3").replace("build/release", build)
    return command.replace('"$PWD/' + build, '"' + build).replace("python3", "/usr/bin/python3")


def test_guide(root, tmp_path, monkeypatch):
    monkeypatch.chdir(tmp_path)
    for folder in ("examples", "src"):
        (tmp_path / folder).symlink_to(root / folder)
    blocks = BLOCK.findall((root / "docs/library.md").read_text())
    assert len(blocks) > 30
    names = {}
    printed = None
    for kind, name, text in blocks:
        if kind == "python":
            out = io.StringIO()
            with contextlib.redirect_stdout(out):
                exec(compile(text, "docs/library.md", "exec"), names)
            printed = out.getvalue()
        elif kind == "sh":
            run = subprocess.run(in_this_build(text), shell=True, text=True, capture_output=True)
            assert run.returncode == 0, run.stderr
            printed = run.stdout
        elif kind == "text":
            assert printed == text
        else:
            (tmp_path / name).write_text(text)


# A call that is not wrong to the stubs would leave its mark unused.
TYPED = """
import zel
zel.rate(wind_speed=[1, 2], methods=["TB601", "Webs"]).to_pandas()
zel.rate(ghi=5, u=1, v=2, Windgeschwindigkeit_db=1, radiation="horizontal")
zel.rate(wind_sped=1)  # type: ignore[call-arg]
zel.rate(methods="TB600")  # type: ignore[arg-type]
zel.rate().courant  # type: ignore[attr-defined]
"""
SETTINGS = """
[mypy]
ignore_missing_imports = True
warn_unused_ignores = True
[mypy-distributed.*,pandas.*,xarray.*]
follow_imports = skip
"""


def test_examples_are_typed(root, tmp_path):
    script = tmp_path / "script.py"
    script.write_text(TYPED)
    settings = tmp_path / "mypy.ini"
    settings.write_text(SETTINGS)
    run = subprocess.run(
        ["/usr/bin/python3", "-m", "mypy", "--config-file", settings,
         "--cache-dir", tmp_path / "cache", script, *sorted((root / "examples").glob("*.py"))],
        env={**os.environ, "MYPYPATH": os.environ["ZEL_BUILD"] + "/python"},
        text=True, capture_output=True, check=False)  # fmt: skip
    assert run.returncode == 0, run.stdout
