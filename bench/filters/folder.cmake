# The peer of equal vector width, where it has been built into the build tree (ninja fftw_sse2; transforms/folder.cmake).
target_compile_definitions(bench_filters PRIVATE BENCH_FFTW_SSE2="${CMAKE_CURRENT_BINARY_DIR}/fftw-sse2/lib/")
target_link_libraries(bench_filters PRIVATE ${CMAKE_DL_LIBS})
# Debian's liquid-dsp has no pkg-config file.
find_library(liquid_library liquid)
find_path(liquid_headers liquid/liquid.h)
if(liquid_library AND liquid_headers AND NOT LIQUID_FOUND)
    target_link_libraries(bench_filters PRIVATE ${liquid_library})
    target_compile_definitions(bench_filters PRIVATE BENCH_HAS_LIQUID=1)
endif()
