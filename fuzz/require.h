#pragma once

#include <cstdio>
#include <cstdlib>

/// A property that must hold for every input: the fuzzer keeps the input that breaks it.
inline void require(bool holds, const char *property)
{
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", property);
        std::abort();
    }
}
