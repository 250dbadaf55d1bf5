#!/usr/bin/env bash
# Builds a target library root for a cross build from Debian's own packages of the target
# architecture: `apt-get download` into a private apt state (so the machine's dpkg
# architectures and package lists are left as they are), then `dpkg -x` into one folder.
#
#   tools/cross-sysroot.sh ARCH DIR     ARCH: armhf | arm64
#
# The folder holds the C library and the project's libraries with their headers; the cross
# compiler keeps its own C library headers. qemu-user runs the test binaries with this
# folder as its prefix (-L). Exit status 3 means that the archive could not supply the
# packages (a mirror out of step, no network): callers may skip the cross build on it.
set -euo pipefail

arch=${1:?architecture (armhf or arm64)}
root=${2:?target folder}

case "$arch" in
    armhf) triple=arm-linux-gnueabihf ;;
    arm64) triple=aarch64-linux-gnu ;;
    *) echo "cross-sysroot: unknown architecture '$arch'" >&2; exit 2 ;;
esac

# Runtime libraries for the emulator first, then what the project links, then what those
# libraries need at link and run time. The text shaping pair and their pkg-config chain are
# here already so that the shaping code builds for the target as soon as it lands.
PACKAGES=(
    libc6 libgcc-s1 libstdc++6
    zlib1g zlib1g-dev
    libpng16-16 libpng-dev
    libjpeg62-turbo libjpeg62-turbo-dev
    libfreetype6 libfreetype-dev libbrotli1 libbrotli-dev
    libtinyxml2.6.2v5 libtinyxml-dev
    libharfbuzz0b libharfbuzz-dev libglib2.0-0 libglib2.0-dev libpcre2-8-0 libpcre2-dev
    libgraphite2-3 libgraphite2-dev libffi8 libmount1 libblkid1 libselinux1
    libfribidi0 libfribidi-dev
    libqrencode4 libqrencode-dev
    libgtest-dev libgmock-dev
)

stamp="$root/.packages"
wanted="$arch ${PACKAGES[*]}"
if [ -f "$stamp" ] && [ "$(cat "$stamp")" = "$wanted" ]; then
    echo "cross-sysroot: $root is up to date"
    exit 0
fi

work="$root.download"
rm -rf "$work"
mkdir -p "$work/lists/partial" "$work/cache/archives/partial" "$work/debs"
: >"$work/status"
apt_opts=(
    -o "Dir::State=$work" -o "Dir::State::Lists=$work/lists" -o "Dir::State::status=$work/status"
    -o "Dir::Cache=$work/cache" -o "APT::Architecture=$arch" -o "APT::Architectures=$arch"
    -o "APT::Sandbox::User=root" -o "Debug::NoLocking=1" -q
)

echo "cross-sysroot: reading the $arch package index"
# One index out of step (a mirror syncing the security suite) still leaves the others
# usable; the download below says whether they were enough.
if ! apt-get "${apt_opts[@]}" update >"$work/update.log" 2>&1; then
    grep '^E:' "$work/update.log" >&2 || true
    echo "cross-sysroot: warning: apt-get update for $arch was incomplete; going on" >&2
fi
echo "cross-sysroot: downloading ${#PACKAGES[@]} $arch packages"
if ! (cd "$work/debs" && apt-get "${apt_opts[@]}" download "${PACKAGES[@]}") >"$work/download.log" 2>&1; then
    cat "$work/download.log" >&2
    echo "cross-sysroot: the archive cannot supply the $arch packages" >&2
    exit 3
fi

rm -rf "$root"
mkdir -p "$root"
for deb in "$work"/debs/*.deb; do
    dpkg -x "$deb" "$root"
done

# Debian's -dev symlinks are absolute (/lib/...): point them into the folder so that the
# linker, given this root, finds the real files.
find "$root" -type l -lname '/*' | while read -r link; do
    target=$(readlink "$link")
    ln -sfn "$root$target" "$link"
done

# Every shared library must find what it needs inside the folder (or the cross compiler's
# own C library): a short package list shows up here, not as a puzzling link error.
missing=0
for so in $(find "$root" -name '*.so*' -type f); do
    for need in $(LC_ALL=C readelf -d "$so" 2>/dev/null | sed -n 's/.*Shared library: \[\(.*\)\]/\1/p'); do
        if [ -z "$(find "$root/lib" "$root/usr/lib" -name "$need" -print -quit 2>/dev/null)" ]; then
            echo "cross-sysroot: $so needs $need, which no package of the list provides" >&2
            missing=1
        fi
    done
done
[ "$missing" -eq 0 ] || exit 1

rm -rf "$work"
echo "$wanted" >"$stamp"
echo "cross-sysroot: $root ready for $triple"
