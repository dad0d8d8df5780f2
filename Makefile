# The front door: each of these sets up what is missing first.
#
#   make report   build, and write the report of an example
#   make test     build, and run every test
#   make gallery  build, run the scripts of examples/gallery, and write a page of their reports
#   make build    build the release: build/release/bin/hierfit
#   make bench    build, and measure
#   make fuzz     build with Clang, and feed changed inputs for a while; fuzz/README.md
#
# EXAMPLE=NAME chooses the example of `make report`, SECONDS=N how long each fuzz target runs.

EXAMPLE ?= bacteria
SECONDS ?= 60
JOBS ?= $(shell nproc)

.PHONY: report gallery test build bench fuzz format clean

report: build
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

bench: setup-test
	@scripts/build release $(JOBS)
	bench/measure

fuzz: setup-test
	@scripts/build fuzz $(JOBS)
	fuzz/run $(SECONDS)

setup-%:
	@scripts/setup $*

format:
	git ls-files '*.cpp' '*.h' | xargs -d '\n' clang-format -i

clean:
	rm -rf build report.html
