# shellcheck shell=bash disable=SC2034
# Sourced by ./run, ./test and tests/long, beside steps.sh: what is needed to build, and how it gets here.

build_packages=(g++ cmake ninja-build qt6-base-dev qt6-svg-dev libqt6svg6 qt6-image-formats-plugins libleptonica-dev
  libqpdf-dev libpng-dev libgl1-mesa-dev python3)
test_packages=(locales poppler-utils qt6-base-private-dev libgtest-dev libbenchmark-dev clang-format clang-tidy
  desktop-file-utils appstream man-db xvfb openbox xdotool x11-utils imagemagick python3-pil xclip
  fonts-dejavu-core mandoc qpdf parallel librsvg2-bin shellcheck)
coverage_packages=(gcovr)
ear_packages=(orca at-spi2-core dbus-daemon)

is_installed() {
  [[ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" == installed ]]
}

# How many packages an installation brings with it, and what they take on the disk.
extent_of() {
  local said ask=(apt-get install --no-install-recommends -o Debug::NoLocking=1)
  said=$(LC_ALL=C "${ask[@]}" -s "$@" 2>/dev/null | grep -c '^Inst ') || true
  printf '%s packages' "${said:-some}"
  LC_ALL=C "${ask[@]}" --assume-no "$@" 2>/dev/null |
    sed -n 's/^After this operation, \(.*\) of additional disk space.*/, \1/p' || true
}

run_apt() {
  # Each package is fetched, unpacked and set up; one that is in apt's cache is not fetched.
  local steps=$((3 * $1))
  shift
  "$@" | number_lines '^(Get:|Unpacking |Setting up )' "$steps"
}

# Installs those of the named Debian packages that are missing. Touches nothing, and asks for no
# password, when all are there. On a system without dpkg it leaves the matter to its user.
install_missing() {
  local package missing=() become=() extent
  command -v dpkg-query >/dev/null || return 0
  for package in "$@"; do
    is_installed "$package" || missing+=("$package")
  done
  ((${#missing[@]})) || return 0
  if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
      echo "These packages are missing, and without sudo only root can install them: ${missing[*]}" >&2
      return 1
    fi
    become=(sudo)
    sudo apt-get --version >/dev/null # the password is asked for here, not in the middle of a line
  fi
  echo "Missing: ${missing[*]}"
  step "Asking for the newest packages" "${become[@]}" apt-get update
  extent=$(extent_of "${missing[@]}")
  step "Installing $extent" run_apt "${extent%% *}" "${become[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends "${missing[@]}"
}
