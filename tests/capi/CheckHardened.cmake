# LIBRARY shows the marks of what velk_harden() asks for: tables that are read only after loading, guarded stacks,
# and checked calls of the C and C++ libraries.
execute_process(COMMAND ${READELF} --wide --segments --dynamic --dyn-syms ${LIBRARY}
    OUTPUT_VARIABLE elf COMMAND_ERROR_IS_FATAL ANY)
foreach(mark GNU_RELRO BIND_NOW __stack_chk_fail __vsnprintf_chk __glibcxx_assert_fail)
    if(NOT elf MATCHES ${mark})
        message(FATAL_ERROR "${LIBRARY} has no ${mark}")
    endif()
endforeach()
