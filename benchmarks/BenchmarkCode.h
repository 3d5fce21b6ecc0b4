#pragma once

#include "doctypes/source/SourceNamespaceProvider.h"
#include "foundation/NamespaceDefs.h"
#include "model/ProjectDocument.h"

#include <cstdint>

namespace paperkite::bench {

/// What a scan makes of namespaces of 100 classes, with 49 methods and 49 fields each, as many as
/// give `items` in all.
SourceIndex IndexOfClasses(std::int64_t items);

/// One class of that many fields: a single node of many children.
SourceIndex IndexOfOneClass(std::int64_t fields);

/// A project over an index that was never in a file.
class BenchmarkCode {
public:
    explicit BenchmarkCode(SourceIndex index);
    ~BenchmarkCode();
    BenchmarkCode(const BenchmarkCode&) = delete;
    BenchmarkCode& operator=(const BenchmarkCode&) = delete;

    const SourceIndex& Index() const { return Provider->GetIndex(0); }

    Ref<ProjectDocument> Project = MakeRef<ProjectDocument>();
    Ref<SourceNamespaceProvider> Provider;
    Ref<NamespaceDefs> Definitions;
};

/// Bytes that the process has allocated and not freed.
double AllocatedBytes();

/// Gives memory that is free back to the system, so that what follows has to fetch its own as in a
/// program that has just started, whatever ran before it.
void ForgetFreeMemory();

} // namespace paperkite::bench
