#!/usr/bin/env bash
# Looks at the packages in a folder: lintian without an error, no run path anywhere, the files where they belong.
set -euo pipefail
folder=$(realpath "$1")
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

for deb in "$folder"/*.deb; do
    dpkg-deb -x "$deb" "$scratch"
done
failed=0
while IFS= read -r file; do
    if readelf -d "$file" 2>/dev/null | grep -E '\((RPATH|RUNPATH)\)'; then
        echo "$file has a run path"
        failed=1
    fi
done < <(find "$scratch" -type f \( -name '*.so*' -o -path '*/bin/*' \))
for file in usr/bin/surfaceio "usr/lib/*/libsurfaceio.so.0" "usr/lib/*/libsurfaceio-inhouse.so.0" \
    "usr/lib/*/pkgconfig/surfaceio.pc" "usr/lib/*/cmake/SurfaceIO/SurfaceIOConfig.cmake" \
    usr/include/surfaceio/framework/MeshReader.h usr/share/man/{,de/,pl/}man1/surfaceio.1.gz \
    usr/share/{bash-completion/completions/surfaceio,zsh/site-functions/_surfaceio,fish/vendor_completions.d/surfaceio.fish} \
    usr/share/{applications/surfaceio.desktop,mime/packages/surfaceio.xml,thumbnailers/surfaceio.thumbnailer} \
    usr/share/metainfo/org.surfaceio.SurfaceIO.metainfo.xml \
    usr/share/doc/{surfaceio,libsurfaceio0,libsurfaceio-dev}/copyright; do
    if ! compgen -G "$scratch/$file" >/dev/null; then
        echo "no $file in the packages"
        failed=1
    fi
done
# Another minor version is another interface, which the SONAME does not say.
IFS=. read -r major minor _ < <(dpkg-deb -f "$folder"/libsurfaceio0_*.deb Version)
if dpkg-deb -I "$folder"/libsurfaceio0_*.deb shlibs | grep -vF " (<< $major.$((minor + 1))~)"; then
    echo "shlibs of libsurfaceio0 accepts another interface"
    failed=1
fi
lintian --fail-on error "$folder"/*.deb || failed=1
exit $failed
