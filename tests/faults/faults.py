"""Lets the calls of the program fail one after the other while it writes each kind of its files, and
kills it at random moments; afterwards each file has to be the old one or the new one, whole.

    faults.py --bin FOLDER --calls LIBRARY [THING ...] [--most N] [--kills [N]] [--seed S] [--table FILE]

THINGS tells what each is written by. Of more calls of a kind than --most, or ZEL_MOST_FAULTS in the
environment, only that many are tried, in even steps. --kills kills as many runs, or ZEL_KILLS of the
environment, at random moments instead. --table makes a table in Markdown with a row for each thing.
"""

import argparse
import concurrent.futures
import contextlib
import dataclasses
import datetime
import errno
import os
import pathlib
import random
import re
import shutil
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
EXAMPLES = ROOT / "examples"
LINE = EXAMPLES / "380kV-twin-264-34.json"
OTHER_LINE = EXAMPLES / "wind-100-degrees.json"
WORKBOOK = ROOT / "tests/cli/workbooks/saved_by_openpyxl.xlsx"
KILL = 0  # in place of an errno
HANGS = -signal.SIGALRM
DEATHS = (-signal.SIGSEGV, -signal.SIGABRT, HANGS)

# A kind of call, how it fails, and whether it and what comes behind it goes on failing.
SWEEPS = [
    ("open", errno.EACCES, False),
    ("open", errno.ENOSPC, False),
    ("read", errno.EIO, False),
    ("write", errno.EIO, False),
    ("write", errno.ENOSPC, True),
    ("sync", errno.EIO, False),
    ("truncate", errno.EIO, False),
    ("close", errno.EIO, False),
    ("rename", errno.EACCES, False),
    ("unlink", errno.EACCES, False),
    ("lock", errno.ENOLCK, False),
    ("mode", errno.EPERM, False),
    ("disk", errno.ESTALE, True),
    ("disk", KILL, False),
    ("memory", errno.ENOMEM, False),
]
FEW_CALLS = 16
FEW_KILLS = 10
# As what the engine of databases sees a failure: no right to write, no sound page.
ENGINE = (os.strerror(errno.EACCES), os.strerror(errno.EIO), "can only be read", "is malformed",
          "unable to open database file", "have lost data")
# What may be left: locks that stay by design, and, of a run that was killed, what the next clears.
LOCK = re.compile(r"(^|/)\.[^/]+\.lock$")
LEFTOVER = re.compile(r"\.zel-tmp[0-9-]+$|-journal$|^tmp/")


@dataclasses.dataclass
class Thing:
    """`command` writes what `before` wrote before, in a folder of its own."""

    command: list
    before: list = dataclasses.field(default_factory=list)
    heavy: object = None  # makes what `command` reads long enough to be killed
    copies: dict = dataclasses.field(default_factory=dict)
    steps: bool = False  # it writes several times, and may end behind each
    at_once: int = 1  # faults tried side by side, where a run mostly waits
    varies: bool = False  # its numbers are not the same every time
    dies: bool = False  # a library does not look whether it got memory: it dies, waits for ever, or leaves something out


def zel(*words):
    return ["zel", *map(str, words)]


def draw(*words):
    return ["zel-draw", *map(str, words)]


def saver(*words):
    return ["saved_by_windows", *map(str, words)]


def many_rows(folder):
    with sqlite3.connect(folder / "old.mdb") as database:
        for _ in range(11):
            database.execute("INSERT INTO T SELECT * FROM T")


def much_weather(folder):
    text, *rows = re.split(r"\n(?=2024)", (EXAMPLES / "weather.csv").read_text().strip())
    for day in range(5):
        date = (datetime.date(2023, 1, 1) + datetime.timedelta(day)).isoformat()
        text += "".join("\n" + date + row[10:] for row in rows)
    (folder / "weather.csv").write_text(text + "\n")


THINGS = {
    "settings": Thing(zel("settings", "set", "MUCOM", "4"), [zel("settings", "set", "MUCOM", "3")]),
    "first_settings": Thing(zel("settings", "set", "MUCOM", "4"), steps=True),
    "case_file": Thing(saver("case", "a.json", LINE), [saver("case", "a.json", OTHER_LINE)]),
    "conductor_library": Thing(saver("conductor", "NEW 1"), [saver("conductor", "OLD 1")]),
    "exchange_record": Thing(zel("conductor", "pick", "264-AL1/34-ST1A", "-o", "a.dat"),
                             [zel("conductor", "pick", "243-AL1/39-ST1A", "-o", "a.dat")]),
    "workbook": Thing(zel("batch", "a.xlsx"), copies={"a.xlsx": WORKBOOK}),
    "template": Thing(zel("template", "transient", "-o", "a.xlsx"),
                      [zel("template", "steady-fix", "-o", "a.xlsx")], dies=True),
    "database": Thing(zel("db", "save", "a.mdb", "T", LINE),
                      [zel("db", "save", "a.mdb", "T", OTHER_LINE, "--new-database")]),
    "new_database": Thing(zel("db", "save", "a.mdb", "T", LINE, "--new-database")),
    "deleted_row": Thing(zel("db", "delete", "a.mdb", "T", "1"),
                         [zel("db", "save", "a.mdb", "T", LINE, "--new-database")]),
    "import": Thing(zel("db", "import", "old.mdb", "new.mdb"),
                    [zel("db", "save", "old.mdb", "T", LINE, "--new-database")], many_rows),
    "export": Thing(zel("db", "export", "old.mdb", "T", "-o", "a.csv"),
                    [zel("db", "save", "old.mdb", "T", LINE, "--new-database"),
                     zel("db", "export", "old.mdb", "T", "-o", "a.csv"),
                     zel("db", "save", "old.mdb", "T", OTHER_LINE)], many_rows),
    "measuring_table": Thing(
        zel("measure", "--source", "simulated", "--cycle-seconds", "0.6", "--height-difference", "9",
            "--save", "a.mdb", "M"),
        [zel("measure", "--source", "simulated", "--cycle-seconds", "0.6", "--height-difference",
             "1", "--save", "a.mdb", "M")], at_once=6, varies=True),
    "ratings": Thing(zel("rate", EXAMPLES / "lines.csv", "weather.csv", "-o", "a.csv"),
                     [zel("rate", EXAMPLES / "lines.csv", "weather.csv", "-o", "a.csv", "--lang",
                          "de")], much_weather, {"weather.csv": EXAMPLES / "weather.csv"},
                     dies=True),  # libcrypto, when it sets itself up
    "report": Thing(draw("report", "steady", LINE, "-o", "a.pdf"),
                    [draw("report", "steady", OTHER_LINE, "-o", "a.pdf")], dies=True),
}
for ending in ("svg", "png", "pdf", "csv"):
    THINGS[ending] = Thing(
        draw("graph", "transient", EXAMPLES / "transient-twin-264-34.json", "-o", f"a.{ending}"),
        [draw("graph", "steady", EXAMPLES / "table-264-34.json", "-o", f"a.{ending}")],
        dies=ending != "csv")


def content(path, folder, varies):
    """What has to be the same in two files that say the same; raises where the file is damaged."""
    data = path.read_bytes()
    if data.startswith(b"SQLite format 3"):
        with contextlib.closing(sqlite3.connect(path)) as database:
            if database.execute("PRAGMA integrity_check").fetchone() != ("ok",):
                raise ValueError("the database is damaged")
            dump = "\n".join(database.iterdump())
            return re.sub(r"[\d.:]+", "#", dump) if varies else dump
    if data.startswith(b"PK"):
        with zipfile.ZipFile(path) as archive:
            return {name: archive.read(name) for name in archive.namelist()
                    if name != "docProps/core.xml"}
    # The home of a run stands in some files.
    data = re.sub(re.escape(os.fsencode(folder.parent)) + rb"/[^/]+", b"HOME", data)
    return re.sub(rb"/CreationDate \(.*?\)|/ID \[.*?\]", b"", data)


def state(folder, varies):
    """The content of each file. A database is opened, which clears its journal."""
    found = {}
    for path in sorted(folder.rglob("*")):
        name = str(path.relative_to(folder))
        if path.is_file() and name != "met" and not LOCK.search("/" + name):
            found[name] = None if LEFTOVER.search(name) else content(path, folder, varies)
    return {name: value for name, value in found.items() if (folder / name).exists()}


class Trial:
    """Runs of one thing."""

    def __init__(self, name, options, scratch):
        self.thing, self.options = THINGS[name], options
        self.base = scratch / "base"
        self.scratch = scratch
        self.patience = 60  # s
        self.base.mkdir()
        for file, source in self.thing.copies.items():
            shutil.copy(source, self.base / file)
        for command in self.thing.before:
            self.must(command, self.base)
        if options.kills and self.thing.heavy:
            self.thing.heavy(self.base)
        self.old = self.state(self.base)
        folder = self.copy("new")
        began = time.monotonic()
        self.must(self.thing.command, folder)
        self.seconds = time.monotonic() - began
        self.patience = max(10, 10 * self.seconds)
        self.new = self.state(folder)
        assert self.new != self.old, "the command changes nothing"

    def state(self, folder):
        return state(folder, self.thing.varies)

    def copy(self, name):
        folder = self.scratch / name
        shutil.copytree(self.base, folder)
        return folder

    def environment(self, folder, **more):
        (folder / "tmp").mkdir(exist_ok=True)
        kept = {name: os.environ[name] for name in ("PATH", "LANG") if name in os.environ}
        return {**kept, "HOME": str(folder), "TMPDIR": str(folder / "tmp"),
                "QT_QPA_PLATFORM": "offscreen", "SOURCE_DATE_EPOCH": "1700000000", **more}

    def run(self, command, folder, **more):
        command = [self.options.bin / command[0], *command[1:]]
        try:
            return subprocess.run(command, cwd=folder, env=self.environment(folder, **more),
                                  stdin=subprocess.DEVNULL, capture_output=True, text=True,
                                  errors="replace", timeout=self.patience)
        except subprocess.TimeoutExpired:  # killed by then
            return subprocess.CompletedProcess(command, HANGS, "", "waits for ever")

    def must(self, command, folder):
        result = self.run(command, folder)
        assert result.returncode in (0, 1), f"{command}: {result.stderr}"

    def with_fault(self, folder, call, error, stays, number):
        return self.run(
            self.thing.command, folder, LD_PRELOAD=str(self.options.calls), ZEL_FAULT_CALL=call,
            ZEL_FAULT_AT=str(number), ZEL_FAULT_ERROR=str(error), ZEL_FAULT_STAYS=str(int(stays)),
            ZEL_FAULT_WITHIN=str(folder), ZEL_FAULT_MET=str(folder / "met"))

    def calls(self, call):
        """How many calls of a kind the command makes."""
        folder = self.copy(f"count-{call}")
        self.with_fault(folder, call, errno.EIO, False, 10**9)
        count = int((folder / "met").read_text())
        shutil.rmtree(folder)
        return count

    def fault(self, call, error, stays, number):
        """What became of the files and what is wrong with that."""
        folder = self.copy(f"{call}-{error}-{number}")
        result = self.with_fault(folder, call, error, stays, number)
        if not (folder / "met").exists():  # the number of calls is not the same every time
            became, wrong = None, ""
        else:
            became, wrong = self.judge(folder, result, call, error)
        shutil.rmtree(folder)
        if wrong:
            wrong = (f"{call} {number} {errno.errorcode.get(error, 'kill')}"
                     f"{' stays' if stays else ''}: {wrong}\n    exit {result.returncode}: " +
                     result.stderr.strip().replace("\n", "\n    "))
        return became, wrong

    def judge(self, folder, result, call, error):
        killed = error == KILL and result.returncode == -signal.SIGKILL
        # Nobody can clear where no call works, and what fails may be the clearing.
        may_leave = killed or error == errno.ESTALE
        clears = call in ("open", "unlink") and result.returncode == 0
        try:
            now = self.state(folder)
        except (sqlite3.Error, zipfile.BadZipFile, ValueError) as damage:
            return "lost", f"damaged: {damage}"
        rests = {name for name in now if name not in self.old and name not in self.new}
        kept = {name: value for name, value in now.items() if name not in rests}
        became = "new" if kept == self.new else "old" if kept == self.old else "lost"
        if became == "lost" and self.thing.steps:
            became = "old"
        wrong = ""
        careless = self.thing.dies and call == "memory"
        if became == "lost" and careless and result.returncode == 0:
            return "poorer", ""
        if became == "lost":
            wrong = f"neither old nor new: {', '.join(kept)}"
        elif careless and result.returncode in DEATHS:
            return became, self.repeated(folder, became)
        elif not all(may_leave and LEFTOVER.search(name) or clears and name.startswith("tmp/")
                     for name in rests):
            wrong = f"left behind: {', '.join(rests)}"
        elif result.returncode < 0 and not killed:
            wrong = f"died of signal {-result.returncode}"
        elif became == "old" and not killed:
            wrong = self.untold(result, error)
        return became, wrong or self.repeated(folder, became)

    def untold(self, result, error):
        """What is wrong with how a failure is told."""
        if result.returncode == 0:
            return "the file is the old one, but the exit status is 0"
        if error == errno.ENOMEM:  # which libraries tell in other words
            return "" if result.stderr else "nothing is told"
        names = {name.rsplit("/", 1)[-1] for name in {*self.old, *self.new}} | {"tmp"}
        if not any(name in result.stderr for name in names):
            return "no file is named"
        if not any(cause in result.stderr for cause in (os.strerror(error), *ENGINE)):
            return "the cause is not told"
        return ""

    def repeated(self, folder, became):
        """What is wrong where the command is run once more, without a fault."""
        if became == "new":
            return ""
        shutil.rmtree(folder / "tmp")
        result = self.run(self.thing.command, folder)
        now = self.state(folder)
        if now == self.new:
            return ""
        return f"the next run leaves {', '.join(now)}: {result.stderr.strip()}"

    def kill(self, moment):
        folder = self.copy(f"kill-{moment}")
        process = subprocess.Popen([self.options.bin / self.thing.command[0],
                                    *self.thing.command[1:]], cwd=folder,
                                   env=self.environment(folder), stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        time.sleep(moment)
        process.kill()
        said = process.communicate()[0]
        result = subprocess.CompletedProcess([], process.returncode, said, said)
        verdict = self.judge(folder, result, "disk", KILL)
        shutil.rmtree(folder)
        return (*verdict, process.returncode == -signal.SIGKILL)


def sweep(trial, call, error, stays, most):
    """Lets the calls of a kind fail one after the other; gives what became of the files."""
    count = trial.calls(call)
    numbers = range(1, count + 1)
    if count > most:
        numbers = [1 + (count - 1) * step // (most - 1) for step in range(most)]
    with concurrent.futures.ThreadPoolExecutor(trial.thing.at_once) as pool:
        return list(pool.map(lambda number: trial.fault(call, error, stays, number), numbers))


def kills(trial, options, name):
    """Runs until as many were killed; one that came to its end before does not count."""
    moments = random.Random(f"{options.seed} {name}")
    killed = 0
    while killed < options.kills:
        became, wrong, hit = trial.kill(moments.uniform(0, trial.seconds))
        killed += hit
        if hit or wrong:
            yield became, wrong


def ends_of(tried):
    return [str(tried.count(became)) for became in ENDS]


def try_thing(name, options):
    rows, wrongs = [], []
    with tempfile.TemporaryDirectory(prefix="faults-") as scratch:
        trial = Trial(name, options, pathlib.Path(scratch))
        if options.kills:
            found = list(kills(trial, options, name))
            wrongs = [wrong for _, wrong in found if wrong]
            rows.append([name.replace("_", " "), f"{1000 * trial.seconds:.0f} ms", str(len(found)),
                         *ends_of([became for became, _ in found])])
        else:
            counts = {}
            for call, error, stays in SWEEPS:
                for became, wrong in sweep(trial, call, error, stays, options.most):
                    key = "kill" if error == KILL else "network" if error == errno.ESTALE else call
                    counts.setdefault(key, []).append(became)
                    wrongs += [wrong] if wrong else []
            tried = [became for all_of in counts.values() for became in all_of]
            rows.append([name.replace("_", " "), *(str(len(counts.get(key, ()))) for key in COLUMNS),
                         *ends_of(tried)])
    return rows, [f"{name}: {wrong}" for wrong in wrongs]


ENDS = ("old", "new", "poorer", "lost")
COLUMNS = ("open", "read", "write", "sync", "truncate", "close", "rename", "unlink", "lock", "mode",
           "network", "kill", "memory")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--bin", type=pathlib.Path)
    parser.add_argument("--calls", type=pathlib.Path)
    parser.add_argument("--most", type=int, default=os.environ.get("ZEL_MOST_FAULTS", FEW_CALLS))
    parser.add_argument("--kills", type=int, nargs="?", default=0,
                        const=int(os.environ.get("ZEL_KILLS", FEW_KILLS)))
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--jobs", type=int, default=1)
    parser.add_argument("--table", type=pathlib.Path)
    parser.add_argument("--list", action="store_true", help="the things, for cmake")
    parser.add_argument("things", nargs="*")
    options = parser.parse_args()
    if options.list:
        return print(";".join(THINGS))
    things = options.things or list(THINGS)
    head = (["Written", "a run takes", "killed"] if options.kills else ["Written", *COLUMNS])
    rows, wrongs = [[*head, *ENDS]], []
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for made, wrong in pool.map(lambda name: try_thing(name, options), things):
            rows += made
            wrongs += wrong
            print(" ".join(made[0]), flush=True)
            for line in wrong:
                print("WRONG", line, flush=True)
    if options.table:
        rule = ["---"] + ["--:"] * (len(rows[0]) - 1)
        lines = ["| " + " | ".join(row) + " |" for row in [rows[0], rule, *rows[1:]]]
        options.table.write_text("\n".join(lines) + "\n")
    print(f"{len(wrongs)} wrong")
    return 1 if wrongs else 0


if __name__ == "__main__":
    sys.exit(main())
