#!/usr/bin/env python3
"""Runs clang-tidy and clazy over the sources; prints what they find.

    scripts/lint.py BUILD_FOLDER [FILE...]      (default: all sources that git knows, but the fuzzers')

BUILD_FOLDER has compile_commands.json, and all that moc and uic generate; a source that it does not build is linted
as its neighbours are. Both tools see nothing but what the compiler
sees, so a source that passed is not looked at again while that stays as it was: its text after preprocessing, with
comments and macros, the command, the tools' versions and .clang-tidy. What has passed is remembered below
$XDG_CACHE_HOME (~/.cache), by hash alone, for all checkouts. Exit code 1 when there is a finding.
"""
import concurrent.futures
import fnmatch
import functools
import hashlib
import json
import os
import pathlib
import shlex
import subprocess
import sys

PROJECT = pathlib.Path(__file__).resolve().parent.parent
CACHE = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "kestdetector-lint"
HEADERS = "/(src|emulator|tests|bench|compat)/"
CLAZY = ("level1",  # of what is delivered
         "level1,no-non-pod-global-static")  # test data are file-wide constants; each benchmark registers itself in one
FOLDERS = (("src/*", CLAZY[0]), ("emulator/*", CLAZY[0]), ("tests/*", CLAZY[1]), ("bench/*", CLAZY[1]))


def output(*command, **options):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False, **options)


@functools.lru_cache(maxsize=None)
def setting(tool):
    """What decides a tool's verdict beside the source."""
    return output(tool, "--version").stdout + (PROJECT / ".clang-tidy").read_bytes()


def preprocessed(entry):
    """What the compiler sees of a source, or nothing where it does not get through or is not built here."""
    if entry is None:
        return None
    words = shlex.split(entry["command"])
    del words[words.index("-o"):words.index("-o") + 2]
    words[0] = "clang++"
    words[words.index("-c")] = "-E"
    result = subprocess.run([*words, "-CC", "-dD", "-Wno-error"], cwd=entry["directory"], stdout=subprocess.PIPE,
                            stderr=subprocess.DEVNULL, check=False)
    if result.returncode:
        return None
    return (" ".join(words).encode() + result.stdout).replace(os.fsencode(PROJECT), b".")


def tidy(build, path):
    result = output("clang-tidy", "-quiet", "-p", build, path)
    return b"" if result.returncode == 0 else result.stdout or b"clang-tidy failed\n"


def clazy(build, path, checks):
    """It only warns."""
    result = output("clazy-standalone", "-p", build, f"-checks={checks}", f"-header-filter={HEADERS}",
                    "-extra-arg=-Wno-error", path)
    if result.returncode:
        return result.stdout or b"clazy failed\n"
    return b"".join(line for line in result.stdout.splitlines(keepends=True)
                    if b"[-Wclazy" in line and b"internal error" not in line)


def lint(build, path, entry):
    """What both tools say, and how many of them had to look."""
    checks = next(checks for pattern, checks in FOLDERS if fnmatch.fnmatch(path, pattern))
    text = preprocessed(entry)
    found = []
    looked = 0
    for tool, arguments in (("clang-tidy", ()), ("clazy-standalone", (checks,))):
        passed = None
        if text is not None:
            state = hashlib.sha256(b"\0".join((tool.encode(), HEADERS.encode(), *map(str.encode, arguments),
                                               setting(tool), text)))
            passed = CACHE / state.hexdigest()
            if passed.exists():
                passed.touch()
                continue
        looked += 1
        said = tidy(build, path) if tool == "clang-tidy" else clazy(build, path, *arguments)
        if said:
            found.append(said.decode(errors="replace"))
        elif passed is not None:
            passed.touch()
    return found, looked


def main():
    build = pathlib.Path(sys.argv[1])
    entries = {str(pathlib.Path(entry["file"]).relative_to(PROJECT)): entry
               for entry in json.loads((build / "compile_commands.json").read_text())
               if pathlib.Path(entry["file"]).is_relative_to(PROJECT)}
    patterns = [f"{pattern}.cpp" for pattern, _ in FOLDERS]
    paths = sys.argv[2:] or subprocess.run(["git", "ls-files", *patterns], cwd=PROJECT, stdout=subprocess.PIPE,
                                           check=True, text=True).stdout.split()
    CACHE.mkdir(parents=True, exist_ok=True)
    findings = set()
    looked = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for found, count in pool.map(lambda path: lint(str(build), path, entries.get(path)), paths):
            looked += count
            for text in found:
                if text not in findings:  # of a header, once
                    findings.add(text)
                    print(text, end="", flush=True)
    print(f"{len(paths)} sources; {looked} of {2 * len(paths)} looks taken, the others earlier at the same text")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
