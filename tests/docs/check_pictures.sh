#!/bin/sh
# The pictures in the documentation are small, and those that the program draws: check_pictures.sh SURFACEIO PICTURES
set -eu
drawn=$(mktemp -d)
trap 'rm -rf "$drawn"' EXIT
"$2/make.sh" "$1" "$drawn"
for picture in "$2"/*.png; do
    cmp "$picture" "$drawn/$(basename "$picture")"
    [ "$(wc -c <"$picture")" -lt 60000 ] || { echo "$picture is too large for a README"; exit 1; }
done
