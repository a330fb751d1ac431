"""System calls that fail, and disks that are full: a save that fails says why and leaves the old file."""

import collections
import os
import subprocess

from harness import Place, Run, Skip, as_user, counted, strace

BLOCK = 4096


def outcome(run, place, result, what):
    """Checks that answer and file agree; names the outcome."""
    state, saved = place.state(), "saved" in result.lines
    reason = next((line for line in result.lines if line.startswith("asked Could not save")), "")
    run.check(state == ("new" if saved else "old"), f"{what}: {'saved' if saved else 'failed'}, but the file is {state}")
    run.check(saved or len(reason) > len(f"asked Could not save {place.path}  "), f"{what}: no reason told: {result}")
    run.check(not place.others(), f"{what}: left beside: {place.others()}")
    return "saved all the same" if saved else "refused, old file whole"


def every_call_fails(run, in_place, action):
    place = Place(run, in_place)
    calls = run.calls_of_a_save(place)
    outcomes = collections.Counter()
    wanted = [call for call in calls if "pwrite" in call.name] if "retval" in action else calls
    for call in wanted[::5] if run.short and len(wanted) > 5 else wanted:
        if call.name in ("brk", "mmap", "munmap", "mremap", "madvise", "write", "unlink"):
            continue  # memory, the driver's own output, and the tidying up that is counted below
        place.reset()
        result = run.save(place.path, place.text, strace(call, action))
        outcomes[outcome(run, place, result, f"{action} at {call.text}")] += 1
    run.check(sum(outcomes.values()) > 0, "no call failed")
    run.say(f"one call with {action}, {place.kind()}: {sum(outcomes.values())} saves: {counted(outcomes)}")


def always_fails(run, in_place, name, action):
    """From the first such call of the save on, all fail."""
    place = Place(run, in_place)
    first = next((call for call in run.calls_of_a_save(place) if call.name == name), None)
    if not run.check(first is not None, f"a save {place.kind()} makes no call {name}"):
        return
    place.reset()
    result = run.save(place.path, place.text, strace(first, action, "+"))
    reason = next((line for line in result.lines if line.startswith("asked")), "")
    run.check(outcome(run, place, result, f"every {name}: {action}").startswith("refused"), f"every {name} fails: saved")
    run.say(f"every {name} with {action}, {place.kind()}: refused: {reason[6:]}")


def restoring_fails(run, name, skipped):
    """Writing in place breaks off, and so does putting back: the user is told where the copy is."""
    place = Place(run, True)
    calls = [call for call in run.calls_of_a_save(place) if call.name == name]
    place.reset()
    result = run.save(place.path, place.text, strace(calls[skipped], "error=EIO", "+"))
    copies = place.others()
    told = " ".join(result.lines)
    run.check("failed" in result.lines and len(copies) == 1 and str(copies[0]) in told, f"the copy is not told: {result}")
    run.check(copies and copies[0].read_bytes() == place.old, "the copy is not what the file held")
    run.say(f"in place, every {name} into the file with error=EIO: {told[told.find('asked') + 6:]}")


def faults(run):
    run.need_trace()
    for in_place in (False, True):
        every_call_fails(run, in_place, "error=EIO")
        every_call_fails(run, in_place, "error=ENOSPC")
        every_call_fails(run, in_place, "retval=7")
        for name in ("pwrite64", "fsync"):
            always_fails(run, in_place, name, "error=EIO")
        always_fails(run, in_place, "pwrite64", "retval=0")
        always_fails(run, in_place, "openat", "error=EIO")
    always_fails(run, False, "renameat2", "error=EIO")
    restoring_fails(run, "pwrite64", 1)  # the first one writes the copy
    restoring_fails(run, "ftruncate", 0)


def fill(folder, free_blocks):
    """Fills the disk but for so many blocks."""
    filler = os.open(folder / "filler", os.O_WRONLY | os.O_CREAT)
    try:
        while True:
            os.write(filler, b"x" * BLOCK)
    except OSError:
        os.close(filler)
    size = os.stat(folder / "filler").st_size // BLOCK * BLOCK
    os.truncate(folder / "filler", size - free_blocks * BLOCK)
    status = os.statvfs(folder)
    return status.f_bfree * status.f_frsize // BLOCK


def full(run: Run):
    run.need_root("mounting a small disk")
    disk = run.folder()
    if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=1m,mode=777", "tmpfs", str(disk)],
                      capture_output=True, check=False).returncode != 0:
        raise Skip("a small disk cannot be mounted here")
    try:
        for in_place in (False, True):
            for text_blocks in (16, 64):
                on_full_disk(run, disk, in_place, text_blocks)
        driver = (as_user(), "an ordinary user")
        on_full_disk(run, disk, False, 16, *driver)
    finally:
        subprocess.run(["umount", str(disk)], check=False)


def on_full_disk(run, disk, in_place, blocks, prefix=(), who="the administrator"):
    place = Place(run, in_place, old=b"o" * BLOCK, new=b"n" * (blocks * BLOCK), under=disk)
    os.chmod(place.folder, 0o777)
    needed = blocks - (1 if in_place else 0)  # the file has its first block already
    told = []
    for free in (0, 1, needed // 2, needed - 1, needed + 1):
        place.reset()
        os.chmod(place.path, 0o666)
        if prefix:
            os.chown(place.path, 65534, 65534)
        (disk / "filler").unlink(missing_ok=True)
        real = fill(disk, free)
        run.check(real == free, f"{real} blocks are free instead of {free}")
        result = run.save(place.path, place.text, prefix)
        ended = outcome(run, place, result, f"{free} blocks free of {needed}")
        run.check(ended.startswith("saved") == (free > needed), f"{free} blocks free of {needed}: {ended}")
        run.check(free > needed or any("No space left" in line for line in result.lines), f"another reason: {result}")
        told.append(f"{free} free: {'saved' if free > needed else 'refused'}")
    (disk / "filler").unlink(missing_ok=True)
    for entry in place.folder.iterdir():
        entry.unlink()
    run.say(f"full disk, {place.kind()}, {needed} blocks needed, {who}: {'; '.join(told)}")
