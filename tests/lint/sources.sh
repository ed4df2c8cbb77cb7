#!/usr/bin/env bash
# Checks the form of sources: ASCII, no tabs, guards named after their path, no 'using namespace',
# no disabled code, no files past 1000 lines.
set -u
cd "$(dirname "$0")/../.." || exit 2
found=0
report() { found=1; printf '%s\n' "$1" | sed "s|\$|    <- $2|"; }

mapfile -t files < <(find platform include src plugins apps tests bench examples \
    -name '*.h' -o -name '*.cpp' 2>/dev/null)

hits=$(LC_ALL=C grep -nP '[^\x00-\x7F]' "${files[@]}" | head -n 20)
[ -z "$hits" ] || report "$hits" "sources are ASCII; other characters are escapes"
hits=$(grep -nP '\t' "${files[@]}" | head -n 20)
[ -z "$hits" ] || report "$hits" "four blanks instead of tabs"
hits=$(grep -nE '^ *using namespace' "${files[@]}" | head -n 20)
[ -z "$hits" ] || report "$hits" "open the namespace instead"
hits=$(grep -nE '^ *# *if 0|TODO|FIXME' "${files[@]}" | head -n 20)
[ -z "$hits" ] || report "$hits" "no disabled code, no postponed work"

for header in "${files[@]}"; do
    case $header in *.h) ;; *) continue ;; esac
    path=$(printf '%s' "$header" | sed -E 's|^.*include/||; s|^(.*/)?([^/]+/[^/]+)$|\2|')
    guard=$(printf '%s' "$path" | tr 'a-z./-' 'A-Z___')
    name=$(basename "$header" | tr 'a-z.-' 'A-Z__')
    grep -qE "^#ifndef ([A-Z0-9_]*_)?$name\$" "$header" ||
        report "$header" "the guard ends in $name, as in $guard"
    [ "$(wc -l <"$header")" -le 400 ] || report "$header" "a header past 400 lines: split it"
done
for source in "${files[@]}"; do
    [ "$(wc -l <"$source")" -le 1000 ] || report "$source" "past 1000 lines: split it by idea"
done
exit $found
