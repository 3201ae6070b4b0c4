#!/usr/bin/env python3
"""Lines of the unit suite against lines of the product: non-blank, non-comment lines of C++ under
tests/, against every C++ file outside tests/, bench/ and examples/ (build trees left out)."""
import sys
from pathlib import Path

ROOT = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent
SUFFIXES = {".cpp", ".hpp", ".h", ".cc"}


def code_lines(path):
    """Lines that hold code once // and /* */ comments are taken out."""
    count, in_block = 0, False
    for line in path.read_text(encoding="utf-8", errors="replace").split("\n"):
        code = ""
        i = 0
        while i < len(line):
            if in_block:
                end = line.find("*/", i)
                if end < 0:
                    break
                in_block, i = False, end + 2
            elif line.startswith("/*", i) and line[:i].count('"') % 2 == 0:
                in_block, i = True, i + 2
            elif line.startswith("//", i) and line[:i].count('"') % 2 == 0:
                break
            else:
                code += line[i]
                i += 1
        count += bool(code.strip())
    return count


totals = {"tests": 0, "product": 0}
for path in ROOT.rglob("*"):
    parts = path.relative_to(ROOT).parts
    if path.suffix not in SUFFIXES or not path.is_file() or parts[0] in ("bench", "examples", ".git") \
            or parts[0].startswith("build"):
        continue
    totals["tests" if parts[0] == "tests" else "product"] += code_lines(path)
print(f'tests {totals["tests"]}, product {totals["product"]}, ratio {totals["tests"] / totals["product"]:.3f}')
