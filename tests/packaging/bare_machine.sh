#!/usr/bin/env bash
# Makes a Debian 12 with nothing but its base in MACHINE, a directory that is not there yet; installs the
# packages there; builds and shows each example as its page says, then the installed programs, builds the
# guide, and reads manual pages. Pictures and pages are left in OUT. The machine remains, for a look around.
#   bare_machine.sh MACHINE OUT PACKAGE.deb...        as root
set -euo pipefail

machine=$1
out=$2
shift 2
packages=("$@")
tests=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

((EUID == 0)) || { echo "bare_machine.sh: only root can" >&2 && exit 1; }
[[ ! -e $machine ]] || { echo "bare_machine.sh: $machine is there already" >&2 && exit 1; }

mounted=()
clean_up() {
    local i
    for ((i = ${#mounted[@]} - 1; i >= 0; i--)); do
        umount "${mounted[i]}" || umount --lazy "${mounted[i]}"
    done
}
trap clean_up EXIT

# mount_in DIRECTORY ARGUMENT...
mount_in() {
    mount "${@:2}" "$machine/$1"
    mounted+=("$machine/$1")
}

within() {
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root LC_ALL=C.UTF-8 DEBIAN_FRONTEND=noninteractive \
        CMAKE_BUILD_PARALLEL_LEVEL="$(nproc)" ${http_proxy:+http_proxy="$http_proxy"} chroot "$machine" "$@"
}

install_there() {
    within apt-get install -q -y "$@" </dev/null
}

read_page() {
    within env MANWIDTH=80 man "$1" >"$out/$1.txt"
    [[ -s $out/$1.txt ]] || { echo "bare_machine.sh: no page $1" >&2 && exit 1; }
}

mkdir -p "$out"
debootstrap --variant=minbase bookworm "$machine"
mount_in proc -t proc proc
mount_in sys --bind /sys
mount_in dev --bind /dev
mount_in dev/pts --bind /dev/pts
mount_in dev/shm -t tmpfs tmpfs

# The packages alone, with what they ask for themselves; then what the page of the examples says, and a server.
mkdir "$machine/packages" "$machine/tests"
cp "${packages[@]}" "$machine/packages"
within apt-get update -q
within bash -c 'apt-get install -q -y ./packages/*.deb' </dev/null
read -ra wanted < <(sed -n 's/^    apt install //p' "$machine/usr/share/corvidlmw/examples/README.md")
install_there --no-install-recommends "${wanted[@]}" xvfb man-db

cp "$tests/packaging/examples.sh" "$tests/guide/by_hand.sh" "$machine/tests"
within /tests/examples.sh /usr /tests/built apart
within /tests/examples.sh /usr /tests/installed installed
within /tests/by_hand.sh /usr/share/corvidlmw/docs/guide /usr /tests/guide
for way in built installed; do
    mkdir -p "$out/$way"
    cp "$machine/tests/$way"/*.png "$out/$way"
done

read_page XmGraph
read_page LmListAddItem
for page in "$machine"/usr/share/man/man1/corvidlmw-*; do
    page=${page##*/}
    read_page "${page%%.*}"
done
echo "Pictures and manual pages are in $out."
