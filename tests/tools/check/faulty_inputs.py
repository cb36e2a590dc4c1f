#!/usr/bin/env python3
"""Writes the faulty inputs: faulty_inputs.py EXAMPLE FOLDER PART.faults...

PART is the part that is checked. A line "NAME: EDIT" makes FOLDER/PART/NAME.json from EXAMPLE; further edits of the
same file follow on lines that begin with a blank. A first line "base: EDIT" edits what the other lines start from.

    POINTER = TEXT        puts TEXT in the place of a value
    add POINTER TEXT      puts TEXT after the last member of an object ("/" is the whole document)
    remove POINTER        removes a member
    rename POINTER NAME   renames a member
    keep POINTER...       removes every member but these, what they hold and what they are in
    replace OLD => NEW    replaces the first OLD of the text
    replace-all OLD => NEW
    text TEXT             puts TEXT in the place of the whole file
    utf-16                writes the file in UTF-16, little endian

TEXT need not be JSON. \\xHH is the byte HH everywhere: \\x0A a line break, \\x20 a blank at the end of a line. Edits
are made in their order: those that break the JSON come last, the lowest place of the file first.
"""
import json
import pathlib
import re
import shutil
import sys

# Bytes are kept as the characters 0 to 255 throughout.
DECODER = json.JSONDecoder(strict=False)


def past_blanks(text, at):
    return re.compile(r"[ \t\r\n]*").match(text, at).end()


def members(text, at):
    """Name, its start and the start of the value, of each member of the object at `at`."""
    if text[at] != "{":
        return
    at = past_blanks(text, at + 1)
    while text[at] == '"':
        start = at
        name, at = DECODER.raw_decode(text, start)
        value = past_blanks(text, past_blanks(text, at) + 1)
        yield name, start, value
        at = past_blanks(text, DECODER.raw_decode(text, value)[1])
        if text[at] == ",":
            at = past_blanks(text, at + 1)


def find(text, pointer):
    """The starts of the member's name and of its value."""
    name, value = 0, past_blanks(text, 0)
    for step in filter(None, pointer.split("/")):
        places = (place[1:] for place in members(text, value) if place[0] == step)
        name, value = next(places, (None, None))
        if name is None:
            raise ValueError(f"there is no {pointer}")
    return name, value


def end(text, value):
    return DECODER.raw_decode(text, value)[1]


def set_value(text, pointer, new):
    value = find(text, pointer)[1]
    return text[:value] + new + text[end(text, value) :]


def add(text, pointer, member):
    *_, (_, name, value) = members(text, find(text, pointer)[1])
    line = text.rindex("\n", 0, name)
    return text[: end(text, value)] + "," + text[line:name] + member + text[end(text, value) :]


def remove(text, pointer):
    name, value = find(text, pointer)
    begin, after = name, end(text, value)
    following = past_blanks(text, after)
    if text[following] == ",":
        after = past_blanks(text, following + 1)
    else:
        begin = len(text[:begin].rstrip(" \t\r\n").removesuffix(","))
    return text[:begin] + text[after:]


def rename(text, pointer, name):
    begin = find(text, pointer)[0] + 1
    return text[:begin] + name + text[text.index('"', begin) :]


def keep(text, pointers, parent=""):
    for name, _, _ in list(members(text, find(text, parent)[1])):
        pointer = f"{parent}/{name}"
        if pointer in pointers:
            continue
        if any(kept.startswith(pointer + "/") for kept in pointers):
            text = keep(text, pointers, pointer)
        else:
            text = remove(text, pointer)
    return text


def edited(text, edit):
    verb, _, rest = edit.partition(" ")
    if verb.startswith("/"):
        sign, _, value = rest.partition(" ")
        if sign == "=":
            return set_value(text, verb, value)
    elif verb in ("add", "rename"):
        pointer, _, what = rest.partition(" ")
        return (add if verb == "add" else rename)(text, pointer, what)
    elif verb == "remove":
        return remove(text, rest)
    elif verb == "keep":
        for pointer in rest.split():
            find(text, pointer)
        return keep(text, rest.split())
    elif verb in ("replace", "replace-all"):
        old, arrow, new = f"{rest} ".partition(" => ")
        if arrow and old in text:
            return text.replace(old, new[:-1], 1 if verb == "replace" else -1)
        raise ValueError(f"there is no {old}")
    elif verb == "text":
        return rest
    elif edit == "utf-16":
        return text.encode("latin-1").decode("utf-8").encode("utf-16-le").decode("latin-1")
    raise ValueError(f"not an edit: {edit}")


def inputs_of(example, faults):
    """Name and text of each faulty input; raises ValueError with the number of the line that is wrong."""
    base, inputs, name = example, {}, "base"
    for number, line in enumerate(faults.split("\n"), 1):
        if not line or line.startswith("#"):
            continue
        try:
            line_parts = re.fullmatch(r"(?:([a-z0-9-]+):| ) *(.*)", line)
            if not line_parts:
                raise ValueError(f"neither a name with an edit nor a further edit: {line}")
            first, edit = line_parts.groups()
            if first in inputs or (first == "base" and (inputs or base != example)):
                raise ValueError(f"{first} is defined twice or too late")
            name = first or name
            edit = re.sub(r"\\x([0-9A-F]{2})", lambda byte: chr(int(byte[1], 16)), edit)
            before = inputs.get(name, base)
            after = edited(before, edit)
            if after == before:
                raise ValueError("changes nothing")
        except (IndexError, ValueError) as error:
            raise ValueError(f"{number}: {error}") from error
        if name == "base":
            base = after
        else:
            inputs[name] = after
    return inputs


def main():
    example, folder, *lists = map(pathlib.Path, sys.argv[1:])
    shutil.rmtree(folder, ignore_errors=True)
    for faults in lists:
        part = folder / faults.stem
        part.mkdir(parents=True)
        try:
            inputs = inputs_of(*(path.read_bytes().decode("latin-1") for path in (example, faults)))
        except ValueError as error:
            sys.exit(f"{faults}:{error}")
        for name, text in inputs.items():
            (part / f"{name}.json").write_bytes(text.encode("latin-1"))


main()
