# Two commands do everything: `make run` and `make test`. Both install what is missing first.
BUILD ?= build
CMAKE_FLAGS ?=
JOBS ?= $(shell nproc)

.PHONY: all deps build run test bench deb screenshots sanitize fuzz format clean

all: build

deps:
	@scripts/install-deps.sh

build: deps
	cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS)
	cmake --build $(BUILD) -j $(JOBS)

run: build
	$(BUILD)/tidewell

test: build
	ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

bench: build
	cmake --build $(BUILD) --target bench

# A Debian package of the program, its link, desktop entry, icon and user interface.
deb: build
	cd $(BUILD) && cpack

# The README's pictures of the shelf and the settings window, taken on a virtual display.
screenshots: build
	BUILD=$(BUILD) scripts/screenshots.sh

# The unit tests again, built with AddressSanitizer and UndefinedBehaviorSanitizer.
sanitize: deps
	cmake -S . -B $(BUILD)-sanitize -G Ninja -DTIDEWELL_SANITIZE=ON -DCMAKE_BUILD_TYPE=Debug
	cmake --build $(BUILD)-sanitize -j $(JOBS) --target tidewell_core_tests tidewell_linux_tests
	ctest --test-dir $(BUILD)-sanitize --output-on-failure -j $(JOBS) -R '^(core|linux)[.]'

# Each fuzz target for a short, bounded time.
FUZZ_SECONDS ?= 30
fuzz: deps
	CC=clang-14 CXX=clang++-14 cmake -S . -B $(BUILD)-fuzz -G Ninja -DTIDEWELL_FUZZ=ON
	cmake --build $(BUILD)-fuzz -j $(JOBS) --target fuzz
	FUZZ_SECONDS=$(FUZZ_SECONDS) cmake --build $(BUILD)-fuzz --target fuzz-run

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD) $(BUILD)-sanitize $(BUILD)-fuzz
