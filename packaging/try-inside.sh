#!/usr/bin/env bash
# What packaging/try.sh does in the new root. The packages lie beside it, and the program that is built with them.
set -euo pipefail
cd "$(dirname "$0")"
export HOME=$PWD DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8

say() { printf '== %s\n' "$*"; }

# Quiet unless it fails.
quietly() {
    "$@" >quiet.log 2>&1 || {
        cat quiet.log
        exit 1
    }
}

# Where packages put files, documentation and lists of packages apart.
files() { find / -xdev \( -path /proc -o -path /tmp -o -path /var -o -path "$HOME" \) -prune -o -print | sort; }

say "install the program"
quietly apt-get update
files >files.before
quietly apt-get install -y ./libsurfaceio0_*.deb ./surfaceio_*.deb

say "use it"
surfaceio --version
surfaceio sample --facets 5000 scan.stl
surfaceio info scan.stl | grep 'facets  *5000'
surfaceio check scan.stl
surfaceio convert scan.stl scan.ply
surfaceio preview scan.ply --output scan.png
surfaceio tags list scan.stl >tags.txt
LC_ALL='' LANG=C.UTF-8 LANGUAGE=de surfaceio info scan.ply | grep 'Facetten'
test -s scan.png
compgen -G '/usr/share/man/man1/surfaceio.1*'

say "install what programs are built with"
quietly apt-get install -y ./libsurfaceio-dev_*.deb g++ cmake make pkgconf
quietly cmake -S consumer -B consumer/build -D EXPECTED_PREFIX=/usr
quietly cmake --build consumer/build
consumer/build/consumer consumer/tetrahedron.stl copy.ply
# shellcheck disable=SC2046 # a list of options
g++ -std=c++20 -fPIC consumer/main.cpp $(pkg-config --cflags --libs surfaceio) -o consumer/by-pkg-config
consumer/by-pkg-config consumer/tetrahedron.stl copy.ply german

say "remove"
quietly apt-get purge -y surfaceio libsurfaceio-dev libsurfaceio0
files >files.after
left=$(comm -13 files.before files.after | grep -i surfaceio || true)
if [ -n "$left" ]; then
    printf 'left behind:\n%s\n' "$left"
    exit 1
fi
say "nothing is left"
