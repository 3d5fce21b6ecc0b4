#pragma once

#include "foundation/Ref.h"
#include "widgets/Picture.h"

#include <QIcon>

#include <string>

class QToolBar;

namespace paperkite {

/// Icons of the Breeze theme, by the names of commands, image keys and pictures.
class Icons {
public:
    /// Lets the Breeze theme be found; called once, by the Theme.
    static void UseBreeze();
    /// The light icons for the dark scheme, or the other way round.
    static void UseDark(bool dark);

    /// The icon of a command or image key of the library ("Next", "Closed", "code-class"), by the
    /// one table that maps them; a name that the table does not hold is looked up in the theme.
    /// An icon that is nowhere is a null icon.
    static QIcon ByName(const std::string& name);

    /// A file may hold the picture at several sizes; the one is drawn that fits the screen.
    static QIcon Of(const Picture& picture);
    /// The size, in pixels, at which pictures in files are sharp, for text of that height.
    static int SizeBeside(int textHeight);
    /// Gives a bar icons of that size, now and whenever its letters change.
    static void SizeWithText(QToolBar& bar);

    /// The picture that the list has under the key; without one, the icon by the key's name.
    static QIcon InList(const Ref<ImageList>& list, const std::string& key);

    /// What a screen reader says for a key: the picture's accessible name, or that of the table.
    static std::string AccessibleName(const Ref<ImageList>& list, const std::string& key);
};

} // namespace paperkite
