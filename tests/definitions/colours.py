"""What every kind of definition shares: making the template, colouring a sample with it, and looking at the colours."""

import collections
import pathlib
import re
import subprocess
import tempfile

COMMENT, TEXT, PLAIN = "0;128;0", "160;20;20", "0;0;0"
FILLER = "qmz" * 20
SWITCH = re.compile(r"\x1b\[(?:38;2;(\d+;\d+;\d+)|39)m")

# What a definition says, read by other means than the program's own. `comments` and `texts` are pairs of literal marks,
# the second one "" for the end of the line.
Facts = collections.namedtuple("Facts", "words comments texts")


class Run:
    """One run over the definitions of a kind: where the program is, and what has been found."""

    def __init__(self, program):
        self.program = str(program)
        self.failures = 0
        self.counts = collections.Counter()
        self._folder = tempfile.TemporaryDirectory(prefix="quillmark-definitions.")
        self.template = pathlib.Path(self._folder.name) / "made.def"

    def check(self, is_right, text):
        """Counts and prints a failure."""
        if not is_right:
            self.failures += 1
            print(f"  FAILED: {text}", flush=True)
        return is_right

    def make(self, file, *options):
        """Makes the template; its messages, or None when there is none."""
        made = subprocess.run([self.program, "--import", file, *options], capture_output=True, timeout=60)
        self.template.write_bytes(made.stdout)
        messages = made.stderr.decode()
        if not self.check(made.returncode == 0, f"{file}: status {made.returncode}, {messages[:200]}"):
            return None
        for message in messages.splitlines():
            self.check(re.match(r".+?(:\d+)?: .+", message), f"{file}: a message names no place: {message}")
        return messages

    def colours_of(self, sample):
        """Each line of the sample as a list of (colour, text); "" for no colour."""
        coloured = subprocess.run([self.program, "--strict", "--template", self.template, "--to", "ansi"],
                                  input=sample.encode(), capture_output=True, timeout=60)
        errors = coloured.stderr.decode()
        self.check(coloured.returncode == 0 and not errors, f"{self.template}: {errors[:300]}")
        lines, colour = [], ""
        for line in coloured.stdout.decode().split("\n"):
            runs, at = [], 0
            for switch in SWITCH.finditer(line):
                if switch.start() > at:
                    runs.append((colour, line[at:switch.start()]))
                colour, at = switch.group(1) or "", switch.end()
            if line[at:]:
                runs.append((colour, line[at:]))
            lines.append(runs)
        return lines

    def examine(self, name, facts, form=lambda word: word):
        """Colours every word, comment and string of a definition, and checks that each is coloured as such. `form` is
        how a word stands in a script."""
        marks = [start for start, _ in facts.comments + facts.texts]
        words, folded = [], {}
        for word in facts.words:
            shown = form(word)
            # Twins in letter case are one key of a template; a word with a mark in it is a comment or a string.
            if not re.fullmatch(r"[^\s\x00-\x20]{1,150}", shown) or folded.setdefault(word.lower(), word) != word:
                continue
            if not any(mark in shown for mark in marks):
                words.append(shown)
        words = list(dict.fromkeys(words))
        comments = [f"{start} qmx {end}".rstrip() for start, end in facts.comments]
        texts = [f"{start}qmx{end}" for start, end in facts.texts]
        # Behind a stretch the rules skip as many characters as its end word has.
        stretches = [line for stretch in comments + texts for line in (stretch, FILLER)]
        lines = self.colours_of("\n".join(words + stretches) + "\n")
        found = lines[len(words)::2]
        for word, runs in zip(words, lines):
            is_coloured = "".join(text for colour, text in runs if colour not in ("", PLAIN)) == word
            self.check(is_coloured, f"{name}: the word {word} is {runs}")
        for (start, _), runs in zip(facts.comments, found):
            self.check(any(colour == COMMENT and "qmx" in text for colour, text in runs),
                       f"{name}: the comment {start} is {runs}")
        for (start, _), runs in zip(facts.texts, found[len(comments):]):
            self.check(any(colour == TEXT and "qmx" in text for colour, text in runs),
                       f"{name}: the string {start} is {runs}")
        self.counts["definitions"] += 1
        for what, some in (("words", words), ("comments", comments), ("strings", texts)):
            self.counts["with " + what] += bool(some)
            self.counts[what] += len(some)

    def ends(self, at_least):
        """Prints the counts; what is looked at must not become less unseen."""
        print(", ".join(f"{self.counts[what]} {what}" for what in sorted(self.counts)))
        for what, least in at_least.items():
            self.check(self.counts[what] >= least, f"only {self.counts[what]} {what}, not {least}")
        return 1 if self.failures else 0
