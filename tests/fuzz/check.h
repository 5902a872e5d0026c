// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the program with a report when something does not hold; the fuzzer then keeps the input.
#define FUZZ_CHECK(condition)                                                                                          \
    do {                                                                                                               \
        if (!(condition)) {                                                                                            \
            std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #condition);                        \
            std::abort();                                                                                              \
        }                                                                                                              \
    } while (false)

/// A number that is printed when the program ends: what a run has done.
class Tally
{
public:
    explicit Tally(const char* name) : m_name(name) {}
    ~Tally() { std::fprintf(stderr, "tally: %llu %s\n", m_count, m_name); }
    Tally(const Tally&) = delete;
    Tally& operator=(const Tally&) = delete;

    void operator+=(unsigned long long count) { m_count += count; }
    void operator++() { ++m_count; }

private:
    const char* m_name;
    unsigned long long m_count = 0;
};
