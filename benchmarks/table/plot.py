"""Time against size as a picture, by gnuplot."""

import shutil
import subprocess
import sys

ROWS = ["ply-read", "stl-read", "stl-read-ascii", "obj-read-split", "ply-write", "vmesh-read"]
FIRST = ["ours", "floor"]
COLORS = ["#000000", "#999999", "#0072b2", "#d55e00", "#009e73", "#cc79a7", "#e69f00", "#56b4e9", "#6a3d9a", "#b15928"]


def points(all_rows, row, name):
    """Lines "FACETS MILLISECONDS" of one contender."""
    return [f"{facets} {rows[row]['processor'][name]}" for facets, rows in sorted(all_rows.items())
            if row in rows and name in rows[row]["processor"]]


def names_of(all_rows, row):
    """The contenders of a row, ours and the floor first."""
    names = {name for rows in all_rows.values() if row in rows for name in rows[row]["processor"]}
    return [name for name in FIRST if name in names] + sorted(names - set(FIRST))


def colors_of(all_rows):
    """A colour for each contender, the same in every panel."""
    names = FIRST + sorted({name for row in ROWS for name in names_of(all_rows, row)} - set(FIRST))
    return {name: COLORS[i % len(COLORS)] for i, name in enumerate(names)}


def panel(all_rows, row):
    """The data of a row and the command that draws it."""
    colors = colors_of(all_rows)
    blocks, curves = [], []
    for name in names_of(all_rows, row):
        block = f"${row}_{name}".replace("-", "_")
        blocks += [f"{block} << EOD", *points(all_rows, row, name), "EOD"]
        width = 3 if name == "ours" else 1
        curves.append(f"{block} using 1:2 with linespoints linewidth {width} pointsize 0.5 "
                      f"linecolor rgb '{colors[name]}' title '{name}'")
    return "\n".join(blocks), f"set title '{row}'\nplot {', '.join(curves)}"


def script(all_rows, path):
    """What gnuplot is told."""
    panels = [panel(all_rows, row) for row in ROWS if names_of(all_rows, row)]
    terminal = "pngcairo" if path.suffix == ".png" else "svg background 'white'"
    return "\n".join([*(data for data, _ in panels), f"""
set terminal {terminal} size 1200,800
set output '{path}'
set logscale xy
set xlabel 'facets'
set ylabel 'milliseconds of processor time'
set key right bottom font ',9'
set grid
set format x '10^{{%T}}'
set xrange [80000:5000000]
set multiplot layout 2,3""", *(command for _, command in panels), ""])


def draw(all_rows, path):
    """Writes the picture to `path`."""
    if not shutil.which("gnuplot"):
        print("gnuplot is not installed: no plot", file=sys.stderr)
        return
    subprocess.run(["gnuplot"], input=script(all_rows, path), text=True, check=True)
