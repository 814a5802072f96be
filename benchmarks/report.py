#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What the benchmarks say: the goals, the document, and whether a program measures what goals name.

report.py smoke PROGRAM [--without PEER]   runs its shortest form; every benchmark that a goal names must be there
report.py check RESULTS                    names the goals that are missed and exits with 1 where there are any; names those
                                           that are out of reach of this machine, as the floor misses or all but misses
                                           them too
report.py document RESULTS FACTS           prints the document

RESULTS holds PROGRAM.ROUND.json, as Google Benchmark writes them, and RESULTS/qt6 those of the build with Qt 6. A figure is the median of the rounds; what is compared
is compared within each round first. In goals.tsv {a,b} stands for each in turn, * for the row on the left, "A over B" for
a quotient, "#counter" for a count in place of the time.
"""
import collections
import itertools
import json
import math
import pathlib
import re
import statistics
import subprocess
import sys

here = pathlib.Path(__file__).parent
nanoseconds = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}

Goal = collections.namedtuple("Goal", "number words program measured against bound")
Outcome = collections.namedtuple("Outcome", "goal row figure shown verdict")


def goals():
    lines = (here / "goals.tsv").read_text().splitlines()[1:]
    return [Goal(*line.split("\t")) for line in lines]


def expanded(text):
    """The texts that "{a,b} c" stands for. The same braces a second time stand for the same choice."""
    choices = list(dict.fromkeys(re.findall(r"\{(.*?)\}", text)))
    for picked in itertools.product(*(choice.split(",") for choice in choices)):
        result = text
        for choice, value in zip(choices, picked):
            result = result.replace("{" + choice + "}", value)
        yield result


def pairs(goal):
    """Measured and against of each row of a goal; against is empty where the figure is absolute."""
    for measured, against in zip(expanded(goal.measured), itertools.cycle(list(expanded(goal.against)))):
        yield measured, "" if against == "-" else against.replace("*", measured.split("/")[0])


def benchmarks_in(expression):
    return [part.split("#")[0] for part in expression.split(" over ") if part]


def floor_of(name):
    return name.split("/")[0] + "/floor"


def name_of_counter(name, counter):
    """The floor may be measured by turns with the library, which then tells its time and its counters."""
    if counter == "floor":
        return floor_of(name)
    if counter.startswith("floor "):
        return floor_of(name) + "#" + counter.split(" ", 1)[1]
    return f"{name}#{counter}"


def read_round(file):
    """Of one run of a program: name, or name#counter, to the median of its repetitions."""
    values = collections.defaultdict(list)
    known = """name run_name run_type repetitions repetition_index threads iterations real_time cpu_time time_unit
        family_index per_family_instance_index"""
    for run in json.loads(file.read_text())["benchmarks"]:
        if run["run_type"] != "iteration":
            continue
        name = "/".join(run["name"].split("/")[:2])
        values[name].append(run["real_time"] * nanoseconds[run["time_unit"]])
        for counter in run.keys() - set(known.split()):
            values[name_of_counter(name, counter)].append(run[counter])
    return {name: statistics.median(found) for name, found in values.items()}


def read_results(folder):
    results = collections.defaultdict(list)
    for file in sorted(pathlib.Path(folder).glob("*.json")):
        results[file.name.split(".")[0]].append(read_round(file))
    return results


def value(measurements, expression):
    parts = [measurements[part] for part in expression.split(" over ")]
    return parts[0] if len(parts) == 1 else parts[0] / parts[1]


def median(rounds, compute):
    """The median over the rounds that have what is computed; none where no round has."""
    found = []
    for measurements in rounds:
        try:
            found.append(compute(measurements))
        except (KeyError, ZeroDivisionError):
            pass
    return statistics.median(found) if found else None


def figure_of(goal, rounds, measured, against):
    if not against:
        return median(rounds, lambda of: value(of, measured))
    if "+" in goal.bound:
        return median(rounds, lambda of: value(of, measured) - value(of, against))
    if goal.bound.endswith("faster"):
        return median(rounds, lambda of: value(of, against) / value(of, measured))
    return median(rounds, lambda of: value(of, measured) / value(of, against))


def is_met(bound, figure):
    sign, limit = re.match(r"(<=|>=) \+?([0-9.]+)", bound).groups()
    return figure <= float(limit) if sign == "<=" else figure >= float(limit)


# How many times the floor's time the library may take where its goal is out of reach.
farthest_from_floor = 1.5
# How many times the floor's time the library is granted where it is compared with that: a goal that the floor itself meets by
# less than this is out of reach too, or it would be noise that decides.
granted_beyond_floor = 1.25


def is_within_reach(bound, reach):
    """Whether a library that takes all that it is granted beyond the floor still meets the bound."""
    return is_met(bound, reach / granted_beyond_floor if bound.startswith(">=") else reach * granted_beyond_floor)


def reach_of(goal, rounds, measured, against):
    """What the floor itself reaches against a peer; none where the goal compares with no peer, where the row has no floor,
    where the library is far from it, and where the library is so much faster that it shows what else can be reached."""
    floor = floor_of(measured)
    if " x" not in goal.bound or " over " in measured or benchmarks_in(against) == [floor]:
        return None
    distance = median(rounds, lambda of: value(of, measured) / value(of, floor))
    is_near = distance is not None and 1 / granted_beyond_floor <= distance <= farthest_from_floor
    return figure_of(goal, rounds, floor, against) if is_near else None


def outcome_of_row(goal, rounds, measured, against):
    row = measured.split("/")[0]
    figure = figure_of(goal, rounds, measured, against)
    if figure is None:
        return Outcome(goal, row, None, "not measured", "missed")
    shown = shown_figure(goal.bound, figure)
    if is_met(goal.bound, figure):
        return Outcome(goal, row, figure, shown, "met")
    reach = reach_of(goal, rounds, measured, against)
    if reach is None or is_within_reach(goal.bound, reach):
        return Outcome(goal, row, figure, shown, "missed")
    return Outcome(goal, row, figure, f"{shown}; the floor reaches {shown_figure(goal.bound, reach)}", "out of reach")


def outcome(goal, results):
    """The row of a goal that comes out worst."""
    rounds = results[goal.program]
    rows = [outcome_of_row(goal, rounds, measured, against) for measured, against in pairs(goal)]
    verdict = next(worst for worst in ("missed", "out of reach", "met") if any(row.verdict == worst for row in rows))
    rows = [row for row in rows if row.verdict == verdict]
    sign = 1 if goal.bound.startswith("<=") else -1
    return max(rows, key=lambda row: math.inf if row.figure is None else sign * row.figure)


def shown_figure(bound, figure):
    limit = float(re.search(r"[0-9.]+", bound).group())
    if " x" not in bound:
        return f"{figure:+,.0f}" if "+" in bound else f"{figure:,.0f}"
    digits = 0 if figure >= 20 else 1 if limit >= 3 else 2
    # Rounded, a figure must not seem to meet a bound that it misses.
    while round(figure, digits) == limit and figure != limit and digits < 4:
        digits += 1
    return bound.split(" ", 2)[2].replace("x", f"{figure:.{digits}f} x", 1)


def outcomes(results):
    return [outcome(goal, results) for goal in goals()]


def check(results):
    found = outcomes(results)
    for one in found:
        line = f"goal {one.goal.number} is {one.verdict}: {one.goal.program}, {one.row}: {one.shown}, where {one.goal.bound} is wanted: {one.goal.words}"
        if one.verdict == "missed":
            print(f"scripts/bench: {line}", file=sys.stderr)
        elif one.verdict == "out of reach":
            print(line)
    missed = any(one.verdict == "missed" for one in found)
    if not missed:
        print("every goal within reach is met")
    return 1 if missed else 0


# --- The document ------------------------------------------------------------------------------------------------------

programs = {
    "typed-access": ("Typed access", """On a store in memory that does almost nothing, so that the library's own cost shows. The
floor locks the weak reference, calls the store, and converts the value with the functions of Qt and the platform library, in
a function of the program; "written out" is the same code without the call of that function. QSettings in memory
keeps a list split and copies a reference to it, which is faster than any conversion."""),
    "locations": ("Locations", """The folders below the user's movies, music, caches and data, and the preferences that fall
back on them. The floor is the one question for a standard path that each asks. For movies and music it reads user-dirs.dirs;
caches and data come from the environment alone, so that the cost of joining the text shows."""),
    "names": ("Names", """Numbers are entries of the folder; all count but in "mixed", where one in a hundred of 10,000 does.
In "pattern" the source's name is a pattern, and in the rows that name a script it is written in that; "decomposed" has
accents as characters of their own. The floor is a pass of readdir over the folder that counts regular files; the
composition is a sorted, filtered QDir list and a regular expression. "Taken" are freeze frames of one source, and the
peers look for a free number."""),
    "sample-search": ("Sample search", """A hundred folders of a hundred files, on the disk. The floor is a walk with openat and
getdents64 that ends at the same file."""),
    "storage": ("Storage", """On the disk, sixty settings in the file. The floor is SQLite itself, in the same journal
mode and with the same syncs; it does not check the file when it opens it. The floor of a read of an unchanged file is one
pread; SQLite's own read stands beside it. The threads share one store, or one connection under a mutex. Thirty changes are
made together, or one by one. QSettings and
KConfig sync after a write, and before a read. QSettings opens a file by path, or by name, as most programs do: then it also
looks for the file of the organisation and for those of the system. A durable write waits for the disk, whose speed varies
within a run, so the library's lead over the peers varies from run to run."""),
    "load": ("Load", """The floor is an empty library that links the same libraries. The goal covers the start of a process, in which an
editor loads it; in a process that has Qt already, the library's own part shows alone. `editor-settings get` takes turns with an
empty program that links the same libraries; beside it stand the command lines of KConfig and GSettings, which read one value from
a file, too."""),
    "studio": ("Shared store", """A session of a program with a PostgreSQL server on this machine, over a Unix socket; commits wait for
the disk. The floor of a read is TestKit's store in memory; that of a round trip `SELECT 1`, and that of a change a bare call of
the server's function, both by libpq alone; so is the call of the function that tells changes, which stands beside. Among the listeners each of 32 writers has a layer of its own; a commit's time is that of
all of them together. The server notifies where somebody else listens; beside it stand the same function without a notification, and
with one always."""),
    "inspector": ("The window", """On the disk, with a store as a user has it, sixty-one lines, and with 10,000 undeclared keys
beside it. The start is that of the program on a screen of Xvfb, the median of ten, by its own clock; the rest is measured in a window
on a screen that is kept in memory only. Memory is what no file backs. Twelve searches are typed twenty times each, from the call
that changes the text to the painted list. Another process makes a thousand changes. A gap is the longest time between two beats of a
timer of 5 ms in the window's thread: while another program holds the store for eight seconds and a change waits for it; while
another process stores 10,000 keys at once; while a full store is examined three times; while stat hangs for two seconds below the
folder of exports; and while the store's file is replaced."""),
    "changes": ("Changes", """From the return of another process's call to the slot that is called, as a median, with two stores
watched; and the processor's time that watching them takes in a second in which nothing changes."""),
}


def shown_time(time):
    for unit, factor in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if time >= factor:
            return f"{significant(time / factor)} {unit}"
    return f"{significant(time)} ns"


def significant(number):
    return f"{number:.2f}" if number < 10 else f"{number:.1f}" if number < 100 else f"{number:,.0f}"


sides_in_order = ["library", "tool", "floor", "written out", "composition", "QSettings", "QSettings by name", "KConfig", "kreadconfig5", "gsettings", "SQLite", "one by one", "KFileUtils", "probing", "QDirIterator", "SQLite store", "changes", "polling", "without NOTIFY", "NOTIFY always"]
types_in_order = ["bool", "int", "std::string", "QString", "absent QString", "QByteArray", "QStringList", "rational"]


def rank(row):
    """Where a row is to be shown: reads before writes, types as in the library's header, numbers by size."""
    verb, _, kind = row.partition(" ")
    parts = [(part.isdigit(), int(part) if part.isdigit() else 0, part) for part in re.split(r"[ ,]+", row)]
    return "taken" in row, kind in types_in_order and (verb, types_in_order.index(kind)), parts


def place_of_side(side):
    return sides_in_order.index(side) if side in sides_in_order else len(sides_in_order)


def rows_and_sides(rounds):
    """Both in the order in which they are to be shown."""
    names = [name.split("/") for measurements in rounds for name in measurements if "#" not in name]
    return sorted({row for row, side in names}, key=rank), sorted({side for row, side in names}, key=place_of_side)


def cell(rounds, row, side):
    time = median(rounds, lambda of: of[f"{row}/{side}"])
    ratio = median(rounds, lambda of: of[f"{row}/{side}"] / of[f"{row}/library"])
    if time is None:
        return ""
    return shown_time(time) if side == "library" or ratio is None else f"{shown_time(time)} ({significant(ratio)})"


def table(header, lines, rule="---:"):
    yield "| " + " | ".join(header) + " |"
    yield "|---" + f"|{rule}" * (len(header) - 1) + "|"
    for line in lines:
        yield "| " + " | ".join(line) + " |"


def times(rounds):
    rows, sides = rows_and_sides(rounds)
    return table([""] + sides, ([row] + [cell(rounds, row, side) for side in sides] for row in rows))


def counts(rounds, counter):
    rows, sides = rows_and_sides(rounds)
    found = lambda row, side: median(rounds, lambda of: of[f"{row}/{side}#{counter}"])
    shown = lambda count: "" if count is None else f"{count:,.0f}" if count == int(count) else significant(count)
    sides = [side for side in sides if any(found(row, side) is not None for row in rows)]
    rows = [row for row in rows if any(found(row, side) is not None for side in sides)]
    return table([""] + sides, ([row] + [shown(found(row, side)) for side in sides] for row in rows))


counted = {
    "studio": {"MB for each": "Of the server's memory, in MB for each of 500 editors at rest:",
               "millionths of a core for each": "Processor time of the server's processes, in millionths of a core for each of them:"},
    "changes": {"95th percentile in ms": "95th percentile, in milliseconds:"},
    "typed-access": {"allocations": "Allocations, without those that the store itself makes; the floor's are those of the conversions:"},
    "locations": {"allocations": "Allocations:"},
    "names": {"more bytes": "Bytes allocated at a time for a million entries, beyond those for none:",
              "more allocations": "Allocations for a million entries, beyond those for none:"},
}


# What the window's program counts; its time is one of them.
of_the_window = ["first paint in ms", "rows shown in ms", "RssAnon in MB", "median in ms", "95th percentile in ms",
                 "of the slowest search in ms", "millionths of a core", "longest gap in ms"]


def counts_by_qt(rounds, others):
    """A line for each row and counter, with the figures of both Qt."""
    rows = dict.fromkeys(name.split("/")[0] for measurements in rounds for name in measurements)
    shown = lambda figure: "" if figure is None else f"{figure:,.0f}"
    lines = ([row, counter] + [shown(median(of, lambda one: one[f"{row}/library#{counter}"])) for of in (rounds, others)]
             for row in rows for counter in of_the_window)
    return table(["", "", "Qt 5", "Qt 6"], (line for line in lines if line[2]))


def section(program, rounds, others):
    title, words = programs[program]
    yield f"\n## {title}\n\n{words}\n"
    if program == "inspector":
        yield from counts_by_qt(rounds, others)
        return
    yield from times(rounds)
    for counter, heading in counted.get(program, {}).items():
        yield f"\n{heading}\n"
        yield from counts(rounds, counter)


# In which Qt has a part that another Qt may change.
rows_by_qt = {
    "typed-access": ["read QString", "read absent QString", "read QByteArray", "read QStringList", "write QString", "write QByteArray",
                     "write QStringList"],
    "locations": ["defaultProjectPath", "defaultNewsCenterContentPath", "newsCenterContentPath", "userEffectsPath"],
}


def side_by_side(row, rounds, others):
    """The row's cells: the ratio to the floor with each Qt, and the ratio of both in rounds that follow each other."""
    name = f"{row}/library"
    yield row
    for of in (rounds, others):
        yield significant(median(of, lambda one: one[name] / one[floor_of(name)]))
    yield significant(statistics.median(other[name] / one[name] for one, other in zip(rounds, others)))


def by_qt(results, others):
    yield """
## Qt 5 and Qt 6

The library's times in rows in which Qt has a part, divided by its floor's with the same Qt, in one run; and with Qt 6 divided by
those with Qt 5, in runs that follow each other.
"""
    yield from table(["", "Qt 5 to its floor", "Qt 6 to its floor", "Qt 6 to Qt 5"],
                     (side_by_side(row, results[program], others[program]) for program, rows in rows_by_qt.items() for row in rows))


verdicts = {"met": "yes", "missed": "**no**", "out of reach": "**no**, out of reach"}


def goal_table(results):
    yield from table(["", "goal", "bound", "worst", "in the row", "met"],
                     ([one.goal.number, one.goal.words, one.goal.bound.replace("<= ", "at most ").replace(">= ", "at least ").replace("at most +0", "no more").replace("+1", "1 more"),
                       one.shown, one.row, verdicts[one.verdict]] for one in outcomes(results)), "---")


def document(results, others, facts):
    rounds = ", ".join(f"{program} {len(results[program])}" for program in programs)
    yield f"""# How fast it is

Written by `scripts/bench`; do not edit. To repeat the measurement, run it on an idle machine; it takes forty minutes.
`scripts/bench --check` measures the same, writes nothing, and exits with 1 where a goal within reach is missed.

{facts}

Each program compares its subjects in one process and in random order, each five times or more for at least ten
milliseconds, except those that take long by themselves, and runs in several rounds
({rounds}).
Where the comparison is close, library and floor take turns, so that other programs' load affects both alike.
Times are medians. A number in parentheses is the ratio of a time to the library's: the median of the rounds' own ratios, not
the quotient of the two times shown. Only ratios can be compared between machines.

## Goals

The worst row of each goal. "x" is the library's time divided by the other's, "x faster" the other's by the library's. A goal
is out of reach where the floor misses it too on this machine, or would with {granted_beyond_floor} times its time, which the library is
granted: the kernel, or SQLite in the store's journal mode, already takes too long. In such a row the library takes at most
{farthest_from_floor} times the floor's time, and no less than 1 / {granted_beyond_floor} of it; otherwise the goal counts as missed.
"""
    yield from goal_table(results)
    for program in programs:
        yield from section(program, results[program], others[program])
    yield from by_qt(results, others)


def is_long(name):
    """Whether it is left out of the shortest form."""
    return re.search(r"\b(5000|10000|50000|100000|1000000)\b", name)


def smoke(program, without):
    run = subprocess.run([program, "--short", "--benchmark_format=json"], stdout=subprocess.PIPE, check=False)
    if run.returncode:
        print(f"{program} ended with status {run.returncode}", file=sys.stderr)
        return 1
    measured = [one for one in json.loads(run.stdout)["benchmarks"] if one["iterations"] > 0]
    found = {"/".join(one["name"].split("/")[:2]) for one in measured}
    found |= {floor_of(one["name"]) for one in measured if "floor" in one}
    wanted = {name for goal in goals() if goal.program == pathlib.Path(program).name
              for pair in pairs(goal) for expression in pair for name in benchmarks_in(expression)}
    wanted = {name for name in wanted if not is_long(name) and name.split("/")[1] not in without}
    for name in sorted(wanted - found):
        print(f"{program} does not measure {name}", file=sys.stderr)
    return 0 if found and wanted <= found else 1


def main(command, path, *more):
    if command == "smoke":
        return smoke(path, more[1:])
    results = read_results(path)
    if command == "check":
        return check(results)
    facts = pathlib.Path(more[0]).read_text().strip()
    print("\n".join(document(results, read_results(pathlib.Path(path) / "qt6"), facts)))
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
