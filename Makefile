# make build | make test | make demo — each installs missing Debian packages first.
SHELL := /bin/bash
PACKAGES := cmake ninja-build g++ pkg-config libgtest-dev libgmock-dev libbenchmark-dev \
	nlohmann-json3-dev qt6-base-dev qt6-svg-dev libgl-dev fp-utils clang-format \
	gcc-avr avr-libc binutils-avr simavr libsimavr-dev libelf-dev sigrok-cli \
	clang libclang-rt-14-dev wine64 g++-mingw-w64-x86-64 mingw-w64-tools \
	dpkg-dev lintian debootstrap nsis xvfb doxygen
SUDO := $(shell [ "$$(id -u)" = 0 ] || echo sudo)

.PHONY: deps build test test-default test-asan test-windows bench-windows demo bench format clean fuzz fuzz-smoke \
	fuzz-build fuzz-run package install-test installer installer-test api-docs

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

test: test-default test-asan fuzz-smoke test-windows install-test installer-test

test-default: build
	ctest --preset default

test-asan: deps
	cmake --preset asan >/dev/null
	cmake --build --preset asan
	ctest --preset asan

# The Windows in-process server (MinGW-w64), registered and driven under Wine
# in private prefixes in build-windows/, the OLE control test on a virtual
# display (Xvfb); zelvor-host.exe's answers to the examples are compared with
# the Linux host of the default build.
test-windows: build
	cmake --preset windows -DZV_LINUX_HOST=$(CURDIR)/build/bin/zelvor-host \
	  -DZV_LINUX_PANEL_MATCH=$(CURDIR)/build/tests/panel_match >/dev/null
	cmake --build --preset windows
	ctest --preset windows

bench-windows: deps
	cmake --preset windows >/dev/null
	cmake --build --preset windows --target com_bench
	@set -e; export WINEPREFIX=$(CURDIR)/build-windows/wine-prefix WINEDEBUG=-all; unset DISPLAY; \
	  wine=/usr/lib/wine/wine64; ocx="Z:$$(echo $(CURDIR)/build-windows/bin/AVR_PWM.ocx | tr / '\\')"; \
	  $$wine regsvr32 /s "$$ocx"; \
	  $$wine build-windows/bin/com_bench.exe "Z:$$(echo $(CURDIR)/devices/ATmega328P.zvd | tr / '\\')" | tr -d '\r'; \
	  $$wine regsvr32 /s /u "$$ocx"; /usr/lib/wine/wineserver -k

# Fuzz targets (libFuzzer, sanitizers): fuzz-smoke runs each for a few seconds,
# fuzz for FUZZ_SECONDS each. Found inputs go to build-fuzz/, never to fuzz/corpus.
FUZZ_TARGETS := profile block_reader placeholders property_bag sim_macro_call register_entry \
	script_lexer script_runner bag_json project
FUZZ_SECONDS ?= 300

fuzz-build: deps
	cmake -S fuzz -B build-fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ >/dev/null
	cmake --build build-fuzz

fuzz-smoke: fuzz-build
	@$(MAKE) --no-print-directory fuzz-run FUZZ_SECONDS=9

fuzz: fuzz-build
	@$(MAKE) --no-print-directory fuzz-run

fuzz-run:
	@for t in $(FUZZ_TARGETS); do \
	  mkdir -p build-fuzz/corpus/$$t build-fuzz/crashes; \
	  echo "fuzz_$$t: $(FUZZ_SECONDS) s"; \
	  ./build-fuzz/fuzz_$$t -max_total_time=$(FUZZ_SECONDS) -timeout=20 -rss_limit_mb=2048 \
	    -print_final_stats=0 -artifact_prefix=build-fuzz/crashes/$$t- \
	    build-fuzz/corpus/$$t fuzz/corpus/$$t 2>build-fuzz/$$t.log || { tail -40 build-fuzz/$$t.log; exit 1; }; \
	done

# The API reference of include/zelvor, in build/docs/api/html.
api-docs: deps
	cmake --preset default >/dev/null
	cmake --build --preset default --target api-docs

# Debian packages in build/package; install-test puts the main one on a fresh
# Debian 12 chroot (root; the base system is kept in ~/.cache/zelvor-install-test).
package: build
	cmake --build build --target api-docs
	cd build && cpack

install-test: package
	$(SUDO) bash tests/install/clean_machine_test.sh build/package/zelvor-avr-pwm_*_amd64.deb

# The Windows installer (NSIS) of the control the windows preset builds, and its
# trial under Wine: build-windows/Zelvor_AVR_PWM-<version>-win64.exe
VERSION := $(shell awk '/^project/ { for (i = 1; i < NF; i++) if ($$i == "VERSION") print $$(i + 1) }' CMakeLists.txt)
INSTALLER := build-windows/Zelvor_AVR_PWM-$(VERSION)-win64.exe

installer: deps
	cmake --preset windows >/dev/null
	cmake --build --preset windows
	makensis -V2 -WX -DVERSION=$(VERSION) -DFILES=$(CURDIR)/build-windows/bin -DOUTFILE=$(CURDIR)/$(INSTALLER) \
	  packaging/windows/AVR_PWM.nsi

installer-test: installer
	bash tests/install/windows_installer_test.sh $(INSTALLER)

demo: build
	./examples/run-demo.sh

bench: deps
	cmake --preset release >/dev/null
	cmake --build --preset release --target zelvor-bench
	./build-release/bin/zelvor-bench

format:
	find platform component include qt win32 com host tools tests bench fuzz -name '*.cpp' -o -name '*.h' | xargs clang-format -i

clean:
	rm -rf build build-asan build-release build-fuzz build-windows out
