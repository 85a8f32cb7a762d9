"""A copy of the sources and their tests, built apart, in which single files change."""

import json
import re
import shlex
import subprocess
from collections import namedtuple
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from limited_test import Test, cost_of, passes

LIBRARY = ['driver', 'registers', 'planning', 'modbus', 'data', 'tarvelan_kx_series.cpp']
TOOLS = 'tools'
# The tests of the library, but for those that look for something else than results, and long.
FOLDERS = ['driver', 'registers', 'planning', 'modbus', 'data', 'stories', 'model']
LEFT_OUT = ['tst_damaged_replies', 'tst_edge_arguments', 'tst_load_unload', 'tst_long_lists',
            'tst_long_parameters', 'tst_public_headers', 'tst_qt48_dialect']

Unit = namedtuple('Unit', 'source object target command directory')


class BuildFailed(Exception):
    pass


def is_below(folder, ancestor):
    return f'{folder}/'.startswith(f'{ancestor}/')


def run_quietly(command, directory, **options):
    done = subprocess.run(command, cwd=directory, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, check=False, **options)
    if done.returncode != 0:
        raise BuildFailed(done.stdout)


class MutableCopy:
    """Of the library and its tests; with the tools and theirs if so asked."""

    def __init__(self, checkout, directory, jobs, with_tools):
        self.sources = directory / 'sources'
        self.build = directory / 'build'
        self.checkout = checkout
        self.jobs = jobs
        self.with_tools = with_tools
        self.outdated = set()  # targets of tests that are to be linked before they run

    def prepare(self):
        """Brings the copy up to date, builds it and runs its tests once."""
        self.copy_sources()
        self.build.mkdir(parents=True, exist_ok=True)
        run_quietly(['cmake', '-S', self.sources, '-B', self.build,
                     f'-DKX_BUILD_TOOLS={self.with_tools:d}', '-DCMAKE_BUILD_TYPE=None', '-DCMAKE_CXX_FLAGS=-O0 -w'], self.build)
        self.units = self.read_units()
        targets = sorted({unit.target.stem for unit in self.units})
        run_quietly(['cmake', '--build', self.build, '-j', str(self.jobs), '--target', *targets],
                    self.build)
        self.depends = {unit: self.headers_of(unit) for unit in self.units}
        self.tests = self.read_tests()
        self.costs = {test.name: self.measured(test) for test in self.tests}
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
            wanted = target.stem not in LEFT_OUT and place.startswith(self.folders_built())
            if wanted and not entry['file'].startswith(str(self.build)):
                units.append(Unit(Path(entry['file']).relative_to(self.sources).as_posix(),
                                  (directory / output).relative_to(self.build).as_posix(),
                                  target, tuple(command), directory))
        return units

    def folders_built(self):
        folders = ['CMakeFiles/', *(f'tests/{folder}/' for folder in FOLDERS)]
        return tuple(folders + ([f'{TOOLS}/', f'tests/{TOOLS}/'] if self.with_tools else []))

    def headers_of(self, unit):
        rules = (self.build / (unit.object + '.d')).read_text()
        prefix = str(self.sources) + '/'
        return {word[len(prefix):] for word in rules.split() if word.startswith(prefix)}

    def read_tests(self):
        listed = subprocess.run(['ctest', '--show-only=json-v1'], cwd=self.build, text=True,
                                stdout=subprocess.PIPE, check=True).stdout
        programs = {unit.target.stem: unit.target for unit in self.units}
        tests = []
        for test in json.loads(listed)['tests']:
            directory = next((value['value'] for value in test['properties']
                              if value['name'] == 'WORKING_DIRECTORY'), str(self.build))
            target = programs.get(Path(test.get('command', ['none'])[0]).name)
            if target:
                folder = target.parent.parent.relative_to(self.build / 'tests').as_posix()
                tests.append(Test(test['name'], test['command'], directory, folder, target))
        return tests

    @staticmethod
    def measured(test):
        cost = cost_of(test)
        if not cost:
            raise BuildFailed(f'{test.name} fails without any change')
        return cost

    def failing_test(self, name):
        """The first test that fails, else None; those come first that are near the changed file."""
        folder, stem = Path(name).parent.as_posix(), Path(name).stem
        # The library's tests have to do without those of the tools, and know nothing of them.
        able = [test for test in self.tests
                if is_below(test.folder, TOOLS) == is_below(folder, TOOLS)]
        own = [test for test in able if test.name.startswith('tst_' + stem)]
        header = str(Path(name).with_suffix('.h'))
        users = {unit.target for unit in self.units if header in self.depends[unit]}
        rest = sorted((test for test in able if test not in own),
                      key=lambda test: (test.folder != folder, test.target not in users,
                                        self.costs[test.name].clock))
        failed = []

        def attempt(test):
            if failed:
                return
            if test.target in self.outdated:
                self.link(test.target)
                self.outdated.discard(test.target)
            cost = self.costs[test.name]
            if not passes(test, 2 + int(5 * cost.processor), 20 + 10 * cost.clock):
                failed.append(test.name)
        for group in (own, rest):
            with ThreadPoolExecutor(self.jobs) as pool:
                list(pool.map(attempt, group))
            if failed:
                return failed[0]
        return None

    def units_with(self, name):
        """What the build compiles from it, the test of that file, and tests that include it."""
        own = 'tst_' + Path(name).stem
        included = f'#include "{name.removeprefix(TOOLS + "/")}"'
        return [unit for unit in self.units if name in self.depends[unit]
                and (not unit.source.startswith(('tests/', 'fuzz/'))
                     or Path(unit.source).stem.startswith(own)
                     or included in (self.sources / unit.source).read_text())]

    def compile_all(self, units):
        with ThreadPoolExecutor(self.jobs) as pool:
            list(pool.map(lambda unit: run_quietly(unit.command, unit.directory, timeout=120),
                          units))

    def link_all(self, targets):
        """Links what the targets are part of; a test only when it runs."""
        archives = []
        for target in targets:
            if self.is_archive(target):
                archives.append(re.search(r'\S+\.a\b', (target / 'link.txt').read_text()).group())
                Path(target.parent.parent, archives[-1]).unlink(missing_ok=True)
                self.link(target)
        programs = {test.target for test in self.tests}
        built = {unit.target for unit in self.units if (unit.target / 'link.txt').exists()}
        for target in sorted(target for target in built if not self.is_archive(target)):
            inputs = (target / 'link.txt').read_text()
            if target in targets or any(Path(archive).name in inputs for archive in archives):
                if target in programs:
                    self.outdated.add(target)
                else:
                    self.link(target)

    @staticmethod
    def is_archive(target):
        link = target / 'link.txt'
        return link.exists() and bool(re.search(r'\bar qc\b', link.read_text()))

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
