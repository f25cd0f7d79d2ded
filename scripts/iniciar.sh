#!/bin/sh
# Installs what is needed, builds, creates a demo database beside the program if there is none, and starts
# the program. Without a display it runs the program under Xvfb, logged in as the demo administrator, saves a
# picture of the main window and prints its path.
set -e
cd "$(dirname "$0")/.."
sh scripts/instalar-dependencias.sh
cmake -S . -B build -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build -j2 --target adquisiciones adq-util
BASE=build/KORVEL8.mdb
[ -f "$BASE" ] || build/adq-util demo "$BASE"
if [ -n "$DISPLAY" ] || [ -n "$WAYLAND_DISPLAY" ]; then
  exec build/adquisiciones "$@"
fi
CAPTURA="$(pwd)/build/ventana-principal.png"
exec xvfb-run -a -s "-screen 0 1280x800x24" build/adquisiciones --captura "$CAPTURA" -u admin -p admin
