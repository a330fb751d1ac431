#!/usr/bin/env python3
"""install_test.py SOURCE BUILD: installs BUILD into a folder of its own and checks what lies there and how it runs."""

import contextlib
import os
import pathlib
import re
import shutil
import sqlite3
import struct
import subprocess
import sys
import tempfile
import time
import unittest

SOURCE, BUILD = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
TEMPLATES = {path.name for ending in ("*.def", "*.hdf") for path in (SOURCE / "data/templates").glob(ending)}
ORDINARY = 65534


def run(*command, **options):
    return subprocess.run([str(part) for part in command], capture_output=True, text=True, check=False, timeout=60, **options)


def as_ordinary_user():
    """A prefix for the administrator, who may write everywhere and so would hide what an ordinary user cannot do."""
    return ["setpriv", f"--reuid={ORDINARY}", f"--regid={ORDINARY}", "--clear-groups"] if os.geteuid() == 0 else []


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.root = pathlib.Path(tempfile.mkdtemp(prefix="quillmark-install."))
        cls.root.chmod(0o755)
        cls.addClassCleanup(shutil.rmtree, cls.root)
        cls.prefix, cls.home = cls.root / "usr", cls.root / "home"
        cls.share = cls.prefix / "share"
        done = run("cmake", "--install", BUILD, "--prefix", cls.prefix)
        if done.returncode != 0:
            raise RuntimeError(done.stderr)
        cls.home.mkdir()
        if as_ordinary_user():
            os.chown(cls.home, ORDINARY, ORDINARY)
        # Shells and readers of manual pages leave files at home: they have another one than the editor.
        cls.tools = {**os.environ, "HOME": str(cls.root), "LC_ALL": "C.UTF-8", "MANWIDTH": "100"}
        cls.environment = {"PATH": os.environ["PATH"], "HOME": str(cls.home), "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen",
                           "XDG_RUNTIME_DIR": str(cls.home)}

    def check(self, *command, **options):
        done = run(*command, **options)
        self.assertEqual((done.returncode, done.stderr), (0, ""), f"{command}: {done.stdout}")
        return done.stdout

    def test_the_colourer_uses_the_installed_templates(self):
        listed = self.check(*as_ordinary_user(), self.prefix / "bin/quillmark-colour", "--list", env=self.environment, cwd="/")
        folders = {str(pathlib.Path(line.split("\t")[2]).parent) for line in listed.splitlines()}
        self.assertEqual((folders, len(listed.splitlines())),
                         ({str(self.share / "quillmark")}, len([name for name in TEMPLATES if name.endswith(".def")])))

    def test_the_editor_fills_the_empty_home_of_an_ordinary_user(self):
        own = self.home / ".local/share/quillmark"
        with subprocess.Popen([*as_ordinary_user(), self.prefix / "bin/quillmark"], env=self.environment, cwd="/",
                              stderr=subprocess.PIPE, text=True) as editor:
            deadline = time.monotonic() + 20
            while time.monotonic() < deadline and editor.poll() is None and not self.names_in(own) >= TEMPLATES:
                time.sleep(0.02)
            status = editor.poll()
            editor.terminate()
            self.assertEqual((status, self.names_in(own) & TEMPLATES), (None, TEMPLATES), editor.stderr.read())

    def test_the_help_finds_its_pages_beside_it(self):
        with contextlib.closing(sqlite3.connect(f"file:{self.share}/quillmark/Quillmark.hlp?mode=ro", uri=True)) as collection:
            pages = [row[0] for row in collection.execute("SELECT FilePath FROM NamespaceTable")]
        self.assertEqual(pages, ["Quillmark.qch"])
        self.assertGreater((self.share / "quillmark/Quillmark.qch").stat().st_size, 100_000)

    @staticmethod
    def names_in(folder):
        return {path.name for path in folder.iterdir()} if folder.is_dir() else set()

    def test_the_desktop_entry_and_the_software_record_are_valid(self):
        self.assertEqual(self.check("desktop-file-validate", self.share / "applications/quillmark.desktop"), "")
        self.check("appstreamcli", "validate", "--no-net", *(self.share / "metainfo").iterdir())
        self.check("xmllint", "--noout", self.share / "mime/packages/quillmark.xml")
        self.check(sys.executable, SOURCE / "tools/mime_types.py")

    def test_each_picture_of_the_icon_has_its_folders_size(self):
        pictures = sorted((self.share / "icons/hicolor").glob("*/apps/quillmark.png"))
        self.assertGreaterEqual(len(pictures), 8)
        for picture in pictures:
            width, height = struct.unpack(">II", picture.read_bytes()[16:24])
            self.assertEqual(f"{width}x{height}", picture.parent.parent.name)

    def test_manual_pages_raise_no_warning(self):
        for page in sorted((self.share / "man/man1").iterdir()):
            self.check("man", "--warnings", "--encoding=UTF-8", "--local-file", page, env=self.tools)

    def test_pages_and_completions_know_every_option_of_the_help(self):
        fish, zsh = self.share / "fish/vendor_completions.d", (self.share / "zsh/vendor-completions/_quillmark").read_text()
        for program in ("quillmark", "quillmark-colour"):
            told = self.check(self.prefix / "bin" / program, "--help", env=self.environment)
            options = set(re.findall(r"(?<![\w-])--[a-z][a-z-]*|(?<= )/[A-Z]\w+", told))
            self.assertGreaterEqual(len(options), 5, told)
            page = self.check("man", "--encoding=UTF-8", "--local-file", self.share / f"man/man1/{program}.1", env=self.tools)
            for option in sorted(options):
                with self.subTest(program=program, option=option):
                    self.assertIn(option, page)
                    self.assertIn(option, zsh)
                    self.assertIn(option, self.bash_completes(program, option[:3]))
                    self.assertIn(option, self.check("fish", "--no-config", "-c", f"source {fish}/{program}.fish; "
                                                     f"complete -C'{program} {option[:3]}'", env=self.tools))

    def bash_completes(self, program, word):
        script = (f'source {self.share}/bash-completion/completions/{program}; compopt() {{ :; }}; COMP_WORDS=({program} {word}); '
                  'COMP_CWORD=1; "_${COMP_WORDS[0]//-/_}"; printf "%s\\n" "${COMPREPLY[@]}"')
        return self.check("bash", "-c", script).splitlines()

    def test_completions_are_well_formed(self):
        self.check("zsh", "-n", self.share / "zsh/vendor-completions/_quillmark")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:])
