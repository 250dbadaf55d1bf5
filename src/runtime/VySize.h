#pragma once

struct VySize {
    int width = 0;
    int height = 0;

    constexpr VySize() = default;
    constexpr VySize(int w, int h)
        : width(w)
        , height(h) {}
    constexpr bool isEmpty() const { return width <= 0 || height <= 0; }
    constexpr bool operator==(VySize o) const { return width == o.width && height == o.height; }
    constexpr bool operator!=(VySize o) const { return !(*this == o); }
};
