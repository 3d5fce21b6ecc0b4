#include "model/FileProblem.h"

namespace paperkite {

std::string FileProblem::Message() const {
    std::string message = File;
    if (Line > 0) message += ":" + std::to_string(Line) + ":" + std::to_string(Column);
    message += ": " + What;
    if (!Remedy.empty()) message += " " + Remedy;
    return message;
}

} // namespace paperkite
