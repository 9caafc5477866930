#!/usr/bin/env python3
"""Holds the documents against the project's files.

    scripts/check-docs.py [PROJECT FOLDER]

Every relative link of the READMEs and of docs/*.md leads to a file, and to a heading of it where it names
one. Every path in code style that begins with a folder of the project exists, and so does every source file that is named
without its folder. Each of the READMEs has at most 250 lines, its table of settings has those that the station reads, and it
names each file of the log collection. The newest version of the changelog is that of the project. Prints each offence as
"file:line: reason"; exit code 1 when there is one.
"""
import pathlib
import re
import sys

LINK = re.compile(r'\]\(([^)\s]+)\)|(?:src|href)="([^"]+)"')
CODE = re.compile(r'`([^`]+)`')
HEADING = re.compile(r'^#+ (.+?)\s*$')
SOURCE = re.compile(r'^[A-Za-z_][\w-]*\.(?:cpp|h|ui|qrc|py|sh|supp|cmake|md)$')
# What the build, a run or the reader makes.
MADE = ('build', 'results/')
READMES = ('README.md', 'README.zh_CN.md')
LONGEST_README = 250


def lines_of(path):
    """Number, line and whether it lies in a fenced block."""
    fenced = False
    for number, line in enumerate(path.read_text(encoding='utf-8').splitlines(), 1):
        if line.lstrip().startswith('```'):
            fenced = not fenced
            continue
        yield number, line, fenced


def anchors(path):
    """The anchors of a document's headings, as forges make them."""
    made = {}
    for _, line, fenced in lines_of(path):
        match = HEADING.match(line)
        if match and not fenced:
            text = re.sub(r'\[([^\]]*)\]\([^)]*\)', r'\1', match.group(1)).lower()
            anchor = re.sub(r'[^\w\- ]', '', text).replace(' ', '-')
            count = made.get(anchor, 0)
            made[anchor] = count + 1
            yield anchor if count == 0 else f'{anchor}-{count}'


def link_offence(document, link):
    if re.match(r'[a-z]+:', link):
        return None
    target, _, anchor = link.partition('#')
    path = document.parent / target if target else document
    if not path.exists():
        return f'{link} leads nowhere'
    if anchor and anchor not in anchors(path):
        return f'{link}: no such heading'
    return None


def code_offence(project, tops, names, text):
    path = re.split(r'[\s,:#]', text)[0]
    if path.startswith(MADE) or re.search(r'[<>$%…]', path):
        return None
    if SOURCE.match(path):
        return None if path in names else f'{path}: no such file'
    if '/' not in path or path.split('/')[0] not in tops:
        return None
    found = list(project.glob(path)) if '*' in path else (project / path).exists()
    return None if found else f'{path}: no such path'


def document_offences(project, document, tops, names):
    for number, line, fenced in lines_of(document):
        if fenced:
            continue
        found = [link_offence(document, match[0] or match[1]) for match in LINK.findall(line)]
        found += [code_offence(project, tops, names, text) for text in CODE.findall(line)]
        for reason in filter(None, found):
            yield f'{document.relative_to(project)}:{number}: {reason}'


def settings_offences(project, readme):
    """The keys of the table in Settings.cpp against those of a README's."""
    read = set(re.findall(r'"([A-Z]\w+/\w+)"', (project / 'src/detector/store/Settings.cpp').read_text(encoding='utf-8')))
    listed = set()
    section = None
    for _, line, _ in lines_of(project / readme):
        heading = re.match(r'\| \*\*`\[(\w+)\]`\*\* \|', line)
        key = re.match(r'\| `(\w+)` \|', line)
        if heading:
            section = heading.group(1)
        elif not line.startswith('|'):
            section = None
        elif key and section:
            listed.add(f'{section}/{key.group(1)}')
    for key in sorted(read - listed):
        yield f'{readme}: the setting {key} is not in its table'
    for key in sorted(listed - read):
        yield f'{readme}: the station reads no setting {key}'


def log_offences(project, readme):
    """The files that the log collection brings, against a README."""
    text = (project / readme).read_text(encoding='utf-8')
    collection = (project / 'src/detector/checks/logCollection.cpp').read_text(encoding='utf-8')
    for name in re.findall(r'"(\w+\.(?:txt|tar\.gz))"', collection):
        if f'`{name}`' not in text:
            yield f'{readme}: the file {name} of the log collection is not in it'


def version_offences(project):
    """The newest version of the changelog against that of the project."""
    version = re.search(r'^project\(\w+ VERSION ([\d.]+)', (project / 'CMakeLists.txt').read_text(encoding='utf-8'), re.M)
    newest = re.search(r'^## \[([\d.]+)\]', (project / 'CHANGELOG.md').read_text(encoding='utf-8'), re.M)
    if newest.group(1) != version.group(1):
        yield f'CHANGELOG.md: its newest version is {newest.group(1)}, that of the project {version.group(1)}'


def main():
    project = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).parent.parent).resolve()
    tops = {entry.name for entry in project.iterdir()
            if entry.is_dir() and entry.name != '.git' and not entry.name.startswith(MADE)}
    names = {path.name for top in tops for path in (project / top).rglob('*')}
    names |= {entry.name for entry in project.iterdir()}
    documents = [*(project / readme for readme in READMES), project / 'emulator' / 'README.md', *sorted((project / 'docs').glob('*.md'))]
    offences = [offence for document in documents for offence in document_offences(project, document, tops, names)]
    offences += version_offences(project)
    for readme in READMES:
        offences += settings_offences(project, readme)
        offences += log_offences(project, readme)
        length = len((project / readme).read_text(encoding='utf-8').splitlines())
        if length > LONGEST_README:
            offences.append(f'{readme}: {length} lines, at most {LONGEST_README}: a newcomer has to finish it')
    for offence in offences:
        print(offence)
    return 1 if offences else 0


if __name__ == '__main__':
    sys.exit(main())
