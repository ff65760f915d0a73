#!/usr/bin/env python3
"""Renders one skin: render.py SKIN-FOLDER OUTPUT-FOLDER

OUTPUT-FOLDER gets a copy of skin.toml and, from every svg/NAME.svg, pictures/NAME.png at 100 % and
pictures/NAME@2x.png at 200 %. Needs rsvg-convert. Ends with 1 and names the file when one fails.
"""

import os
import shutil
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

SCALES = (("", "1"), ("@2x", "2"))


def render(source, target, zoom):
    """None, or what went wrong."""
    command = ["rsvg-convert", "--zoom", zoom, "--format", "png", "--output", target, source]
    result = subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, check=False)
    if result.returncode != 0 or not os.path.exists(target):
        return f"{source}: {result.stderr.strip() or 'no picture was made'}"
    return None


def main(arguments):
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    skin, output = arguments
    drawings = os.path.join(skin, "svg")
    pictures = os.path.join(output, "pictures")
    if shutil.which("rsvg-convert") is None:
        print("rsvg-convert is not installed (package librsvg2-bin)", file=sys.stderr)
        return 1
    try:
        names = sorted(name[:-4] for name in os.listdir(drawings) if name.endswith(".svg"))
        os.makedirs(pictures, exist_ok=True)
        for old in os.listdir(pictures):
            os.remove(os.path.join(pictures, old))
        shutil.copyfile(os.path.join(skin, "skin.toml"), os.path.join(output, "skin.toml"))
    except OSError as error:
        print(f"{error.filename}: {error.strerror}", file=sys.stderr)
        return 1
    jobs = [(os.path.join(drawings, f"{name}.svg"), os.path.join(pictures, f"{name}{suffix}.png"), zoom)
            for name in names for suffix, zoom in SCALES]
    with ThreadPoolExecutor(max_workers=os.cpu_count() or 2) as workers:
        errors = [error for error in workers.map(lambda job: render(*job), jobs) if error]
    for error in errors:
        print(error, file=sys.stderr)
    return 1 if errors or not names else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
