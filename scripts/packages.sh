# The Debian 12 packages that the project stands on, each named once. Sourced by ./run, ./test and .ci/run.
# shellcheck shell=bash

packages_build=(
  ca-certificates
  cmake
  g++
  ninja-build
  pkg-config
  ccache
  qt6-base-dev
  libxcb1-dev # finds the launcher's window
  qt6-translations-l10n # the toolkit's own windows in Spanish, loaded at run time
  libqt6sql6-sqlite # the database drivers, which Qt loads at run time
  libqt6sql6-psql
  libsqlite3-dev
  libpq-dev
  libsodium-dev
  libfccp-dev
  fonts-liberation # the print-outs' fixed-width letter
  libpq5 # its licence goes with the programs
)

packages_test=(
  postgresql-15 # a private server for the tests, and for nothing else
  openssl # certificates of the tests' own
  libgtest-dev
  libgmock-dev
  clang-format
  python3
  poppler-utils # reads printed pages back
  xvfb # the programs with windows are tried on a screen of the tests' own
  openbox
  xdotool
  imagemagick # pictures of that screen
)

packages_package=(
  dpkg-dev # finds the libraries that the package needs
  file
  desktop-file-utils
  appstream
)

packages_windows=(
  g++-mingw-w64-x86-64-posix # with what packages_build names: Qt's tools for this machine, the letter, the CSV library
  qt6-base-dev-tools
  libgtest-dev # brings GoogleTest's sources
  librsvg2-bin # draws the icons that the programs carry
  imagemagick
  wine64 # runs what comes out
  python3
  poppler-utils # reads printed pages back
  xvfb # the programs with windows are tried on a screen of the tests' own
  openbox
  xdotool
)

packages_windows_package=(
  nsis # makes the installer
)

packages_windows_libraries=(
  perl
  tcl
  autoconf
  automake
  libtool
  make
  dpkg-dev
  postgresql-client-common
)

packages_clang=(
  clang # the sanitizers, and the fuzzers
)

packages_tidy=(
  clang-tidy
)

# Installs what is missing of the named packages, and so does nothing the second time.
install_packages() {
  local missing=() package
  for package in "$@"; do
    [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || missing+=("$package")
  done
  ((${#missing[@]})) || return 0

  local as_root=()
  if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing, and only root can install them:" >&2
      echo "  apt-get install ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo)
  fi
  echo "Installing ${missing[*]}"
  if ! { "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq update &&
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
      apt-get -qq install --yes --no-install-recommends "${missing[@]}"; } </dev/null >&2; then
    echo "The packages could not be installed. With a network, try again, or by hand:" >&2
    echo "  apt-get install ${missing[*]}" >&2
    return 1
  fi
}
