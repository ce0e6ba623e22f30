"""Every command of the guide runs, and prints what stands there."""

import contextlib
import io
import os
import re
import subprocess

import pytest

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


@pytest.mark.parametrize("script, correct", [("", True), ("zel.rate(wind_sped=1)", False),
                                             ("zel.rate(wind_speed=1)", True),
                                             ("zel.rate(methods='TB600')", False)])  # fmt: skip
def test_examples_are_typed(root, tmp_path, script, correct):
    (tmp_path / "script.py").write_text(f"import zel\n{script}\n")
    examples = [] if script else sorted((root / "examples").glob("*.py"))
    run = subprocess.run(
        ["/usr/bin/python3", "-m", "mypy", "--ignore-missing-imports", "--cache-dir", tmp_path,
         tmp_path / "script.py", *examples],
        env={**os.environ, "MYPYPATH": os.environ["ZEL_BUILD"] + "/python"},
        text=True, capture_output=True, check=False)  # fmt: skip
    assert (run.returncode == 0) == correct, run.stdout
    assert correct or "zel" in run.stdout
