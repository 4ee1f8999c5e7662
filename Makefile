# Thin layer over the CMake presets. `make test` is all a fresh Debian 12 machine needs.
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
FUZZ_SECONDS ?= 20

.PHONY: all deps build test hostile test-i386 test-sanitize bench bench-build fuzz fuzz-run consumer demo install clean format

all: build

deps:
	bash scripts/install-deps.sh

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

# The whole suite on 32-bit x86. Exits 0 with an "i386: SKIPPED (reason)" line when the 32-bit
# toolchain cannot be installed here; any build or test failure once installed is an error.
test-i386: deps
	@reason=$$(bash scripts/install-i386.sh); rc=$$?; \
	if [ $$rc -eq 3 ]; then echo "i386: SKIPPED ($$reason)"; exit 0; fi; \
	if [ $$rc -ne 0 ]; then echo "$$reason"; exit $$rc; fi; \
	cmake --preset i386 && cmake --build --preset i386 -j $(JOBS) && ctest --preset i386 -j $(JOBS)

bench-build: deps
	cmake --preset bench
	cmake --build --preset bench -j $(JOBS)

bench: bench-build
	bash scripts/run-bench.sh build/bench

fuzz: deps
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
	git ls-files '*.cpp' '*.hpp' | xargs clang-format -i

clean:
	rm -rf build
