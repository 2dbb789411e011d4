BUILD ?= build
JOBS ?= 2
CMAKE_FLAGS ?= -DCMAKE_BUILD_TYPE=RelWithDebInfo
# WERROR=ON treats compiler warnings as errors (.ci/run builds so); off for everyone else.
WERROR ?= OFF

.PHONY: deps demo-deps page-deps page-build-deps configure build test test-sanitize fuzz coverage bench demo clean

# The 3D page's packages (three.js and its bundler; the browser driver of its tests) come from npm,
# pinned by the lock file. Building the page needs only the first two (`npm ci --omit=dev`); the
# tests need all. npm ci runs again only when the lock file is newer than the install.
PAGE_DIR = app/page
PAGE_INSTALLED = $(PAGE_DIR)/node_modules/.package-lock.json

deps:
	@bash scripts/deps.sh
	@$(MAKE) --no-print-directory page-deps

demo-deps:
	@bash scripts/deps.sh demo
	@$(MAKE) --no-print-directory page-build-deps

page-deps:
	@if [ ! -d $(PAGE_DIR)/node_modules/puppeteer-core ] || [ $(PAGE_DIR)/package-lock.json -nt $(PAGE_INSTALLED) ]; then \
		echo "Installing the 3D page's packages (npm ci)"; \
		cd $(PAGE_DIR) && npm ci --no-audit --no-fund; \
	fi

page-build-deps:
	@if [ ! -f $(PAGE_INSTALLED) ] || [ $(PAGE_DIR)/package-lock.json -nt $(PAGE_INSTALLED) ]; then \
		echo "Installing the packages the 3D page is built from (npm ci --omit=dev)"; \
		cd $(PAGE_DIR) && npm ci --omit=dev --no-audit --no-fund; \
	fi

configure: deps
	@cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS) -DORBISETT_WERROR=$(WERROR) -DORBISETT_TESTS=ON > /dev/null

build: configure
	@cmake --build $(BUILD) -j $(JOBS)

test: build
	@cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

# The whole suite again, built with AddressSanitizer and UndefinedBehaviorSanitizer; the plug-in
# module is loaded into the sanitized test programs like any other build.
SANITIZE_BUILD ?= build-sanitize
# Light optimisation and line tables only: a quicker build, and still file and line in reports.
SANITIZE_FLAGS ?= -DCMAKE_BUILD_TYPE=RelWithDebInfo '-DCMAKE_CXX_FLAGS_RELWITHDEBINFO=-O1 -g1'
SANITIZE_ENV = ASAN_OPTIONS=detect_leaks=1:abort_on_error=1:detect_stack_use_after_return=1 \
	LSAN_OPTIONS=suppressions=$(CURDIR)/tests/leak-suppressions.txt:print_suppressions=0 \
	UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1

test-sanitize: deps
	@cmake -S . -B $(SANITIZE_BUILD) -G Ninja $(SANITIZE_FLAGS) -DORBISETT_SANITIZE=ON -DORBISETT_WERROR=$(WERROR) > /dev/null
	@cmake --build $(SANITIZE_BUILD) -j $(JOBS)
	@cd $(SANITIZE_BUILD) && $(SANITIZE_ENV) ctest --output-on-failure -j $(JOBS)

# libFuzzer with clang: each target runs for FUZZ_SECONDS from its seed corpus; what it finds is
# left in $(FUZZ_BUILD)/crashes. Not part of `make test`.
FUZZ_BUILD ?= build-fuzz
FUZZ_SECONDS ?= 60
FUZZ_TARGETS = edit_field scene set_assignment

fuzz:
	@bash scripts/deps.sh clang libclang-rt-dev
	@$(MAKE) --no-print-directory page-deps
	@cmake -S . -B $(FUZZ_BUILD) -G Ninja $(CMAKE_FLAGS) -DCMAKE_C_COMPILER=clang -DCMAKE_CXX_COMPILER=clang++ \
		-DCMAKE_CXX_FLAGS=-fsanitize=fuzzer-no-link -DORBISETT_SANITIZE=ON -DORBISETT_FUZZ=ON > /dev/null
	@cmake --build $(FUZZ_BUILD) -j $(JOBS) --target $(addprefix fuzz_,$(FUZZ_TARGETS))
	@mkdir -p $(FUZZ_BUILD)/crashes
	@for t in $(FUZZ_TARGETS); do \
		mkdir -p $(FUZZ_BUILD)/corpus/$$t; \
		echo "== fuzzing $$t for $(FUZZ_SECONDS) s"; \
		$(FUZZ_BUILD)/tests/fuzz_$$t $(FUZZ_BUILD)/corpus/$$t tests/fuzz/corpus/$$t \
			-max_total_time=$(FUZZ_SECONDS) -timeout=10 -rss_limit_mb=4096 -print_final_stats=1 \
			-artifact_prefix=$(FUZZ_BUILD)/crashes/$$t- || exit 1; \
	done

# The whole suite built with coverage counters (no optimisation, so lines and branches are the
# source's), then gcovr's line and branch coverage per folder of our code. Branches the compiler adds
# for exceptions and branches on lines without code are left out: they are no decisions of ours.
# The details, line by line, are in $(COVERAGE_BUILD)/coverage/index.html.
COVERAGE_BUILD ?= build-coverage
COVERAGE_FLAGS ?= -DCMAKE_BUILD_TYPE=Debug
COVERAGE_FOLDERS = shell common/adobe cylinder controls dialog toolkit math host platform app
GCOVR = gcovr --root . --exclude-throw-branches --exclude-unreachable-branches

coverage:
	@bash scripts/deps.sh gcovr
	@cmake -S . -B $(COVERAGE_BUILD) -G Ninja $(COVERAGE_FLAGS) -DORBISETT_COVERAGE=ON > /dev/null
	@cmake --build $(COVERAGE_BUILD) -j $(JOBS)
	@find $(COVERAGE_BUILD) -name '*.gcda' -delete
	@cd $(COVERAGE_BUILD) && ctest --output-on-failure -j $(JOBS)
	@mkdir -p $(COVERAGE_BUILD)/coverage
	@$(GCOVR) --object-directory $(COVERAGE_BUILD) $(foreach f,$(COVERAGE_FOLDERS),--filter '$(f)/') \
		--json $(COVERAGE_BUILD)/coverage/all.json --html-details $(COVERAGE_BUILD)/coverage/index.html
	@printf '%-14s %22s %22s\n' folder lines branches
	@for f in $(COVERAGE_FOLDERS); do \
		$(GCOVR) --add-tracefile $(COVERAGE_BUILD)/coverage/all.json --filter "$$f/" --print-summary -o "$(COVERAGE_BUILD)/coverage/summary-$$(echo $$f | tr / _).txt" | \
		awk -v f="$$f" '/^lines:/ {l = $$2 " " substr($$3, 2) "/" $$6 + 0} /^branches:/ {b = $$2 " " substr($$3, 2) "/" $$6 + 0} \
			END {printf "%-14s %22s %22s\n", f, l, b}'; \
	done

bench: build
	@if [ -x $(BUILD)/bench/orbisett-bench ]; then $(BUILD)/bench/orbisett-bench; \
	else echo "No benchmarks are built yet."; exit 1; fi

# Only what the demo runs: the module, the stand-ins, the tool and its page; no test or benchmark
# program, and none of the packages only those need.
DEMO_FILES = out/demo.json out/demo-preview.svg out/demo-preview.png out/demo-dialog.svg out/demo.html \
  out/demo.glb

demo: demo-deps
	@cmake -S . -B $(BUILD) -G Ninja $(CMAKE_FLAGS) -DORBISETT_TESTS=OFF > /dev/null
	@cmake --build $(BUILD) -j $(JOBS) --target orbisett-host
	@mkdir -p out
	@$(BUILD)/app/orbisett-host --out out/demo.json --preview out/demo-preview.svg --dialog out/demo-dialog.svg \
		--html out/demo.html --gltf out/demo.glb && $(BUILD)/app/orbisett-host --quiet --preview out/demo-preview.png
	@echo; echo "Files written:"
	@for f in $(DEMO_FILES); do printf '  %s (%s bytes)\n' "$(CURDIR)/$$f" "$$(stat -c %s $$f)"; done
	@echo "out/demo.html is the 3D view: open it in a browser; out/demo.glb the same scene as glTF."

# Every build folder the targets above make, and the demo's output.
clean:
	rm -rf $(BUILD) $(SANITIZE_BUILD) $(FUZZ_BUILD) $(COVERAGE_BUILD)
