# shellcheck shell=bash disable=SC2034
# Sourced by ./run and ./test: what is needed to build, and how it gets here.

build_packages=(g++ cmake ninja-build qt6-base-dev libgl1-mesa-dev python3)
test_packages=(poppler-utils libgtest-dev libbenchmark-dev clang-format clang-tidy
  desktop-file-utils appstream man-db)

is_installed() {
  [[ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" == installed ]]
}

# Installs those of the named Debian packages that are missing. Touches nothing, and asks for no
# password, when all are there. On a system without dpkg it leaves the matter to its user.
install_missing() {
  local package missing=() become=()
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
  fi
  echo "Installing ${missing[*]}"
  "${become[@]}" apt-get update
  "${become[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y --no-install-recommends "${missing[@]}" </dev/null
}
