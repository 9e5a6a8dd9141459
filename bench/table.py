"""Prints the figures of a run of the benchmarks as Markdown: table.py REPORTS [DOCUMENT]

With a document, its figures (between the two lines FIGURES and END) become these.
"""
import contextlib
import io
import json
import pathlib
import re
import sys

FIGURES = "<!-- figures: scripts/bench --record -->\n"
END = "<!-- end of figures -->\n"

# How many times faster than exact hidden lines an elevation is to be: every profile class, and those that stand out.
LEAST_RATIO_OF_CLASSES = 500
LEAST_RATIO_OF_CLIP = 10
LEAST_RATIO = {"KrTubo": 1000, "KrILaminadoUSA": 1000, "rolledI": 1000, "drilledI8": 1500, "drilledI40": 3000}
LEAST_RATIO_WITH_CUT = {"drilledI8": 5000}
LEAST_MEMBERS_A_SECOND = 70000
MOST_BYTES_A_MEMBER = 12 * 1024
# Times faster than a peer with the same file.
LEAST_RATIO_OF_FILES = {("read_plain_dxf", "dxflib"): 8, ("read_plain_dxf", "gdal"): 10, ("write_plain_dxf", "dxflib"): 12,
                        ("read_plain_dwg", "gdal"): 12}
MOST_MEGABYTES_OF_PLAIN = 88
LEAST_FILED_MEMBERS_A_SECOND = 60000
# Instructions: work, limit, what it is.
LIMITS = {
    "elevation_KrTubo": (22000, "elevation of a tube"),
    "elevation_KrILaminadoUSA": (22000, "elevation of a rolled I"),
    "elevation_rolledI": (22000, "elevation of the outline *rolledI*"),
    "elevation_drilledI8": (26000, "elevation of *rolledI* with 8 holes"),
    "construct_elevation_KrUDobrado": (60000, "lipped folded channel, from its middle line to its elevation"),
    "transform_40_elements": (8000, "a member of 40 elements turned"),
    "clip": (44000, "clip of 20 lines and 4 arcs by a notch with arcs"),
    "open_close": (300, "open and close"),
    "read_catalogue": (10_000_000, "all tables of sections read in"),
    "read_plain_dxf": (5900, "an entity read from a plain DXF"),
    "write_plain_dxf": (4800, "an entity written to a plain DXF"),
    "read_plain_dwg": (2700, "an entity read from a plain DWG"),
    "write_plain_dwg": (4100, "an entity written to a plain DWG"),
}
MOST_PER_ELEMENT = 250
# What is measured of every member, in the order of the columns.
OF_MEMBERS = ["construct_elevation", "elevation", "construct_section", "section", "draw_elevation", "draw_section"]


def natural(name):
    """Orders wheel20 before wheel100."""
    return [int(part) if part.isdigit() else part for part in re.split(r"(\d+)", name)]


def read_times(reports):
    """Medians: by name of the work."""
    found = {}
    for file in sorted(reports.glob("bench_*.json")):
        for run in json.loads(file.read_text())["benchmarks"]:
            if run.get("aggregate_name") == "median":
                found[run["run_name"].split("/repeats")[0]] = run
    return dict(sorted(found.items(), key=lambda entry: natural(entry[0])))


def read_counts(reports):
    """Instructions a call: by name of the work."""
    found = {}
    for file in sorted(reports.glob("*.calls"), key=lambda file: natural(file.stem)):
        report = file.with_suffix(".callgrind").read_text()
        total = int(re.search(r"^(?:summary|totals):\s*(\d+)", report, re.MULTILINE).group(1))
        found[file.stem] = total / int(file.read_text())
    return found


def nanoseconds(run):
    return run["cpu_time"] * {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[run["time_unit"]]


def duration(ns):
    for unit, size in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if ns >= size:
            return f"{ns / size:.3g} {unit}"
    return f"{ns:.3g} ns"


def print_table(head, rows):
    """The first column is text, the others are figures."""
    print("| " + " | ".join(head) + " |")
    print("|---|" + "--:|" * (len(head) - 1))
    for row in rows:
        print("| " + " | ".join(row) + " |")
    print()


def ratios(times, peer="occt"):
    """How many times faster than the peer: by subject."""
    found = {}
    for name, run in times.items():
        work, _, subject = name.partition("/")
        if work == "elevation" and f"{peer}/{subject}" in times:
            found[subject] = nanoseconds(times[f"{peer}/{subject}"]) / nanoseconds(run)
    return found


def least_ratio(subject):
    return LEAST_RATIO.get(subject, LEAST_RATIO_OF_CLASSES if subject.startswith("Kr") else None)


def targets(times, counts):
    """Rows of what was to be reached: what, measured, aim, verdict."""
    rows = []

    def add(what, value, aim, at_most):
        good = value <= aim if at_most else value >= aim
        rows.append([what, f"{value:,.0f}", f"{'at most' if at_most else 'at least'} {aim:,}",
                     "reached" if good else "**missed**"])

    faster = ratios(times)
    classes = {subject: ratio for subject, ratio in faster.items() if subject.startswith("Kr")}
    if classes:
        slowest = min(classes, key=classes.get)
        add(f"times faster than exact hidden lines, the least of {len(classes)} classes ({slowest})", classes[slowest],
            LEAST_RATIO_OF_CLASSES, at_most=False)
    for subject, least in LEAST_RATIO.items():
        if subject in faster:
            add(f"times faster than exact hidden lines, {subject}", faster[subject], least, at_most=False)
    clips = [nanoseconds(times[name]) for name in ("clip/boost", "clip/clipper") if name in times]
    if clips:
        add("times faster than Boost.Geometry and Clipper, one clip", min(clips) / nanoseconds(times["clip/ours"]),
            LEAST_RATIO_OF_CLIP, at_most=False)
    with_cut = ratios(times, "occt_cut")
    for subject, least in LEAST_RATIO_WITH_CUT.items():
        if subject in with_cut:
            add(f"times faster than solid, cut and hidden lines, {subject}", with_cut[subject], least, at_most=False)
    for (work, peer), least in LEAST_RATIO_OF_FILES.items():
        if f"{work}/{peer}" in times:
            faster_by = nanoseconds(times[f"{work}/{peer}"]) / nanoseconds(times[f"{work}/ours"])
            add(f"times faster than {peer}, {work.replace('_', ' ')}", faster_by, least, at_most=False)
    for name, run in times.items():
        if "peak_MB" in run:
            add(f"MB at the peak, {name.split('/')[0].replace('_', ' ')}", run["peak_MB"], MOST_MEGABYTES_OF_PLAIN,
                at_most=True)
        if "peak_of_allowed" in run:
            what = name.replace("/", " ").replace("_", " ")
            add(f"a second, {what} with 4 modifiers each", run["items_per_second"], LEAST_FILED_MEMBERS_A_SECOND,
                at_most=False)
            add(f"% of 3 times the file and 1 KB a member at the peak, {what}", 100 * run["peak_of_allowed"], 100,
                at_most=True)
    for name, (limit, what) in LIMITS.items():
        if name in counts:
            add("instructions: " + what, counts[name], limit, at_most=True)
    draws = {name: count for name, count in counts.items() if name.startswith("draw_")}
    if draws:
        dearest = max(draws, key=draws.get)
        add(f"instructions: a drawn element, the most of all ({dearest})", draws[dearest], MOST_PER_ELEMENT,
            at_most=True)
    for run in times.values():
        if "members_per_second" in run:
            add("members a second, 10,000 from JSON text", run["members_per_second"], LEAST_MEMBERS_A_SECOND,
                at_most=False)
            add("bytes a member of them", run["bytes_per_member"], MOST_BYTES_A_MEMBER, at_most=True)
    return rows


def print_peers(times):
    rows = []
    for subject, ratio in ratios(times).items():
        least = least_ratio(subject)
        aim = "" if least is None else str(least) if ratio >= least else f"{least}: **missed**"
        ours, peer = times["elevation/" + subject], times["occt/" + subject]
        rows.append([subject, duration(nanoseconds(ours)), duration(nanoseconds(peer)), f"{ratio:,.0f}", aim])
    if rows:
        print_table(["elevation of", "ours", "exact hidden lines (OpenCASCADE)", "times faster", "at least"], rows)


def print_matrix(figures, separator, show):
    """A row for each member, a column for each work on it; returns the names of what went in."""
    rows, used = {}, set()
    for name in figures:
        work, _, subject = name.rpartition(separator)
        if work in OF_MEMBERS:
            rows.setdefault(subject, {})[work] = show(figures[name])
            used.add(name)
    columns = [work for work in OF_MEMBERS if any(work in row for row in rows.values())]
    if rows:
        print_table(["member"] + [work.replace("_", " ") for work in columns],
                    [[subject] + [row.get(work, "") for work in columns] for subject, row in rows.items()])
    return used


def print_conditions(reports):
    report = json.loads((reports / "bench_elevation.json").read_text())
    context, rounds = report["context"], report["benchmarks"][0]["repetitions"]
    print(f"Measured on {context['date'][:10]}: {context['num_cpus']} cores at {context['mhz_per_cpu']} MHz, load average "
          f"{context['load_avg'][0]:.1f}, release build; times are medians of {rounds} runs.\n")


def print_figures(reports):
    times, counts = read_times(reports), read_counts(reports)
    print_conditions(reports)
    print_table(["to be reached", "measured", "aim", ""], targets(times, counts))
    print_peers(times)
    print("Instructions a call; of drawing, an element:\n")
    used = print_matrix(counts, "_", lambda count: f"{count:,.0f}")
    print_table(["other work", "instructions a call"],
                [[name, f"{count:,.0f}"] for name, count in counts.items() if name not in used])
    print("Times:\n")
    used = print_matrix(times, "/", lambda run: duration(nanoseconds(run)))
    print_table(["other work", "time"], [[name, duration(nanoseconds(run))] for name, run in times.items()
                                         if name not in used and not name.startswith("occt")])


def main(folder, document=None):
    figures = io.StringIO()
    with contextlib.redirect_stdout(figures):
        print_figures(pathlib.Path(folder))
    print(figures.getvalue(), end="")
    if document:
        before, rest = pathlib.Path(document).read_text().split(FIGURES)
        after = rest.split(END)[1]
        pathlib.Path(document).write_text(before + FIGURES + "\n" + figures.getvalue() + END + after)


if __name__ == "__main__":
    main(*sys.argv[1:])
