# Thin layer over the CMake presets. `make test` is all a fresh Debian 12 machine needs.
JOBS ?= $(shell nproc 2>/dev/null || echo 2)
FUZZ_SECONDS ?= 20

.PHONY: all deps build test hostile test-i386 test-sanitize test-optimized build-clang coverage \
	bench bench-build fuzz fuzz-run consumer demo install docs package check-packages clean format

all: build

# Line coverage of mota/ that `make coverage` must reach. Raise it when coverage rises; never
# lower it.
COVERAGE_LINE_FLOOR ?= 96.0

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

# examples/consumer built against a scratch install (find_package and pkg-config, C++17 and
# C++20) and with the sources as a subdirectory; `make test` runs these too.
consumer: build
	ctest --preset dev -L consumer

demo: build
	bash scripts/demo.sh build/dev

# The optimized build, without tests, into CMAKE_INSTALL_PREFIX (/usr/local unless given).
install: deps
	cmake --preset release $(if $(PREFIX),-DCMAKE_INSTALL_PREFIX=$(PREFIX))
	cmake --build --preset release -j $(JOBS)
	cmake --install build/release

# Debian packages libmota2.18, libmota-dev and mota-tools in build/package/packages/.
package: deps
	bash scripts/install-deps.sh package
	cmake --preset package
	cmake --build --preset package -j $(JOBS)
	cpack --preset package

# Builds the packages, checks their contents and lintian's verdict, installs them, builds a
# consumer against them and removes them again. Needs root (or sudo) for apt-get.
check-packages: deps
	bash scripts/install-deps.sh package
	bash scripts/check-packages.sh build/package

# The API reference of the public headers, in build/docs/html. Fails, listing them, on any
# Doxygen warning: an undocumented public name or a broken comment.
docs:
	bash scripts/install-deps.sh docs
	rm -rf build/docs && mkdir -p build/docs
	@doxygen docs/Doxyfile || { sort -u build/docs/warnings.log; \
	  echo "docs: $$(sort -u build/docs/warnings.log | grep -c '^/') Doxygen warnings"; exit 1; }
	@echo "docs: build/docs/html/index.html"

format:
	bash scripts/install-deps.sh format
	git ls-files '*.cpp' '*.hpp' | xargs clang-format -i

clean:
	rm -rf build
