"""Makes of the user guide what the program and its users read:

  make_help.py help   DOCS DESCRIBED OUT PICTURES   help.LANG.json for the terminal,
                                                    user-guide.LANG.html, and LANG/TOPIC.html, by
                                                    which F1 opens a topic
  make_help.py manual DOCS DESCRIBED OUT PICTURES   the same with all pictures, and as PDF
  make_help.py man    DOCS DESCRIBED OUT            the manual page

DESCRIBED is the folder that describe.cmake fills. A picture that is not there is left out, but for
`manual`. Needs pandoc, and for PDF weasyprint. Ends with 1 where a language lacks what the other
has."""

import html
import json
import re
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import guide_source
from guide_source import FENCE, LANGUAGES, PICTURE
from manual_page import manual_page
from sheet_tools import (
    HERE, MARKDOWN, Failure, escaped, in_one_line, output_of, read_json, write,
)  # fmt: skip

# Lines of a terminal's text that say where one begins that must not be wrapped, where it ends, and
# where a topic begins.
KEEP, WRAP, TOPIC = "\x01keep", "\x01wrap", "\x01topic "
MARKED = re.compile(f"^ *(?:{KEEP}|{WRAP})$\n?", re.MULTILINE)
TABLE_WIDTH = 78
METHODS = 5
COLUMN_WIDTHS = (24, 30, 9, 32, 11, 14, 14)  # of the table of inputs, as shares
SHEET = re.compile(r"\[([^\]]*)\]\(([a-z-]+)\.md(#[^)]*)?\)")
OUTSIDE = re.compile(r"\[([^\]]*)\]\(\.\./[^)]*\)")
# How each language calls the user manual, for the menu of the windows.
MANUALS = {"en": "zel_usermanual.pdf", "de": "vor_benutzerhandbuch.pdf"}
WORDS = {
    "en": {
        "heads": ["Name", "Field", "Symbol", "Meaning", "Unit", "Range", "Read by"],
        "all": "all", "read": "read by", "contents": "Contents",
        "line": "Overhead line and busbar", "short_circuit": "Short circuit",
        "cause": "Cause", "remedy": "Remedy",
    },
    "de": {
        "heads": ["Name", "Feld", "Zeichen", "Bedeutung", "Einheit", "Bereich", "Gelesen von"],
        "all": "allen", "read": "gelesen von", "contents": "Inhalt",
        "line": "Freileitung und Stromschiene", "short_circuit": "Kurzschluß",
        "cause": "Ursache", "remedy": "Abhilfe",
    },
}  # fmt: skip



def number(value, lang):
    text = f"{value:g}"
    return text.replace(".", ",") if lang == "de" else text


def range_of(row, lang):
    low, high = (None if row[key] is None else number(row[key], lang) for key in ("low", "high"))
    if low is None and high is None:
        return ""
    return f"≤ {high}" if low is None else f"≥ {low}" if high is None else f"{low} … {high}"


def field_cells(row, lang):
    text = row["text"][lang]
    sign = row["sign"][lang]
    if sign and row["field"] and sign not in text:
        text += f" ({sign})"
    readers = row["read_by"]
    return [row["name"], row["field"], row["symbol"], text, row["unit"], range_of(row, lang),
            WORDS[lang]["all"] if len(readers) == METHODS else ", ".join(readers)]  # fmt: skip


def field_tables(rows, lang, wide):
    """The inputs as one table for each area or, for the terminal, as entries of a list."""
    words = WORDS[lang]
    out = []
    for area in ("line", "short_circuit"):
        out.append(f"### {words[area]}\n")
        cells = [field_cells(row, lang) for row in rows if row["area"] == area]
        if wide:
            heads = words["heads"]
            out.append("|" + "|".join(heads) + "|")
            out.append("|" + "|".join("-" * width for width in COLUMN_WIDTHS) + "|")
        for row in cells:
            name, field, symbol, *facts = row
            if wide:
                code = [f"`{cell}`" if cell else "" for cell in row[:2]]
                out.append("|" + "|".join(code + [escaped(cell) for cell in row[2:]]) + "|")
                continue
            if facts[-1]:
                facts[-1] = f"{words['read']} {facts[-1]}"
            names = " = ".join(filter(None, (name, field, symbol)))
            said = "; ".join(filter(None, facts))
            out.append(f"- `{names}`: {escaped(said)}")
        out.append("")
    return "\n".join(out)


def message_list(rows, areas, lang):
    """One entry for each message, by areas; codes that say the same stand together."""
    words = WORDS[lang]
    out = []
    for area, name in areas.items():
        out.append(f"### {name[lang]}\n")
        entries = {}
        for row in rows:
            if row["area"] == area:
                said = tuple(row[key][lang] for key in guide_source.MESSAGE_TEXTS)
                entries.setdefault(said, []).append(f"`{row['code']}`")
        for said, codes in entries.items():
            text, cause, remedy = (escaped(in_one_line(part)) for part in said)
            out.append(f"{', '.join(codes)}: {text}\n")
            out.append(f":   *{words['cause']}:* {cause}\n")
            out.append(f"    *{words['remedy']}:* {remedy}\n")
    return "\n".join(out)


class Guide:
    """The guide in one language, with what the program says of itself."""

    def __init__(self, docs, described, lang):
        self.docs, self.lang = docs, lang
        self.text = guide_source.guide_text(docs, lang)
        self.fields = read_json(described / "fields.json")["fields"]
        self.messages, self.areas = guide_source.messages(docs), guide_source.areas(docs)

    def filled(self, wide):
        """The text with its tables of fields and messages, tables as wide as a sheet or none."""
        def fill(match):
            if match[2] == "fields":
                return field_tables(self.fields, self.lang, wide)
            if match[2] == "messages":
                return message_list(self.messages, self.areas, self.lang)
            return match[0]
        return FENCE.sub(fill, self.text)

    # ---- for the terminal

    def marked(self, blocks):
        """With lines that say where sections begin and what must not be wrapped."""
        out = []
        for block in blocks:
            kind, content = block["t"], block.get("c")
            if kind == "Header" and content[0] <= 2:
                out.append(raw(TOPIC + content[1][0]))
                out.append({"t": "Para", "c": content[2]})
                width = len(plain_text(content[2]))
                out += [raw(KEEP), raw("=-"[content[0] - 1] * width), raw(WRAP)]
            elif kind in ("CodeBlock", "Table"):
                out += [raw(KEEP), block, raw(WRAP)]
            elif kind in ("BulletList", "OrderedList", "DefinitionList", "BlockQuote", "Div"):
                out.append({"t": kind, "c": self.marked_inside(kind, content)})
            elif not is_picture(block):
                out.append(block)
        return out

    def marked_inside(self, kind, content):
        if kind == "BlockQuote":
            return self.marked(content)
        if kind == "BulletList":
            return [self.marked(item) for item in content]
        if kind == "DefinitionList":
            return [[term, [self.marked(said) for said in all_said]] for term, all_said in content]
        return [content[0], [self.marked(item) for item in content[1]]
                if kind == "OrderedList" else self.marked(content[1])]  # fmt: skip

    def terminal_topics(self):
        document = json.loads(
            output_of("pandoc", "-f", MARKDOWN, "-t", "json", given=self.filled(wide=False)))
        document["blocks"] = self.marked(document["blocks"])
        lines, tables = (
            MARKED.split(output_of("pandoc", "-f", "json", "-t", "plain", *wrap,
                                   given=json.dumps(document)))
            for wrap in (["--wrap=none"], [f"--columns={TABLE_WIDTH}"]))  # fmt: skip
        # What must not be wrapped is every other piece, and a table must have its lines.
        text = "".join(
            indented(wide) if number % 2 else line
            for number, (line, wide) in enumerate(zip(lines, tables, strict=True)))  # fmt: skip
        parts = text.split(TOPIC)[1:]
        rows = guide_source.headings(self.text)
        assert [part.partition("\n")[0] for part in parts] == [name for _, _, name in rows]
        return [{"topic": name, "level": level, "title": title,
                 "text": without_spare_lines(part.partition("\n")[2])}
                for (level, title, name), part in zip(rows, parts)]  # fmt: skip

    def terminal_document(self):
        rows = [{"code": row["code"], "area": self.areas[row["area"]][self.lang]}
                | {key: row[key][self.lang] for key in guide_source.MESSAGE_TEXTS}
                for row in self.messages]  # fmt: skip
        for row in rows:
            row["text"] = in_one_line(row["text"])
        return {"topics": self.terminal_topics(), "messages": rows}

    # ---- for browsers and paper

    def page(self, pictures, all_pictures):
        def picture(match):
            if (pictures / match[1]).is_file():
                return match[0].replace("pictures/" + match[1], str(pictures / match[1]))
            if all_pictures:
                raise Failure(f"the picture {pictures / match[1]} is not there")
            return ""
        text = with_links(self.filled(wide=True), sheets(self.docs, self.text), "reference/")
        return browser_page(PICTURE.sub(picture, text), "--toc", "--toc-depth=2",
                            "-M", f"toc-title={WORDS[self.lang]['contents']}")  # fmt: skip


def browser_page(text, *options):
    """A page with all that it needs in it."""
    return output_of(
        "pandoc", "-f", MARKDOWN, "-t", "html5", "--standalone", "--self-contained",
        "--no-highlight", f"--css={HERE / 'guide.css'}", f"--resource-path={HERE.parent}", *options,
        given=text)  # fmt: skip


def with_links(text, names, folder):
    """Links to the sheets `names` lead to their pages in `folder`; others are none."""
    def link(match):
        shown, name, place = match.groups()
        return f"[{shown}]({folder}{name}.html{place or ''})" if name in names else shown
    return OUTSIDE.sub(r"\1", SHEET.sub(link, text))


def sheets(docs, text):
    """The sheets of the documentation to which a text leads, by whatever way: name to text."""
    found, waiting = {}, [text]
    while waiting:
        for _, name, _ in SHEET.findall(waiting.pop()):
            path = Path(docs) / f"{name}.md"
            if name not in found and path.is_file():
                found[name] = path.read_text(encoding="utf-8")
                waiting.append(found[name])
    return found


def raw(line):
    return {"t": "RawBlock", "c": ["plain", line]}


def is_picture(block):
    return (block["t"] in ("Para", "Plain") and len(block["c"]) == 1
            and block["c"][0]["t"] == "Image")  # fmt: skip


def plain_text(inlines):
    """The letters of a heading."""
    parts = {"Str": lambda c: c, "Code": lambda c: c[1], "Space": lambda _: " "}
    return "".join(
        parts[inline["t"]](inline.get("c")) if inline["t"] in parts else plain_text(inline["c"])
        for inline in inlines)  # fmt: skip


def indented(lines):
    """With a tab before each line, which the program takes for one that must not be wrapped."""
    return "".join("\t" + line + "\n" if line.strip() else "\n" for line in lines.split("\n"))


def without_spare_lines(text):
    """With one empty line between paragraphs, and none below a heading's title."""
    text = re.sub(r"\n{3,}", "\n\n", text).strip("\n") + "\n"
    return re.sub(r"\n\s*\n(\t[=-]+\n)", r"\n\1", text)


def way_to(topic, lang):
    """A page that goes on to the topic: what opens files for a browser may lose the part behind
    the name."""
    target = html.escape(f"../user-guide.{lang}.html#{topic}")
    return (f'<!DOCTYPE html>\n<html lang="{lang}"><head><meta charset="utf-8">'
            f'<meta http-equiv="refresh" content="0; url={target}"><title>ZEL</title></head>'
            f'<body><a href="{target}">{html.escape(topic)}</a></body></html>\n')  # fmt: skip


def make_pages(docs, described, out, pictures, manual, lang):
    guide = Guide(docs, described, lang)
    write(out / f"help.{lang}.json",
          json.dumps(guide.terminal_document(), ensure_ascii=False, indent=1))  # fmt: skip
    page = out / f"user-guide.{lang}.html"
    write(page, guide.page(pictures.resolve(), manual))
    for topic in guide_source.topics(guide.text):
        write(out / lang / f"{topic}.html", way_to(topic, lang))
    if manual:
        output_of("weasyprint", "--quiet", str(page), str(out / MANUALS[lang]))


def make_reference(docs, out):
    """The sheets to which the guide leads; they are there in English."""
    found = sheets(docs, guide_source.guide_text(docs, "en"))
    for name, text in found.items():
        title = text.partition("\n")[0].lstrip("# ")
        page = browser_page(with_links(text, found, ""), "-M", f"pagetitle={title}",
                            "-M", "lang=en")  # fmt: skip
        write(out / "reference" / f"{name}.html", page)


def main(kind, docs, described, out, pictures=""):
    found = list(guide_source.problems(docs))
    if found:
        raise Failure("the user guide is not whole:\n" + "\n".join(found))
    described, out = Path(described), Path(out)
    if kind == "man":
        write(out, manual_page(described))
        return
    with ThreadPoolExecutor() as pool:  # others do the work
        waiting = [pool.submit(make_reference, docs, out)]
        for lang in LANGUAGES:
            waiting.append(pool.submit(make_pages, docs, described, out, Path(pictures),
                                       kind == "manual", lang))  # fmt: skip
        for made in waiting:
            made.result()


if __name__ == "__main__":
    try:
        main(*sys.argv[1:])
    except Failure as failure:
        sys.exit(str(failure))
