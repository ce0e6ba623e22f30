"""The user guide as it is written: two files of Markdown, one per language, and in the folder
`help` messages.json, with areas.json.

`problems` tells what one language has and the other lacks; a build with problems fails."""

import json
import re
from pathlib import Path

LANGUAGES = ("en", "de")
FENCE = re.compile(r"^(`{3,})(\w*)\n(.*?)^\1$", re.MULTILINE | re.DOTALL)
HEADING = re.compile(r"^(#{1,2}) (.*?)\s*$", re.MULTILINE)
NAMED = re.compile(r"(.+?) \{#([a-z0-9-]+)\}")
PICTURE = re.compile(r"!\[.*?\]\(pictures/([^)]+)\)", re.DOTALL)
LINK = re.compile(r"(?<!!)\[[^\]]*\]\(#([^)]*)\)")
MESSAGE_TEXTS = ("text", "cause", "remedy")


def guide_file(docs, lang):
    return Path(docs) / f"user-guide.{lang}.md"


def guide_text(docs, lang):
    return guide_file(docs, lang).read_text(encoding="utf-8")


def messages(docs):
    return json.loads((Path(docs) / "help/messages.json").read_text(encoding="utf-8"))


def areas(docs):
    """What the areas of messages are called, in the order of the guide."""
    return json.loads((Path(docs) / "help/areas.json").read_text(encoding="utf-8"))


def without_fences(text):
    return FENCE.sub("", text)


def blocks(text):
    """The fenced blocks in their order: kind and content."""
    return [(kind, content) for _, kind, content in FENCE.findall(text)]


def headings(text):
    """Level, title and id of each heading of the first two levels; the id is None without one."""
    rows = []
    for marks, title in HEADING.findall(without_fences(text)):
        named = NAMED.fullmatch(title)
        rows.append((len(marks), *(named.groups() if named else (title, None))))
    return rows


def topics(text):
    return [name for _, _, name in headings(text)]


def heading_problems(lang, text):
    named = topics(text)
    for level, title, name in headings(text):
        if name is None:
            yield f"{lang}: the heading '{title}' has no id"
        elif named.count(name) > 1:
            yield f"{lang}: the id #{name} stands more than once"
    for name in LINK.findall(without_fences(text)):
        if name not in named:
            yield f"{lang}: a link leads to #{name}, which is no heading"


def translation_problems(texts):
    """What does not stand at the same place in both languages."""
    for what, of in (
        ("heading", lambda text: [(level, name) for level, _, name in headings(text)]),
        ("block", lambda text: [kind for kind, _ in blocks(text)]),
        ("picture", lambda text: [""] * len(PICTURE.findall(text))),
    ):
        en, de = (of(texts[lang]) for lang in LANGUAGES)
        for at, pair in enumerate(zip(en, de)):
            if pair[0] != pair[1]:
                yield f"{what} {at + 1} is {pair[0]} in en and {pair[1]} in de"
                break
        else:
            if len(en) != len(de):
                yield f"en has {len(en)} of the kind {what}, de has {len(de)}"


def message_problems(rows, names):
    for area, name in names.items():
        if not all(name.get(lang) for lang in LANGUAGES):
            yield f"areas.json, {area!r}: no name in one language"
    seen = set()
    for row in rows:
        place = f"messages.json, {row.get('code')!r}"
        if set(row) != {"code", "area", *MESSAGE_TEXTS}:
            yield f"{place}: not code, area, {', '.join(MESSAGE_TEXTS)}"
            continue
        if row["area"] not in names:
            yield f"{place}: areas.json has no area {row['area']!r}"
        for key in MESSAGE_TEXTS:
            for lang in LANGUAGES:
                if not str(row[key].get(lang, "")).strip():
                    yield f"{place}: no {key} in {lang}"
        if (row["code"], row["area"]) in seen:
            yield f"{place}: stands twice in the area {row['area']!r}"
        seen.add((row["code"], row["area"]))


def problems(docs):
    texts = {lang: guide_text(docs, lang) for lang in LANGUAGES}
    for lang, text in texts.items():
        yield from heading_problems(lang, text)
    yield from translation_problems(texts)
    yield from message_problems(messages(docs), areas(docs))
