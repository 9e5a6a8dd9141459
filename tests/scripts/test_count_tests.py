"""The sum of tests neither loses a failure nor counts what did not run."""
import contextlib
import io
import pathlib
import tempfile
import unittest

import count_tests


class CountTests(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.results = pathlib.Path(folder.name)
        (self.results / "release").mkdir()

    def ran(self, **entries):
        cases = "".join(f'<testcase name="{name}" status="{status}"/>' for name, status in entries.items())
        (self.results / "release.xml").write_text(f"<testsuite>{cases}</testsuite>")

    def reported(self, name, passed=0, failed=0, skipped=0):
        cases = '<testcase status="run" result="completed"/>' * passed
        cases += '<testcase status="run" result="completed"><failure message="x"/></testcase>' * failed
        cases += '<testcase status="run" result="skipped"><skipped message=""/></testcase>' * skipped
        report = f"<testsuites><testsuite>{cases}</testsuite></testsuites>"
        (self.results / "release" / f"{name}.xml").write_text(report)

    def result(self):
        output = io.StringIO()
        with contextlib.redirect_stdout(output):
            code = count_tests.main(self.results)
        return code, output.getvalue().splitlines()[-1]

    def test_cases_of_programs_and_other_entries_add_up(self):
        self.ran(test_a="run", test_b="run", layering="run")
        self.reported("test_a", passed=5, skipped=1)
        self.reported("test_b", passed=7)
        self.assertEqual(self.result(), (0, "total: 13 passed, 0 failed, 1 skipped"))

    def test_failed_case(self):
        self.ran(test_a="fail")
        self.reported("test_a", passed=5, failed=2)
        self.assertEqual(self.result(), (1, "total: 5 passed, 2 failed, 0 skipped"))

    def test_program_that_crashed_before_its_report(self):
        self.ran(test_a="fail", test_b="run")
        self.reported("test_b", passed=3)
        self.assertEqual(self.result(), (1, "total: 3 passed, 1 failed, 0 skipped"))

    def test_program_that_failed_after_its_cases_passed(self):
        self.ran(test_a="fail")
        self.reported("test_a", passed=3)
        self.assertEqual(self.result(), (1, "total: 3 passed, 1 failed, 0 skipped"))

    def test_build_that_ran_nothing_is_no_success(self):
        self.ran()
        self.assertEqual(self.result(), (1, "total: 0 passed, 0 failed, 0 skipped"))

    def test_entry_that_did_not_run_is_not_counted_as_passed(self):
        self.ran(layering="notrun", other="run")
        self.assertEqual(self.result(), (0, "total: 1 passed, 0 failed, 1 skipped"))


if __name__ == "__main__":
    unittest.main()
