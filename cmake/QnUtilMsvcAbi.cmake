# The C++ exports for MSVC hosts (mfc_classes_win32.h): GCC can give
# neither MSVC decorations nor __thiscall members, MSVC object layouts or
# the framework's string, so their sources are compiled by clang for the
# MSVC ABI (*-pc-windows-msvc) and linked into the DLL as objects. The
# names they export are read back from the compiled objects, so they come
# from the declarations themselves, never typed by hand.
#
# Families list their MSVC-ABI sources with qnutil_add_msvc_abi_sources();
# qnutil_link_msvc_abi_objects() compiles them all for one target.
if(WIN32)
  find_program(QNUTIL_CLANGXX NAMES clang++ clang++-14 REQUIRED)
  find_program(QNUTIL_LLVM_READOBJ NAMES llvm-readobj llvm-readobj-14 REQUIRED)
  find_program(QNUTIL_OBJCOPY NAMES ${QNUTIL_MINGW_TRIPLE}-objcopy REQUIRED)
endif()

function(qnutil_add_msvc_abi_sources)
  foreach(source IN LISTS ARGN)
    get_filename_component(source ${source} ABSOLUTE)
    set_property(GLOBAL APPEND PROPERTY QNUTIL_MSVC_ABI_SOURCES ${source})
  endforeach()
endfunction()

# Adds the objects to TARGET; OUT_NAMES receives the list of their names
# files (one per object, written when it is built).
function(qnutil_link_msvc_abi_objects target out_names)
  get_property(sources GLOBAL PROPERTY QNUTIL_MSVC_ABI_SOURCES)
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL "i686")
    set(triple i686-pc-windows-msvc)
  else()
    set(triple x86_64-pc-windows-msvc)
  endif()
  # No Microsoft headers or run-time: the sources use only what clang
  # itself ships, and no exceptions or run-time type information.
  set(flags "-std=c++20 -O2 -ffreestanding -fno-exceptions -fno-rtti -fno-stack-protector \
-Wall -Wextra -Werror -DQNUTIL_BUILDING \"-DQNUTIL_API=__declspec(dllexport)\" \
-I${PROJECT_SOURCE_DIR}/include -I${PROJECT_SOURCE_DIR}/src")
  set(objects "")
  set(names_files "")
  foreach(source IN LISTS sources)
    file(RELATIVE_PATH relative ${PROJECT_SOURCE_DIR}/src ${source})
    string(REPLACE "/" "_" stem ${relative})
    set(object ${CMAKE_CURRENT_BINARY_DIR}/msvc_abi/${stem}.obj)
    set(names ${CMAKE_CURRENT_BINARY_DIR}/msvc_abi/${stem}.names)
    add_custom_command(OUTPUT ${object} ${names}
      COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_CURRENT_BINARY_DIR}/msvc_abi
      COMMAND ${CMAKE_COMMAND} -DCLANGXX=${QNUTIL_CLANGXX} -DREADOBJ=${QNUTIL_LLVM_READOBJ}
        -DOBJCOPY=${QNUTIL_OBJCOPY} -DTRIPLE=${triple} -DFLAGS=${flags} -DSOURCE=${source}
        -DOBJECT=${object} -DNAMES=${names} -DDEPFILE=${object}.d
        -P ${PROJECT_SOURCE_DIR}/cmake/compile-msvc-abi.cmake
      DEPENDS ${source} ${PROJECT_SOURCE_DIR}/cmake/compile-msvc-abi.cmake
      DEPFILE ${object}.d
      COMMENT "Compiling ${relative} for the MSVC ABI"
      VERBATIM)
    list(APPEND objects ${object})
    list(APPEND names_files ${names})
  endforeach()
  set_source_files_properties(${objects} PROPERTIES EXTERNAL_OBJECT TRUE GENERATED TRUE)
  target_sources(${target} PRIVATE ${objects})
  set(${out_names} ${names_files} PARENT_SCOPE)
endfunction()
