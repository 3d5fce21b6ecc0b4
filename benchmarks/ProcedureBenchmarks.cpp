#include "BenchmarkTable.h"

#include "foundation/Procedure.h"

#include <benchmark/benchmark.h>

namespace paperkite::bench {

namespace {

class Component : public Shielded {
public:
    const char* ModuleName() const override { return "Component"; }

    [[gnu::noinline]] bool Plain(const std::string& name, int count) const {
        benchmark::DoNotOptimize(name);
        return count > 0;
    }

    [[gnu::noinline]] bool WithTail(const std::string& name, int count) const {
        return Procedure<bool>(*this, "WithTail", [&](bool& result, Frame& frame) {
            Watch watchName(frame, "name", name);
            Watch watchCount(frame, "count", count);
            benchmark::DoNotOptimize(name);
            result = count > 0;
        });
    }
};

template <auto Operation>
void Call(benchmark::State& state, std::int64_t) {
    const Component component;
    const std::string name = "leveldb~DB~Get";
    int count = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize((component.*Operation)(name, ++count));
}

} // namespace

void AddProcedureRows(std::vector<Row>& rows) {
    rows.push_back({"procedure.tail",
                    "a procedure with the error tail and two watches",
                    Call<&Component::WithTail>,
                    "the same without",
                    Call<&Component::Plain>,
                    {1},
                    Judged::ExtraNanoseconds,
                    40,
                    9});
}

} // namespace paperkite::bench
