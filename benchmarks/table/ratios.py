"""What is computed from measurements: ratios, verdicts, the tables as Markdown. Nothing is run here.

A measurement is what a contender prints (see Contender.h): milliseconds of each round, peak memory, what came
out. `results` are lists of measurements, one for each round of the table, by the name of the contender.
"""

# Row: at most this many times the floor; at least this many times faster than a peer. None: no target.
TARGETS = {
    "ply-read": (2.0, {"vtk": 12, "assimp": 13}),
    "ply-read-bytes": (2.0, {}),
    "ply-write": (1.6, {"vtk": 4}),
    "stl-read": (1.6, {"vtk": 4.5, "admesh": 2.2}),
    "stl-read-shuffled": (None, {}),
    "stl-read-32-tags": (1.8, {}),
    "stl-read-alternating": (3.0, {}),
    "stl-read-ascii": (1.5, {"vtk": 3.5, "assimp": 1.2}),
    "stl-write": (1.6, {"vtk": 4}),
    "obj-read-positions": (None, {}),
    "obj-read-split": (1.5, {"vtk": 9, "assimp": 6.5}),
    "obj-texture-colors": (1.5, {}),
    "obj-atlas": (2.0, {}),
    "vmesh-read": (1.5, {"meshio-medit": 10}),
    "conditions-read": (2.0, {}),
    "conditions-write": (2.0, {}),
    "tree-read": (2.0, {}),
    "tree-write": (2.0, {}),
    "array-read": (2.0, {}),
    "array-write": (2.0, {}),
    "start-up": (1.5, {}),
}

# What a row reads, for the bound of its memory.
FILES = {
    "ply-read": ["scan.ply"],
    "stl-read": ["scan.stl"],
    "stl-read-shuffled": ["shuffled.stl"],
    "stl-read-32-tags": ["tags.stl"],
    "stl-read-alternating": ["alternating.stl"],
    "stl-read-ascii": ["ascii.stl"],
    "obj-read-positions": ["positions.obj"],
    "obj-read-split": ["split.obj"],
    "obj-texture-colors": ["textured.obj", "textured0.bmp"],
    "obj-atlas": ["atlas.obj"] + [f"atlas{i}.bmp" for i in range(64)],
    "vmesh-read": ["box.vmesh"],
    "conditions-read": ["conditions.txt"],
    "tree-read": ["scan.shapetree"],
    "array-read": ["scan.array"],
}

MOST_GROWTH = 1.5  # of the time for a facet, from the smallest size to the largest


def best(measurements, clock="processor"):
    """The least milliseconds: what is left when nothing disturbs."""
    return min(min(one[clock]) for one in measurements)


def peak(measurements):
    """kB, of the round that took most."""
    return max(one["peak"] for one in measurements)


def ratio(results, above, below, clock="processor"):
    """Of the best rounds; None when one of the two is not there."""
    if above not in results or below not in results:
        return None
    return best(results[above], clock) / best(results[below], clock)


def flaw(measured, reference):
    """Why nobody should believe a contender's time: it left out some of the work. None when it did not.

    `reference` is what ours did. Merging may differ in a few vertices; without merging there are three to a facet.
    """
    written, expected = measured.get("bytes", 0), reference.get("bytes", 0)
    if written < 0.6 * expected:
        return f"wrote {written} bytes, not {expected}"
    if expected:
        return None
    if measured["facets"] != reference["facets"]:
        return f"{measured['facets']} facets, not {reference['facets']}"
    is_merged = "merging" not in measured["lacks"]
    expected = reference["vertices"] if is_merged else 3 * reference["facets"]
    if abs(measured["vertices"] - expected) > 0.01 * expected:
        return f"{measured['vertices']} vertices, not {expected}"
    return None


def most_memory(row, file_bytes, result_bytes):
    """kB that a row may take: the result, the file, and the size of the result again. None for other rows."""
    return (file_bytes + 2 * result_bytes) / 1024 if row in FILES and result_bytes else None


def summary(row, results, file_bytes=0):
    """What the tables show of a row, and what tools want to know."""
    ours = results.get("ours")
    return {
        "processor": {name: best(all_) for name, all_ in results.items()},
        "clock": {name: best(all_, "clock") for name, all_ in results.items()},
        "peak kB": {name: peak(all_) for name, all_ in results.items()},
        "lacks": {name: all_[0]["lacks"] for name, all_ in results.items() if all_[0]["lacks"]},
        "times floor": ratio(results, "ours", "floor"),
        "times faster than": {name: ratio(results, name, "ours") for name in results
                              if ours and name not in ("ours", "floor")},
        "most kB": most_memory(row, file_bytes, ours[0].get("result", 0)) if ours else None,
        "rounds": results,
    }


def is_met(row, of_row):
    """Whether all targets that could be measured are met; None without any."""
    most, least = TARGETS[row]
    verdicts = []
    if most and of_row["times floor"]:
        verdicts.append(of_row["times floor"] <= most)
    verdicts += [of_row["times faster than"][peer] >= value for peer, value in least.items()
                 if peer in of_row["times faster than"]]
    return all(verdicts) if verdicts else None


def is_in_memory(of_row):
    """Whether ours keeps to its memory; None where there is no bound."""
    return of_row["peak kB"]["ours"] <= of_row["most kB"] if of_row["most kB"] else None


def word(verdict):
    """A verdict in a cell of a table."""
    return {True: "yes", False: "**no**", None: ""}[verdict]


def line(*cells):
    """A line of a table."""
    return "| " + " | ".join(str(cell) for cell in cells) + " |"


def head(*titles):
    """The first two lines of a table."""
    return [line(*titles), "|" + "---|" * len(titles)]


def peers_cell(row, of_row):
    """How many times faster ours is than each peer, marked with what the peer does not do."""
    least = TARGETS[row][1]
    cells = []
    for name, value in sorted(of_row["times faster than"].items(), key=lambda item: item[1]):
        target = f" (≥ {least[name]})" if name in least else ""
        lacking = "*" if name in of_row["lacks"] else ""
        cells.append(f"{name}{lacking} {value:.1f}{target}")
    return ", ".join(cells)


def time_table(rows):
    """Lines: time, ratios, verdict, for the rows of one size."""
    lines = head("row", "processor ms", "clock ms", "× floor", "at most", "times faster than", "met")
    for row, of_row in rows.items():
        if "ours" not in of_row["processor"]:
            continue
        times = f"{of_row['times floor']:.2f}" if of_row["times floor"] else ""
        lines.append(line(row, f"{of_row['processor']['ours']:.1f}", f"{of_row['clock']['ours']:.1f}", times,
                          TARGETS[row][0] or "", peers_cell(row, of_row), word(is_met(row, of_row))))
    return lines


def memory_table(rows):
    """Lines: peak memory of all contenders, for the rows of one size that have a bound."""
    lines = head("row", "ours MB", "at most", "floor MB", "others MB", "met")
    for row, of_row in rows.items():
        if "ours" not in of_row["processor"] or not of_row["most kB"]:
            continue
        megabytes = {name: f"{value / 1024:.0f}" for name, value in of_row["peak kB"].items()}
        others = ", ".join(f"{name} {value}" for name, value in sorted(megabytes.items())
                           if name not in ("ours", "floor"))
        lines.append(line(row, megabytes["ours"], f"{of_row['most kB'] / 1024:.0f}", megabytes.get("floor", ""),
                          others, word(is_in_memory(of_row))))
    return lines


def growth(all_rows, row):
    """How many times longer a facet takes at the largest size than at the smallest; None with one size only."""
    sizes = sorted(size for size, rows in all_rows.items()
                   if row in rows and "ours" in rows[row]["processor"])
    if len(sizes) < 2 or row == "start-up":
        return None
    each = [all_rows[size][row]["processor"]["ours"] / size for size in (sizes[0], sizes[-1])]
    return each[1] / each[0]


def growth_table(all_rows):
    """Lines: nanoseconds for a facet at each size, and how they grow."""
    sizes = sorted(all_rows)
    lines = head("row", *(f"ns a facet at {size}" for size in sizes), "grows by", "at most", "met")
    for row in TARGETS:
        grown = growth(all_rows, row)
        if grown is None:
            continue
        each = [all_rows[size].get(row, {"processor": {}})["processor"].get("ours") for size in sizes]
        cells = [f"{1e6 * value / size:.0f}" if value else "" for size, value in zip(sizes, each)]
        lines.append(line(row, *cells, f"{grown:.2f}", MOST_GROWTH, word(grown <= MOST_GROWTH)))
    return lines


def lacks_lines(all_rows):
    """Lines: what the peers marked * do not do."""
    found = {}
    for rows in all_rows.values():
        for row, of_row in rows.items():
            for name, lacks in of_row["lacks"].items():
                found.setdefault((name, lacks), set()).add(row)
    return [f"- {name} without {lacks}: {', '.join(row for row in TARGETS if row in rows)}"
            for (name, lacks), rows in sorted(found.items())]
