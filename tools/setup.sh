# Installs what is missing of the packages named by the caller. Sourced by the scripts that build; takes
# --no-install out of their arguments, which then build with what is there. Scripts that they start hold
# to it as well.

export VELDRUNE_INSTALL=${VELDRUNE_INSTALL:-yes}
command -v apt-get >/dev/null || VELDRUNE_INSTALL=no
arguments=()
for argument in "$@"; do
    if [ "$argument" = --no-install ]; then
        VELDRUNE_INSTALL=no
    else
        arguments+=("$argument")
    fi
done
set -- "${arguments[@]}"

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

need() {
    [ "$VELDRUNE_INSTALL" = yes ] || return 0
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "About to install with apt: ${missing[*]}"
    echo "(--no-install builds with what is there.)"
    as_root apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

program_packages=(g++ cmake ninja-build qt6-base-dev libgl-dev libcli11-dev nlohmann-json3-dev libpng-dev)
build_packages=("${program_packages[@]}" libgtest-dev fonts-dejavu-core git)
