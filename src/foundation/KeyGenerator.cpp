#include "foundation/KeyGenerator.h"

#include <array>
#include <cstdint>
#include <random>

namespace paperkite {

std::string KeyGenerator::Generate() {
    static std::mt19937_64 engine = [] {
        std::random_device device;
        std::seed_seq seed{device(), device(), device(), device()};
        return std::mt19937_64(seed);
    }();
    static constexpr char kDigits[] = "0123456789abcdefghijklmnopqrstuvwxyz";
    // 20 digits of base 36 are 103 bits: no two authors ever meet.
    std::string key;
    for (int index = 0; index < 20; ++index)
        key += kDigits[engine() % 36];
    return key;
}

} // namespace paperkite
