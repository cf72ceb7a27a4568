# Build step of one MSVC-ABI source (see QnUtilMsvcAbi.cmake):
#   cmake -DCLANGXX= -DREADOBJ= -DOBJCOPY= -DTRIPLE= -DFLAGS= -DSOURCE=
#         -DOBJECT= -DNAMES= -DDEPFILE= -P compile-msvc-abi.cmake
# Compiles SOURCE, writes the names its export directives list to NAMES
# (one per line, ",DATA" kept for data), and leaves in OBJECT the object as
# GNU ld links it: the directives removed (the .def file exports), and on
# i686 the exported symbols given the leading underscore that ld looks up
# for every .def name.
separate_arguments(flags UNIX_COMMAND "${FLAGS}")
set(compiled ${OBJECT}.msvc)
execute_process(
  COMMAND ${CLANGXX} --target=${TRIPLE} ${flags} -MD -MF ${DEPFILE} -MT ${OBJECT}
          -c ${SOURCE} -o ${compiled}
  RESULT_VARIABLE status)
if(status)
  message(FATAL_ERROR "compiling ${SOURCE} for the MSVC ABI failed")
endif()
execute_process(COMMAND ${READOBJ} --coff-directives ${compiled}
  OUTPUT_VARIABLE directives RESULT_VARIABLE status)
if(status)
  message(FATAL_ERROR "reading the export directives of ${compiled} failed")
endif()
string(REGEX MATCHALL "/EXPORT:\"[^\"]+\"(,DATA)?" exports "${directives}")
set(names "")
set(renames "")
foreach(export IN LISTS exports)
  string(REPLACE "/EXPORT:" "" entry "${export}")
  string(REPLACE "\"" "" entry "${entry}")
  string(APPEND names "${entry}\n")
  if(TRIPLE MATCHES "^i686")
    string(REGEX REPLACE ",DATA$" "" symbol "${entry}")
    list(APPEND renames "--redefine-sym=${symbol}=_${symbol}")
  endif()
endforeach()
execute_process(COMMAND ${OBJCOPY} --remove-section=.drectve ${renames} ${compiled} ${OBJECT}
  RESULT_VARIABLE status)
if(status)
  message(FATAL_ERROR "preparing ${compiled} for the linker failed")
endif()
file(WRITE ${NAMES} "${names}")
