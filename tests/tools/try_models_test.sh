#!/usr/bin/env bash
# Checks what try_models says of programs that behave well and badly: each stands in for pellux-batch,
# lists one format and does something of its own with a file of it.
set -u
tool=$(cd "$(dirname "$0")" && pwd)/try_models
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
mkdir "$folder/models"
touch "$folder/models/a.step" "$folder/models/b.txt"
found=0

# expect WORD EXIT_CODE BODY: a program that runs BODY for a file gives one line that begins with
# WORD, and the tool the exit code.
expect() {
    local word=$1 expected=$2 text code
    printf '#!/usr/bin/env bash\ncase "$*" in *--list-formats*) echo "step  load    STEP" ;; *) %s ;; esac\n' \
        "$3" >"$folder/program"
    chmod +x "$folder/program"
    text=$("$tool" --limit 1 --program "$folder/program" "$folder/models" 2>&1)
    code=$?
    if [ $code -ne "$expected" ] || [ "$(grep -c "^$word " <<<"$text")" -ne 1 ] ||
        [ "$(grep -c . <<<"$text")" -ne 3 ]; then
        found=1
        printf 'expected %s and exit code %s of "%s", but %s:\n%s\n' "$word" "$expected" "$3" "$code" "$text"
    fi
}

expect read 0 'echo one body'
expect warned 0 'echo odd >&2'
expect refused 0 'echo a reason >&2; exit 1'
expect EMPTY 1 'exit 1'
expect CRASH 1 'kill -SEGV $$'
expect CRASH 1 'exit 3'
expect HANG 1 'exec tail -f /dev/null'

"$tool" --program "$folder/program" "$folder/missing" 2>/dev/null
[ $? -eq 2 ] || { found=1; echo "a missing folder is a mistake"; }
exit $found
