#!/usr/bin/env python3
"""Compares the benchmarks of this build with those of a former one, run side by side:

    bench/compare.py FORMER/build/ci/bin/zel_bench build/ci/bin/zel_bench [--filter REGEX]

Each benchmark runs in pairs, the two builds in turn, the one that begins alternating, so that both meet
the same machine. The ratio is the median over the pairs of new to former processor time (by the clock
where the benchmark counts by it). Exit status: 0 all within the limit, 1 one is slower, 2 a build cannot
be run or the two have no benchmark in common.
"""

import argparse
import json
import re
import statistics
import subprocess
import sys


def output_of(program, *options):
    try:
        run = subprocess.run([program, *options], capture_output=True, text=True, check=False)
    except OSError as error:
        sys.exit(refusal(f"{program}: {error.strerror}"))
    if run.returncode != 0:
        sys.exit(refusal(f"{program} {' '.join(options)}: status {run.returncode}\n{run.stderr}"))
    return run.stdout


def refusal(text):
    print(text, file=sys.stderr)
    return 2


def names_in(program, chosen):
    options = ["--benchmark_list_tests=true"] + ([f"--benchmark_filter={chosen}"] if chosen else [])
    return output_of(program, *options).split("\n")[:-1]


def nanoseconds(program, name, seconds):
    """Of one iteration."""
    exact = "^" + re.sub(r"([.^$*+?()\[\]{}|\\])", r"\\\1", name) + "$"
    found = json.loads(output_of(program, f"--benchmark_filter={exact}", "--benchmark_format=json",
                                 f"--benchmark_min_time={seconds}"))  # fmt: skip
    (run,) = found["benchmarks"]
    if run.get("error_occurred"):
        sys.exit(refusal(f"{program}: {name}: {run['error_message']}"))
    unit = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[run["time_unit"]]
    return unit * run["real_time" if name.endswith("/real_time") else "cpu_time"]


def pairs_of(former, new, name, options):
    """(former, new) in nanoseconds, of each pair."""
    pairs = []
    for i in range(options.pairs):
        order = (former, new) if i % 2 == 0 else (new, former)
        times = {program: nanoseconds(program, name, options.seconds) for program in order}
        pairs.append((times[former], times[new]))
    return pairs


def shown(nanoseconds_):
    for unit, size in (("s ", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds_ >= size:
            return f"{nanoseconds_ / size:8.2f} {unit}"
    return f"{nanoseconds_:8.2f} ns"


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("former", help="zel_bench of the former build")
    parser.add_argument("new", help="zel_bench of this build")
    parser.add_argument("--filter", default="", help="regular expression of the benchmarks")
    parser.add_argument("--pairs", type=int, default=5, help="pairs of each benchmark (5)")
    parser.add_argument("--seconds", type=float, default=0.1, help="least time of one run (0.1)")
    parser.add_argument("--limit", type=float, default=1.1, help="ratio above which one is slower")
    options = parser.parse_args()
    if options.pairs < 1 or options.former == options.new:
        return refusal("at least one pair of two builds is needed")
    there = names_in(options.former, options.filter)
    here = names_in(options.new, options.filter)
    common = [name for name in here if name in there]
    if not common:
        return refusal("the two builds have no benchmark in common")
    width = max(map(len, common))
    print(f"{'benchmark':{width}}  {'former':>11}  {'new':>11}   ratio  of the pairs")
    slower = []
    for name in common:
        pairs = pairs_of(options.former, options.new, name, options)
        ratios = sorted(new / former for former, new in pairs)
        ratio = statistics.median(ratios)
        if ratio > options.limit:
            slower.append(name)
        former, new = (statistics.median(times) for times in zip(*pairs))
        print(f"{name:{width}}  {shown(former)}  {shown(new)}  {ratio:6.2f}  "
              f"{ratios[0]:.2f} to {ratios[-1]:.2f}{'  slower' if ratio > options.limit else ''}",
              flush=True)  # fmt: skip
    for name in sorted(set(there) ^ set(here)):
        print(f"{name}: in the {'former' if name in there else 'new'} build alone")
    print(f"{len(common)} benchmarks, {len(slower)} slower by more than the limit {options.limit}")
    return 1 if slower else 0


if __name__ == "__main__":
    sys.exit(main())
