# Script behind the package_consumer test.
function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed (${result}): ${ARGV}\n${out}\n${err}")
  endif()
  message(STATUS "${out}")
endfunction()

set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})

set(configure ${CMAKE_COMMAND} -S ${CONSUMER_SOURCE} -B ${WORK_DIR}/build
  -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=Release)
if(TOOLCHAIN)
  # Cross toolchains search packages only below their sysroot by default.
  list(APPEND configure -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DQnUtil_DIR=${prefix}/lib/cmake/QnUtil)
else()
  list(APPEND configure -DCMAKE_C_COMPILER=${C_COMPILER} -DCMAKE_CXX_COMPILER=${CXX_COMPILER})
endif()
run(${configure})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)

if(WIN32_TARGET)
  # Windows finds the DLL next to the program.
  file(GLOB dlls ${prefix}/bin/*.dll)
  file(COPY ${dlls} DESTINATION ${WORK_DIR}/build)
  run(${EMULATOR} ${WORK_DIR}/build/consumer_c.exe)
  run(${EMULATOR} ${WORK_DIR}/build/consumer_cxx.exe)
else()
  run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${prefix}/lib ${WORK_DIR}/build/consumer_c)
  run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${prefix}/lib ${WORK_DIR}/build/consumer_cxx)
  # The same program through pkg-config.
  find_program(PKG_CONFIG pkg-config REQUIRED)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${prefix}/lib/pkgconfig
      ${PKG_CONFIG} --cflags --libs qnutil
    OUTPUT_VARIABLE flags OUTPUT_STRIP_TRAILING_WHITESPACE RESULTS_VARIABLE pc_result)
  if(NOT pc_result EQUAL 0)
    message(FATAL_ERROR "pkg-config does not find qnutil")
  endif()
  separate_arguments(flags)
  run(${C_COMPILER} ${CONSUMER_SOURCE}/main.c ${flags} -o ${WORK_DIR}/consumer_pc)
  run(${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${prefix}/lib ${WORK_DIR}/consumer_pc)
endif()
