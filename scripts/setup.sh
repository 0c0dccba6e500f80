#!/usr/bin/env bash
# Installs every Debian package the project needs to build, run and test.
#   scripts/setup.sh            what every build and test of this machine needs
#   scripts/setup.sh --cross    also the cross compilers and qemu-user of the
#                               armhf and aarch64 presets (about 110 MB to fetch,
#                               460 MB to unpack), kept apart from the rest
# Idempotent: when everything is installed it only asks dpkg and returns.
set -euo pipefail

packages=(
  cmake ninja-build g++ pkg-config
  dpkg-dev file              # cpack -G DEB: dpkg-shlibdeps and its ELF detection
  libboost-dev               # Boost.Any (host contract), Boost.PropertyTree (INI files)
  libkainjow-mustache-dev    # Mustache templates of the development host
  googletest libgtest-dev libgmock-dev
  clang libclang-rt-dev      # sanitizer and fuzzer runtimes
  clang-format               # scripts/check-format.sh
  clang-tidy                 # scripts/clang-tidy.sh
  g++-11                     # the plug-in built with GCC 11 (preset gcc11)
  gcovr                      # scripts/coverage.sh
  lintian                    # the packages as Debian checks them (scripts/check-package-policy.sh)
  valgrind
  strace                     # the count of state-file openings (tests/cli/one_opening.t)
  libbenchmark-dev hyperfine crudini   # benchmarks (bench/)
  abigail-tools              # abidw / abidiff: the binary contract guard
  python3-cram               # ktl-cli sessions as cram transcripts (tests/cli)
  libedit-dev                # line editing and history of the ktl-cli shell
  man-db groff-base          # the manual pages' rendering test (man --warnings)
  bash-completion bsdutils   # ktl-cli's bash completion; script(1) for the shell's test
  dpkg-dev file              # cpack's Debian dependency step (dpkg-shlibdeps)
  binutils                   # readelf and c++filt: scripts/check-plugin.sh
)
if [ "${1:-}" = "--cross" ]; then
  packages=(
    g++-arm-linux-gnueabihf g++-aarch64-linux-gnu   # the appliance builds (cmake/toolchains/)
    qemu-user                                       # runs their tests; no binfmt registration needed
    googletest                                      # GoogleTest's sources, built for the target
  )
fi

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q '^install ok installed$'; then
    missing+=("$p")
  fi
done

if [ "${#missing[@]}" -eq 0 ]; then
  exit 0
fi

echo "setup: installing ${missing[*]}"
if [ "$(id -u)" -ne 0 ]; then
  if command -v sudo >/dev/null 2>&1; then
    SUDO=sudo
  else
    echo "setup: these packages are missing and installing them needs root: ${missing[*]}" >&2
    exit 1
  fi
else
  SUDO=
fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null
