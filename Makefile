# The commands of the README. Each installs what it needs first (nothing when nothing is missing).
JOBS := $(shell nproc)
.PHONY: all setup demo test windows bench fuzz shots format clean

all: setup
	@cmake --preset debug >/dev/null && cmake --build --preset debug -j $(JOBS)

setup:
	@scripts/setup.sh

demo: setup
	@scripts/demo.sh

test: setup
	@scripts/test.sh

windows: setup
	@cmake --preset windows >/dev/null && cmake --build --preset windows -j $(JOBS)

bench: setup
	@cmake --preset release >/dev/null && cmake --build --preset release -j $(JOBS)
	@build/release/bench/psui_bench $(BENCH)

fuzz: setup
	@scripts/fuzz.sh $(FUZZ)

shots: setup
	@scripts/shots.sh

format: setup
	@git ls-files '*.cpp' '*.h' '*.c' | xargs clang-format -i

clean:
	rm -rf build
