#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace paperkite::bench {

/// What is to be done at the end of a row while the application is still there; the last one first.
inline std::vector<std::function<void()>>& EndsOfRow() {
    static std::vector<std::function<void()>> ends;
    return ends;
}

/// What a row works on, made for each size when it is first asked for, and kept until the end of
/// the row. Each
/// maker (a lambda) has things of its own.
template <class Make>
auto& MadeOnce(std::int64_t size, const Make& make) {
    using Made = decltype(make(size));
    static std::map<std::int64_t, std::unique_ptr<typename Made::element_type>> all;
    auto& one = all[size];
    if (!one) {
        one = make(size);
        EndsOfRow().push_back([&] { one.reset(); });
    }
    return *one;
}

} // namespace paperkite::bench
