"""The schema takes every complete tuning file and refuses faulty ones, each for its own fault.

usage: validate.py SCHEMA TUNINGS FAULTY EBOCONF
"""
import copy
import glob
import json
import os
import subprocess
import sys
import tempfile

import jsonschema

schema_file, tunings, faulty, eboconf = sys.argv[1:]
schema = json.load(open(schema_file, encoding="utf-8"))
jsonschema.Draft7Validator.check_schema(schema)
validator = jsonschema.Draft7Validator(schema)
example = json.load(open(f"{tunings}/two-mic-speaker.json", encoding="utf-8"))
wrong = []


def complaints(document):
    return ["/".join(map(str, e.absolute_path)) + ": " + e.message for e in validator.iter_errors(document)]


def accept(name, document):
    for complaint in complaints(document):
        wrong.append(f"{name}: refused: {complaint}")


def refuse(name, document, path, word):
    found = complaints(document)
    if not any(c.startswith(path + ": ") and word in c for c in found):
        wrong.append(f"{name}: no complaint about {path} with '{word}', but: {found}")


def changed(path, value):
    """The example with the value at "root/section/key", or at a list of names, replaced; removed when it is None."""
    document = copy.deepcopy(example)
    *parents, last = path.split("/") if isinstance(path, str) else path
    inner = document
    for name in parents:
        inner = inner[name]
    if value is None:
        del inner[last]
    else:
        inner[last] = value
    return document


def loads(document):
    with tempfile.NamedTemporaryFile("w", suffix=".json") as file:
        json.dump(document, file)
        file.flush()
        run = subprocess.run([eboconf, "export", file.name], capture_output=True, check=False)
        return run.returncode == 0


# Whole files, and parts of them.
for file in sorted(glob.glob(f"{tunings}/*.json")):
    accept(file, json.load(open(file, encoding="utf-8")))
    written = subprocess.run([eboconf, "export", file], capture_output=True, check=True).stdout
    accept("export of " + file, json.loads(written))
accept("defaults", json.loads(subprocess.run([eboconf, "export", "--defaults"], capture_output=True, check=True).stdout))
for root in example:
    accept("only " + root, {root: example[root]})
accept("with $schema", {"$schema": "x", **example})
refuse("nothing", {}, "", "not valid under any of the given schemas")

# The schema requires a section or key exactly when a load does.
for section in example["ebo_configs"]:
    path = f"ebo_configs/{section}"
    lacking = changed(path, None)
    if loads(lacking):
        accept("without " + section, lacking)
    else:
        refuse("without " + section, lacking, "ebo_configs", f"'{section}' is a required property")
    for status in ("enable", "disable"):
        for key in example["ebo_configs"][section]:
            document = changed(f"{path}/{key}", None)
            if key != "status":
                document["ebo_configs"][section]["status"] = status
            # A delay that fails does not fail the load, but it is not there either.
            failing_delay = section == "delay" and (status == "enable" or key == "status")
            name = f"{status}d without {section}.{key}"
            if loads(document) and not failing_delay:
                accept(name, document)
            else:
                refuse(name, document, path, f"'{key}' is a required property")

# One fault each.
for path, value, word in [
    ("ebo_configs/agc/max_gian", 1, "'max_gian' does not match any of the regexes"),
    ("ebo_configs/agcc", {}, "'agcc' does not match any of the regexes"),
    ("ebo_config", {}, "'ebo_config' does not match any of the regexes"),
    ("ebo_configs/agc", [], "is not of type 'object'"),
    ("ebo_configs/agc/status", "enabled", "is not valid under any"),
    ("ebo_configs/agc/status", "", "is not valid under any"),
    ("ebo_configs/agc/status", True, "is not of type 'string'"),
    ("ebo_configs/agc/max_gain", "24.0", "is not of type 'number'"),
    ("ebo_configs/agc/max_gain", [1.0], "is not of type 'number'"),
    ("ebo_configs/agc/swSmL0", 40.5, "is not of type 'integer'"),
    ("ebo_configs/agc/swSmL0", 2147483648, "maximum"),
    ("ebo_configs/aec/filter_len", 70000, "maximum"),
    ("ebo_configs/aec/filter_len", -32769, "minimum"),
    ("ebo_configs/aec/drop_ref_channel", True, "is not of type 'integer'"),
    ("ebo_configs/aec/mic_chn_map", "17 chn;map:" + ",".join("0" * 17), "does not match"),
    ("ebo_configs/aec/mic_chn_map", "4 chn;map:1,0,3", "does not match"),
    ("ebo_configs/aec/mic_chn_map", "2 chn;map:1,0,3", "does not match"),
    ("ebo_configs/aec/mic_chn_map", "2 chn:map:1,0", "does not match"),
    ("ebo_configs/aec/mic_chn_map", "1,0", "does not match"),
    ("ebo_configs/nlp/band_pass_thd", "1,2,3,4,5,6,7", "does not match"),
    ("ebo_configs/nlp/band_pass_thd", "1,2,3,4,5,6,7,8,9", "does not match"),
    ("ebo_configs/nlp/band_pass_thd", "1 ,2,3,4,5,6,7,8", "does not match"),
    ("ebo_configs/nlp/band_pass_thd", "1 2 3 4 5 6 7 8", "does not match"),
    ("ebo_configs/aes/LimitRatio_0", "1.0  0.85", "does not match"),
    ("ebo_configs/aes/LimitRatio_0", "1.0,  0.85, 0.7", "does not match"),
    ("ebo_configs/aes/LimitRatio_0", "1.0  0.85  x", "does not match"),
    ("ebo_configs/aes/LimitRatio_0", 1.0, "is not of type 'string'"),
    ("ebo_configs/aes/ThdSplitFreq_0", "0.5  500", "does not match"),
    ("ebo_configs/aes/ThdSplitFreq_0", "500", "does not match"),
    ("ebo_configs/wakeup/mode", "3", "is not of type 'integer'"),
    ("ebo_configs/ainr/model_path", 1, "is not of type 'string'"),
    ("ebo_ao_configs/howl/mode", 1.5, "is not of type 'integer'"),
    ("ebo_agc_configs/agc/fRk0", {}, "is not of type 'number'"),
]:
    last = path.rsplit("/", 1)[0] if "regexes" in word and "/" in path else path
    last = "" if path == "ebo_config" else last
    refuse(f"{path} = {value!r}", changed(path, value), last, word)

# Nothing but a matter of taste.
for path, value in [
    ("ebo_configs/agc/status", "ENABLE"),
    ("ebo_configs/agc/status", "Disable"),
    ("ebo_configs/agc/max_gain", 24),
    ("ebo_configs/agc/max_gain", 2.4e1),
    ("ebo_configs/aec/drop_ref_channel", -3),
    ("ebo_configs/aec/mic_chn_map", "0 chn;map:"),
    ("ebo_configs/aec/mic_chn_map", "1 chn;map:3"),
    ("ebo_configs/aec/mic_chn_map", " 16chn;map:" + ", ".join("-1" for _ in range(16))),
    ("ebo_configs/nlp/band_pass_thd", " 1, 2,\t3,4,5,6,7,-8 "),
    ("ebo_configs/aes/LimitRatio_0", "1 .5\t-1e-3"),
    ("ebo_configs/aes/LimitRatio_0", " inf  -Infinity\nnan "),
    ("ebo_configs/aes/ThdSplitFreq_0", "+0 -500"),
    ("ebo_configs/wakeup", {}),
]:
    accept(f"{path} = {value!r}", changed(path, value))
    if not loads(changed(path, value)):
        wrong.append(f"{path} = {value!r} is accepted but does not load")

# Notes, everywhere.
for path in ["", "ebo_configs", "ebo_configs/agc", "ebo_ao_configs", "ebo_ao_configs/howl", "ebo_agc_configs/agc"]:
    parents = path.split("/") if path else []
    for name, value in [("_note", "text"), ("//", 1), ("// why", {"any": []}), ("_", None)]:
        accept(f"{name} in {path}", changed([*parents, name], [value]))
    refuse(f"note_ in {path}", changed([*parents, "note_"], 1), path, "'note_' does not match any of the regexes")

# The modes of an enabled wake-up, and of a disabled one, which is not read.
for mode in [-1, 0, 1, 2, 3, 4]:
    for status in ["enable", "Enable", "disable"]:
        document = changed("ebo_configs/wakeup", {"status": status, "mode": mode})
        name = f"{status}d wakeup of mode {mode}"
        if 1 <= mode <= 3 or status == "disable":
            accept(name, document)
        else:
            refuse(name, document, "ebo_configs/wakeup/mode", "is not one of [1, 2, 3]")



def checked(folder):
    """Each JSON file of a folder as a document, with the number of findings of eboconf check."""
    files = sorted(glob.glob(f"{folder}/**/*.json", recursive=True))
    report = subprocess.run([eboconf, "check", "--format", "json", *files], capture_output=True, check=False)
    for entry in json.loads(report.stdout)["files"]:
        try:
            yield entry["file"], json.load(open(entry["file"], encoding="utf-8")), len(entry["findings"])
        except ValueError:
            pass  # an editor says without a schema that it is no JSON


# What check calls clean is accepted: of the faulty inputs...
clean = seen = unseen = 0
for name, document, findings in checked(faulty):
    found = complaints(document)
    if findings:
        seen, unseen = (seen + 1, unseen) if found else (seen, unseen + 1)
    else:
        clean += 1
        wrong += [f"{name} is clean, but refused: {complaint}" for complaint in found]
print(f"faulty inputs: {clean} clean, {seen} refused by check and schema, {unseen} by check alone")

# ... and of the example with each of these values in the place of each key of an enabled section.
VALUES = [0, 3, -1, 1.5, 32768, 2**31, True, None, {}, "", "x", "Disable", "1", " 1\t-2 ", "+500  1e3", "1.0 .5 2.",
          "1,2", "1, 2,3,4,5,6,7,8 ", "2 chn;map:1,0", "0 chn;map:", "1chn;map: 3", "inf -nan 1", "1 2 3 4"]
with tempfile.TemporaryDirectory() as folder:
    for section, key in ((s, k) for s in example["ebo_configs"] for k in example["ebo_configs"][s]):
        document = changed(f"ebo_configs/{section}/status", "enable")
        for i, value in enumerate(VALUES):
            document["ebo_configs"][section][key] = value
            with open(f"{folder}/{section} {key} {i}.json", "w", encoding="utf-8") as file:
                json.dump(document, file)
    both = 0
    for file, document, findings in checked(folder):
        section, key, i = os.path.basename(file)[: -len(".json")].split()
        definition = {"$ref": f"#/definitions/{section}", "definitions": schema["definitions"]}
        found = list(jsonschema.Draft7Validator(definition).iter_errors(document["ebo_configs"][section]))
        both += bool(findings) == bool(found)
        if found and not findings:
            wrong.append(f"{section}.{key} = {VALUES[int(i)]!r} is clean, but refused: {found[0].message}")
print(f"{both} other values judged alike by check and schema")
if seen < 50 or both < 1000:
    wrong.append("too few inputs to say anything about the schema")

print("\n".join(wrong))
sys.exit(1 if wrong else 0)
