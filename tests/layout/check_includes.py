"""Checks that no include of src/ or tools/ points upward in the order of its layers, and that each resolves.

A folder includes itself and what stands on a lower layer; folders that share a layer do not know each
other. The umbrella header stands above all of src, and the tool above that. Usage: check_includes.py PROJECT
"""

import re
import sys
from pathlib import Path

SRC_LAYERS = (
    ("host/zol",),
    ("faults",),
    ("host/models",),
    ("schema",),
    ("values",),
    ("entities",),
    ("generic", "attrlog"),
    ("types",),
    ("hwrailseq.h",),
)
TOOL_LAYERS = (
    ("railseq/base",),
    ("railseq/json",),
    ("railseq/values",),
    ("railseq/board",),
    ("railseq/attach", "railseq/demo"),
    ("railseq/recording",),
    ("railseq/commands",),
)
TREES = (("src", SRC_LAYERS), ("tools", TOOL_LAYERS))
SUFFIXES = {".h", ".cpp", ".def", ".S"}
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<(hwrailseq\.h)>)')
BLOCK_COMMENT = re.compile(r"/\*.*?\*/", re.DOTALL)


def place(path, layers=SRC_LAYERS):
    """The layer's number and the folder of a path relative to its tree, or None when it has no place."""
    for level, folders in enumerate(layers):
        for folder in folders:
            if path == folder or path.startswith(folder + "/"):
                return level, folder
    return None


def may_include(includer, included):
    """Whether a file in the one place may include a file in the other."""
    return included[0] < includer[0] or included == includer


def includes(text):
    """Line number and path of each quoted include; comments keep their line breaks."""
    text = BLOCK_COMMENT.sub(lambda comment: "\n" * comment.group().count("\n"), text)
    for number, line in enumerate(text.splitlines(), 1):
        if found := INCLUDE.match(line):
            yield number, found.group(1) or found.group(2)


def violations(project):
    """One line of text for each include that is not as it must be."""
    project = Path(project)
    found = []
    for tree, layers in TREES:
        for file in sorted((project / tree).rglob("*")):
            if file.suffix not in SUFFIXES:
                continue
            name = file.relative_to(project / tree).as_posix()
            own = place(name, layers)
            if own is None:
                found.append(f"{tree}/{name}: stands in no layer")
                continue
            for number, target in includes(file.read_text(encoding="utf-8")):
                where = f"{tree}/{name}:{number}"
                other = place(target, layers)
                if not (project / tree / target).is_file():
                    # The tool may include all of the library.
                    if tree == "src" or not (project / "src" / target).is_file():
                        found.append(f"{where}: \"{target}\" is no file of {tree}")
                elif other is None:
                    found.append(f"{where}: \"{target}\" stands in no layer")
                elif not may_include(own, other):
                    found.append(f"{where}: {own[1]} may not include {other[1]} (\"{target}\")")
    return found


def main():
    if len(sys.argv) != 2:
        sys.exit("usage: check_includes.py PROJECT")
    if not (Path(sys.argv[1]) / "src").is_dir():
        sys.exit(f"{sys.argv[1]} has no folder src")
    found = violations(sys.argv[1])
    print("\n".join(found) if found else "all includes point downward")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
