# Writes a trace, TRACE, and fails unless it has the bytes of KEPT.
execute_process(COMMAND ${PLAY} ${SCENE} ${RECORDING} --trace ${TRACE} --trace-step ${STEP} --quiet
    OUTPUT_QUIET ERROR_VARIABLE printed RESULT_VARIABLE code)
if(NOT code EQUAL 0)
    message(FATAL_ERROR "velk-play exited with ${code}:\n${printed}")
endif()
execute_process(COMMAND ${DIFF} ${KEPT} ${TRACE} RESULT_VARIABLE code)
if(NOT code EQUAL 0)
    message(FATAL_ERROR "${TRACE} is not ${KEPT}")
endif()
