#!/bin/sh
# Makes the pictures of the README: make.sh SURFACEIO FOLDER. The same bytes every time.
set -eu
surfaceio=$1
cd "$2"
scan=$(mktemp -d)
trap 'rm -rf "$scan"' EXIT
"$surfaceio" sample "$scan/arch.stl" --facets 60000
"$surfaceio" preview "$scan/arch.stl" -o by-tag.png --force --size 420 --view occlusal
"$surfaceio" preview "$scan/arch.stl" -o by-normal.png --force --size 420 --by normal --view front
"$surfaceio" sample "$scan/arch.obj" --facets 60000
"$surfaceio" preview "$scan/arch.obj" -o textured.png --force --size 360 --view iso
