#!/usr/bin/env python3
"""Prints line and branch coverage per folder from gcovr's JSON summary and
checks them against floors.

  coverage-table.py SUMMARY.json [--floor GROUP:METRIC:PERCENT]...

GROUP is a folder (plugin, devhost/cli, ...), "plug-in" (every folder of
the plug-in, each on its own), "development host" (devhost/ as a whole) or
"all"; METRIC is "lines" or "branches". Exits 1 when a figure is below its
floor, naming it; 2 when the summary is not what gcovr writes.
"""
import argparse
import json
import sys
from collections import OrderedDict

PLUGIN_FOLDERS = ("plugin", "parse", "config", "pending", "display", "host")


def folder_of(path):
    parts = path.split("/")
    if parts[0] == "devhost" and len(parts) > 2:
        return "devhost/" + parts[1]
    return parts[0]


def percent(covered, total):
    return 100.0 * covered / total if total else 100.0


class Figures:
    def __init__(self):
        self.lines = [0, 0]
        self.branches = [0, 0]

    def add(self, entry):
        self.lines[0] += entry["line_covered"]
        self.lines[1] += entry["line_total"]
        self.branches[0] += entry["branch_covered"]
        self.branches[1] += entry["branch_total"]

    def metric(self, name):
        return percent(*getattr(self, name))


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("summary")
    parser.add_argument("--floor", action="append", default=[])
    args = parser.parse_args()
    try:
        with open(args.summary) as summary:
            files = json.load(summary)["files"]
    except (OSError, ValueError, KeyError) as error:
        print(f"coverage: cannot read gcovr's summary {args.summary}: {error}", file=sys.stderr)
        return 2

    folders = OrderedDict()
    plugin, devhost, everything = Figures(), Figures(), Figures()
    for entry in sorted(files, key=lambda e: e["filename"]):
        folder = folder_of(entry["filename"])
        folders.setdefault(folder, Figures()).add(entry)
        everything.add(entry)
        (plugin if folder in PLUGIN_FOLDERS else devhost).add(entry)

    row = "{:<22} {:>7} {:>13} {:>9} {:>13}"
    print(row.format("folder", "lines", "", "branches", ""))
    rows = list(folders.items()) + [("plug-in", plugin), ("development host", devhost), ("all", everything)]
    for name, figures in rows:
        print(row.format(name, "{:.1f}%".format(figures.metric("lines")), "{}/{}".format(*figures.lines),
                         "{:.1f}%".format(figures.metric("branches")), "{}/{}".format(*figures.branches)))

    groups = dict(rows)
    below = []
    for floor in args.floor:
        try:
            group, metric, value = floor.rsplit(":", 2)
            float(value)
        except ValueError:
            metric = None
        if metric not in ("lines", "branches"):
            print(f"coverage: the floor {floor!r} is not GROUP:lines|branches:PERCENT", file=sys.stderr)
            return 2
        names = [f for f in folders if f in PLUGIN_FOLDERS] if group == "plug-in folders" else [group]
        for name in names:
            if name not in groups:
                below.append(f"{name}: no coverage data at all")
            elif groups[name].metric(metric) < float(value):
                below.append(f"{name}: {metric} {groups[name].metric(metric):.1f}% is below the floor of {value}%")
    for line in below:
        print("coverage: " + line, file=sys.stderr)
    return 1 if below else 0


if __name__ == "__main__":
    sys.exit(main())
