#!/usr/bin/env bash
# Builds a static wxMSW 3.2 for the mingw-w64 cross build, from Debian's source package, into a
# cache outside the repository, and prints the installation prefix.
#
# The cache entry is named by a key made of the wx source version, the configure flags and the
# compiler version; it is built only when no complete entry with that key exists (the marker
# file .complete is written last). wx-config in the prefix is an absolute symlink, so the cache
# stays at a fixed path: TGX_WINDOWS_CACHE, else ~/.cache/tgx-windows.
set -euo pipefail

WX_SOURCE_PACKAGE=wxwidgets3.2
WX_SOURCE_VERSION=3.2.2+dfsg-2          # Debian 12's version, the one the Linux build uses
HOST=x86_64-w64-mingw32
CXX_COMPILER=$HOST-g++-posix            # the posix thread model: std::thread exists

cache=${TGX_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tgx-windows}

# The +dfsg tarball has no bundled png, jpeg, tiff or expat: they are off (nothing of ours uses
# them, and SVG needs png); zlib comes from libz-mingw-w64-dev. Everything the tool needs stays:
# core and base, wxGrid, the common dialogs, wxRegKey, wxFileConfig.
configure_flags=(
  --host=$HOST --build=x86_64-pc-linux-gnu --with-msw --disable-shared
  --with-zlib=sys --with-regex=builtin
  --without-libpng --without-libjpeg --without-libtiff --without-expat --without-liblzma
  --without-opengl --disable-svg --disable-webview --disable-mediactrl --disable-stc
  --disable-richtext --disable-xrc --disable-aui --disable-propgrid --disable-ribbon
  --disable-html --disable-webrequest --disable-sound
)

compiler_version="$($CXX_COMPILER -dumpfullversion) ($(dpkg-query -W -f='${Package} ${Version}' g++-mingw-w64-x86-64-posix))"
key_text="wx $WX_SOURCE_VERSION
flags ${configure_flags[*]}
compiler $compiler_version"
key=$(printf '%s\n' "$key_text" | sha256sum | cut -c1-16)
prefix=$cache/wxmsw-${WX_SOURCE_VERSION%%+*}-$key

if [ -f "$prefix/.complete" ]; then
  echo "$prefix"
  exit 0
fi

mkdir -p "$cache"
# One builder at a time; a second one waits and then finds the entry complete.
exec 9>"$prefix.lock"
flock 9
if [ -f "$prefix/.complete" ]; then
  echo "$prefix"
  exit 0
fi

work=$cache/work-$key
rm -rf "$work" "$prefix"
mkdir -p "$work/apt/lists/partial" "$work/src"
echo "wxMSW: building $prefix (8 to 12 minutes on 2 cores)" >&2

# Source lines are not configured on the machine: a private apt configuration fetches the
# source package without touching the system's.
cat > "$work/apt/debian-src.sources" <<SOURCES
Types: deb-src
URIs: http://deb.debian.org/debian
Suites: bookworm
Components: main
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
SOURCES
apt_options=(-o Dir::Etc::SourceList=/dev/null -o "Dir::Etc::SourceParts=$work/apt"
             -o "Dir::State::Lists=$work/apt/lists" -o Debug::NoLocking=1
             -o "APT::Sandbox::User=$(id -un)")
apt-get "${apt_options[@]}" -qq update >&2
(cd "$work/src" && apt-get "${apt_options[@]}" -qq source --download-only \
  "$WX_SOURCE_PACKAGE=$WX_SOURCE_VERSION" >&2)
tar -xf "$work"/src/${WX_SOURCE_PACKAGE}_${WX_SOURCE_VERSION%-*}.orig.tar.* -C "$work/src"
source_dir=$(find "$work/src" -mindepth 1 -maxdepth 1 -type d -name 'wxWidgets*' | head -n1)

mkdir -p "$work/build"
(cd "$work/build" &&
  PKG_CONFIG=false CXX=$CXX_COMPILER CC=$HOST-gcc-posix \
    "$source_dir/configure" --prefix="$prefix" "${configure_flags[@]}" >configure.log 2>&1 ||
    { tail -n 40 configure.log >&2; exit 1; }
  make -j"$(nproc)" >make.log 2>&1 || { tail -n 40 make.log >&2; exit 1; }
  make install >install.log 2>&1 || { tail -n 40 install.log >&2; exit 1; })

printf '%s\n' "$key_text" > "$prefix/key.txt"
rm -rf "$work"
touch "$prefix/.complete"
echo "$prefix"
