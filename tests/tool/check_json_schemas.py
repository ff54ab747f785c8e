# SPDX-License-Identifier: MIT
"""Runs every command of the tool with --json on the sample installation and
checks each answer, and each error, against its published JSON Schema.

Usage: check_json_schemas.py DEVCTRL DATA_DIR SCHEMA_DIR
Needs python3-jsonschema (Debian's); exits 1 listing every mismatch."""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import jsonschema

DEVCTRL, DATA, SCHEMAS = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])

# One or more answers per command; {tmp} is a scratch directory. Each answer
# must pass the command's schema (and so use its keys and types), and where a
# schema has alternatives every alternative is reached.
CASES = [
    ("asc", ["asc", "chips"]),
    ("asc", ["asc", "value", "{chip}", "ADC"]),
    ("asc", ["asc", "part", "ZS3-5N48E"]),
    ("check", ["check", "ZS3-5N48E"]),
    ("check", ["check", "ZQ12-6B100C"]),
    ("check-data", ["check-data"]),
    ("conditions", ["conditions", "zr2b00", "ZS3", "QN48", "5"]),
    ("default-device", ["default-device"]),
    ("devices", ["devices", "zr2b00"]),
    ("dump", ["dump", "zr2b00"]),
    ("exists", ["exists", "ZS3-5N48E"]),
    ("export", ["export", "zr2b00"]),
    ("export", ["export"]),
    ("families", ["families"]),
    ("family-of", ["family-of", "zr2b00"]),
    ("generate", ["generate", "{tmp}/generated", "--parts", "200"]),
    ("ini", ["ini", "sections", "{data}/pqrndev.lst"]),
    ("ini", ["ini", "get", "{tmp}/edit.ini", "A", "k"]),
    ("ini", ["ini", "set", "{tmp}/edit.ini", "A", "k2", "v"]),
    ("ini", ["ini", "delete", "{tmp}/edit.ini", "A"]),
    ("info", ["info"]),
    ("info", ["info", "--data-dir"]),
    ("inner-name", ["inner-name", "ZS3-5N48E"]),
    ("item", ["item", "ZS3-5N48E", "LUT"]),
    ("key", ["key", "zr2b00", "FAMILY"]),
    ("packages", ["packages", "zr2b00", "ZS3"]),
    ("part", ["part", "ZS3-5N48E"]),
    ("part", ["part", "ZS3-5N48E", "--all-items"]),
    ("part-name", ["part-name", "zr2b00", "ZS3", "QN48", "5", "A"]),
    ("parts", ["parts", "zr2b00", "--where", "LUT>=3520"]),
    ("parts", ["parts", "zr2b00", "--columns", "LUT,Pin Count,Status"]),
    ("pms", ["pms"]),
    ("pm-of", ["pm-of", "ZR2"]),
    ("pwd-compile", ["pwd-compile", "{data}/zr5b00/zr5b00.pwd.txt", "{tmp}/out.pwd"]),
    ("pwd-dump", ["pwd-dump", "{data}/zr5b00/zr5b00.pwd"]),
    ("report", ["report", "ZS3-5N48E"]),
    ("settings", ["settings", "ZS3-5N48E"]),
    ("speeds", ["speeds", "zr2b00", "ZS3", "QN48"]),
    ("translate", ["translate", "ZQ12-6B100C"]),
    ("validate", ["validate", "ZS3-5N48E"]),
    ("validate", ["validate", "NO-SUCH-PART"]),
    ("write-sds", ["write-sds", "zr2b00", "{tmp}/zr2.sds"]),
    ("write-sds", ["write-sds", "zr2b00", "-"]),
]

# Failures of every kind: unknown names, a wrong command line, bad data.
ERRORS = [
    ["devices", "zr9z99"],
    ["parts", "zr2b00", "--where", "Pin count=48"],
    ["parts", "zr2b00", "--where", "LUT>>1"],
    ["no-such-command"],
    ["--format", "csv", "dump", "zr2b00"],
    ["--data", "{tmp}/missing", "families"],
]


def run(args, tmp, chip=""):
    args = [a.format(tmp=tmp, data=DATA, chip=chip) for a in args]
    return subprocess.run([DEVCTRL, "-q", "--data", str(DATA), "--json"] + args,
                          capture_output=True, text=True, check=False)


def schema(name):
    return json.loads((SCHEMAS / (name + ".json")).read_text())


def commands():
    """The registry's commands, as the top-level help lists them."""
    text = subprocess.run([DEVCTRL, "--help"], capture_output=True, text=True).stdout
    listing = text.split("Subcommands:", 1)[1].split("\n\n", 1)[0]
    return {m.group(1) for m in re.finditer(r"^\s+(\S+)", listing, re.M)}


def main():
    failures = []
    known = {p.stem for p in SCHEMAS.glob("*.json")}
    # Commands that print documents or other commands' answers have none.
    for name in sorted(commands() - {"schema", "shell", "man", "completion"} - known):
        failures.append(f"{name}: no schema file")
    for name in sorted(known - {"error"} - {c for c, _ in CASES}):
        failures.append(f"{name}: schema never exercised")
    listed = run(["schema"], "").stdout
    if sorted(json.loads(listed)) != sorted(known):
        failures.append(f"devctrl schema lists {listed!r}")

    with tempfile.TemporaryDirectory() as tmp:
        (pathlib.Path(tmp) / "edit.ini").write_text("[A]\nk=1\n")
        chips = json.loads(run(["asc", "chips"], tmp).stdout)
        chip = chips[0]["name"]
        for name, args in CASES:
            if name not in known:
                continue  # reported above
            printed = run(["schema", name], tmp).stdout
            if printed != (SCHEMAS / (name + ".json")).read_text():
                failures.append(f"devctrl schema {name} differs from its file")
            result = run(args, tmp, chip)
            if result.returncode not in (0, 1) or result.stdout.strip() == "":
                failures.append(f"{' '.join(args)}: status {result.returncode}, "
                                f"stdout {result.stdout!r}, stderr {result.stderr!r}")
                continue
            try:
                jsonschema.validate(json.loads(result.stdout), schema(name))
            except (ValueError, jsonschema.ValidationError) as error:
                failures.append(f"{' '.join(args)}: {str(error).splitlines()[0]}")
        for args in ERRORS:
            result = run(args, tmp)
            try:
                document = json.loads(result.stderr)
                jsonschema.validate(document, schema("error"))
                if document["error"]["exit_status"] != result.returncode:
                    failures.append(f"{' '.join(args)}: exit status {result.returncode}, "
                                    f"document says {document['error']['exit_status']}")
            except (ValueError, jsonschema.ValidationError) as error:
                failures.append(f"{' '.join(args)}: error {result.stderr!r}: "
                                f"{str(error).splitlines()[0]}")
            if result.stdout:
                failures.append(f"{' '.join(args)}: printed {result.stdout!r} on failure")
    for failure in failures:
        print(failure)
    print(f"{len(CASES)} answers and {len(ERRORS)} errors checked, {len(failures)} failures")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
