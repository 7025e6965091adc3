# make build | make test | make demo — each installs missing Debian packages first.
SHELL := /bin/bash
PACKAGES := cmake ninja-build g++ pkg-config libgtest-dev libgmock-dev libbenchmark-dev \
	nlohmann-json3-dev qt6-base-dev libgl-dev fp-utils clang-format \
	gcc-avr avr-libc binutils-avr simavr libsimavr-dev libelf-dev
SUDO := $(shell [ "$$(id -u)" = 0 ] || echo sudo)

.PHONY: deps build test test-default test-asan demo bench format clean

deps:
	@missing=""; for p in $(PACKAGES); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q "install ok installed" || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  echo "Installing:$$missing"; \
	  $(SUDO) apt-get update -qq && \
	  $(SUDO) env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $$missing; \
	fi

build: deps
	cmake --preset default >/dev/null
	cmake --build --preset default

test: test-default test-asan

test-default: build
	ctest --preset default

test-asan: deps
	cmake --preset asan >/dev/null
	cmake --build --preset asan
	ctest --preset asan

demo: build
	./examples/run-demo.sh

bench: deps
	cmake --preset release >/dev/null
	cmake --build --preset release --target zelvor-bench
	./build-release/bin/zelvor-bench

format:
	find platform component qt host tools tests bench fuzz -name '*.cpp' -o -name '*.h' | xargs clang-format -i

clean:
	rm -rf build build-asan build-release out
