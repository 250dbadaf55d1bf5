#pragma once
// A style value: a width in pixels, and a set flag.

struct VySTWidth {
    int width{};
    bool set = false;

    bool isSet() const { return set; }
    void setValue(int value) {
        width = value;
        set = true;
    }
};
