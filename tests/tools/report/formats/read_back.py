"""Reads the reports for code hosts as those do, and compares them with the report for programs.

    read_back.py EBOCONF FAULTY
"""
import json
import os
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml
from pathlib import Path

eboconf, faulty = sys.argv[1:]
folder = tempfile.TemporaryDirectory()
odd = os.fsencode(folder.name) + b"/\xff\x1b<&>%0A:,\xc3\n\xef\xbf\xbf.json"
Path(os.fsdecode(odd)).write_text('{"ebo_configs": {"\\u0001<&>\\ud83d%0A": 1, "x": 5}}')
files = sorted(str(path.relative_to(faulty)) for path in Path(faulty).glob("*/*.json")) + [odd, "no such file"]
assert len(files) > 170


def report(form):
    run = subprocess.run([eboconf, "check", "--format", form, *files], cwd=faulty, capture_output=True)
    assert run.returncode == 1 and run.stderr == b"", run
    return run.stdout.decode()


def same(one, other):
    for a, b in zip(one, other):
        assert a == b, f"{a}\n{b}"
    assert len(one) == len(other)


def plain(text):
    """Without what a terminal does not take, and with '?' for what is no character."""
    return "".join("?" if c == "\ufffd" or not c.isprintable() and c not in "\n\uffff" else c for c in text)


expected = []  # (file, line, code, level, message)
others = 0
for file in json.loads(report("json"))["files"]:
    for one in file["findings"]:
        # Another place that a message speaks of is given as one.
        if line := re.search(r"(?:also|first) on line (\d+)", one["message"]):
            assert [int(line[1])] == [other["line"] for other in one["related"]], one
        assert ("related" in one) == bool(line or re.search(r"\) is above", one["message"])), one
        others += "related" in one
        message = [one["message"], "Device: " + one["device"]] + (["Help: " + one["help"]] if "help" in one else [])
        expected.append((file["file"], one["line"], one["code"], one["level"], message))
    for code, count in file["left"].items():
        raise AssertionError(f"{file['file']}: {count} more of {code}")
assert len(expected) > 1000 and others >= 7


# As the runner of GitHub Actions: ::command key=value,key=value::message
def unescaped(text, codes):
    for code, character in codes:
        text = text.replace(code, character)
    return text


found = []
in_message = [("%0D", "\r"), ("%0A", "\n"), ("%25", "%")]
in_property = [("%0D", "\r"), ("%0A", "\n"), ("%3A", ":"), ("%2C", ","), ("%25", "%")]
for line in report("github").split("\n")[:-1]:
    command, text = re.fullmatch("::([a-z]+ [^:]*)::(.*)", line).groups()
    level, properties = command.split(" ", 1)
    values = dict(one.split("=", 1) for one in properties.split(","))
    values = {key: unescaped(value, in_property) for key, value in values.items()}
    level = "info" if level == "notice" else level
    code = values["title"].split(":")[0]
    found.append((values["file"], int(values.get("line", 0)), code, level, unescaped(text, in_message)))
same(found, [(plain(f), line, code, level, "\n".join(map(plain, m))) for f, line, code, level, m in expected])

entries = json.loads(report("gitlab"))
severities = {"major": "error", "minor": "warning", "info": "info"}
same([(e["location"]["path"], e["location"]["lines"]["begin"], e["check_name"], severities[e["severity"]],
       e["description"]) for e in entries],
     [(f, max(line, 1), code, level, ". ".join(m)) for f, line, code, level, m in expected])
assert len({entry["fingerprint"] for entry in entries}) == len(entries)

root = xml.fromstring(report("junit"))
cases = []
for suite in root:
    failures = [case for case in suite if case.find("failure") is not None]
    assert (int(suite.get("tests")), int(suite.get("failures"))) == (len(suite), len(failures))
    for case in suite:
        assert case.get("classname") == suite.get("name")
        cases.append((suite.get("name"), case.get("name").split(":")[0], case in failures, "".join(case.itertext())))
assert len(root) == len(files) and int(root.get("tests")) == len(cases)
assert int(root.get("failures")) == sum(failed for _, _, failed, _ in cases)
cases = [case for case in cases if case[1] != "no problems found"]
for (file, code, failed, text), (f, line, c, level, message) in zip(cases, expected):
    assert (file, code, failed) == (plain(f).replace("\uffff", "?"), c, level == "error"), (file, code, f, c)
    assert text.endswith("\n".join(map(plain, message))), (text, message)
assert len(cases) == len(expected)
