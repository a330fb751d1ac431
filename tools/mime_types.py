#!/usr/bin/env python3
"""Keeps the types of data/desktop/quillmark.desktop in step with the templates that ship.

mime_types.py [--write]

A desktop offers Quillmark for a file when quillmark.desktop lists the file's type. This looks the extensions of every
template up in the system's list of types (shared-mime-info) and in data/desktop/quillmark.xml, and compares the types
found with the MimeType line; --write puts them there. The first extension of a template must have a type: where the
system has none, quillmark.xml must give it one.
"""

import pathlib
import sys
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent
DESKTOP = ROOT / "data/desktop"
SYSTEM = pathlib.Path("/usr/share/mime/packages/freedesktop.org.xml")
NAMESPACE = "{http://www.freedesktop.org/standards/shared-mime-info}"
MEDIA = ("audio/", "image/", "video/")  # drawings may be texts, but nobody expects an editor of texts to open them


class Types:
    """The types of the system together with Quillmark's own: their patterns, and which of them are texts."""

    def __init__(self, *files: pathlib.Path):
        self._globs: dict[str, set[tuple[int, str]]] = {}
        self._parents: dict[str, set[str]] = {}
        for file in files:
            for kind in xml.etree.ElementTree.parse(file).iter(NAMESPACE + "mime-type"):
                self._add(kind)

    def _add(self, kind) -> None:
        name = kind.get("type")
        for parent in kind.iter(NAMESPACE + "sub-class-of"):
            self._parents.setdefault(name, set()).add(parent.get("type"))
        for glob in kind.iter(NAMESPACE + "glob"):
            weight = int(glob.get("weight", "50"))
            self._globs.setdefault(glob.get("pattern").lower(), set()).add((weight, name))

    def _is_text(self, name: str) -> bool:
        return name.startswith("text/") or any(map(self._is_text, self._parents.get(name, ())))

    def of(self, extension: str) -> set[str]:
        """The types of the greatest weight that are texts; several where the desktop looks into the file to decide."""
        found = self._globs.get("*." + extension, set()) | self._globs.get(extension, set())
        heaviest = max((weight for weight, _ in found), default=0)
        return {name for weight, name in found if weight == heaviest and self._is_text(name) and not name.startswith(MEDIA)}


def extensions_of(template: pathlib.Path) -> list[str]:
    for line in template.read_text(encoding="utf-8").splitlines():
        if line.startswith("X:"):
            return [extension.strip().lower() for extension in line[2:].split(";") if extension.strip()]
    return []


def wanted_line() -> tuple[str, list[str]]:
    """The MimeType line, and what is missing."""
    known = Types(SYSTEM, DESKTOP / "quillmark.xml")
    types, missing = {"text/plain"}, []
    for template in sorted((ROOT / "data/templates").glob("*.def")):
        extensions = extensions_of(template)
        if extensions and not known.of(extensions[0]):
            missing.append(f"{template.name}: files *.{extensions[0]} have no type; give them one in data/desktop/quillmark.xml")
        for extension in extensions:
            types |= known.of(extension)
    return "MimeType=" + "".join(name + ";" for name in sorted(types)), missing


def main() -> int:
    entry = DESKTOP / "quillmark.desktop"
    lines = entry.read_text(encoding="utf-8").splitlines()
    wanted, problems = wanted_line()
    written = [wanted if line.startswith("MimeType=") else line for line in lines]
    if "--write" in sys.argv[1:]:
        entry.write_text("\n".join(written) + "\n", encoding="utf-8")
    elif written != lines:
        problems.append("data/desktop/quillmark.desktop does not list the templates' types: run tools/mime_types.py --write")
    print("\n".join(problems) if problems else "mime_types: the desktop entry lists the templates' types")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
