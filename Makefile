# The front door: each of these sets up what is missing first.
#
#   make report   build, and write the report of an example
#   make test     build, and run every test
#   make build    build the release: build/release/bin/hierfit
#   make bench    build, and measure
#
# EXAMPLE=NAME chooses the example of `make report`.

EXAMPLE ?= bacteria
JOBS ?= $(shell nproc)

.PHONY: report test build bench setup format clean

report: build
	build/release/bin/hierfit report -o report.html "examples/$(EXAMPLE)"
	@echo "The report lies in $(CURDIR)/report.html"

build: setup
	@scripts/build release $(JOBS)

test: setup
	@scripts/build release $(JOBS)
	@scripts/build sanitize $(JOBS)
	ctest --preset sanitize
	ctest --preset release

bench: build
	bench/measure

setup:
	@scripts/setup

format:
	git ls-files '*.cpp' '*.h' | xargs -d '\n' clang-format -i

clean:
	rm -rf build report.html
