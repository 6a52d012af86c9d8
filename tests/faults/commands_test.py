#!/usr/bin/env python3
"""lumarinectl as its users run it, on a system of which one call fails: the first of a kind, then the second, and so on
until a run comes to its end without meeting the fault.
    commands_test.py LUMARINECTL SYSTEM_FAULTS_LIBRARY [--tell] [--sanitized] [SCENARIO...]
A brief run takes some of the calls; LUMARINE_LONG_RUNS=1 takes all of them, with each error that the call may have.
What must hold is in judge(). --tell prints what each run ended with; --sanitized is for a program that takes its time.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

IS_LONG = os.environ.get("LUMARINE_LONG_RUNS") == "1"
SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
# A run that hangs. No measure of speed.
LIMIT = 60

# For each kind of call the errors that it is tried with. EINTR and SHORT are no failures: what they befall is to be done
# again, or gone on with.
ERRORS = {
    "open": ["EACCES", "EMFILE", "EIO", "ENOSPC", "ESTALE", "EINTR"],
    "read": ["EIO", "ESTALE", "EINTR"],
    "write": ["ENOSPC", "EIO", "EDQUOT", "EINTR", "SHORT"],
    "sync": ["EIO", "ENOSPC", "EINTR"],
    "close": ["EIO", "ENOSPC", "EINTR"],
    "rename": ["EIO", "ENOSPC", "EBUSY", "EACCES"],
    "link": ["EIO"],
    "unlink": ["EIO", "EACCES"],
    "mkdir": ["EACCES", "ENOSPC"],
    "stat": ["EIO", "EACCES", "ESTALE"],
    "readlink": ["EIO", "EACCES"],
    "chmod": ["EPERM", "EIO"],
    "folder": ["EACCES", "EMFILE"],
    "lock": ["EIO"],
    "socket": ["EMFILE", "EACCES", "ENETDOWN"],
    "setsockopt": ["ENOBUFS"],
    "fcntl": ["EINVAL"],
    "bind": ["EADDRINUSE", "EACCES"],
    "send": ["ENETUNREACH", "ENETDOWN", "EPERM", "ENOBUFS", "EAGAIN", "EINTR"],
    "receive": ["ECONNREFUSED", "ENETDOWN", "EAGAIN", "EINTR"],
    "connect": ["ENETUNREACH"],
    "getsockname": ["ENOBUFS"],
    "adapters": ["ENOMEM"],
    "name": ["EAGAIN"],
    "poll": ["EINTR", "ENOMEM"],
    "pipe": ["EMFILE"],
    "spawn": ["ENOENT", "ENOMEM"],
    "wait": ["EINTR"],
    "system": ["EIO"],
}
HARMLESS = {"EINTR", "SHORT"}
# Of a drive that is gone from some moment on.
DRIVE_ERRORS = ["EIO", "ESTALE"] if IS_LONG else ["EIO"]


class Scenario:
    """A command, and what stands around it. `writes` are the files that it is to write; each is there before if it is in
    `files`. `tells`: what it prints depends on what the system answers. One that is `slow` waits for controllers; a brief
    run leaves it out, and a long one tries a single error at each call."""

    def __init__(self, name, words, files=(), writes=(), links=(), tells=False, network=False, slow=False):
        self.name, self.words, self.files, self.writes = name, words.split(), files, writes
        self.links, self.tells, self.network, self.slow = links, tells, network, slow


CONTROLLER = "udp:Smart-123456@10.42.0.2"
SCENARIOS = [
    Scenario("new", "new tank.xml", writes=["tank.xml"]),
    Scenario("new over", "new tank.xml", ["tank.xml"], ["tank.xml"]),
    Scenario("info", "info tank.xml", ["tank.xml"]),
    Scenario("curve", "curve tank.xml --mode 1 --every 60", ["tank.xml"]),
    Scenario("frames", "frames tank.xml", ["tank.xml"]),
    Scenario("edit", "edit tank.xml tank.xml --mode 1 --align 30", ["tank.xml"], ["tank.xml"]),
    Scenario("edit steps", "edit tank.xml out.xml --mode 1 --steps 2=blue.txt", ["tank.xml", "blue.txt"], ["out.xml"]),
    Scenario("edit by a link", "edit link.xml link.xml --mode 1 --align 30", ["tank.xml"], ["tank.xml"],
             [("tank.xml", "link.xml", "symbolic")]),
    Scenario("edit in place", "edit tank.xml tank.xml --mode 1 --align 30", ["tank.xml"], ["tank.xml"],
             [("tank.xml", "twin.xml", "hard")]),
    Scenario("import", "convert day.tmf day.lmf out.xml", ["day.tmf", "day.lmf"], ["out.xml"]),
    Scenario("export tmf", "convert tank.xml out.tmf --mode 1", ["tank.xml"], ["out.tmf"]),
    Scenario("export lmf", "convert tank.xml out.lmf --mode 1", ["tank.xml", "out.lmf"], ["out.lmf"]),
    Scenario("export raw", "convert tank.xml out.raw --mode 1", ["tank.xml"], ["out.raw"]),
    Scenario("generate", "generate sun out.xml --place Berlin --date 2026-12-21 --force", writes=["out.xml"]),
    Scenario("slow start", "generate acclimation tank.xml days --mode 1 --days 3 --first 2026-11-23 --each --force", ["tank.xml"],
             ["days/day-001.xml", "days/day-002.xml", "days/day-003.xml"]),
    Scenario("German", "--language de edit tank.xml out.xml --mode 1 --optimize", ["tank.xml"], ["out.xml"]),
    Scenario("emulator", "upload tank.xml --device emulator", ["tank.xml"], slow=True),
    Scenario("devices", "devices", tells=True, slow=True),
    Scenario("doctor", "doctor", tells=True),
    Scenario("bundle", "doctor --bundle help.zip --yes", writes=["help.zip"], tells=True),
    Scenario("scan", "scan", network=True, slow=True),
    Scenario("upload", "upload tank.xml --device " + CONTROLLER, ["tank.xml"], network=True, slow=True),
    Scenario("demo", "demo tank.xml --seconds 10 --from 23:00 --device " + CONTROLLER, ["tank.xml"], network=True,
             slow=True),
    Scenario("time", "sync-time --device " + CONTROLLER, network=True),
    Scenario("wifi", "wifi-setup --ssid Home --security wpa2 --password-file secret --device " + CONTROLLER,
             ["secret"], network=True),
]


class Place:
    """A folder with the scenario's files, as they were."""

    def __init__(self, scenario, given):
        self.scenario = scenario
        self.root = tempfile.mkdtemp(prefix="lumarine-faults-")
        self.work = os.path.join(self.root, "work")
        for folder in ("work", "home/Documents", "tmp"):
            os.makedirs(os.path.join(self.root, folder))
        for name in scenario.files:
            shutil.copy(os.path.join(given, name), os.path.join(self.work, name))
        for target, name, kind in scenario.links:
            if kind == "hard":
                os.link(os.path.join(self.work, target), os.path.join(self.work, name))
            else:
                os.symlink(target, os.path.join(self.work, name))

    def gone(self):
        shutil.rmtree(self.root)

    def files(self):
        """All files in the folder of work by their names."""
        found = {}
        for folder, _, names in os.walk(self.work):
            for name in names:
                path = os.path.join(folder, name)
                with open(path, "rb") as file:
                    found[os.path.relpath(path, self.work)] = file.read()
        return found

    def copies(self):
        """Copies that were kept of what could not be written in place."""
        return [os.path.join(folder, name) for folder, _, names in os.walk(self.root) for name in names
                if name.startswith("lumarine-copy-")]

    def words(self, absolute):
        """Those of the command, its files by their whole paths if that is asked for."""
        known = {*self.scenario.files, *self.scenario.writes, *(name for _, name, _ in self.scenario.links)}
        return [os.path.join(self.work, word) if absolute and word in known else word for word in self.scenario.words]

    def run(self, order="", drive=False):
        """On a `drive` only the calls count that concern the folder of work."""
        report = os.path.join(self.root, "report")
        if os.path.exists(report):
            os.remove(report)
        home = os.path.join(self.root, "home")
        environment = {"PATH": os.environ["PATH"], "HOME": home, "TMPDIR": os.path.join(self.root, "tmp"),
                       "LC_ALL": "C.UTF-8"}
        if order:
            environment |= {"LD_PRELOAD": LIBRARY, "LUMARINE_FAULT": order, "LUMARINE_FAULT_REPORT": report}
        if drive:
            environment["LUMARINE_FAULT_BELOW"] = self.work
        with open(os.path.join(self.root, "out"), "wb") as out, open(os.path.join(self.root, "err"), "wb") as err:
            try:
                status = subprocess.run([LUMARINECTL, *self.words(drive)], cwd=self.work, env=environment,
                                        stdin=subprocess.DEVNULL, stdout=out, stderr=err, timeout=LIMIT,
                                        check=False).returncode
            except subprocess.TimeoutExpired:
                status = "a hang"
        struck = []
        if os.path.exists(report):
            with open(report, encoding="utf-8", errors="replace") as file:
                struck = file.read().splitlines()
        return Outcome(status, self.text("out"), self.text("err"), struck, self.files(), self.copies())

    def text(self, name):
        with open(os.path.join(self.root, name), encoding="utf-8", errors="replace") as file:
            return file.read().replace(self.root, "")


class Outcome:
    def __init__(self, status, out, err, struck, files, copies):
        self.status, self.out, self.err, self.struck = status, out, err, struck
        self.files, self.copies = files, copies


def judge(scenario, order, before, plain, run, copy_holds):
    """What is wrong with a run, as sentences."""
    kind, _, error = order.split(":")
    wrong = []
    if run.status not in (0, 1, 2, 3, 4):
        return [f"it ended with {run.status}: {run.err[-400:]}"]
    if run.status == 0 and not scenario.tells and plain.out != run.out:
        wrong.append("it says that it is done, and its output is not that of a run without the fault")
    if run.status != plain.status and not run.err.strip() and "[broken]" not in run.out:
        wrong.append(f"it ended with {run.status} and says nothing")
    # What the doctor finds out is what the system tells.
    if error in HARMLESS and run.status != plain.status and not scenario.tells:
        wrong.append(f"it ended with {run.status} though nothing had failed: {run.err}")
    if run.status in (0, 1, 2, 3) and "Error creating file" in run.err and not scenario.tells:
        wrong.append(f"a file could not be written, and it ended with {run.status}")
    if "not well-formed" in run.err:
        wrong.append(f"it blames the file: {run.err}")
    # What is not known to be on the disk has not taken the old file's place.
    is_new_file = any("/.lumarine-" in line for line in run.struck)
    if kind in ("write", "sync", "close") and error not in HARMLESS and is_new_file and run.status == 0:
        wrong.append("it says that it is done, and the new file was not completed")
    for name, bytes_ in run.files.items():
        old, new = before.get(name), plain.files.get(name)
        whole = bytes_ in (old, new) or (scenario.name == "bundle" and bytes_[:2] == b"PK" and bytes_[-22:-18] == b"PK\5\6")
        if name in plain.files and not whole and not copy_holds(run, new):
            wrong.append(f"{name} is neither the old file nor the new one")
        stray = name not in plain.files and name not in before
        if stray and not (kind in ("unlink", "any")) and name not in [os.path.basename(c) for c in run.copies]:
            wrong.append(f"{name} was left")
    for name in before:
        if name not in run.files:
            wrong.append(f"{name} is gone")
    if run.status == 0 and scenario.name != "bundle":
        for name in scenario.writes:
            if run.files.get(name) != plain.files.get(name):
                wrong.append(f"it says that it is done, and {name} is not the new file")
    for copy in run.copies:
        if os.path.basename(copy) not in run.err and kind not in ("unlink", "any"):
            wrong.append(f"{copy} was kept and nobody knows")
    return wrong


def copy_holds(run, new):
    """Whether a copy that the messages name holds the new content."""
    for copy in run.copies:
        with open(copy, "rb") as file:
            if file.read() == new and os.path.basename(copy) in run.err:
                return True
    return False


class Count:
    scenarios = calls = 0
    faults: list = []


def one_run(scenario, order, given, before, plain, drive=False):
    """False if the fault was not met."""
    place = Place(scenario, given)
    try:
        run = place.run(order, drive)
        if not run.struck:
            return False
        Count.calls += 1
        wrong = judge(scenario, order, before, plain, run, copy_holds)
        # What a user would do, who has read where it is.
        for copy in run.copies:
            if os.path.basename(copy) in run.err:
                os.replace(copy, os.path.join(place.work, scenario.writes[0]))
            else:
                os.remove(copy)
        again = place.run("", drive)
        if again.status != plain.status or (not scenario.tells and again.out != plain.out):
            wrong.append(f"afterwards it ends with {again.status}: {again.err}")
        if TELL:
            told = " | ".join(run.err.splitlines())
            print(f"{scenario.name} [{order}] {run.struck[0]} -> {run.status}: {told}")
        for sentence in wrong:
            Count.faults.append(f"{scenario.name} [{order}] at {run.struck[0]}: {sentence}")
        return True
    finally:
        place.gone()


def errors_at(scenario, kind, nth):
    """A brief run takes one error for each call, in turn."""
    errors = ERRORS[kind]
    return errors if IS_LONG and not scenario.slow else [errors[nth % len(errors)]]


def next_of(nth):
    """All calls in a long run; in a brief one enough to meet all of a start, then ever rarer ones."""
    return nth + 1 if IS_LONG or nth < 4 else nth + nth // 2


def try_drive(scenario, given, before):
    """The drive goes at some moment: from then on no call succeeds that concerns it."""
    place = Place(scenario, given)
    plain = place.run("", True)
    place.gone()
    nth = 1
    while all([one_run(scenario, f"any:{nth}+:{error}", given, before, plain, True) for error in DRIVE_ERRORS]):
        nth = next_of(nth)


def try_all(scenario, given):
    place = Place(scenario, given)
    before = place.files()
    plain = place.run()
    place.gone()
    if plain.status != 0 and not scenario.tells:
        Count.faults.append(f"{scenario.name} without a fault ends with {plain.status}: {plain.err}")
        return
    Count.scenarios += 1
    place = Place(scenario, given)
    kinds = {line.split()[0] for line in place.run("count").struck}
    place.gone()
    for kind in sorted(kinds):
        nth = 1
        while all([one_run(scenario, f"{kind}:{nth}:{error}", given, before, plain)
                   for error in errors_at(scenario, kind, nth)]):
            nth = next_of(nth)
    if scenario.writes and not scenario.tells:
        try_drive(scenario, given, before)


def make_files(given):
    def ctl(*words):
        subprocess.run([LUMARINECTL, *words], cwd=given, check=True, capture_output=True)
    ctl("generate", "sun", "tank.xml", "--place", "Berlin", "--date", "2026-06-21")
    for name in ("day.tmf", "day.lmf"):
        ctl("convert", "tank.xml", name, "--mode", "1")
    shutil.copy(os.path.join(given, "day.lmf"), os.path.join(given, "out.lmf"))
    with open(os.path.join(given, "blue.txt"), "w", encoding="utf-8") as file:
        file.write("08:00 0\n09:30 80 J\n18:00 0\n")
    with open(os.path.join(given, "secret"), "w", encoding="utf-8") as file:
        file.write("a good password\n")
    # What is replaced is longer than what replaces it, and neither is the other.
    ctl("new", "longer.xml")


def main():
    has_network = os.environ.get("LAB_INSIDE") == "1"
    given = tempfile.mkdtemp(prefix="lumarine-faults-given-")
    make_files(given)
    for scenario in SCENARIOS:
        if CHOSEN and scenario.name not in CHOSEN or scenario.network and not has_network:
            continue
        if scenario.slow and not IS_LONG or IS_SLOW and not IS_LONG and scenario.name != "edit in place":
            continue
        begun, calls = time.time(), Count.calls
        try_all(scenario, given)
        print(f"{scenario.name}: {Count.calls - calls} calls failed, {time.time() - begun:.1f} s", flush=True)
    shutil.rmtree(given)
    for fault in Count.faults:
        print(fault)
    print(f"{Count.scenarios} commands, {Count.calls} calls failed, {len(Count.faults)} faults")
    sys.exit(1 if Count.faults or Count.scenarios == 0 else 0)


TELL = "--tell" in sys.argv
IS_SLOW = "--sanitized" in sys.argv
LUMARINECTL, LIBRARY, *CHOSEN = [word for word in sys.argv[1:] if not word.startswith("--")]
LUMARINECTL, LIBRARY = os.path.abspath(LUMARINECTL), os.path.abspath(LIBRARY)
main()
