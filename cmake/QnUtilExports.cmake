# The export manifest (src/qnutil.exports) is the single source of truth for
# what the library exports. From it the build generates the module-definition
# file for the Windows DLLs and the version script for the ELF shared object;
# a test compares the built binaries' export tables with it.
#
# Manifest lines: an exported name, optionally followed by the tag "windows"
# for names that only the Windows DLLs export. '#' starts a comment. The
# line "@msvc-abi" stands for the C++ exports for MSVC hosts, whose
# decorated names are read from their compiled objects (QnUtilMsvcAbi.cmake).
set(QNUTIL_EXPORT_MANIFEST ${PROJECT_SOURCE_DIR}/src/qnutil.exports)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${QNUTIL_EXPORT_MANIFEST})

function(qnutil_read_export_manifest out_var)
  file(STRINGS ${QNUTIL_EXPORT_MANIFEST} lines)
  set(names "")
  foreach(line IN LISTS lines)
    string(REGEX REPLACE "#.*$" "" line "${line}")
    string(STRIP "${line}" line)
    if(line STREQUAL "")
      continue()
    endif()
    string(REGEX MATCHALL "[^ \t]+" fields "${line}")
    list(GET fields 0 name)
    list(LENGTH fields nfields)
    set(tag "")
    if(nfields GREATER 1)
      list(GET fields 1 tag)
    endif()
    if(tag STREQUAL "windows" AND NOT WIN32)
      continue()
    elseif(NOT tag STREQUAL "" AND NOT tag STREQUAL "windows")
      message(FATAL_ERROR "export manifest: unknown tag '${tag}' for ${name}")
    endif()
    list(APPEND names ${name})
  endforeach()
  set(${out_var} ${names} PARENT_SCOPE)
endfunction()

# MSVC hosts link against QnUtil.lib, an import library in the short import
# format that Microsoft's linker reads, made from the same .def file with
# the DLL itself so that no build of the DLL lacks it.
function(qnutil_add_msvc_import_library target def_file)
  find_program(QNUTIL_LLVM_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14 REQUIRED)
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL "i686")
    set(machine i386)
  else()
    set(machine i386:x86-64)
  endif()
  set(msvc_lib ${CMAKE_ARCHIVE_OUTPUT_DIRECTORY}/QnUtil.lib)
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${QNUTIL_LLVM_DLLTOOL} -m ${machine} -D QnUtil.dll -d ${def_file} -l ${msvc_lib}
    COMMENT "Generating MSVC import library QnUtil.lib")
  set_property(TARGET ${target} PROPERTY QNUTIL_MSVC_IMPORT_LIB ${msvc_lib})
endfunction()

# Writes the .def (Windows) or version script (ELF) and attaches it to TARGET;
# the names this target exports are also written one per line to the file
# in the target's QNUTIL_EXPORTED_NAMES property, for the export test.
function(qnutil_apply_export_manifest target)
  qnutil_read_export_manifest(names)
  set(names_file ${CMAKE_CURRENT_BINARY_DIR}/exported-names.txt)
  set_property(TARGET ${target} PROPERTY QNUTIL_EXPORTED_NAMES ${names_file})
  if(WIN32)
    # The MSVC-ABI names exist only once their objects are built, so the
    # .def file is written at build time.
    set(manifest_names ${CMAKE_CURRENT_BINARY_DIR}/manifest-names.txt)
    list(JOIN names "\n" names_text)
    file(CONFIGURE OUTPUT ${manifest_names} CONTENT "${names_text}\n" @ONLY)
    qnutil_link_msvc_abi_objects(${target} msvc_names)
    set(def_file ${CMAKE_CURRENT_BINARY_DIR}/QnUtil.def)
    add_custom_command(OUTPUT ${def_file} ${names_file}
      COMMAND ${CMAKE_COMMAND} -DMANIFEST_NAMES=${manifest_names} "-DMSVC_NAMES=${msvc_names}"
        -DDEF_FILE=${def_file} -DNAMES_FILE=${names_file}
        -P ${PROJECT_SOURCE_DIR}/cmake/write-def-file.cmake
      DEPENDS ${manifest_names} ${msvc_names} ${PROJECT_SOURCE_DIR}/cmake/write-def-file.cmake
      COMMENT "Writing QnUtil.def"
      VERBATIM)
    target_sources(${target} PRIVATE ${def_file})
    qnutil_add_msvc_import_library(${target} ${def_file})
  else()
    list(JOIN names "\n" names_text)
    file(CONFIGURE OUTPUT ${names_file} CONTENT "${names_text}\n" @ONLY)
    set(map_file ${CMAKE_CURRENT_BINARY_DIR}/qnutil.map)
    set(text "{\n  global:\n")
    foreach(name IN LISTS names)
      string(APPEND text "    ${name};\n")
    endforeach()
    string(APPEND text "  local: *;\n};\n")
    file(CONFIGURE OUTPUT ${map_file} CONTENT "${text}" @ONLY)
    target_link_options(${target} PRIVATE -Wl,--version-script=${map_file})
    # Sanitizer runtimes are provided by the executable, not the library.
    if(NOT QNUTIL_SANITIZE)
      target_link_options(${target} PRIVATE -Wl,--no-undefined)
    endif()
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${map_file})
  endif()
endfunction()
