# What ./run, ./test and the other commands share: installing what is missing, and building a preset.
# Sourced by bash from the project's root.

say() { printf '== %s\n' "$*" >&2; }
fail() {
    printf '!! %s\n' "$*" >&2
    exit 1
}

# missing_of PACKAGE...: those of the Debian packages that are not there, one a line.
missing_of() {
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || printf '%s\n' "$package"
    done
}

# apt_install PACKAGE...: installs them, as root or through sudo; what apt-get says is in the file of its output.
apt_install() {
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update && "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y \
        --no-install-recommends "$@"
}

can_install() {
    command -v apt-get >/dev/null && { [ "$(id -u)" -eq 0 ] || command -v sudo >/dev/null; }
}

# install_missing PACKAGE...: installs the Debian packages that are not there yet, as root or through sudo.
install_missing() {
    local missing=() log
    mapfile -t missing < <(missing_of "$@")
    [ ${#missing[@]} -eq 0 ] && return
    can_install || fail "these packages are missing; run me with apt-get, as root or with sudo: ${missing[*]}"
    say "installing ${missing[*]}"
    log=$(mktemp)
    if ! apt_install "${missing[@]}" >"$log" 2>&1; then
        tail -n 20 "$log" >&2
        fail "apt-get could not install ${missing[*]} (the whole output is in $log)"
    fi
    rm -f "$log"
}

# install_if_possible PACKAGE...: the same for what the build makes use of but can be without.
install_if_possible() {
    local missing=()
    mapfile -t missing < <(missing_of "$@")
    [ ${#missing[@]} -eq 0 ] && return
    say "installing ${missing[*]}"
    if ! can_install || ! apt_install "${missing[@]}" >/dev/null 2>&1; then
        say "${missing[*]} can't be installed here; building without"
    fi
}

build_packages=(g++ cmake ninja-build libssl-dev libiniparser-dev)
# For the package support library of the machine's own apt.
optional_packages=(libapt-pkg-dev)
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
