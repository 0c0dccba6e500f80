#!/usr/bin/env python3
"""Accepts a cram session's actual output (FILE.t.err) into FILE.t.

cram writes the actual output with literal lines; an expected line written
as a pattern (ending in " (re)" or " (glob)") that still matches the actual
line is kept as it was, so that an accepted session stays free of paths,
times and process ids.
    accept-output.py FILE.t FILE.t.err
"""
import difflib
import re
import sys


def matches(expected, actual):
    """Whether the expected line, a pattern, matches the actual line."""
    if expected.endswith(" (re)\n"):
        try:
            return re.fullmatch(expected[: -len(" (re)\n")], actual.rstrip("\n")) is not None
        except re.error:
            return False
    if expected.endswith(" (glob)\n"):
        pattern = ""
        text = expected[: -len(" (glob)\n")]
        i = 0
        while i < len(text):
            c = text[i]
            if c == "\\" and i + 1 < len(text) and text[i + 1] in "*?\\":
                pattern += re.escape(text[i + 1])
                i += 2
                continue
            pattern += ".*" if c == "*" else "." if c == "?" else re.escape(c)
            i += 1
        return re.fullmatch(pattern, actual.rstrip("\n")) is not None
    return False


def main():
    with open(sys.argv[1]) as f:
        old = f.readlines()
    with open(sys.argv[2]) as f:
        new = f.readlines()
    # Compare with each pattern line standing for what it matches.
    patterns = [line for line in old if line.endswith((" (re)\n", " (glob)\n"))]
    merged = []
    matcher = difflib.SequenceMatcher(a=old, b=new, autojunk=False)
    for tag, a0, a1, b0, b1 in matcher.get_opcodes():
        if tag == "equal":
            merged.extend(old[a0:a1])
            continue
        olds = [line for line in old[a0:a1] if line in patterns]
        for line in new[b0:b1]:
            kept = next((p for p in olds if matches(p, line)), None)
            if kept is not None:
                olds.remove(kept)
                merged.append(kept)
            else:
                merged.append(line)
    with open(sys.argv[1], "w") as f:
        f.writelines(merged)


if __name__ == "__main__":
    main()
