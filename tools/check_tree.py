#!/usr/bin/env python3
"""Checks what the compiler cannot: the order of the layers, and that the core stays free of the toolkit.

A folder of src/ may include only headers of folders that stand before it in LAYERS, and its own. Qt may be included
under ui/ and platform/qt/ alone. Prints each offence as file:line and ends with 1 when there is one.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
LAYERS = [
    "rich_text", "platform", "templates", "import", "settings", "editor/rtfscan", "editor", "aids", "template_editor", "shell",
    "platform/qt", "settings/ui", "editor/ui", "aids/ui", "template_editor/ui", "shell/ui",
]
INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^>"]+)[>"]')
LINES_OF_A_FILE = 500


def folder_of(path: str) -> str:
    """The longest layer that the path lies in."""
    return max((layer for layer in LAYERS if path.startswith(layer + "/")), key=len, default="")


def offences_of(file: pathlib.Path) -> list[str]:
    relative = file.relative_to(ROOT / "src").as_posix()
    layer = folder_of(relative)
    may_use_qt = layer == "platform/qt" or layer.endswith("/ui")
    offences = []
    lines = file.read_text(encoding="utf-8").splitlines()
    for number, line in enumerate(lines, 1):
        match = INCLUDE.match(line)
        if not match:
            continue
        quoted, header = match.group(1) == '"', match.group(2)
        where = f"{file.relative_to(ROOT)}:{number}"
        if quoted:
            other = folder_of(header)
            if not other:
                offences.append(f"{where}: {header} is in no layer")
            elif LAYERS.index(other) > LAYERS.index(layer):
                offences.append(f"{where}: {layer} includes {header}, which stands above it")
        elif re.match(r"Q[A-Za-z]|Qsci/", header) and not may_use_qt:
            offences.append(f"{where}: {layer} includes {header}, but only ui/ and platform/qt/ may know Qt")
    if not layer:
        offences.append(f"{relative}: lies in no layer")
    if len(lines) > LINES_OF_A_FILE:
        offences.append(f"{relative}: {len(lines)} lines, more than {LINES_OF_A_FILE}")
    return offences


def main() -> int:
    offences = []
    for file in sorted((ROOT / "src").rglob("*")):
        if file.suffix in (".h", ".cpp"):
            offences += offences_of(file)
    print("\n".join(offences) if offences else "check_tree: the layers hold")
    return 1 if offences else 0


if __name__ == "__main__":
    sys.exit(main())
