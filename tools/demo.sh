#!/bin/sh
# demo.sh PROGRAM FOLDER: takes a synthetic scan from STL to a mesh and back, and compares. FOLDER is made when
# it does not exist; files of an earlier run in it are replaced. Ends with 0 only when everything agrees.
set -eu

program=$(cd "$(dirname "$1")" && pwd)/$(basename "$1")
folder=$2
facets=${3:-200000}

step() { printf '\n== %s\n' "$*"; }
run() {
    printf '$ surfaceio %s\n' "$*"
    "$program" "$@"
}
agree() {
    if cmp "$1" "$2"; then
        printf '%s and %s agree to the last byte\n' "$1" "$2"
    else
        printf 'demo: %s and %s differ\n' "$1" "$2" >&2
        exit 1
    fi
}

mkdir -p "$folder"
cd "$folder"

step "A synthetic scan of $facets facets, each tooth with its own tag"
run sample --facets "$facets" --force scan.stl

step "What is in it"
run info scan.stl

step "To points, to a mesh array record, and to STL again"
run convert --force scan.stl scan.xyz
run convert --force scan.stl scan.array
run convert --force scan.stl again.stl

step "What is compared: vertices, normals and triangles after cleaning, as the array records hold them"
run convert --force again.stl again.array
agree scan.array again.array

step "And the points: a line for each vertex of the cleaned mesh"
run convert --force scan.array from-array.xyz
agree scan.xyz from-array.xyz

step "The same scan with colours of its vertices, and with a texture"
run sample --facets "$facets" --force scan.ply
run sample --facets "$facets" --force scan.obj
run info scan.obj
run atlas --force scan.obj --image atlas.png --mesh atlas.ply

step "Pictures"
run preview --force --output by-tag.png scan.stl
run preview --force --output by-colour.png scan.ply
run preview --force --output textured.png scan.obj
run preview --force --output from-atlas.png atlas.ply
agree textured.png from-atlas.png
run preview --force --output by-normal.png --by normal scan.stl
run preview --force --output sheet.png --sheet --size 384 scan.stl

printf '\nAll of it agrees. The files are in %s\n' "$PWD"
