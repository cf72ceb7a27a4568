#!/usr/bin/python3
"""qnutil filter apply against PIL: the progress (inverting) and the parameters plug-ins
over a BMP made by PIL must give what PIL computes itself."""
import argparse
import os
import subprocess
import sys
import tempfile

from PIL import Image, ImageOps


def windows_path(path):
    return "Z:" + os.path.abspath(path).replace("/", "\\")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--runner", default="", help="emulator that runs the Windows tool")
    parser.add_argument("--tool", required=True)
    parser.add_argument("--plugins", required=True)
    args = parser.parse_args()
    runner = [args.runner] if args.runner else []

    def tool(*arguments):
        return subprocess.run(runner + [args.tool, "filter"] + list(arguments), capture_output=True, text=True)

    failures = []
    with tempfile.TemporaryDirectory() as scratch:
        source = os.path.join(scratch, "in.bmp")
        picture = Image.new("RGB", (37, 23))
        picture.putdata([(x * 6 % 256, y * 11 % 256, (x * y) % 256) for y in range(23) for x in range(37)])
        picture.save(source)

        cases = [
            ("progress", [], ImageOps.invert(picture)),
            ("params", ["--repeat"], Image.eval(picture, lambda value: (value + 2) % 256)),
        ]
        for plugin, extra, expected in cases:
            result = os.path.join(scratch, plugin + ".bmp")
            done = tool("apply", windows_path(os.path.join(args.plugins, plugin + ".8bf")), windows_path(source),
                        windows_path(result), *extra)
            if done.returncode != 0:
                failures.append(f"{plugin}: exit {done.returncode}: {done.stderr}")
                continue
            if plugin == "progress" and "100%" not in done.stderr:
                failures.append(f"{plugin}: no progress bar on stderr")
            actual = Image.open(result).convert("RGB")
            if list(actual.getdata()) != list(expected.getdata()):
                failures.append(f"{plugin}: pixels differ from PIL's result")

        info = tool("info", windows_path(os.path.join(args.plugins, "invert.8bf")))
        if info.returncode != 0 or "category: QnUtil Tests" not in info.stdout or "name:     Invert" not in info.stdout:
            failures.append(f"info: {info.returncode} {info.stdout!r}")
        if tool("info", windows_path(os.path.join(args.plugins, "no_name.8bf"))).returncode != 1:
            failures.append("info accepted a plug-in without a name")

    for failure in failures:
        print(failure)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
