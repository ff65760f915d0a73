#!/usr/bin/env python3
"""The programs as people get them: installed into a folder that is then moved, and as a Debian package. Every file
is one that is expected, manual pages and menu entries are sound, and two of the installed programs talk.

package.py BUILD VERSION: the build folder, and the version that everything must name.
"""

import gzip
import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path
from xml.etree import ElementTree

from desktop import Desktop, ends, wait_for

PROGRAMS = ["PyloxChat", "pylox-messenger", "pylox-skin"]
PAGES = [f"share/man/man1/{program}.1" for program in PROGRAMS]
SIDES = [16, 24, 32, 48, 64, 128, 256]
FILES = {
    *(f"bin/{program}" for program in PROGRAMS), *PAGES,
    *(f"share/icons/hicolor/{side}x{side}/apps/pylox-chat.png" for side in SIDES),
    "share/icons/hicolor/scalable/apps/pylox-chat.svg",
    "share/applications/pylox-chat.desktop", "share/applications/pylox-messenger.desktop",
    "share/metainfo/chat.pylox.PyloxChat.metainfo.xml",
    "share/doc/pylox-chat/copyright", "share/doc/pylox-chat/protocol.md", "share/doc/pylox-chat/skin-format.md",
    "share/pylox-chat/emotions.dat", "share/pylox-chat/skins/Light.skn", "share/pylox-chat/skins/Dark.skn",
}
HELP = "share/pylox-chat/help/"


def run(*command, **more):
    """What a command prints, when it ends well."""
    done = subprocess.run(command, capture_output=True, text=True, check=False, **more)
    assert done.returncode == 0, (command, done.returncode, done.stdout, done.stderr)
    return done.stdout


def check_files(prefix, expected):
    found = {str(path.relative_to(prefix)) for path in prefix.rglob("*") if not path.is_dir()}
    pages = {name for name in found if name.startswith(HELP)}
    assert {HELP + "index.html", HELP + "emoticons.html", HELP + "style.css"} <= pages, pages
    assert found - pages == expected, (found - pages) ^ expected


def bare(path, *arguments):
    """What a program prints without a display and a home folder."""
    return run(path, *arguments, env={"PATH": os.environ["PATH"], "HOME": "/nowhere", "QT_QPA_PLATFORM": "xcb"})


def check_programs(prefix, version):
    for program in PROGRAMS:
        assert bare(prefix / "bin" / program, "--version") == f"{program} {version}\n"
    for skin in (prefix / "share/pylox-chat/skins").iterdir():
        assert "no problem found" in bare(prefix / "bin/pylox-skin", "check", skin)


def check_manual(prefix):
    """The manual pages are sound and know the options that the programs name."""
    for program, page in zip(PROGRAMS, PAGES):
        own = (prefix / page).read_text(encoding="utf-8").split(".SH SEE ALSO")[0]
        manual = re.sub(r"\\f[BIRP]|\\", "", own)
        texts = [bare(prefix / "bin" / program, "--help"), manual]
        options = [set(re.findall(r"(?<![\w-])--?[a-z][a-z-]+", text)) for text in texts]
        assert {"--help", "--version"} <= options[0] == options[1], (program, options[0] ^ options[1])
        run("mandoc", "-T", "lint", "-W", "warning", prefix / page)


def check_entries(prefix, version):
    entries = sorted((prefix / "share/applications").iterdir())
    run("desktop-file-validate", *entries)
    for entry in entries:
        keys = dict(line.split("=", 1) for line in entry.read_text(encoding="utf-8").splitlines() if "=" in line)
        assert (prefix / "bin" / keys["Exec"].split()[0]).exists(), keys
        assert (prefix / f"share/icons/hicolor/48x48/apps/{keys['Icon']}.png").exists(), keys
    component = ElementTree.parse(*(prefix / "share/metainfo").iterdir()).getroot()
    assert (prefix / "share/applications" / component.findtext("launchable")).exists()
    assert component.find("releases/release").get("version") == version, "the release notes are of another version"


def talk(prefix):
    """The companion and a client find what ships with them, the user's data folder, and each other there."""
    desktop = Desktop(prefix / "bin")
    del desktop.environment["PYLOX_HOME"]
    desktop.environment["XDG_DATA_HOME"] = desktop.home.name
    with desktop:
        process, window = desktop.client("-cid1", "-cnmLobby~")
        wait_for("in the room", lambda: "<NJC" in desktop.said())
        skin = prefix / "share/pylox-chat/skins/Light.skn"
        assert f'<SKIN value="{skin}"' in desktop.said().replace("\\/", "/"), "the skin that ships"
        assert (Path(desktop.home.name) / "pylox-chat" / "Pylox.ini").exists()
        entry = (prefix / "share/applications/pylox-chat.desktop").read_text(encoding="utf-8")
        named = re.search("^StartupWMClass=(.+)$", entry, re.MULTILINE)[1]
        windows = desktop.tool("xdotool", "search", "--onlyvisible", "--class", f"^{named}$").split()
        assert window in windows, "a window is of the class that its menu entry names"
        desktop.activate(window, "alt+x")
        ends(process)


def make_package(build, scratch):
    """The package; root is not needed for it."""
    run("cpack", "--config", build / "CPackConfig.cmake", "-B", scratch, "-D", "CPACK_DEBIAN_COMPRESSION_TYPE=gzip")
    (package,) = scratch.glob("*.deb")
    return package


def check_package(package, version):
    names = ["Package", "Version", "Architecture", "Depends"]
    name, packed, architecture, depends = (run("dpkg-deb", "-f", package, field).strip() for field in names)
    assert (name, packed) == ("pylox-chat", version), (name, packed)
    assert package.name == f"{name}_{version}_{architecture}.deb", package.name
    for library in ["libc6", "libqt6widgets6", "libqt6printsupport6", "libzip4"]:
        assert re.search(rf"\b{library}\b", depends), depends
    for line in run("dpkg-deb", "-c", package).splitlines():
        mode, owner, *_, path = line.split()
        right = "drwxr-xr-x" if path.endswith("/") else "-rwxr-xr-x" if "/usr/bin/" in path else "-rw-r--r--"
        assert (mode, owner) == (right, "root/root"), line


def check_binaries(usr, build):
    """What was built without assertions and sanitizers holds no path of the folder it was built in."""
    cache = (build / "CMakeCache.txt").read_text(encoding="utf-8")
    source = re.search(r"^CMAKE_HOME_DIRECTORY:\w+=(.+)$", cache, re.MULTILINE)[1]
    silent = "CMAKE_BUILD_TYPE:STRING=RelWithDebInfo" in cache
    for program in PROGRAMS:
        path = usr / "bin" / program
        sections = run("readelf", "--dynamic", "--section-headers", "--wide", path)
        assert not re.search(r"RPATH|RUNPATH|\.debug_|\.symtab", sections), (program, sections)
        assert not silent or source.encode() not in path.read_bytes(), (program, source)
    if not silent:
        print("assertions name the sources: the path of the source folder was not looked for in the programs")


def main(build, version):
    build = Path(build)
    with tempfile.TemporaryDirectory() as folder:
        scratch = Path(folder)
        run("cmake", "--install", build, "--prefix", scratch / "first")
        prefix = (scratch / "first").rename(scratch / "a place of its own")
        check_files(prefix, FILES)
        check_programs(prefix, version)
        check_manual(prefix)
        check_entries(prefix, version)
        talk(prefix)
        check_files(prefix, FILES)  # nothing was written beside the programs

        package = make_package(build, scratch)
        check_package(package, version)
        run("dpkg-deb", "-x", package, scratch / "root")
        usr = scratch / "root" / "usr"
        pages = {f"{page}.gz" for page in PAGES}
        check_files(usr, FILES - set(PAGES) | pages | {"share/doc/pylox-chat/changelog.gz"})
        changelog = gzip.decompress((usr / "share/doc/pylox-chat/changelog.gz").read_bytes()).decode()
        assert changelog.startswith(f"pylox-chat ({version}) "), changelog
        check_binaries(usr, build)
        check_programs(usr, version)
    print("the installed programs answered, talked and were packed")


if __name__ == "__main__":
    main(*sys.argv[1:])
