# Compile options shared by every target of the project.
#
# Floating point must give identical results on all three targets: no FMA
# contraction anywhere, and SSE2 arithmetic instead of x87 on i686. Shipped
# builds never use -march=native; wider SIMD is used only behind run-time
# CPU checks in the code itself.
add_library(qnutil_options INTERFACE)
target_compile_options(qnutil_options INTERFACE
  -ffp-contract=off
  $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra>
  $<$<COMPILE_LANGUAGE:C>:-Wall -Wextra>)
if(WIN32)
  target_compile_definitions(qnutil_options INTERFACE
    WIN32_LEAN_AND_MEAN NOMINMAX _WIN32_WINNT=0x0601)
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL "i686")
    # Hosts built with other compilers may call in with a 4-byte aligned
    # stack; realign so that SSE spills never fault.
    target_compile_options(qnutil_options INTERFACE -msse2 -mfpmath=sse -mstackrealign)
  endif()
  # GCC 12's MinGW libstdc++ reports memcpy overlaps, overflows and pointer
  # overflows of impossible sizes inside std::string concatenation (its own
  # inlined code, not ours); the native and sanitizer builds keep these
  # warnings.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(qnutil_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wno-restrict -Wno-stringop-overflow -Wno-array-bounds>)
  endif()
endif()

set(QNUTIL_SANITIZE "" CACHE STRING "Sanitizers to build with, e.g. address,undefined or thread")
if(QNUTIL_SANITIZE)
  target_compile_options(qnutil_options INTERFACE -fsanitize=${QNUTIL_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  target_link_options(qnutil_options INTERFACE -fsanitize=${QNUTIL_SANITIZE})
endif()
