#!/usr/bin/env python3
"""Changes one random place of the station's sources at a time and looks whether a test notices.

    tests/mutation/mutate.py [--count N] [--seed S] [--number K] [--only GLOB] [--jobs J] [--prefix COMMAND]

Everything happens in build-mutation/: a copy of the project, which is brought up to date at each start, and its build
folder. A change is drawn from a kind of its own (comparison, logic, arithmetic, constant, text, dropped call), so that
the many texts do not crowd out the rest; change K of seed S is always the same one in the same sources. The tests that
link the changed code run first, those nearest to it before the others, then the window's, then those of whole programs;
the first failure ends it. A change that does not compile, and one that leaves every object file as it was, is counted
apart and replaced by the next draw.

Prints a line for each change and leaves build-mutation/report.md. A full run takes hours, and the changed programs may
do anything that the user may; it is not part of CI.
"""
import argparse
import collections
import dataclasses
import fcntl
import fnmatch
import hashlib
import json
import pathlib
import random
import secrets
import shlex
import shutil
import signal
import subprocess
import sys
import time
import xml.etree.ElementTree

import places

PROJECT = pathlib.Path(__file__).resolve().parent.parent.parent
WORK = PROJECT / "build-mutation"
COPY = WORK / "project"
BUILD = COPY / "build-mutation"
SUFFIXES = (".cpp", ".h", ".ui")
DATA = 6 << 30  # of a test: a loop without an end must not take the whole machine with it; a browser reserves more
FILE_SIZE = 1 << 30
MOST_DRAWS = 50
LONG = 5  # seconds; such tests come after all others of their kind

NOTICED, UNNOTICED, BROKEN, EQUIVALENT = "noticed", "not noticed", "does not compile", "same object code"


@dataclasses.dataclass
class Test:
    name: str
    libraries: frozenset  # of the station, that it or a program that it starts links
    seconds: float = 0.0
    whole: bool = False  # starts whole programs
    reads: bool = False  # the sources themselves, such as their texts for the translators

    def rank(self, library):
        """Stage and order within it, or nothing where the test has nothing to do with the library."""
        if self.reads:
            return 1, 0, self.seconds
        linked = self.whole if library is None else library in self.libraries
        if not linked:
            return None
        if self.whole:
            return 4, self.seconds
        stage = 3 if "kest_ui_window" in self.libraries else 2 if self.seconds > LONG else 1
        return stage, len(self.libraries), self.seconds


@dataclasses.dataclass
class Change:
    path: str
    line: int
    kind: str
    before: str
    after: str
    outcome: str = ""
    by: str = ""

    def __str__(self):
        what = f"{self.path}:{self.line}: {self.kind}: `{self.before}` -> `{self.after}`"
        return f"{what}: {self.outcome}" + (f" by {self.by}" if self.by else "")


class Workshop:
    """The copy of the project and its build folder."""

    def __init__(self, prefix, jobs):
        self.prefix = prefix
        self.jobs = jobs

    def run(self, *command):
        return subprocess.run([*self.prefix, *command], cwd=COPY, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              text=True, errors="replace", check=False)

    def refresh(self):
        """Brings the copy up to date; what has not changed keeps its time."""
        names = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=PROJECT,
                               stdout=subprocess.PIPE, check=True, text=True).stdout.split("\0")
        names = {name for name in names if name and (PROJECT / name).is_file()}
        for name in names:
            content = (PROJECT / name).read_bytes()
            target = COPY / name
            if not target.is_file() or target.read_bytes() != content:
                target.parent.mkdir(parents=True, exist_ok=True)
                target.write_bytes(content)
                target.chmod((PROJECT / name).stat().st_mode)
        for path in COPY.rglob("*"):
            if BUILD not in (path, *path.parents) and path.is_file() and str(path.relative_to(COPY)) not in names:
                path.unlink()

    def configure(self):
        linker = ["-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld"] if shutil.which("ld.lld") else []
        result = self.run("cmake", "--preset", "mutation", *linker)
        if result.returncode:
            sys.exit(result.stdout)

    def build(self, *targets):
        return self.run("ninja", "-C", str(BUILD), "-j", str(self.jobs), *targets)

    def objects(self):
        """What the station's object files hold."""
        return digest(sorted((BUILD / "src").rglob("*.o")))

    def test(self, names, *targets):
        """Builds the targets, then runs tests up to the first failure. Returns the names of those that failed and what
        each took; nothing when the build failed."""
        results = WORK / "tests.xml"
        results.unlink(missing_ok=True)
        build = ["ninja", "-C", str(BUILD), "-j", str(self.jobs), *targets] if targets else ["true"]
        tests = ["ctest", "--test-dir", str(BUILD), "--stop-on-failure", "-j", str(3 * self.jobs), "--output-junit",
                 str(results), "-R", f"^({'|'.join(names)})$"]
        limits = f"ulimit -d {DATA >> 10} -f {FILE_SIZE >> 10}"
        self.run("bash", "-c", f"{shlex.join(build)} || exit; {limits}; {shlex.join(tests)}")
        if not results.is_file():
            return None
        cases = list(xml.etree.ElementTree.parse(results).getroot().iter("testcase"))
        failed = [case.get("name") for case in cases if case.get("status") == "fail"]
        return failed, {case.get("name"): float(case.get("time")) for case in cases}

    def tests(self):
        """All tests but those of the emulator and of scripts alone."""
        listed = json.loads(subprocess.run(["ctest", "--test-dir", BUILD, "--show-only=json-v1"], check=True,
                                           stdout=subprocess.PIPE, cwd=COPY).stdout)
        found = []
        for entry in listed["tests"]:
            name = entry["name"]
            program = f"tests/{name}/{name}"
            inputs = subprocess.run(["ninja", "-C", BUILD, "-t", "inputs", program], stdout=subprocess.PIPE,
                                    stderr=subprocess.DEVNULL, text=True, check=False).stdout.split("\n")
            libraries = frozenset(pathlib.PurePath(one).stem[3:] for one in inputs
                                  if one.startswith("src/") and one.endswith(".a"))
            whole = "bin/KestDetector" in inputs
            reads = name.startswith("check_")
            if reads or whole or libraries:
                found.append(Test(name, libraries, whole=whole, reads=reads))
        return found

    def library(self, path):
        """The library that a source belongs to; nothing for the program's own."""
        for line in (COPY / path).parent.joinpath("CMakeLists.txt").read_text().splitlines():
            if line.startswith("kest_add_library("):
                return line.split("(")[1].split()[0]
        return None


def digest(paths):
    result = hashlib.sha256()
    for path in paths:
        result.update(path.read_bytes())
    return result.hexdigest()


def sources(only):
    found = sorted(str(path.relative_to(COPY)) for path in (COPY / "src").rglob("*") if path.suffix in SUFFIXES)
    return [path for path in found if not only or fnmatch.fnmatch(path, only)]


def drawable(only):
    """Kind of change to all that can be drawn of it, as (file, places)."""
    by_kind = collections.defaultdict(list)
    for path in sources(only):
        for choice in places.places(path, (COPY / path).read_text(encoding="utf-8")):
            by_kind[choice[0].kind].append((path, choice))
    return by_kind


def excerpt(source, begin, end):
    """The changed piece with a little of its line around it."""
    line_begin = source.rfind("\n", 0, begin) + 1
    line_end = source.find("\n", end)
    return source[max(line_begin, begin - 30):min(line_end if line_end >= 0 else len(source), end + 20)].strip()


class Trial:
    def __init__(self, workshop, tests, only):
        self.workshop = workshop
        self.tests = tests
        self.choices = drawable(only)
        self.original = workshop.objects()

    def draw(self, chance):
        path, choice = chance.choice(self.choices[chance.choice(sorted(self.choices))])
        place = chance.choice(choice)
        source = (COPY / path).read_text(encoding="utf-8")
        changed = source[:place.begin] + place.new + source[place.end:]
        after_end = place.begin + len(place.new)
        change = Change(path, source.count("\n", 0, place.begin) + 1, place.kind,
                        excerpt(source, place.begin, place.end), excerpt(changed, place.begin, after_end))
        return change, source, changed

    def stages(self, library):
        ranked = [(test.rank(library), test.name, test) for test in self.tests]
        stages = collections.defaultdict(list)
        for rank, _, test in sorted(one for one in ranked if one[0] is not None):
            stages[rank[0]].append(test)
        return [stages[number] for number in sorted(stages)]

    def judge(self, change):
        """Builds and tests; the change is in the copy."""
        stages = self.stages(self.workshop.library(change.path))
        for number, tests in enumerate(stages):
            programs = [test.name for test in tests if not test.reads]
            result = self.workshop.test([test.name for test in tests], "src/all", *programs)
            if result is None:
                change.outcome = BROKEN
                return
            if result[0]:
                change.outcome, change.by = NOTICED, ", ".join(result[0])
                return
            if number == 0 and self.workshop.objects() == self.original:
                change.outcome = EQUIVALENT
                return
        change.outcome = UNNOTICED

    def number(self, seed, number):
        """Draws until there is a change that can be tested; returns all that were drawn."""
        drawn = []
        for attempt in range(MOST_DRAWS):
            change, source, changed = self.draw(random.Random(f"{seed}/{number}/{attempt}"))
            target = COPY / change.path
            target.write_text(changed, encoding="utf-8")
            try:
                self.judge(change)
            finally:
                target.write_text(source, encoding="utf-8")
            drawn.append(change)
            if change.outcome in (NOTICED, UNNOTICED):
                break
        return drawn


def cell(text):
    return "`" + text.replace("|", "\\|").replace("`", "'") + "`"


def report(seed, changes):
    count = collections.Counter(change.outcome for change in changes)
    tested = count[NOTICED] + count[UNNOTICED]
    share = f" ({100 * count[NOTICED] / tested:.1f} %)" if tested else ""
    summary = (f"Seed {seed}: {tested} changes, {count[NOTICED]} noticed{share}, {count[UNNOTICED]} not. Besides, "
               f"{count[BROKEN]} did not compile and {count[EQUIVALENT]} left the object code as it was.")
    lines = [summary, "", "| place | kind | before | after | |", "|---|---|---|---|---|"]
    for change in sorted(changes, key=lambda one: one.outcome != UNNOTICED):
        lines.append(f"| {change.path}:{change.line} | {change.kind} | {cell(change.before)} | {cell(change.after)} | "
                     f"{change.outcome} {change.by} |")
    (WORK / "report.md").write_text("\n".join(lines) + "\n", encoding="utf-8")
    return summary


def measured_tests(workshop):
    """The tests with the time that each takes; all have to pass before anything is changed. That they do is known when
    nothing is different from the last time."""
    tests = workshop.tests()
    state = digest(sorted(path for path in COPY.rglob("*") if path.is_file() and BUILD not in path.parents))
    known = WORK / "passed.json"
    passed = json.loads(known.read_text()) if known.is_file() else {}
    if passed.get("state") != state:
        failed, seconds = workshop.test([test.name for test in tests])
        if failed:
            sys.exit(f"without any change these fail: {', '.join(failed)}")
        passed = {"state": state, "seconds": seconds}
        known.write_text(json.dumps(passed))
    seconds = passed["seconds"]
    for test in tests:
        test.seconds = seconds[test.name]
    return tests


def arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=100, help="how many changes (default 100)")
    parser.add_argument("--seed", default=secrets.token_hex(4), help="default: drawn, and printed")
    parser.add_argument("--number", type=int, help="only the change of this number")
    parser.add_argument("--only", default="", metavar="GLOB", help="only sources whose path matches, as src/camera/*")
    parser.add_argument("--jobs", type=int, default=2, help="compilers and tests side by side (default 2)")
    parser.add_argument("--prefix", default="", metavar="COMMAND", help="put before each build and test, as 'nice -n 10'")
    return parser.parse_args()


def main():
    options = arguments()
    workshop = Workshop(shlex.split(options.prefix), options.jobs)
    COPY.mkdir(parents=True, exist_ok=True)
    lock = (WORK / "lock").open("w")
    try:
        fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
    except BlockingIOError:
        sys.exit(f"another run is at work in {WORK}")
    # What ends the script must not leave the change in the copy.
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    workshop.refresh()
    workshop.configure()
    built = workshop.build()
    if built.returncode:
        sys.exit(built.stdout)
    trial = Trial(workshop, measured_tests(workshop), options.only)
    if not trial.choices:
        sys.exit("nothing to change")
    print(f"Seed {options.seed}; {len(trial.tests)} tests pass without a change", flush=True)
    numbers = range(options.count) if options.number is None else [options.number]
    changes = []
    for number in numbers:
        begin = time.monotonic()
        for change in trial.number(options.seed, number):
            changes.append(change)
            print(f"{number}: {change} ({time.monotonic() - begin:.0f} s)", flush=True)
        summary = report(options.seed, changes)
    print(summary)


if __name__ == "__main__":
    main()
