# shellcheck shell=bash
# What the scripts here share. Source it first: it ends the calling script at the first failure and leaves it in the
# root of the checkout.

set -euo pipefail

self="$(readlink -f "$0")"
root="$(cd "$(dirname "$(readlink -f "${BASH_SOURCE[0]}")")/.." && pwd)"
cd "$root"

say() { printf '%s: %s\n' "${0##*/}" "$*" >&2; }
die() {
    say "$*"
    exit 1
}

# Runs a step and says plainly which one failed.
step() {
    local what=$1
    shift
    say "$what"
    "$@" || die "$what: failed ($(cut -c 1-200 <<< "$*"))"
}

# As root (or through sudo) in somebody's checkout, goes on as its owner, so that no build folder is left behind that the
# owner cannot write. Takes the arguments of the calling script.
continue_as_owner() {
    local owner
    owner=$(stat -c %U "$root")
    if [ "$(id -u)" -ne 0 ] || [ "$owner" = root ] || [ "$owner" = UNKNOWN ]; then
        return
    fi
    if [ "$(stat -c %U "${XDG_RUNTIME_DIR:-/}" 2> /dev/null)" != "$owner" ]; then
        unset XDG_RUNTIME_DIR DBUS_SESSION_BUS_ADDRESS # root's, of which the owner may use nothing
    fi
    exec runuser -u "$owner" -- "$self" "$@"
}

# What follows the preset goes to the build, such as --target.
build_preset() {
    local preset=$1
    shift
    step "Configuring ($preset)" cmake --preset "$preset"
    step "Building ($preset)" cmake --build --preset "$preset" "$@"
}
