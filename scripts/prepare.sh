# What ./run, ./test and the other commands share: installing what is missing, and building a preset.
# Sourced by bash from the project's root.

say() { printf '== %s\n' "$*" >&2; }
fail() {
    printf '!! %s\n' "$*" >&2
    exit 1
}

# install_missing PACKAGE...: installs the Debian packages that are not there yet, as root or through sudo.
install_missing() {
    local missing=() package as_root=()
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    command -v apt-get >/dev/null || fail "these packages are missing and there is no apt-get to install them: ${missing[*]}"
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "these packages are missing; run me as root or install sudo: ${missing[*]}"
        as_root=(sudo)
    fi
    say "installing ${missing[*]}"
    local log
    log=$(mktemp)
    if ! { "${as_root[@]}" apt-get update && "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y \
        --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        fail "apt-get could not install ${missing[*]} (the whole output is in $log)"
    fi
    rm -f "$log"
}

build_packages=(g++ cmake ninja-build libssl-dev libiniparser-dev)
test_packages=(libgtest-dev libgmock-dev)

# configure PRESET [OPTION...]: configures a preset, with ccache where it is present.
configure() {
    local preset=$1
    shift
    local launcher=()
    if command -v ccache >/dev/null; then
        launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    fi
    cmake --preset "$preset" "${launcher[@]}" "$@" >/dev/null || fail "the build could not be configured"
}

# build PRESET [TARGET...]: builds a configured preset; what the compiler says comes out where it fails.
build() {
    local preset=$1 log
    shift
    log=$(mktemp)
    if ! cmake --build --preset "$preset" ${1:+--target "$@"} >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        fail "the build failed"
    fi
    rm -f "$log"
}
