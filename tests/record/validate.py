#!/usr/bin/python3
"""Holds a record against the published schema, with keys that the schema does not know refused as well.

    validate.py SCHEMA RECORD...

Prints each offence as "file: place: reason"; exit code 1 when there is one.
"""
import json
import pathlib
import sys

import jsonschema


def closed(schema):
    """The schema, in which every object has exactly the properties that it describes."""
    if isinstance(schema, list):
        return [closed(part) for part in schema]
    if not isinstance(schema, dict):
        return schema
    parts = {key: closed(part) for key, part in schema.items()}
    if parts.get("type") == "object":
        parts["additionalProperties"] = False
    return parts


def main():
    schema = closed(json.loads(pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")))
    jsonschema.Draft7Validator.check_schema(schema)
    validator = jsonschema.Draft7Validator(schema)
    found = False
    for name in sys.argv[2:]:
        # Strict: two values under one key, or a word that JSON does not have, make no record.
        def once(pairs):
            if len({key for key, _ in pairs}) != len(pairs):
                raise ValueError(f"{name}: a key stands twice")
            return dict(pairs)

        def refused(word):
            raise ValueError(f"{name}: {word}")

        text = pathlib.Path(name).read_bytes().decode("utf-8", errors="strict")
        for error in validator.iter_errors(json.loads(text, object_pairs_hook=once, parse_constant=refused)):
            print(f"{name}: {'/'.join(map(str, error.absolute_path))}: {error.message}")
            found = True
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
