# The peer of equal vector width is built once into the build tree, by a target of its own (ninja fftw_sse2): it takes minutes
# and a network, which compiling the benchmark must not. The program finds it when it runs.
set(fftw_sse2 ${CMAKE_CURRENT_BINARY_DIR}/fftw-sse2)
add_custom_target(fftw_sse2
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/transforms/fftw-sse2.sh ${fftw_sse2}
    COMMENT "FFTW with 128-bit vectors" USES_TERMINAL)
target_compile_definitions(bench_transforms PRIVATE BENCH_FFTW_SSE2="${fftw_sse2}/lib/")
target_link_libraries(bench_transforms PRIVATE ${CMAKE_DL_LIBS})
