#pragma once
// A target's own assertions on what the code under test promises: a broken
// promise aborts, so that libFuzzer keeps the input that broke it.

#include <cstdlib>

inline void fuzzCheck(bool holds)
{
    if (!holds)
        std::abort();
}
