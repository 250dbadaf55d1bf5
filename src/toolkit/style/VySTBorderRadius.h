#pragma once
// A style value: the radius of rounded border corners in pixels, and a set flag.

struct VySTBorderRadius {
    int radius{};
    bool set = false;

    bool isSet() const { return set; }
    void setValue(int value) {
        radius = value;
        set = true;
    }
};
