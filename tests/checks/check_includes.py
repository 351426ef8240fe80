#!/usr/bin/env python3
"""Reads the #include lines of the sources and reports two faults.

usage: check_includes.py --source-root SRC --qt-include-root DIR FILE...

- An engine file (FILE...) that names a header of a Qt module with a GUI, by any spelling:
  <QWidget>, <qwidget.h>, <QtWidgets/QWidget>, <QtWidgets/qwidget.h>, <QtWidgets>, quotes or
  angle brackets; or that includes a header of the program whose own includes do.
- Headers below SRC that include each other in a circle.
"""

import argparse
import os
import re
import sys

GUI_MODULES = (
    "QtGui", "QtWidgets", "QtMultimedia", "QtMultimediaWidgets", "QtPrintSupport", "QtOpenGL", "QtSvg",
    "QtDBus",
)
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]', re.MULTILINE)


def includes_of(path):
    with open(path, encoding="utf-8", errors="replace") as file:
        return INCLUDE.findall(file.read())


def gui_header_names(qt_include_root):
    """Names by which a GUI module's headers can be spelt without the module."""
    names = set()
    for module in GUI_MODULES:
        names.add(module.lower())
        directory = os.path.join(qt_include_root, module)
        if os.path.isdir(directory):
            names.update(name.lower() for name in os.listdir(directory))
    return names


def is_gui_header(name, gui_names):
    parts = name.split("/")
    if parts[0] in GUI_MODULES:
        return True
    return len(parts) == 1 and name.lower() in gui_names


def own_header(source_root, name):
    path = os.path.join(source_root, name)
    return path if os.path.isfile(path) else None


def gui_faults(files, source_root, gui_names):
    faults = []
    for start in files:
        pending, seen = [(start, start)], set()
        while pending:
            path, trail = pending.pop()
            if path in seen:
                continue
            seen.add(path)
            for name in includes_of(path):
                if is_gui_header(name, gui_names):
                    faults.append(f"{trail}: names the GUI header {name}")
                header = own_header(source_root, name)
                if header:
                    pending.append((header, f"{trail} -> {name}"))
    return faults


def circles(source_root):
    graph = {}
    for directory, _, names in os.walk(source_root):
        for name in names:
            if name.endswith(".h"):
                path = os.path.join(directory, name)
                key = os.path.relpath(path, source_root)
                graph[key] = [other for other in includes_of(path) if own_header(source_root, other)]
    faults, state = [], {}

    def visit(node, trail):
        state[node] = "open"
        for other in graph.get(node, []):
            if state.get(other) == "open":
                faults.append("circle: " + " -> ".join(trail[trail.index(other):] + [other]))
            elif other not in state:
                visit(other, trail + [other])
        state[node] = "done"

    for node in sorted(graph):
        if node not in state:
            visit(node, [node])
    return faults


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--source-root", required=True)
    parser.add_argument("--qt-include-root", required=True)
    parser.add_argument("files", nargs="*")
    arguments = parser.parse_args()

    names = gui_header_names(arguments.qt_include_root)
    if "qwidget" not in names or "qcolor" not in names:
        print(f"{arguments.qt_include_root}: no Qt GUI headers here, the check would see nothing")
        return 2
    faults = gui_faults(arguments.files, arguments.source_root, names) + circles(arguments.source_root)
    print("\n".join(faults))
    print(f"{len(arguments.files)} engine files read, {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
