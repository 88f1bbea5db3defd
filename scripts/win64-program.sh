# Sourced by the scripts that run one Windows program of the win64 preset under Wine:
# kel_build_win64_program TARGET installs what is missing, builds the target and prepares the
# build's private Wine prefix (exported as KEL_WINEPREFIX and WINEPREFIX).
kel_build_win64_program() {
  local target=$1 root
  root=$(pwd)
  bash scripts/install-deps.sh
  echo "=== building $target (win64)"
  mkdir -p build
  cmake --preset win64 >build/win64.configure.log 2>&1 || { cat build/win64.configure.log; return 1; }
  cmake --build --preset win64 --target "$target"
  export KEL_WINEPREFIX="$root/build/win64/wineprefix"
  export WINEPREFIX="$KEL_WINEPREFIX"
  scripts/wine-run.sh --init
}
