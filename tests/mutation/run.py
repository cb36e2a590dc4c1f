"""Mutates config/ and runs the tests on every mutant: run.py BUILD COUNT TEST..., where COUNT may be "all".

BUILD holds the test executables. Each is linked anew with the mutant's object, and those of the other sources, before
the library, which then yields none, until one fails.
"""

import json
import os
import re
import shutil
import subprocess
import sys
import tempfile

from trial import sources_of, try_mutants

SANITIZER = "-fsanitize=address"  # of the library alone, to see what it reads and writes beyond its bounds
SANITIZED = {**os.environ, "ASAN_OPTIONS": "detect_leaks=0:hard_rss_limit_mb=2048"}
TIME_LIMIT = 60  # seconds of the processor's time for one test executable; the slowest takes about seven
HEADERS = ["config/ebo_log.h", "config/ebo_params.h"]  # those with constants that a host sees
# By the start of the mutated file's name: the tests that are likely to fail, and so come first.
FIRST = {"config/dump/": ("dumps",), "config/ebo_lifecycle": ("lifecycle",), "config/parse/loaders": ("loaders",)}


def ninja(build, *arguments):
    return subprocess.run(["ninja", *arguments], cwd=build, check=True, capture_output=True, text=True).stdout


def compile_commands(build):
    """By source file: how the library's object is compiled, up to what becomes of it; a mutant counts no lines."""
    entries = json.loads(ninja(build, "-t", "compdb"))
    return {os.path.relpath(e["file"]): re.split(r" -MD | -o ", e["command"])[0].replace(" --coverage", "")
            for e in entries if "/ebo_config_recorded.dir/" in e["output"]}  # fmt: skip


def link_command(build, test):
    """How to link the test, with OBJECT before the library and into OUTPUT."""
    link = ninja(build, "-t", "commands", test).strip().split("\n")[-1]
    head, objects, tail = re.match(r": && (.*?) (\S+\.cpp\.o.*) -o \S+ (.*) && :", link).groups()
    return f"{head} {SANITIZER} -fuse-ld=gold OBJECT {objects} -o OUTPUT {tail}"


class Mutation:
    def __init__(self, build, tests, sources, folder):
        self.build = build
        self.compile_command = compile_commands(build)
        self.link = {test: link_command(build, test) for test in tests}
        self.objects = {}
        for file, text in sources.items():
            if file.endswith(".h"):
                continue
            self.objects[file] = os.path.join(folder, file.replace("/", "-") + ".o")
            if not self.compile(file, text, self.objects[file]):
                raise RuntimeError(f"cannot compile {file}")

    def compile(self, file, text, output):
        with open(f"{output}.cpp", "w", encoding="utf-8") as to:
            to.write(text)
        include = f"-iquote {os.path.abspath(os.path.dirname(file))}"
        return self.succeeds(f"{self.compile_command[file]} -w {SANITIZER} {include} -o {output} -c {output}.cpp")

    def compile_mutant(self, file, text, folder):
        """The library's objects with this text in place of the file; None when that does not compile."""
        if file.endswith(".cpp"):
            output = os.path.join(folder, "mutant.o")
            return {**self.objects, file: output} if self.compile(file, text, output) else None
        # All sources see a header: they are compiled from a copy.
        copy = os.path.join(folder, "config")
        shutil.copytree("config", copy, dirs_exist_ok=True)
        with open(os.path.join(folder, file), "w", encoding="utf-8") as to:
            to.write(text)
        objects = {}
        for source in self.objects:
            objects[source] = os.path.join(folder, source.replace("/", "-") + ".o")
            command = self.compile_command[source].replace(os.path.abspath("config"), copy)
            command += f" -w {SANITIZER} -o {objects[source]} -c {os.path.join(folder, source)}"
            if not self.succeeds(command):
                return None
        return objects

    def passes(self, file, text, folder):
        """Whether all tests pass with this text in place of the file; None when that does not compile."""
        objects = self.compile_mutant(file, text, folder)
        if not objects:
            return None
        objects = " ".join(objects.values())
        first = next((tests for start, tests in FIRST.items() if file.startswith(start)), ("-",))
        program = os.path.join(folder, "test")
        for test in sorted(self.link, key=lambda name: not name.startswith(first)):
            if not self.succeeds(self.link[test].replace("OBJECT", objects).replace("OUTPUT", program)):
                raise RuntimeError(f"cannot link {test}")
            run = f"cd {folder} && ulimit -t {TIME_LIMIT} && exec {program} --gtest_brief=1 --gtest_fail_fast"
            if subprocess.run(run, shell=True, env=SANITIZED, capture_output=True).returncode != 0:
                return False
        return True

    def succeeds(self, command):
        return subprocess.run(command, shell=True, cwd=self.build, capture_output=True).returncode == 0


def main(build, count, *tests):
    sources = sources_of("config/**/*.cpp", *HEADERS)
    with tempfile.TemporaryDirectory() as folder:
        mutation = Mutation(build, tests, sources, folder)
        file, text = next(iter(sources.items()))
        if not mutation.passes(file, text, folder):
            raise SystemExit("the tests do not pass on the library as it is")
        places = [os.path.join(folder, str(worker)) for worker in range(os.cpu_count() or 1)]
        for place in places:
            os.mkdir(place)
        return try_mutants(mutation.passes, sources, count, places)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
