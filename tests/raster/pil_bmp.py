"""BMP files made and read by Python's imaging library, the independent peer
of the raster engine's reader and writer.

  pil_bmp.py make DIR   write BMP files of several depths and widths, each
                        with NAME.rgb holding its pixels as PIL decodes them
                        (top-down RGB triples)
  pil_bmp.py check DIR  read every NAME.bmp the engine wrote into DIR and
                        compare PIL's decoding with NAME.rgb beside it
"""
import os
import struct
import sys

from PIL import Image

SIZES = [(1, 1), (2, 3), (3, 2), (5, 4), (7, 3), (16, 9), (33, 5)]


def pattern(width, height, seed):
    return bytes((x * 37 + y * 91 + c * 53 + seed * 11) % 256
                 for y in range(height) for x in range(width) for c in range(3))


def make(directory):
    os.makedirs(directory, exist_ok=True)
    for width, height in SIZES:
        rgb = Image.frombytes("RGB", (width, height), pattern(width, height, 1))
        images = {
            "rgb24": rgb,
            "rgba32": rgb.convert("RGBA"),
            "grey8": rgb.convert("L"),
            "pal16": rgb.quantize(colors=16),
        }
        for kind, image in images.items():
            name = "%s_%dx%d" % (kind, width, height)
            path = os.path.join(directory, name + ".bmp")
            image.save(path)
            with open(os.path.join(directory, name + ".rgb"), "wb") as out:
                out.write(Image.open(path).convert("RGB").tobytes())
        # A 256-colour file whose header says biClrUsed 0 (meaning all 256).
        name = "grey8used0_%dx%d" % (width, height)
        with open(os.path.join(directory, "grey8_%dx%d.bmp" % (width, height)), "rb") as source:
            data = bytearray(source.read())
        assert struct.unpack_from("<I", data, 46)[0] == 256
        struct.pack_into("<I", data, 46, 0)
        with open(os.path.join(directory, name + ".bmp"), "wb") as out:
            out.write(data)
        with open(os.path.join(directory, name + ".rgb"), "wb") as out:
            out.write(Image.open(os.path.join(directory, name + ".bmp")).convert("RGB").tobytes())


def check(directory):
    names = sorted(n[:-4] for n in os.listdir(directory) if n.endswith(".bmp"))
    failures = 0
    for name in names:
        with open(os.path.join(directory, name + ".rgb"), "rb") as expected_file:
            expected = expected_file.read()
        image = Image.open(os.path.join(directory, name + ".bmp"))
        actual = image.convert("RGB").tobytes()
        if image.mode != "RGB" or actual != expected:
            print("%s: PIL reads mode %s and %s pixels" % (name, image.mode, "different" if actual != expected else "equal"))
            failures += 1
    print("%d files checked, %d differ" % (len(names), failures))
    return 1 if failures or not names else 0


if __name__ == "__main__":
    if len(sys.argv) != 3 or sys.argv[1] not in ("make", "check"):
        sys.exit(__doc__)
    sys.exit(make(sys.argv[2]) if sys.argv[1] == "make" else check(sys.argv[2]))
