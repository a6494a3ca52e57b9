# Sourced by run, test, .ci/run and bench/run.

# need_packages PACKAGE...: installs those that are missing.
need_packages() {
  local missing=() name
  if ! command -v dpkg-query >/dev/null; then
    # Not Debian: continue if the build tools are installed, or else say what is needed.
    if command -v cmake >/dev/null && command -v ninja >/dev/null; then return 0; fi
    echo "This is not a Debian system. Please install what corresponds to these" >&2
    echo "Debian packages: $*" >&2
    exit 1
  fi
  for name in "$@"; do
    dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q 'ok installed' || missing+=("$name")
  done
  [ ${#missing[@]} -eq 0 ] && return 0

  local root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing: ${missing[*]}" >&2
      echo "Install them as root, then run this again:" >&2
      echo "    apt-get update && apt-get install ${missing[*]}" >&2
      exit 1
    fi
    root=(sudo)
  fi
  echo "Installing ${missing[*]}"
  if ! { "${root[@]}" apt-get update -qq &&
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
      apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null; }; then
    echo "These packages could not be installed: ${missing[*]}" >&2
    exit 1
  fi
}

# build PRESET [TARGET...]: configures and builds.
build() {
  local preset=$1
  shift
  cmake --preset "$preset" >"/tmp/rostermill-configure-$$.log" 2>&1 || {
    cat "/tmp/rostermill-configure-$$.log" >&2
    exit 1
  }
  rm -f "/tmp/rostermill-configure-$$.log"
  cmake --build "build/$preset" ${1:+--target "$@"}
}

build_packages=(g++ cmake ninja-build qt6-base-dev nlohmann-json3-dev zlib1g-dev libxxhash-dev cc65)
quick_packages=(libgtest-dev libgmock-dev python3)
test_packages=("${quick_packages[@]}" clang llvm cppcheck libclang-rt-14-dev poppler-utils acl
  git)
package_packages=(dpkg-dev file debootstrap desktop-file-utils appstream lintian)
tidy_packages=(clang-tidy)
