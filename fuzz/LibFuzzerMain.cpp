#include "fuzz/FuzzTarget.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

// The entry of the fuzzing engine, for a program with one target.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace paperkite::fuzz;
    try {
        FuzzTarget::All().front()->Run({reinterpret_cast<const char*>(data), size});
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "broken property: %s\n", exception.what());
        std::abort();
    }
    return 0;
}
