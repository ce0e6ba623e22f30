"""A year of hourly weather for a grid of lines, rated on a Dask cluster.

    python3 grid_dask.py -o ratings.npz                two workers on this machine
    python3 grid_dask.py --scheduler HOST:8786         workers that run already
    python3 grid_dask.py --kill-one                    one of the two is killed in the middle

Lines and weather are made up, by a fixed seed; put your own in their place. A block of lines that
a lost worker had is rated again by another.
"""

from __future__ import annotations

import argparse
import hashlib
import os
import signal
import sys
import time
from typing import Any

import numpy as np
from distributed import Client, LocalCluster, as_completed

import zel

SEED = 20260101
LINES_OF_A_BLOCK = 10
CONDUCTORS = ("264-AL1/34-ST1A", "382-AL1/49-ST1A", "550-AL1/71-ST1A", "184-AL1/30-ST1A")


def line(number: int) -> dict[str, Any]:
    """What stays the same for one line."""
    random = np.random.default_rng((SEED, number))
    return {
        "conductor": CONDUCTORS[number % len(CONDUCTORS)],
        "conductor_temperature": 80,
        "frequency": 50,
        "sub_conductors": int(random.integers(1, 5)),
        "emissivity": 0.6,
        "absorptivity": 0.6,
        "line_azimuth": float(random.uniform(0, 180)),
        "altitude": float(random.uniform(0, 800)),
        "latitude": float(random.uniform(47.5, 54.5)),
        "longitude": float(random.uniform(6.5, 14.5)),
        "albedo": 0.2,
    }


def weather(number: int, hours: int) -> dict[str, Any]:
    """Hourly weather at one line: winds of a Weibull distribution, a sun with clouds."""
    random = np.random.default_rng((SEED, number, 1))
    hour = np.arange(hours)
    season = -np.cos(2 * np.pi * hour / 8760)
    height = np.cos(2 * np.pi * (hour - 11.5) / 24) * (0.7 + 0.3 * season) + 0.35 * season
    return {
        "time": np.datetime64("2026-01-01T00:30") + hour.astype("timedelta64[h]"),
        "wind_speed": 0.5 + 3 * random.weibull(2, hours),
        "wind_from_direction": random.uniform(0, 360, hours),
        "air_temperature": 10 + 10 * season + 4 * height + random.normal(0, 3, hours),
        "ground_temperature": 10 + 8 * season,
        "global_radiation": 900 * height.clip(0, 1) * random.uniform(0.2, 1, hours),
    }


def rate_block(first: int, end: int, hours: int, method: Any) -> tuple[Any, Any, str]:
    """Currents and codes of the lines from `first` to before `end`, a row for each, and what
    rated them."""
    rated = [
        zel.rate(methods=method, threads=1, **line(number), **weather(number, hours))
        for number in range(first, end)
    ]
    return np.stack([r.current for r in rated]), np.stack([r.code for r in rated]), processor()


def processor() -> str:
    """What the mathematical library of the system chooses its code by."""
    with open("/proc/cpuinfo", encoding="utf-8") as told:
        rows = [row.partition(":") for row in told.read().split("\n\n")[0].splitlines()]
    facts = {name.strip(): fact.strip() for name, _, fact in rows}
    flags = hashlib.sha256(facts.get("flags", "").encode()).hexdigest()[:8]
    chosen = os.environ.get("GLIBC_TUNABLES", "as found")
    return f"{facts.get('model name')} (flags {flags}, used {chosen}), zel {zel.__version__}"


def refuse_mixed(kinds: set[str], given: argparse.Namespace) -> None:
    if len(kinds) > 1 and not given.mixed:
        sys.exit("workers differ, and with them the last bits of ratings: --mixed allows it\n  "
                 + "\n  ".join(sorted(kinds)))  # fmt: skip


def rate_grid(client: Any, given: argparse.Namespace) -> tuple[Any, Any]:
    kinds = set(client.run(processor).values())
    refuse_mixed(kinds, given)
    blocks = {}
    for first in range(0, given.lines, LINES_OF_A_BLOCK):
        end = min(given.lines, first + LINES_OF_A_BLOCK)
        blocks[client.submit(rate_block, first, end, given.hours, given.method)] = (first, end)
    current = np.full((given.lines, given.hours), np.nan)
    code = np.zeros((given.lines, given.hours), dtype=np.int8)
    kill_at = len(blocks) // 3 if given.kill_one else -1
    for done, future in enumerate(as_completed(list(blocks)), start=1):
        first, end = blocks.pop(future)
        current[first:end], code[first:end], kind = future.result()
        future.release()
        kinds.add(kind)  # of a worker that came later, perhaps
        refuse_mixed(kinds, given)
        if done - 1 == kill_at:
            victim = next(iter(client.run(os.getpid).values()))
            os.kill(victim, signal.SIGKILL)
            print(f"killed worker {victim} after {done} blocks", file=sys.stderr)
        if sys.stderr.isatty():
            print(f"\r{done} blocks, {len(blocks)} to do ", end="", file=sys.stderr)
    return current, code


def at_least_one(text: str) -> int:
    number = int(text)
    if number < 1:
        raise argparse.ArgumentTypeError(f"{text} is less than 1")
    return number


def arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(description=__doc__.split("\n", 1)[0])
    parser.add_argument("--lines", type=at_least_one, default=2000)
    parser.add_argument("--hours", type=at_least_one, default=8760)
    parser.add_argument("--method", default="TB601", choices=["TB601", "TB207", "Webs", "Kirn"])
    parser.add_argument("--workers", type=at_least_one, default=2, help="to start on this machine")
    parser.add_argument("--scheduler", help="address of a cluster that runs already")
    parser.add_argument("--kill-one", action="store_true", help="kill a worker of this machine")
    parser.add_argument(
        "--mixed", action="store_true", help="workers may differ, and with them the last bits"
    )
    parser.add_argument("-o", "--output", help="an .npz file for currents and codes")
    given = parser.parse_args()
    if given.kill_one and given.scheduler:
        parser.error("--kill-one is for workers on this machine")
    return given


def main() -> None:
    given = arguments()
    cluster = None
    if not given.scheduler:
        cluster = LocalCluster(
            n_workers=given.workers, threads_per_worker=1, processes=True, dashboard_address=None
        )
    with Client(cluster or given.scheduler) as client:
        started = time.monotonic()
        current, code = rate_grid(client, given)
        seconds = time.monotonic() - started
    if cluster:
        cluster.close()
    if given.output:
        np.savez(given.output, current=current, code=code)
    rated = current[code <= 0]
    if not rated.size:
        sys.exit("no rating has a value")
    print(f"{given.lines} lines x {given.hours} hours by {given.method}: {code.size} ratings in "
          f"{seconds:.1f} s, {code.size / seconds:.0f} per second")  # fmt: skip
    print(f"without a value: {code.size - rated.size}")
    for share in (5, 50, 95):
        print(f"{share:3} % of the ratings are below {np.percentile(rated, share):.0f} A")
    print(f"sha256 of currents and codes: "
          f"{hashlib.sha256(current.tobytes() + code.tobytes()).hexdigest()}")  # fmt: skip


if __name__ == "__main__":
    main()
