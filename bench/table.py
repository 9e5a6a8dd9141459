"""Prints the figures of a run of the benchmarks as Markdown: table.py REPORTS"""
import json
import pathlib
import re
import sys

# What is to be reached: work, unit, limit.
LIMITS = {
    "elevation_tube": 22000,
    "elevation_rolledI": 22000,
    "draw_elevation_tube": 250,
    "draw_elevation_rolledI": 250,
    "open_close": 300,
}
LEAST_RATIO = {"tube": 1000, "rolledI": 1000}
LEAST_MEMBERS_A_SECOND = 70000
MOST_BYTES_A_MEMBER = 12 * 1024


def natural(name):
    """Orders wheel20 before wheel100."""
    return [int(part) if part.isdigit() else part for part in re.split(r"(\d+)", name)]


def medians(reports):
    found = {}
    for file in sorted(reports.glob("bench_*.json")):
        for run in json.loads(file.read_text())["benchmarks"]:
            if run.get("aggregate_name") == "median":
                found[run["run_name"].split("/repeats")[0]] = run
    return dict(sorted(found.items(), key=lambda entry: natural(entry[0])))


def nanoseconds(run):
    return run["cpu_time"] * {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[run["time_unit"]]


def duration(ns):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if ns >= size:
            return f"{ns / size:.3g} {unit}"
    return f"{ns:.3g} ns"


def verdict(good):
    return "reached" if good else "**missed**"


def print_peers(runs):
    pairs = [(name, runs[name], runs["occt/" + name.split("/")[1]]) for name in runs
             if name.startswith("elevation/") and "occt/" + name.split("/")[1] in runs]
    if not pairs:
        return
    print("| elevation of | ours | exact hidden lines (OpenCASCADE) | times faster | at least |")
    print("|---|--:|--:|--:|---|")
    for name, ours, peer in pairs:
        subject = name.split("/")[1]
        ratio = nanoseconds(peer) / nanoseconds(ours)
        least = LEAST_RATIO.get(subject)
        goal = f"{least}: {verdict(ratio >= least)}" if least else ""
        print(f"| {subject} | {duration(nanoseconds(ours))} | {duration(nanoseconds(peer))} | {ratio:,.0f} | {goal} |")
    print()


def print_times(runs):
    print("| work | time | |")
    print("|---|--:|---|")
    for name, run in runs.items():
        if name.startswith("occt/"):
            continue
        notes = []
        if "members_per_second" in run:
            rate = run["members_per_second"]
            notes.append(f"{rate:,.0f} members a second (at least {LEAST_MEMBERS_A_SECOND:,}: "
                         f"{verdict(rate >= LEAST_MEMBERS_A_SECOND)})")
        if "bytes_per_member" in run:
            size = run["bytes_per_member"]
            notes.append(f"{size:,.0f} bytes a member (at most {MOST_BYTES_A_MEMBER:,}: "
                         f"{verdict(size <= MOST_BYTES_A_MEMBER)})")
        print(f"| {name} | {duration(nanoseconds(run))} | {'; '.join(notes)} |")
    print()


def instructions(file):
    return int(re.search(r"^(?:summary|totals):\s*(\d+)", file.read_text(), re.MULTILINE).group(1))


def print_counts(reports):
    print("| work | instructions a call | at most |")
    print("|---|--:|---|")
    for file in sorted(reports.glob("*.calls"), key=lambda file: natural(file.stem)):
        count = instructions(file.with_suffix(".callgrind")) / int(file.read_text())
        limit = LIMITS.get(file.stem)
        print(f"| {file.stem} | {count:,.0f} | {f'{limit:,}: {verdict(count <= limit)}' if limit else ''} |")


def main(folder):
    reports = pathlib.Path(folder)
    runs = medians(reports)
    print_peers(runs)
    print_times(runs)
    print_counts(reports)


if __name__ == "__main__":
    main(sys.argv[1])
