# Thin wrapper over CMake. `make test` builds and runs every test, twice: a
# normal build and one under AddressSanitizer and UndefinedBehaviorSanitizer;
# then the tests that use worker threads once more under ThreadSanitizer;
# last the fuzz targets (clang's libFuzzer) for a bounded time each.
# `make install PREFIX=...` and `make package` install the program or make
# its Debian package.

JOBS ?= $(shell nproc)
BUILD ?= build
ASAN_BUILD ?= build-asan
TSAN_BUILD ?= build-tsan
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 20
PREFIX ?= /usr/local

.PHONY: all bootstrap build test test-fast test-asan test-tsan test-fuzz demo bench install package clean

all: build

bootstrap:
	@scripts/bootstrap

$(BUILD)/build.ninja: | bootstrap
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo

$(ASAN_BUILD)/build.ninja: | bootstrap
	cmake -S . -B $(ASAN_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DVELLUMDESK_SANITIZE=ON

build: bootstrap $(BUILD)/build.ninja
	cmake --build $(BUILD) -j $(JOBS)

test-fast: build
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

test-asan: bootstrap $(ASAN_BUILD)/build.ninja
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	cd $(ASAN_BUILD) && ASAN_OPTIONS=detect_leaks=1 ctest --output-on-failure -j $(JOBS)

# The code with worker threads under ThreadSanitizer, built without the Qt
# program: the scan's worker tests, the sort thread of a long list, the search
# and the SMTP sender.
$(TSAN_BUILD)/build.ninja: | bootstrap
	cmake -S . -B $(TSAN_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVELLUMDESK_TSAN=ON -DVELLUMDESK_GUI=OFF

test-tsan: bootstrap $(TSAN_BUILD)/build.ninja
	cmake --build $(TSAN_BUILD) -j $(JOBS) --target inbox_tests search_tests forwarding_tests
	cd $(TSAN_BUILD) && TSAN_OPTIONS=halt_on_error=1 ctest --output-on-failure -j $(JOBS) \
		-R 'inbox\.(ScanPipeline|MessageReader|Swaps|SortOffThread)|^search\.|^forwarding\.'

# The readers of outside bytes under libFuzzer: first the replay of the seeds
# and of every input that once failed (ctest), then each target for
# FUZZ_SECONDS on a copy of its seeds in the build folder.
$(FUZZ_BUILD)/build.ninja: | bootstrap
	CC=clang CXX=clang++ cmake -S . -B $(FUZZ_BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVELLUMDESK_FUZZ=ON

test-fuzz: bootstrap $(FUZZ_BUILD)/build.ninja
	cmake --build $(FUZZ_BUILD) -j $(JOBS) --target vellumdesk_fuzz
	cd $(FUZZ_BUILD) && ctest --output-on-failure -j $(JOBS)
	JOBS=$(JOBS) tests/fuzz/run-fuzzers $(FUZZ_BUILD) $(FUZZ_SECONDS)

test: test-fast test-asan test-tsan test-fuzz

demo: build
	scripts/run-demo $(BUILD)

bench: build
	bench/run-bench $(BUILD)

# `make install PREFIX=/opt/vellumdesk`; DESTDIR= stages it elsewhere.
install: build
	DESTDIR=$(DESTDIR) cmake --install $(BUILD) --prefix $(PREFIX)

# The Debian package, in the build folder.
package: build
	cmake --build $(BUILD) --target package

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(TSAN_BUILD) $(FUZZ_BUILD)
