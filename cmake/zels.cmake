# What all parts of the project compile with, and how its libraries are made.

# The library is one processor variant: SSE4.2 and nothing newer. It runs without the C++ run-time library. Its kernels
# are vectorised by hand, so the compiler keeps its hands off the short loops around them. Functions begin at cache lines:
# on vectors of 8 to 16 elements a call is a handful of nanoseconds, and an unlucky place costs a tenth of it.
set(ZELS_LIBRARY_OPTIONS
    -O2 -falign-functions=64 -msse4.2 -mtune=generic -fno-tree-vectorize -fno-strict-aliasing -fomit-frame-pointer
    -ffp-contract=off -fno-math-errno -frounding-math
    -fno-exceptions -fno-rtti -fno-threadsafe-statics -fno-asynchronous-unwind-tables
    -fvisibility=hidden -fvisibility-inlines-hidden)

# Two of g++'s habits cost short vectors several instructions a call: recomputing a loop's counter behind it in closed
# form, and joining the null tests of an entry by setcc instead of branching on each.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    list(APPEND ZELS_LIBRARY_OPTIONS -fno-tree-scev-cprop --param=logical-op-non-short-circuit=0)
endif()

# An undefined symbol is an error; a library that is not used is not needed; inner calls of exported functions go
# straight to them, past the dynamic linker's table.
set(ZELS_LINK_OPTIONS -Wl,-z,defs -Wl,--as-needed -Wl,-Bsymbolic-functions)

set(ZELS_WARNINGS -Wall -Wextra -Wconversion -Wshadow)
if(ZELS_WERROR)
    list(APPEND ZELS_WARNINGS -Werror)
endif()

if(ZELS_SANITIZE)
    add_compile_options(-fsanitize=${ZELS_SANITIZE} -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${ZELS_SANITIZE})
    # The sanitizers' reports want call stacks.
    list(APPEND ZELS_LIBRARY_OPTIONS -g1 -fno-omit-frame-pointer -fasynchronous-unwind-tables)
    # Clang leaves the sanitizers' run-time library to the program.
    list(REMOVE_ITEM ZELS_LINK_OPTIONS -Wl,-z,defs)
endif()

# zels_library(NAME INCLUDE dir... SOURCES file... [USES library-of-the-project...] [LIBRARIES system-library...])
#
# Makes two libraries of one set of objects, compiled once: NAME_static, which is always made, and NAME, which is shared.
# With BUILD_SHARED_LIBS off NAME is another name of NAME_static. The static one lets tests reach inner functions, which
# the shared one hides.
function(zels_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "INCLUDE;SOURCES;USES;LIBRARIES")

    add_library(${name}_objects OBJECT ${arg_SOURCES})
    target_compile_options(${name}_objects PRIVATE
        $<$<COMPILE_LANGUAGE:CXX>:${ZELS_LIBRARY_OPTIONS}> ${ZELS_WARNINGS})
    target_include_directories(${name}_objects PRIVATE ${arg_INCLUDE})
    foreach(used IN LISTS arg_USES)
        target_include_directories(${name}_objects PRIVATE
            $<TARGET_PROPERTY:${used}_static,INTERFACE_INCLUDE_DIRECTORIES>)
    endforeach()
    set_target_properties(${name}_objects PROPERTIES POSITION_INDEPENDENT_CODE ON)

    add_library(${name}_static STATIC $<TARGET_OBJECTS:${name}_objects>)
    set(libraries ${name}_static)
    target_link_libraries(${name}_static PRIVATE ${arg_LIBRARIES})
    foreach(used IN LISTS arg_USES)
        target_link_libraries(${name}_static PRIVATE ${used}_static)
    endforeach()

    if(BUILD_SHARED_LIBS)
        add_library(${name} SHARED $<TARGET_OBJECTS:${name}_objects>)
        list(APPEND libraries ${name})
        target_link_libraries(${name} PRIVATE ${arg_USES} ${arg_LIBRARIES})
        target_link_options(${name} PRIVATE ${ZELS_LINK_OPTIONS})
        # The companion is found beside the library, wherever both are moved.
        set_target_properties(${name} PROPERTIES
            VERSION ${PROJECT_VERSION}
            SOVERSION ${PROJECT_VERSION_MAJOR}
            INSTALL_RPATH "$ORIGIN")
    else()
        add_library(${name} ALIAS ${name}_static)
    endif()

    foreach(library IN LISTS libraries)
        set_target_properties(${library} PROPERTIES LINKER_LANGUAGE C OUTPUT_NAME ${name})
        foreach(folder IN LISTS arg_INCLUDE)
            target_include_directories(${library} PUBLIC $<BUILD_INTERFACE:${folder}>)
        endforeach()
        target_include_directories(${library} PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
        add_library(zels::${library} ALIAS ${library})
    endforeach()
    if(NOT BUILD_SHARED_LIBS)
        add_library(zels::${name} ALIAS ${name}_static)
    endif()
    set_property(GLOBAL APPEND PROPERTY ZELS_LIBRARIES ${libraries})
endfunction()
