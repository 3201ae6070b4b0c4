#!/usr/bin/env python3
"""Seeded mutation check: how many small faults in the library's sources the unit suite catches.

A fixed, seeded sample of mutants is drawn from the sources of the libraries and of the zqjson tool
(fuzz targets, tests, benchmarks and examples are not mutated). Each is applied alone, the build in
build/mutation is brought up to date, the unit suite of the default preset runs (every GoogleTest
executable, stopping at the first failure, then the zqjson command test), and the file is restored.
A mutant is killed when a test fails, crashes or runs past its time limit.

Results go to a JSON-lines file, one line per mutant, so that an interrupted run resumes where it
stopped; the same seed and sources always give the same mutants, so two runs of different suites
compare mutant by mutant.
"""
import argparse
import json
import os
import random
import re
import resource
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SOURCE_DIRS = ["conversion", "json_text", "writer", "host", "foundation", "tools"]
BUILD = ROOT / "build" / "mutation"
KINDS = ["operator", "constant", "statement", "condition", "message"]

# The executables in the order they run: quick, broad suites first so that most mutants die early.
SUITES = ["writer", "readers", "json_text", "conversion", "errors", "frontend", "objects", "roundtrip",
          "differential", "i18n", "json", "hostile", "zorbaldata", "concurrency"]
SUITE_SECONDS = 300
BUILD_SECONDS = 1800
# Refuses a runaway mutant's absurd requests at once; the suite itself reserves up to 16 GiB that it
# never touches.
MEMORY_LIMIT = 40 << 30


def mask_code(lines):
    """Each line with comments and the insides of string and character literals blanked, so that
    patterns see only code. Literal bodies keep their columns."""
    masked, literals = [], []
    in_block = False
    raw_end = None
    for line in lines:
        out = list(line)
        spans = []
        i, n = 0, len(line)
        while i < n:
            if raw_end is not None:
                j = line.find(raw_end, i)
                stop = n if j < 0 else j
                for k in range(i, stop):
                    out[k] = " "
                if j < 0:
                    i = n
                    continue
                i = j + len(raw_end)
                raw_end = None
                continue
            if in_block:
                j = line.find("*/", i)
                stop = n if j < 0 else j + 2
                for k in range(i, stop):
                    out[k] = " "
                if j < 0:
                    i = n
                    continue
                in_block = False
                i = stop
                continue
            c = line[i]
            if line.startswith("//", i):
                for k in range(i, n):
                    out[k] = " "
                break
            if line.startswith("/*", i):
                in_block = True
                continue
            m = re.match(r'R"([^(\s]*)\(', line[i:])
            if m and (i == 0 or not (line[i - 1].isalnum() or line[i - 1] == "_")):
                start = i + m.end()
                raw_end = ")" + m.group(1) + '"'
                j = line.find(raw_end, start)
                stop = n if j < 0 else j
                spans.append((start, stop))
                for k in range(start, stop):
                    out[k] = " "
                if j < 0:
                    i = n
                    continue
                i = j + len(raw_end)
                raw_end = None
                continue
            if c in "\"'":
                j = i + 1
                while j < n and line[j] != c:
                    j += 2 if line[j] == "\\" else 1
                if c == '"':
                    spans.append((i + 1, min(j, n)))
                for k in range(i + 1, min(j, n)):
                    out[k] = " "
                i = j + 1
                continue
            i += 1
        masked.append("".join(out))
        literals.append(spans)
    return masked, literals


OPERATOR_SWAPS = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||",
                  "||": "&&", "+": "-", "-": "+", "*": "/", "/": "*", "%": "*"}
OPERATOR = re.compile(r"(?<= )(==|!=|<=|>=|<|>|&&|\|\||\+|-|\*|/|%)(?= )")
CONSTANT = re.compile(r"(?<![\w.])(\d+)(?![\w.'])")
CONDITION = re.compile(r"\b(if|while)\s*\(")
STATEMENT = re.compile(
    r"^\s*(?:(?:\+\+|--)?[A-Za-z_]\w*(?:(?:\.|->|::)~?[A-Za-z_]\w*|\[[^\]]*\]|\(.*\))*"
    r"(?:\s*(?:[-+*/|&^]|<<|>>)?=\s*[^=].*|\+\+|--)?|throw\b.*|break|continue);\s*$")
# A condition that declares a variable cannot be negated as a whole.
DECLARATION = re.compile(r"\((?:[\w:<>,]+\s*(?:const\s*)?[*&]*\s+)+\w+\s*[=:{]|\([^)]*;")
NOT_STATEMENTS = {"return", "using", "namespace", "typedef", "static_assert", "template", "friend",
                  "case", "default", "goto", "public", "private", "protected"}
SPECIAL_MEMBER = re.compile(r"=\s*(?:delete|default)\s*;")
ACTION_LINE_END = (";", "{", "}", ")", ":", "else")


def balanced(text):
    depth = 0
    for c in text:
        depth += {"(": 1, ")": -1}.get(c, 0)
        if depth < 0:
            return False
    return depth == 0


def sites(path, lines):
    """Every place in a file where a mutant of each kind may be made."""
    masked, literals = mask_code(lines)
    found = {kind: [] for kind in KINDS}
    previous = ""
    for number, (line, code, spans) in enumerate(zip(lines, masked, literals), start=1):
        stripped = code.strip()
        if not stripped or stripped.startswith("#"):
            continue
        for m in OPERATOR.finditer(code):
            found["operator"].append((number, m.start(), m.group(1), OPERATOR_SWAPS[m.group(1)]))
        for m in CONSTANT.finditer(code):
            found["constant"].append((number, m.start(), m.group(1), None))
        for m in CONDITION.finditer(code):
            if code[m.end():].lstrip().startswith("constexpr") or DECLARATION.match(code[m.end() - 1:]):
                continue
            open_at = m.end() - 1
            depth = 0
            for k in range(open_at, len(code)):
                depth += {"(": 1, ")": -1}.get(code[k], 0)
                if depth == 0:
                    found["condition"].append((number, open_at, line[open_at:k + 1], "(!" + line[open_at:k + 1] + ")"))
                    break
        first = re.match(r"\s*([A-Za-z_]\w*)", code)
        if (STATEMENT.match(code) and balanced(code) and not SPECIAL_MEMBER.search(code) and previous.endswith(ACTION_LINE_END)
                and not (first and first.group(1) in NOT_STATEMENTS)):
            body = line.strip()
            found["statement"].append((number, line.index(body), body, ";"))
        for start, stop in spans:
            letters = [k for k in range(start, stop) if line[k].isalpha()]
            if len(letters) >= 3 and not stripped.startswith("extern"):
                found["message"].append((number, start, line[start:stop], None))
        previous = stripped
    return found


def all_sites():
    result = []
    for directory in SOURCE_DIRS:
        for path in sorted((ROOT / directory).rglob("*")):
            if path.suffix not in (".cpp", ".hpp") or not path.is_file():
                continue
            lines = path.read_text(encoding="utf-8").split("\n")
            for kind, places in sites(path, lines).items():
                for place in places:
                    result.append((kind, path.relative_to(ROOT).as_posix(), *place))
    return result


def draw(count, seed):
    """The sample: the same share of each kind, chosen by the seed, then ordered by file and line."""
    rng = random.Random(seed)
    by_kind = {kind: [] for kind in KINDS}
    for site in all_sites():
        by_kind[site[0]].append(site)
    chosen = []
    for index, kind in enumerate(KINDS):
        share = count // len(KINDS) + (1 if index < count % len(KINDS) else 0)
        for kind_, path, line, column, before, after in rng.sample(by_kind[kind], share):
            if kind == "constant":
                value = int(before)
                after = str(value - 1) if value > 0 and rng.random() < 0.5 else str(value + 1)
            elif kind == "message":
                letters = [k for k, c in enumerate(before) if c.isalpha()]
                k = rng.choice(letters)
                replacement = "X" if before[k] != "X" else "Y"
                after = before[:k] + replacement + before[k + 1:]
            chosen.append({"file": path, "line": line, "column": column, "kind": kind,
                           "before": before, "after": after})
    chosen.sort(key=lambda m: (m["file"], m["line"], m["column"]))
    for m in chosen:
        m["id"] = f'{m["file"]}:{m["line"]}:{m["column"]}:{m["kind"]}'
    return chosen


def apply(mutant):
    path = ROOT / mutant["file"]
    original = path.read_bytes()
    lines = original.decode("utf-8").split("\n")
    line = lines[mutant["line"] - 1]
    column, before = mutant["column"], mutant["before"]
    if line[column:column + len(before)] != before:
        raise SystemExit(f'{mutant["id"]}: the source no longer holds {before!r}; the sources changed since the sample was drawn')
    lines[mutant["line"] - 1] = line[:column] + mutant["after"] + line[column + len(before):]
    return path, original, "\n".join(lines).encode("utf-8")


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_LIMIT, MEMORY_LIMIT))


def run_suite():
    """None when every test passes, else what failed first."""
    for suite in SUITES:
        exe = BUILD / "tests" / suite / f"{suite}_tests"
        try:
            done = subprocess.run([exe, "--gtest_fail_fast", "--gtest_brief=1"], cwd=exe.parent,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                  timeout=SUITE_SECONDS, preexec_fn=limit_memory)
        except subprocess.TimeoutExpired:
            return f"{suite}: timed out"
        if done.returncode != 0:
            failed = re.findall(r"\[  FAILED  \] (\S+)", done.stdout.decode(errors="replace"))
            return f"{suite}: " + (failed[0] if failed else f"exit status {done.returncode}")
    try:
        done = subprocess.run(["ctest", "--test-dir", BUILD, "-R", "^ZqjsonCommand$", "--timeout",
                               str(SUITE_SECONDS)], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              timeout=SUITE_SECONDS + 60)
    except subprocess.TimeoutExpired:
        return "ZqjsonCommand: timed out"
    return None if done.returncode == 0 else "ZqjsonCommand"


def build():
    try:
        done = subprocess.run(["cmake", "--build", BUILD], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              timeout=BUILD_SECONDS)
    except subprocess.TimeoutExpired:
        return False
    return done.returncode == 0


def configure():
    env_dir = BUILD / "ccache"
    os.environ.setdefault("CCACHE_DIR", str(env_dir))
    if (BUILD / "build.ninja").exists():
        return
    subprocess.run(["cmake", "-S", ROOT, "-B", BUILD, "-G", "Ninja",
                    # The default preset's build without debug information, which only slows rebuilds.
                    "-DCMAKE_BUILD_TYPE=RelWithDebInfo", "-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O2 -DNDEBUG",
                    "-DZQ_BUILD_BENCH=OFF", "-DZQ_PACKAGE_TEST=OFF", "-DCMAKE_CXX_COMPILER_LAUNCHER=ccache",
                    # Tests load the libraries at run time; relinking them after each mutant buys nothing.
                    "-DCMAKE_LINK_DEPENDS_NO_SHARED=ON"], check=True, stdout=subprocess.DEVNULL)


def restore_leftover(pending):
    if pending.exists():
        state = json.loads(pending.read_text())
        (ROOT / state["file"]).write_bytes(bytes.fromhex(state["original"]))
        pending.unlink()
        print(f'restored {state["file"]} from an interrupted run')


def report(mutants, results):
    counts = {"killed": 0, "survived": 0, "did not compile": 0}
    per_kind = {kind: {"killed": 0, "survived": 0, "did not compile": 0} for kind in KINDS}
    for m in mutants:
        r = results.get(m["id"])
        if r:
            counts[r["outcome"]] += 1
            per_kind[m["kind"]][r["outcome"]] += 1
    for m in mutants:
        r = results.get(m["id"])
        if r and r["outcome"] == "survived":
            print(f'survived  {m["file"]}:{m["line"]}  {m["kind"]}: {m["before"]!r} -> {m["after"]!r}')
    for kind in KINDS:
        c = per_kind[kind]
        print(f'{kind:10} killed {c["killed"]:3}  survived {c["survived"]:3}  did not compile {c["did not compile"]:3}')
    done = sum(counts.values())
    compiled = counts["killed"] + counts["survived"]
    score = 100.0 * counts["killed"] / compiled if compiled else 0.0
    print(f'{done} of {len(mutants)} mutants: killed {counts["killed"]}, survived {counts["survived"]}, '
          f'did not compile {counts["did not compile"]}; score {score:.1f}% of those that compiled')


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=150, help="mutants in the sample (default 150)")
    parser.add_argument("--seed", type=int, default=20261125, help="seed of the sample")
    parser.add_argument("--results", type=Path, default=BUILD / "results.jsonl",
                        help="JSON-lines file of outcomes; a run resumes from it")
    parser.add_argument("--list", action="store_true", help="print the sample and stop")
    parser.add_argument("--report", action="store_true", help="print the outcomes recorded so far and stop")
    args = parser.parse_args()

    mutants = draw(args.count, args.seed)
    if args.list:
        for m in mutants:
            print(f'{m["file"]}:{m["line"]}  {m["kind"]}: {m["before"]!r} -> {m["after"]!r}')
        return
    results = {}
    if args.results.exists():
        for line in args.results.read_text().splitlines():
            entry = json.loads(line)
            results[entry["id"]] = entry
    if args.report:
        report(mutants, results)
        return

    BUILD.mkdir(parents=True, exist_ok=True)
    pending = BUILD / "pending.json"
    restore_leftover(pending)
    configure()
    if not build() or run_suite() is not None:
        raise SystemExit("the unmutated build fails or its suite does not pass; fix that first")

    with args.results.open("a") as out:
        for number, mutant in enumerate(mutants, start=1):
            if mutant["id"] in results:
                continue
            path, original, mutated = apply(mutant)
            pending.write_text(json.dumps({"file": mutant["file"], "original": original.hex()}))
            started = time.monotonic()
            try:
                path.write_bytes(mutated)
                if not build():
                    outcome, by = "did not compile", None
                else:
                    by = run_suite()
                    outcome = "survived" if by is None else "killed"
            finally:
                path.write_bytes(original)
                pending.unlink()
            entry = {"id": mutant["id"], "outcome": outcome, "by": by,
                     "seconds": round(time.monotonic() - started, 1)}
            results[mutant["id"]] = entry
            out.write(json.dumps(entry) + "\n")
            out.flush()
            print(f'[{number}/{len(mutants)}] {outcome:15} {mutant["file"]}:{mutant["line"]} {mutant["kind"]}'
                  + (f"  ({by})" if by else ""), flush=True)
    build()
    report(mutants, results)


if __name__ == "__main__":
    sys.exit(main())
