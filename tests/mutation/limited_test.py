"""Runs one test within limits, since a program that was changed may do anything."""

import os
import resource
import signal
import subprocess
import time
from collections import namedtuple

# The folder is the one below tests/ that holds the program's source.
Test = namedtuple('Test', 'name command directory folder target')
Cost = namedtuple('Cost', 'processor clock')  # seconds

# As many random calls for every change, whatever the speed of the machine.
ENVIRONMENT = dict(os.environ, KX_RANDOM_STEPS='20000')
MEMORY_LIMIT = 4 << 30  # bytes, of an endless loop that allocates


def passes(test, processor_seconds, clock_seconds):
    """Whether it ends with 0 in time; whatever it started is ended with it."""
    def limit():
        os.setpgid(0, 0)  # a session of its own would let it take a terminal that it opens
        resource.setrlimit(resource.RLIMIT_CPU, (processor_seconds, processor_seconds))
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    process = subprocess.Popen(test.command, cwd=test.directory, stdin=subprocess.DEVNULL,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                               preexec_fn=limit, env=ENVIRONMENT)
    ended = has_ended(process.pid, clock_seconds)  # or waits for a lock or a line
    os.killpg(process.pid, signal.SIGKILL)  # not reaped yet, so the number is still its own
    return process.wait() == 0 and ended


def has_ended(pid, seconds):
    deadline, pause = time.monotonic() + seconds, 0.001
    while not os.waitid(os.P_PID, pid, os.WEXITED | os.WNOWAIT | os.WNOHANG):
        if time.monotonic() > deadline:
            return False
        time.sleep(pause)
        pause = min(2 * pause, 0.05)
    return True


def cost_of(test):
    """Of a run that passes, else None."""
    def seconds():
        used = resource.getrusage(resource.RUSAGE_CHILDREN)
        return used.ru_utime + used.ru_stime
    processor, clock = seconds(), time.monotonic()
    if not passes(test, 600, 600):
        return None
    return Cost(seconds() - processor, time.monotonic() - clock)
