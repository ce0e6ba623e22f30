"""The manual page, from what the commands say of themselves."""

import re
from collections import Counter

from sheet_tools import HERE, MARKDOWN, escaped, output_of, read_json


def option_entry(word):
    name = ", ".join(f"**{escaped(name)}**" for name in word["names"])
    if word["value"] and not word["in_its_place"]:
        name += f" *{escaped(word['value'])}*"
    return f"{name}\n\n:   {escaped(word['about'])}\n"


def synopsis(command):
    line = f"**{command['command']}**"
    for word in command["words"]:
        if word["in_its_place"]:
            shown = f"*{escaped(word['names'][0])}*"
            line += f" {shown}" if word["required"] else rf" \[{shown}\]"
        elif word["required"]:
            line += f" **{escaped(word['names'][-1])}** *{escaped(word['value'])}*"
    return line + (" *COMMAND*" if command["commands"] else "")


def notes_of(command):
    """Paragraphs as such, and what stands indented as it stands."""
    parts = []
    for paragraph in re.split(r"\n\s*\n", command["notes"].strip("\n")):
        for line in paragraph.split("\n"):
            shown = line.startswith(" ")
            if not parts or parts[-1][0] != shown:
                parts.append((shown, []))
            parts[-1][1].append(line)
        parts.append((None, []))
    for shown, lines in parts:
        if lines:
            yield "\n".join("    " + line for line in lines) if shown else escaped(" ".join(lines))


def key_of(word):
    return word["names"][-1], word["value"], word["about"]


def manual_page(described):
    """Each command as it describes itself; what several say is told once."""
    document = read_json(described / "commands.json")
    commands = document["commands"]
    first, rest = commands[0], commands[1:]
    notes = {command["command"]: list(notes_of(command)) for command in commands}
    users = Counter(key_of(word) for command in rest for word in command["words"])
    usual = {key_of(word): word for command in commands for word in command["words"]
             if command is first or (users[key_of(word)] > 8 and not word["in_its_place"])}
    parts = [f"% ZEL(1) {document['program']} | User commands\n",
             (HERE / "manual_head.md").read_text(encoding="utf-8"),
             "# SYNOPSIS\n", "**zel** *COMMAND* \\[*OPTIONS*\\]\n",
             "# OPTIONS\n", *map(option_entry, usual.values()), "# COMMANDS\n"]  # fmt: skip
    for command in rest:
        above = command["command"].rpartition(" ")[0]
        parts += [f"## {command['command']}\n", synopsis(command) + "\n",
                  escaped(command["about"]) + ".\n"]  # fmt: skip
        parts += [option_entry(word) for word in command["words"] if key_of(word) not in usual]
        parts += [note + "\n" for note in notes[command["command"]]
                  if note not in notes["zel"] and note not in notes[above]]  # fmt: skip
    parts.append((HERE / "manual_tail.md").read_text(encoding="utf-8"))
    return output_of("pandoc", "-s", "-f", MARKDOWN, "-t", "man", given="\n".join(parts))
