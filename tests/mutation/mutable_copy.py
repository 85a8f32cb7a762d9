"""A copy of the library and its tests, built apart, in which single files change."""

import json
import os
import re
import resource
import shlex
import subprocess
from collections import namedtuple
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

SOURCES = ['driver', 'registers', 'planning', 'modbus', 'data', 'tarvelan_kx_series.cpp']
# As many random calls for every change, whatever the speed of the machine.
ENVIRONMENT = dict(os.environ, KX_RANDOM_STEPS='20000')
# The tests that change with every change of the library, but for those that look for
# something else than results, and long.
FOLDERS = ['driver', 'registers', 'planning', 'modbus', 'data', 'stories', 'model']
LEFT_OUT = ['tst_damaged_replies', 'tst_edge_arguments', 'tst_load_unload', 'tst_long_lists',
            'tst_long_parameters', 'tst_public_headers', 'tst_qt48_dialect']
MEMORY_LIMIT = 4 << 30  # bytes, of an endless loop that allocates

Test = namedtuple('Test', 'name command directory')
Unit = namedtuple('Unit', 'source object target command directory')


class BuildFailed(Exception):
    pass


def run_quietly(command, directory, **options):
    done = subprocess.run(command, cwd=directory, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, check=False, **options)
    if done.returncode != 0:
        raise BuildFailed(done.stdout)


class MutableCopy:
    def __init__(self, checkout, directory, jobs):
        self.sources = directory / 'sources'
        self.build = directory / 'build'
        self.checkout = checkout
        self.jobs = jobs

    def prepare(self):
        """Brings the copy up to date, builds it and runs its tests once."""
        self.copy_sources()
        self.build.mkdir(parents=True, exist_ok=True)
        run_quietly(['cmake', '-S', self.sources, '-B', self.build, '-DKX_BUILD_TOOLS=OFF',
                     '-DCMAKE_BUILD_TYPE=None', '-DCMAKE_CXX_FLAGS=-O0 -w'], self.build)
        self.units = self.read_units()
        targets = sorted({unit.target.stem for unit in self.units})
        run_quietly(['cmake', '--build', self.build, '-j', str(self.jobs), '--target', *targets],
                    self.build)
        self.depends = {unit: self.headers_of(unit) for unit in self.units}
        self.tests = self.read_tests()
        self.seconds = {test.name: self.measure(test) for test in self.tests}
        self.originals = {unit: (self.build / unit.object).read_bytes() for unit in self.units}
        self.codes = {unit: self.code_of(self.build / unit.object) for unit in self.units}

    def copy_sources(self):
        listed = subprocess.run(['git', 'ls-files', '--cached', '--others', '--exclude-standard'],
                                cwd=self.checkout, text=True, stdout=subprocess.PIPE,
                                check=True).stdout.split()
        for name in listed:
            origin, copy = self.checkout / name, self.sources / name
            if not origin.exists():
                continue
            content = origin.read_bytes()
            if not copy.exists() or copy.read_bytes() != content:
                copy.parent.mkdir(parents=True, exist_ok=True)
                copy.write_bytes(content)

    def read_units(self):
        units = []
        for entry in json.loads((self.build / 'compile_commands.json').read_text()):
            command = shlex.split(entry['command'])
            directory = Path(entry['directory'])
            output = command[command.index('-o') + 1]
            target = directory / re.match(r'.*CMakeFiles/[^/]+\.dir', output).group()
            place = target.relative_to(self.build).as_posix()
            wanted = target.stem not in LEFT_OUT and place.startswith(
                ('CMakeFiles/', *(f'tests/{folder}/' for folder in FOLDERS)))
            if wanted and not entry['file'].startswith(str(self.build)):
                units.append(Unit(Path(entry['file']).relative_to(self.sources).as_posix(),
                                  (directory / output).relative_to(self.build).as_posix(),
                                  target, tuple(command), directory))
        return units

    def headers_of(self, unit):
        rules = (self.build / (unit.object + '.d')).read_text()
        prefix = str(self.sources) + '/'
        return {word[len(prefix):] for word in rules.split() if word.startswith(prefix)}

    def read_tests(self):
        listed = subprocess.run(['ctest', '--show-only=json-v1'], cwd=self.build, text=True,
                                stdout=subprocess.PIPE, check=True).stdout
        tests = []
        for test in json.loads(listed)['tests']:
            directory = next((value['value'] for value in test['properties']
                              if value['name'] == 'WORKING_DIRECTORY'), str(self.build))
            program = Path(test.get('command', ['none'])[0])
            if program.name in {unit.target.stem for unit in self.units}:
                tests.append(Test(test['name'], test['command'], directory))
        return tests

    def measure(self, test):
        """Seconds of processor time, which do not depend on what else is running."""
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        if not self.passes(test, 600):
            raise BuildFailed(f'{test.name} fails without any change')
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        return after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime

    @staticmethod
    def passes(test, seconds):
        def limit():
            resource.setrlimit(resource.RLIMIT_CPU, (seconds, seconds))
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        try:
            return subprocess.run(test.command, cwd=test.directory, stdin=subprocess.DEVNULL,
                                  stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                  preexec_fn=limit, env=ENVIRONMENT, timeout=30 + 20 * seconds,
                                  check=False).returncode == 0
        except subprocess.TimeoutExpired:  # waits for a lock
            return False

    def failing_test(self, name):
        """The first test that fails, those of the changed file first; else None."""
        folder, stem = Path(name).parent.name, Path(name).stem
        own = [test for test in self.tests if test.name.startswith('tst_' + stem)]
        near = {Path(unit.source).stem for unit in self.units
                if unit.source.startswith(f'tests/{folder}/')}
        rest = sorted((test for test in self.tests if test not in own),
                      key=lambda test: (test.name not in near, self.seconds[test.name]))
        failed = []

        def attempt(test):
            if not failed and not self.passes(test, 2 + int(5 * self.seconds[test.name])):
                failed.append(test.name)
        for group in (own, rest):
            with ThreadPoolExecutor(self.jobs) as pool:
                list(pool.map(attempt, group))
            if failed:
                return failed[0]
        return None

    def units_with(self, name):
        """What the library's build, the test of that file, and tests that include it compile from it."""
        own = 'tst_' + Path(name).stem
        return [unit for unit in self.units if name in self.depends[unit]
                and (not unit.source.startswith(('tests/', 'fuzz/'))
                     or Path(unit.source).stem.startswith(own)
                     or f'#include "{name}"' in (self.sources / unit.source).read_text())]

    def compile_all(self, units):
        with ThreadPoolExecutor(self.jobs) as pool:
            list(pool.map(lambda unit: run_quietly(unit.command, unit.directory, timeout=120),
                          units))

    def link_all(self, targets):
        archives = []
        for target in targets:
            if re.search(r'\bar qc\b', (target / 'link.txt').read_text()):
                archives += re.findall(r'\S+\.a\b', (target / 'link.txt').read_text())[:1]
                Path(target.parent.parent, archives[-1]).unlink(missing_ok=True)
                self.link(target)
        built = {unit.target for unit in self.units}
        for link in self.build.rglob('link.txt') if archives else ():
            if link.parent in built and any(Path(archive).name in link.read_text()
                                            for archive in archives):
                targets = targets | {link.parent}
        for target in sorted(targets):
            if (target / 'link.txt').exists() and 'ar qc' not in (target / 'link.txt').read_text():
                self.link(target)

    @staticmethod
    def link(target):
        for command in (target / 'link.txt').read_text().splitlines():
            run_quietly(shlex.split(command), target.parent.parent)

    def code_of(self, path):
        """The content of an object without the lines and columns of its source."""
        stripped = self.build / 'stripped.o'
        run_quietly(['objcopy', '--strip-debug', path, stripped], self.build)
        return stripped.read_bytes()

    def optimised_objects(self, units):
        """What optimising makes of the units: the same for equivalent texts."""
        made = []
        for unit in units:
            output = self.build / 'optimised.o'
            command = list(unit.command)
            command[command.index('-o') + 1] = str(output)
            run_quietly(command + ['-O2', '-fno-reorder-functions'], unit.directory, timeout=300)
            made.append(self.code_of(output))
        return made
