#!/usr/bin/env python3
"""What Debian wants of a package and other systems do not: debian_files.py SHARE PACKAGE MAINTAINER

Compresses the manual pages below the folder SHARE and writes the changelog of the package, from the release notes of
the metainfo that is there. The same input gives the same bytes.
"""

import gzip
import sys
import textwrap
from datetime import datetime, timezone
from email.utils import format_datetime
from pathlib import Path
from xml.etree import ElementTree


def compress(path, data):
    path.write_bytes(gzip.compress(data, 9, mtime=0))
    path.chmod(0o644)


def entry(release, package, maintainer):
    """A release's notes as Debian writes them."""
    words = [" ".join(note.itertext()).split() for note in release.iter() if note.tag in ("p", "li")]
    notes = [textwrap.fill(" ".join(note), 76, initial_indent="  * ", subsequent_indent="    ") for note in words]
    date = datetime.fromisoformat(release.get("date")).replace(tzinfo=timezone.utc)
    head = f"{package} ({release.get('version')}) stable; urgency=medium"
    return "\n\n".join([head, "\n".join(notes), f" -- {maintainer}  {format_datetime(date)}"]) + "\n"


def main(share, package, maintainer):
    share = Path(share)
    for page in (share / "man").glob("man*/*.[1-9]"):
        compress(page.with_name(page.name + ".gz"), page.read_bytes())
        page.unlink()
    (metainfo,) = (share / "metainfo").glob("*.metainfo.xml")
    entries = [entry(release, package, maintainer) for release in ElementTree.parse(metainfo).iter("release")]
    compress(share / "doc" / package / "changelog.gz", "\n".join(entries).encode())


if __name__ == "__main__":
    main(*sys.argv[1:])
