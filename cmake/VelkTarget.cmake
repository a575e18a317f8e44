include(CheckCXXCompilerFlag)
include(CheckCXXSourceCompiles)

option(VELK_HARDEN "Harden optimised builds of the library against wrong accesses (ELF systems)" ON)

# Whether the flags of this directory are for processors with fused multiply-adds. There g++'s straight-line
# vectoriser fuses in spite of -ffp-contract=off, where products are added and subtracted in turn. Elsewhere it makes
# a finger's search a fifth faster.
function(velk_may_fuse result)
    get_directory_property(options COMPILE_OPTIONS)
    string(TOUPPER "${CMAKE_BUILD_TYPE}" config)
    list(JOIN options " " CMAKE_REQUIRED_FLAGS)
    string(APPEND CMAKE_REQUIRED_FLAGS " ${CMAKE_CXX_FLAGS_${config}}")
    string(SHA1 key "${CMAKE_CXX_FLAGS} ${CMAKE_REQUIRED_FLAGS}")
    set(CMAKE_REQUIRED_QUIET ON)
    check_cxx_source_compiles("
        #if !defined(__x86_64__) || defined(__FMA__) || defined(__FMA4__)
        #error
        #endif
        int main() {}" velk_unfused_${key})
    if(velk_unfused_${key})
        set(${result} 0 PARENT_SCOPE)
    else()
        set(${result} 1 PARENT_SCOPE)
    endif()
endfunction()

# Usage requirements that every target of velk shares. Nothing here is global: a project that adds velk as a
# subdirectory keeps its own flags.

function(velk_set_target_options target)
    target_compile_features(${target} PRIVATE cxx_std_20)
    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        C_STANDARD 99
        C_STANDARD_REQUIRED ON
        C_EXTENSIONS OFF)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /permissive- /fp:strict)
        if(VELK_WARNINGS_AS_ERRORS)
            target_compile_options(${target} PRIVATE /WX)
        endif()
    else()
        # Contraction off: a fused multiply-add where the source has two roundings would make results differ
        # between compilers and processors. math/Functions.h refuses fast arithmetic by its macros; clang has none
        # for this one.
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wshadow -Wconversion -ffp-contract=off
            $<$<CXX_COMPILER_ID:Clang,AppleClang>:-fno-unsafe-math-optimizations>)
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
            velk_may_fuse(may_fuse)
            target_compile_options(${target} PRIVATE $<${may_fuse}:-fno-tree-slp-vectorize>)
        endif()
        if(VELK_WARNINGS_AS_ERRORS)
            target_compile_options(${target} PRIVATE -Werror)
        endif()
    endif()
endfunction()

# Optimised builds alone: _FORTIFY_SOURCE wants an optimiser, and the sanitizers of others watch more closely.
function(velk_harden target)
    if(NOT VELK_HARDEN OR NOT UNIX OR APPLE)
        return()
    endif()
    set(optimised "$<CONFIG:Release,RelWithDebInfo,MinSizeRel>")
    foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection -mbranch-protection=standard)
        string(MAKE_C_IDENTIFIER "velk_has${flag}" has)
        check_cxx_compiler_flag(${flag} ${has})
        if(${has})
            target_compile_options(${target} PRIVATE $<${optimised}:${flag}>)
        endif()
    endforeach()
    target_compile_options(${target} PRIVATE $<${optimised}:-U_FORTIFY_SOURCE> $<${optimised}:-D_FORTIFY_SOURCE=2>)
    target_compile_definitions(${target} PRIVATE $<${optimised}:_GLIBCXX_ASSERTIONS>)
    get_target_property(type ${target} TYPE)
    if(type STREQUAL SHARED_LIBRARY)
        target_link_options(${target} PRIVATE $<${optimised}:-Wl,-z,relro,-z,now>)
    endif()
endfunction()

# A static layer of the library: linked into the shared one, so position independent and hidden.
function(velk_add_layer target)
    add_library(${target} STATIC ${ARGN})
    velk_set_target_options(${target})
    velk_harden(${target})
    # Hosts may call during exit, so nothing that a call needs is destroyed there: see NeverDestroyed.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:Clang,AppleClang>:-Wexit-time-destructors>)
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
    set_target_properties(${target} PROPERTIES
        POSITION_INDEPENDENT_CODE ON
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
endfunction()
