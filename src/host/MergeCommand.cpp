#include "host/MergeCommand.h"

#include "host/CommandLine.h"
#include "model/MergeConflicts.h"
#include "model/SafeFile.h"
#include "model/ThreeWayMerge.h"

#include <ostream>

namespace paperkite {

int MergeCommand::Run(Output& output) const {
    ThreeWayMerge::Input base{Base, {}};
    ThreeWayMerge::Input ours{Ours, {}};
    ThreeWayMerge::Input theirs{Theirs, {}};
    for (ThreeWayMerge::Input* input : {&base, &ours, &theirs})
        if (const auto problem = SafeFile::Read(input->Name, input->Bytes))
            return output.Fail(problem->Message());
    const auto merged = ThreeWayMerge::Merge(base, ours, theirs);
    if (merged.Problem) return output.Fail(merged.Problem->Message());
    if (merged.Bytes != ours.Bytes)
        if (const auto problem = SafeFile::Write(Ours, merged.Bytes))
            return output.Fail(problem->Message());
    if (merged.Conflicts == 0) return kExitDone;
    for (const MergeConflict& conflict : MergeConflicts::Find(merged.Bytes))
        output.Err << "Both sides changed " << conflict.Item << ' ' << conflict.Tag << ".\n";
    output.Err << "Both versions are in the file. Open the project to choose.\n";
    return kExitCheckFailed;
}

} // namespace paperkite
