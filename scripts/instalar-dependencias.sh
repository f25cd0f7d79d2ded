#!/bin/sh
# Installs the Debian 12 packages the program, its tests and its benchmarks need.
set -e
if [ "$(id -u)" -ne 0 ]; then SUDO=sudo; else SUDO=; fi
export DEBIAN_FRONTEND=noninteractive
PKGS="build-essential cmake pkg-config qt6-base-dev libsqlite3-dev sqlite3 libxml2-dev libxslt1-dev \
 libfreexl-dev libzip-dev libxlsxwriter-dev mdbtools-dev mdbtools libgtest-dev libgmock-dev libbenchmark-dev xvfb xauth \
 clang libclang-rt-14-dev qt6-translations-l10n postgresql libpq-dev"
missing=""
for p in $PKGS; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing="$missing $p"
done
if [ -n "$missing" ]; then
  $SUDO apt-get update -q
  $SUDO apt-get install -y -q --no-install-recommends $missing
fi
