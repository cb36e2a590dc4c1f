#!/usr/bin/env python3
"""Runs the code blocks of a Markdown document, in order, in a scratch folder.

    run_blocks.py DOCUMENT SCRATCH

A fenced block whose first line names a path after its language is written to that path. Blocks of `sh` are run by one
shell, which stops at the first command that fails; a block of `text` after one is the end of what it prints. A block
of `json` is a piece of a tuning file: laid over the main example it must pass the check. A block of `yaml` or `groovy`
with a path is a recipe of a build server: its commands succeed, and fail once a file of the folder `tunings` is faulty.
A block of `cpp` without a path is for reading alone; one of any other kind fails the document.
"""
import json
import re
import subprocess
import sys
from pathlib import Path

import yaml

document, scratch = Path(sys.argv[1]), Path(sys.argv[2])


def fail(line, reason):
    sys.exit(f"{document}:{line}: {reason}")


def blocks():
    """(line, language, path, text) of each block."""
    lines = document.read_text().splitlines()
    at = 0
    while at < len(lines):
        start = at
        if fence := re.match(r"```(\S*) *(.*)$", lines[at]):
            while lines[at := at + 1] != "```":
                pass
            yield start + 1, fence[1], fence[2], "\n".join(lines[start + 1 : at]) + "\n"
        at += 1


def laid_over(base, piece):
    if not isinstance(base, dict) or not isinstance(piece, dict):
        return piece
    return {**base, **{key: laid_over(base.get(key), value) for key, value in piece.items()}}


def commands_of(language, text):
    """What a build server runs of a recipe, each in a shell of its own."""
    if language == "groovy":
        return re.findall(r"\bsh '([^']*)'", text)
    recipe = yaml.safe_load(text)
    if "jobs" in recipe:
        return [step["run"] for job in recipe["jobs"].values() for step in job["steps"] if "run" in step]
    return [command for job in recipe.values() for command in job["script"]]


def follow(commands):
    return all(subprocess.run(["bash", "-e", "-c", one], cwd=scratch, stdin=subprocess.DEVNULL).returncode == 0
               for one in commands)


def fault_of_recipe(language, text):
    commands = commands_of(language, text)
    example = (scratch / "my-product.json").read_text()
    (scratch / "tunings").mkdir(exist_ok=True)
    tuning = scratch / "tunings" / "lamp.json"
    tuning.write_text(example)
    if not commands or not follow(commands):
        return "the recipe fails"
    tuning.write_text(example.replace("filter_len", "filter_length"))
    return "the recipe takes a faulty file" if follow(commands) else None


class Shell:
    """One bash for all blocks of a document, so that what one of them exports is there in the next."""

    def __init__(self):
        self.process = subprocess.Popen(
            ["bash"], cwd=scratch, stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        self.run("set -euo pipefail\n")

    def run(self, commands):
        """What the commands print; None, after showing it, when one of them failed."""
        self.process.stdin.write(f"{{\n{commands}\n}} </dev/null\nprintf '\\n<done>\\n'\n")
        self.process.stdin.flush()
        output = ""
        for line in self.process.stdout:
            if line == "<done>\n":
                return output[:-1]
            output += line
        print(output, end="")
        return None


shell = Shell()
output = None
count = 0
for line, language, path, text in blocks():
    count += 1
    if path:
        (scratch / path).parent.mkdir(parents=True, exist_ok=True)
        (scratch / path).write_text(text)
        if language in ("yaml", "groovy") and (fault := fault_of_recipe(language, text)):
            fail(line, fault)
    elif language == "sh":
        output = shell.run(text)
        if output is None:
            fail(line, "a command failed")
    elif language == "text":
        if output is None or not output.endswith(text):
            fail(line, f"the commands before print something else:\n{output}")
    elif language == "json":
        example = json.loads((scratch / "my-product.json").read_text())
        (scratch / "piece.json").write_text(json.dumps(laid_over(example, json.loads(text)), indent=2))
        if shell.run("eboconf check --strict piece.json") is None:
            fail(line, "it does not pass the check")
    elif language != "cpp":
        fail(line, f"nobody runs a block of '{language}'")
print(f"{document}: {count} blocks")
