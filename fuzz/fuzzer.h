/// What libFuzzer calls and offers, by the names that it wants.
#pragma once

#include <cstddef>
#include <cstdint>

extern "C" {

/// Tries one input; a fault ends the process. @return 0.
int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size);

/// Changes an input in place, for a fuzzer that knows better than to change just any byte. @return its new
/// size.
std::size_t LLVMFuzzerCustomMutator(std::uint8_t *bytes, std::size_t size, std::size_t maxSize,
                                    unsigned seed);

/// The library's own way to change an input.
std::size_t LLVMFuzzerMutate(std::uint8_t *bytes, std::size_t size, std::size_t maxSize);
}
