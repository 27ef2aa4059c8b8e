"""Checks JSON files against a JSON Schema: validate.py SCHEMA FILE..."""

import json
import sys

import jsonschema


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        schema = json.load(file)
    jsonschema.Draft202012Validator.check_schema(schema)
    validator = jsonschema.Draft202012Validator(schema)
    failures = 0
    for name in sys.argv[2:]:
        with open(name, encoding="utf-8") as file:
            for error in validator.iter_errors(json.load(file)):
                print(f"{name}: {error.json_path}: {error.message}"[:2000])
                failures += 1
    return 1 if failures else 0


sys.exit(main())
