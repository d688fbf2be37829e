# The tests on an emulated Nehalem, the first processor with SSE4.2: any newer instruction dies there, and its CPUID leaf 2
# names its caches, so that the paths behind the cache probe run for real. `ctest -C nehalem -L nehalem` runs them.
set(ZELS_NEHALEM qemu-x86_64 -cpu Nehalem)

# Not emulated, each with its reason: patterns of GoogleTest's filter.
set(ZELS_NOT_EMULATED
    # Gigabytes of addresses, or millions of values: minutes a family, to show what no processor changes.
    "*Long.*" "*Long/*" "LongMemory.*"
    # Every value of an element: arithmetic that shows on any processor. The same functions are emulated at every length.
    "*.all16Bit*" "*.allPairsOf8Bits"
    # The emulator's minimum and maximum do not take subnormal operands as zeros.
    "Threshold.limitsFlushedFloats"
)
list(JOIN ZELS_NOT_EMULATED ":" ZELS_NOT_EMULATED)

# nehalem_test(NAME COMMAND...)
function(nehalem_test name)
    add_test(NAME nehalem.${name} CONFIGURATIONS nehalem COMMAND ${ZELS_NEHALEM} ${ARGN})
    set_tests_properties(nehalem.${name} PROPERTIES LABELS nehalem TIMEOUT 600)
endfunction()
