#!/usr/bin/env bash
# Builds everything and runs every test: native, under ASan+UBSan, the fuzzers for a bounded
# time, and the Windows tests under Wine; the Win32 build is compiled only. Both Windows builds
# install their SDK (build/sdk-win32, build/sdk-win64), and a small host built against the
# 64-bit SDK alone (tests/package) runs under Wine.
# Exits non-zero when any stage fails. KEL_FUZZ_SECONDS sets each fuzzer's run (default 30).
set -uo pipefail
cd "$(dirname "$0")/.."
root=$(pwd)

bash scripts/install-deps.sh || exit 1
source scripts/xdisplay.sh

fuzz_seconds=${KEL_FUZZ_SECONDS:-30}
summary=()
failed=0
passed_stages=0
failed_stages=0

stage() { # name, command...
  local name=$1; shift
  echo "=== $name"
  if "$@"; then
    passed_stages=$((passed_stages + 1))
  else
    echo "=== $name FAILED"
    summary+=("$name: FAILED")
    failed=1
    failed_stages=$((failed_stages + 1))
    return 1
  fi
}

build() { # preset
  cmake --preset "$1" >"build/$1.configure.log" 2>&1 || { cat "build/$1.configure.log"; return 1; }
  cmake --build --preset "$1" 2>&1 | grep -Ev '^\[ *[0-9]+%\] (Building|Linking|Built)|^Consolidate' 
  return "${PIPESTATUS[0]}"
}

run_ctest() { # preset
  local log="build/$1.ctest.log"
  ctest --preset "$1" 2>&1 | tee "$log"
  local rc=${PIPESTATUS[0]}
  summary+=("$1: $(grep -E 'tests passed|tests failed' "$log" | tail -n 1)")
  return "$rc"
}

install_sdk() { # preset
  local sdk="build/sdk-$1" log="build/$1.install.log"
  rm -rf "$sdk"
  cmake --install "build/$1" --prefix "$sdk" >"$log" 2>&1 || { cat "$log"; return 1; }
  summary+=("$1 SDK: $(find "$sdk" -type f | wc -l) files in $sdk")
}

# The host finds the library through the SDK alone, with the DLLs copied beside it.
run_package_host() {
  local build=build/package-win64 log=build/package-win64.log rc
  rm -rf "$build"
  {
    cmake -S tests/package -B "$build" -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64-x86_64.cmake" \
      -DCMAKE_PREFIX_PATH="$root/build/sdk-win64" &&
      cmake --build "$build" &&
      KEL_WINEPREFIX="$root/build/win64/wineprefix" scripts/wine-run.sh "$build/KelPackageHost.exe"
  } >"$log" 2>&1
  rc=$?
  if [ "$rc" -eq 0 ]; then
    tail -n 1 "$log"
    summary+=("package host (win64 SDK, Wine): $(tail -n 1 "$log")")
  else
    cat "$log"
  fi
  return "$rc"
}

run_fuzzers() {
  local dir="build/fuzz/bin" n=0 bad=0 f name corpus
  for f in "$dir"/fuzz_*; do
    name=$(basename "$f")
    corpus="build/fuzz/corpus/$name"
    mkdir -p "$corpus"
    [ -d "tests/fuzz/corpus/$name" ] && cp -n "tests/fuzz/corpus/$name"/* "$corpus"/ 2>/dev/null
    if "$f" -max_total_time="$fuzz_seconds" -print_final_stats=0 "$corpus" >"build/fuzz/$name.log" 2>&1; then
      echo "$name: $(grep -E '^#[0-9]+.*DONE' "build/fuzz/$name.log" | tail -n 1)"
      n=$((n + 1))
    else
      tail -n 40 "build/fuzz/$name.log"
      bad=$((bad + 1))
    fi
  done
  summary+=("fuzz: $n passed, $bad failed")
  [ "$bad" -eq 0 ] && [ "$n" -gt 0 ]
}

mkdir -p build
stage "native build" build native && stage "native tests" run_ctest native
stage "sanitizer build" build native-asan && stage "sanitizer tests" run_ctest native-asan
stage "fuzz build" build fuzz && stage "fuzzing (${fuzz_seconds}s each)" run_fuzzers
stage "win32 build" build win32 && stage "win32 SDK" install_sdk win32
if kel_start_xvfb; then
  if stage "win64 build" build win64; then
    stage "win64 tests (Wine)" run_ctest win64
    stage "win64 SDK" install_sdk win64 && stage "package host (win64 SDK, Wine)" run_package_host
  fi
  kel_stop_xvfb
else
  summary+=("win64: FAILED (no X display)")
  failed=1
fi
WINEPREFIX="$root/build/win64/wineprefix" wineserver -k 2>/dev/null || true

echo
echo "=== summary"
printf '%s\n' "${summary[@]}"
echo "stages: $passed_stages passed, $failed_stages failed"
exit "$failed"
