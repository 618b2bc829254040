#!/usr/bin/env bash
# Installs the build into a temporary prefix and checks what a desktop and a package manager see:
# the files in their places, the desktop entry and the metainfo valid, the installed program runs.
# Usage: verifica.sh BUILD_DIR
set -euo pipefail
build="$1"
prefisso=$(mktemp -d)
trap 'rm -rf "$prefisso"' EXIT
cmake --install "$build" --prefix "$prefisso" >/dev/null

attesi=(bin/orvix share/orvix/personalizza.orx
        share/applications/org.example.orvix.desktop share/metainfo/org.example.orvix.metainfo.xml
        share/icons/hicolor/scalable/apps/org.example.orvix.svg
        share/icons/hicolor/16x16/apps/org.example.orvix.png share/icons/hicolor/256x256/apps/org.example.orvix.png
        share/orvix/guidaorvix/index.html share/orvix/modelli/Libri.wzd share/doc/orvix/copyright)
for file in "${attesi[@]}"; do
    [ -s "$prefisso/$file" ] || { echo "missing after install: $file"; exit 1; }
done
# Every page and picture the guide links to is there.
guida="$prefisso/share/orvix/guidaorvix"
for pagina in "$guida"/*.html; do
    for collegamento in $(grep -o '\(href\|src\)="[^"#:]*"' "$pagina" | sed 's/^[a-z]*="\(.*\)"$/\1/'); do
        [ -s "$guida/$collegamento" ] || { echo "$(basename "$pagina") links to a missing $collegamento"; exit 1; }
    done
done
# Every page F1 opens is installed.
for pagina in $(grep -o '"[a-z]*\.html"' "$(dirname "$0")/../../src/gui/frame/paginaguida.cpp" | tr -d '"' | sort -u); do
    [ -s "$guida/$pagina" ] || { echo "F1 opens a missing guide page: $pagina"; exit 1; }
done
desktop-file-validate "$prefisso/share/applications/org.example.orvix.desktop"
# The addresses in the metainfo are not reachable from a test machine: everything else is checked.
appstreamcli validate --no-net --pedantic "$prefisso/share/metainfo/org.example.orvix.metainfo.xml" >/dev/null
versione=$(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$prefisso/bin/orvix" --version)
[ "$versione" = "Orvix $(sed -n 's/^project(Orvix VERSION \([0-9.]*\).*/\1/p' "$(dirname "$0")/../../CMakeLists.txt")" ] ||
    { echo "unexpected version line: $versione"; exit 1; }
echo "installed and valid"
