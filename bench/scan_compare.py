#!/usr/bin/env python3
"""Times the scan beside reading alone and beside the tools one would use instead.

    scan_compare.py BIN_FOLDER WORK_FOLDER

BIN_FOLDER holds the benches. In WORK_FOLDER are "packages", the unpacked mediawiki and cacti, and
whatever is made here. Everything is timed in one run, five times, of which the median counts: with the
files in the cache, and where this process may drop the system's caches also with them empty. Prints
tables of Markdown.
"""

import json
import math
import os
import re
import statistics
import subprocess
import sys
import time

RUNS = 5
READERS = [1, 2, 8, 32]
DROP_CACHES = "/proc/sys/vm/drop_caches"
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


def command_line_scan(bin_folder, tree, names_file):
    """The whole process, from its start to the last byte of its answer."""
    command = [f"{bin_folder}/bracken-scan", "--tables", names_file, "--format", "json", tree]
    start = time.perf_counter()
    process = subprocess.Popen(command, env=ENVIRONMENT, stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    seconds = time.perf_counter() - start
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode not in (0, 1):
        sys.exit("bracken-scan could not read everything")
    return {"milliseconds": seconds * 1000, "peak_kib": usage.ru_maxrss,
            "busy": (usage.ru_utime + usage.ru_stime) / seconds / os.cpu_count()}


def told(command):
    out = subprocess.run(command, env=ENVIRONMENT, capture_output=True, text=True, check=True).stdout
    return [json.loads(line) for line in out.splitlines()]


def may_drop_caches():
    return os.access(DROP_CACHES, os.W_OK)


def drop_caches():
    """Contents, names and metadata of all files."""
    os.sync()
    with open(DROP_CACHES, "w") as out:
        out.write("3")


def taking_turns(measures, before=lambda: None):
    """The results of each by its name; a slow moment of the machine hits all alike."""
    taken = {name: [] for name in measures}
    for _ in range(RUNS):
        for name, measure in measures.items():
            before()
            taken[name].append(measure())
    return taken


def median(runs, key):
    """Not a number where they have no such key."""
    return statistics.median(run.get(key, math.nan) for run in runs)


def print_times(taken):
    """Medians, and of what the runs took to the scan beside them the least and the median."""
    print("| | ms | cores busy | peak MiB | times the scan: least | median |")
    print("|---|---:|---:|---:|---:|---:|")
    for name, runs in taken.items():
        ratios = [run["milliseconds"] / scan["milliseconds"] for run, scan in zip(runs, taken[SCAN])]
        cells = [f"{median(runs, 'milliseconds'):,.0f}", f"{median(runs, 'busy'):.0%}",
                 f"{median(runs, 'peak_kib') / 1024:.0f}", f"{min(ratios):.2f}",
                 f"{statistics.median(ratios):.2f}"]
        print(f"| {name} | {' | '.join(cells)} |".replace("nan%", "").replace("nan", ""), flush=True)
    waits = [run["longest_wait_ms"] for runs in taken.values() for run in runs if "longest_wait_ms" in run]
    print(f"\nLongest wait of an event in the window: {statistics.median(waits):.1f} ms, "
          f"{max(waits):.1f} in the worst of {len(waits)} runs.")


def one_by_one(tool, names, tree):
    """One run of the tool for each name, by a sample of them."""
    step = max(len(names) // SAMPLED_NAMES, 1)
    sample = names[::step][:SAMPLED_NAMES]
    return len(names) * statistics.median(wall_time(tool + ["-l", name, tree]) for name in sample)


def compare(bin_folder, tree, names_file):
    names = open(names_file).read().split()

    def bench(program, *arguments):
        return lambda: told([f"{bin_folder}/{program}", tree, *arguments])[0]

    scan, read = bench("scan_bench", names_file), bench("read_bench", "1")()
    print(f"\n### {os.path.basename(tree)}: {read['files']:,} files, {read['bytes'] / 1e6:.0f} MB, "
          f"{len(names):,} names, {scan()['hits']:,} hits\n\nThe files in the cache:\n")

    def tool(command, reader=("cat",)):
        return lambda: {"milliseconds": wall_time(command, reader)}

    own = {SCAN: scan, "the same in its window": bench("window_bench", names_file),
           "`bracken-scan`": lambda: command_line_scan(bin_folder, tree, names_file)}
    reading = {"walking alone": bench("read_bench", "0")}
    for threads in READERS:
        reading[f"reading alone, threads: {threads}"] = bench("read_bench", str(threads))
    tools, distinct = {}, {}
    for name, words in TOOLS.items():
        command = words + ["-f", names_file, tree]
        tools[f"{name}, one pass"] = tool(command)
        distinct[f"{name}, one pass, each pair once"] = tool(command, RELATION)
    taken = taking_turns(own | reading | tools | distinct)
    for name, words in TOOLS.items():
        taken[f"{name}, a run for each name *"] = [
            {"milliseconds": one_by_one(words, names, tree)}] * RUNS
    print_times(taken)
    if may_drop_caches():
        print("\nThe system's caches empty:\n")
        print_times(taking_turns(own | reading | {"`rg`, one pass": tools["`rg`, one pass"]}, drop_caches))
    else:
        print(f"\nNot measured with empty caches: {DROP_CACHES} can't be written here.")


def matching(bin_folder, tree, names_file):
    print(f"\n### Matching alone, one thread, {os.path.basename(tree)}\n")
    print("| names | instructions | GB/s |\n|---:|---|---:|")
    for line in told([f"{bin_folder}/match_bench", tree, names_file]):
        print(f"| {line['names']:,} | {line['instructions']} | {line['gigabytes_a_second']:.2f} |")


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
