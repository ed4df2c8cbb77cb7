#!/usr/bin/env bash
# Checks every #include of the project against the arrows of the house. Prints each line that
# breaks a rule as file:line: rule, and fails when there is one.
set -u
cd "$(dirname "$0")/../.." || exit 2
found=0

# forbid RULE PATTERN FOLDER...: no #include matching PATTERN in the sources below the folders.
forbid() {
    local rule=$1 pattern=$2 hits
    shift 2
    local folders=()
    local folder
    for folder in "$@"; do [ -e "$folder" ] && folders+=("$folder"); done
    [ ${#folders[@]} -gt 0 ] || return 0
    hits=$(grep -rnE --include='*.h' --include='*.cpp' "^ *# *include +[<\"]($pattern)" \
        "${folders[@]}" /dev/null)
    [ -n "$hits" ] || return 0
    found=1
    printf '%s\n' "$hits" | sed "s|\$|    <- $rule|"
}

system_headers='unistd\.h|sys/|windows\.h|dlfcn\.h|pthread\.h|fcntl\.h|poll\.h|signal\.h|sched\.h|dirent\.h|ucontext\.h|unwind\.h|execinfo\.h|process\.h|io\.h|termios\.h'
outside_os="platform/vizcore platform/commands include src plugins apps"
graphics='epoxy/|EGL/|GL/|GLES'

forbid "OrvikOs knows nothing above it" 'Tamb|OrvikCore/' platform/os
forbid "TambVizCore includes only OrvikOs" 'TambCommandsInfra/|OrvikCore/' platform/vizcore
forbid "TambCommandsInfra includes only OrvikOs" 'TambVizCore/|OrvikCore/' platform/commands
# shellcheck disable=SC2086
forbid "system headers stay in platform/os/src" "$system_headers" $outside_os platform/os/include
forbid "GL headers stay in the view and the GL surfaces of the hosts" "$graphics" \
    platform include src plugins/content-mesh plugins/content-cad plugins/ray-index \
    plugins/engine-scheme plugins/commands apps/common apps/pellux-batch
forbid "Guile stays in its engine" 'libguile' platform include src apps plugins/content-mesh \
    plugins/content-cad plugins/ray-index plugins/commands plugins/view-opengl
forbid "Qt stays in its host" 'Q[A-Z]|Qt' platform include src plugins apps/common apps/pellux-batch
forbid "no source is included" '[^">]*\.cpp[">]' platform include src plugins apps tests

# A subsystem of the core includes exported headers and its own folder only: quoted names without
# a folder are its own, so any quoted path that leaves the folder breaks the rule.
hits=$(grep -rnE --include='*.h' --include='*.cpp' '^ *# *include +"(\.\./|[a-z-]+/)' src /dev/null |
    grep -v '"OrvikCore/')
[ -z "$hits" ] || { found=1; printf '%s    <- private headers stay in their subsystem\n' "$hits"; }

for plugin in plugins/*/; do
    name=$(basename "$plugin")
    others=$(ls plugins | grep -vx -e "$name" -e ray-index | tr '\n' '|' | sed 's/|$//')
    [ -z "$others" ] || forbid "plugins know nothing of each other" "(\.\./)*($others)/" "$plugin"
done
exit $found
