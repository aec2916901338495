#!/usr/bin/env python3
"""Times the scan beside reading alone and beside the tools one would use instead.

    scan_compare.py BIN_FOLDER WORK_FOLDER

BIN_FOLDER holds the benches. In WORK_FOLDER are "packages", the unpacked mediawiki and cacti, and
whatever is made here. Everything is timed in one run with the files in the cache, five times, of which
the median counts. Prints tables of Markdown.
"""

import json
import os
import re
import statistics
import subprocess
import sys
import time

RUNS = 5
SAMPLED_NAMES = 5
SCAN = "**this program's scan**"
HERE = os.path.dirname(os.path.abspath(__file__))
# One pass each, all of a file searched as bytes, no file left out.
TOOLS = {
    "`rg`": ["rg", "-uu", "-a", "-i", "--no-unicode", "-E", "none", "-H", "-N", "-o", "-F"],
    "`ugrep`": ["ugrep", "-r", "-.", "-a", "-U", "-i", "-H", "-o", "-F"],
    "`grep`": ["grep", "-r", "-a", "-i", "-H", "-o", "-F"],
}
ENVIRONMENT = {**os.environ, "LC_ALL": "C", "QT_QPA_PLATFORM": "offscreen"}
# One line for each pair of file and name, whatever the letters' case.
RELATION = ["awk", "{ key = tolower($0) } !(key in seen) { seen[key]; print }"]


def wall_time(command, reader=("cat",)):
    """Milliseconds with `reader` at the end of a pipe: into the void some tools stop at a hit."""
    start = time.perf_counter()
    tool = subprocess.Popen(command, env=ENVIRONMENT, stderr=subprocess.DEVNULL,
                            stdout=subprocess.PIPE)
    subprocess.run(reader, stdin=tool.stdout, stdout=subprocess.DEVNULL, env=ENVIRONMENT)
    tool.stdout.close()
    tool.wait()
    return (time.perf_counter() - start) * 1000


def told(command):
    out = subprocess.run(command, env=ENVIRONMENT, capture_output=True, text=True, check=True).stdout
    return [json.loads(line) for line in out.splitlines()]


def medians(measures):
    """Of each by its name. They take turns, so that a slow moment of the machine hits all alike."""
    figures = {name: [] for name in measures}
    for _ in range(RUNS):
        for name, measure in measures.items():
            figures[name].append(measure())
    return {name: statistics.median(taken) for name, taken in figures.items()}


def one_by_one(tool, names, tree):
    """One run of the tool for each name, by a sample of them."""
    step = max(len(names) // SAMPLED_NAMES, 1)
    sample = names[::step][:SAMPLED_NAMES]
    return len(names) * statistics.median(wall_time(tool + ["-l", name, tree]) for name in sample)


def compare(bin_folder, tree, names_file):
    names = open(names_file).read().split()
    facts = told([f"{bin_folder}/scan_bench", tree, names_file])[0]
    print(f"\n### {os.path.basename(tree)}: {facts['files_searched']:,} files, "
          f"{facts['bytes'] / 1e6:.0f} MB, {len(names):,} names, {facts['hits']:,} hits\n")
    cores = os.cpu_count()

    def bench(program, *arguments):
        return lambda: told([f"{bin_folder}/{program}", tree, *arguments])[0]["milliseconds"]

    measures = {
        SCAN: bench("scan_bench", names_file),
        "the same in its window": bench("window_bench", names_file),
        "walking alone": bench("read_bench", "0"),
        "reading alone, one thread": bench("read_bench", "1"),
        f"reading alone, {cores} threads": bench("read_bench", str(cores)),
    }
    for name, tool in TOOLS.items():
        command = tool + ["-f", names_file, tree]
        measures[f"{name}, one pass"] = lambda it=command: wall_time(it)
        measures[f"{name}, one pass, each pair once"] = lambda it=command: wall_time(it, RELATION)
    times = medians(measures)
    times |= {f"{name}, a run for each name *": one_by_one(tool, names, tree)
              for name, tool in TOOLS.items()}
    print("| | ms | times the scan |\n|---|---:|---:|")
    for name, figure in times.items():
        print(f"| {name} | {figure:,.0f} | {figure / times[SCAN]:.2f} |")
    print(f"\nPeak memory of the scan: {facts['peak_kib'] / 1024:.1f} MiB.", flush=True)


def matching(bin_folder, tree, names_file):
    print(f"\n### Matching alone, one thread, {os.path.basename(tree)}\n\n| names | GB/s |\n|---:|---:|")
    for line in told([f"{bin_folder}/match_bench", tree, names_file]):
        print(f"| {line['names']:,} | {line['gigabytes_a_second']:.2f} |")


def many_hits(bin_folder, work):
    """Every file names every table."""
    print("\n### Many hits\n\n| tables | files | hits | ms | microseconds a hit | peak MiB |")
    print("|---:|---:|---:|---:|---:|---:|")
    for tables, files in [(1, 25_000), (1, 50_000), (1000, 2_500), (1000, 5_000)]:
        tree, names_file = f"{work}/hits-{tables}-{files}", f"{work}/hits-{tables}.txt"
        names = [f"table_{number:04}" for number in range(tables)]
        os.makedirs(tree, exist_ok=True)
        for number in range(files):
            with open(f"{tree}/f{number:05}.php", "w") as out:
                out.write("\n".join(names))
        with open(names_file, "w") as out:
            out.write("\n".join(names) + "\n")
        runs = [told([f"{bin_folder}/scan_bench", tree, names_file])[0] for _ in range(RUNS)]
        ms = statistics.median(run["milliseconds"] for run in runs)
        hits = runs[0]["hits"]
        print(f"| {tables:,} | {files:,} | {hits:,} | {ms:,.0f} | {ms * 1000 / hits:.2f} "
              f"| {runs[0]['peak_kib'] / 1024:,.0f} |", flush=True)


def names_of_schema(schema, names_file):
    text = open(schema, encoding="latin-1").read()
    names = re.findall(r"CREATE TABLE\s+(?:IF NOT EXISTS\s+)?(?:/\*_\*/)?[`\"]?(\w+)", text)
    with open(names_file, "w") as out:
        out.write("\n".join(sorted(set(names))) + "\n")


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    bin_folder, work = map(os.path.abspath, sys.argv[1:])
    packages = f"{work}/packages"
    trees = []
    for package, schema in [
            ("cacti", "usr/share/doc/cacti/cacti.sql"),
            ("mediawiki", "usr/share/mediawiki/maintenance/tables-generated.sql")]:
        names_file = f"{work}/{package}.txt"
        names_of_schema(f"{packages}/{package}/{schema}", names_file)
        trees.append((f"{packages}/{package}", names_file))
    generated = f"{work}/generated"
    if not os.path.exists(generated + ".txt"):
        subprocess.run([f"{HERE}/generate_tree.py", generated, generated + ".txt", "80000", "1000",
                        "1000"], check=True)
    trees.append((generated, generated + ".txt"))
    for tree, names_file in trees:
        compare(bin_folder, tree, names_file)
    print(f"\n\\* by {SAMPLED_NAMES} of the names, times their number.")
    for tree, _ in trees[1:]:
        matching(bin_folder, tree, generated + ".txt")
    many_hits(bin_folder, work)


if __name__ == "__main__":
    main()
