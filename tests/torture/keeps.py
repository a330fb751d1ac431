"""What a file has besides its contents, who may write it, and what is no file: kept, or refused with a reason."""

import os
import shutil
import stat
import subprocess

from harness import ORDINARY, Conversation, Skip, as_user

OLD, NEW = b"old\n", b"new text\n"
TAG = b"kept \x00 whole"


class Cases:
    """Saves one file after another and counts."""

    def __init__(self, run):
        self.run, self.count = run, 0
        self.text = run.folder() / "new.txt"
        self.text.write_bytes(NEW)
        self.text.chmod(0o644)

    def folder(self, mode=0o777):
        made = self.run.folder()
        made.chmod(mode)
        return made

    def file(self, folder, mode=0o644, owner=None):
        path = folder / "script.txt"
        path.write_bytes(OLD)
        if owner is not None:
            os.chown(path, owner, owner)
        path.chmod(mode)
        return path

    def saves(self, what, path, prefix=(), real=None):
        """The save succeeds and leaves nothing beside."""
        before = sorted(os.listdir(path.parent))
        result = self.run.save(path, self.text, prefix)
        self.count += 1
        self.run.check("saved" in result.lines, f"{what}: {result}")
        self.run.check((real or path).read_bytes() == NEW, f"{what}: the file has not got the text")
        after = sorted(os.listdir(path.parent))
        self.run.check(set(after) - set(before) <= {(real or path).name}, f"{what}: {after} instead of {before}")

    def refuses(self, what, path, reason, prefix=()):
        """The save fails with the reason; the caller checks what is there."""
        before = sorted(os.listdir(path.parent)) if path.parent.is_dir() else None
        result = self.run.play([f"text {self.text}", f"save {path}"], prefix, timeout=10)
        self.count += 1
        told = f"asked Could not save {path}  {reason}"
        self.run.check("failed" in result.lines and told in result.lines, f"{what}: {result}, expected: {told}")
        after = sorted(os.listdir(path.parent)) if path.parent.is_dir() else None
        self.run.check(before == after, f"{what}: {after} instead of {before}")

    def refuses_after(self, path, change, prefix=()):
        """What is told when the file is saved that was changed from outside while it was open."""
        talk = Conversation(self.run, prefix)
        talk.say(f"open {path}")
        change()
        talk.say(f"text {self.text}")
        talk.say("answers Y")
        told, _ = talk.say(f"save {path}")
        talk.end()
        self.count += 1
        return told


def links(cases):
    run, folder = cases.run, cases.folder()
    real = cases.file(folder)
    (folder / "link").symlink_to("script.txt")
    (folder / "second").symlink_to(folder / "link")
    (folder / "dangling").symlink_to("born")
    (folder / "loop").symlink_to("loop")
    far = cases.folder()
    (far / "far").symlink_to(folder / "second")
    for name in (folder / "link", folder / "second", far / "far"):
        real.write_bytes(OLD)
        cases.saves(f"symbolic link {name.name}", name, real=real)
        run.check(name.is_symlink() and not real.is_symlink(), f"{name.name} is no link any more")
    result = run.play([f"text {cases.text}", f"save {folder / 'dangling'}"])
    run.check("saved" in result.lines and (folder / "born").read_bytes() == NEW, f"a dangling link: {result}")
    run.check((folder / "dangling").is_symlink(), "the dangling link is no link any more")
    cases.refuses("a loop of links", folder / "loop", "Too many levels of symbolic links")
    real.write_bytes(OLD)
    os.link(real, folder / "hard")
    cases.saves("hard link", folder / "hard", real=folder / "hard")
    run.check(os.stat(real).st_ino == os.stat(folder / "hard").st_ino and real.read_bytes() == NEW,
              "the hard links are two files now")
    longest = folder / ("n" * 255)
    longest.write_bytes(OLD)
    os.link(longest, folder / "of-longest")
    cases.saves("the longest of names, linked", longest)


def no_files(cases):
    run, folder = cases.run, cases.folder()
    os.mkfifo(folder / "pipe")
    cases.refuses("a pipe", folder / "pipe", "it is not a regular file")
    opened = run.play([f"open {folder / 'pipe'}"], timeout=10)
    run.check(f"asked Could not read {folder / 'pipe'}" in opened.lines, f"opening a pipe: {opened}")
    gone = run.folder()
    path = cases.file(gone)
    told = cases.refuses_after(path, lambda: shutil.rmtree(gone))
    run.check(f"asked Could not save {path}  No such file or directory" in told, f"a folder that vanished: {told}")


def set_list(path, *options):
    """Gives an access list; False where that cannot be done."""
    return shutil.which("setfacl") and subprocess.run(["setfacl", *options, str(path)], check=False).returncode == 0


def attributes(cases):
    run = cases.run
    for in_place in (False, True):
        folder = cases.folder()
        path = cases.file(folder)
        if in_place:
            os.link(path, folder / "second")
        os.setxattr(path, "user.comment", TAG)
        if not set_list(path, "-m", f"u:{ORDINARY}:rw,g:{ORDINARY}:r"):
            run.skip("access lists: setfacl is not there or not permitted")
        os.setxattr(path, "user.empty", b"")
        path.chmod(0o6754)
        os.utime(path, ns=(0, 1))
        before, names = os.stat(path), sorted(os.listxattr(path))
        values = {name: os.getxattr(path, name) for name in names}
        cases.saves(f"attributes, in place: {in_place}", path)
        after = os.stat(path)
        run.check(stat.S_IMODE(after.st_mode) == 0o6754, f"the mode is {after.st_mode:o}")
        run.check((before.st_uid, before.st_gid) == (after.st_uid, after.st_gid), "another owner")
        run.check({name: os.getxattr(path, name) for name in os.listxattr(path)} == values, "attributes differ")
        run.check((before.st_ino == after.st_ino) == in_place, "the other way of saving was taken")
    folder = cases.folder()
    if set_list(folder, "-d", "-m", f"u:{ORDINARY}:rwx"):
        path = cases.file(folder)
        os.removexattr(path, "system.posix_acl_access")
        cases.saves("a folder whose list new files inherit", path)
        run.check(not os.listxattr(path), f"the file has got {os.listxattr(path)}")
    for mask in (0o022, 0o077):
        new = cases.folder() / "new.txt"
        old_mask = os.umask(mask)
        run.play([f"text {cases.text}", f"save {new}"])
        os.umask(old_mask)
        run.check(stat.S_IMODE(os.stat(new).st_mode) == 0o666 & ~mask, f"a new file's mode is {os.stat(new).st_mode:o}")
        cases.count += 1


def owners(cases):
    run = cases.run
    if os.geteuid() != 0 or shutil.which("setpriv") is None:
        raise Skip("files of other users need the administrator and setpriv")
    user = as_user()
    for what, mode, who in (("the administrator saves another's file", 0o777, ()),
                            ("another's file in an open folder", 0o777, user),
                            ("another's file in a shared folder", 0o1777, user)):
        foreign = cases.file(cases.folder(mode), 0o666, owner=1)
        cases.saves(what, foreign, who)
        run.check(os.stat(foreign).st_uid == 1, f"{what}: it has changed hands")
    cases.saves("an own file", cases.file(cases.folder(), 0o640, owner=ORDINARY), user)
    locked = cases.folder()
    path = cases.file(locked, 0o666, owner=ORDINARY)
    locked.chmod(0o555)
    cases.saves("a file in a read-only folder", path, user)
    cases.refuses("a new file in a read-only folder", locked / "new", "Permission denied", user)
    for what, mode, owner in (("a read-only file", 0o444, ORDINARY), ("another's file", 0o644, 1)):
        path = cases.file(cases.folder(), mode, owner)
        cases.refuses(what, path, "Permission denied", user)
        run.check(path.read_bytes() == OLD, f"{what} was written")
    hidden = cases.folder()
    path = cases.file(hidden, 0o666, owner=ORDINARY)
    hidden.chmod(0o333)
    cases.saves("a file in a folder that cannot be listed", path, user)
    path = cases.file(cases.folder(), 0o644, owner=ORDINARY)
    told = cases.refuses_after(path, lambda: os.chown(path, 1, 1), user)
    run.check(f"asked Could not save {path}  Permission denied" in told and path.read_bytes() == OLD,
              f"a permission that was lost: {told}")


def keeps(run):
    cases = Cases(run)
    links(cases)
    no_files(cases)
    attributes(cases)
    try:
        owners(cases)
    finally:
        run.say(f"links, attributes, owners, special files: {cases.count} saves, each kept everything or said why not")
