#!/usr/bin/env bash
# Checks that each comment "Deliberate: ..." names the test that holds the behaviour ("Held by
# Suite.Claim"), and that every test so named exists.
set -u
cd "$(dirname "$0")/../.." || exit 2

mapfile -t sources < <(find platform include src plugins apps -name '*.h' -o -name '*.cpp' |
    grep -v '/tests/' | sort)
mapfile -t tests < <(find platform plugins apps tests -name '*Test.cpp' -o -path '*/tests/*.cpp')
[ ${#sources[@]} -gt 0 ] && [ ${#tests[@]} -gt 0 ] || { echo "nothing to check"; exit 2; }

# Each test as Suite.Claim; a name may stand on the line after its suite.
known_tests() {
    cat "${tests[@]}" | tr '\n' ' ' |
        grep -oE 'TEST(_F|_P)?\( *[A-Za-z0-9_]+, *[A-Za-z0-9_]+ *\)' |
        sed -E 's/TEST(_F|_P)?\( *([A-Za-z0-9_]+), *([A-Za-z0-9_]+) *\)/\2.\3/'
}

awk '
    NR == FNR { known[$1] = 1; next }

    function finish() {
        if (comment == "") {
            return
        }
        names = comment
        if (!sub(/^.*[Hh]eld by /, "", names)) {
            print place ": names no test"
            found = 1
        }
        while (match(names, /[A-Z][A-Za-z0-9_]*\.[A-Z][A-Za-z0-9_]*/)) {
            name = substr(names, RSTART, RLENGTH)
            names = substr(names, RSTART + RLENGTH)
            if (!(name in known)) {
                print place ": there is no test " name
                found = 1
            }
        }
        comment = ""
    }

    FNR == 1 || !/^ *\/\// { finish() }
    /^ *\/\/.*Deliberate:/ { finish(); place = FILENAME ":" FNR; comment = " " }
    comment != "" { sub(/^ *\/\/+ */, ""); comment = comment " " $0 }
    END { finish(); exit found }
' <(known_tests) "${sources[@]}"
