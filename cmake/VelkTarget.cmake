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
        # between compilers and processors. g++'s vectorisers fuse all the same, where products are added and
        # subtracted in turn. math/Functions.h refuses fast arithmetic by its macros; clang has none for this one.
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wshadow -Wconversion -ffp-contract=off
            $<$<CXX_COMPILER_ID:GNU>:-fno-tree-vectorize>
            $<$<CXX_COMPILER_ID:Clang,AppleClang>:-fno-unsafe-math-optimizations>)
        if(VELK_WARNINGS_AS_ERRORS)
            target_compile_options(${target} PRIVATE -Werror)
        endif()
    endif()
endfunction()

# A static layer of the library: linked into the shared one, so position independent and hidden.
function(velk_add_layer target)
    add_library(${target} STATIC ${ARGN})
    velk_set_target_options(${target})
    target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
    set_target_properties(${target} PROPERTIES
        POSITION_INDEPENDENT_CODE ON
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
endfunction()
