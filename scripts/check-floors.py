#!/usr/bin/env python3
"""Holds every include of src/ against the list of floors, and keeps the emulated camera apart from the station.

    scripts/check-floors.py [PROJECT FOLDER]

A file may include headers of its own folder and of the folders that src/floors.txt names in an earlier line. Every folder
with sources is in that list, and its CMakeLists.txt makes one target. The emulated camera includes nothing of the station.
Prints each offence as "file:line: reason"; exit code 1 when there is one.
"""
import pathlib
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"')
TARGET = re.compile(r'^\s*(?:kest_add_library|add_library|add_executable)\(\s*(\S+)', re.MULTILINE)
SOURCES = ('.cpp', '.h')


def floors(path):
    """Folder to floor number, from the ground up."""
    floor_of = {}
    lines = [line for line in path.read_text(encoding='utf-8').splitlines() if line.strip() and not line.startswith('#')]
    for number, line in enumerate(lines):
        for folder in line.split():
            if folder in floor_of:
                yield f'{path}: {folder} stands on two floors'
            floor_of[folder] = number
    return floor_of


def includes(path):
    for number, line in enumerate(path.read_text(encoding='utf-8').splitlines(), 1):
        match = INCLUDE.match(line)
        if match:
            yield number, match.group(1)


def sources(folder):
    return sorted(path for path in folder.rglob('*') if path.suffix in SOURCES)


def station_offences(src):
    floor_of = yield from floors(src / 'floors.txt')
    for folder in floor_of:
        lists = src / folder / 'CMakeLists.txt'
        targets = TARGET.findall(lists.read_text(encoding='utf-8')) if lists.exists() else []
        if len(targets) != 1:
            yield f'{lists}: a folder of the house makes one target, this one makes {len(targets)}: {" ".join(targets)}'
    for path in sources(src):
        folder = path.parent.relative_to(src).as_posix()
        if folder not in floor_of:
            yield f'{path}:1: the folder {folder} is not in floors.txt'
            continue
        for number, header in includes(path):
            target = pathlib.PurePosixPath(header).parent.as_posix()
            if not (src / header).exists() or target == folder:
                continue  # generated, or of the same folder
            if floor_of.get(target, sys.maxsize) >= floor_of[folder]:
                yield f'{path}:{number}: {folder} may not look up to {target}'


def emulator_offences(project):
    for path in sources(project / 'emulator'):
        for number, header in includes(path):
            if (project / 'src' / header).exists():
                yield f'{path}:{number}: the emulated camera shares no code with the station'


def main():
    project = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parent.parent)
    offences = [*station_offences(project / 'src'), *emulator_offences(project)]
    for offence in offences:
        print(offence)
    return 1 if offences else 0


if __name__ == '__main__':
    sys.exit(main())
