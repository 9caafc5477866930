#!/usr/bin/env python3
"""Turns CHANGELOG.md into the compressed changelog of a Debian package, on the standard output.

    changelog.py PACKAGE MAINTAINER CHANGELOG.md

Every "- ..." of a version becomes a "* ..." of its entry; an entry without a version is left out.
"""
import datetime
import email.utils
import gzip
import re
import sys
import textwrap

VERSION = re.compile(r'^## \[([0-9.]+)\] - (\d{4}-\d{2}-\d{2})$')


def versions(lines):
    """Version, date and the texts of its changes, in the order of the file."""
    found = []
    for line in lines:
        match = VERSION.match(line)
        if match:
            found.append((match.group(1), match.group(2), []))
        elif line.startswith('## '):
            found.append((None, None, []))
        elif found and line.startswith('- '):
            found[-1][2].append(line[2:].strip())
        elif found and line.startswith('  ') and found[-1][2]:
            found[-1][2][-1] += ' ' + line.strip()
    return [entry for entry in found if entry[0]]


def main():
    package, maintainer, path = sys.argv[1:]
    entries = []
    with open(path, encoding='utf-8') as file:
        for version, date, changes in versions(file.read().splitlines()):
            noon = datetime.datetime.fromisoformat(date + 'T12:00:00+00:00')
            texts = [textwrap.fill(change.replace('`', '"'), 76, initial_indent='  * ', subsequent_indent='    ')
                     for change in changes]
            entries.append(f'{package} ({version}) unstable; urgency=medium\n\n' + '\n'.join(texts) +
                           f'\n\n -- {maintainer}  {email.utils.format_datetime(noon)}\n')
    sys.stdout.buffer.write(gzip.compress('\n'.join(entries).encode(), 9, mtime=0))


if __name__ == '__main__':
    main()
