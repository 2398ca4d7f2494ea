#!/usr/bin/env python3
"""Reads the #include lines of src/ and fails on any that goes against the rooms' order.

The order is the table "Rooms" of docs/ARCHITECTURE.md: one row per folder of src/, its third
column the rooms it may include besides itself (`-` for none). With --dot FILE the includes
between rooms are written as a Graphviz graph (--svg FILE renders it with dot).
"""
import argparse
import collections
import pathlib
import re
import subprocess
import sys

top = pathlib.Path(__file__).resolve().parent.parent


def rooms_table(architecture):
    allowed = {}
    in_table = False
    for line in architecture.read_text(encoding="utf-8").splitlines():
        if line.startswith("| room |"):
            in_table = True
            continue
        if in_table:
            if not line.startswith("|"):
                break
            cells = [cell.strip() for cell in line.strip("|").split("|")]
            if set(cells[0]) <= set("-: "):
                continue
            room = cells[0].strip("`").rstrip("/").removeprefix("src/")
            may = [] if cells[2] in ("-", "") else [r.strip().strip("`").rstrip("/").removeprefix("src/")
                                                   for r in cells[2].split(",")]
            allowed[room] = set(may)
    return allowed


def includes(src):
    found = collections.defaultdict(list)  # (from room, to room) -> [file:line]
    pattern = re.compile(r'^\s*#\s*include\s+"([a-z_]+)/')
    for path in sorted(src.rglob("*")):
        if path.suffix not in (".h", ".cpp") or not path.is_file():
            continue
        room = path.relative_to(src).parts[0]
        for number, line in enumerate(path.read_text(encoding="utf-8", errors="replace").splitlines(), 1):
            match = pattern.match(line)
            if match and match.group(1) != room:
                found[(room, match.group(1))].append(f"{path.relative_to(top)}:{number}")
    return found


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--dot")
    parser.add_argument("--svg")
    args = parser.parse_args()
    allowed = rooms_table(top / "docs" / "ARCHITECTURE.md")
    if not allowed:
        sys.exit("check_rooms: no table of rooms in docs/ARCHITECTURE.md")
    src = top / "src"
    found = includes(src)
    problems = []
    for folder in sorted(p.name for p in src.iterdir() if p.is_dir()):
        if folder not in allowed:
            problems.append(f"src/{folder}/ is no room of the table in docs/ARCHITECTURE.md")
    for (room, other), places in sorted(found.items()):
        if other not in allowed.get(room, set()):
            problems += [f"{place}: {room}/ may not include {other}/" for place in places]
    dot = ["digraph rooms {", "  rankdir=BT;", '  node [shape=box, fontname="sans"];']
    dot += [f'  "{room}";' for room in sorted(allowed)]
    dot += [f'  "{room}" -> "{other}" [label="{len(places)}"];' for (room, other), places in sorted(found.items())]
    dot.append("}")
    if args.dot:
        pathlib.Path(args.dot).write_text("\n".join(dot) + "\n", encoding="utf-8")
    if args.svg:
        svg = subprocess.run(["dot", "-Tsvg"], input="\n".join(dot), capture_output=True, text=True, check=True)
        pathlib.Path(args.svg).write_text(svg.stdout, encoding="utf-8")
    for problem in problems:
        print(problem)
    sys.exit(1 if problems else 0)


main()
