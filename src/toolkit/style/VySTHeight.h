#pragma once
// A style value: a height in pixels, and a set flag.

struct VySTHeight {
    int height{};
    bool set = false;

    bool isSet() const { return set; }
    void setValue(int value) {
        height = value;
        set = true;
    }
};
