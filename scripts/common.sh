# Shared by the scripts: installs what is missing and builds. Sourced from the project's root.

# What building and running needs, from Debian.
build_packages=(cmake ninja-build g++ qt6-base-dev fonts-liberation)
# What a tour of the program without a display needs.
tour_packages=(python3 xvfb openbox xdotool imagemagick x11-utils qt6-gtk-platformtheme)
# What the tests need besides.
test_packages=(libgtest-dev googletest "${tour_packages[@]}")

say() { printf '== %s\n' "$*"; }

# Installs those of the named packages that are not there yet; asks no registry when none is missing.
need() {
    local missing=() package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    say "Installing ${missing[*]}"
    local root=()
    [ "$(id -u)" = 0 ] || root=(sudo)
    "${root[@]}" apt-get update -qq
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        "${missing[@]}" > /dev/null
}

# The version of the program.
version() { sed -n 's/^project(.*VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt; }

# Checks the layout of all code; changes nothing.
check_layout() {
    need clang-format
    say "Checking the layout"
    git ls-files -z '*.cpp' '*.h' | xargs -0 clang-format --dry-run --Werror
}

# Configures a preset and builds it, or only the targets named after it. Warnings are errors here. What was built in
# another place, before the folder was moved or copied, is configured anew.
build() {
    local preset=$1 fresh=()
    shift
    say "Building the $preset preset"
    grep -qsxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "build/$preset/CMakeCache.txt" || fresh=(--fresh)
    cmake --preset "$preset" "${fresh[@]}" -DCMAKE_COMPILE_WARNING_AS_ERROR=ON > /dev/null
    cmake --build --preset "$preset" ${1:+--target "$@"}
}

# Puts together in the folder of a preset what players download, and prints the name of that folder.
put_together() {
    local folder
    folder=morvane-extractor-$(version)
    rm -rf "build/$1/$folder"
    cmake --install "build/$1" --prefix "build/$1/$folder" --strip > /dev/null
    build/release/tools/make-demo-game demo "build/$1/$folder/demo"
    echo "$folder"
}

# Packs the demo game into build/demo, over one that was packed before there was a mark.
pack_demo() {
    [ -e build/demo/DEMO.TXT ] || rm -rf build/demo
    build/release/tools/make-demo-game demo build/demo
}

# Tours a program folder with the demo game, in a virtual display of its own; output goes into a folder.
tour() {
    pack_demo
    PYTHONDONTWRITEBYTECODE=1 python3 tests/tour/tour.py "$1" build/demo demo "$2"
}
