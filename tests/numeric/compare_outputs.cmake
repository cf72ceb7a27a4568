# Runs two programs (FIRST, SECOND; through EMULATOR when set) and fails
# unless both succeed and print the same non-empty text.
#   cmake -DEMULATOR= -DFIRST= -DSECOND= -P compare_outputs.cmake
foreach(program FIRST SECOND)
  execute_process(COMMAND ${EMULATOR} ${${program}} RESULT_VARIABLE status
    OUTPUT_VARIABLE output_${program})
  if(status)
    message(FATAL_ERROR "${${program}} failed: ${status}")
  endif()
endforeach()
if(output_FIRST STREQUAL "")
  message(FATAL_ERROR "${FIRST} printed nothing")
endif()
if(NOT output_FIRST STREQUAL output_SECOND)
  file(WRITE first.txt "${output_FIRST}")
  file(WRITE second.txt "${output_SECOND}")
  execute_process(COMMAND diff first.txt second.txt)
  message(FATAL_ERROR "${FIRST} and ${SECOND} print different results")
endif()
string(REGEX MATCHALL "\n" lines "${output_FIRST}")
list(LENGTH lines count)
message(STATUS "${count} results alike")
