# shellcheck shell=sh
# Installs the Debian packages that a script needs. Sourced, not run.
#
#   install_packages REASON PACKAGE...   when one of them is missing
#   install_win32_packages REASON        the cross compiler and the 32-bit Wine
#
#   $build_packages                      what every build needs beside its compiler
#
# They say what they install and why, and nothing when all is there. All they print goes to standard
# error. Where something could not be installed they return non-zero, with $missing listing it. On a
# system without apt-get they do nothing: the build says what it misses.

build_packages="cmake ninja-build libcli11-dev"

say() { echo "$*" >&2; }

# The command that stands for a package which may also have come in another way.
command_of() {
  case $1 in
    g++ | cmake | clang | clang-tidy | wine | pkg-config) echo "$1" ;;
    gnuplot-nox) echo gnuplot ;;
    ninja-build) echo ninja ;;
    g++-mingw-w64-i686-posix) echo i686-w64-mingw32-g++-posix ;;
  esac
}

is_present() {
  tool=$(command_of "$1")
  { [ -n "$tool" ] && command -v "$tool" >/dev/null; } ||
    dpkg-query -W -f '${db:Status-Status}\n' "$1" 2>/dev/null | grep -qx installed
}

# Prints those of the packages that are missing and can be had by apt-get.
missing_of() {
  command -v apt-get >/dev/null || return 0
  for package; do is_present "$package" || printf ' %s' "$package"; done
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

apt_get() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300 "$@" \
    </dev/null >&2
}

update_lists() {
  apt_get update || say "The package lists are not all up to date; going on with what there is"
}

# Whether packages can be installed here; says what stands in the way.
can_install() {
  if [ "$(id -u)" -eq 0 ] || command -v sudo >/dev/null; then return 0; fi
  say "Cannot install: this is neither root nor is there sudo"
  return 1
}

install_packages() {
  reason=$1
  shift
  missing=$(missing_of "$@")
  [ -n "$missing" ] || return 0
  say "Installing for $reason:$missing"
  can_install || return 1
  update_lists
  # Word splitting is meant: a list of package names.
  # shellcheck disable=SC2086
  apt_get install --no-install-recommends --no-remove $missing
}

# library_versions_of_both RELEASE: prints, as LIBRARY=VERSION, each library whose version here is
# not the one that the release has for 32 bits.
library_versions_of_both() {
  apt-cache depends --recurse --no-recommends --no-suggests --no-conflicts --no-breaks \
    --no-replaces --no-enhances wine32:i386 |
    sed -n 's/^\([a-z0-9.+-]*\):i386$/\1/p' | sort -u |
    while read -r library; do
      here=$(dpkg-query -W -f '${Version}' "$library:$(dpkg --print-architecture)" 2>/dev/null)
      there=$(apt-cache policy -t "$1" "$library:i386" | sed -n 's/^  Candidate: //p')
      if [ -n "$here" ] && [ -n "$there" ] && [ "$here" != "$there" ]; then
        echo "$library=$there"
      fi
    done
}

# All in one command, so that the packages for both architectures are chosen together. A library of
# both must have one version: where the lists hold an update for one architecture only, the second
# try takes what the release itself has, and steps back behind such an update.
install_win32_packages() {
  packages="g++-mingw-w64-i686-posix googletest wine wine32:i386"
  # shellcheck disable=SC2086
  missing=$(missing_of $packages)
  [ -n "$missing" ] || return 0
  say "Installing for $1:$missing"
  can_install || return 1
  as_root dpkg --add-architecture i386
  update_lists
  # shellcheck disable=SC2086
  apt_get install --no-install-recommends --no-remove $packages && return 0
  say "Trying again with the versions that there are for both architectures"
  release=$(. /etc/os-release && echo "$VERSION_CODENAME")
  # shellcheck disable=SC2046,SC2086
  apt_get install --no-install-recommends --no-remove --allow-downgrades -t "$release" \
    $packages $(library_versions_of_both "$release")
}
