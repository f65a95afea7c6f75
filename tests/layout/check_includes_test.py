"""Proves on small trees of its own that check_includes finds what it must find, and only that."""

import tempfile
import unittest
from pathlib import Path

from check_includes import violations


class CheckIncludes(unittest.TestCase):
    def found_in(self, files):
        with tempfile.TemporaryDirectory() as project:
            for name, text in files.items():
                path = Path(project) / "src" / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            return violations(project)

    def test_downward_and_own_folder_are_allowed(self):
        self.assertEqual([], self.found_in({
            "host/zol/text.h": "#include <string>\n",
            "host/zol/attrlog/out.h": '#include "host/zol/text.h"\n',
            "entities/config.h": '#include "host/zol/attrlog/out.h"\n',
            "types/load.cpp": '#include "entities/config.h"\n',
            "hwrailseq.h": '#include "entities/config.h"\n',
        }))

    def test_upward_include_is_found_with_its_line(self):
        self.assertEqual(
            ['src/host/zol/text.h:2: host/zol may not include entities ("entities/config.h")'],
            self.found_in({
                "host/zol/text.h": '#pragma once\n#  include "entities/config.h"\n',
                "entities/config.h": "",
            }))

    def test_folders_of_one_layer_do_not_know_each_other(self):
        found = self.found_in({
            "generic/a.h": '#include "attrlog/b.h"\n',
            "attrlog/b.h": '#include "generic/a.h"\n',
        })
        self.assertEqual(
            ['src/attrlog/b.h:1: attrlog may not include generic ("generic/a.h")',
             'src/generic/a.h:1: generic may not include attrlog ("attrlog/b.h")'], found)

    def test_list_and_umbrella_are_checked_too(self):
        self.assertEqual(2, len(self.found_in({
            "schema/Config.def": '#include "values/cause.h"\n',
            "values/cause.h": "#include <hwrailseq.h>\n",
            "hwrailseq.h": "",
        })))

    def test_include_must_resolve_below_src(self):
        self.assertEqual(['src/entities/a.h:1: "b.h" is no file of src'], self.found_in({
            "entities/a.h": '#include "b.h"\n',
            "entities/b.h": "",
        }))

    def test_file_without_a_layer_is_found(self):
        self.assertEqual(["src/misc/a.h: stands in no layer"], self.found_in({"misc/a.h": ""}))

    def test_commented_include_is_no_include(self):
        self.assertEqual([], self.found_in({
            "values/a.h": '/*\n#include "types/a.h"\n*/\n// #include "types/a.h"\n',
        }))


if __name__ == "__main__":
    unittest.main()
