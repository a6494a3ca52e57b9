#!/usr/bin/env bash
# Runs the static checks on all code.
#   static_checks.sh        includes and cppcheck, which take seconds
#   static_checks.sh tidy   clang-tidy, which takes over half an hour on two cores
set -euo pipefail
cd "$(dirname "$0")/.."

case "${1:-}" in
"")
  scripts/check_includes.py
  exec cppcheck --enable=warning,performance,portability --inline-suppr --std=c++20 --quiet \
    --error-exitcode=1 -j "$(nproc)" -I . --library=qt --library=googletest \
    --suppressions-list=scripts/cppcheck.supp league rules exchange history screens shell toolkit tools tests fuzz bench
  ;;
tidy) ;;
*)
  echo "usage: scripts/static_checks.sh [tidy]" >&2
  exit 2
  ;;
esac

# The sources need their precompiled headers, and clang can read only its own.
cmake -G Ninja -B build/tidy -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=Debug \
  -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DROSTERMILL_FUZZ=ON -DROSTERMILL_BENCH=ON >/dev/null
headers=$(ninja -C build/tidy -t targets all | sed -n 's/^\([^ ]*\.pch\):.*/\1/p')
# shellcheck disable=SC2086
ninja -C build/tidy $headers
run-clang-tidy -p build/tidy -quiet "^$PWD/(league|rules|exchange|history|screens|shell|toolkit|tools|tests|fuzz|bench)/"
