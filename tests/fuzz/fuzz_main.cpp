// The fuzzer of one target, which the build defines as VELVOX_FUZZ_TARGET.
#include <cstddef>
#include <cstdint>

#include "tests/fuzz/fuzz_targets.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    velvox::fuzz::VELVOX_FUZZ_TARGET({reinterpret_cast<const char*>(data), size});
    return 0;
}
