"""Makes the seeds of the fuzz targets from the data of the tests: make_seeds.py REPOSITORY FOLDER.

What an input consists of stands at the head of each file of targets/.
"""

import json
import struct
import sys
from pathlib import Path

root, out = Path(sys.argv[1]), Path(sys.argv[2])
data = {file.stem: json.loads(file.read_text()) for file in (root / "tests/data").glob("*.json")}
examples = {file.name: file.read_bytes() for file in sorted((root / "examples").iterdir())}


def write(target, seeds):
    folder = out / target
    folder.mkdir(parents=True, exist_ok=True)
    for number, seed in enumerate(seeds):
        (folder / f"{number:03}").write_bytes(seed)


def numbers():
    masks = ["##0.0#", "0", "###0.000", "#.##", ".00", "##0,0 A", ""]
    texts = ["1,5", "-1.5E-3", " 80.05\r\n", "1e400", "4.9e-324", "1.234.567", "1'000", "1.234,5", "+.5e1"]
    for group in data["platform_formulas"]:
        for row in group["rows"]:
            for cell in row:
                if isinstance(cell, str) and len(cell) < 40:
                    texts.append(cell)
    for number, text in enumerate(texts):
        mask = masks[number % len(masks)]
        yield bytes([number % 2]) + f"{mask}\n{text}".encode()
    for value in (0.1, -80.05, 1e15, 999.995, 1.7976931348623157e308, 5e-324):
        yield b"\1##0.0#\n" + struct.pack("<d", value)


def cases():
    for name, content in examples.items():
        if name.endswith(".json"):
            kind = 2 if name.startswith("short") else 0
            yield bytes([kind + 1]) + content
            yield bytes([kind]) + content.replace(b'": 1', b'": "1,5"')
    yield b'\1{"Z1_merker_db": 1, "Z1_Strom_db": "500", "Anzahl_Teilleiter_db": 2}'
    yield b'\1{"a": [1, {"b": null}]}'


def records():
    record = bytearray(714)
    for offset, kind, shown in data["exchange_record"].values():
        if kind == "text":
            record[offset:offset + 3] = b"A\xd6 "
        elif kind == "int16":
            struct.pack_into("<h", record, offset, shown)
        else:
            struct.pack_into("<f" if kind == "single" else "<d", record, offset, 1.2345678)
    yield b"\1" + bytes(record)
    yield b"\0" + bytes(record)[:400]


def profiles():
    text = "; x\r\n[vor]\r\n Formel_merker = 1 \r\nQuoted=\" a \"\r\n\r\n[ Seildatei ] y\r\nE=C:\\e\r\n[VOR]\r\nL=1"
    for change in ("VOR\nformel_MERKER\n2\nSeildatei\nE\n", "VOR\nNew\n\"q\"\nvor\nQuoted\n",
                   "Other\nk\n v \nVOR\nL\n"):
        yield (change + text).encode()
        yield (change + "\ufeff" + text.replace("\r\n", "\n")).encode()


def tables():
    yield b"\1\5a\x1eb,c\x1e\"q\"\x1d\x1e#x\x1d#y"
    yield b"\2\5a;b;\"c;\"\"d\n\"\n# e\n\r\nf\"g;h\n\"open"
    for kind, name in ((5, "lines.csv"), (7, "weather.csv")):
        yield bytes([kind, 7]) + examples[name][:1500]
    lines = data["weather"]["lines"]
    for row in lines["rows"]:
        yield b"\5\7" + (lines["head"] + "\n" + str(row[0])).encode()
    for row in data["weather"]["heads"]["rows"]:
        yield b"\7\7" + (row[0] + "\n2024-01-15T08:30Z,1,2\n2024-01-15T09:30Z,,x").encode()
    yield "\6\7time;line;u;v\n2024-01-15 08:30;a;1,5;-2\n2024-01-15T09:30+01:00;;NaN;1".encode()


def workbooks():
    actions = b"\1\1\0\2\3\0\4\2\1\5\1\6\0"
    head = '<?xml version="1.0"?><worksheet xmlns="m" xmlns:r="r">'
    names = "<definedNames><definedName name=\"tax\">input!$B$1</definedName></definedNames>"
    strings = "<sst><si><t>first</t></si><si><r><t>of </t></r><r><t>two</t></r></si><si/></sst>"
    styles = '<styleSheet><numFmts><numFmt numFmtId="170" formatCode="dd.mm"/></numFmts><cellXfs><xf numFmtId="0"/><xf numFmtId="14"/><xf numFmtId="170"/></cellXfs></styleSheet>'

    def sheet(rows, before="", after=""):
        return f"{head}{before}<sheetData>{rows}</sheetData>{after}</worksheet>"

    def workbook(first, second=""):
        return actions + "\x1c".join([first, names, strings, styles, second]).encode()

    cells = [row[0].replace("5\"", "1\"") for key in ("cells", "shared strings", "date cells")
             for row in data["xlsx"][key]]
    for cell in cells:
        yield workbook(sheet(f'<row r="1" spans="1:3">{cell}</row><row r="3"/>', '<dimension ref="A1:C3"/>'))
    for edit in data["xlsx"]["edits"]:
        yield workbook(sheet(edit["rows"], edit.get("before", ""),
                             '<mergeCells><mergeCell ref="B9:C10"/></mergeCells>'))
    for row in data["xlsx"]["stale values"]:
        yield workbook(sheet(f'<row r="1">{row["input"]}</row>'), sheet(f'<row r="1">{row["summary"]}</row>'))
    for row in data["xlsx"]["formulas"]:
        formula = row[0].replace("&", "&amp;")
        yield workbook(sheet(f'<row r="1"><c r="A1"><f t="shared" ref="A1:A3" si="0">{formula}</f><v>1</v></c></row>'))
    for file in (root / "tests/cli/workbooks").glob("*.xlsx"):
        yield file.read_bytes()


def rows():
    for row in data["database"]["reading"]:
        text = "\n".join(f"{name}={value}" for name, value in row["row"].items())
        yield ("\1" + text).encode()
    yield b"\1rechnung_webs_merker_db=1\nZ1_merker_db=1\nZ1_Strom_db=500\nAnzahl_Teilleiter_db=2\nFormel_merker1_db=2"
    yield b"\3Frequenz_ks=50\nIK=20.5\nTK1=1\nLeitermaterial_ks=3\nAnzahl_KS_fluesse=1\ngeneratornah=1"
    yield b"\5Kennung_mw=K\nDatum_mw=31.12\nWinkel_W_N_mw=12.5\nWindgeschwindigkeit_mw=3\nAnzahl_mw=450"


def messages():
    def number(value):
        return struct.pack("<Q", value)

    def text(value):
        return number(len(value)) + value

    tables = number(1) + number(1) + text(b"T") + number(2) + number(2) + text(b"a") + text(b"b")
    row = number(65536) + text(b"1.5") + number(2**64 - 1)
    answer = number(1) + number(0) + number(1) + row
    first = number(1) + number(1) + number(1) + row
    second = number(1) + number(0) + number(1) + number(65537) + text(b"\xc3\xa4") + text(b"")
    keys = number(1) + number(0) + number(1) + number(65536)
    yield b"\xfe\xfd".join([tables, answer, keys, answer])
    yield b"\xfe\xfd".join([tables, first, second, keys, answer])
    yield b"\xfe\xfd".join([number(3)])


def files():
    for version in range(3):
        yield bytes([version])
        yield bytes([version, 2, 10, 3, 255, 4, 1, 0, 7])


def telegrams():
    for key, kind in (("telegrams", 1), ("radiation", 0)):
        for row in data["measuring"][key]:
            yield bytes([kind, 9]) + row[0].encode("latin-1", "replace") + b"\r\n"
    for stream in data["measuring"]["streams"]:
        kind = 1 if stream["kind"] == "wind" else 0
        yield bytes([kind, 5]) + "".join(stream["bytes"]).encode("latin-1", "replace")


for target, seeds in {"numbers": numbers, "case_json": cases, "exchange_record": records, "profile": profiles,
                      "tables": tables, "workbook": workbooks, "database_row": rows,
                      "access_wire": messages, "access_file": files, "telegrams": telegrams}.items():
    write(target, seeds())
