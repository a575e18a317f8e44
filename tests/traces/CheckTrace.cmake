# Writes a trace, TRACE, and fails unless it is the one in KEPT; but for its figures unless EXACT.
execute_process(COMMAND ${PLAY} ${SCENE} ${RECORDING} --trace ${TRACE} --trace-step ${STEP} --quiet
    OUTPUT_QUIET ERROR_VARIABLE printed RESULT_VARIABLE code)
if(NOT code EQUAL 0)
    message(FATAL_ERROR "velk-play exited with ${code}:\n${printed}")
endif()
execute_process(COMMAND ${DIFF} ${KEPT} ${TRACE} RESULT_VARIABLE code)
if(NOT code EQUAL 0 AND (EXACT OR NOT code EQUAL 1))
    message(FATAL_ERROR "${TRACE} is not ${KEPT}")
endif()
