# Convenience wrapper around CMake. `make test` is what CI runs.
BUILD ?= build
SANITIZE_BUILD ?= build-sanitize
BENCH_BUILD ?= build-bench
JOBS ?= 2
PREFIX ?= /usr/local

WIN64_BUILD ?= build-win64
WIN32_BUILD ?= build-win32
MINGW_PACKAGES = g++-mingw-w64-x86-64 g++-mingw-w64-i686 binutils-mingw-w64
WINE_PACKAGES = wine wine64 xvfb xauth imagemagick

.PHONY: all configure run test install bench sanitize fuzz tsan clean windows windows-test octave octave-test dist-windows calc calc-test

all: configure
	@cmake --build $(BUILD) -j $(JOBS) -- --no-print-directory

# Packages that tests use when they are there (numpy, dask, iapws as a second implementation,
# pip/venv/wheel for the wheel test, rsvg-convert), and Google Highway for the vector kernels of
# libtavlib6x; failing to install them (no root, no network) only makes those tests skip, and
# the batch library keeps its per-element path.
TEST_PACKAGES = python3-numpy python3-dask python3-iapws python3-pip python3-venv python3-setuptools python3-wheel librsvg2-bin libhwy-dev

configure:
	@test -f $(BUILD)/CMakeCache.txt || cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release

# Builds the library and the tvl command (not the tests), then prints a small steam table
# through tvl.
run: configure
	@cmake --build $(BUILD) -j $(JOBS) --target tavlib6 tvl -- --no-print-directory
	@sh tools/steam_table.sh $(BUILD)/tvl

# Octave and its MEX compiler for the octave_mex test, which skips without them.
OCTAVE_PACKAGES = octave liboctave-dev

# The tests need GoogleTest: a build directory configured without it has them switched on here.
test:
	-@sh tools/install_packages.sh $(TEST_PACKAGES) $(OCTAVE_PACKAGES) $(CALC_PACKAGES)
	@sh tools/install_packages.sh libgtest-dev
	@$(MAKE) --no-print-directory configure
	@grep -q '^TAVLIB6_TESTS:BOOL=ON' $(BUILD)/CMakeCache.txt || cmake -S . -B $(BUILD) -DTAVLIB6_TESTS=ON > /dev/null
	@$(MAKE) --no-print-directory all
	cd $(BUILD) && ctest -j $(JOBS) --output-on-failure

# LibreOffice Calc: the extension build/tavlib6.oxt (a worksheet function per export), and the test
# that calculates a sheet of formulas with it in a headless LibreOffice against tvl (also in
# `make test`, as ctest's calc_extension; skipped where LibreOffice cannot be installed).
CALC_PACKAGES = libreoffice-calc python3-uno libreoffice-script-provider-python libreoffice-dev

calc: configure
	@sh tools/install_packages.sh $(CALC_PACKAGES)
	cmake --build $(BUILD) -j $(JOBS) --target tavlib6
	sh hosts/calc/build.sh $(BUILD)

calc-test: configure
	-@sh tools/install_packages.sh $(CALC_PACKAGES)
	cmake --build $(BUILD) -j $(JOBS) --target tavlib6 tvl
	python3 tests/hosts/calc_test.py $(BUILD) || [ $$? -eq 77 ]

# The libraries, headers, tvl, the CMake package and the pkg-config files under PREFIX.
install: configure
	cmake --build $(BUILD) -j $(JOBS) --target tavlib6 tavlib6x tvl
	cmake --install $(BUILD) --prefix $(PREFIX)

bench:
	@test -f $(BENCH_BUILD)/CMakeCache.txt || cmake -S . -B $(BENCH_BUILD) -DCMAKE_BUILD_TYPE=Release -DTAVLIB6_TESTS=OFF -DTAVLIB6_BENCH=ON
	cmake --build $(BENCH_BUILD) -j $(JOBS) --target tavlib6_bench
	$(BENCH_BUILD)/bench/tavlib6_bench

sanitize:
	@test -f $(SANITIZE_BUILD)/CMakeCache.txt || cmake -S . -B $(SANITIZE_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTAVLIB6_SANITIZE=ON -DTAVLIB6_TESTS=ON
	cmake --build $(SANITIZE_BUILD) -j $(JOBS)
	cd $(SANITIZE_BUILD) && ctest -j $(JOBS) --output-on-failure

# libFuzzer targets built with clang under ASan+UBSan, each run for FUZZ_SECONDS on a copy of
# its seed corpus (fuzz/corpus/<target>); crashers land in build-fuzz/ and belong in
# fuzz/regressions/<target>-<name>, which ctest replays.
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60
FUZZ_TARGETS = text numeric
FUZZ_PACKAGES = clang libclang-rt-14-dev

fuzz:
	-@sh tools/install_packages.sh $(FUZZ_PACKAGES)
	@test -f $(FUZZ_BUILD)/CMakeCache.txt || CC=clang CXX=clang++ cmake -S . -B $(FUZZ_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTAVLIB6_FUZZ=ON -DTAVLIB6_SANITIZE=ON -DTAVLIB6_TESTS=OFF
	cmake --build $(FUZZ_BUILD) -j $(JOBS) --target $(addprefix fuzz_,$(FUZZ_TARGETS))
	@for t in $(FUZZ_TARGETS); do \
	  mkdir -p $(FUZZ_BUILD)/corpus/$$t && (cp -n fuzz/corpus/$$t/* $(FUZZ_BUILD)/corpus/$$t/ 2>/dev/null || true); \
	  echo "fuzzing $$t for $(FUZZ_SECONDS) s"; \
	  (cd $(FUZZ_BUILD) && LSAN_OPTIONS=suppressions=$(CURDIR)/tests/lsan.supp ./fuzz_$$t -max_total_time=$(FUZZ_SECONDS) -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 corpus/$$t) || exit 1; \
	done

# The thread test and the batch library's threads under ThreadSanitizer.
TSAN_BUILD ?= build-tsan
tsan:
	@test -f $(TSAN_BUILD)/CMakeCache.txt || cmake -S . -B $(TSAN_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTAVLIB6_TSAN=ON -DTAVLIB6_TESTS=ON
	cmake --build $(TSAN_BUILD) -j $(JOBS) --target test_threads test_batch
	cd $(TSAN_BUILD) && ctest --output-on-failure -R 'Threads|Batch'

# tavlib6.dll for 64-bit and 32-bit Windows, cross-compiled with mingw-w64, and a check that
# each exports exactly the listed functions under their plain names.
windows:
	@sh tools/install_packages.sh $(MINGW_PACKAGES)
	@test -f $(WIN64_BUILD)/CMakeCache.txt || cmake -S . -B $(WIN64_BUILD) -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-x86_64.cmake -DCMAKE_BUILD_TYPE=Release -DTAVLIB6_TESTS=OFF
	@test -f $(WIN32_BUILD)/CMakeCache.txt || cmake -S . -B $(WIN32_BUILD) -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-w64-i686.cmake -DCMAKE_BUILD_TYPE=Release -DTAVLIB6_TESTS=OFF
	cmake --build $(WIN64_BUILD) -j $(JOBS) --target tavlib6
	cmake --build $(WIN32_BUILD) -j $(JOBS) --target tavlib6
	python3 tools/check_exports.py $(WIN64_BUILD)/tavlib6.dll $(WIN32_BUILD)/tavlib6.dll

# The 64-bit DLL under Wine: the same calls as the Linux library, the about box on screen, the
# Excel module's declarations against both DLLs, and the help file of the bundle in the viewer.
windows-test: dist-windows configure
	@sh tools/install_packages.sh $(WINE_PACKAGES)
	cmake --build $(BUILD) -j $(JOBS) --target tavlib6_call_check
	cmake --build $(WIN64_BUILD) -j $(JOBS) --target tavlib6_call_check tavlib6_about_check
	bash tools/windows/wine_test.sh $(BUILD) $(WIN64_BUILD)
	python3 tests/hosts/excel_bas_check.py $(WIN64_BUILD)/tavlib6.dll $(WIN32_BUILD)/tavlib6.dll
	bash tools/windows/help_test.sh $(WIN64_BUILD) $(WIN64_BUILD)/tavlib6.chm

# build/tavlib6.mex, the library for GNU Octave (and MATLAB): tavlib6('HPT', p, T).
octave: all
	@sh tools/install_packages.sh $(OCTAVE_PACKAGES)
	sh hosts/octave/build.sh $(BUILD)

octave-test: all
	@sh tools/install_packages.sh $(OCTAVE_PACKAGES)
	sh tests/hosts/octave_test.sh $(BUILD)

# dist/tavlib6-windows.zip: both DLLs (and the batch library where it builds) with their import
# libraries, the headers, the Excel module, the help file tavlib6.chm built from docs/ and a
# README for spreadsheet users.
DIST ?= dist
CHM_PACKAGES = python3-markdown fp-utils
DEBIAN_PYTHON = $(firstword $(wildcard /usr/bin/python3) python3)

dist-windows: windows
	@sh tools/install_packages.sh $(CHM_PACKAGES)
	-cmake --build $(WIN64_BUILD) -j $(JOBS) --target tavlib6x
	-cmake --build $(WIN32_BUILD) -j $(JOBS) --target tavlib6x
	$(DEBIAN_PYTHON) tools/gen_chm.py $(WIN64_BUILD)
	python3 hosts/windows/make_bundle.py $(DIST)/tavlib6-windows.zip $(WIN64_BUILD) $(WIN32_BUILD) $(WIN64_BUILD)/tavlib6.chm

clean:
	rm -rf $(DIST) $(BUILD) $(SANITIZE_BUILD) $(BENCH_BUILD) $(FUZZ_BUILD) $(TSAN_BUILD) $(WIN64_BUILD) $(WIN32_BUILD)
