#pragma once

struct VyPoint {
    int x = 0;
    int y = 0;

    constexpr VyPoint() = default;
    constexpr VyPoint(int px, int py)
        : x(px)
        , y(py) {}
    constexpr VyPoint operator+(VyPoint o) const { return {x + o.x, y + o.y}; }
    constexpr VyPoint operator-(VyPoint o) const { return {x - o.x, y - o.y}; }
    constexpr bool operator==(VyPoint o) const { return x == o.x && y == o.y; }
    constexpr bool operator!=(VyPoint o) const { return !(*this == o); }
};
