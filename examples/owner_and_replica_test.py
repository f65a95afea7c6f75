"""Runs the examples owner and replica together, kills the owner and starts it again."""
import os
import re
import signal
import subprocess
import sys
import tempfile

OWNER, REPLICA = sys.argv[1:]


class Program:
    running = []

    def __init__(self, *command):
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        Program.running.append(self.process)

    def awaits(self, pattern):
        """Reads up to a line that matches, and gives the lines in front of it."""
        lines = []
        for line in self.process.stdout:
            if re.fullmatch(pattern, line.rstrip("\n")):
                return lines
            lines.append(line.rstrip("\n"))
        raise AssertionError(f"no line {pattern!r} but {lines}")

    def ends(self, by, code):
        if by:
            self.process.send_signal(by)
        self.process.stdout.read()
        assert self.process.wait() == code, self.process.returncode


def is_caught_up(replica):
    before = replica.awaits("caught up")
    for line in ("2 rails", "rail 0: at least 11.25 V", "rail 3: at least 0.75 V", "pin write-protect"):
        assert replica.awaits(re.escape(line)) == []
    return before


def run(path):
    writer = Program(REPLICA, path, "--write")
    writer.awaits("no owner: No such file or directory")
    owner = Program(OWNER, path)
    owner.awaits("listening")
    reader = Program(REPLICA, path)
    is_caught_up(writer)
    writer.awaits("readings taken: 1")
    is_caught_up(reader)
    for replica in (writer, reader):
        for heard in ("temperature 4.*", r"reload cause \d: input \d+", r"reload cause \d has gone"):
            replica.awaits(heard)

    # What the old owner had counted is heard of once, as what differs in the new one.
    reader.ends(signal.SIGINT, 0)
    owner.ends(signal.SIGKILL, -signal.SIGKILL)
    writer.awaits("no owner: the peer has gone")
    owner = Program(OWNER, path)
    owner.awaits("listening")
    before = is_caught_up(writer)
    assert before.count("readings taken: 0") == 1, before
    writer.awaits("readings taken: 1")

    second = Program(OWNER, path)
    second.awaits(f"owner: {re.escape(path)}: Address already in use")
    second.ends(None, 1)
    owner.ends(signal.SIGTERM, 0)
    assert not os.path.exists(path)
    writer.awaits("no owner: closed by the peer: the owner ends")
    writer.ends(signal.SIGTERM, 0)


signal.alarm(60)  # whatever hangs, ends
signal.signal(signal.SIGALRM, lambda *_: sys.exit("too late"))
try:
    with tempfile.TemporaryDirectory() as directory:
        run(directory + "/socket")
finally:
    for process in Program.running:
        process.kill()
