#!/usr/bin/env python3
"""Compares the templates that ship with another highlighter: templates.py [OPTION…] [TEMPLATE…].

For each template that ships and that KDE's highlighter has a definition for, real source files are coloured with
quillmark-colour and with KDE's kate-syntax-highlighter, and the two are compared character by character. Without names
every template is compared; the last lines tell the average and the minimum. Ends with 1 when a row is below 90 % and
REASONS has no reason for it, when a template stands in no table here, or when a row has no files.

  --colourer PATH  another quillmark-colour than build/bin/quillmark-colour
  --show NAME      of this template the most costly disagreements, and the first ones in context
  --count N        how many of them (default 40)
  --files          names the files that were taken

What is compared. Blanks and line ends count for nothing. Every other character has one of four classes on either side:
comment, string, keyword, other. The share is taken over the characters that at least one side puts into one of the
first three classes: those on which both agree, divided by all of them. The three further columns are the same share over
the characters that one side or the other puts into that class.

KDE's side. Its theme is one of ours in which each of its 31 styles has a colour of its own, so the style of a character
is read from its colour. CLASS_OF_STYLE says which styles are which class, for all languages alike. Where a definition
draws a text between quotes in a style that has nothing to do with texts, STYLE_EXCEPTIONS says so. What has a colour
that the definition itself fixes (a warning word in a comment) has the style of what stands before it. A keyword is a word:
brackets and operators (SIGNS) that either side draws like keywords are other.

Our side. All templates share one palette; the place of the colour says the class: 1 comment, 2 string, 3 keyword.
Colours 4 to 7 are words that the template knows as types, literals, directives, functions: they agree with KDE's
keywords, because which of its groups a word of the language falls into is a question of taste, and they count as other
everywhere else. For the same reason a word that we draw as a keyword and KDE as a type, a function, an operator … (the
styles NAMED) is left out. The format cannot colour the quotes around a text (an included start word would be its own
end), so the quotes that a range leaves out at its two ends count as part of it. It cannot colour a value that is put into
a text ("$name") either: where both sides have the same two ends of a text, what KDE draws in it as something else is left
out.
"""

import argparse
import collections
import html
import json
import os
import pathlib
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

import real_files

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = pathlib.Path(os.environ.get("QUILLMARK_BUILD_DIR", ROOT / "build"))
THEME = BUILD / "template-sources" / "theme"
TEMPLATES = ROOT / "data" / "templates"

# Template: (KDE's definition, where its sources are: places as in real_files.py). What stands behind "/" in a name tells rows
# of one template apart, for which KDE has several definitions.
LANGUAGES = {
    "Assembler/GNU": ("GNU Assembler", ["npm:ffi-napi@4.0.3/deps/libffi/src/x86/*.S", "/usr/share/go-1.19/src/runtime/**/gcc_amd64.S",
                                        "/usr/share/go-1.19/src/runtime/**/gcc_386.S", "deb:librust-psm-dev/usr/**/x86_64.s",
                                        "deb:librust-blake3-dev/usr/**/*.S"]),
    "Assembler/NASM": ("Intel x86 (NASM)", ["deb:librust-rav1e-dev/usr/**/*.asm"]),
    "Batch": ("MS-DOS Batch", ["/usr/share/**/*.bat", "/usr/lib/**/*.cmd", "deb:libboost1.81-tools-dev/usr/**/*.bat",
                               "npm:cordova-windows@7.0.1/**/*.bat", "npm:cordova-android@9.0.0/**/*.bat",
                               "npm:react-native@0.72.0/**/*.bat", "npm:allure-commandline@2.24.0/dist/**/*.bat"]),
    "CMake": ("CMake", ["/usr/share/**/*.cmake", "/usr/lib/**/*.cmake", "/usr/share/**/CMakeLists.txt"]),
    "CSS": ("CSS", ["/usr/share/**/*.css", "/usr/lib/**/*.css"]),
    "CSharp": ("C#", ["npm:com.neuecc.unirx@7.1.0/**/*.cs", "npm:jp.keijiro.osc-jack@2.0.0/**/*.cs",
                      "npm:@react-native-windows/fs@1.0.2/**/*.cs", "npm:jp.keijiro.klak.testtools@3.1.1/**/*.cs"]),
    "Cpp": ("C++", ["/usr/include/**/*.hpp", "/usr/include/qt6/**/*.h", "/usr/include/c++/**/*.h", "/usr/share/**/*.cpp"]),
    "Dockerfile": ("Dockerfile", ["deb:golang-github-openshift-imagebuilder-dev/usr/**/Dockerfile*",
                                  "deb:golang-github-docker-docker-dev/usr/**/Dockerfile*", "/usr/lib/node_modules/**/Dockerfile",
                                  "/usr/share/**/Dockerfile"]),
    "Fortran": ("Fortran (Free Format)", ["deb:libpetsc3.18-dev-examples/usr/**/*.F90", "deb:fortran-language-server/usr/**/*.f90",
                                          "deb:plplot-doc/usr/**/*.f90", "deb:libhdf5-doc/usr/**/*.f90",
                                          "deb:python3-numpy/usr/**/*.f90"]),
    "Go": ("Go", ["deb:golang-1.19-src/usr/**/*.go"]),
    "HTML": ("HTML", ["/usr/share/**/*.html"]),
    "INI": ("INI Files", ["/usr/share/**/*.ini", "/usr/share/**/*.desktop", "/usr/lib/systemd/**/*.service", "/etc/**/*.ini"]),
    "JSON": ("JSON", ["/usr/share/**/*.json", "/usr/lib/**/*.json"]),
    "Java": ("Java", ["npm:react-native@0.72.17/ReactAndroid/**/*.java", "npm:@capacitor/android@8.5.2/**/*.java"]),
    "JavaScript": ("JavaScript", ["/usr/share/**/*.js", "/usr/lib/node_modules/**/*.js"]),
    "Kotlin": ("Kotlin", ["npm:expo-modules-core@58.0.7/**/*.kt", "npm:expo-updates@57.0.24/**/*.kt", "npm:expo-file-system@58.0.2/**/*.kt"]),
    "LaTeX": ("LaTeX", ["deb:texlive-humanities-doc/usr/**/*.tex", "/usr/share/doc/texlive-doc/latex/**/*.tex"]),
    "Lua": ("Lua", ["deb:lua-penlight/usr/**/*.lua", "deb:nmap-common/usr/**/*.lua", "deb:neovim-runtime/usr/**/*.lua",
                    "deb:awesome/usr/**/*.lua"]),
    "Makefile": ("Makefile", ["/usr/share/**/*.mk", "/usr/share/**/Makefile", "deb:cdbs/usr/**/*.mk", "deb:gnustep-make/usr/**/*.make",
                              "deb:libpetsc3.18-dev-examples/usr/**/makefile"]),
    "Markdown": ("Markdown", ["/usr/share/**/*.md", "/usr/lib/**/*.md"]),
    "Matlab": ("Octave", ["deb:octave-common/usr/share/octave/**/*.m", "deb:octave-statistics/usr/**/*.m", "deb:octave-signal/usr/**/*.m",
                          "deb:octave-control/usr/**/*.m", "deb:octave-image/usr/**/*.m"]),
    "PHP": ("PHP (HTML)", ["deb:php-codesniffer/usr/**/*.php", "deb:phpunit/usr/**/*.php", "deb:php-symfony-http-foundation/usr/**/*.php",
                           "deb:php-monolog/usr/**/*.php"]),
    "Pascal": ("Pascal", ["deb:fpc-source-3.2.2/usr/share/fpcsrc/**/*.pp", "deb:fpc-source-3.2.2/usr/share/fpcsrc/**/*.pas"]),
    "Perl": ("Perl", ["deb:libmojolicious-perl/usr/**/*.pm", "deb:libimage-exiftool-perl/usr/**/*.pm", "deb:libwww-perl/usr/**/*.pm",
                      "deb:libmoose-perl/usr/**/*.pm", "deb:libdatetime-perl/usr/**/*.pm"]),
    "PowerShell": ("PowerShell", ["deb:ansible/usr/**/*.ps1", "deb:ansible/usr/**/*.psm1", "/usr/lib/node_modules/**/*.ps1"]),
    "Python": ("Python", ["/usr/lib/python3*/**/*.py", "/usr/share/**/*.py"]),
    "R": ("R Script", ["deb:r-base-core/usr/**/*.R", "deb:r-cran-mass/usr/**/*.R", "deb:r-cran-survival/usr/**/*.R",
                       "deb:r-cran-shiny/usr/**/*.R", "deb:r-cran-knitr/usr/**/*.R"]),
    "Ruby": ("Ruby", ["deb:libruby3.1/usr/**/*.rb", "deb:ruby-activesupport/usr/**/*.rb", "deb:asciidoctor/usr/**/*.rb"]),
    "Rust": ("Rust", ["deb:rust-src/usr/**/library/**/*.rs", "deb:librust-clap-dev/usr/**/*.rs"]),
    "SQL": ("SQL (PostgreSQL)", ["/usr/share/postgresql/**/*.sql", "deb:postgresql-15/**/*.sql", "deb:mediawiki/**/postgres/**/*.sql",
                                 "deb:roundcube-core/usr/**/postgres*.sql", "deb:bacula-director-pgsql/**/*.sql"]),
    "Shell": ("Bash", ["/usr/share/**/*.sh", "/usr/lib/**/*.sh", "/etc/**/*.sh", "/usr/share/bash-completion/completions/*"]),
    "Swift": ("Swift", ["npm:expo-modules-core@58.0.7/**/*.swift", "npm:@capacitor/ios@8.5.2/**/*.swift",
                        "npm:react-native-ios-utilities@5.2.0/**/*.swift"]),
    "TOML": ("TOML", ["/usr/lib/**/*.toml", "deb:golang-github-burntsushi-toml-dev/**/*.toml", "deb:librust-clap-dev/**/*.toml",
                      "deb:librust-serde-json-dev/**/*.toml", "deb:librust-tokio-dev/**/*.toml", "deb:librust-regex-dev/**/*.toml",
                      "deb:librust-syn-dev/**/*.toml", "deb:librust-image-dev/**/*.toml"]),
    "Tcl": ("Tcl/Tk", ["deb:tcllib/usr/**/*.tcl", "deb:libtcl8.6/usr/**/*.tcl", "deb:libtk8.6/usr/**/*.tcl"]),
    "TypeScript": ("TypeScript", ["npm:rxjs@7.8.1/src/internal/**/*.ts", "npm:ajv@8.12.0/lib/**/*.ts",
                                  "npm:typescript@5.4.5/lib/*.d.ts", "npm:@types/node@20.11.0/*.d.ts"]),
    "XML": ("XML", ["/usr/share/**/*.xml", "/usr/share/**/*.svg", "/usr/share/**/*.xsl", "/usr/share/**/*.xsd",
                    "deb:docbook-xsl/usr/**/*.xsl", "deb:maven/usr/**/*.xml", "deb:libmaven3-core-java/usr/**/*.pom"]),
    "YAML": ("YAML", ["/usr/share/**/*.yml", "/usr/lib/**/*.yml", "npm:fastify@4.26.0/**/*.yml", "deb:ansible/**/*.yml",
                      "deb:cloud-init/**/*.yaml", "deb:netplan.io/**/*.yaml", "deb:rubocop/**/*.yml"]),
}


def template_of(name):
    return name.partition("/")[0]


# Templates that KDE has no definition for.
WITHOUT_DEFINITION = {"0PlainText"}

# Why a template is below LEAST.
REASONS = {}
LEAST = 0.90

# WORD and INSIDE are ours alone: colours 4 to 7, and what stands inside a text whose two ends KDE has as well.
OTHER, COMMENT, STRING, KEYWORD, WORD, INSIDE = range(6)
CLASS_NAMES = ["other", "comment", "string", "keyword", "word", "string"]
COLOUR_CLASSES = [COMMENT, STRING, KEYWORD, WORD, WORD, WORD, WORD, OTHER]  # by place in the palette

STYLES = """Normal Keyword Function Variable ControlFlow Operator BuiltIn Extension Preprocessor Attribute Char SpecialChar
String VerbatimString SpecialString Import DataType DecVal BaseN Float Constant Comment Documentation Annotation CommentVar
RegionMarker Information Warning Alert Error Others""".split()
CLASS_OF_STYLE = {
    **dict.fromkeys("Comment Documentation Annotation CommentVar RegionMarker Alert".split(), COMMENT),
    **dict.fromkeys("Char SpecialChar String VerbatimString SpecialString".split(), STRING),
    **dict.fromkeys("Keyword ControlFlow".split(), KEYWORD),
}
NAMED = set("""Function Variable Operator BuiltIn Extension Preprocessor Attribute Import DataType Constant Information
Warning Others""".split())
STYLE_EXCEPTIONS = {
    "JSON": {"DataType": STRING},  # the names of members are texts between quotes
    "YAML": {"Char": KEYWORD},  # true, false, null and the signs of blocks
    "Markdown": {"Function": KEYWORD, "Information": STRING, "SpecialString": OTHER, "Alert": OTHER, "Annotation": OTHER},  # headings, code, lists, pictures
    "R Script": {"SpecialChar": OTHER},  # operators
}
# Where the quotes around a text have the style of an operator.
QUOTE_STYLES = {"Perl": "Others"}
# By definition: (our class, KDE's style) of characters that both know but call by different names; they are left out.
LEFT_OUT = {
    "C#": {(COMMENT, "Keyword"), (COMMENT, "DataType"), (COMMENT, "Others")},  # tags in a documenting comment
    "CMake": {(COMMENT, "DataType"), (COMMENT, "String")},  # code in a documenting comment
    "Java": {(COMMENT, "Keyword"), (COMMENT, "DecVal"), (COMMENT, "Others")},  # HTML in a documenting comment
    "Ruby": {(KEYWORD, "DecVal"), (OTHER, "SpecialString")},  # self is a value to KDE; a regular expression is code to us
    "TOML": {(STRING, "DataType")},  # a name between quotes is a text to us
    "YAML": {(STRING, "Function")},  # the same
    "Markdown": {(OTHER, "Comment"), (WORD, "Comment"), (STRING, "Comment"), (STRING, "Others")},  # links, and code in their text
    # The value of a variable is a text to KDE, with or without quotes, and so is every sign in it.
    "Makefile": {(ours, style) for ours in (OTHER, KEYWORD, WORD) for style in ("String", "Char", "SpecialString")},
    "Perl": {(OTHER, "Char")},  # signs of a regular expression, which is code to us
    "PowerShell": {(WORD, "Comment")},  # what #Requires asks for is a statement
    "Python": {(STRING, "Comment")},  # a text that stands alone documents; no other comment is a text to us
}


# Both sides: a text's characters that are no blanks, and a number for each: its class, or its style.

SPAN = re.compile(r'<span style="(?:color:#([0-9a-f]{6}))?[^>]*>(.*?)</span>|([^<]+|<)', re.DOTALL)


def spans(page):
    """(colour or None, text) along the text of a page."""
    for span in SPAN.finditer(page[page.index("<pre>") + len("<pre>"):page.rindex("</pre>")]):
        yield span[1], html.unescape(span[3] or span[2])


def offsets_without_blanks(text):
    return [i for i, character in enumerate(text) if not character.isspace() and character != "\ufeff"]


def without_blanks(text, numbers):
    offsets = offsets_without_blanks(text)
    return "".join(text[i] for i in offsets), bytes(numbers[i] for i in offsets)


def class_of_style(definition, style):
    return STYLE_EXCEPTIONS.get(definition, {}).get(style, CLASS_OF_STYLE.get(style, OTHER))


QUOTES = set("\"'`")
SIGNS = set("()[]{}<>=/|&;:,.+*?%^~")


def without_signs(text, number, instead):
    return bytes(instead if character in SIGNS else number for character in text)


class Template:
    def __init__(self, name):
        self.path = TEMPLATES / f"{name}.def"
        self.classes, self.edges = {}, []
        for line in self.path.read_text(encoding="utf-8").splitlines():
            if line.startswith("C: "):
                value = line[4:].strip()
                self.classes.setdefault((value[4:6] + value[2:4] + value[0:2]).lower(), COLOUR_CLASSES[len(self.classes)])
            fields = line[3:].split(" ")
            if line.startswith("L: ") and len(fields) == 5 and fields[1] == "2" and fields[4] == "False":
                if QUOTES & set(fields[0]) or not any(map(str.isalnum, fields[0])):
                    self.edges.append((fields[0].lstrip("=([{,:"), fields[2]))
        self.edges.sort(key=lambda edge: -len(edge[0]))

    def classify(self, colourer, path):
        command = [colourer, "--to", "html", "--fragment", "--template", str(self.path), path]
        page = subprocess.run(command, check=True, capture_output=True, timeout=120).stdout.decode("utf-8")
        text, numbers, texts = "", bytearray(), []
        parts = []
        place = 0
        for colour, piece in spans(page):
            number = self.classes.get(colour, OTHER)
            if number in (COMMENT, STRING):
                texts.append((place, place + len(piece), number))
            parts.append(piece)
            numbers += without_signs(piece, number, OTHER) if number == KEYWORD else bytes([number]) * len(piece)
            place += len(piece)
        text = "".join(parts)
        for start, end, number in texts:
            self.add_edges(text, numbers, start, end, number)
        return without_blanks(text, numbers)

    def add_edges(self, text, numbers, start, end, number):
        for first, last in self.edges:
            if text.endswith(first, 0, start) and (text.startswith(last, end) or end == len(text)):
                for i in [*range(start - len(first), start), *range(end, min(end + len(last), len(text)))]:
                    if numbers[i] == OTHER:
                        numbers[i] = number
                return


def write_theme():
    """Makes the theme, before anything that reads it runs."""
    file = THEME / "org.kde.syntax-highlighting" / "themes" / "styles.theme"
    file.parent.mkdir(parents=True, exist_ok=True)
    styles = {style: {"text-color": f"#f000{i:02x}"} for i, style in enumerate(STYLES)}
    file.write_text(json.dumps({"metadata": {"name": "Styles", "revision": 1}, "editor-colors": {}, "text-styles": styles}))


def classify_with_kde(definition, path):
    command = ["kate-syntax-highlighter", "--theme", "Styles", "--syntax", definition, path]
    environment = {**os.environ, "XDG_DATA_HOME": str(THEME), "QT_QPA_PLATFORM": "offscreen", "LC_ALL": "C.UTF-8"}
    page = subprocess.run(command, check=True, capture_output=True, timeout=120, env=environment).stdout.decode("utf-8")
    parts, numbers, style = [], bytearray(), 0
    for colour, piece in spans(page):
        if colour is None or colour.startswith("f000"):
            style = int(colour[4:], 16) if colour else 0
        parts.append(piece)
        keyword = class_of_style(definition, STYLES[style]) == KEYWORD
        if STYLES[style] == QUOTE_STYLES.get(definition):
            numbers += bytes(STYLES.index("String") if sign in QUOTES else style for sign in piece)
        else:
            numbers += without_signs(piece, style, STYLES.index("Operator")) if keyword else bytes([style]) * len(piece)
    return without_blanks("".join(parts), numbers)


# The comparison.

def verdict(ours, theirs, style):
    """(whether both agree, the classes in question); None for a pair that does not count."""
    if ours == WORD:
        ours = KEYWORD if theirs == KEYWORD else OTHER
    if ours == INSIDE:
        return (True, {STRING}) if theirs == STRING else None
    if ours == theirs == OTHER or (ours == KEYWORD and theirs == OTHER and style in NAMED):
        return None
    return ours == theirs, {ours, theirs} - {OTHER}


class Comparison:
    """One template over its files."""

    def __init__(self, name, colourer):
        self.definition, places = LANGUAGES[name]
        self.template, self.colourer = Template(template_of(name)), colourer
        left_out = LEFT_OUT.get(self.definition, set())
        self.verdicts = {(ours, i): None if (ours, style) in left_out else verdict(ours, class_of_style(self.definition, style), style)
                         for ours in range(len(CLASS_NAMES)) for i, style in enumerate(STYLES)}
        self.name, self.files, self.bytes = name, [], 0
        self.counts = collections.Counter()
        with ThreadPoolExecutor(2) as pool:
            for done in pool.map(self.compare, real_files.sample(places)):
                if done is not None:
                    self.add(*done)

    def compare(self, source):
        path, text = source
        try:
            ours, theirs = self.template.classify(self.colourer, path), classify_with_kde(self.definition, path)
        except (subprocess.SubprocessError, OSError, ValueError) as error:
            print(f"{path}: left out: {error}", file=sys.stderr)
            return None
        if ours[0] != theirs[0]:
            print(f"{path}: left out: the two programs do not show the same text", file=sys.stderr)
            return None
        return path, text, self.with_insides(text, ours[1], theirs[1]), theirs[1]

    def with_insides(self, text, ours, theirs):
        """Our classes, INSIDE for what stands in a text whose ends both sides have, and outside of which neither has one."""
        in_text = theirs.translate(bytes(self.verdicts[STRING, i] == (True, {STRING}) for i in range(len(STYLES))).ljust(256, b"\0"))
        variable = STYLES.index("Variable")
        offsets = offsets_without_blanks(text)

        def goes_on(inner, outer):  # a variable just outside may stand in a text of KDE's
            touches = 0 <= outer < len(theirs) and abs(offsets[inner] - offsets[outer]) == 1
            return 0 <= outer < len(theirs) and (in_text[outer] or (touches and theirs[outer] == variable))

        marked = bytearray(ours)
        for run in re.finditer(rb"\x02+", ours):
            start, end = run.span()
            if in_text[start] and in_text[end - 1] and not goes_on(start, start - 1) and not goes_on(end - 1, end):
                marked[start:end] = bytes([INSIDE]) * (end - start)
        return bytes(marked)

    def add(self, path, text, ours, theirs):
        self.files.append((path, text, ours, theirs))
        self.bytes += len(text.encode("utf-8"))
        self.counts.update(zip(ours, theirs))

    def share(self, wanted=None):
        """The share of agreement, in all or in one class; None when there is no such character."""
        counted = agreed = 0
        for pair, count in self.counts.items():
            found = self.verdicts[pair]
            if found and (wanted is None or wanted in found[1]):
                counted += count
                agreed += count if found[0] else 0
        return agreed / counted if counted else None

    def disagreements(self):
        """(path, text, first and end offset, our class, KDE's style), runs of equal ones together."""
        for path, text, ours, theirs in self.files:
            offsets = offsets_without_blanks(text)
            i = 0
            while i < len(ours):
                found = self.verdicts[ours[i], theirs[i]]
                start = i
                while i < len(ours) and (ours[i], theirs[i]) == (ours[start], theirs[start]):
                    i += 1
                if found and not found[0]:
                    yield path, text, offsets[start], offsets[i - 1] + 1, CLASS_NAMES[ours[start]], STYLES[theirs[start]]

    def show(self, count):
        costs, shown = collections.Counter(), []
        for path, text, start, end, ours, style in self.disagreements():
            costs[text[start:end] if end - start < 30 else "(longer ones)", ours, style] += end - start
            if len(shown) < count:
                shown.append((path, text, start, end, ours, style))
        print(f"{self.name}: the most costly disagreements, in characters")
        for (word, ours, style), cost in costs.most_common(count):
            print(f"  {cost:7}  we: {ours:8} KDE: {style:13} {word!r}")
        print("The first ones:")
        for path, text, start, end, ours, style in shown:
            before = text[text.rfind("\n", 0, start) + 1:start][-60:]
            after = text[end:end + 60].split("\n", 1)[0]
            part = text[start:end] if end - start < 200 else f"{text[start:start + 90]} … {text[end - 90:end]}"
            print(f"  {path}:{text.count(chr(10), 0, start) + 1}: we: {ours}, KDE: {style}\n    {before}⟦{part}⟧{after}")


def percent(value):
    return "   –  " if value is None else f"{value * 100:6.2f}"


def report(names, options):
    write_theme()
    print(f"{'template':14} {'KDE':18} files      KB    agree  comment string keyword   of it, in %")
    shares, failed = {}, False
    for name in names:
        row = Comparison(name, options.colourer)
        share = row.share()
        if share is None:
            print(f"{name:14} {row.definition:18} no files")
            failed = True
            continue
        shares[name] = share
        reason = REASONS.get(name, "no reason is known") if share < LEAST else ""
        failed = failed or (share < LEAST and name not in REASONS)
        columns = " ".join(percent(row.share(wanted)) for wanted in (COMMENT, STRING, KEYWORD))
        print(f"{name:14} {row.definition:18} {len(row.files):5} {row.bytes / 1000:7.0f}   {percent(share)}   {columns}  {reason}", flush=True)
        if options.files:
            print("\n".join(f"  {path}" for path, *_ in row.files))
        if options.show == name:
            row.show(options.count)
    if shares:
        least = min(shares, key=shares.get)
        print(f"{len(shares)} templates: {percent(sum(shares.values()) / len(shares)).strip()} % on average, at least "
              f"{percent(shares[least]).strip()} % ({least})")
    return failed


def main():
    parser = argparse.ArgumentParser(description="Compares the templates that ship with KDE's highlighter.")
    parser.add_argument("templates", nargs="*", metavar="TEMPLATE")
    parser.add_argument("--colourer", default=str(BUILD / "bin" / "quillmark-colour"))
    parser.add_argument("--show", metavar="NAME")
    parser.add_argument("--count", type=int, default=40)
    parser.add_argument("--files", action="store_true")
    options = parser.parse_args()
    shipped = sorted(path.stem for path in TEMPLATES.glob("*.def"))
    asked = options.templates or ([options.show] if options.show else [])
    names = [name for name in LANGUAGES if template_of(name) in shipped and (not asked or {name, template_of(name)} & {*asked})]
    if unknown := set(asked) - set(names) - set(map(template_of, names)):
        print(f"No template that ships and can be compared: {', '.join(sorted(unknown))}", file=sys.stderr)
        return 2
    failed = report(names, options)
    compared = set(map(template_of, LANGUAGES))
    if forgotten := [name for name in shipped if name not in compared and name not in WITHOUT_DEFINITION]:
        print(f"In no table of bench/templates.py: {', '.join(forgotten)}", file=sys.stderr)
        failed = True
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
