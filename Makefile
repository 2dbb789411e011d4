BUILD ?= build
JOBS ?= 2
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=RelWithDebInfo

.PHONY: deps configure build test bench demo clean

deps:
	@bash scripts/deps.sh

configure: deps
	@cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS) > /dev/null

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

test: build
	@cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

bench: build
	@if [ -x $(BUILD)/bench/orbisett-bench ]; then $(BUILD)/bench/orbisett-bench; \
	else echo "No benchmarks are built yet."; exit 1; fi

demo: build
	@if [ -x $(BUILD)/app/orbisett-host ]; then mkdir -p out && $(BUILD)/app/orbisett-host \
		--out out/demo.json --preview out/demo-preview.svg --dialog out/demo-dialog.svg; \
	else echo "orbisett-host is not built yet: the command-line tool does not exist in this tree."; exit 1; fi

clean:
	rm -rf $(BUILD)
