#include "platform/qt/web/PageSource.h"
#include "platform/qt/web/PageSurface.h"

// The one symbol that the program looks for.
extern "C" Q_DECL_EXPORT paperkite::WebSurface* MakePaperkiteWebSurface(QWidget* parent);

extern "C" Q_DECL_EXPORT paperkite::WebSurface* MakePaperkiteWebSurface(QWidget* parent) {
    paperkite::PageSource::RegisterScheme();
    return new paperkite::PageSurface(parent);
}
