# Sourced by the scripts beside it, which run in this order on a Mac: deploy, sign, notarize, make-disk-image.
set -euo pipefail

packaging=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$packaging/../.." && pwd)
# BRIVANDEL_APP: the bundle that is worked on.
app=${BRIVANDEL_APP:-$root/build/release/bin/Brivandel.app}
# BRIVANDEL_DISK_IMAGE: the disk image that is made.
disk_image=${BRIVANDEL_DISK_IMAGE:-$root/build/release/Brivandel.dmg}

# need VARIABLE MEANING: ends the script when the variable is not set.
need() {
  if [ -z "${!1:-}" ]; then
    echo "$(basename "$0"): set $1: $2" >&2
    exit 2
  fi
}

need_app() {
  if [ ! -d "$app" ]; then
    echo "$(basename "$0"): there is no $app; build it first (script/run), or set BRIVANDEL_APP" >&2
    exit 1
  fi
}
