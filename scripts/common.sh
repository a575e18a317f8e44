# shellcheck shell=bash
# What the scripts share; they source it in the root of the repository.

if command -v ccache > /dev/null; then
    export CMAKE_C_COMPILER_LAUNCHER=ccache CMAKE_CXX_COMPILER_LAUNCHER=ccache
    export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1 # clones and build directories share the objects that don't differ
fi

# The kept scenes, one a line: SCENE RECORDING STEP SHOWN [OPTION...]
kept_scenes() {
    grep '^[a-z]' tools/velk_play/scenes/scenes.txt
}
