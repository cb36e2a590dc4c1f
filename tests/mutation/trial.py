"""Tries mutants, a random choice of all that are possible, and tells which ones no test notices."""

import collections
import glob
import os
import random
import threading
from concurrent.futures import ThreadPoolExecutor

from mutants import mutants

ENOUGH = 95  # percent


def sources_of(*patterns):
    """By file: its text."""
    sources = {}
    for pattern in patterns:
        for file in sorted(glob.glob(pattern, recursive=True)):
            with open(file, encoding="utf-8") as source:
                sources[file] = source.read()
    return sources


def try_mutants(passes, sources, count, places):
    """Asks `passes` of each mutant: file, its text, and which of the places to work in. None is no mutant. One at a
    time works in each place."""
    seed = int(os.environ.get("EBO_MUTATION_SEED", "1"))
    waiting = [mutant for file, source in sources.items() for mutant in mutants(file, source)]
    random.Random(seed).shuffle(waiting)
    wanted = len(waiting) if count == "all" else int(count)
    print(f"{len(waiting)} changes are possible, up to {min(wanted, len(waiting))} are tried; seed {seed}", flush=True)
    waiting = collections.deque(waiting)
    lock = threading.Lock()
    tried, killed, survivors = 0, 0, []

    def work(place):
        nonlocal tried, killed
        while True:
            with lock:
                if not waiting or tried >= wanted:
                    return
                mutant = waiting.popleft()
                tried += 1
            passed = passes(mutant.file, mutant.apply(sources[mutant.file]), place)
            with lock:
                tried -= passed is None
                killed += passed is False
                if passed:
                    survivors.append(mutant)
                    print(f"survives: {mutant}", flush=True)
                elif passed is False and killed % 100 == 0:
                    print(f"{killed} are noticed so far, {len(survivors)} are not", flush=True)

    with ThreadPoolExecutor(len(places)) as pool:
        for done in [pool.submit(work, place) for place in places]:
            done.result()
    total = killed + len(survivors)
    print(f"{killed} of {total} mutants killed: {100 * killed / total:.1f} %")
    return 0 if 100 * killed >= ENOUGH * total else 1
