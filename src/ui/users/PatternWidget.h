#pragma once
// The unlock pattern: nine dots on a 3x3 grid, joined by dragging over them with the mouse.
// Releasing the button ends the pattern; one of at least kMinDots dots is `entered`, a
// shorter one is shown in the error colour and forgotten on the next press. Dots are
// numbered 1-9 row by row, and pattern() gives them in the order drawn ("14789"), as the
// login request's secret carries them. Colours from "style/patternwidget.ini".
#include "runtime/VyString.h"
#include "toolkit/widgets/CWidget.h"

#include <string>

class PatternWidget : public CWidget {
    VY_OBJECT(PatternWidget, CWidget)
public:
    static constexpr const char* kStyleFile = "style/patternwidget.ini";
    static constexpr int kMinDots = 4;

    explicit PatternWidget(VyWidget* parent = nullptr);

    std::string pattern() const { return m_dots; }
    bool isError() const { return m_error; }
    // Forgets the pattern (after it went out, or failed).
    void clear();
    // The dot (1-9) whose catching circle holds `pos`, 0 for none.
    int dotAt(VyPoint pos) const;
    VyPoint dotCentre(int dot) const;

    VySignal entered;

protected:
    void paintEvent(VyPaintEvent* e) override;
    void mousePressEvent(VyMouseEvent* e) override;
    void mouseMoveEvent(VyMouseEvent* e) override;
    void mouseReleaseEvent(VyMouseEvent* e) override;

private:
    void touch(VyPoint pos);
    int radius() const;

    std::string m_dots; // digits '1'-'9', each at most once
    bool m_drawing = false;
    bool m_error = false;
    vyargb m_background = 0xFF1C1E22;
    vyargb m_point = 0xFF8C929C;
    vyargb m_selected = 0xFF0096DC;
    vyargb m_errorColour = 0xFFDC3C3C;
    vyargb m_line = 0xFF0096DC;
    int m_lineWidth = 4;
};
