# Thin layer over the CMake presets. `make test` is all a fresh Debian 12 machine needs.
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
FUZZ_SECONDS ?= 20

.PHONY: all deps build test hostile test-i386 test-sanitize test-optimized build-clang coverage \
	bench bench-build fuzz fuzz-run consumer demo install clean format

all: build

# Line coverage of mota/ that `make coverage` must reach. Raise it when coverage rises; never
# lower it.
COVERAGE_LINE_FLOOR ?= 94.1

deps:
	bash scripts/install-deps.sh build

build: deps
	cmake --preset dev
	cmake --build --preset dev -j $(JOBS)

test: build
	ctest --preset dev -j $(JOBS)

# Deep, huge, wide and blocking input, each case in a child with time and memory limits; fails
# when one crashes, hangs, answers wrong or grows much faster than its input.
hostile: build
	bash scripts/hostile.sh build/dev

test-sanitize: deps
	cmake --preset sanitize
	cmake --build --preset sanitize -j $(JOBS)
	ctest --preset sanitize -j $(JOBS)

# The suite as users build the library: optimized, with debug information.
test-optimized: deps
	cmake --preset optimized
	cmake --build --preset optimized -j $(JOBS)
	ctest --preset optimized -j $(JOBS)

# Everything built with clang, warnings as errors, and its tests run.
build-clang: deps
	bash scripts/install-deps.sh clang
	cmake --preset clang
	cmake --build --preset clang -j $(JOBS)
	ctest --preset clang -j $(JOBS)

# The suite on an instrumented build, then line and branch coverage of mota/ (tests excluded).
coverage: deps
	bash scripts/install-deps.sh coverage
	find build/coverage -name '*.gcda' -delete 2>/dev/null || true
	cmake --preset coverage
	cmake --build --preset coverage -j $(JOBS)
	ctest --preset coverage -j $(JOBS)
	bash scripts/coverage.sh build/coverage $(COVERAGE_LINE_FLOOR)

# The whole suite on 32-bit x86. Exits 0 with an "i386: SKIPPED (reason)" line when the 32-bit
# toolchain cannot be installed here; any build or test failure once installed is an error.
test-i386: deps
	@reason=$$(bash scripts/install-i386.sh); rc=$$?; \
	if [ $$rc -eq 3 ]; then echo "i386: SKIPPED ($$reason)"; exit 0; fi; \
	if [ $$rc -ne 0 ]; then echo "$$reason"; exit $$rc; fi; \
	cmake --preset i386 && cmake --build --preset i386 -j $(JOBS) && ctest --preset i386 -j $(JOBS)

bench-build: deps
	bash scripts/install-deps.sh bench
	cmake --preset bench
	cmake --build --preset bench -j $(JOBS)

bench: bench-build
	bash scripts/run-bench.sh build/bench

fuzz: deps
	bash scripts/install-deps.sh fuzz
	cmake --preset fuzz
	cmake --build --preset fuzz -j $(JOBS)

fuzz-run: fuzz
	bash scripts/run-fuzz.sh build/fuzz $(FUZZ_SECONDS)

consumer: build
	bash scripts/check-consumer.sh build/dev

demo: build
	bash scripts/demo.sh build/dev

install: build
	cmake --install build/dev

format:
	bash scripts/install-deps.sh format
	git ls-files '*.cpp' '*.hpp' | xargs clang-format -i

clean:
	rm -rf build
