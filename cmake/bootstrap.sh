# Sourced by run, test and .ci/run: finds out what is missing on this machine and installs it.
# Nothing is asked; without the right to install, the command for it is printed.

build_packages="g++ cmake ninja-build pkg-config
    libepoxy-dev libegl-dev libgl-dev libegl1 libgl1-mesa-dri libpng-dev
    guile-3.0-dev libfast-float-dev libcli11-dev libtomlplusplus-dev libembree-dev
    rapidjson-dev libassimp-dev
    libfreetype-dev libfontconfig-dev fonts-dejavu-core
    qt6-base-dev libqt6opengl6-dev
    libocct-foundation-dev libocct-modeling-data-dev libocct-modeling-algorithms-dev
    libocct-ocaf-dev libocct-data-exchange-dev"
# What the window needs besides to run: desktops without an X server.
window_packages="qt6-wayland"
test_packages="libgtest-dev libgmock-dev libx11-dev xvfb xauth xdotool"
check_packages="clang-format clang-tidy g++-mingw-w64-x86-64-posix"

say() { printf '\033[1m==> %s\033[0m\n' "$*"; }
fail() { printf 'pellux: %s\n' "$*" >&2; exit 3; }

# missing_packages PACKAGE...: prints those that are not installed.
missing_packages() {
    local package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' ||
            printf '%s ' "$package"
    done
}

# missing_tools: on a system without Debian's packages, the tools that cannot be found.
missing_tools() {
    local tool
    for tool in g++ cmake ninja pkg-config; do
        command -v "$tool" >/dev/null || printf '%s ' "$tool"
    done
    command -v pkg-config >/dev/null || return 0
    for tool in epoxy egl libpng guile-3.0; do
        pkg-config --exists "$tool" || printf '%s ' "$tool"
    done
}

# ensure_packages PACKAGE...: installs what is missing, or says what to install and stops.
ensure_packages() {
    if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
        local tools
        tools=$(missing_tools)
        [ -z "$tools" ] || fail "this is no Debian system; please install first: $tools"
        return 0
    fi
    local missing
    missing=$(missing_packages "$@")
    [ -n "$missing" ] || return 0
    say "Installing: $missing"
    local as_root=""
    if [ "$(id -u)" -ne 0 ]; then
        as_root="sudo -n"
        sudo -n true 2>/dev/null ||
            fail "please install first: apt-get install --no-install-recommends $missing"
    fi
    export DEBIAN_FRONTEND=noninteractive
    $as_root apt-get update -q || fail "apt-get update failed"
    # shellcheck disable=SC2086
    $as_root apt-get install -y -q --no-install-recommends $missing </dev/null ||
        fail "could not install: $missing"
}

# build_preset PRESET [TARGET...]: configures when needed and builds what has changed.
build_preset() {
    local preset=$1
    shift
    if [ ! -f "build/$preset/build.ninja" ]; then
        say "Configuring ($preset)"
        cmake --preset "$preset" >"/tmp/pellux-configure.$$" 2>&1 ||
            { cat "/tmp/pellux-configure.$$"; rm -f "/tmp/pellux-configure.$$"
              fail "configuring '$preset' failed"; }
        rm -f "/tmp/pellux-configure.$$"
    fi
    say "Building ($preset)"
    if [ $# -gt 0 ]; then
        cmake --build "build/$preset" --parallel "$(nproc)" --target "$@" || return 1
    else
        cmake --build "build/$preset" --parallel "$(nproc)" || return 1
    fi
}
