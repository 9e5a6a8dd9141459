"""The layering test finds what is planted, and only that."""
import pathlib
import tempfile
import unittest

import layering


class Layering(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.root = pathlib.Path(self.folder.name)
        for layer in layering.HOST:
            self.write(f"src/{layer}/{layer.split('/')[1]}.h", "#include <vector>")
        self.write("src/records/KrVector.h", '#include "host/ge/ge.h"')
        self.write("src/object/KrObject.h", '#include "records/KrVector.h"\n#include "host/db/db.h"')
        self.write("src/host/io/plot/Page.h", "#include <cairo/cairo.h>")
        self.write("apps/kr/main.cpp", '#include "object/KrObject.h"\n#include "host/io/plot/Page.h"\n#include <fmt/core.h>')

    def write(self, path, text):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(("#pragma once\n" if path.endswith(".h") else "") + text)

    def faults_with(self, path, text):
        self.write(path, text)
        return layering.check(self.root)[1]

    def assert_one_fault(self, path, text, line, words):
        faults = self.faults_with(path, text)
        self.assertEqual(len(faults), 1, faults)
        self.assertTrue(faults[0].startswith(f"{path}:{line}: "), faults[0])
        self.assertIn(words, faults[0])

    def test_good_tree_has_no_fault(self):
        self.assertEqual(layering.check(self.root)[1], [])

    def test_host_that_knows_a_member(self):
        self.assert_one_fault("src/host/db/x.cpp", '#include "records/KrVector.h"', 1, "knows records")

    def test_geometry_that_knows_the_database(self):
        self.assert_one_fault("src/host/ge/x.h", '#include <cmath>\n#include "host/db/db.h"', 3, "knows host/db")

    def test_database_that_knows_the_pages(self):
        self.assert_one_fault("src/host/db/x.cpp", '#include "host/io/plot/Page.h"', 1, "knows host/io")

    def test_record_that_knows_the_object(self):
        self.assert_one_fault("src/records/x.cpp", '#include "object/KrObject.h"', 1, "knows object")

    def test_record_beside_its_header(self):
        self.assertEqual(self.faults_with("src/records/x.cpp", '#include "KrVector.h"'), [])

    def test_member_that_reaches_into_the_host(self):
        self.write("src/host/ge/Point.h", "")
        self.assert_one_fault("src/object/x.cpp", '#include "host/ge/Point.h"', 1, "umbrella")

    def test_member_that_knows_the_operating_system(self):
        self.assert_one_fault("src/support/x.cpp", "#include <unistd.h>", 1, "the operating system")

    def test_member_that_knows_a_third_party(self):
        self.assert_one_fault("src/profiles/x.cpp", "#include <fmt/core.h>", 1, "the formatting library")

    def test_header_of_no_known_library(self):
        self.assert_one_fault("src/object/x.cpp", "#include <boost/any.hpp>", 1, "neither")

    def test_program_is_known_by_nobody(self):
        self.write("apps/kr/Verb.h", "")
        self.assert_one_fault("src/frame/x.cpp", '#include "../../apps/kr/Verb.h"', 1, "knows apps")

    def test_include_that_is_only_a_comment(self):
        self.assertEqual(self.faults_with("src/host/ge/x.cpp", '// #include "host/db/db.h"\n/*\n#include <fmt/x.h>\n*/'), [])

    def test_include_with_spaces(self):
        self.assert_one_fault("src/host/ge/x.cpp", '\n  #  include   "host/db/db.h"', 2, "knows host/db")

    def test_header_that_comes_back_to_itself(self):
        self.write("src/records/A.h", '#include "records/B.h"')
        faults = self.faults_with("src/records/B.h", '#include "records/A.h"')
        self.assertEqual(len(faults), 1, faults)
        self.assertIn("src/records/A.h > src/records/B.h > src/records/A.h", faults[0])

    def test_header_without_guard(self):
        (self.root / "src/records/x.h").write_text("")
        self.assertEqual(layering.check(self.root)[1], ["src/records/x.h: has no #pragma once"])

    def test_include_of_nothing(self):
        self.assert_one_fault("src/records/x.cpp", '#include "records/Missing.h"', 1, "does not exist")

    def test_source_in_no_layer(self):
        self.assertEqual(self.faults_with("src/misc/x.cpp", ""), ["src/misc/x.cpp: is in no layer"])


if __name__ == "__main__":
    unittest.main()
