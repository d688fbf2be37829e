# Debian's liquid-dsp has no pkg-config file.
find_library(liquid_library liquid)
find_path(liquid_headers liquid/liquid.h)
if(liquid_library AND liquid_headers AND NOT LIQUID_FOUND)
    target_link_libraries(bench_filters PRIVATE ${liquid_library})
    target_compile_definitions(bench_filters PRIVATE BENCH_HAS_LIQUID=1)
endif()
