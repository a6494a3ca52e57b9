#!/usr/bin/env bash
# Installs into a fresh root, checks what was installed, starts the program there without a display,
# and runs the build's tour, which loads, edits and saves with the installed files.
#
# With a package, the root is a Debian made by debootstrap, or a folder if the machine doesn't allow
# that, as the test then says. Without one, it is a folder with the build's files.
# usage: install_test.sh BUILD_FOLDER [PACKAGE.deb]
set -euo pipefail

build=$(realpath "$1")
package=${2:+$(realpath "$2")}
root=$(mktemp -d)
chmod 755 "$root"
in_debian=false
mounted=false

fail() {
  echo "install_test: $*" >&2
  exit 1
}

leave() {
  if $mounted; then umount "$root/proc"; fi
  rm -rf --one-file-system "$root"
}
trap leave EXIT

# Runs a command in the root; in a Debian, without this shell's environment.
inside() {
  if $in_debian; then
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/tmp QT_QPA_PLATFORM=offscreen \
      DEBIAN_FRONTEND=noninteractive ${http_proxy:+http_proxy="$http_proxy"} \
      chroot "$root" "$@"
  else
    env -u XDG_DATA_HOME -u XDG_CONFIG_HOME HOME="$root/tmp" QT_QPA_PLATFORM=offscreen \
      ASAN_OPTIONS=detect_leaks=0 "$@"
  fi
}

# Makes $root a Debian of the same release as this one, or says why it can't.
make_debian() {
  local mirror said why
  # shellcheck disable=SC1091
  . /etc/os-release
  if [ "$ID" != debian ]; then
    why="this is not Debian"
  elif [ "$(id -u)" -ne 0 ]; then
    why="it needs root"
  elif ! command -v debootstrap >/dev/null; then
    why="debootstrap is not installed"
  else
    mirror=$(apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' | head -1)
    if said=$(debootstrap --variant=minbase "$VERSION_CODENAME" "$root" $mirror 2>&1) &&
      said=$(mount -t proc proc "$root/proc" 2>&1); then
      mounted=true
      in_debian=true
      return
    fi
    why=$(tail -1 <<<"$said")
    umount "$root/proc" 2>/dev/null || true
    rm -rf --one-file-system "$root"
    mkdir -m 755 "$root"
  fi
  echo "skipped: installing into a fresh Debian: $why"
}

if [ -n "$package" ]; then
  make_debian
else
  umask 022
  DESTDIR=$root cmake --install "$build" --prefix /usr >/dev/null
fi
if $in_debian; then
  cp "$package" "$root/tmp/rostermill.deb"
  { inside apt-get update -qq &&
    inside apt-get install -y -qq --no-install-recommends /tmp/rostermill.deb; } \
    >"$root/tmp/said" 2>&1 || fail "apt can't install the package: $(cat "$root/tmp/said")"
  inside dpkg -L rostermill | sed "s|^|$root|" >"$root/tmp/installed"
else
  if [ -n "$package" ]; then dpkg-deb -x "$package" "$root"; fi
  mkdir "$root/tmp"
  find "$root/usr" >"$root/tmp/installed"
fi
prefix=$root/usr

home=$prefix/lib/rostermill
for file in colors.txt faces/na.bmp; do
  [ -s "$home/$file" ] || fail "$file is not in the program's folder"
done
[ "$(find "$home/faces" -name '[0-9A-F][0-9A-F].bmp' -size +0 | wc -l)" -eq 256 ] ||
  fail "a portrait is missing"
[ "$(find "$home" -maxdepth 1 -name '[rp][1-4]-[0-7].bmp' -size +0 | wc -l)" -eq 64 ] ||
  fail "a picture of a play is missing"
[ "$(stat -c %s "$home/sample.nes")" -eq 393232 ] || fail "the sample is not an image"

while read -r path; do
  mode=$(stat -c '%F %a' "$path")
  case "$mode $path" in
    'directory 755 '* | 'symbolic link 777 '* | 'regular file 644 '*) ;;
    "regular file 755 $home/rostermill" | "regular file 755 $home/rsmtool") ;;
    *) fail "wrong mode: $mode $path" ;;
  esac
done <"$root/tmp/installed"

for program in "$home"/rostermill "$home"/rsmtool; do
  name=$(basename "$program")
  [ -e "$program" ] || continue
  [ "$(readlink -f "$prefix/bin/$name")" = "$program" ] || fail "no link to $name in the path"
  gzip -t "$prefix/share/man/man1/$name.1.gz" || fail "$name has no man page"
  if [ -n "$package" ]; then
    ! readelf -S "$program" | grep -q '\.symtab' || fail "$name is not stripped"
  fi
done

for size in 16 24 32 48 64 128 256; do
  [ -s "$prefix/share/icons/hicolor/${size}x$size/apps/rostermill.png" ] || fail "no icon of $size"
done
app=org.rostermill.rostermill
[ -s "$prefix/share/doc/rostermill/copyright" ] || fail "no copyright file"

# The package's changelog and the metadata name the release that CHANGELOG.md names.
release=$(sed -n 's/^## \(.*\) (\(.*\))$/\1 \2/p' "$(dirname "$0")/../../CHANGELOG.md" | head -1)
metadata=$(sed -n 's/.*<release version="\(.*\)" date="\(.*\)">.*/\1 \2/p' \
  "$prefix/share/metainfo/$app.metainfo.xml" | head -1)
[ "$metadata" = "$release" ] || fail "the metadata say $metadata, CHANGELOG.md $release"
changelog=$(gzip -dc "$prefix/share/doc/rostermill/changelog.gz")
dated=$(date -d "$(sed -n 's/^ -- .*>  //p' <<<"$changelog" | head -1)" +%F)
[ "$(sed -n '1s/.*(\(.*\)).*/\1/p' <<<"$changelog") $dated" = "$release" ] ||
  fail "the package's changelog differs from CHANGELOG.md: $release"
# Runs a checker on a file or the package; it should print nothing.
check() {
  if ! command -v "$1" >/dev/null; then
    echo "skipped: $1, which is not installed"
    return
  fi
  local said
  said=$("$@" 2>&1) || fail "$1: $said"
  said=$(grep -v 'Validation was successful' <<<"$said" || true)
  [ -z "$said" ] || fail "$1: $said"
}
check desktop-file-validate "$prefix/share/applications/$app.desktop"
check appstreamcli validate --no-net "$prefix/share/metainfo/$app.metainfo.xml"
if [ -n "$package" ]; then check lintian -I --pedantic --allow-root "$package"; fi

# The root as a command inside it sees it.
if $in_debian; then seen=; else seen=$root; fi

# Started by its link, as from a menu, it has to be still running after a second and a half.
status=0
inside timeout 1.5 "$seen/usr/bin/rostermill" 2>"$root/tmp/said" || status=$?
[ "$status" -eq 124 ] || fail "the program exited with $status: $(cat "$root/tmp/said")"

# These need no display.
for said in "--version:0:rostermill " "--help:0:Usage: rostermill" "--what:2:rostermill: unknown"; do
  IFS=: read -r option code start <<<"$said"
  status=0
  answer=$(inside env -u DISPLAY QT_QPA_PLATFORM=none "$seen/usr/bin/rostermill" "$option" 2>&1) ||
    status=$?
  [ "$status" = "$code" ] && [ "${answer#"$start"}" != "$answer" ] ||
    fail "rostermill $option exits with $status: $answer"
done

cp "$build/bin/tour" "$root/tmp/tour"
inside "$seen/tmp/tour" --program-folder "$seen/usr/lib/rostermill" "$seen/tmp/pictures" \
  >/dev/null 2>"$root/tmp/said" || fail "the tour failed: $(cat "$root/tmp/said")"
[ "$(find "$root/tmp/pictures" -name '*.png' | wc -l)" -gt 20 ] ||
  fail "too few pictures of the tour"
if $in_debian; then where="into a fresh Debian"; else where="into a folder"; fi
echo "installed $where, started, loaded and saved"
