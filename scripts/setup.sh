# Sourced by run, test and bench: installs the packages that are missing and builds a preset.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

packages=(g++ cmake ninja-build git pkg-config
          qt6-base-dev qt6-base-dev-tools libqt6sql6-odbc libqt6svg6 libgl1-mesa-dev
          firebird-dev firebird3.0-server-core firebird3.0-utils firebird3.0-server
          unixodbc-dev tdsodbc freetds-bin
          libgtest-dev libgmock-dev
          xvfb fonts-dejavu-core python3)

as_root() { if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi; }

# Installs what dpkg does not know as installed; quiet, so that the build's own words stay readable.
install_packages() {
    local missing=()
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q '^install ok installed$' || missing+=("$package")
    done
    [ ${#missing[@]} = 0 ] && return
    echo "Installing ${missing[*]}"
    # The server package would start a service and ask for a password; only its binary is used.
    printf '#!/bin/sh\nexit 101\n' | as_root tee /usr/sbin/policy-rc.d >/dev/null
    as_root chmod +x /usr/sbin/policy-rc.d
    as_root env DEBIAN_FRONTEND=noninteractive apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" \
        >/tmp/vorta-packages.log 2>&1 || { cat /tmp/vorta-packages.log; exit 1; }
    as_root rm -f /usr/sbin/policy-rc.d
}

# build_preset PRESET [TARGET...]
build_preset() {
    local preset=$1
    shift
    local launcher=()
    command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    (cd "$root" && cmake --preset "$preset" "${launcher[@]}" >/tmp/vorta-configure.log 2>&1) ||
        { cat /tmp/vorta-configure.log; exit 1; }
    (cd "$root" && cmake --build --preset "$preset" -j"$(nproc)" ${1:+--target "$@"})
}
