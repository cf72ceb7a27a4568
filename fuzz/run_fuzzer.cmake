# Runs one libFuzzer target for SECONDS over a scratch copy of its seeds.
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
if(EXISTS ${SEEDS})
  file(COPY ${SEEDS}/ DESTINATION ${WORK})
endif()
execute_process(
  COMMAND ${FUZZER} -max_total_time=${SECONDS} -rss_limit_mb=2048 -print_final_stats=1 ${WORK}
  RESULT_VARIABLE result)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "${FUZZER} failed (${result})")
endif()
