#!/usr/bin/env bash
# Installs into a temporary tree, from a build folder or from a Debian package, and checks what is
# there; then starts the program in it without a display, and with the build's tour loads, edits,
# saves and looks with the installed files.
# usage: install_test.sh BUILD_FOLDER [PACKAGE.deb]
set -euo pipefail

build=$(realpath "$1")
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
export QT_QPA_PLATFORM=offscreen HOME=$tree/home ASAN_OPTIONS=detect_leaks=0
mkdir "$HOME"

fail() {
  echo "install_test: $*" >&2
  exit 1
}

if [ $# -gt 1 ]; then
  dpkg-deb -x "$2" "$tree"
else
  umask 022
  DESTDIR=$tree cmake --install "$build" --prefix /usr >/dev/null
fi
prefix=$tree/usr

home=$prefix/lib/rostermill
for file in rostermill colors.txt sample.nes faces/00.bmp faces/FF.bmp faces/na.bmp \
  r1-0.bmp p4-7.bmp; do
  [ -s "$home/$file" ] || fail "$file is not beside the program"
done
[ "$(find "$home/faces" -name '*.bmp' | wc -l)" -eq 257 ] || fail "a portrait is missing"
[ "$(find "$home" -maxdepth 1 -name '[rp][1-4]-[0-7].bmp' | wc -l)" -eq 64 ] ||
  fail "a picture of a play is missing"
[ "$(stat -c %s "$home/sample.nes")" -eq 393232 ] || fail "the sample is no image"

wrong=$(find "$prefix" -type d ! -perm 755 -o -type f ! -perm 755 ! -perm 644 | head -3)
[ -z "$wrong" ] || fail "wrong modes: $wrong"
wrong=$(find "$prefix" -type f -perm 755 ! -path "$home/rostermill" ! -path "$home/rsmtool")
[ -z "$wrong" ] || fail "should not be executable: $wrong"

for program in "$home"/rostermill "$home"/rsmtool; do
  name=$(basename "$program")
  [ -e "$program" ] || continue
  [ "$(readlink -f "$prefix/bin/$name")" = "$program" ] || fail "no link to $name in the path"
  gzip -t "$prefix/share/man/man1/$name.1.gz" || fail "$name has no man page"
  if [ $# -gt 1 ]; then
    ! readelf -S "$program" | grep -q '\.symtab' || fail "$name is not stripped"
  fi
done

for size in 16 24 32 48 64 128 256; do
  [ -s "$prefix/share/icons/hicolor/${size}x$size/apps/rostermill.png" ] || fail "no icon of $size"
done
app=org.rostermill.rostermill
[ -s "$prefix/share/doc/rostermill/copyright" ] || fail "no copyright file"
if command -v desktop-file-validate >/dev/null; then
  remarks=$(desktop-file-validate "$prefix/share/applications/$app.desktop" 2>&1)
  [ -z "$remarks" ] || fail "$remarks"
fi
if command -v appstreamcli >/dev/null; then
  appstreamcli validate --no-net "$prefix/share/metainfo/$app.metainfo.xml" >/dev/null ||
    fail "the AppStream metadata are not valid"
fi

# By the link, as from a menu; it is still running after a second and a half.
status=0
timeout 1.5 "$prefix/bin/rostermill" 2>"$tree/said" || status=$?
[ "$status" -eq 124 ] || fail "the program ended with $status: $(cat "$tree/said")"

"$build/bin/tour" --beside "$home" "$tree/pictures" >/dev/null 2>"$tree/said" ||
  fail "the tour failed: $(cat "$tree/said")"
echo "installed, started, loaded, saved and looked"
