#!/bin/sh
# Puts the pictures of a tour on contact sheets: every form at its opening size, at twice its size
# and maximized, in light and dark, at 100, 150 and 200 %, and with an 18 pt font.
# Usage: scripts/contact_sheets.sh PROGRAM_FOLDER OUTPUT_FOLDER. Needs ImageMagick's montage.
set -eu
tour=$1/tour
out=$2
export QT_QPA_PLATFORM=offscreen
sheet() { # NAME SCALE OPTIONS...
  name=$1
  scale=$2
  shift 2
  QT_SCALE_FACTOR=$scale "$tour" --sizes "$@" "$out/$name" 2>"$out/$name.log"
  mogrify -resize '460x340>' "$out/$name"/*.png
  montage -label '%t' "$out/$name"/*.png -tile 6x -geometry '460x340>+4+4' "$out/$name.jpg"
}
mkdir -p "$out"
for scale in 1 1.5 2; do
  sheet "light-$scale" "$scale"
  sheet "dark-$scale" "$scale" --dark
done
sheet light-18pt 1 --font 18
sheet dark-18pt 1 --font 18 --dark
