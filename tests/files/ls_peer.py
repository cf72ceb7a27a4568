#!/usr/bin/env python3
"""Compares `qnutil ls DIR` with Python's own view of the same folder:
names (with "." and ".."), kind, read-only and hidden flags, sizes and
last write times."""
import os
import stat
import subprocess
import sys
import tempfile
from datetime import datetime, timezone


def make_folder(root):
    os.mkdir(os.path.join(root, "Sub Folder"))
    sizes = {"empty.txt": 0, "small.dat": 7, "Mixed Case.BIN": 4096, ".hidden": 3, "locked": 12}
    for name, size in sizes.items():
        with open(os.path.join(root, name), "wb") as f:
            f.write(b"x" * size)
    os.utime(os.path.join(root, "small.dat"), (1234567890, 1234567890))
    os.chmod(os.path.join(root, "locked"), 0o444)


def expected_entries(root):
    names = [".", ".."] + os.listdir(root)
    entries = {}
    for name in names:
        info = os.stat(os.path.join(root, name))
        folder = stat.S_ISDIR(info.st_mode)
        flags = 0x002 if folder else 0x001 | 0x200
        if not info.st_mode & stat.S_IWUSR:
            flags |= 0x008
        if name.startswith(".") and name not in (".", ".."):
            flags |= 0x040
        when = datetime.fromtimestamp(int(info.st_mtime), timezone.utc).strftime("%Y-%m-%d %H:%M:%S")
        entries[name] = (flags, 0 if folder else info.st_size, when)
    return entries


def listed_entries(tool, root):
    out = subprocess.run([tool, "ls", root], check=True, capture_output=True, text=True).stdout
    entries = {}
    for line in out.splitlines():
        flags, _letters, size, day, clock, name = line.split(None, 5)
        entries[name] = (int(flags, 16), int(size), day + " " + clock)
    return entries


def main():
    tool = sys.argv[1]
    with tempfile.TemporaryDirectory() as root:
        make_folder(root)
        expected, listed = expected_entries(root), listed_entries(tool, root)
        if expected != listed:
            for name in sorted(set(expected) | set(listed)):
                if expected.get(name) != listed.get(name):
                    print(f"{name!r}: python {expected.get(name)} qnutil {listed.get(name)}")
            return 1
        missing = subprocess.run([tool, "ls", os.path.join(root, "missing")], capture_output=True)
        nothing = subprocess.run([tool, "ls", root, "*.none"], capture_output=True)
        usage = subprocess.run([tool, "ls"], capture_output=True)
        if (missing.returncode, nothing.returncode, usage.returncode) != (1, 1, 2):
            print("exit codes", missing.returncode, nothing.returncode, usage.returncode)
            return 1
    print(f"qnutil ls agrees with Python on {len(expected)} entries")
    return 0


if __name__ == "__main__":
    sys.exit(main())
