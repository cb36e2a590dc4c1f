"""Mutates framework/ or tools/ in copies of the tree, each with a build of its own: copies.py WHAT BUILD COUNT.

BUILD is where the copies go, one for each processor. A mutant is built and tested in stages, until a test fails.
"""

import os
import shutil
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

from trial import sources_of, try_mutants

TIME_LIMIT = "120"  # seconds for one test
SLOW = "agreement|failures|RoundTrip|FileExport|Random|npm"
# What is mutated, and the stages: what is built, and which tests are run, the quick ones first. A stage runs nothing
# that it did not build.
KINDS = {
    "tools": (["tools/**/*.cpp"], [
        (["eboconf"], ["-L", "golden"]),
        (["all"], ["-R", "^(tool|check)", "-E", SLOW]),
        ([], ["-R", "^(tool|check)"]),
    ]),
    "framework": (["framework/src/*.cpp", "framework/src/*.h"], [
        (["framework_test"], ["-R", "^framework_test"]),
        (["eboconf"], ["-L", "golden"]),
        (["all"], ["-E", SLOW + "|recording|example|framework_test"]),
    ]),
}  # fmt: skip


def run(*command, folder="."):
    return subprocess.run(command, cwd=folder, capture_output=True, text=True, errors="replace")


def make_copy(place):
    """A copy of the tree, built without warnings and debug information; what is there already is kept."""
    files = run("git", "ls-files").stdout.splitlines()
    for file in filter(os.path.exists, files):
        copy = os.path.join(place, file)
        os.makedirs(os.path.dirname(copy), exist_ok=True)
        if not os.path.exists(copy) or open(copy, "rb").read() != open(file, "rb").read():
            shutil.copy(file, copy)
    flags = ["-DCMAKE_CXX_FLAGS=-w", "-DCMAKE_CXX_FLAGS_DEBUG="]
    configured = run("cmake", "--preset", "dev", *flags, folder=place)
    built = run("cmake", "--build", "--preset", "dev", "-j1", folder=place)
    if configured.returncode != 0 or built.returncode != 0:
        raise SystemExit(configured.stderr + built.stdout[-4000:])


def passes(stages, file, text, place):
    """Whether all tests pass with this text in place of the file; None when that does not compile."""
    path = os.path.join(place, file)
    was = open(path, encoding="utf-8").read()
    try:
        with open(path, "w", encoding="utf-8") as to:
            to.write(text)
        for targets, tests in stages:
            if targets:
                built = run("cmake", "--build", "--preset", "dev", "-j1", "--target", *targets, folder=place)
                if built.returncode != 0:
                    return None
            tested = run("ctest", "--preset", "dev", "-j1", "--stop-on-failure", "--timeout", TIME_LIMIT, *tests,
                         folder=place)  # fmt: skip
            if tested.returncode != 0:
                return False
        return True
    finally:
        with open(path, "w", encoding="utf-8") as to:
            to.write(was)


def main(what, build, count):
    patterns, stages = KINDS[what]
    sources = sources_of(*patterns)
    places = [os.path.join(build, str(worker)) for worker in range(os.cpu_count() or 1)]
    with ThreadPoolExecutor(len(places)) as pool:
        list(pool.map(make_copy, places))
    file, text = next(iter(sources.items()))
    if not passes(stages, file, text, places[0]):
        raise SystemExit("the tests do not pass on the tree as it is")
    return try_mutants(lambda *mutant: passes(stages, *mutant), sources, count, places)


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
