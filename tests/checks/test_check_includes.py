#!/usr/bin/env python3
"""The include check finds what it is made for: every spelling of a GUI header, and circles."""

import os
import subprocess
import sys
import tempfile
import unittest

SCRIPT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "check_includes.py")
QT_INCLUDES = os.environ["QT_INCLUDE_ROOT"]


class CheckIncludes(unittest.TestCase):
    def run_on(self, sources, engine):
        with tempfile.TemporaryDirectory() as root:
            for name, text in sources.items():
                path = os.path.join(root, name)
                os.makedirs(os.path.dirname(path), exist_ok=True)
                with open(path, "w", encoding="utf-8") as file:
                    file.write(text)
            files = [os.path.join(root, name) for name in engine]
            return subprocess.run(
                [sys.executable, SCRIPT, "--source-root", root, "--qt-include-root", QT_INCLUDES] + files,
                capture_output=True, text=True)

    def test_accepts_an_engine_file_without_gui_headers(self):
        result = self.run_on({"a/A.cpp": '#include "a/A.h"\n', "a/A.h": "#include <QObject>\n#include <vector>\n"},
                             ["a/A.cpp", "a/A.h"])
        self.assertEqual(result.returncode, 0, result.stdout)

    def test_refuses_every_spelling_of_a_gui_header(self):
        for spelling in ("<QWidget>", "<qwidget.h>", "<QtWidgets/QWidget>", "<QtWidgets/qwidget.h>", "<QtWidgets>",
                         '"QColor"', "<QtGui/QColor>", "<qcolor.h>", "<QSound>", "  <QImage>"):
            with self.subTest(spelling):
                result = self.run_on({"a/A.cpp": f"#  include {spelling}\n"}, ["a/A.cpp"])
                self.assertEqual(result.returncode, 1, result.stdout)

    def test_refuses_a_gui_header_behind_a_header_of_the_program(self):
        result = self.run_on({"a/A.cpp": '#include "b/B.h"\n', "b/B.h": "#include <QLabel>\n"}, ["a/A.cpp"])
        self.assertEqual(result.returncode, 1, result.stdout)

    def test_refuses_headers_in_a_circle(self):
        result = self.run_on({"a/A.h": '#include "b/B.h"\n', "b/B.h": '#include "a/A.h"\n'}, [])
        self.assertEqual(result.returncode, 1, result.stdout)
        self.assertIn("circle", result.stdout)


if __name__ == "__main__":
    unittest.main()
