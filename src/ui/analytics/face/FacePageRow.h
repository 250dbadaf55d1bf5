#pragma once
// The face pages lay their controls out in rows of one height; this places one row.
#include "toolkit/core/VyWidget.h"
#include "ui/UiLook.h"

#include <initializer_list>
#include <utility>

class FacePageRow {
public:
    static constexpr int kHeightDesign = 40; // pixels at 1920x1080
    static constexpr int kGapDesign = 12;
    static constexpr int kMarginDesign = 20;

    // Top of row `row` (0-based).
    static int top(int row) {
        return UiLook::scaledY(kMarginDesign + row * (kHeightDesign + kGapDesign));
    }
    // Widgets with their design widths, left to right from the margin.
    static void place(int row, std::initializer_list<std::pair<VyWidget*, int>> widgets) {
        int x = UiLook::scaledX(kMarginDesign);
        for (const auto& [w, designWidth] : widgets) {
            const int width = UiLook::scaledX(designWidth);
            if (w != nullptr)
                w->setGeometry(x, top(row), width, UiLook::scaledY(kHeightDesign));
            x += width + UiLook::scaledX(kGapDesign);
        }
    }
};
