# Sourced by run, test and bench: installs the packages that are missing and builds a preset.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

# The "@" of a package's name stands for the engine's version (see engine_version).
packages=(g++ cmake ninja-build git pkg-config
          qt6-base-dev qt6-base-dev-tools libqt6sql6-odbc libgl1-mesa-dev
          firebird-dev firebird@-server-core firebird@-utils firebird@-server
          unixodbc-dev tdsodbc freetds-bin
          libgtest-dev libgmock-dev
          xvfb xauth openbox fonts-dejavu-core python3
          dbus at-spi2-core gir1.2-atspi-2.0 python3-gi)

as_root() { if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi; }

lists_updated=
update_lists() {
    [ -n "$lists_updated" ] || as_root env DEBIAN_FRONTEND=noninteractive apt-get update -qq
    lists_updated=yes
}

# "4.0": the version of the engine that this system develops for, whose packages carry it in their names.
engine_version() { LC_ALL=C apt-cache policy firebird-dev | sed -nE 's/^ *Candidate: ([0-9]+\.[0-9]+)\..*/\1/p'; }

# Installs what dpkg does not know as installed; quiet, so that the build's own words stay readable.
install_packages() {
    local missing=() engine
    [ -n "$(engine_version)" ] || update_lists
    engine=$(engine_version)
    for package in "${@//@/$engine}"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' || missing+=("$package")
    done
    [ ${#missing[@]} = 0 ] && return
    echo "Installing ${missing[*]}"
    update_lists
    # The server package would start a service; only its program is used. A machine that has a rule for services keeps it.
    local rule=/usr/sbin/policy-rc.d ours=
    if [ ! -e "$rule" ]; then
        ours=yes
        printf '#!/bin/sh\nexit 101\n' | as_root tee "$rule" >/dev/null
        as_root chmod +x "$rule"
    fi
    local log status=0
    log=$(mktemp)
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" \
        >"$log" 2>&1 || status=$?
    [ -z "$ours" ] || as_root rm -f "$rule"
    [ $status = 0 ] || cat "$log"
    rm -f "$log"
    return $status
}

# build_preset PRESET [TARGET...]
build_preset() {
    local preset=$1
    shift
    local launcher=()
    command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    local told
    told=$(cd "$root" && cmake --preset "$preset" "${launcher[@]}" 2>&1) || { echo "$told"; exit 1; }
    (cd "$root" && cmake --build --preset "$preset" -j"$(nproc)" ${1:+--target "$@"})
}
