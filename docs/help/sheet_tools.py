"""What those share that make sheets by pandoc."""

import json
import re
import subprocess
from pathlib import Path

HERE = Path(__file__).resolve().parent
MARKDOWN = "markdown-smart"  # quotes and points stay as they are written


class Failure(Exception):
    """What ends the build, with the reason."""


def output_of(*command, given=""):
    run = subprocess.run(command, input=given, capture_output=True, text=True, check=False)
    if run.returncode != 0 or run.stderr:
        raise Failure(f"{command[0]} failed:\n{run.stderr}")
    return run.stdout


def escaped(text):
    return re.sub(r"([\\`*_{}\[\]<>#|~^$@])", r"\\\1", text)


def in_one_line(text):
    return " ".join(text.split())


def write(path, text):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text, encoding="utf-8")


def read_json(path):
    return json.loads(path.read_text(encoding="utf-8"))
