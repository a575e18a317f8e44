# Runs PROGRAM and fails unless it exits with 0 and prints what EXPECTED holds.
execute_process(COMMAND ${PROGRAM} OUTPUT_VARIABLE printed RESULT_VARIABLE code)
if(NOT code EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} exited with ${code}")
endif()
file(READ ${EXPECTED} expected)
if(NOT printed STREQUAL expected)
    message(FATAL_ERROR "${PROGRAM} printed:\n${printed}\nexpected (${EXPECTED}):\n${expected}")
endif()
