#pragma once

#include <cstdint>
#include <map>
#include <memory>

namespace paperkite::bench {

/// What a row works on, made for each size when it is first asked for, and kept until the end. Each
/// maker (a lambda) has things of its own.
template <class Make>
auto& MadeOnce(std::int64_t size, const Make& make) {
    using Made = decltype(make(size));
    static std::map<std::int64_t, std::unique_ptr<typename Made::element_type>> all;
    auto& one = all[size];
    if (!one) one = make(size);
    return *one;
}

} // namespace paperkite::bench
