# Holds three lists against each other: the names in EXPORTS, those that HEADER declares, and those that
# LIBRARY really exports.
file(STRINGS ${EXPORTS} listed)
list(LENGTH listed count)
if(NOT count EQUAL 85)
    message(FATAL_ERROR "${EXPORTS} lists ${count} names, not 85")
endif()

file(READ ${HEADER} header)
string(REGEX MATCHALL "VELK_API [^(;]+\\(" declarations "${header}")
string(REGEX MATCHALL "velk_[A-Za-z_]+" declared "${declarations}")

execute_process(COMMAND ${NM} -D --defined-only ${LIBRARY} OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^ \n]+\n" exported "${symbols}")
string(REPLACE "\n" "" exported "${exported}")

foreach(name declared exported)
    list(SORT ${name})
    if(NOT ${name} STREQUAL listed)
        set(missing ${listed})
        set(extra ${${name}})
        list(REMOVE_ITEM missing ${${name}})
        list(REMOVE_ITEM extra ${listed})
        message(FATAL_ERROR "${name} differs from ${EXPORTS}: missing [${missing}], extra [${extra}]")
    endif()
endforeach()
