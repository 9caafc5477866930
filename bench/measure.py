#!/usr/bin/python3
"""Runs every benchmark side by side with its floor or peer and prints one table; called by bench/run.

    measure.py BUILD_FOLDER [ROW ...]

Needs a network in which the emulated camera's ports are free. The table also goes to BUILD_FOLDER/bench.json.
"""

import contextlib
import dataclasses
import json
import os
import pathlib
import shutil
import signal
import socket
import statistics
import subprocess
import sys
import tempfile
import time
import typing

REPETITIONS = 5
KIB = 1024
MIB = 1024 * KIB
SHELL_SIZES = [KIB, 64 * KIB, 256 * KIB, MIB, 4 * MIB]
TASKS_OF_A_FULL_RUN = 10
TASK_PAUSE_MS = 100
RUNS_FOR_MEMORY = 100
IDLE_SLICES = 5
IDLE_SLICE_SECONDS = 60
SHELL_WAITS = 5
FRAME_MS = 16

build = pathlib.Path()
work = pathlib.Path()
environment = {}
rows = []


def program(name):
    return build / "bench" / name / name


@dataclasses.dataclass(frozen=True)
class Case:
    row: str
    what: str
    unit: str = ""
    note: str = ""


@dataclasses.dataclass(frozen=True)
class Peer:
    """What a case is measured against: its name, and one number for each repetition."""
    name: str = ""
    samples: typing.Sequence[float] = ()


@dataclasses.dataclass(frozen=True)
class Goal:
    text: str = "report"
    met: bool | None = None


def add_row(case, measured, peer=Peer(), goal=Goal(), ratio=()):
    """`measured` and `ratio` are lists with one number for each repetition; there may be no ratio."""
    rows.append({
        "row": case.row, "what": case.what, "unit": case.unit, "measured": summary(measured), "peer": peer.name,
        "peerMeasured": summary(peer.samples), "ratio": summary(ratio), "goal": goal.text, "met": goal.met,
        "note": case.note})
    print(format_row(rows[-1]), flush=True)


def summary(samples):
    if not samples:
        return None
    return {"median": statistics.median(samples), "min": min(samples), "max": max(samples), "samples": list(samples)}


def ratios(measured, peer):
    """Each repetition against the one of its peer that ran beside it."""
    return [ours / theirs for ours, theirs in zip(measured, peer)]


def at_most(samples, limit, text):
    return Goal(text, statistics.median(samples) <= limit)


def below(samples, limit, text):
    return Goal(text, statistics.median(samples) < limit)


def add_comparison(case, measured, peer, limit=None, text="report"):
    """A row whose goal is the ratio to the peer."""
    ratio = ratios(measured, peer.samples)
    add_row(case, measured, peer, Goal() if limit is None else at_most(ratio, limit, text), ratio)


def number(value):
    return f"{value:.3g}" if abs(value) < 1000 else f"{value:.0f}"


def format_summary(value, unit=""):
    if value is None:
        return "-"
    text = number(value["median"]) + (f" {unit}" if unit else "")
    if len(value["samples"]) > 1:
        text += f" ({number(value['min'])}..{number(value['max'])})"
    return text


def format_row(row):
    met = {True: "met", False: "MISSED", None: "-"}[row["met"]]
    peer = "-" if row["peerMeasured"] is None else f"{row['peer']}: {format_summary(row['peerMeasured'], row['unit'])}"
    cells = [row["row"], row["what"], format_summary(row["measured"], row["unit"]), peer,
             format_summary(row["ratio"]), row["goal"], met]
    return "| " + " | ".join(cells) + " |"


HEADER = "| row | case | measured | floor or peer | ratio | goal | |\n|---|---|---|---|---|---|---|"


@contextlib.contextmanager
def camera():
    """The emulated camera with the benchmarks' files in it; yields its file system's folder."""
    folder = pathlib.Path(tempfile.mkdtemp(prefix="camera-", dir=work))
    with subprocess.Popen([build / "bin" / "camera-emulator", "--run-dir", folder], stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, text=True) as process:
        try:
            if "ready" not in process.stdout.readline():
                raise RuntimeError("the emulated camera did not start")
            root = folder / "rootfs"
            texts = root / "data" / "bench"
            texts.mkdir()
            line = b"kernel: [   12.345678] mmc0: new ultra high speed SDR104 SDXC card at address 0001\n"
            for size in SHELL_SIZES:
                (texts / str(size)).write_bytes((line * (size // len(line) + 1))[:size - 1] + b"\n")
            yield root
        finally:
            process.terminate()
            process.wait(30)
            shutil.rmtree(folder, ignore_errors=True)


def google_benchmark(name, arguments=(), options=()):
    """Runs a Google Benchmark program; returns its repetitions by benchmark name."""
    command = [program(name), *arguments, "--benchmark_format=json", f"--benchmark_repetitions={REPETITIONS}",
               "--benchmark_enable_random_interleaving=true", *options]
    result = subprocess.run(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True,
                            timeout=300)
    found = {}
    for entry in json.loads(result.stdout)["benchmarks"]:
        if entry.get("error_occurred"):
            raise RuntimeError(f"{entry['name']}: {entry['error_message']}")
        if entry["run_type"] == "iteration":
            key = entry["run_name"].split("/iterations")[0].split("/manual_time")[0].split("/real_time")[0]
            found.setdefault(key, []).append(entry)
    return found


def values(entries, key="real_time", factor=1.0):
    return [entry[key] * factor for entry in entries]


class Probed:
    """A running program whose probe reports its events."""

    def __init__(self, name, arguments=(), **variables):
        self.report = pathlib.Path(tempfile.mkstemp(prefix="report-", dir=work)[1])
        self.begin = time.monotonic_ns()
        self.process = subprocess.Popen(
            [program(name), *arguments], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            env={**environment, "KEST_BENCH_REPORT": str(self.report), **variables})

    def __enter__(self):
        return self

    def __exit__(self, *unused):
        self.process.terminate()
        self.process.wait(30)

    def events(self, name):
        return [int(line.split()[1]) for line in self.report.read_text().splitlines() if line.split()[0] == name]

    def wait_for(self, name, seconds):
        limit = time.monotonic() + seconds
        while not self.events(name):
            if time.monotonic() > limit or self.process.poll() is not None:
                raise RuntimeError(f"no {name} from {self.process.args[0]}")
            time.sleep(0.02)
        return self.events(name)[0]

    def finish(self, seconds):
        self.process.wait(seconds)

    def processor_ns(self):
        # clock_getcpuclockid(3): the processor time of another process.
        return time.clock_gettime_ns((~self.process.pid << 3) | 2)

    def resident_mib(self):
        status = pathlib.Path(f"/proc/{self.process.pid}/status").read_text()
        return int(status.split("VmRSS:")[1].split()[0]) / KIB


def full_run():
    with camera():
        floors = []
        for _ in range(REPETITIONS):
            output = subprocess.run([program("rawRun"), work], stdout=subprocess.PIPE, text=True, check=True,
                                    timeout=60).stdout
            floors.append(sum(int(line.split()[1]) for line in output.splitlines()) / 1e6)
        with Probed("probedStation", ["--run", "all", "--repeat", str(REPETITIONS), "--save-path", work]) as station:
            station.finish(120)
            starts = station.events("run-start")
            measured = [(end - start) / 1e6 for start, end in zip(starts, station.events("run-end"))]
            taken = [(begin - start) / 1e6 for start, begin in zip(starts, station.events("run-taken"))]
            passed = station.events("run-passed")
            cpu = [ns / 1e6 for ns in station.events("run-processor-ns")]
    if passed != [1] * REPETITIONS:
        raise RuntimeError("a run did not pass")
    # The runner looks for a request every 50 ms; how long it took to see this one is the pause's share of this run.
    floor = [camera_time + TASKS_OF_A_FULL_RUN * TASK_PAUSE_MS + pause for camera_time, pause in zip(floors, taken)]
    add_comparison(Case("full run", "ten components, Start to verdict", "ms"), measured,
                   Peer("pauses + camera, raw", floor), 1.05, "<= 1.05")
    add_row(Case("idle", "processor time of a run", "% of a core"),
            [100 * part / whole for part, whole in zip(cpu, measured)])


def requests():
    with camera():
        found = google_benchmark("requestBench")
    for ours, raw, name in (("ping", "rawPing", "Ping"), ("eeprom", "rawEeprom", "EEPROM, 720 bytes")):
        add_comparison(Case("request", f"{name}, p50", "us"), values(found[ours], "p50_us"),
                       Peer("raw UDP socket", values(found[raw], "p50_us")), 2.0, "<= 2.0")
        p99 = values(found[ours], "p99_us")
        add_row(Case("request", f"{name}, p99", "us"), p99, Peer("raw UDP socket", values(found[raw], "p99_us")),
                below(p99, 1000, "< 1000 us"))


def shell():
    with camera():
        found = google_benchmark("shellBench")
    for size in (KIB, 64 * KIB, MIB):
        add_comparison(Case("shell", f"{size // KIB} KiB", "ms"), values(found[f"telnet/{size}"], factor=1e-6),
                       Peer("raw socket", values(found[f"rawTelnet/{size}"], factor=1e-6)), 1.3, "<= 1.3")
    per_byte = {size: values(found[f"telnet/{size}"], factor=1 / size) for size in SHELL_SIZES}
    raw_per_byte = {size: values(found[f"rawTelnet/{size}"], factor=1 / size) for size in SHELL_SIZES}
    smallest, largest = 64 * KIB, 4 * MIB
    for size in (smallest, 256 * KIB, MIB, largest):
        growth = ratios(per_byte[size], per_byte[smallest])
        add_row(Case("growth", f"{size // KIB} KiB, cost of a byte", "ns"), per_byte[size],
                Peer("raw socket", raw_per_byte[size]),
                at_most(growth, 1.5, "<= 1.5 x 64 KiB") if size == largest else Goal(), growth)


def ftp():
    with camera() as root:
        for name, size in (("1 MiB", MIB), ("200 MiB", 200 * MIB)):
            (root / "tmp" / "archive" / "file.bin").write_bytes(os.urandom(size))
            ours, curl = [], []
            target = work / "file.bin"
            for _ in range(REPETITIONS + 1):
                result = subprocess.run(
                    [program("ftpBench"), "file.bin", work, "--benchmark_format=json"], env=environment,
                    stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=True, timeout=60)
                entry = json.loads(result.stdout)["benchmarks"][0]
                if entry.get("error_occurred") or target.stat().st_size != size:
                    raise RuntimeError("the download failed")
                ours.append(entry["real_time"] / 1e6)
                # Its own clock: without the start of the process.
                output = subprocess.run(
                    ["curl", "-s", "-S", "-o", target, "-w", "%{time_total}", "--user", "camera:camera",
                     "ftp://127.0.0.10:2121/file.bin"], stdout=subprocess.PIPE, text=True, check=True).stdout
                curl.append(float(output) * 1000)
                target.unlink()
            # The first pair has warmed up the server.
            add_comparison(Case("FTP", name, "ms"), ours[1:], Peer("curl", curl[1:]), 1.0, "<= 1.0")


def idle():
    with camera(), Probed("probedStation") as station, Probed("emptyWindow") as empty:
        station.wait_for("linked", 30)
        empty.wait_for("first-paint", 30)
        time.sleep(2)
        parts = {station: [], empty: []}
        for _ in range(IDLE_SLICES):
            before = {one: one.processor_ns() for one in parts}
            begin = time.monotonic_ns()
            time.sleep(IDLE_SLICE_SECONDS)
            elapsed = time.monotonic_ns() - begin
            for one, samples in parts.items():
                samples.append(100 * (one.processor_ns() - before[one]) / elapsed)
    above = [ours - theirs for ours, theirs in zip(parts[station], parts[empty])]
    add_row(Case("idle", f"connected, {IDLE_SLICES} x {IDLE_SLICE_SECONDS} s", "% of a core"), parts[station],
            Peer("empty window", parts[empty]), at_most(above, 0.5, "<= 0.5 % above it"))


def wait():
    with camera(), Probed("probedStation", KEST_BENCH_WAITS=str(SHELL_WAITS)) as station:
        station.wait_for("waits-done", 60)
        if station.events("wait-result") != [-1] * SHELL_WAITS:
            raise RuntimeError("a shell call found a prompt")
        parts = [100 * processor / whole
                 for processor, whole in zip(station.events("wait-processor-ns"), station.events("wait-ns"))]
    add_row(Case("idle", "in a shell wait of 5 s", "% of a core"), parts, goal=at_most(parts, 1, "<= 1 %"))


def window():
    with camera() as root:
        # 1 MiB of kernel log, and an archive of 200 MiB that costs the camera nothing to pack.
        shutil.copy(root / "data" / "bench" / str(MIB), root / "usr" / "share" / "camera" / "dmesg.txt")
        (root / "data" / "large.bin").write_bytes(os.urandom(200 * MIB))
        tar = root / "bin" / "tar"
        tar.unlink()
        tar.write_text("#!/bin/sh\n[ \"$3\" = /data/log ] && exec ln /data/large.bin \"$2\"\n"
                       "exec busybox tar \"$@\"\n")
        tar.chmod(0o755)
        # The shell would run its own applet before anything in the PATH.
        with (root / "etc" / "profile").open("a") as profile:
            profile.write('tar() { /bin/tar "$@"; }\n')
        os.chown(root / "data" / "large.bin", (root / "data").stat().st_uid, (root / "data").stat().st_gid)
        with Probed("probedStation", ["--run", "all", "--repeat", str(REPETITIONS), "--save-path", work],
                    KEST_BENCH_HEARTBEAT="1") as station:
            station.finish(120)
            absences = [ns / 1e6 for ns in station.events("run-longest-absence-ns")]
            work_in_them = [ns / 1e6 for ns in station.events("run-longest-absence-processor-ns")]
            moments = [ns / 1e6 for ns in station.events("run-longest-absence-at-ns")]
    archives = list(work.glob("log/*/log.tar.gz"))
    texts = list(work.glob("log/*/dmesg.txt"))
    if not archives or archives[0].stat().st_size != 200 * MIB or texts[0].stat().st_size < MIB:
        raise RuntimeError("the run did not fetch what it was to fetch")
    note = "each run's longest; at " + ", ".join(f"{moment:.0f}" for moment in moments) + " ms of the runs"
    add_row(Case("window", "longest absence, 1 MiB text, 200 MiB file", "ms", note), absences,
            Peer("processor time in it", work_in_them), at_most(absences, FRAME_MS, f"<= {FRAME_MS} ms"))


def table():
    found = google_benchmark("tableBench")
    for count in (0, 1000, 5000, 10000):
        times = values(found[f"add/{count}"], factor=1e-6)
        add_row(Case("table", f"ten rows more at {count}", "ms"), times,
                Peer("until shown", values(found[f"addAndShow/{count}"], factor=1e-6)), below(times, 1, "< 1 ms"))


@contextlib.contextmanager
def display():
    """An X server without a screen; yields the variables of a program that shows its window there."""
    with subprocess.Popen(["Xvfb", "-displayfd", "1", "-screen", "0", "1600x1200x24", "-nolisten", "tcp"],
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True) as server:
        try:
            number = server.stdout.readline().strip()
            if not number:
                raise RuntimeError("Xvfb did not start")
            yield {"QT_QPA_PLATFORM": "xcb", "DISPLAY": f":{number}"}
        finally:
            server.terminate()
            server.wait(30)


def time_to_paint(name, variables):
    with Probed(name, **variables) as one:
        return (one.wait_for("first-paint", 30) - one.begin) / 1e6


def start():
    with display() as shown:
        for surroundings, variables in (("on X11", shown), ("offscreen", {})):
            pairs = [[time_to_paint(name, variables) for name in ("probedStation", "emptyWindow")]
                     for _ in range(2 * REPETITIONS + 1)]
            ours, empty = zip(*pairs[1:])  # the first pair has read the files from the disk
            add_comparison(Case("start", f"process start to painted window, {surroundings}", "ms"), ours,
                           Peer("empty window", empty), 1.5, "<= 1.5")


@contextlib.contextmanager
def without_history():
    """Takes the section [History] out of the probed station's settings for a while."""
    settings = program("probedStation").parent / "option.ini"
    before = settings.read_text()
    kept, inside = [], False
    for line in before.splitlines(keepends=True):
        inside = line.strip() == "[History]" if line.startswith("[") else inside
        if not inside:
            kept.append(line)
    if len(kept) == len(before.splitlines()):
        raise RuntimeError("the shipped settings have no history")
    settings.write_text("".join(kept))
    try:
        yield
    finally:
        settings.write_text(before)


def memory():
    station_sizes, empty_sizes = [], []
    with camera(), without_history():
        for _ in range(REPETITIONS):
            with Probed("probedStation") as station, Probed("emptyWindow") as empty:
                station.wait_for("linked", 30)
                empty.wait_for("first-paint", 30)
                time.sleep(0.5)
                station_sizes.append(station.resident_mib())
                empty_sizes.append(empty.resident_mib())
        above = [ours - theirs for ours, theirs in zip(station_sizes, empty_sizes)]
        add_row(Case("memory", "after start", "MiB"), station_sizes, Peer("empty window", empty_sizes),
                at_most(above, 12, "<= 12 MiB above it"))
        with Probed("probedStation", ["--run", "all", "--repeat", str(RUNS_FOR_MEMORY), "--save-path",
                                      work]) as station:
            station.finish(600)
            resident = [kib / KIB for kib in station.events("run-resident-kib")]
    if len(resident) != RUNS_FOR_MEMORY:
        raise RuntimeError("not all runs came to their end")
    growth = resident[-1] - resident[0]
    note = f"{resident[0]:.1f} MiB after run 1, {resident[-1]:.1f} after run {RUNS_FOR_MEMORY}"
    add_row(Case("memory", f"growth, run 1 to run {RUNS_FOR_MEMORY}", "MiB", note), [growth],
            goal=below([growth], 1, "< 1 MiB"))


def codec():
    found = google_benchmark("codecBench", options=["--benchmark_min_time=0.1"])
    for size in (12, 64, 1023):
        ours = values(found[f"frame/{size}"])
        case = Case("codec", f"{size} bytes: encode, check, parse", "ns")
        add_comparison(case, ours, Peer("Boost.CRC twice", values(found[f"boostFrame/{size}"])), 1.0, "< 1")
        add_comparison(case, ours, Peer("memcpy twice", values(found[f"memcpyFrame/{size}"])))
    for ours, boost, name in (("crc16", "boostCrc16", "CRC-16"), ("crc32", "boostCrc32", "CRC-32")):
        add_comparison(Case("codec", f"{name} of 1 KiB", "ns"), values(found[ours]),
                       Peer("Boost.CRC", values(found[boost])), 1.0, "< 1")


def record():
    found = google_benchmark("recordBench", options=["--benchmark_min_time=0.1"])
    add_comparison(Case("record", "of every item with a test, built and rendered", "ms"),
                   values(found["record"], factor=1e-6),
                   Peer("QJsonDocument", values(found["qtDocument"], factor=1e-6)), 1.5, "<= 1.5")


def log():
    found = google_benchmark("logBench", options=["--benchmark_min_time=0.2"])
    for case, name in (("below", "below the trim size"), ("above", "above it")):
        for size in (100, 4 * KIB, MIB):
            slowest = values(found[f"{case}/{size}"], "slowest_ms")
            add_row(Case("log", f"records of {size} bytes {name}", "/s", f"slowest step {max(slowest):.1f} ms"),
                    values(found[f"{case}/{size}"], "items_per_second"),
                    Peer("plain append", values(found[f"plainAppend/{size}"], "items_per_second")),
                    Goal("no step over 50 ms", max(slowest) <= 50))


def history_run():
    """The whole station with a history as it is shipped, in turn with one that has none."""
    taken = {True: [], False: []}
    sizes = {True: [], False: []}

    def one_round(with_history):
        with Probed("probedStation", ["--run", "all", "--repeat", str(REPETITIONS), "--save-path", work]) as station:
            station.finish(120)
            starts, ends = station.events("run-start"), station.events("run-end")
            sizes[with_history].append(station.events("run-resident-kib")[-1] / KIB)
        if len(ends) != REPETITIONS:
            raise RuntimeError("not all runs came to their end")
        taken[with_history].append(statistics.median((end - start) / 1e6 for start, end in zip(starts, ends)))

    with camera():
        for _ in range(REPETITIONS):
            one_round(True)
            with without_history():
                one_round(False)
    add_comparison(Case("history", "full run with a history", "ms"), taken[True], Peer("without", taken[False]), 1.01,
                   "<= 1.01")
    above = [ours - theirs for ours, theirs in zip(sizes[True], sizes[False])]
    add_row(Case("history", f"memory after {REPETITIONS} runs with a history", "MiB"), sizes[True],
            Peer("without", sizes[False]), at_most(above, 4, "<= 4 MiB above it"))


def history_commit():
    taken = []
    for _ in range(REPETITIONS):
        with tempfile.TemporaryDirectory(dir=work) as folder:
            taken.append(run_history_bench("commit", folder, "400"))
    for name, limit in (("50", None), ("99", 2.0)):
        add_comparison(Case("history", f"one run committed, p{name}", "ms"), [one["p" + name] for one in taken],
                       Peer("plain transaction of its rows", [one["plainP" + name] for one in taken]), limit, "<= 2.0")


def run_history_bench(*arguments):
    output = subprocess.run([program("historyBench"), *arguments], env=environment, check=True, stdout=subprocess.PIPE)
    return json.loads(output.stdout)


def timed(command, **options):
    begin = time.monotonic()
    subprocess.run(command, env=environment, check=True, stdout=subprocess.DEVNULL, **options)
    return time.monotonic() - begin


@contextlib.contextmanager
def postgres():
    """A server of our own; yields psql's options for it and the address of a database without its name."""
    programs = max(pathlib.Path("/usr/lib/postgresql").glob("*/bin"), default=None)
    if programs is None:
        raise RuntimeError("there is no PostgreSQL server here (Debian's postgresql)")
    folder = pathlib.Path(tempfile.mkdtemp(prefix="kest-postgres-", dir="/tmp"))
    user = []
    if os.geteuid() == 0:  # as root, it refuses to run
        user = ["setpriv", "--reuid=postgres", "--regid=postgres", "--clear-groups"]
        shutil.chown(folder, "postgres")
    data = folder / "data"
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        port = listener.getsockname()[1]
    subprocess.run([*user, programs / "initdb", "-A", "trust", "-U", "line", "-E", "UTF8", "--locale=C.UTF-8", "-D", data],
                   cwd=folder, check=True, stdout=subprocess.DEVNULL)
    with subprocess.Popen([*user, programs / "postgres", "-D", data, "-p", str(port), "-k", folder, "-h", "127.0.0.1"],
                          cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) as server:
        try:
            options = ["-X", "-q", "-h", "127.0.0.1", "-p", str(port), "-U", "line"]
            limit = time.monotonic() + 60
            while subprocess.run(["psql", *options, "-d", "postgres", "-c", "SELECT 1"], stdout=subprocess.DEVNULL,
                                 stderr=subprocess.DEVNULL, check=False).returncode != 0:
                if time.monotonic() > limit:
                    raise RuntimeError("the PostgreSQL server did not start")
                time.sleep(0.1)
            yield options, f"postgresql://line@127.0.0.1:{port}/"
        finally:
            server.send_signal(signal.SIGINT)
            server.wait(30)
            shutil.rmtree(folder, ignore_errors=True)


def history_import():
    """KEST_BENCH_RUNS runs (10,000 unless told otherwise), against the engines' own ways to take the same rows in."""
    runs = int(os.environ.get("KEST_BENCH_RUNS", "10000"))
    lines = work / "runs.jsonl"
    with open(lines, "wb") as file:
        subprocess.run([program("historyBench"), "lines", str(runs)], env=environment, check=True, stdout=file)
    store, plain = work / "import.sqlite", work / "plain.sqlite"
    rounds = 3
    taken, floor = [], []
    for _ in range(rounds):
        for made in work.glob("*.sqlite*"):
            made.unlink()
        taken.append(timed([build / "bin" / "KestHistory", "--store", store, "import", lines]))
        floor.append(timed(["sqlite3", plain], input=sqlite_import(store), text=True))
    add_comparison(Case("history", f"import of {runs} runs", "s"), taken, Peer("sqlite3's .import of their rows", floor),
                   1.5, "<= 1.5")
    taken, floor = [], []
    with postgres() as (options, address):
        for _ in range(rounds):
            for database in ("runs", "plain"):
                for statement in ("DROP DATABASE IF EXISTS ", "CREATE DATABASE "):
                    subprocess.run(["psql", *options, "-d", "postgres", "-c", statement + database], check=True,
                                   stderr=subprocess.DEVNULL)
            taken.append(timed([build / "bin" / "KestHistory", "--store", address + "runs", "import", lines]))
            floor.append(timed(["psql", *options, "-d", "plain"], input=postgres_copy(options, address), text=True))
    add_comparison(Case("history", f"import of {runs} runs on PostgreSQL", "s"), taken, Peer("COPY of their rows", floor),
                   2.0, "<= 2.0")


def sqlite_import(store):
    """What the sqlite3 shell is to be told, to make a store with the same rows. It imports no bytes, only texts: ids and
    bodies are hexadecimal there."""
    def asked(text):
        return subprocess.run(["sqlite3", store, text], check=True, stdout=subprocess.PIPE, text=True).stdout

    commands = "PRAGMA journal_mode = WAL;\nPRAGMA synchronous = FULL;\n" + asked(".schema")
    for table in asked("SELECT name FROM sqlite_master WHERE type = 'table'").split():
        columns = asked(f"SELECT CASE type WHEN 'BLOB' THEN 'hex('||name||')' ELSE name END FROM "
                        f"pragma_table_info('{table}')").split()
        rows = work / f"{table}.csv"
        with open(rows, "wb") as file:
            subprocess.run(["sqlite3", "-csv", store, f"SELECT {', '.join(columns)} FROM {table}"], check=True,
                           stdout=file)
        commands += f".import --csv {rows} {table}\n"
    return commands


def postgres_copy(options, address):
    """What psql is to be told, to fill an empty store with the rows of another one."""
    store = address + "runs"
    schema = subprocess.run(["pg_dump", "-s", "--no-owner", store], check=True, stdout=subprocess.PIPE, text=True).stdout
    # It leaves the search path empty.
    commands = schema + "\nSET search_path = public;\n"
    tables = subprocess.run(["psql", *options, "-d", "runs", "-At", "-c",
                             "SELECT tablename FROM pg_tables WHERE schemaname = 'public'"], check=True,
                            stdout=subprocess.PIPE, text=True).stdout.split()
    for table in tables:
        rows = work / f"{table}.copy"
        subprocess.run(["psql", *options, "-d", "runs", "-c", f"\\copy {table} TO '{rows}'"], check=True)
        commands += f"\\copy {table} FROM '{rows}'\n"
    return commands


def history_stores():
    """Sizes with the stores of so many runs. Each is made once and stays in the build folder; a million takes long, and
    is made on request."""
    for runs in [10_000, 100_000] + ([1_000_000] if os.environ.get("KEST_BENCH_MILLION") else []):
        store = build / f"history-{runs}.sqlite"
        subprocess.run([program("historyBench"), "fill", store, str(runs)], env=environment, check=True)
        yield runs, store


def history_window():
    """Opened, scrolled through and typed into, with each of its tabs; the largest store against the smallest."""
    stores = list(history_stores())
    pairs = []
    for _ in range(REPETITIONS):
        found = []
        for _, store in (stores[0], stores[-1]):
            output = subprocess.run([program("historyWindowBench"), store], env=environment, check=True,
                                    stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
            found.append(json.loads(output.stdout))
        pairs.append(found)
    small, large = zip(*pairs)
    (fewest, _), (most, _) = stores[0], stores[-1]
    if large[0]["rows"] != most:
        raise RuntimeError(f"{large[0]['rows']} rows instead of {most}")
    add_comparison(Case("history", f"window over {most} runs, until its first rows are painted", "ms"),
                   [one["open"] for one in large], Peer(f"over {fewest} runs", [one["open"] for one in small]), 1.5,
                   "<= 1.5")
    for tab, name in enumerate(("run", "camera", "statistics")):
        absences = [one[f"stall{tab}"] for one in large]
        note = f"{statistics.median(one[f'choice{tab}'] for one in large):.1f} ms when the tab was chosen"
        add_row(Case("history", f"window over {most} runs, longest absence while scrolling and typing beside the {name}",
                     "ms", note), absences, Peer("processor time in it", [one[f"processor{tab}"] for one in large]),
                at_most(absences, FRAME_MS, f"<= {FRAME_MS} ms"))


def history():
    searches = ("mac", "macBeginning", "serial", "serialBeginning", "latest", "failed", "item", "stationAndFailed")
    for runs, store in history_stores():
        asked = [run_history_bench("ask", store, str(runs)) for _ in range(REPETITIONS)]
        for name in searches:
            taken = [one[name] for one in asked]
            add_row(Case("history", f"search by {name} in {runs} runs, 95th percentile", "ms"), taken,
                    goal=at_most(taken, 20, "<= 20 ms"))
        for name in ("statistics30Days", "statisticsOfAll"):
            taken = [one[name] for one in asked]
            add_row(Case("history", f"{name} of {runs} runs, 95th percentile", "ms"), taken,
                    goal=at_most(taken, 300, "<= 300 ms"))
    page = work / "report.html"
    report = [build / "bin" / "KestHistory", "--store", build / "history-100000.sqlite", "report", "--out", page]
    taken = [timed(report) for _ in range(REPETITIONS)]
    add_row(Case("history", "report over 100000 runs, the whole program", "s"), taken, goal=at_most(taken, 3, "<= 3 s"))


MEASUREMENTS = {one.__name__: one for one in (
    full_run, requests, shell, ftp, idle, wait, window, table, start, memory, codec, log, record, history,
    history_window, history_run, history_commit, history_import)}


def main():
    global build, work
    build = pathlib.Path(sys.argv[1]).resolve()
    wanted = sys.argv[2:] or list(MEASUREMENTS)
    unknown = set(wanted) - set(MEASUREMENTS)
    if unknown:
        sys.exit(f"unknown row {', '.join(sorted(unknown))}; known are {', '.join(MEASUREMENTS)}")
    begin = time.monotonic()
    work = pathlib.Path(tempfile.mkdtemp(prefix="bench-", dir=build))
    environment.update(os.environ, QT_QPA_PLATFORM="offscreen", XDG_RUNTIME_DIR=str(work))
    failures = []
    try:
        print(HEADER)
        for name in wanted:
            try:
                MEASUREMENTS[name]()
            except (RuntimeError, subprocess.SubprocessError, OSError, KeyError) as error:
                failures.append(f"{name}: {error}")
                print(f"{name}: not measured: {error}", file=sys.stderr, flush=True)
    finally:
        shutil.rmtree(work, ignore_errors=True)
    missed = [row for row in rows if row["met"] is False]
    result = {"seconds": time.monotonic() - begin, "processors": os.cpu_count(), "loadAverage": os.getloadavg(),
              "rows": rows, "failures": failures}
    (build / "bench.json").write_text(json.dumps(result, indent=1, ensure_ascii=False) + "\n")
    print(f"\n{len(rows)} rows in {result['seconds']:.0f} s, {len(missed)} of their goals missed, "
          f"load average {result['loadAverage'][0]:.1f} on {result['processors']} processors")
    sys.exit(1 if failures else 0)


if __name__ == "__main__":
    main()
