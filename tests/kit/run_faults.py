#!/usr/bin/env python3
"""Builds the frameworks of faults.txt, each with one fault, and runs the kit over them: each must be found by its case,
and each case of KIT, the kit over a framework without a fault, must find one.

    run_faults.py FAULTS SCRATCH KIT [FAULT...] -- FRAMEWORK DIRECTORY COMPILE LINK [-- ...]

COMPILE is the command that makes an object of a source, LINK the one that makes the kit of what else it needs; each is one
argument, its words separated by '|'.
"""
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import time


class Fault:
    def __init__(self, text):
        head, place, *edits = text.split("\n")
        self.name, self.case = head.split(": ")
        self.framework, self.file = place.split(" ")
        self.edits = []  # [old, new]
        for line in edits:
            if line[0] == "-" and (not self.edits or self.edits[-1][1] is not None):
                self.edits.append(["", None])
            if line[0] == "-":
                self.edits[-1][0] += line[1:] + "\n"
            else:
                self.edits[-1][1] = (self.edits[-1][1] or "") + line[1:] + "\n"

    def apply(self, text):
        for old, new in self.edits:
            if text.count(old[:-1]) != 1:
                raise RuntimeError(f"is there {text.count(old[:-1])} times:\n{old}")
            text = text.replace(old[:-1], new[:-1])
        return text


def run(command, **arguments):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                          **arguments)


def cases_of(kit):
    cases, suite = set(), ""
    for line in run([kit, "--gtest_list_tests"]).stdout.splitlines():
        if line.startswith("  "):
            cases.add(suite + line.strip())
        else:
            suite = line
    return cases


def build(fault, frameworks, scratch):
    """The kit over the faulty framework."""
    directory, compile_command, link_command = frameworks[fault.framework]
    source, program = scratch / f"{fault.name}.cpp", scratch / fault.name
    source.write_text(fault.apply((pathlib.Path(directory) / fault.file).read_text()))
    made = scratch / f"{fault.name}.o"
    for command in ([*compile_command, "-c", source, "-o", made],
                    [*(made if word == "OBJECT" else word for word in link_command), "-o", program]):
        result = run(command)
        if result.returncode:
            raise RuntimeError(f"does not build:\n{result.stdout}")
    return program


def try_fault(fault, frameworks, scratch):
    """What is wrong with the proof; None when the case has found the fault."""
    try:
        program = build(fault, frameworks, scratch)
        # What faulty code does is no coverage of the good one.
        environment = {**os.environ, "GCOV_PREFIX": str(scratch / "counts")}
        result = run([program, "--gtest_brief=1"], timeout=120, env=environment)
        program.unlink()
        failed = re.findall(r"^\[  FAILED  \] (\w+\.\w+)", result.stdout, re.MULTILINE)
        if result.returncode == 0 or fault.case not in failed:
            return f"{fault.case} has not failed, but {', '.join(dict.fromkeys(failed)) or 'nothing'}"
        if "without it: " not in result.stdout:
            return "the case does not say what goes wrong"
    except (RuntimeError, subprocess.TimeoutExpired) as error:
        return str(error)
    return None


def main():
    faults_file, scratch, kit, *rest = sys.argv[1:]
    groups, words = [], []
    for word in rest + ["--"]:
        if word == "--":
            groups.append(words)
            words = []
        else:
            words.append(word)
    wanted, *places = groups
    frameworks = {name: (directory, list(filter(None, compile_command.split("|"))), list(filter(None, link_command.split("|"))))
                  for name, directory, compile_command, link_command in places}
    text = re.sub(r"^#.*\n", "", pathlib.Path(faults_file).read_text(), flags=re.MULTILINE)
    faults = [Fault(part.rstrip("\n")) for part in re.split(r"\n\n+", text.strip("\n"))]
    assert len({fault.name for fault in faults}) == len(faults), "two faults of one name"
    if wanted:
        faults = [fault for fault in faults if fault.name in wanted]
    scratch = pathlib.Path(scratch)
    scratch.mkdir(parents=True, exist_ok=True)
    start, wrong = time.monotonic(), 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for fault, reason in zip(faults, pool.map(lambda fault: try_fault(fault, frameworks, scratch), faults)):
            if reason:
                wrong += 1
                print(f"{fault.name}: {reason}")
    cases = {fault.case for fault in faults}
    idle = [] if wanted else sorted(cases_of(kit) - cases)
    for case in idle:
        print(f"{case}: finds no fault")
    print(f"{len(faults) - wrong} of {len(faults)} faults found, by {len(cases)} cases, "
          f"in {time.monotonic() - start:.0f} seconds")
    return 1 if wrong or idle or not faults else 0


if __name__ == "__main__":
    sys.exit(main())
