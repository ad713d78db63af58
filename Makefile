BUILD_DIR ?= build
JOBS ?= 2
# A compiler cache, when the machine has one, makes rebuilds in a fresh folder quick.
LAUNCHER := $(if $(shell command -v ccache 2>/dev/null),-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
DATA_DIR ?= $(if $(STRATHMARK_DATA_DIR),$(STRATHMARK_DATA_DIR),$(if $(XDG_DATA_HOME),$(XDG_DATA_HOME),$(HOME)/.local/share)/Strathmark/Strathmark/)

.PHONY: all deps build run test bench package clean

all: build

deps:
	@bash scripts/install-deps

build: deps
	cmake -S . -B $(BUILD_DIR) -DCMAKE_BUILD_TYPE=RelWithDebInfo $(LAUNCHER)
	cmake --build $(BUILD_DIR) -j$(JOBS)

# Lays the prepared empty database into the data folder when none is there,
# then starts the program.
run: build
	@mkdir -p "$(DATA_DIR)"
	@if [ ! -e "$(DATA_DIR)/tallier.mdb" ]; then \
	  cp $(BUILD_DIR)/tallier.mdb "$(DATA_DIR)/tallier.mdb"; \
	  echo "Prepared database laid in $(DATA_DIR)"; \
	fi
	$(BUILD_DIR)/strathmark

test: build
	@cd $(BUILD_DIR) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j$(JOBS); rc=$$?; \
	  cd $(CURDIR) && bash scripts/test-ratio; exit $$rc

bench: build
	cmake --build $(BUILD_DIR) -j$(JOBS) --target benchmarks
	@for b in $(BUILD_DIR)/bench/bench_*; do echo "== $$b"; $$b; done

# A Debian package of the program: build/strathmark_<version>_<arch>.deb
package: build
	cd $(BUILD_DIR) && cpack -G DEB

clean:
	rm -rf $(BUILD_DIR)
