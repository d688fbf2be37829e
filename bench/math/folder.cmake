# The vector mathematics of glibc.
find_library(MVEC_LIBRARY mvec)
if(MVEC_LIBRARY)
    target_link_libraries(bench_math PRIVATE ${MVEC_LIBRARY})
    target_compile_definitions(bench_math PRIVATE BENCH_HAS_MVEC=1)
else()
    message(STATUS "Benchmarks: libmvec is not installed; its peers are left out")
endif()
