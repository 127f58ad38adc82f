#pragma once
// Cursor values as the window classes compare them. The hourglass and the
// no-entry sign are what make a panel button refuse a click.

using TCursor = int;

constexpr TCursor crDefault = 0;
constexpr TCursor crHourGlass = -11;
constexpr TCursor crNo = -18;
constexpr TCursor crHandPoint = -21;

struct TPoint {
    int X = 0;
    int Y = 0;
    friend bool operator==(const TPoint&, const TPoint&) = default;
};
