"""Sums up what ctest ran: count_tests.py RESULTS

RESULTS holds one ctest JUnit file per build (release.xml) and, in a folder named like the build, one GoogleTest report
per test program. A test program counts as many tests as it reports; one that left no report (it crashed), and any other
ctest entry, counts as one. Exits non-zero if a test failed, or if a build that ran its tests ran none.
"""
import pathlib
import sys
import xml.etree.ElementTree as ElementTree


def count_report(path):
    cases = list(ElementTree.parse(path).getroot().iter("testcase"))
    failed = sum(1 for case in cases if case.find("failure") is not None)
    skipped = sum(1 for case in cases if case.get("result") == "skipped" or case.get("status") == "notrun")
    return len(cases) - failed - skipped, failed, skipped


def count_build(junit):
    passed = failed = skipped = 0
    for case in ElementTree.parse(junit).getroot().iter("testcase"):
        status = case.get("status")
        report = junit.with_suffix("") / (case.get("name") + ".xml")
        if report.exists():
            good, bad, left = count_report(report)
            if status == "fail" and bad == 0:  # everything passed, and then the program failed at its end
                bad = 1
            passed, failed, skipped = passed + good, failed + bad, skipped + left
        elif status == "run":
            passed += 1
        elif status == "fail":
            failed += 1
        else:
            skipped += 1
    return passed, failed, skipped


def main(folder):
    totals = [0, 0, 0]
    complete = True
    for junit in sorted(pathlib.Path(folder).glob("*.xml")):
        counts = count_build(junit)
        print(f"{junit.stem}: {counts[0]} passed, {counts[1]} failed, {counts[2]} skipped")
        complete = complete and counts[0] > 0
        totals = [total + count for total, count in zip(totals, counts)]
    print(f"total: {totals[0]} passed, {totals[1]} failed, {totals[2]} skipped")
    return 0 if complete and totals[1] == 0 else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
