# The front door: each of these sets up what is missing first.
#
#   make help        say this
#   make report      build what reports as HTML, text and JSON take, and write the report of an example
#   make test        build, and run every test
#   make test-quick  build, and run the tests that need no R, Python packages, TeX or office
#   make gallery     build, run the scripts of examples/gallery, and write a page of their reports
#   make build       build the release: build/release/bin/hierfit
#   make languages   tell of each language how far it is, and what is wrong with it
#   make package     Debian packages of the last commit, in build/packages
#   make reproduce   whether the last commit gives the same bytes in two folders; it builds four times
#   make bench       build, and measure
#   make torture     build, and run with every fault that is tried: memory, disk, signals, threads; docs/reliability.md
#   make fuzz        build with Clang, and feed changed inputs for a while; fuzz/README.md
#   make coverage    build with Clang, run tests and kept inputs, and tell which lines run
#
# EXAMPLE=NAME chooses the example of `make report`, MINUTES=N how long all fuzz targets run altogether, RUNS=N how many
# places `make torture` takes for each fault and command.

EXAMPLE ?= bacteria
MINUTES ?= 10
RUNS ?= 1000000
JOBS ?= $(shell nproc)

.DEFAULT_GOAL := report
.PHONY: help report gallery test test-quick build languages package reproduce bench torture fuzz coverage format clean

help:
	@sed -n '/^#/!q; s/^# \{0,1\}//p' $(firstword $(MAKEFILE_LIST))

report: setup-build
	@scripts/build release $(JOBS) -D HIERFIT_TESTS=OFF -D HIERFIT_BENCH=OFF -- report
	build/release/bin/hierfit report -o report.html "examples/$(EXAMPLE)"
	@echo "The report lies in $(CURDIR)/report.html"

gallery: build
	@scripts/gallery build/release build/gallery

build: setup-build
	@scripts/build release $(JOBS) -D HIERFIT_TESTS=OFF -D HIERFIT_BENCH=OFF

test: setup-test
	@scripts/build release $(JOBS)
	@scripts/build sanitize $(JOBS)
	ctest --preset sanitize
	ctest --preset release

test-quick: setup-quick
	@scripts/build release $(JOBS) -D HIERFIT_BENCH=OFF
	ctest --preset release -LE outside
	@echo "Left out, since they run R, Python packages, TeX or office:"
	@ctest --preset release -N -L outside | sed -n 's/^ *Test *#[0-9]*: /  /p'

languages:
	@node tests/language/keys.mjs . --list

package: setup-test
	@scripts/package build/packages $(JOBS)

reproduce: setup-test
	@scripts/reproduce build/reproduce $(JOBS)

bench: setup-test
	@scripts/build release $(JOBS)
	bench/measure

torture: export HIERFIT_FAULT_RUNS = $(RUNS)
torture: setup-test
	@scripts/build release $(JOBS)
	@scripts/build sanitize $(JOBS)
	@scripts/build thread $(JOBS)
	ctest --preset release -V -R '^(allocation_test|faults_.*)$$' --timeout 100000
	ctest --preset sanitize -V -R '^allocation_test$$' --timeout 100000
	ctest --preset thread --timeout 100000

fuzz: setup-fuzz
	@scripts/build fuzz $(JOBS)
	JOBS=$(JOBS) fuzz/run $(MINUTES)

coverage: setup-fuzz
	@scripts/build coverage $(JOBS)
	scripts/coverage

setup-%:
	@scripts/setup $*

format:
	git ls-files '*.cpp' '*.h' | xargs -d '\n' clang-format -i

clean:
	rm -rf build report.html
