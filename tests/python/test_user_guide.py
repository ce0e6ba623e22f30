"""The user guide against the program, in both languages: its commands, its messages, its links."""

import os
import pathlib
import re
import shutil
import subprocess
import sys

import pytest
import zel

ROOT = pathlib.Path(__file__).resolve().parents[2]
DOCS = ROOT / "docs"
sys.path.insert(0, str(DOCS / "help"))
import guide_source  # noqa: E402

LITERALS = re.compile(r'"(?:[^"\\\n]|\\.)*"(?:\s*"(?:[^"\\\n]|\\.)*")*')
DRAWS = re.compile(r"zel (?:graph|picture|report) ")
MARKDOWN_LINK = re.compile(r"\]\(([a-z-]+\.md)[)#]")


def commands(text):
    """The commands of a guide with the lines that they print; none where it does not tell."""
    for kind, content in guide_source.blocks(text):
        if kind == "console":
            for part in re.split(r"^\$ ", content, flags=re.MULTILINE)[1:]:
                command = re.match(r"(?:.*\\\n)*.*\n", part)[0]
                yield command, part[len(command) :]


def pattern(lines):
    return "".join("(?:.*\n)*?" if line == "..." else re.escape(line + "\n")
                   for line in lines.rstrip("\n").split("\n"))  # fmt: skip


@pytest.mark.parametrize("lang", guide_source.LANGUAGES)
def test_commands_print_what_stands_there(lang, program, tmp_path):
    shutil.copytree(ROOT / "examples", tmp_path / "examples")
    environment = {"PATH": f"{pathlib.Path(program).parent}:{os.environ['PATH']}",
                   "HOME": str(tmp_path), "LC_ALL": "C.UTF-8"}  # fmt: skip
    given = list(commands(guide_source.guide_text(DOCS, lang)))
    assert len(given) > 30
    if os.environ["ZEL_WINDOWS"] == "OFF":  # such a build draws nothing
        given = [(command, lines) for command, lines in given if not DRAWS.match(command)]
    wrong = []
    for command, lines in given:
        run = subprocess.run(["bash", "-c", command], cwd=tmp_path / "examples", env=environment,
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                             check=False)  # fmt: skip
        told = "\n".join(line.rstrip() for line in run.stdout.split("\n"))
        if lines and not re.fullmatch(pattern(lines), told.rstrip("\n") + "\n"):
            wrong.append(f"$ {command}{run.stdout}")
        elif not lines and run.returncode != 0:
            wrong.append(f"$ {command}ended with {run.returncode}: {run.stdout}")
    assert not wrong, "\n".join(wrong)


def test_nothing_lacks_in_one_language():
    assert list(guide_source.problems(DOCS)) == []


def test_what_lacks_is_told():
    text = ("# One {#one}\n\n```console\n$ zel\n```\n\n## Two {#two}\n\n[x](#one) "
            "![p](pictures/p.png)\n")  # fmt: skip
    for wrong, told in (
        ("## Two", "no id"), ("## Two {#one}", "more than once"), ("[x](#no)", "#no, which is no"),
    ):  # fmt: skip
        changed = text.replace("[x](#one)" if "x" in wrong else "## Two {#two}", wrong)
        assert told in next(guide_source.heading_problems("en", changed))
    for part in ("```console\n$ zel\n```\n", "## Two {#two}", "![p](pictures/p.png)"):
        assert list(guide_source.translation_problems({"en": text, "de": text.replace(part, "")}))
    both = {"en": "x", "de": "x"}
    row = {"code": "5", "area": "a", "text": both, "cause": both, "remedy": both}
    assert not list(guide_source.message_problems([row], {"a": both}))
    for rows in ([row, row], [row | {"cause": {"en": "x"}}], [row | {"more": 1}], [row | {"area": "b"}]):
        assert list(guide_source.message_problems(rows, {"a": both}))
    assert list(guide_source.message_problems([row], {"a": {"en": "x"}}))


def test_each_code_is_explained():
    told = {row["code"].lower() for row in guide_source.messages(DOCS)}
    errors = re.findall(r"= (-?\d+)[,;]", (ROOT / "src/platform/errors.h").read_text())
    assert len(errors) > 20
    codes = {str(code.code) for code in zel.codes()} | {code.name for code in zel.codes()}
    statuses = {f"exit-{status}" for status in range(4)}
    assert sorted({*errors, *codes, *statuses} - told) == []


def test_messages_stand_in_the_program():
    literals = ""
    for file in sorted((ROOT / "src").rglob("*.[ch]*")):
        for found in LITERALS.findall(file.read_text(encoding="utf-8")):
            text = "".join(re.findall(r'"((?:[^"\\\n]|\\.)*)"', found))
            literals += re.sub(r"\\(.)", lambda escape: escape[1].replace("n", " "), text) + " \0 "
    words = " ".join(literals.split())
    missing = [(row["code"], lang) for row in guide_source.messages(DOCS)
               for lang in guide_source.LANGUAGES
               if " ".join(row["text"][lang].split()) not in words]  # fmt: skip
    assert missing == []


def test_links_lead_to_sheets():
    for lang in guide_source.LANGUAGES:
        for name in MARKDOWN_LINK.findall(guide_source.guide_text(DOCS, lang)):
            assert (DOCS / name).is_file(), name


COMPLETED = (
    ("zel st", "steady"),
    ("zel steady --l", "--lang"),
    ("zel steady --lang = d", "de"),
    ("zel db show --sh", "--short-circuit"),
    ("zel template tr", "transient"),
    ("zel help first-rating-", "first-rating-terminal"),
)


def test_bash_completes_words(program):
    script = f'PATH={pathlib.Path(program).parent}:$PATH; source <(zel completion bash)\n'
    for words, _ in COMPLETED:
        script += (f"COMP_WORDS=({words}); COMP_CWORD=$((${{#COMP_WORDS[@]}} - 1)); _zel; "
                   'echo "${COMPREPLY[*]}"\n')  # fmt: skip
    run = subprocess.run(["bash", "-c", script], capture_output=True, text=True, check=True)
    assert run.stdout.splitlines() == [completed for _, completed in COMPLETED]
