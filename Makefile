# The two set-up commands of the README: `make run` and `make test`.
BUILD       ?= build
BUILD_ASAN  ?= build-asan
CMAKE_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo

.PHONY: all deps build run test test-sanitize test-share screenshots bench clean

all: build

deps:
	@bash scripts/install-deps.sh

build: deps
	@cmake -S . -B $(BUILD) $(CMAKE_FLAGS) >/dev/null
	@cmake --build $(BUILD)

run: build
	@bash scripts/run.sh $(abspath $(BUILD))

test: build
	@bash scripts/test.sh $(BUILD)

# The tests once more, built with AddressSanitizer and UndefinedBehaviorSanitizer.
test-sanitize: deps
	@cmake -S . -B $(BUILD_ASAN) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DTGX_SANITIZE=ON -DTGX_BUILD_BENCH=OFF >/dev/null
	@cmake --build $(BUILD_ASAN)
	@ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1 bash scripts/test.sh $(BUILD_ASAN)

# The user guide's pictures (docs/images/), taken by the GUI tests under a window manager.
screenshots: build
	@bash scripts/screenshots.sh $(BUILD)

# The tests' share of the code's lines (at most 40 %).
test-share:
	@bash scripts/test-share.sh

# The picture of the rooms and their includes in docs/ARCHITECTURE.md (Graphviz).
.PHONY: rooms
rooms:
	@python3 scripts/check_rooms.py --svg docs/rooms.svg

bench: build
	@bash scripts/bench.sh $(BUILD)

# Bad input at scale (large files, a tool printing without end): figures, not part of the tests.
.PHONY: stress
stress: build
	@bash scripts/stress.sh $(BUILD)

# The fuzz harnesses of fuzz/ (clang, libFuzzer, ASan, UBSan; build-fuzz/), each run for
# FUZZ_SECONDS; fuzz-ci runs each briefly, for a CI job.
BUILD_FUZZ   ?= build-fuzz
FUZZ_SECONDS ?= 60
.PHONY: fuzz fuzz-ci
fuzz:
	@bash scripts/fuzz.sh $(FUZZ_SECONDS) $(BUILD_FUZZ)

fuzz-ci:
	@bash scripts/fuzz.sh 10 $(BUILD_FUZZ)

clean:
	rm -rf $(BUILD) $(BUILD_ASAN)

# The Windows flavour, cross-built with mingw-w64 against a static wxMSW cached outside the
# repository (scripts/windows/), tested under Wine, packaged as an MSI; and the Linux .deb.
BUILD_WINDOWS ?= build-windows
BUILD_DEB     ?= build-deb

.PHONY: windows test-windows package-windows package-deb clean-windows

windows:
	@bash scripts/windows/build.sh $(BUILD_WINDOWS)

test-windows: windows
	@bash scripts/windows/test.sh $(BUILD_WINDOWS)

package-windows: windows
	@cmake --build $(BUILD_WINDOWS) --target msi
	@bash scripts/windows/check-msi.sh $(BUILD_WINDOWS)/tgxconfig-*-x64.msi

# tgxconfig and the try-it package tgxconfig-simulator, checked by scripts/check-deb.sh: lintian
# (fails on any error or warning), desktop-file-validate, appstreamcli and the completion test.
# CPack's dependency list needs dpkg-shlibdeps (dpkg-dev) and file.
DEB_TOOLS = dpkg-dev file help2man pandoc lintian desktop-file-utils appstream bash-completion

package-deb: deps
	@bash scripts/install-deps.sh $(DEB_TOOLS)
	@cmake -S . -B $(BUILD_DEB) -G Ninja -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr \
	  -DTGX_BUILD_TESTS=OFF -DTGX_BUILD_BENCH=OFF -DTGX_PACKAGE_DEB=ON >/dev/null
	@cmake --build $(BUILD_DEB)
	@rm -f $(BUILD_DEB)/*.deb
	@cd $(BUILD_DEB) && cpack -G DEB >/dev/null
	@bash scripts/check-deb.sh $(BUILD_DEB)

# The cached wxMSW and GoogleTest stay (scripts/windows/wxmsw.sh says where).
clean-windows:
	rm -rf $(BUILD_WINDOWS)
