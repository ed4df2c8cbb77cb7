#!/usr/bin/env bash
# Compares what a library exports with the list kept beside this script; a difference means that
# plugins must be rebuilt, or that something became visible by accident.
#   symbols.sh LIBRARY LIST      ORVIK_UPDATE_GOLDEN=1 writes the list anew.
set -u
library=$1
list=$2

# Strong functions and data, vtables and type information; inline functions differ by optimisation.
current=$(nm --dynamic --defined-only "$library" | awk '$2 ~ /^[TDBRV]$/ {print $3}' | c++filt |
    grep -E '^((vtable|typeinfo|typeinfo name) for )?(OrvikCore::|Tamb|ITamb|Orvik_|CreatePlugin)' |
    LC_ALL=C sort -u)
[ -n "$current" ] || { echo "$library exports nothing of the system"; exit 1; }
if [ "${ORVIK_UPDATE_GOLDEN:-}" = 1 ]; then
    printf '%s\n' "$current" >"$list"
    exit 0
fi
diff "$list" <(printf '%s\n' "$current") && exit 0
echo "The exported symbols have changed (< as listed, > as built)."
echo "If that is meant: ORVIK_UPDATE_GOLDEN=1 $0 $*"
exit 1
