# Runs PROGRAM, by EMULATOR when it was built for another processor, and fails unless it
# ends well and prints what the file EXPECTED holds.
execute_process(COMMAND ${EMULATOR} "${PROGRAM}" OUTPUT_VARIABLE printed RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${PROGRAM} ended with ${result}")
endif()
file(READ "${EXPECTED}" expected)
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "${PROGRAM} printed\n${printed}instead of\n${expected}")
endif()
