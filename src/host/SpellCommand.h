#pragma once

namespace paperkite {

struct CommandTarget;
struct Output;

/// Lists the misspelt words in the comments of the target's item and of those below it, or of the
/// whole project. Exit code 1 when there are any.
int RunSpell(const CommandTarget& target, Output& output);

} // namespace paperkite
