# The two set-up commands of the README: `make run` and `make test`.
BUILD       ?= build
BUILD_ASAN  ?= build-asan
CMAKE_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo

.PHONY: all deps build run test test-sanitize bench clean

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

bench: build
	@$(BUILD)/bench/core_bench

clean:
	rm -rf $(BUILD) $(BUILD_ASAN)
