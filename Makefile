# Convenience wrapper around CMake. `make test` is what CI runs.
BUILD ?= build
SANITIZE_BUILD ?= build-sanitize
BENCH_BUILD ?= build-bench
JOBS ?= 2
PREFIX ?= /usr/local

.PHONY: all configure run test bench sanitize clean

all: configure
	@cmake --build $(BUILD) -j $(JOBS) -- --no-print-directory

configure:
	@test -f $(BUILD)/CMakeCache.txt || cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release

# Builds the library and the tvl command, then prints a small steam table through tvl.
run: all
	@sh tools/steam_table.sh $(BUILD)/tvl

test: all
	cd $(BUILD) && ctest -j $(JOBS) --output-on-failure

bench:
	@test -f $(BENCH_BUILD)/CMakeCache.txt || cmake -S . -B $(BENCH_BUILD) -DCMAKE_BUILD_TYPE=Release -DTAVLIB6_TESTS=OFF -DTAVLIB6_BENCH=ON
	cmake --build $(BENCH_BUILD) -j $(JOBS) --target tavlib6_bench
	$(BENCH_BUILD)/bench/tavlib6_bench

sanitize:
	@test -f $(SANITIZE_BUILD)/CMakeCache.txt || cmake -S . -B $(SANITIZE_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DTAVLIB6_SANITIZE=ON
	cmake --build $(SANITIZE_BUILD) -j $(JOBS)
	cd $(SANITIZE_BUILD) && ctest -j $(JOBS) --output-on-failure

clean:
	rm -rf $(BUILD) $(SANITIZE_BUILD) $(BENCH_BUILD)
