#!/usr/bin/env python3
"""The qnutil tool exits non-zero with a message naming the file and the
reason whenever the library fails or the input is not what a command
needs, and leaves the files it could not change as they were."""
import os
import re
import resource
import signal
import struct
import subprocess
import sys
import tempfile

TOOL = sys.argv[1]
SAMPLES = sys.argv[2]
failures = 0
checks = 0


def bmp(path, width, height, bits, colours=0, pixels=b""):
    header = struct.pack("<2sIHHI", b"BM", 54 + len(pixels), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, len(pixels), 0, 0, colours, 0)
    with open(path, "wb") as out:
        out.write(header + info + pixels)


def run(args, status, pattern, file_limit=None, unchanged=None):
    """Runs the tool; its exit status must be `status` and its output (stdout
    and stderr) must match `pattern`; `unchanged` names a file it must leave
    as it was."""
    global failures, checks
    checks += 1
    before = open(unchanged, "rb").read() if unchanged else None

    def limit():
        # Writes past the limit fail as on a full disk (EFBIG rather than
        # ENOSPC); the signal that would also come is ignored, as no full
        # disk sends one.
        if file_limit is not None:
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (file_limit, file_limit))

    result = subprocess.run([TOOL] + args, capture_output=True, text=True, preexec_fn=limit,
                            errors="replace")
    output = result.stdout + result.stderr
    problems = []
    if result.returncode != status:
        problems.append(f"exit {result.returncode}, expected {status}")
    if not re.search(pattern, output):
        problems.append(f"output does not match {pattern!r}")
    if unchanged and open(unchanged, "rb").read() != before:
        problems.append(f"{unchanged} was changed")
    if problems:
        failures += 1
        print(f"FAIL qnutil {' '.join(args)}: {'; '.join(problems)}\n{output}")


with tempfile.TemporaryDirectory() as scratch:
    def path(name):
        return os.path.join(scratch, name)

    material = path("glass.mat")
    with open(os.path.join(SAMPLES, "ini", "glass.mat"), "rb") as source:
        open(material, "wb").write(source.read())
    big_env = path("big.env")
    with open(big_env, "w") as out:
        out.write("[Walls]\n" + "".join(f"  key{i} =value{i}\n" for i in range(5000)))
    open(path("broken.env"), "w").write("[Walls]\n  a ={\n")
    open(path("settings.ini"), "w").write("[s]\nk=1\n")
    open(path("garbage.bmp"), "wb").write(bytes(range(256)) * 8)
    open(path("short.bmp"), "wb").write(b"BM1234")
    bmp(path("topdown.bmp"), 4, -3, 24, pixels=bytes(48))
    bmp(path("palette.bmp"), 4, 3, 8, colours=1000, pixels=bytes(5000))
    bmp(path("deep.bmp"), 2, 2, 64, pixels=bytes(32))
    bmp(path("plain.bmp"), 2, 2, 24, pixels=bytes(16))
    missing = path("missing/x.env")
    open(path("bow.plan"), "w").write("# bow tie\nring\n0 0\n10 10\n10 0\n0 10\n")
    open(path("no_ring.plan"), "w").write("0 0\n")
    open(path("late_ring.plan"), "w").write("ring\n0 0\n1 0\n0 1\npoints\n0.5 0.5\nring\n")
    open(path("huge.plan"), "w").write("ring\n0 0\n1e31 0\n0 1\n")
    open(path("text.plan"), "w").write("ring\n0 0\n1 zero\n")
    open(path("square.plan"), "w").write("ring\n0 0\n9 0\n9 1\n0 1\n")

    cases = [
        (["env", "set", missing, "s", "k", "v"], 1, r"x\.env: folder .*missing does not exist"),
        (["env", "check", path("none.env")], 1, r"none\.env: No such file"),
        (["env", "check", path("broken.env")], 1, r"broken\.env: syntax error"),
        (["env", "get", path("none.env"), "s", "k"], 1, r"none\.env: No such file"),
        (["ini", "get", path("none.ini"), "s", "k"], 1, r"none\.ini: No such file"),
        (["ini", "get", path("settings.ini"), "s", "x"], 1, r"settings\.ini: no key x in section s"),
        (["ini", "set", path("missing/x.ini"), "s", "k", "v"], 1, r"does not exist"),
        (["mat", "show", path("none.mat")], 1, r"none\.mat: No such file"),
        (["mat", "show", path("settings.ini")], 1, r"settings\.ini: no material"),
        (["bmp", "info", path("garbage.bmp")], 1, r"garbage\.bmp: not a BMP file \(no \"BM\""),
        (["bmp", "info", path("short.bmp")], 1, r"short\.bmp: not a BMP file \(shorter"),
        (["bmp", "info", path("none.bmp")], 1, r"none\.bmp: No such file"),
        (["bmp", "info", path("topdown.bmp")], 0, r"\(top-down\).*\n(.*\n)*.*no pixels: a top-down"),
        (["bmp", "info", path("palette.bmp")], 0, r"no pixels: more palette entries"),
        (["bmp", "info", path("deep.bmp")], 0, r"2 x 2 black pixels \(no rule for 64 bits"),
        (["bmp", "info", path("plain.bmp")], 0, r"reads 2 x 2 pixels into 32-bit words"),
        (["tri", "--rings", path("bow.plan")], 1, r"bow\.plan:5: the ring edge from this point crosses"),
        (["tri", "--rings", path("no_ring.plan")], 1, r"no_ring\.plan:1: expected \"ring\" first"),
        (["tri", "--rings", path("late_ring.plan")], 1, r"late_ring\.plan:7: \"ring\" after the interior"),
        (["tri", "--rings", path("huge.plan")], 1, r"huge\.plan: coordinates must be finite"),
        (["tri", "--rings", path("text.plan")], 1, r"text\.plan:3: expected \"x y\""),
        (["tri", "--rings", path("none.plan")], 1, r"cannot open .*none\.plan"),
        (["tri", "--rings", "--boundary", "3", path("bow.plan")], 2, r"usage"),
        (["tri", "--rings", path("square.plan"), "--min-angle", "40"], 1, r"--min-angle must be 0 to 34"),
        (["tri", "--rings", path("square.plan"), "--max-added", "5"], 2, r"usage"),
        (["tri", path("square.plan"), "--min-angle", "20"], 2, r"usage"),
        (["tri", "--rings", path("square.plan"), "--min-angle", "30", "--max-added", "3"], 0,
         r"^\d+ triangles, 3 points added"),
    ]
    for args, status, pattern in cases:
        run(args, status, pattern)

    # Numbers outside a field's range are refused, the file left alone.
    for key, value, reason in [("Bits", "-5", "not an unsigned 32-bit integer"),
                               ("Bits", "4294967296", "not an unsigned 32-bit integer"),
                               ("Bits", "", "not an unsigned 32-bit integer"),
                               ("kdiffus", "nan", "not a finite number"),
                               ("Oe", "1e99", "not a finite number"),
                               ("RGBDiffus", "1,2,0", "not three numbers from 0 to 1"),
                               ("RGBSpiegel", "0.5,0.5", "not three numbers from 0 to 1"),
                               ("Name", "", "is empty"),
                               ("Farbe", "1", "is no material key")]:
        run(["mat", "set", material, key, value], 1, r"glass\.mat: " + key + ".*" + reason,
            unchanged=material)
    run(["mat", "set", material, "Bits", "4294967295"], 0, r"^$")
    run(["mat", "show", material], 0, r"Bits +4294967294")

    # A full disk: nothing is lost and the tool says so.
    run(["env", "set", big_env, "Walls", "new", "x"], 1,
        r"big\.env: the file could not be written whole", file_limit=4096, unchanged=big_env)
    run(["mat", "set", material, "kdiffus", "0.25"], 1, r"glass\.mat: the file could not be written",
        file_limit=16, unchanged=material)
    run(["ini", "set", path("settings.ini"), "s", "k", "2" * 100], 1, r"settings\.ini: the file",
        file_limit=16, unchanged=path("settings.ini"))
    run(["env", "set", big_env, "Walls", "new", "x"], 0, r"^$")

print(f"{checks - failures} passed, {failures} failed")
sys.exit(1 if failures else 0)
