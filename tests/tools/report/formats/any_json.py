"""Whatever a file holds, what the tool writes as JSON is JSON in UTF-8: over faulty files, and over some with random
changes.

    any_json.py EBOCONF FAULTY EXAMPLE [SEED]
"""
import json
import os
import random
import subprocess
import sys
import tempfile
from pathlib import Path

eboconf, faulty, example, *seed = sys.argv[1:]
chance = random.Random(int(seed[0]) if seed else 1)

# What JSON, UTF-8 and C have trouble with.
pieces = [b"\xff", b"\xc3", b"\xed\xa0\x80", b"\\ud800", b"\\udd1e", b"\\u0000", b"\x00", b"\x1b", b"\xc2\x9b",
          b'"', b"1e999", b"-0"]
commands = [["dump"], ["explain"], ["diff", example], ["check"], ["export"]]


def written(command, file):
    form = [] if command == ["export"] else ["--format", "json"]
    run = subprocess.run([eboconf, *command, *form, file], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
    assert 0 <= run.returncode <= 2, (command, run)
    assert run.stdout or (run.returncode != 0 and command != ["check"]), (command, run)
    if run.stdout:
        json.loads(run.stdout.decode())
    return bool(run.stdout)


def changed(text):
    for _ in range(chance.randint(1, 3)):
        # Most often where it does not end the document: in a text.
        quotes = [at for at in range(len(text)) if text[at : at + 1] == b'"'] or [0]
        at = chance.choice(quotes) + chance.randint(0, 1)
        text = text[:at] + chance.choice(pieces) + text[at:]
    return text


files = sorted(Path(faulty).glob("*/*.json"))
assert len(files) > 170
count = 0
with tempfile.TemporaryDirectory() as folder:
    for number, file in enumerate(files):
        other = os.path.join(folder, f"{number}.json")
        source = Path(example) if number % 2 else file
        Path(other).write_bytes(changed(source.read_bytes()))
        one = str(file) if number % 4 == 0 else other
        try:
            count += sum(written(command, one) for command in commands)
        except Exception:
            print(f"{one}:", Path(one).read_bytes())
            raise
print(f"{count} documents")
assert count > 250
