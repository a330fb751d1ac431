"""Real source files for the comparison of templates: those of this machine, and those of packages.

A place is a pattern on this machine, or npm:PACKAGE@VERSION/PATTERN, or deb:PACKAGE/PATTERN: such a package is fetched
into build/template-sources when it is not there yet, so that a second run needs no network. "**" stands for any number
of folders.
"""

import functools
import glob
import hashlib
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tarfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
DATA = pathlib.Path(os.environ.get("QUILLMARK_BUILD_DIR", ROOT / "build")) / "template-sources"

MOST_FILES = 40
MOST_BYTES = 2_000_000
FILE_BYTES = range(200, 200_000)
LONGEST_LINE = 1000  # a longer one was not written by hand
LEFT_ALONE = "/usr/lib/google-cloud-sdk/"  # large, of no distribution, on few machines


def package_folder(place):
    """The folder of a place's package, fetched when it is missing, and the pattern in it; None twice when that fails."""
    kind, rest = place.split(":", 1)
    scope = re.match(r"(@[^/]+/)?[^/]+", rest).group()
    folder = DATA / kind / scope.replace("/", "+")
    if not folder.exists():
        print(f"Fetching {kind}:{scope} …", file=sys.stderr, flush=True)
        part = folder.with_name(folder.name + ".part")
        shutil.rmtree(part, ignore_errors=True)  # of a run that was stopped
        part.mkdir(parents=True)
        try:
            if kind == "npm":
                packed = subprocess.run(["npm", "pack", "--silent", scope], cwd=part, check=True, capture_output=True, text=True)
                with tarfile.open(part / packed.stdout.split()[-1]) as archive:
                    archive.extractall(part, filter="data")
            else:
                subprocess.run(["apt-get", "download", "-qq", scope], cwd=part, check=True, capture_output=True)
                subprocess.run(["dpkg-deb", "-x", *glob.glob(str(part / "*.deb")), str(part)], check=True, capture_output=True)
        except (subprocess.CalledProcessError, OSError, IndexError) as error:
            print(f"{kind}:{scope} cannot be fetched: {error}", file=sys.stderr)
            return None, None
        part.rename(folder)
    inside = rest[len(scope) + 1:]
    root = folder if kind == "deb" else next(path for path in folder.iterdir() if path.is_dir())
    return root, inside


@functools.cache
def files_below(folder):
    return [os.path.join(where, name) for where, _, names in os.walk(folder) for name in names]


def paths_of(place):
    if place.startswith("/"):
        root, pattern = pathlib.Path("/"), place[1:]
    else:
        root, pattern = package_folder(place)
        if root is None:
            return
    fixed = pattern.split("*", 1)[0].rpartition("/")[0].split("/")[0]
    if root == pathlib.Path("/"):  # /usr/share is walked once for all
        fixed = "/".join(pattern.split("/")[:2]) if pattern.startswith("usr/") else fixed
    wanted = re.compile(re.escape(f"{root}/".replace("//", "/")) +
                        re.escape(pattern).replace(r"\*\*/", "(?:.*/)?").replace(r"\*", "[^/]*") + r"\Z")
    for path in files_below(str(root / fixed)):
        if wanted.match(path) and not path.startswith(LEFT_ALONE):
            yield path


def readable(path, digests):
    """The text of a file that is fit for comparing: of a fair size, UTF-8, written by hand, seen for the first time."""
    try:
        if os.path.islink(path) or os.path.getsize(path) not in FILE_BYTES:
            return None
        content = pathlib.Path(path).read_bytes()
        text = content.decode("utf-8")
    except (OSError, UnicodeDecodeError):
        return None
    digest = hashlib.sha256(content).digest()
    if digest in digests or "\0" in text or max(map(len, text.split("\n"))) > LONGEST_LINE:
        return None
    digests.add(digest)
    return text


def sample(places):
    """Some files from all places, the same ones in each run on one machine: those whose names have the smallest hashes."""
    by_place = []
    for place in places:
        # What changes with the checkout says nothing about the file.
        paths = {path.replace(str(DATA), ""): path for path in paths_of(place)}
        by_place.append([paths[name] for name in sorted(paths, key=lambda name: hashlib.md5(name.encode()).digest())])
    digests, size, chosen = set(), 0, []
    for turn in range(max(map(len, by_place), default=0)):
        for paths in by_place:
            text = readable(paths[turn], digests) if turn < len(paths) else None
            if text is None:
                continue
            if len(chosen) == MOST_FILES or size + len(text) > MOST_BYTES:
                return chosen
            chosen.append((paths[turn], text))
            size += len(text)
    return chosen
