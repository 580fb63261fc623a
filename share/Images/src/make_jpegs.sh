#!/bin/sh
# Makes the JPEG of every drawing here, the window icon and the icons of the desktop. Run it by hand after a drawing
# changed and commit both; the build only copies the results. Needs qt6-base-dev, pkg-config, g++ and libqt6svg6.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
images=$here/..
icons=$here/../../../packaging/icons
tool=$(mktemp -d)
trap 'rm -rf "$tool"' EXIT

g++ -std=c++20 -fPIC -o "$tool/svg2jpeg" "$here/svg2jpeg.cpp" $(pkg-config --cflags --libs Qt6Gui)
export QT_QPA_PLATFORM=offscreen XDG_RUNTIME_DIR="$tool"

for drawing in "$here"/*.svg; do
    name=$(basename "$drawing" .svg)
    height=96
    grep -q 'viewBox="0 0 176 132"' "$drawing" && height=264 # a help picture, twice the size at which it is shown
    "$tool/svg2jpeg" "$drawing" "$images/$name.jpg" "$height"
done
for size in 16 32 48 64 128 256; do
    "$tool/svg2jpeg" "$icons/tarvex.svg" "$icons/tarvex-$size.png" "$size"
done
cp "$icons/tarvex-64.png" "$images/tarvex.png"
