#pragma once
// A style value: alignment flags (VyCanvas::Alignment), and a set flag.

struct VySTAlign {
    int align{};
    bool set = false;

    bool isSet() const { return set; }
    void setValue(int value) {
        align = value;
        set = true;
    }
};
