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

# keep_figures SECTION COMMAND: with KEEP_FIGURES=1 in the environment, the input becomes that section of
# docs/figures.md, headed by the command, the commit ("+": with changes), the day and the machine.
keep_figures() {
    local text commit machine page=docs/figures.md
    text=$(cat)
    [[ ${KEEP_FIGURES:-} == 1 ]] || return 0
    commit=$(git rev-parse --short HEAD)
    git diff --quiet HEAD -- . ":!$page" || commit+=+
    machine=$(sed -n 's/^model name\s*: //p' /proc/cpuinfo | head -n 1)
    text="\`$2\`, commit $commit, $(date +%F), $machine, $(nproc) cores, g++ $(g++ -dumpfullversion), $(clang --version |
        sed -nE 's/.*(clang) version ([0-9.]+).*/\1 \2/p')"$'\n\n```\n'"$text"$'\n```'
    TEXT=$text awk -v section="$1" '
        $0 == "<!-- end " section " -->" { inside = 0 }
        !inside { print }
        $0 == "<!-- begin " section " -->" { inside = 1; print ENVIRON["TEXT"] }' "$page" > "$page.new"
    mv "$page.new" "$page"
}
