#pragma once

#include <string>

namespace paperkite {

/// A fresh text that no other call of any process will give.
class KeyGenerator {
public:
    std::string Generate();
};

} // namespace paperkite
