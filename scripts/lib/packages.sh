# shellcheck shell=sh
# Installs the Debian packages that a script needs. Sourced, not run.
#
#   install_packages REASON PACKAGE...   when one of them is missing
#   install_win32_packages REASON        the cross compiler and the 32-bit Wine
#
# They say what they install and why, and nothing when all is there. All they print goes to standard
# error. They return non-zero when something is still missing afterwards.

say() { echo "$*" >&2; }

# The command that stands for a package which may also have come in another way.
command_of() {
  case $1 in
    g++ | cmake | clang | wine | pkg-config) echo "$1" ;;
    ninja-build) echo ninja ;;
    g++-mingw-w64-i686-posix) echo i686-w64-mingw32-g++-posix ;;
  esac
}

is_present() {
  tool=$(command_of "$1")
  { [ -n "$tool" ] && command -v "$tool" >/dev/null; } ||
    dpkg-query -W -f '${db:Status-Status}\n' "$1" 2>/dev/null | grep -qx installed
}

# Prints those of the packages that are missing.
missing_of() {
  for package; do is_present "$package" || printf '%s ' "$package"; done
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

apt_get() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -y -o DPkg::Lock::Timeout=300 "$@" \
    </dev/null >&2
}

# Whether packages can be installed here; says what stands in the way.
can_install() {
  if ! command -v apt-get >/dev/null; then
    say "cannot install on this system: it has no apt-get"
  elif [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
    say "cannot install: neither root nor sudo"
  else
    return 0
  fi
  return 1
}

install_packages() {
  reason=$1
  shift
  missing=$(missing_of "$@")
  [ -n "$missing" ] || return 0
  say "Installing for $reason: $missing"
  can_install || return 1
  apt_get -q update || say "the package lists are not all up to date; going on with what there is"
  # Word splitting is meant: a list of package names.
  # shellcheck disable=SC2086
  apt_get -q install --no-install-recommends $missing
}

# Prints, as LIBRARY=VERSION, what to install for both architectures where the version of a 64-bit
# library here is not the one that there is for 32 bits: the two have to be the same.
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

# All in one command, so that the packages for both architectures are chosen together, and from the
# release itself: a library that has an update for one architecture only cannot stand beside its
# twin.
install_win32_packages() {
  packages="g++-mingw-w64-i686-posix googletest wine wine32:i386"
  # shellcheck disable=SC2086
  missing=$(missing_of $packages)
  [ -n "$missing" ] || return 0
  say "Installing for $1: $missing"
  can_install || return 1
  release=$(. /etc/os-release && echo "$VERSION_CODENAME")
  as_root dpkg --add-architecture i386
  apt_get -q update || say "the package lists are not all up to date; going on with what there is"
  # shellcheck disable=SC2086
  apt_get -q install --no-install-recommends -t "$release" $packages && return 0
  say "Trying again with the versions that there are for both architectures"
  # shellcheck disable=SC2046,SC2086
  apt_get -q install --no-install-recommends -t "$release" --allow-downgrades \
    $packages $(library_versions_of_both "$release")
}
