#!/usr/bin/env python3
"""Holds the translations against the sources.

    scripts/check-translations.py LUPDATE [PROJECT FOLDER]

LUPDATE can read every text in src/; it passes over one whose context it cannot tell. Each translations/*.ts has just the
texts that it finds: none is new, none is gone. Each is translated, with the same placeholders, line breaks at both ends, tags,
mnemonics and shortcut as the text itself. No Chinese is left in English, and no Chinese text of several words is without
Chinese. Prints each offence as "file: context: text: reason"; exit code 1 when there is one.
"""
import collections
import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

CHINESE = re.compile('[\u3000-\u303f\u4e00-\u9fff\uff00-\uffef]')
SAME = {
    'placeholders': re.compile(r'%L?(?:[0-9]+|n)'),
    'tags': re.compile(r'</?[a-z][^>]*>'),
    'mnemonics': re.compile(r'&(?=[^&\s])'),
    'shortcut': re.compile(r'\t.*'),
    'break at the beginning': re.compile(r'\A\n+'),
    'break at the end': re.compile(r'\n+\Z'),
    'blank at the end': re.compile(r' +\Z'),
}

Message = collections.namedtuple('Message', 'context source comment numerus translation')


def messages(path):
    for context in xml.etree.ElementTree.parse(path).getroot().iter('context'):
        for message in context.iter('message'):
            yield Message(context.findtext('name'), message.findtext('source'), message.findtext('comment', ''),
                          message.get('numerus') == 'yes', message.find('translation'))


def texts_of_sources(lupdate, sources):
    """The texts that the sources hold, and what LUPDATE could not read in them."""
    with tempfile.TemporaryDirectory() as folder:
        found = pathlib.Path(folder) / 'found.ts'
        run = subprocess.run([lupdate, '-silent', '-locations', 'none', sources, '-ts', found],
                             check=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        return {message[:4] for message in messages(found)}, sorted(set(run.stdout.splitlines()) - {''})


def texts_of(translation):
    forms = translation.findall('numerusform')
    return [form.text or '' for form in forms] if forms else [translation.text or '']


def text_offences(language, source, text):
    if not text:
        yield 'is not translated'
        return
    for what, pattern in SAME.items():
        if sorted(pattern.findall(source)) != sorted(pattern.findall(text)):
            yield f'other {what}: {text!r}'
    if language == 'en' and CHINESE.search(text):
        yield f'holds Chinese: {text!r}'
    # A name stays as it is, a sentence does not.
    if language == 'zh_CN' and re.search('[A-Za-z]+ [A-Za-z]+', source) and not CHINESE.search(text):
        yield f'is not Chinese: {text!r}'


def offences(path, found):
    language = path.stem.split('_', 1)[1]
    listed = {message[:4] for message in messages(path)}
    for context, source, *_ in sorted(found - listed):
        yield context, source, 'is new'
    for context, source, *_ in sorted(listed - found):
        yield context, source, 'is gone from the sources'
    for message in messages(path):
        state = message.translation.get('type')
        if state is not None:
            yield message.context, message.source, f'is {state}'
        for text in texts_of(message.translation):
            for reason in text_offences(language, message.source, text):
                yield message.context, message.source, reason


def main():
    lupdate = sys.argv[1]
    project = pathlib.Path(sys.argv[2] if len(sys.argv) > 2 else pathlib.Path(__file__).parent.parent).resolve()
    files = sorted((project / 'translations').glob('kest_*.ts'))
    wrong = [path.name for path in files] != ['kest_en.ts', 'kest_zh_CN.ts']
    if wrong:
        print('translations: not the files kest_en.ts and kest_zh_CN.ts')
    found, complaints = texts_of_sources(lupdate, project / 'src')
    for complaint in complaints:
        wrong = True
        print(f'lupdate: {complaint}')
    for path in files:
        for context, source, reason in offences(path, found):
            wrong = True
            print(f'{path.name}: {context}: {source!r}: {reason}')
    return 1 if wrong else 0


if __name__ == '__main__':
    sys.exit(main())
