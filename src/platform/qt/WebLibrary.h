#pragma once

#include "platform/qt/WebSurface.h"

#include <QString>

namespace paperkite {

/// The library with the web engine, which is loaded with the first page and not before.
class WebLibrary {
public:
    /// What the engine wants to be set before there is an application. Loads nothing; a program
    /// that shows pages calls it first of all.
    static void PrepareApplication();

    /// A new surface below the parent, or nullptr where the library cannot be loaded.
    static WebSurface* MakeSurface(QWidget* parent);

    /// Whether the engine is in the process.
    static bool IsLoaded();
    /// What is missing and how to mend it; empty while nothing failed.
    static QString GetProblem();
};

} // namespace paperkite
