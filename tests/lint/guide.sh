#!/usr/bin/env bash
# Checks that the code in docs/plugin-guide.md is that of the examples, which tests build and run:
# the lines of each indented block stand together in one file below examples/. Indentation may
# differ.
set -u
cd "$(dirname "$0")/../.." || exit 2

mapfile -t sources < <(find examples -name '*.cpp' -o -name CMakeLists.txt | sort)
[ ${#sources[@]} -gt 0 ] || { echo "nothing to check"; exit 2; }

awk '
    function bare(line) { sub(/^[ \t]+/, "", line); sub(/^\/\/ +/, "", line); return line }

    function check() {
        if (block == "") {
            return
        }
        ++blocks
        for (file in texts) {
            if (index(texts[file], "\n" block)) {
                block = ""
                return
            }
        }
        print "docs/plugin-guide.md:" start ": not in an example as it stands here:\n" block
        block = ""
        found = 1
    }

    FILENAME != "docs/plugin-guide.md" {
        texts[FILENAME] = (FILENAME in texts ? texts[FILENAME] : "\n") bare($0) "\n"
        next
    }
    /^    / {
        if (block == "") {
            start = FNR
        }
        block = block bare($0) "\n"
        next
    }
    { check() }
    END {
        check()
        if (blocks == 0) {
            print "no code was found in the guide"
            found = 1
        }
        exit found
    }
' "${sources[@]}" docs/plugin-guide.md
