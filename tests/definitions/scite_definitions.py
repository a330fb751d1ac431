#!/usr/bin/env python3
"""Makes a template of every language of SciTE's property files, and colours a sample with it.

What the files say is read here a second time, more simply. A file does not say what begins a string: that is the
matter of SciTE's lexers, and where one has a style for strings, a double or a single quote has to begin one.
"""

import pathlib
import re
import sys

import colours

FOLDER = pathlib.Path("/usr/share/scite")


class Properties:
    """The settings of a file and of the global one: raw values by raw key."""

    def __init__(self, file):
        self.values, self.headings = {}, {}
        for one in (FOLDER / "SciTEGlobal.properties", file):
            self.read(one)

    def read(self, file):
        text = file.read_bytes().decode("utf-8", "replace").replace("\r\n", "\n")
        holds, heading = True, ""
        for line in re.sub(r"\\\n", "", text).split("\n"):
            if line.startswith("#"):
                heading = line.lower()
                continue
            if line and not line[0].isspace():
                holds = True
            condition = re.fullmatch(r"if (\S+)\s*", line)
            if condition:
                holds = condition.group(1) == "PLAT_GTK"
            elif line.startswith("import ") and (FOLDER / (line[7:].strip() + ".properties")).exists():
                self.read(FOLDER / (line[7:].strip() + ".properties"))
            elif holds and "=" in line:
                key, value = line.strip().split("=", 1)
                self.values[key] = value
                self.headings[key] = heading

    def expand(self, text, depth=0):
        if depth > 50:
            return ""
        return re.sub(r"\$\(([^()]*)\)", lambda found: self.expand(self.values.get(found.group(1), ""), depth + 1), text)

    def languages(self):
        """Pairs of a language's patterns, as written, and its lexer."""
        for key, value in self.values.items():
            found = re.fullmatch(r"lexer\.(\$\(file\.patterns\.[^)]*\)|\*\..*)", key)
            if found:
                yield found.group(1), value

    def words(self, patterns):
        """The words of the first set, which is that of the keywords in nearly all lexers."""
        return self.expand(self.values.get(f"keywords.{patterns}", "")).split()

    def has_style(self, lexer, what):
        """Whether the heading of one of the lexer's styles names something."""
        return any(what in heading for key, heading in self.headings.items() if key.startswith(f"style.{lexer}."))

    def comments(self, lexer):
        line = self.values.get(f"comment.block.{lexer}", "").rstrip("~ ")
        pair = [self.values.get(f"comment.stream.{end}.{lexer}", "") for end in ("start", "end")]
        return ([(line, "")] if line else []) + ([tuple(pair)] if all(pair) else [])


# Words of these lexers are names of elements, or stand behind a backslash.
FORMS = {"hypertext": "<{}", "tex": "\\{}", "latex": "\\{}"}
# The file's marks are for commenting out and not what the lexer takes for a comment.
OTHER_MARKS = {"hypertext": "//", "forth": "\\# comment", "registry": ";;", "scriptol": "`", "sas": "*"}
# A style of these names a string in another sense, or is for a part of one.
NO_STRINGS = {"asciidoc", "diff", "errorlist", "makefile", "props", "ps", "tex", "latex", "txt2tags", "yaml", "markdown"}


def examine(run, file, properties, patterns, lexer):
    name = re.sub(r"^\$\(file\.patterns\.|^\*\.|\)$", "", patterns)
    if run.make(file, "--language", name) is None:
        return
    form = FORMS.get(lexer, "{}")
    words = [word for word in properties.words(patterns) if not re.search(r"[~^]", word)]
    comments = [pair for pair in properties.comments(lexer) if pair[0] != OTHER_MARKS.get(lexer)]
    run.examine(f"{file.name} {name}", colours.Facts(words, comments, []), form.format)
    if properties.has_style(lexer, "string") and lexer not in NO_STRINGS:
        runs = run.colours_of("\"qmx\"\n'qmx'\n")
        run.check(any((colours.TEXT, "qmx") in line for line in runs), f"{file.name} {name}: no strings: {runs}")
        run.counts["with strings"] += 1


def main():
    run = colours.Run(sys.argv[1])
    for file in sorted(FOLDER.glob("*.properties")):
        properties = Properties(file)
        for patterns, lexer in properties.languages():
            examine(run, file, properties, patterns, lexer)
    return run.ends({"definitions": 240, "with words": 205, "with comments": 190, "with strings": 100, "words": 27000})


if __name__ == "__main__":
    sys.exit(main())
