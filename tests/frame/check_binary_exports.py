#!/usr/bin/python3
"""Compares a built library's export table (and the MSVC import library)
with the names the export manifest gives for the target and, for Windows
DLLs, checks that only system DLLs are imported."""
import argparse
import re
import subprocess
import sys

# DLLs every Windows installation has; the library may import nothing else.
SYSTEM_DLLS = {
    "kernel32.dll", "msvcrt.dll", "user32.dll", "gdi32.dll", "ole32.dll",
    "oleaut32.dll", "advapi32.dll", "shell32.dll", "gdiplus.dll", "version.dll",
    "shlwapi.dll", "comdlg32.dll", "winspool.drv", "msimg32.dll",
}
# Symbols the ELF linker defines in every shared object.
ELF_LINKER_SYMBOLS = {"_init", "_fini", "_edata", "_end", "__bss_start"}


def expected_names(path):
    """The names the build exports, one per line (resolved from the manifest
    for the target by the build)."""
    with open(path, encoding="utf-8") as f:
        return {line.strip() for line in f if line.strip()}


def pe_tables(objdump, binary):
    text = subprocess.run([objdump, "-p", binary], check=True, capture_output=True,
                          text=True).stdout
    exports, imports = set(), set()
    in_names = False
    for line in text.splitlines():
        if line.startswith("[Ordinal/Name Pointer] Table"):
            in_names = True
            continue
        if in_names:
            m = re.match(r"\s*\[\s*\d+\]\s+(\S+)", line)
            if m:
                exports.add(m.group(1))
                continue
            in_names = False
        m = re.match(r"\s*DLL Name:\s*(\S+)", line)
        if m:
            imports.add(m.group(1).lower())
    return exports, imports


def elf_exports(objdump, binary):
    text = subprocess.run([objdump, "-T", binary], check=True, capture_output=True,
                          text=True).stdout
    exports = set()
    for line in text.splitlines():
        fields = line.split()
        # Defined dynamic symbols have a section other than *UND*.
        if len(fields) >= 6 and "*UND*" not in line and re.match(r"[0-9a-f]{8,}", fields[0]):
            name = fields[-1]
            if name not in ELF_LINKER_SYMBOLS:
                exports.add(name)
    return exports


def import_lib_names(nm, lib):
    """Names an MSVC import library provides, from its __imp_ symbols (on
    i386 the C names carry the cdecl underscore after the prefix; names with
    MSVC C++ decorations, which start with '?', never do)."""
    text = subprocess.run([nm, lib], check=True, capture_output=True, text=True).stdout
    names = set()
    for line in text.splitlines():
        fields = line.split()
        if fields and fields[-1].startswith("__imp_"):
            name = fields[-1][len("__imp_"):]
            names.add(name)
    c_names = {n for n in names if not n.startswith("?")}
    if c_names and all(n.startswith("_") for n in c_names):
        names = {n if n.startswith("?") else n[1:] for n in names}
    return names


def compare(what, expected, actual):
    ok = True
    for name in sorted(expected - actual):
        print(f"{what}: missing export: {name}")
        ok = False
    for name in sorted(actual - expected):
        print(f"{what}: unexpected export: {name}")
        ok = False
    print(f"{what}: {len(actual)} exports checked against {len(expected)} manifest names")
    return ok


def main():
    ap = argparse.ArgumentParser()
    ap.add_argument("--names", required=True, help="file of the names to export")
    ap.add_argument("--kind", choices=["pe", "elf"], required=True)
    ap.add_argument("--objdump", default="objdump")
    ap.add_argument("--import-lib", help="MSVC import library to check as well")
    ap.add_argument("--nm", default="llvm-nm")
    ap.add_argument("binary")
    args = ap.parse_args()

    expected = expected_names(args.names)
    failed = False
    if args.kind == "pe":
        exports, imports = pe_tables(args.objdump, args.binary)
        foreign = sorted(i for i in imports if i not in SYSTEM_DLLS)
        if foreign:
            print("imports non-system DLLs:", ", ".join(foreign))
            failed = True
        print("imports:", ", ".join(sorted(imports)))
    else:
        exports = elf_exports(args.objdump, args.binary)
    if not compare(args.binary, expected, exports):
        failed = True
    if args.import_lib and not compare(args.import_lib, expected,
                                       import_lib_names(args.nm, args.import_lib)):
        failed = True
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
