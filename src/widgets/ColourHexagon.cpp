#include "widgets/ColourHexagon.h"

#include "widgets/Keys.h"
#include "widgets/WebColours.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace paperkite {

namespace {

constexpr int kRadius = 6;
constexpr int kGreys = 2 * kRadius + 1;
// An empty row parts the greys from the honeycomb.
constexpr int kGreyRow = 2 * kRadius + 2;

int Part(double value) {
    return static_cast<int>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
}

/// A saturated colour of a hue from 0 to 6 and a lightness from 0 to 1.
std::int32_t FromHue(double hue, double lightness) {
    const double chroma = 1 - std::abs(2 * lightness - 1);
    const auto part = [&](double shift) {
        const double at = std::fmod(hue + shift, 6.0);
        const double share = std::clamp(std::abs(at - 3) - 1, 0.0, 1.0);
        return Part(lightness + chroma * (share - 0.5));
    };
    return WebColours::FromComponents({part(0), part(4), part(2)});
}

/// The colour that many half cells and rows from the middle.
std::int32_t HoneycombColour(int x, int row) {
    const int ring = std::max(std::abs(row), (std::abs(x) + std::abs(row)) / 2);
    if (ring == 0) return WebColours::FromComponents({255, 255, 255});
    const double angle = std::atan2(-row * std::numbers::sqrt3, x);
    const double hue = std::fmod(angle / (2 * std::numbers::pi) + 1, 1.0) * 6;
    // From pale through pure, which the fourth ring is, to dark.
    constexpr double kLightness[] = {0.92, 0.82, 0.68, 0.5, 0.4, 0.28};
    return FromHue(hue, kLightness[ring - 1]);
}

} // namespace

ColourHexagon::ColourHexagon(std::string name) : Control(std::move(name)) {
    MakeCells();
    mCurrent = static_cast<int>(mCells.size()) - 1;
}

void ColourHexagon::MakeCells() {
    for (int row = -kRadius; row <= kRadius; ++row) {
        const int widest = 2 * kRadius - std::abs(row);
        for (int x = -widest; x <= widest; x += 2)
            mCells.push_back({x + 2 * kRadius, row + kRadius, HoneycombColour(x, row)});
    }
    for (int at = 0; at < kGreys; ++at) {
        const int part = 255 - at * 255 / (kGreys - 1);
        mCells.push_back({2 * at, kGreyRow, WebColours::FromComponents({part, part, part})});
    }
}

int ColourHexagon::GetColumns() const {
    return 4 * kRadius + 2;
}

int ColourHexagon::GetRows() const {
    return kGreyRow + 1;
}

void ColourHexagon::SetColor(std::int32_t value) {
    if (mColor == value) return;
    mColor = value;
    // White stands twice: the cell that the author is on stays current.
    if (!IsCell(mCurrent) || mCells[static_cast<std::size_t>(mCurrent)].Color != value) {
        const auto found = std::find_if(mCells.begin(), mCells.end(),
                                        [&](const Cell& cell) { return cell.Color == value; });
        mCurrent = found == mCells.end() ? -1 : static_cast<int>(found - mCells.begin());
    }
    TellChanged();
    Events.Change.Raise();
}

bool ColourHexagon::IsCell(int cell) const {
    return cell >= 0 && cell < static_cast<int>(mCells.size());
}

void ColourHexagon::ChooseCell(int cell) {
    const std::int32_t colour = mCells[static_cast<std::size_t>(cell)].Color;
    const bool moved = mCurrent != cell;
    mCurrent = cell;
    if (colour != mColor)
        SetColor(colour);
    else if (moved)
        TellChanged();
}

void ColourHexagon::UserClick(int cell) {
    if (AcceptsGestures() && IsCell(cell)) ChooseCell(cell);
}

void ColourHexagon::UserDblClick(int cell) {
    if (!AcceptsGestures() || !IsCell(cell)) return;
    ChooseCell(cell);
    Events.DblClick.Raise();
}

int ColourHexagon::UserKeyDown(int keyCode, int /*shift*/) {
    if (!AcceptsGestures()) return keyCode;
    int next = -1;
    switch (keyCode) {
    case KeyLeft:
    case KeyRight:
        next = CellBeside(keyCode == KeyLeft ? -1 : 1);
        break;
    case KeyUp:
    case KeyDown:
        next = CellInNextRow(keyCode == KeyUp ? -1 : 1);
        break;
    case KeyHome:
    case KeyEnd:
        next = EndOfRow(keyCode == KeyHome ? -1 : 1);
        break;
    default:
        return keyCode;
    }
    if (IsCell(next)) ChooseCell(next);
    return 0;
}

int ColourHexagon::CellBeside(int step) const {
    // From a colour of no cell, the keys lead to the middle.
    if (mCurrent < 0) return (static_cast<int>(mCells.size()) - kGreys) / 2;
    const int next = mCurrent + step;
    if (!IsCell(next)) return -1;
    const auto& cells = mCells;
    const bool sameRow =
        cells[static_cast<std::size_t>(next)].Row == cells[static_cast<std::size_t>(mCurrent)].Row;
    return sameRow ? next : -1;
}

int ColourHexagon::EndOfRow(int step) const {
    if (mCurrent < 0) return CellBeside(step);
    const int row = mCells[static_cast<std::size_t>(mCurrent)].Row;
    int at = mCurrent;
    while (IsCell(at + step) && mCells[static_cast<std::size_t>(at + step)].Row == row)
        at += step;
    return at;
}

int ColourHexagon::CellInNextRow(int step) const {
    if (mCurrent < 0) return CellBeside(step);
    const Cell& from = mCells[static_cast<std::size_t>(mCurrent)];
    int nearest = -1;
    int nearestDistance = 0;
    for (int at = 0; IsCell(at); ++at) {
        const Cell& cell = mCells[static_cast<std::size_t>(at)];
        const int rows = (cell.Row - from.Row) * step;
        if (rows <= 0) continue;
        // Rows count more than anything that lies beside.
        const int distance = rows * 1000 + std::abs(cell.X - from.X);
        if (nearest >= 0 && distance >= nearestDistance) continue;
        nearest = at;
        nearestDistance = distance;
    }
    return nearest;
}

} // namespace paperkite
