#pragma once
// The tool tip: a small window with a widget's hint text, shown when the pointer has rested on
// the widget for a moment, placed beside the pointer (kept on the screen), and hidden when the
// pointer leaves the widget, a button is pressed or a key arrives. One tool tip serves every
// widget it was given a text for; it watches them through an event filter and forgets a widget
// when it is destroyed. It never takes the pointer or the focus.
#include <map>

#include "runtime/VyString.h"
#include "runtime/VyStringList.h"
#include "toolkit/core/VyWidget.h"

class VyToolTip : public VyWidget {
    VY_OBJECT(VyToolTip, VyWidget)
public:
    static constexpr int kShowDelayMs = 700;
    static constexpr int kPointerGapDesign = 24; // below the pointer, pixels at 1920x1080

    VyToolTip();
    ~VyToolTip() override;

    // An empty text removes the widget's tool tip.
    void setToolTip(VyWidget* widget, const VyString& text);
    VyString toolTip(VyWidget* widget) const;
    // The widget whose text is shown (or about to be), null when none.
    VyWidget* currentWidget() const { return m_current; }

protected:
    bool eventFilter(VyObject* watched, VyEvent* e) override;
    void timerEvent(VyTimerEvent* e) override;
    void paintEvent(VyPaintEvent* e) override;

private:
    void watchedDestroyed(VyObject* sender);
    void showTip();
    void hideTip();

    struct Entry {
        VyString text;
        const VyObject* object; // the widget as an object, to be recognised while it dies
    };
    std::map<VyWidget*, Entry> m_texts;
    VyWidget* m_current = nullptr;
    VyStringList m_lines;
    int m_timer = 0;
};
