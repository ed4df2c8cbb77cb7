#!/usr/bin/env bash
# Compares the slots of every virtual operation that a plugin or a host may call with the committed
# list: a plugin that was built before keeps working only while they stay where they are. New
# operations go behind the last one of their class, and the list then takes them up. The fields that
# fields.txt names have to keep their order too; others may stand beside them.
#
# usage: virtual_operations.sh COMPILER WORK_FOLDER
# ORVIK_UPDATE_GOLDEN=1 in the environment rewrites the list instead.
#
# The slots are read from the debug information of one source that includes every public header;
# unlike a table they name the pure operations too. Needs the compiler (gcc or clang), readelf,
# c++filt and awk; fails where one is missing.
set -u -o pipefail
compiler=$1
work=$2
root=$(cd "$(dirname "$0")/../.." && pwd) || exit 2
list=$root/tests/abi/virtual_operations.txt
folders=(include platform/vizcore/include platform/commands/include platform/os/include)
mkdir -p "$work" || exit 2

for tool in "$compiler" readelf c++filt awk; do
    command -v "$tool" >/dev/null || { echo "missing: $tool"; exit 2; }
done

# 1. One source with every public header.
includes=()
for folder in "${folders[@]}"; do
    includes+=("-I$root/$folder")
    (cd "$root/$folder" && find . -name '*.h' | LC_ALL=C sort | sed 's|^\./\(.*\)|#include <\1>|')
done >"$work/all_headers.cpp" || exit 2

# 2. Its classes, used or not.
flags=(-fno-eliminate-unused-debug-types -femit-class-debug-always)
case $("$compiler" --version) in *clang*)
    flags=(-fno-eliminate-unused-debug-types -fstandalone-debug) ;;
esac
"$compiler" -std=c++20 -c -g -O0 "${flags[@]}" "${includes[@]}" "$work/all_headers.cpp" \
    -o "$work/all_headers.o" || exit 2
readelf --debug-dump=info "$work/all_headers.o" |
    awk -f "$root/tests/abi/read_classes.awk" | c++filt | LC_ALL=C sort -s -t $'\t' -k 2,2 \
    >"$work/classes.txt" || exit 2

# 3. No exported class may be missing.
found=0
while read -r class; do
    grep -qE "^class.(.*::)?$class(<.*>)?"$'\t' "$work/classes.txt" ||
        { echo "$class is exported, but the compiler did not describe it"; found=1; }
done < <(cd "$root" && grep -rhE '^(class|struct) [A-Z]+_API ' "${folders[@]}" | grep -v ';$' |
    sed -E 's/^[a-z]+ [A-Z]+_API ([A-Za-z0-9_]+).*/\1/' | sort -u)
[ $found = 0 ] || exit 1

# 4. The order.
awk -f "$root/tests/abi/order_of_operations.awk" "$work/classes.txt" >"$work/order.txt" || exit 2
if [ "${ORVIK_UPDATE_GOLDEN:-}" = 1 ]; then
    cp "$work/order.txt" "$list"
elif ! diff -u "$list" "$work/order.txt"; then
    echo "Slots of virtual operations have moved. Plugins that are built already break, unless"
    echo "only new operations follow the last one of a class; then take them up with"
    echo "ORVIK_UPDATE_GOLDEN=1 and say in the commit whether plugins must be rebuilt."
    exit 1
fi

# 5. The fields.
sed 's/UL>/>/' "$work/classes.txt" | awk -F '\t' '
    NR == FNR {
        end = index($0, ": ")
        class = substr($0, 1, end - 1)
        wanted[class] = substr($0, end + 2)
        next
    }
    $1 == "fields" && $2 in wanted && !($2 in done) {
        done[$2] = 1
        count = split($3, present, " ")
        number = split(wanted[$2], names, " ")
        at = 1
        for (i = 1; i <= number; ++i) {
            while (at <= count && present[at] != names[i]) {
                ++at
            }
            if (at++ > count) {
                print $2 ": the field " names[i] " is not where it was; now: " $3
                found = 1
                break
            }
        }
    }
    END {
        for (class in wanted) {
            if (!(class in done)) {
                print class ": not seen, though its fields are listed"
                found = 1
            }
        }
        exit found
    }
' "$root/tests/abi/fields.txt" -
