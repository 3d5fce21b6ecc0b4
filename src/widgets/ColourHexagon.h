#pragma once

#include "widgets/Control.h"

#include <cstdint>
#include <string>
#include <vector>

namespace paperkite {

/// A honeycomb of base colours: white in the middle, the hues around it, darker outwards, and below
/// it a row of greys from white to black.
///
/// Colours are R + 256 * G + 65536 * B. Any colour can be shown; the cell of that colour, if there
/// is one, is the current one.
class ColourHexagon : public Control {
public:
    explicit ColourHexagon(std::string name = {});

    struct Cell {
        /// The middle of the cell: in halves of a cell's width from the left, and in rows from the
        /// top.
        int X = 0;
        int Row = 0;
        std::int32_t Color = 0;
    };

    /// In reading order.
    const std::vector<Cell>& GetCells() const { return mCells; }

    /// How many halves of a cell's width, and how many rows, there are.
    int GetColumns() const;
    int GetRows() const;

    std::int32_t GetColor() const { return mColor; }

    /// A new colour raises Change.
    void SetColor(std::int32_t value);

    /// The position in GetCells of the current colour, -1 for a colour that no cell has.
    int GetCurrentCell() const { return mCurrent; }

    struct {
        Event<> Change;
        Event<> DblClick; ///< on a cell, whose colour is the current one then
    } Events;

    /// A position that no cell has does nothing.
    void UserClick(int cell);
    void UserDblClick(int cell);
    /// The arrow keys move to the nearest cell in their direction, Home and End to the first and
    /// the last of the row. The key that is left, 0 when it was one of these.
    int UserKeyDown(int keyCode, int shift);

private:
    void MakeCells();
    bool IsCell(int cell) const;
    void ChooseCell(int cell);
    int CellBeside(int step) const;
    int CellInNextRow(int step) const;
    int EndOfRow(int step) const;

    std::vector<Cell> mCells;
    std::int32_t mColor = 0;
    int mCurrent = -1;
};

} // namespace paperkite
