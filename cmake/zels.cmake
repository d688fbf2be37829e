# What all parts of the project compile with.

# The library is one processor variant: SSE4.2 and nothing newer. It runs without the C++ run-time library. Its kernels
# are vectorised by hand, so the compiler keeps its hands off the short loops around them.
set(ZELS_LIBRARY_OPTIONS
    -O2 -msse4.2 -mtune=generic -fno-tree-vectorize -fno-strict-aliasing -fomit-frame-pointer
    -ffp-contract=off -fno-math-errno -frounding-math
    -fno-exceptions -fno-rtti -fno-threadsafe-statics -fno-asynchronous-unwind-tables
    -fvisibility=hidden -fvisibility-inlines-hidden)

# Two of g++'s habits cost short vectors several instructions a call: recomputing a loop's counter behind it in closed
# form, and joining the null tests of an entry by setcc instead of branching on each.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    list(APPEND ZELS_LIBRARY_OPTIONS -fno-tree-scev-cprop --param=logical-op-non-short-circuit=0)
endif()

set(ZELS_WARNINGS -Wall -Wextra -Wconversion -Wshadow)
if(ZELS_WERROR)
    list(APPEND ZELS_WARNINGS -Werror)
endif()

# zels_library(NAME SOURCES...): a library of the project, shared or static by BUILD_SHARED_LIBS, with its objects
# compiled for both.
function(zels_library name)
    add_library(${name} ${ARGN})
    target_compile_options(${name} PRIVATE
        $<$<COMPILE_LANGUAGE:CXX>:${ZELS_LIBRARY_OPTIONS}> ${ZELS_WARNINGS})
    set_target_properties(${name} PROPERTIES
        LINKER_LANGUAGE C
        POSITION_INDEPENDENT_CODE ON
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR})
    target_link_options(${name} PRIVATE -Wl,-z,defs -Wl,--as-needed -Wl,-Bsymbolic-functions)
endfunction()
