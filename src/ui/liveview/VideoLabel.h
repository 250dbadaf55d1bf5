#pragma once
// A line of text over a video cell (channel name and number): drawn on an opaque band of
// the common label colours, elided to the width the cell gives it.
#include "runtime/VyString.h"
#include "toolkit/core/VyWidget.h"

class VideoLabel : public VyWidget {
    VY_OBJECT(VideoLabel, VyWidget)
public:
    explicit VideoLabel(VyWidget* parent = nullptr);

    void setText(const VyString& text);
    const VyString& text() const { return m_text; }
    // Width of the band the text needs, padding included.
    int preferredWidth() const;
    static int fontPixelSize();

protected:
    void paintEvent(VyPaintEvent* e) override;

private:
    VyString m_text;
};
