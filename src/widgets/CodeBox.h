#pragma once

#include "widgets/TextBox.h"

#include <string>

namespace paperkite {

/// A field for source code: lines with numbers, coloured by the language, and one place that is
/// marked as wrong.
class CodeBox : public TextBox {
public:
    explicit CodeBox(std::string name = {});

    /// A file name by whose ending the language is known; empty for plain text.
    const std::string& GetFileName() const { return mFileName; }
    void SetFileName(const std::string& value) { Assign(mFileName, value); }

    /// The number of the first line, from 1.
    int GetFirstLine() const { return mFirstLine; }
    void SetFirstLine(int value) { Assign(mFirstLine, value); }

    /// The place that is marked: a line of the text from 1, 0 for none, and a character of it from
    /// 1.
    int GetMarkedLine() const { return mMarkedLine; }
    int GetMarkedColumn() const { return mMarkedColumn; }
    void SetMark(int line, int column);
    /// Puts the selection at the marked place, and the focus into the box.
    void GoToMark();

private:
    std::string mFileName;
    int mFirstLine = 1;
    int mMarkedLine = 0;
    int mMarkedColumn = 0;
};

} // namespace paperkite
