#!/usr/bin/env bash
# A sheet a language of every window, page and panel of the program, to be looked at.
#   scripts/language_sheets.sh TEST_UI FOLDER
set -eu
test_ui=$(realpath "$1")
mkdir -p "$2"
folder=$(realpath "$2")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
CUEWRIGHT_SHEETS=$work SCREEN=1920x1080 scripts/virtual_display.sh env QT_QPA_PLATFORM=xcb "$test_ui" --gtest_filter='*EveryLanguage*-*EveryDetail*' --gtest_brief=1
for language in $(find "$work" -name '*_HasRoomInTheMainWindow_01.png' -printf '%f\n' | sed 's/_HasRoom.*//'); do
  # Pictures of one window that are the same would only fill the sheet.
  mapfile -t pictures < <(find "$work" -name "${language}_HasRoom*.png" | sort | xargs md5sum | sort -u -k1,1 | awk '{print $2}' | sort)
  montage "${pictures[@]}" -background '#808080' -geometry +8+8 -tile 6x "PNG24:$folder/$language.png"
done
echo "$folder: $(find "$folder" -name '*.png' | wc -l) sheets"
