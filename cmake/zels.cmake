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

# zels_sanitize(TARGET): with the sanitizers, and call stacks for their reports. Left out of them is what a fault shows by
# itself or by another one's report, and costs more to compile than all others together: a pointer that is null, an object
# that is smaller than what is read (the address sanitizer sees both), a pointer that wraps around the address space.
function(zels_sanitize target)
    target_compile_options(${target} PRIVATE -g1 -fno-omit-frame-pointer -fasynchronous-unwind-tables
        -fsanitize=${ZELS_SANITIZE} -fno-sanitize=null,object-size,pointer-overflow,vptr,function
        -fno-sanitize-recover=all)
endfunction()

# zels_library(NAME INCLUDE dir... SOURCES file... [USES library-of-the-project...] [LIBRARIES system-library...])
#
# Makes two libraries of one set of objects, compiled once: NAME_static, which is always made, and NAME, which is shared.
# With BUILD_SHARED_LIBS off NAME is another name of NAME_static. The static one lets tests reach inner functions, which
# the shared one hides. With ZELS_SANITIZE there is a third, NAME_sanitized, compiled for itself, for whoever names it.
function(zels_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "INCLUDE;SOURCES;USES;LIBRARIES")

    set(kinds objects)
    if(ZELS_SANITIZE)
        list(APPEND kinds sanitized)
    endif()
    foreach(kind IN LISTS kinds)
        if(kind STREQUAL "sanitized")
            add_library(${name}_sanitized STATIC EXCLUDE_FROM_ALL ${arg_SOURCES})
        else()
            add_library(${name}_objects OBJECT ${arg_SOURCES})
        endif()
        target_compile_options(${name}_${kind} PRIVATE
            $<$<COMPILE_LANGUAGE:CXX>:${ZELS_LIBRARY_OPTIONS}> ${ZELS_WARNINGS})
        target_include_directories(${name}_${kind} PRIVATE ${arg_INCLUDE})
        foreach(used IN LISTS arg_USES)
            target_include_directories(${name}_${kind} PRIVATE
                $<TARGET_PROPERTY:${used}_static,INTERFACE_INCLUDE_DIRECTORIES>)
        endforeach()
        set_target_properties(${name}_${kind} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    endforeach()
    if(ZELS_SANITIZE)
        zels_sanitize(${name}_sanitized)
        target_include_directories(${name}_sanitized INTERFACE ${arg_INCLUDE})
        target_link_options(${name}_sanitized INTERFACE -fsanitize=${ZELS_SANITIZE})
        list(TRANSFORM arg_USES APPEND _sanitized OUTPUT_VARIABLE used)
        target_link_libraries(${name}_sanitized PUBLIC ${used} ${arg_LIBRARIES})
    endif()

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
